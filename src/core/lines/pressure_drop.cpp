#include "lines/pressure_drop.h"

#include <algorithm>
#include <cmath>

#include "shell/numbers.h"
#include "shell/text.h"

namespace kv {

double FlowVelocity(double massFlow, double rho, double diMm) {
    const double d = diMm / 1000.0;
    return 4.0 * massFlow / (kPi * d * d * rho);
}

double StartDiameter(double massFlow, double rho, double w) {
    return 1000.0 * std::sqrt(4.0 * massFlow / (kPi * rho * w));
}

double FrictionFactor(double re) {
    double lambda = 0.0;
    if (re < 2300) lambda = 64.0 / re;
    else if (re < 100000) lambda = 0.3164 / std::pow(re, 0.25);
    else if (re > 100000) lambda = 0.3164 / std::pow(re, 0.25);
    // Prandtl-Karman for the smooth tube. The bound on the steps only
    // matters for values that never settle (a Reynolds number near 1).
    for (int step = 0; step < 200; ++step) {
        const double root = 2.0 * std::log10(re * std::sqrt(lambda)) - 0.8;
        const double next = 1.0 / (root * root);
        const double change = std::fabs(next - lambda);
        lambda = next;
        if (!(change > 5e-5)) break;
    }
    return lambda;
}

double FittingFactor(double diMm) {
    if (diMm < 22) return 1.25;
    if (diMm < 35) return 1.0;
    if (diMm < 54) return 0.75;
    if (diMm < 89) return 0.5;
    return 0.25;
}

double LineDropSingle(const LossRules& rules, double massFlow, double rho, double diMm, double lengthM, double eta,
                      double& zeta, double heightM, DropDetail* detail) {
    const double d = diMm / 1000.0;
    const double w = FlowVelocity(massFlow, rho, diMm);
    const double re = rho * w * d / eta;
    const double lambda = FrictionFactor(re);
    if (zeta == 0) zeta = 0.6 * lengthM / 10.0;
    // The zeta sum holds the tube's own allowance per 10 m; that share is
    // scaled by the bore, the fittings' share is taken as it is.
    const double tube = rules.tubeZeta * lengthM / 10.0;
    const double effective = FittingFactor(diMm) * tube + (zeta - tube);
    const double dynamic = rho * w * w / (2.0 * d);  // Pa per metre of length over lambda
    double friction = 0.0;
    if (rules.lossMode == kLossModePercent) {
        const double le = lengthM * rules.lossPercent / 100.0;
        friction = lambda * (lengthM + le) * dynamic;
    } else {
        // lambda (L + Le) with Le = d zeta / lambda, multiplied out so that a
        // friction factor of 0 leaves the fittings' loss instead of 0 / 0.
        friction = (lambda * lengthM + d * effective) * dynamic;
    }
    const double staticHead = kGravity * rho * heightM;
    if (detail) {
        detail->velocity = w;
        detail->reynolds = re;
        detail->lambda = lambda;
        detail->zeta = zeta;
        detail->multiplier = 1.0;
    }
    return staticHead / 100.0 + friction / 100.0;
}

double ChisholmB(double y, double g) {
    if (y <= 0.95) {
        if (g < 500) return 4.8;
        if (g < 1900) return 2400.0 / g;
        return 55.0 / std::sqrt(g);
    }
    if (y < 28) {
        if (g <= 600) return 520.0 / (y * std::sqrt(g));
        return 21.0 / y;
    }
    return 15000.0 / (y * y * std::sqrt(g));
}

double LineDropTwoPhase(const LossRules& rules, double massFlow, double rhoLiquid, double rhoVapour, double etaVapour,
                        double etaLiquid, double diMm, double lengthM, double x, double& zeta, DropDetail* detail) {
    DropDetail base;
    const double liquidOnly =
        LineDropSingle(rules, massFlow, rhoLiquid, diMm, lengthM, etaLiquid, zeta, 0.0, &base);
    const double d = diMm / 1000.0;
    const double g = 4.0 * massFlow / (kPi * d * d);
    const double y = std::sqrt(rhoLiquid / rhoVapour) * std::pow(etaVapour / etaLiquid, 0.1);
    const double q = std::clamp(std::isfinite(x) ? x : 0.0, 0.0, 1.0);
    double multiplier = 1.0;
    if (liquidOnly != 0.0) {
        const double b = ChisholmB(y, g);
        multiplier = 1.0 + (y * y - 1.0) * (std::pow(q, 1.8) + b * std::pow(q, 0.9) * std::pow(1.0 - q, 0.9));
    }
    if (detail) {
        *detail = base;
        const double rhoMix = 1.0 / (q / rhoVapour + (1.0 - q) / rhoLiquid);
        detail->velocity = FlowVelocity(massFlow, rhoMix, diMm);
        detail->multiplier = multiplier;
    }
    return liquidOnly * multiplier;
}

double OilCarryPercent(double rho, double w) { return 1.05 * std::sqrt(126.0 / rho) / w; }

double OilCarryShown(double share) {
    const double v = share * 1000.0;
    return std::isfinite(v) ? std::trunc(v) / 10.0 : v;
}

double CondenserLineQuality(std::string_view qualityText, double w, bool floodedOutlet, std::string_view autoWord) {
    if (floodedOutlet) return 0.0;
    const std::string_view entry = Trim(qualityText);
    if (entry.empty() || (!Trim(autoWord).empty() && EqualsNoCase(entry, Trim(autoWord)))) {
        double x = 0.0667;
        if (w < 1) x = 0.0476;
        if (w < 0.7) x = 0.0204;
        if (w <= 0.5) x = 0.01;
        return x;
    }
    return ToNumber(entry).value / 100.0;
}

double CondenserLineDensity(std::string_view qualityText, double w, double rhoLiquid, double rhoVapour,
                            bool floodedOutlet, std::string_view autoWord) {
    const double x = CondenserLineQuality(qualityText, w, floodedOutlet, autoWord);
    if (x == 0.0 || !(rhoVapour > 0.0)) return rhoLiquid;
    // Volume share of the vapour, then the mean of both phases.
    const double e = (x / rhoVapour) / (x / rhoVapour + (1.0 - x) / rhoLiquid);
    return (1.0 - e) * rhoLiquid + e * rhoVapour;
}

double CorrectedGasViscosity(double eta, double rho) { return eta * (1.0 + 0.00183 * (rho - 6.0)); }

}  // namespace kv
