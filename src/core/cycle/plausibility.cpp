#include "cycle/plausibility.h"

#include <cmath>

#include "cycle/scheme_screen.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

namespace {
// Share of Qh by which Q0 + P may stray: the single-stage samples stay within
// 2 % of it with their line losses.
constexpr double kBalanceShare = 0.03;
}  // namespace

std::vector<std::string> PlausibilityNotes(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    std::vector<std::string> notes;
    const double t0 = c.tEvapK, tc = c.tCondK;
    const std::string temps = " (t0 " + CutText(t0 - 273.15, 1) + " \u00b0C, tc " + CutText(tc - 273.15, 1) + " \u00b0C)";
    if (tc > t0 && t0 > 0) {
        const double carnot = t0 / (tc - t0);
        if (c.eer > carnot) notes.push_back("EER " + CutText(c.eer, 2) + " > Carnot " + CutText(carnot, 2) + temps);
    }
    if (c.tDischargeC <= tc - 273.15)
        notes.push_back("t2 " + CutText(c.tDischargeC, 1) + " \u00b0C <= tc" + temps);
    if (c.Qh > 0 && std::fabs(c.Q0 + c.pShaft - c.Qh) > kBalanceShare * c.Qh)
        notes.push_back("Q0 + P = " + CutText(c.Q0 + c.pShaft, 2) + " kW <> Qh " + CutText(c.Qh, 2) + " kW; COP Qh/P " +
                        CutText(c.Qh / c.pShaft, 2));
    return notes;
}

}  // namespace kv
