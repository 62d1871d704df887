// The component selection table (VentZeig): the articles of one series of a
// group rated at the plant's duty, coloured by how near each comes to it,
// with the energy class of air coolers and condensers, and the adoption of
// one row into the plant with its data sheet BT_calc.DAT.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/article.h"
#include "catalogue/selection.h"

namespace kv {

struct Workspace;

// How near a row's rated figure comes to the duty.
enum class CapacityBand { Near, Usable, Other };
// Screen colours of the bands: green 10, yellow 14, red 12.
int BandColour(CapacityBand band);
// Compressor rows: near above 0.95 D and below 1.1 D, usable above 0.85 D
// and below 1.3 D. Air coolers and condensers (wide): near above D and
// below 1.5 D, usable above D and below 5 D.
CapacityBand BandOf(double rated, double duty, bool wide);
const char* BandName(CapacityBand band);  // "near", "usable", "other"

// The figure behind the energy class and the class, "A++" to "E", of an
// article of group 600 or 650; an empty class for other groups.
double EnergyFigure(int groupCode, const Article& a);
std::string EnergyClass(int groupCode, const Article& a);

// A compressor at a frequency other than the mains.
struct InverterRating {
    double displacement = 0.0;  // m³/h at fRun
    double power = 0.0;         // kW at fRun
    double capacity = 0.0;      // kW at fRun
    CapacityBand band = CapacityBand::Other;
    std::string label;          // " (fRun Hz)"
};
InverterRating InverterRech(double catalogueDisplacement, double plantPower, double fieldValue, double qDuty,
                            double fRun, double fNet);

// The headings of the grid.
std::vector<std::string> KopfZeile(std::string_view unit);
std::vector<std::string> HeadVentTab();

struct SelectionTableRow {
    long long record = 0;
    std::string type, orderNumber, connection, description;
    double rated = 0.0;   // capacity at duty (kW), or for valves the capacity of the valve rule
    double price = 0.0;
    CapacityBand band = CapacityBand::Other;
    int colour = 12;
    std::string energyClass;
    bool meetsDuty = false;
    RatedRow rating;      // the figures of the kind's rule
    double sweptVolume = 0.0;  // compressors: m³/h at the mains frequency of the catalogue
};

struct SelectionTable {
    int catalogPosition = 0;  // group code + 2
    int group = 0;
    std::string base;
    int seriesPosition = 0;
    double duty = 0.0;        // QDuty, or QCond for groups 600 and 650
    std::vector<SelectionTableRow> rows;
    int marked = -1;          // index of the first row that meets the duty
    double qMin = 0.0, qMax = 0.0;
    std::string messageLine;  // "Qo min = ... kW, Qo max = ... kW"
    double frequency = 0.0;   // compressors run by an inverter: the frequency of the figures, Hz; 0 the mains
};

// Rates the rows of a compressor table at an inverter frequency `fRun`: the
// swept volume grows with the frequency over the mains frequency `fNet` of
// the catalogue, and the capacity with it; bands, marked row and the Qo
// line follow. A table of another group is left as it is.
void RateAtFrequency(const Workspace& ws, SelectionTable& t, double fRun, double fNet = 50);

// The inputs of the table besides the plant's state.
struct TableDuty {
    double qDuty = 0.0;        // kW
    double qCond = 0.0;        // kW, groups 600 and 650; 0 takes qDuty
    int unitFlag = 0;          // the plant's unit flag of a brine plant
};

// The component kind that rates the rows of a group.
int KindOfGroup(int groupCode);

// Compressor rows: the capacity at the plant's evaporating and condensing
// temperature from the swept volume V (field 2), the volumetric efficiency at
// V and the refrigerating effect of the cycle: V / 3600 x lambda x rho x
// (h vapour at evaporation - h liquid at condensation), cut to 2 decimals.
double CompressorCapacity(const Workspace& ws, double sweptVolume);

// An air cooler (600) or condenser (650) at the project's temperature
// difference: the rated capacity times design / rated difference (8 K, 15 K)
// times the unit factor of a brine plant's air coolers.
double HeatExchangerCapacity(const PlantDuty& plant, int groupCode, const Article& a, int unitFlag = 0);

// Fills the table from the series at `seriesPosition` of catalogue `base`,
// read once.
SelectionTable BuildSelectionTable(const Workspace& ws, int catalogPosition, std::string_view base,
                                   int seriesPosition, const TableDuty& duty);
std::string QoMessage(double qMin, double qMax);

// Adopts row `index`: the article goes into Verdpark.dat at the position of
// its kind, and its data sheet into BT_calc.DAT. False for a row out of range.
bool AdoptTableRow(const Workspace& ws, const SelectionTable& t, int index);

// Writes BT_calc.DAT for an article rated at the plant's state.
bool BtFileCreate(const Workspace& ws, const SelectionTable& t, const SelectionTableRow& row);

}  // namespace kv
