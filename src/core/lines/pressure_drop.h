// Pressure drop of refrigerant lines: flow velocity, friction factor, the
// allowance for fittings, single-phase and two-phase loss (Chisholm), the oil
// carrying margin of risers and the mean density of the condenser line.
// Diameters in mm, lengths in m, mass flows in kg/s, densities in kg/m³,
// viscosities in Pa s, losses in mbar. pi is taken as 3.1415 in every
// diameter formula, as the system has always sized with it.
#pragma once

#include <string_view>

namespace kv {

inline constexpr double kPi = 3.1415;
inline constexpr double kGravity = 9.81;

// How a line's fittings turn into length. Zeta: equivalent length from the
// zeta sum; Percent: a length allowance of `lossPercent` % of the line.
inline constexpr int kLossModeZeta = 0;
inline constexpr int kLossModePercent = 666;

struct LossRules {
    double tubeZeta = 0.6;  // allowance of straight tube per 10 m, zeta table index 9
    int lossMode = kLossModeZeta;
    double lossPercent = 0.0;
};

// What the loss functions found on the way.
struct DropDetail {
    double velocity = 0.0;  // m/s
    double reynolds = 0.0;
    double lambda = 0.0;
    double zeta = 0.0;        // the line's zeta after the default for 0
    double multiplier = 1.0;  // two-phase multiplier (1 for one phase)
};

// w = 4 m / (pi (di/1000)² rho).
double FlowVelocity(double massFlow, double rho, double diMm);
// The inside diameter in mm that gives velocity w.
double StartDiameter(double massFlow, double rho, double w);

// Smooth-tube friction factor. Start value 64/Re below 2300, Blasius
// 0.3164/Re^0.25 from 2300 and above 100000; at exactly 100000 the start is
// 0. Then the Prandtl-Karman iteration 1/sqrt(l) = 2 log10(Re sqrt(l)) - 0.8
// always runs, until a step changes lambda by no more than 5e-5: laminar
// flow therefore also gets the turbulent value, and a start of 0 stays 0.
double FrictionFactor(double reynolds);

// Factor on the tube allowance by bore: 1.25 below 22 mm, 1 below 35, 0.75
// below 54, 0.5 below 89, 0.25 from 89 mm.
double FittingFactor(double diMm);

// Loss of a line of one phase in mbar, with the static head of height h.
// A zeta of 0 becomes 0.6 per 10 m of length, and the caller's zeta takes
// that value. The tube's share of the zeta (tubeZeta per 10 m) is scaled by
// FittingFactor; the zeta gives an equivalent length unless the rules ask for
// a percentage.
double LineDropSingle(const LossRules& rules, double massFlow, double rho, double diMm, double lengthM, double eta,
                      double& zeta, double heightM, DropDetail* detail = nullptr);

// Loss of a two-phase line in mbar by Chisholm's method: the loss of the
// whole flow as liquid times the two-phase multiplier of quality x. The
// velocity in the detail is the mean velocity of the homogeneous mixture;
// Reynolds number and lambda are those of the liquid-only flow.
double LineDropTwoPhase(const LossRules& rules, double massFlow, double rhoLiquid, double rhoVapour, double etaVapour,
                        double etaLiquid, double diMm, double lengthM, double x, double& zeta,
                        DropDetail* detail = nullptr);
// Chisholm's B for property ratio Y and mass velocity G (kg/(m² s)).
double ChisholmB(double y, double g);

// Lowest velocity that carries oil up a riser over the line's velocity:
// 1.05 sqrt(126 / rho) / w. Shown as percent with one decimal, cut.
double OilCarryPercent(double rho, double w);
double OilCarryShown(double share);

// Mean density of the condenser line (liquid with some vapour). The quality
// text is the project's entry in percent; empty or the word for automatic
// takes a quality by the design velocity w. A flooded outlet holds no vapour.
double CondenserLineDensity(std::string_view qualityText, double w, double rhoLiquid, double rhoVapour,
                            bool floodedOutlet, std::string_view autoWord);
// The vapour quality that CondenserLineDensity works with.
double CondenserLineQuality(std::string_view qualityText, double w, bool floodedOutlet, std::string_view autoWord);

// Vapour viscosity corrected for density: eta (1 + 0.00183 (rho - 6)).
double CorrectedGasViscosity(double eta, double rho);

}  // namespace kv
