// The registry of working fluids: every name a user or an old project file
// gives a refrigerant is turned into one canonical name with its temperature
// window, its property table and its characteristic numbers. Compiled in;
// the only per-fluid file is the property table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Project;
struct Workspace;

struct RefrigerantEntry {
    std::string canonicalName;
    std::vector<std::string> aliases;  // exact spellings, compared after trimming
    std::string tableFile;
    int rowHint = 0;                   // data rows the table is expected to hold; 0: no table
    int gwp = 0;
    std::optional<int> tmin;           // lowest evaporating temperature, °C
    int tmax = 65;                     // highest condensing temperature, °C
    double designPressureRatio = 4.35;
    double charB = 0.9, charC = 0.0, charD = 0.0, charE = 0.01;
};

// Trims Project::KaelteM, writes back the canonical spelling and sets tmin
// and tmax by the normalisation chain: first match wins. tmax starts at 65
// every time; tmin is left standing by a branch that sets none.
void NormalizeRefrigerantName(Project& project);
// The canonical name and limits of a name, without a project.
struct NormalizedName {
    std::string name;
    std::optional<int> tmin;
    int tmax = 65;
    bool matched = false;
};
NormalizedName NormalizeName(std::string_view name);

// Row hint of the fluid's table (0 for an unknown fluid); the file name goes
// to `tableFile`, the GWP to project.Gwp (only for a known fluid), and seven
// fluids get their stored name repaired. Compared on the trimmed, upper-cased
// name.
int ResolveRefrigerantTable(Project& project, std::string& tableFile);
// The same look-up without side effects; nullopt for an unknown fluid.
struct TableInfo {
    std::string file;
    int rowHint = 0;
    int gwp = 0;
    std::string rewrite;  // the repaired name, empty when none
};
std::optional<TableInfo> LookupRefrigerantTable(std::string_view name);

// Selector 1 designPressureRatio, 2 charB, 3 charC, 4 charD, 5 charE; any
// other 0. The name is compared exactly.
double RefrigerantCharacteristic(std::string_view name, int selector);

// 0 when the name is known (every table row plus "R407B"); else 1, after the
// refusal message.
int CheckRefrigerantAvailable(Workspace& ws, std::string_view name);
bool IsRefrigerantKnown(std::string_view name);

// The combo lists, in their fixed order.
const std::vector<std::string>& RefrigerantListForProject();
const std::vector<std::string>& RefrigerantListFull();

// The whole entry of a fluid, for the batch tool and the refrigerant window.
std::optional<RefrigerantEntry> FindRefrigerant(std::string_view name);

// Correction of compressor capacity by refrigerant group, at tK (K).
double CapacityFactorByGroup(std::string_view name, double tK);
// Correction of evaporator capacity by refrigerant group. dtK is the
// temperature difference, kind and subKind the evaporator's catalogue kind,
// brineEvaporator whether the evaporator side carries a brine.
double EvaporatorFactorByGroup(std::string_view name, double tK, double dtK, int kind, int subKind,
                               bool brineEvaporator);

// True for "CO2" and "R744", trimmed and upper-cased.
bool IsCo2(std::string_view name);

}  // namespace kv
