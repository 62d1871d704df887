// The components of a calculated plant in the order in which the parts list
// is generated, each with the figures its selection is called with: the line
// it sits in, the line's size, the flow or capacity and the density.
#pragma once

#include <vector>

#include "catalogue/selection.h"

namespace kv {

struct Workspace;

// One request per component, in the fixed order of the list generation.
// Lines without a size keep an empty size text, so that their fittings are
// skipped.
std::vector<SelectRequest> PlantSelectionPlan(const Workspace& ws);

// Runs the whole plan; the state collects the drops and charges.
std::vector<SelectionResult> SelectPlant(Workspace& ws, SelectionState& state);

}  // namespace kv
