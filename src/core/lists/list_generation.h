// The list generation: every component of the calculated plant is selected
// in the fixed order of the parts list, and the rows go to the fittings list
// (Stklst.DAT, V_CHANGE.DAT) or the main units list (Vrdlst.DAT,
// A_CHANGE.DAT) with their accessories, the component entries of the report
// (ergDt1.DAT) and the plant's charge (FuellM.dat).
#pragma once

#include <array>
#include <string>
#include <vector>

#include "catalogue/selection.h"

namespace kv {

struct Workspace;

struct ListGeneration {
    bool ok = false;
    std::string message;              // why the run stopped, or a write failure
    int fittingRows = 0, unitRows = 0, accessoryRows = 0;
    int emptyRows = 0;                // rows that carry the empty article " - "
    std::array<double, 9> lineDrops{};  // mbar of the components per line section, steps a to f
    double charge = 0.0, secondCharge = 0.0;  // kg, as FuellM.dat holds them
    std::vector<SelectRequest> requests;
    std::vector<SelectionResult> results;
};

// The caption of a component kind in the lists (brine plants have their own
// words for kinds 0, 1, 5 and 7).
std::string KindListCaption(const Workspace& ws, int kind);

// Kinds whose rows go to the main units list.
bool IsListedMainUnit(int kind);

// Splits an order-number reference "#<number>/<four>" into its two parts:
// the part in front of the first "/" (else "\", else the end) and the four
// characters behind it.
std::array<std::string, 2> SplitReference(std::string_view orderNumber);

// Runs the generation from the calculated cycle state of the workspace.
ListGeneration GenerateLists(Workspace& ws);

}  // namespace kv
