// The components of a calculated plant in the order in which the parts list
// is generated, each with the figures its selection is called with: the line
// it sits in, the line's size, the flow or capacity and the density.
#pragma once

#include <vector>

#include "catalogue/selection.h"

namespace kv {

struct Workspace;
struct CycleState;

// One request per component, in the fixed order of the list generation
// (suction line, its heat exchanger and further fittings, discharge,
// liquid, condensate and part-load line, injection, evaporator, compressor
// stages, economizer branches, condenser, receiver, condensing pressure
// regulator, extra line). Lines without a size keep an empty size text, so
// that their fittings are skipped.
std::vector<SelectRequest> PlantSelectionPlan(const Workspace& ws);

// How many fittings of a kind the project's line sheet puts into a line
// section; 0 leaves the kind out of that line. Kinds the sheet does not
// count are taken once.
int FittingCount(const Workspace& ws, int kind, int section);

// Density of a two-phase mixture at a vapour quality of 0.2 from the
// saturated densities: what the condensate line carries.
double CondensateDensity(const CycleState& c);

// The plant's refrigerant charge without the vessels and valves the
// selection adds: the content of the lines and of the two heat exchangers, kg.
double BaseCharge(const Workspace& ws);

// Runs the whole plan; the state collects the drops and charges.
std::vector<SelectionResult> SelectPlant(Workspace& ws, SelectionState& state);

}  // namespace kv
