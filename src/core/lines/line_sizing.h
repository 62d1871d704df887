// The sizing walks of the refrigerant lines: each picks a row of the active
// pipe table for its line and computes loss, loss as saturation temperature,
// velocity and oil carrying margin. The cycle kernel calls them in each pass
// with the fluid data of the pass; nothing here reads files.
//
// Suction, discharge and liquid line start at the size that the design
// velocity gives and are raised one size at a time until the loss is within
// its limit or the table ends, so a line never ends below its velocity's
// size. The injection line walks up from the smallest size. The condenser
// line, the hot-gas bypass and the economizer lines take the size of their
// velocity without a walk. While the diameters are fixed the stored rows are
// taken and nothing is sized.
#pragma once

#include <array>
#include <string>

#include "lines/pressure_drop.h"

namespace kv {

struct PipeTable;

// A line run as the project's line sheet describes it.
struct LineRun {
    double length = 0.0;  // m
    double height = 0.0;  // m, riser height (suction, discharge, liquid)
    double zeta = 0.0;    // zeta sum of the line
};

// The fluid of a line of one phase.
struct SingleFlow {
    double massFlow = 0.0;  // kg/s
    double rho = 0.0;       // kg/m³
    double eta = 0.0;       // Pa s
};

// The fluid of the injection line after the expansion device.
struct TwoPhaseFlow {
    double massFlow = 0.0;   // kg/s, all branches together
    double rhoLiquid = 0.0;  // saturated liquid at the evaporating level
    double rhoVapour = 0.0;  // saturated vapour at the evaporating level
    double etaVapour = 0.0;
    double etaLiquid = 0.0;
    double quality = 0.0;    // vapour quality after expansion
};

struct SizingRules {
    const PipeTable* pipes = nullptr;
    LossRules loss;
    bool diametersFixed = false;
    // Per line section 1..8 (see LineSection) the row taken while the
    // diameters are fixed. A row outside the table is sized as usual.
    std::array<int, 9> storedRow{};
};

struct LineResult {
    bool sized = false;     // a row was chosen and computed
    bool limitMet = true;   // the loss is within the line's limit (lines with one)
    int row = 0;            // row of the pipe table; past the table when the injection line found none
    double di = 0.0, da = 0.0;  // mm
    double massFlow = 0.0;  // kg/s in the line (per branch for the injection line)
    double lossMbar = 0.0;  // with the static head
    double lossK = 0.0;     // the loss as saturation temperature
    double velocity = 0.0;  // m/s
    double oilCarry = 0.0;  // lowest oil-carrying velocity over the velocity (suction, discharge)
    double reynolds = 0.0, lambda = 0.0;
    double zeta = 0.0;          // the zeta the loss was computed with
    double rhoAfterDrop = 0.0;  // suction line: density at the compressor inlet
};

// mbar of loss that make one kelvin of saturation temperature: 1000 dpdtEvap
// on the low-pressure side, 1000 dpdtEvap dpdtRatio on the high side.
inline double MbarPerKelvinLow(double dpdtEvap) { return 1000.0 * dpdtEvap; }
inline double MbarPerKelvinHigh(double dpdtEvap, double dpdtRatio) { return 1000.0 * dpdtEvap * dpdtRatio; }

// One line at a given row, as the size selector recalculates it when the
// user changes a size by hand: loss with the static head, K, velocity and oil
// margin. An empty table or a row outside it gives an unsized result. (The
// suction line's inlet density correction comes with SizeSuctionLine: call
// it with the diameters fixed and the chosen row stored.)
LineResult LineAtRow(const SizingRules& rules, int row, const SingleFlow& flow, const LineRun& run,
                     double mbarPerKelvin);
LineResult TwoPhaseLineAtRow(const SizingRules& rules, int row, const TwoPhaseFlow& flow, int branches,
                             const LineRun& run, double mbarPerKelvin);

// Injection line: per distributor branch (mass flow over `branches`), the
// first size from the smallest whose loss is below maxDtInjection. None:
// row past the table, not sized, nothing to show.
LineResult SizeInjectionLine(const SizingRules& rules, const TwoPhaseFlow& flow, int branches, const LineRun& run,
                             double maxDtInjection, double dpdtEvap);

// Suction line. After the walk the density at the compressor inlet is
// corrected by the drop, rho (p - dp) / p with pEvap in bar, and velocity
// and oil margin are taken with it.
LineResult SizeSuctionLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run, double wSuction,
                           double maxDtSuction, double dpdtEvap, double pEvap);
LineResult SizeDischargeLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run,
                             double wDischarge, double maxDtDischarge, double dpdtEvap, double dpdtRatio);
LineResult SizeLiquidLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run, double wLiquid,
                          double maxDtLiquid, double dpdtEvap, double dpdtRatio);

// Condenser line, condenser to receiver: the flow's density is the mean
// density of CondenserLineDensity; no height, no walk.
LineResult SizeCondenserLine(const SizingRules& rules, const SingleFlow& flow, const LineRun& run,
                             double wCondensate, double dpdtEvap, double dpdtRatio);

// Hot-gas bypass, sized only when its length is above 0. Kinds 1 and 2 take
// the whole mass flow, others the share (100 - part load %) / 100; kind 2
// carries saturated vapour of the condensing level, the others discharge gas.
struct HotGasBypassFlow {
    double massFlow = 0.0;  // of the plant, kg/s
    int kind = 0;
    double partLoadPercent = 100.0;
    double rhoDischarge = 0.0;
    double rhoVapCond = 0.0;
    double etaDischarge = 0.0;
};
LineResult SizeHotGasBypass(const SizingRules& rules, const HotGasBypassFlow& flow, const LineRun& run,
                            double wDischarge, double dpdtEvap, double dpdtRatio);

// Economizer lines: the size one above the row of the design velocity, a
// fixed zeta (1.2 liquid, 0.8 suction) and the run's length. The liquid line
// carries the side stream as liquid of the condensing level, the suction line
// the vapour of the intermediate level with EconomizerVapourViscosity.
inline constexpr double kEconomizerLiquidZeta = 1.2;
inline constexpr double kEconomizerSuctionZeta = 0.8;
LineResult SizeEconomizerLiquid(const SizingRules& rules, const SingleFlow& flow, double length, double wLiquid,
                                double mbarPerKelvin);
LineResult SizeEconomizerSuction(const SizingRules& rules, const SingleFlow& flow, double length, double wSuction,
                                 double mbarPerKelvin);
// 0.9 sqrt(eta suction state x eta discharge state).
double EconomizerVapourViscosity(double etaSuction, double etaDischarge);

// The size figure of a line: its name, "0" for a line of length 0, empty
// when nothing was sized.
std::string LineSizeText(const PipeTable& table, const LineResult& r, double length);

}  // namespace kv
