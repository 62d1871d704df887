// The two searches of the project data screen over all installed catalogues:
// the compressor search, which returns a swept volume for the project, and
// the heat-exchanger selection, which rates the air coolers or condensers at
// the project's duty and keeps the chosen one in hx_prj1.dat.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Workspace;
struct DataScreen;

// The operating point the searches rate at: the project's inputs checked and
// its cycle calculated, unless a calculation has completed already. False
// when the input check refuses the project.
bool OperatingPointForSearch(Workspace& ws, DataScreen& screen);

struct CompressorCandidate {
    std::string base, title, series, type, orderNumber;
    long long record = 0;
    int principle = 0;          // unit kind code of the record; 0 when the catalogue leaves it open
    double sweptVolume = 0.0;   // m³/h
    double capacity = 0.0;      // kW at the project's temperatures
    double power = 0.0;         // kW electric, as the catalogue states it
    double cop = 0.0;
};

// Compressors of every compressor catalogue of katalg.lst whose series the
// refrigerant's list names (all series when the list names none of that
// catalogue), of principle `principle` (0: any), with a capacity at the
// calculated operating point from qMin to qMax kW (qMax 0: no upper limit),
// ordered by capacity.
std::vector<CompressorCandidate> SearchCompressors(const Workspace& ws, double qMin, double qMax, int principle);

// The value the compressor search returns to the project data screen: the
// chosen row's swept volume, or -1 when none is chosen.
double CompressorSearchResult(const std::vector<CompressorCandidate>& rows, int chosen);

struct HeatExchangerCandidate {
    std::string base, title, series, type, orderNumber;
    long long record = 0;
    double capacity = 0.0;       // kW at the project's difference
    double volume = 0.0;         // dm³, inside the tubes
    std::string energyClass;
};

// Air coolers (group 600) or condensers (650) of all catalogues that meet the
// duty and stay below five times it, smallest first.
std::vector<HeatExchangerCandidate> SearchHeatExchangers(const Workspace& ws, int groupCode, double duty);

// hx_prj1.dat: six lines of six items; the chosen unit stands in the first.
bool WriteChosenHeatExchanger(const Workspace& ws, int groupCode, const HeatExchangerCandidate& c);
// The designation kept in hx_prj1.dat for the plant scheme; empty when none.
std::string ChosenHeatExchanger(const Workspace& ws);
// The same for one group (600 air cooler, 650 condenser), with its energy
// class behind it; empty when the chosen unit is of another group.
std::string ChosenHeatExchanger(const Workspace& ws, int groupCode);

}  // namespace kv
