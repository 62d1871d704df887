#include "cycle/plausibility.h"

#include <algorithm>
#include <cmath>

#include "cycle/scheme_screen.h"
#include "lines/pipe_table.h"
#include "lines/pressure_drop.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

namespace {
// Share of Qh by which Q0 + P may stray: the single-stage samples stay within
// 2 % of it with their line losses.
constexpr double kBalanceShare = 0.03;
// The two-phase loss of the injection line takes Chisholm's B with the limit
// Y = 0.95 where the textbook has 9.5; a note when that makes it this many
// times the textbook value.
constexpr double kChisholmShare = 1.5;

// Chisholm's B for Y below 9.5 as the textbook gives it.
double TextbookB(double g) { return g < 500 ? 4.8 : g < 1900 ? 2400.0 / g : 55.0 / std::sqrt(g); }

// The injection line's two-phase multiplier against the textbook one.
double InjectionLossRatio(const Workspace& ws, double& y) {
    const CycleState& c = ws.cycle;
    const double di = ws.pipes.Di(c.lineRow[Injection]) / 1000;
    const int branches = ws.project.ParallelInjection > 0 ? ws.project.ParallelInjection : 1;
    if (!(di > 0) || !(c.rhoVapEvap > 0) || !(c.etaLiqEvap > 0)) return 1.0;
    const double etaVap = c.etaVapEvap > 1e-3 ? c.etaVapEvap * 1e-3 : c.etaVapEvap;
    const double g = 4 * (c.massFlow / branches) / (3.1415 * di * di);
    y = std::sqrt(c.rhoLiqEvap / c.rhoVapEvap) * std::pow(etaVap / c.etaLiqEvap, 0.1);
    if (!(y > 0.95 && y < 9.5)) return 1.0;
    const double x = std::clamp(c.qualityInlet, 0.0, 1.0);
    const auto multiplier = [&](double b) {
        return 1 + (y * y - 1) * (std::pow(x, 1.8) + b * std::pow(x, 0.9) * std::pow(1 - x, 0.9));
    };
    return multiplier(ChisholmB(y, g)) / multiplier(TextbookB(g));
}
}  // namespace

bool AboveCarnot(const CycleState& c) {
    return c.tCondK > c.tEvapK && c.tEvapK > 0 && c.eer > c.tEvapK / (c.tCondK - c.tEvapK);
}

std::vector<std::string> PlausibilityNotes(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    std::vector<std::string> notes;
    const double t0 = c.tEvapK, tc = c.tCondK;
    const std::string temps = " (t0 " + CutText(t0 - 273.15, 1) + " \u00b0C, tc " + CutText(tc - 273.15, 1) + " \u00b0C)";
    if (AboveCarnot(c))
        notes.push_back("EER " + CutText(c.eer, 2) + " > Carnot " + CutText(t0 / (tc - t0), 2) + temps);
    if (c.tDischargeC <= tc - 273.15)
        notes.push_back("t2 " + CutText(c.tDischargeC, 1) + " \u00b0C <= tc" + temps);
    if (c.Qh > 0 && std::fabs(c.Q0 + c.pShaft - c.Qh) > kBalanceShare * c.Qh)
        notes.push_back("Q0 + P = " + CutText(c.Q0 + c.pShaft, 2) + " kW <> Qh " + CutText(c.Qh, 2) + " kW; COP Qh/P " +
                        CutText(c.Qh / c.pShaft, 2));
    double y = 0.0;
    if (const double ratio = InjectionLossRatio(ws, y); ratio > kChisholmShare)
        notes.push_back(ws.captions[Cap::LineInjection] + ": Chisholm B (Y " + CutText(y, 1) + " > 0.95): " +
                        CutText(ratio, 1) + " x the loss with the limit 9.5");
    return notes;
}

}  // namespace kv
