#include "catalogue/selection_plan.h"

#include <cmath>

#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

namespace {

// Line sections of the cycle state.
enum PlanSection { kInjection = 1, kSuction = 2, kDischarge = 3, kLiquid = 4, kCondensate = 5 };

std::string SizeOf(const Workspace& ws, int section) {
    const int row = ws.cycle.lineRow[static_cast<std::size_t>(section)];
    return row > 0 && ws.pipes.HasRow(row) ? ws.pipes.Name(row) : std::string();
}

// Density of the condensate line: a two-phase mixture at a vapour quality of 0.2.
double CondensateDensity(const CycleState& c) {
    if (!(c.rhoVapCond > 0) || !(c.rhoLiqCond > 0)) return c.rhoLiqCond;
    const double a = (0.2 / c.rhoVapCond) / ((0.8 / c.rhoLiqCond) + (0.2 / c.rhoVapCond));
    return c.rhoVapCond * a + c.rhoLiqCond * (1 - a);
}

}  // namespace

std::vector<SelectRequest> PlantSelectionPlan(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    const double flow = c.massFlow, q0 = c.Q0;
    const double rhoSuction = c.rhoAfterDrop > 0 ? c.rhoAfterDrop : c.rhoSuction;
    std::vector<SelectRequest> plan;
    auto add = [&](std::initializer_list<int> kinds, const char* line, int section, double first, double second) {
        for (int kind : kinds) {
            SelectRequest q;
            q.kind = kind;
            q.first = first;
            q.second = second;
            q.lineName = line;
            q.lineSize = section > 0 ? SizeOf(ws, section) : std::string("1");
            plan.push_back(q);
        }
    };
    add({5, 15, 6, 1, 0}, "Suction", kSuction, flow, rhoSuction);
    add({8}, "Suction", kSuction, q0, rhoSuction);
    add({7, 16, 10}, "Suction", kSuction, flow, rhoSuction);
    add({5, 6, 1, 7, 9, 16}, "Discharge", kDischarge, flow, c.rhoDischarge);
    add({5, 4, 3, 6, 1}, "Liquid", kLiquid, flow, c.rhoLiqCond);
    add({6, 1, 7}, "Condensate", kCondensate, flow, CondensateDensity(c));
    if (ws.project.PartLoadPercent > 0 && ws.project.PartLoadPercent < 100)
        add({5}, "Part load", kLiquid, flow * (100 - ws.project.PartLoadPercent) / 100, c.rhoLiqCond);
    add({2}, "Injection", kInjection, q0, c.rhoLiqCond);
    add({13}, "Evaporator", 0, q0, c.rhoVapEvap);
    add({12}, "Compressor", 0, q0, rhoSuction);
    const double qc = c.Qh > 0 ? c.Qh : q0 + c.pShaft;
    add({14}, "Condenser", 0, Cut(qc, 2), c.rhoLiqCond);
    // The charge that the receiver must hold: the liquid content of the two
    // heat exchangers as the project states their volumes.
    const double volume = ToNumber(ws.project.VerdVol) + ToNumber(ws.project.KondVol);  // dm³
    add({17}, "Receiver", 0, volume * c.rhoLiqCond / 1000, c.rhoLiqCond);
    add({18}, "Condensate", kCondensate, flow, CondensateDensity(c));
    return plan;
}

std::vector<SelectionResult> SelectPlant(Workspace& ws, SelectionState& state) {
    std::vector<SelectionResult> results;
    if (!state.files) state.files = std::make_shared<SelectionFiles>();
    for (const SelectRequest& q : PlantSelectionPlan(ws)) results.push_back(SelectComponent(ws, state, q));
    return results;
}

}  // namespace kv
