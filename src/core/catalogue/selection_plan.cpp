#include "catalogue/selection_plan.h"

#include <cmath>
#include <numbers>

#include "project/field_checks.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

namespace {

std::string SizeOf(const Workspace& ws, int section) {
    const int row = ws.cycle.lineRow[static_cast<std::size_t>(section)];
    return row > 0 && ws.pipes.HasRow(row) ? ws.pipes.Name(row) : std::string();
}

// The line names of the requests stay the same in every language, so that a
// parked fitting is found again after the language changed; the lists show
// the caption of the section.
const char* LineWord(int section) {
    static constexpr const char* kWords[] = {"",       "Injection",  "Suction",         "Discharge", "Liquid",
                                             "Condensate", "Bypass", "Economizer liquid", "Economizer suction"};
    return section >= 0 && section <= 8 ? kWords[section] : "";
}

// The column of the line sheet's fittings grid that counts a kind of
// fitting; 0 for a kind the sheet does not count.
int FittingColumn(int kind) {
    switch (kind) {
    case 6: return 1;   // ball valves
    case 1: return 2;   // shut-off valves
    case 8: return 3;   // liquid-suction heat exchanger
    case 7: return 4;   // check valves
    case 9: return 5;   // oil separator
    case 4: return 6;   // sight glass
    case 5: return 7;   // solenoid valves
    case 3: return 8;   // filter drier
    case 15: return 11; // suction filter
    case 16: return 12; // vibration absorbers
    case 0: case 18: return 13;  // pressure regulators
    default: return 0;
    }
}

}  // namespace

int FittingCount(const Workspace& ws, int kind, int section) {
    const Project& p = ws.project;
    if (kind == 10) return p.HGBypass != 0 ? 1 : 0;
    const int column = FittingColumn(kind);
    // The sheet counts the fittings of the five main lines; the branches of
    // economizer and bypass carry one of each fitting the plan names.
    if (column == 0 || section < 1 || section > 5) return 1;
    const double n = ToNumber(p.Armatur.Cell(column, section));
    return n >= 1 ? WholeNumber(n) : 0;
}

double CondensateDensity(const CycleState& c) {
    if (!(c.rhoVapCond > 0) || !(c.rhoLiqCond > 0)) return c.rhoLiqCond;
    const double a = (0.2 / c.rhoVapCond) / ((0.8 / c.rhoLiqCond) + (0.2 / c.rhoVapCond));
    return c.rhoVapCond * a + c.rhoLiqCond * (1 - a);
}

double BaseCharge(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    const Project& p = ws.project;
    // Density each section carries: vapour in suction, discharge, bypass and
    // economizer suction line, liquid in liquid and economizer liquid line,
    // the mixture at quality 0.2 in the condensate line, and in the
    // injection line the mixture after expansion, taken like the condensate.
    const double rhoSuction = c.rhoAfterDrop > 0 ? c.rhoAfterDrop : c.rhoSuction;
    const std::array<double, 9> rho = {0,           CondensateDensity(c), rhoSuction,      c.rhoDischarge,
                                       c.rhoLiqCond, CondensateDensity(c), c.rhoDischarge, c.rhoLiqCond,
                                       c.rhoVapEvap};
    double kg = 0;
    for (int s = 1; s <= kLineSectionCount; ++s) {
        const double di = c.lineDi[static_cast<std::size_t>(s)] / 1000;  // m
        const double length = ToNumber(p.Geometr.Cell(s, GeoLength));
        if (!(di > 0) || !(length > 0) || !std::isfinite(length)) continue;
        kg += std::numbers::pi / 4 * di * di * length * rho[static_cast<std::size_t>(s)];
    }
    // Heat exchangers: a dry-expansion evaporator holds about a quarter of its
    // volume as liquid, a condenser about a third (volumes in dm³).
    const double vEvap = ToNumber(p.VerdVol), vCond = ToNumber(p.KondVol);
    if (vEvap > 0) kg += 0.25 * vEvap / 1000 * c.rhoLiqEvap;
    if (vCond > 0) kg += 0.35 * vCond / 1000 * c.rhoLiqCond;
    return std::isfinite(kg) ? kg : 0.0;
}

std::vector<SelectRequest> PlantSelectionPlan(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    const Project& p = ws.project;
    const double flow = c.massFlow, q0 = c.Q0;
    const double parallel = p.HGBypass != 0 ? c.bypassMass : 0.0;
    const bool economizer = p.EcoFlag != 0;
    const bool secondInjection = ToNumber(p.Armatur.Cell(15, 1)) > 0;
    const double side = economizer || secondInjection ? c.ecoMass : 0.0;
    const double rhoSuction = c.rhoAfterDrop > 0 ? c.rhoAfterDrop : c.rhoSuction;
    std::vector<SelectRequest> plan;
    auto add = [&](std::initializer_list<int> kinds, int section, double first, double second,
                   const char* unitName = nullptr) {
        for (int kind : kinds) {
            SelectRequest q;
            q.kind = kind;
            q.first = first;
            q.second = second;
            q.section = section;
            q.lineName = unitName ? unitName : LineWord(section);
            // A unit is selected whatever the lines: its size text is "1".
            q.lineSize = section > 0 && !unitName ? SizeOf(ws, section) : std::string("1");
            if (!unitName && section > 0) {
                q.quantity = FittingCount(ws, kind, section);
                if (q.quantity == 0) q.flagA = 0;
            }
            plan.push_back(q);
        }
    };
    auto withLiquid = [&](std::size_t from) {
        for (std::size_t i = from; i < plan.size(); ++i) {
            plan[i].secondLine = LineWord(Liquid);
            plan[i].secondSize = SizeOf(ws, Liquid);
        }
    };
    add({5, 15, 6, 1, 0}, Suction, flow, rhoSuction);                          // a
    std::size_t from = plan.size();
    add({8}, Suction, q0, rhoSuction);                                          // b
    add({7, 16, 10}, Suction, flow, rhoSuction);                                // c
    withLiquid(from);
    add({5, 6, 1, 7, 9, 16}, Discharge, side + flow, c.rhoDischarge);          // d
    add({5, 4, 3, 6, 1}, Liquid, flow, c.rhoLiqCond);                           // e
    if (c.dpLiquid > 0) add({7}, Liquid, flow, c.rhoLiqCond);                   // f
    add({6, 1, 7}, Condensate, side + flow, CondensateDensity(c));              // g
    if (p.PartLoadPercent > 0 && p.PartLoadPercent < 100) {                     // h
        add({5}, Liquid, flow * (100 - p.PartLoadPercent) / 100, c.rhoLiqCond);
        plan.back().lineName = "Part load";
    }
    add({2}, Injection, q0, c.rhoLiqCond);                                      // i
    add({13}, 0, q0, c.rhoVapEvap, "Evaporator");                               // j
    add({12}, 0, q0, rhoSuction, "Compressor");                               // k
    if (IsTwoStagePlant(p.AnlagenTyp))                                          // l
        add({12}, 0, q0 + c.ecoHeat, c.ecoDensity > 0 ? c.ecoDensity : rhoSuction, "Compressor 2");
    if (economizer) {
        add({6, 5}, EconomizerLiquid, side, c.rhoLiqCond);                      // m
        add({2}, EconomizerLiquid, Cut(c.ecoHeat, 2), c.rhoLiqCond);            // n
        add({33}, 0, Cut(c.ecoHeat, 2), c.ecoDensity, "Economizer");
    }
    if (secondInjection) {                                                      // o
        add({6, 5}, Injection, side, c.rhoLiqCond);
        add({2}, Injection, Cut(c.ecoHeat, 2), c.rhoLiqCond);
    }
    add({14}, 0, Cut(q0 + c.pShaft, 2), c.rhoLiqCond, "Condenser");             // p
    add({17}, 0, BaseCharge(ws), c.rhoLiqCond, "Receiver");                     // q
    add({18}, Condensate, parallel + flow, CondensateDensity(c));               // r
    if (p.HGBypass > 0) add({7}, HotGasBypass, 1, c.rhoDischarge);              // s
    return plan;
}

std::vector<SelectionResult> SelectPlant(Workspace& ws, SelectionState& state) {
    std::vector<SelectionResult> results;
    if (!state.files) state.files = std::make_shared<SelectionFiles>();
    for (const SelectRequest& q : PlantSelectionPlan(ws)) results.push_back(SelectComponent(ws, state, q));
    return results;
}

}  // namespace kv
