// The typical year of a heat pump: the climate and building profile of the
// file JG_HEAT.DAT, the daily temperature shape, the night setback, the heat
// demand of the building and the evaporating temperature that the heat
// source gives at each hour.
#pragma once

#include <array>
#include <string>

namespace kv {

struct Workspace;
struct Captions;

// One month of the profile, lines 2 to 13 of JG_HEAT.DAT.
struct MonthProfile {
    std::string name;       // month name, as the profile screen wrote it
    double tHigh = 0.0;     // warmest outdoor temperature of the typical day, °C
    double tLow = 0.0;      // coldest outdoor temperature of the typical day, °C
    double tRoomDay = 0.0;  // room temperature by day, °C
    double tRoomNight = 0.0;  // room temperature by night (setback), °C
};

// JG_HEAT.DAT: line 1 holds the design outdoor temperature (item 3) and the
// design heat load (item 4) among ten items; lines 2 to 13 one month each,
// January first, ten items of which the first five are used.
struct AnnualProfile {
    double tNorm = 0.0;  // design outdoor temperature, °C
    double QNorm = 0.0;  // design heat load of the building, kW
    std::array<MonthProfile, 12> months{};
    bool present = false;  // the file had content
};

inline constexpr const char* kProfileFile = "JG_HEAT.DAT";
inline constexpr int kProfileItems = 10;  // items of every line of the profile

// Reads the profile strictly by position. A missing file gives present =
// false and zeros; an item that cannot be read leaves the value that stood
// before, so a short file repeats the last month it held.
AnnualProfile ReadAnnualProfile(const Workspace& ws);

// Writes a profile in the layout ReadAnnualProfile takes; line 1 carries the
// location and the two design figures, month lines are padded with zeros to
// ten items. False when the file could not be written.
bool WriteAnnualProfile(const Workspace& ws, const AnnualProfile& profile, const std::string& location);

// The daily temperature shape: factor of hour 1..24 between the warmest (0,
// hour 15) and the coldest (1, hour 5) temperature of the day. 0 outside.
inline constexpr std::array<double, 24> kDayShape = {0.7,  0.8,  0.9,  0.97, 1,    0.99, 0.92, 0.84,
                                                     0.74, 0.64, 0.51, 0.38, 0.18, 0.04, 0,    0.01,
                                                     0.04, 0.11, 0.18, 0.26, 0.34, 0.42, 0.53, 0.61};
double DayShape(int hour);

// Outdoor temperature of hour 1..24: tHigh - (tHigh - tLow) DayShape(hour),
// cut to hundredths: the integer part of (100 t + 0.005), divided by 100.
double HourTemperature(const MonthProfile& m, int hour);

// The night setback runs from hour 23 to hour 5: those hours take the night
// room temperature, hours 6 to 22 the day temperature.
bool IsNightHour(int hour);
double RoomTemperature(const MonthProfile& m, int hour);

// Heat demand of the building at outdoor temperature t, kW: a straight line
// through the design point (tNorm, QNorm) that reaches 0 at the heating limit
// 4 K below the room temperature. Negative above the heating limit; 0 when
// the design point lies on the heating limit.
double HeatDemand(double QNorm, double tNorm, double room, double t);

// Ground cooling of a brine source: how far the ground loop has cooled below
// its design temperature in month 1..12, K. January 3.9 down to 0 in summer.
double AuskuehlF(int month);
// The same by month name, compared with the month captions of the language;
// a name that is none of them gets 0.
double AuskuehlF(const std::string& monthName, const Captions& captions);
// The month 1..12 whose caption the name is, 0 for none.
int MonthOfName(const std::string& monthName, const Captions& captions);

// Heat source kinds by the first letter of the pair text ("A2/W35"):
// outdoor air, ground loop with brine, and any other (water, waste heat),
// whose temperature does not follow the weather.
enum class SourceKind { Air, Brine, Steady };
SourceKind SourceOf(const std::string& pairText);

// Evaporating temperature of an hour, °C.
//  - Air: x = t - dtVerd; the evaporator pulls further away from the
//    starting evaporating temperature t0Start: x + 0.12 (x - t0Start) above
//    it, x + 0.15 (x - t0Start) at or below it.
//  - Brine: the design evaporating temperature less the ground cooling of
//    the month.
//  - Steady: the evaporating temperature of the state as it stands.
struct SourceInputs {
    double t0Start = 0.0;     // t0 field at the start of the year, °C
    double toDesign = 0.0;    // evaporating temperature of the design point, °C
    double dtVerd = 0.0;      // evaporator approach of the project, K
    double toCurrent = 0.0;   // evaporating temperature of the current state, °C
};
double EvaporatingTemperature(SourceKind kind, const SourceInputs& in, double t, double groundCooling);

// The rounding of the typical year: the integer part (towards minus
// infinity) of 100 (value + 0.005), divided by 100.
double RoundHundredths(double value);

}  // namespace kv
