// What the line sizing takes from the project and its working files, and
// what it leaves: the line runs of the sheet, the design velocities and
// allowed losses, the stored sizes in "onestDM.dat", the results in
// CycleState and the figures that turn red.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "lines/line_sizing.h"

namespace kv {

struct Workspace;
struct CycleState;

// The limits of the lines. The allowed losses (K) of liquid, discharge and
// injection line and the four design velocities (m/s) are lines 5 to 11 of
// "SubAct.dat"; the suction line's allowed loss is a field of the project.
struct LineLimits {
    double maxDtSuction = 1.0;
    double maxDtLiquid = 0.5;
    double maxDtDischarge = 1.0;
    double maxDtInjection = 1.0;
    double wSuction = 10.0;
    double wDischarge = 12.0;
    double wLiquid = 0.8;
    double wCondensate = 0.5;
    double partLoadPercent = 100.0;  // compare value of the oil margin
};

struct LineData {
    std::array<LineRun, 9> run{};  // per line section 1..8
    LineLimits limits;
    LossRules loss;
    int injectionBranches = 1;
    int bypassKind = 0;
    std::string condenserQuality;  // % or the word for automatic
    bool floodedCondenser = false;
};

// Reads the line sheet (Geometr rows 1 to 3; heights only for suction,
// discharge and liquid line), "SubAct.dat" and the project's fields. A zeta
// table tube value of 0 counts as 0.6.
LineData ReadLineData(const Workspace& ws);
// The same with the auxiliary values already read by the caller.
LineData ReadLineData(const Workspace& ws, const std::vector<std::string>& auxiliaryValues);

// The rules of a run over ws.pipes: loss rules of the project, the fixed
// flag and stored rows of ws.cycle.
SizingRules MakeSizingRules(const Workspace& ws);

// Writes one line's result into the per-line arrays of CycleState.
void StoreLineResult(CycleState& cycle, int section, const LineResult& r);

// The figures shown in red:
//   loss in K of suction, discharge, liquid line above its allowed loss;
//   velocity of suction, discharge, liquid, condenser line above its design
//   velocity; oil margin (as percent) of suction and discharge line above
//   the part load percentage.
// Reads the results stored in `cycle` and sets its red marks.
void MarkLineLimits(CycleState& cycle, const LineLimits& limits);

// "onestDM.dat": the rows of injection, suction, discharge, liquid and
// condenser line, one integer a line. Index 0 unused.
struct LineSizes {
    std::array<int, 6> row{};
};
LineSizes ReadLineSizes(const Workspace& ws);
bool WriteLineSizes(const Workspace& ws, const LineSizes& sizes);
// The sizes in force: lineRow 1..5 of the cycle state.
LineSizes CurrentLineSizes(const CycleState& cycle);

// Title and text of the question on a stored sizing in the language of the
// workspace.
struct StoredSizingQuestion {
    std::string title, text;
};
StoredSizingQuestion MakeStoredSizingQuestion(const Workspace& ws);

// The first calculation of a screen opening: reads "onestDM.dat"; when its
// suction and liquid rows are both above 0 they become the rows of the run,
// the diameters are fixed and the user is asked whether to size the lines
// anew; Yes clears the fixed flag. Returns the flag.
bool OfferStoredSizing(Workspace& ws);

}  // namespace kv
