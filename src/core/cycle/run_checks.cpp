#include "cycle/run_checks.h"

#include <cmath>
#include <utility>

#include "cycle/scheme_screen.h"
#include "shell/captions.h"
#include "shell/workspace.h"

namespace kv {

bool SuctionLossBearable(Workspace& ws, double lossMbar) {
    const CycleState& c = ws.cycle;
    if (std::isfinite(lossMbar) && lossMbar / 1000 < c.pEvap) return true;
    const Captions& cap = ws.captions;
    ws.ui.Message(ws.Title(),
                  cap[Cap::LineSuction] + ": " + cap[Cap::PressureDrop] + " " + CutText(lossMbar / 1000, 2) +
                      " bar >= " + cap[Cap::EvapPressure] + " " + CutText(c.pEvap, 2) + " bar",
                  MessageIcon::Error);
    return false;
}

bool ResultsFinite(Workspace& ws) {
    const CycleState& c = ws.cycle;
    const std::pair<const char*, double> figures[] = {
        {"m", c.massFlow},   {"Q0", c.Q0},    {"Qel", c.pShaft},          {"t2", c.tDischargeC},
        {"V", c.requiredSweptVolume}, {"EER", c.eer}, {"dp suction", c.dpSuction}, {"dp discharge", c.dpDischarge}};
    for (const auto& [name, value] : figures)
        if (!std::isfinite(value)) {
            ws.ui.Message(ws.Title(),
                          ws.captions[Cap::BtnCalculate] + ": " + name + " = " + (std::isnan(value) ? "NaN" : "inf"),
                          MessageIcon::Error);
            return false;
        }
    return true;
}

}  // namespace kv
