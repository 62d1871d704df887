// The seasonal performance of a heat pump: the typical year run hour by
// hour through the cycle kernel, 24 hours of a typical day in each of the 12
// months, with the heat demand of the building, the capacity the plant gives
// at that hour's source temperature, the electricity it takes and the
// supplementary heat where it falls short. Gives sCOP and ETAs,h, the
// running cost and CO2 of a year, and the hour table ERG_HEAT.DAT.
#pragma once

#include <functional>
#include <string>

namespace kv {

struct Workspace;
struct SchemeScreen;

inline constexpr const char* kSeasonFile = "ERG_HEAT.DAT";

// Days a typical hour of the month stands for: 28 in February, 30.63 in
// every other month, so that the year has 364.93 days.
inline constexpr double kDaysOfMonth = 30.63;
inline constexpr double kDaysOfFebruary = 28;
double DaysOfMonth(int month);

// kg of CO2 per kWh of electricity in the seasonal figures.
inline constexpr double kCo2PerKWh = 0.58;
// Price per kWh of the heat that the supplementary heater (a boiler) gives.
inline constexpr double kExtraHeatPrice = 0.065;
// Primary energy factor of electricity behind ETAs,h = sCOP / 2.5.
inline constexpr double kPrimaryEnergyFactor = 2.5;

// What the run sums up over the year. Weighted hours are heat pump hours at
// full load: an hour at part load counts Q / QPlant, an hour beyond the
// plant's capacity counts 1. The COP weight is Q / QPlant in both cases and
// is not capped at 1, so hours beyond the capacity weigh their COP more than
// they count in hours. Extra hours sum 1 - Q / QPlant over those hours and
// are therefore negative; they are kept as the run books them.
struct SeasonAccumulators {
    double weightedHours = 0.0;
    double weightedCop = 0.0;
    double energyTotal = 0.0;  // electric energy, kWh
    double extraHours = 0.0;
    double extraHeat = 0.0;    // supplementary heat, kWh
};

// One typical hour booked into the accumulators: demand Q and plant
// capacity QPlant in kW, `days` the days of the month it stands for.
struct HourBooking {
    double power = 0.0;   // electric power Q / COP, kW
    double energy = 0.0;  // electric energy over the month, kWh
    double extra = 0.0;   // supplementary heat, kW; 0 at full cover
};
HourBooking BookHour(SeasonAccumulators& acc, double days, double Q, double QPlant, double cop);

// The figures of the year.
struct SeasonalResult {
    bool ran = false;          // the year was calculated and ERG_HEAT.DAT written
    double scop = 0.0;         // sCOP, rounded to hundredths; 0 without heating hours
    double etaSh = 0.0;        // ETAs,h, %, to a tenth (cut)
    double copMinusOne = 0.0;  // sCOP - 1, to hundredths (cut)
    double energyTotal = 0.0;  // electric energy per year, kWh
    double annualCost = 0.0;   // energy price x whole kWh
    double co2Tons = 0.0;      // t CO2 per year
    double extraHeat = 0.0;    // supplementary heat per year, whole kWh
    double extraHeatCost = 0.0;  // its cost at kExtraHeatPrice, to a tenth
    double weightedHours = 0.0;  // full-load hours of the heat pump
    double weightedCop = 0.0;
    double extraHours = 0.0;     // negative, as booked
    double heatDemand = 0.0;     // heat the building takes in the year, kWh
    double heatingHours = 0.0;   // hours of the year with a heat demand
    double copMax = 0.0, copMin = 0.0;  // over the hours with a demand
    double hoursAboveCarnot = 0.0;      // hours whose EER the model puts above Carnot
};

// The summary figures from the accumulators; `energyPrice` per kWh.
SeasonalResult SeasonalFigures(const SeasonAccumulators& acc, double energyPrice);

// Shown per hour while the year runs: hour, outdoor and evaporating temperature.
using SeasonProgress = std::function<void(const std::string& text)>;

// The whole year on the plant of the scheme screen. Reads JG_HEAT.DAT (a
// missing profile: message 23, nothing runs), writes ERG_HEAT.DAT, leaves
// ETAs,h in Eta_heiz and the supplementary heat in Zuheiz, and puts the
// design point back as it stood. The compressor is the one of the design
// point: a swept volume kept on the screen stays, else the volume the design
// point demands is held for the year, so that the capacity follows the
// source temperature. A year without any heating hour shows message 24.
SeasonalResult RechKern(Workspace& ws, SchemeScreen& s, const SeasonProgress& progress = {});

}  // namespace kv
