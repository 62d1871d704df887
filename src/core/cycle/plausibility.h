// Notes on figures of a calculated operating point that the empirical
// refrigerant model gives but that physics rules out or the plant's balance
// does not bear: shown beside the figures so that the engineer does not take
// them at face value. The figures themselves stay as the model gives them.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Workspace;

// Notes on the operating point of ws.cycle:
// - an EER above the Carnot limit between the evaporating and the condensing
//   (gas cooler exit) temperature;
// - a discharge temperature not above the condensing temperature;
// - Q0 + P off Qh by more than the line losses account for (3 %);
// - an injection line loss that the Chisholm limit of Y = 0.95 (the
//   textbook has 9.5) makes more than 1.5 times the textbook value.
std::vector<std::string> PlausibilityNotes(const Workspace& ws);

struct CycleState;
// True when the EER of `c` lies above the Carnot EER between its evaporating
// and condensing (gas cooler exit) temperatures, which no plant can reach.
bool AboveCarnot(const CycleState& c);

}  // namespace kv
