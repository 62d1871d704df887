#include "lines/line_sizing.h"

#include <algorithm>
#include <cmath>

#include "lines/pipe_table.h"
#include "project/project.h"

namespace kv {

namespace {

bool HasTable(const SizingRules& rules) { return rules.pipes && rules.pipes->PipeRowCount > 0; }

// The stored row of a section while the diameters are fixed, else 0.
int FixedRow(const SizingRules& rules, int section) {
    if (!rules.diametersFixed || !HasTable(rules) || section < 0 || section > 8) return 0;
    const int row = rules.storedRow[static_cast<std::size_t>(section)];
    return rules.pipes->HasRow(row) ? row : 0;
}

// The first row whose di is not below the integer part of the diameter
// that the design velocity gives; the last row when none is.
int VelocityRow(const PipeTable& t, const SingleFlow& flow, double w) {
    const double d = std::trunc(StartDiameter(flow.massFlow, flow.rho, w));
    const int row = static_cast<int>(PipeLookup(t, d, 3, ""));
    return std::clamp(row, 1, t.PipeRowCount);
}

// Loss of one row without the static head.
double FrictionLoss(const SizingRules& rules, int row, const SingleFlow& flow, double length, double& zeta,
                    DropDetail& detail) {
    return LineDropSingle(rules.loss, flow.massFlow, flow.rho, rules.pipes->Di(row), length, flow.eta, zeta, 0.0,
                          &detail);
}

LineResult Finish(const SizingRules& rules, int row, const SingleFlow& flow, const LineRun& run, double loss,
                  const DropDetail& detail, double mbarPerKelvin) {
    LineResult r;
    r.sized = true;
    r.row = row;
    r.di = rules.pipes->Di(row);
    r.da = rules.pipes->Da(row);
    r.massFlow = flow.massFlow;
    r.lossMbar = loss + kGravity * flow.rho * run.height / 100.0;
    r.lossK = r.lossMbar / mbarPerKelvin;
    r.velocity = detail.velocity;
    r.oilCarry = OilCarryPercent(flow.rho, r.velocity);
    r.reynolds = detail.reynolds;
    r.lambda = detail.lambda;
    r.zeta = detail.zeta;
    return r;
}

// The raising walk of suction, discharge and liquid line.
LineResult WalkUp(const SizingRules& rules, int section, const SingleFlow& flow, const LineRun& run, double w,
                  double maxDtK, double mbarPerKelvin) {
    if (!HasTable(rules)) return {};
    const PipeTable& t = *rules.pipes;
    const int fixed = FixedRow(rules, section);
    int row = fixed ? fixed : VelocityRow(t, flow, w);
    const double limit = maxDtK * mbarPerKelvin;
    double zeta = run.zeta;
    DropDetail detail;
    double loss = 0.0;
    for (;;) {
        loss = FrictionLoss(rules, row, flow, run.length, zeta, detail);
        if (fixed || row >= t.PipeRowCount) break;
        if (loss <= limit) break;
        ++row;
    }
    LineResult r = Finish(rules, row, flow, run, loss, detail, mbarPerKelvin);
    r.limitMet = loss <= limit;
    return r;
}

// A line sized from its velocity without a walk; `above` takes the next
// larger size.
LineResult ByVelocity(const SizingRules& rules, int section, const SingleFlow& flow, const LineRun& run, double w,
                      double mbarPerKelvin, bool above) {
    if (!HasTable(rules)) return {};
    const PipeTable& t = *rules.pipes;
    int row = FixedRow(rules, section);
    if (!row) {
        row = VelocityRow(t, flow, w);
        if (above) row = std::min(row + 1, t.PipeRowCount);
    }
    double zeta = run.zeta;
    DropDetail detail;
    const double loss = FrictionLoss(rules, row, flow, run.length, zeta, detail);
    return Finish(rules, row, flow, run, loss, detail, mbarPerKelvin);
}

}  // namespace

LineResult LineAtRow(const SizingRules& rules, int row, const SingleFlow& flow, const LineRun& run,
                     double mbarPerKelvin) {
    if (!HasTable(rules) || !rules.pipes->HasRow(row)) return {};
    double zeta = run.zeta;
    DropDetail detail;
    const double loss = FrictionLoss(rules, row, flow, run.length, zeta, detail);
    return Finish(rules, row, flow, run, loss, detail, mbarPerKelvin);
}

LineResult TwoPhaseLineAtRow(const SizingRules& rules, int row, const TwoPhaseFlow& flow, int branches,
                             const LineRun& run, double mbarPerKelvin) {
    if (!HasTable(rules) || !rules.pipes->HasRow(row)) return {};
    const double m = flow.massFlow / std::max(branches, 1);
    double zeta = run.zeta;
    DropDetail detail;
    const double loss = LineDropTwoPhase(rules.loss, m, flow.rhoLiquid, flow.rhoVapour, flow.etaVapour,
                                         flow.etaLiquid, rules.pipes->Di(row), run.length, flow.quality, zeta,
                                         &detail);
    LineResult r;
    r.sized = true;
    r.row = row;
    r.di = rules.pipes->Di(row);
    r.da = rules.pipes->Da(row);
    r.massFlow = m;
    r.lossMbar = loss;
    r.lossK = loss / mbarPerKelvin;
    r.velocity = detail.velocity;
    r.reynolds = detail.reynolds;
    r.lambda = detail.lambda;
    r.zeta = detail.zeta;
    return r;
}

LineResult SizeInjectionLine(const SizingRules& rules, const TwoPhaseFlow& flow, int branches, const LineRun& run,
                             double maxDtInjection, double dpdtEvap) {
    if (!HasTable(rules)) return {};
    const double perK = MbarPerKelvinLow(dpdtEvap);
    const double limit = maxDtInjection * perK;
    if (const int fixed = FixedRow(rules, Injection)) {
        LineResult r = TwoPhaseLineAtRow(rules, fixed, flow, branches, run, perK);
        r.limitMet = r.lossMbar < limit;
        return r;
    }
    for (int row = 1; row <= rules.pipes->PipeRowCount; ++row) {
        LineResult r = TwoPhaseLineAtRow(rules, row, flow, branches, run, perK);
        if (r.lossMbar < limit) return r;
    }
    // No size is good enough: the index stands past the table.
    LineResult none;
    none.row = rules.pipes->PipeRowCount + 1;
    none.limitMet = false;
    return none;
}

LineResult SizeSuctionLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run, double wSuction,
                           double maxDtSuction, double dpdtEvap, double pEvap) {
    LineResult r = WalkUp(rules, Suction, flow, run, wSuction, maxDtSuction, MbarPerKelvinLow(dpdtEvap));
    if (!r.sized) return r;
    // The compressor draws gas thinned by the drop.
    r.rhoAfterDrop = pEvap > 0 ? flow.rho * (pEvap - r.lossMbar / 1000.0) / pEvap : flow.rho;
    r.velocity = FlowVelocity(flow.massFlow, r.rhoAfterDrop, r.di);
    r.oilCarry = OilCarryPercent(r.rhoAfterDrop, r.velocity);
    return r;
}

LineResult SizeDischargeLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run,
                             double wDischarge, double maxDtDischarge, double dpdtEvap, double dpdtRatio) {
    return WalkUp(rules, Discharge, flow, run, wDischarge, maxDtDischarge, MbarPerKelvinHigh(dpdtEvap, dpdtRatio));
}

LineResult SizeLiquidLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run, double wLiquid,
                          double maxDtLiquid, double dpdtEvap, double dpdtRatio) {
    return WalkUp(rules, Liquid, flow, run, wLiquid, maxDtLiquid, MbarPerKelvinHigh(dpdtEvap, dpdtRatio));
}

LineResult SizeCondenserLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run,
                             double wCondensate, double dpdtEvap, double dpdtRatio) {
    LineRun flat = run;
    flat.height = 0.0;
    return ByVelocity(rules, Condensate, flow, flat, wCondensate, MbarPerKelvinHigh(dpdtEvap, dpdtRatio), false);
}

LineResult SizeHotGasBypass(const SizingRules& rules, const HotGasBypassFlow& flow, const LineRun& run,
                            double wDischarge, double dpdtEvap, double dpdtRatio) {
    if (!(run.length > 0)) return {};
    SingleFlow f;
    f.massFlow = (flow.kind == 1 || flow.kind == 2) ? flow.massFlow
                                                     : flow.massFlow * (100.0 - flow.partLoadPercent) / 100.0;
    f.rho = flow.kind == 2 ? flow.rhoVapCond : flow.rhoDischarge;
    f.eta = flow.etaDischarge;
    LineRun flat = run;
    flat.height = 0.0;
    return ByVelocity(rules, HotGasBypass, f, flat, wDischarge, MbarPerKelvinHigh(dpdtEvap, dpdtRatio), false);
}

LineResult SizeEconomizerLiquid(const SizingRules& rules, const SingleFlow& flow, double length, double wLiquid,
                                double mbarPerKelvin) {
    const LineRun run{length, 0.0, kEconomizerLiquidZeta};
    return ByVelocity(rules, EconomizerLiquid, flow, run, wLiquid, mbarPerKelvin, true);
}

LineResult SizeEconomizerSuction(const SizingRules& rules, const SingleFlow& flow, double length, double wSuction,
                                 double mbarPerKelvin) {
    const LineRun run{length, 0.0, kEconomizerSuctionZeta};
    return ByVelocity(rules, EconomizerSuction, flow, run, wSuction, mbarPerKelvin, true);
}

double EconomizerVapourViscosity(double etaSuction, double etaDischarge) {
    return 0.9 * std::sqrt(etaSuction * etaDischarge);
}

std::string LineSizeText(const PipeTable& table, const LineResult& r, double length) {
    if (!r.sized) return {};
    if (length == 0) return "0";
    return table.Name(r.row);
}

}  // namespace kv
