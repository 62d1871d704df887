// The checks that stop a calculation rather than let it carry figures that
// are no numbers: each tells the user why (a message box with the product
// title) and returns false.
#pragma once

namespace kv {

struct Workspace;

// A suction line whose loss reaches the evaporating pressure would leave the
// compressor a negative pressure and density.
bool SuctionLossBearable(Workspace& ws, double lossMbar);

// The figures a run ends with must be numbers; one that is not is named.
bool ResultsFinite(Workspace& ws);

}  // namespace kv
