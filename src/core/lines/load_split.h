// The load split screen: a suction or discharge line parted into two to
// four parallel branches, each sized for its share of the mass flow with
// the line's run and limits; the result goes to SP_TempS.dat or
// SP_TempD.dat (one row per branch) and to sp_print.dat for the report.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct SplitBranch {
    int branch = 0;
    double share = 0.0;      // %
    double capacity = 0.0;   // kW of the branch
    double massFlow = 0.0;   // kg/s
    std::string size;        // pipe size text
    double lossMbar = 0.0, lossK = 0.0, velocity = 0.0;
    bool limitMet = true;
};

struct LoadSplitScreen {
    bool discharge = false;            // false: the suction line
    int branches = 2;                  // 2..4
    std::array<std::string, 4> share{"50", "50", "", ""};  // % as typed
    std::vector<SplitBranch> rows;
    std::vector<std::string> messages;
};

inline constexpr int kMaxSplitBranches = 4;

// Opens the screen on the line; shares of an earlier split are read back
// from its file, else equal shares are proposed.
void OpenLoadSplit(Workspace& ws, LoadSplitScreen& s, bool discharge);
// Sizes the branches; false with a message when the shares are not numbers
// or do not add up to 100 %.
bool CalculateLoadSplit(Workspace& ws, LoadSplitScreen& s);
// Writes the branch file and sp_print.dat.
bool SaveLoadSplit(Workspace& ws, const LoadSplitScreen& s);

}  // namespace kv
