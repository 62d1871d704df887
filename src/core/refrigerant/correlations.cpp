#include "refrigerant/correlations.h"

#include <array>
#include <cmath>
#include <string>

#include "cycle/cycle_state.h"
#include "shell/numbers.h"
#include "shell/text.h"

namespace kv {
namespace {

// A fitted row: what the reference data gave for a fluid (see the generator,
// tools/fit_correlations.py). A part that was not fitted is all zeros.
struct FittedSet {
    std::string_view name;
    std::array<double, 4> gas;        // PolyViscosity a, b, c, d
    std::array<double, 3> liquid;     // ExpViscosity a, b, c
    std::array<double, 3> cpFactors;  // common form f at evaporator outlet, suction, discharge
    std::array<double, 2> cpOwn;      // own form c0 + c1 t
};

#include "refrigerant/correlation_sets.inc"

enum class CpKind {
    Common,              // Rankine form, f per role
    CommonLinearT,       // the same with its third term linear in T
    Ammonia,             // ammonia form, f per role
    AmmoniaWarmSuction,  // ammonia form; the suction factor rises above 0 °C evaporating
    Propane,             // propane form, f per role
    Own,                 // c0 + c1 t in every role
    Co2,                 // ammonia form with the CO2 factors a2 .. a5
};

enum class ViscosityKind {
    Fitted,    // PolyViscosity and ExpViscosity with the fitted row
    LightGas,  // the methane-to-R14 set
    Co2,       // the CO2 set with its role factors
    Ammonia,   // the CO2 polynomial and exponential without factors
    R134a,     // two gas sets, its own liquid form and factors
    R404a,     // Sutherland gas, two-range liquid
};

struct Branch {
    std::array<std::string_view, 2> names;  // trimmed, upper case
    double molarMass;                       // kg/kmol; blends mass-weighted as the trade's tables give them
    CpKind cp;
    // cp factors at evaporator outlet, suction, discharge, or own form c0, c1;
    // all zeros: taken from the fitted row.
    std::array<double, 3> f;
    ViscosityKind viscosity;
    std::string_view fitted;  // row of kFittedSets, empty for none
    double c0 = 1.043;        // level of the isentropic exponent
};

using C = CpKind;
using V = ViscosityKind;

constexpr Branch kBranches[] = {
    // The old CFC sets: their factors and viscosities are fitted.
    {{"R11"}, 137.37, C::Common, {}, V::Fitted, "R11"},
    {{"R12"}, 120.91, C::Common, {}, V::Fitted, "R12"},
    {{"R13"}, 104.46, C::Common, {}, V::Fitted, "R13"},
    {{"R13B1"}, 148.91, C::Common, {}, V::Fitted, "R13B1"},
    // Low-temperature fluids of cascades.
    {{"R50", "METHAN"}, 16.04, C::Common, {4.113, 3.41, 3.0888}, V::LightGas, ""},
    {{"R170", "ETHAN"}, 30, C::Common, {2.203, 2.41, 2.212}, V::LightGas, ""},
    {{"R1150", "ETHYLEN"}, 28, C::Common, {1.983, 2.04, 1.7636}, V::LightGas, ""},
    {{"R14"}, 88, C::Own, {}, V::LightGas, "R14"},
    {{"R23"}, 70.01, C::Own, {}, V::Fitted, "R23"},
    {{"R508A"}, 95.39, C::Own, {}, V::Fitted, "R508A"},
    {{"R508B"}, 95.39, C::Own, {}, V::Fitted, "R508B"},
    // HCFCs and their blends.
    {{"R22"}, 86.48, C::Common, {0.812, 0.785, 0.86}, V::Fitted, "R22"},
    {{"R502"}, 111.6, C::Common, {0.863, 0.863, 0.908}, V::Fitted, "R502"},
    {{"R123"}, 152.9, C::Own, {0.671, 0.001765}, V::Fitted, "R123"},
    {{"R124"}, 136.48, C::Own, {}, V::Fitted, "R124", 1.0},
    {{"R401A"}, 0.34 * 136.5 + 0.13 * 66 + 0.53 * 86.47, C::Common, {0.863, 0.863, 0.885}, V::Fitted, "R401A"},
    {{"R401B"}, 0.28 * 136.5 + 0.11 * 66 + 0.61 * 86.47, C::Common, {0.837, 0.837, 0.858}, V::Fitted, "R401B"},
    {{"R402A"}, 0.02 * 44.09 + 0.6 * 120.02 + 0.38 * 86.47, C::Common, {0.929, 0.929, 1.007}, V::Fitted, "R402A"},
    {{"R402B"}, 0.02 * 44.09 + 0.38 * 120 + 0.6 * 86.47, C::Common, {0.889, 0.889, 0.94}, V::Fitted, "R402B"},
    {{"R408A"}, 87, C::Common, {0.95, 0.95, 1.05}, V::Fitted, "R408A", 1.039},
    {{"R409A"}, 97.4, C::Common, {0.832, 0.832, 0.855}, V::Fitted, "R409A", 1.033},
    {{"ISC_69L", "R403B"}, 111.6, C::Common, {0.863, 0.863, 0.908}, V::Fitted, "ISC_69L"},
    // Natural refrigerants.
    {{"CO2", "R744"}, 44, C::Co2, {0.56, 0.531, 0.927}, V::Co2, ""},
    {{"AMMONIAK", "R717"}, 17.03, C::AmmoniaWarmSuction, {1, 0.902, 0.8865}, V::Ammonia, ""},
    {{"R723"}, 23, C::Ammonia, {0.75, 0.79, 0.73}, V::Ammonia, ""},
    {{"PROPAN", "R290"}, 44.09, C::Propane, {1.09, 1.12, 1.21}, V::Fitted, "PROPAN"},
    {{"R290_600"}, 53.23, C::Propane, {1, 1.14, 1.253}, V::Fitted, "R290_600"},
    {{"R443A"}, 43.65, C::Propane, {1.09, 1.115, 1.25}, V::Fitted, "R443A"},
    {{"PROPYLEN", "R1270"}, 42.08, C::CommonLinearT, {1.58, 1.616, 1.645}, V::Fitted, "PROPYLEN"},
    {{"R432B"}, 40.399, C::CommonLinearT, {1.58, 1.52, 1.645}, V::Fitted, "R432B"},
    {{"R600A"}, 58.123, C::Own, {}, V::Fitted, "R600A"},
    // HFCs, HFOs and their blends.
    {{"R134A"}, 102, C::Common, {1.028, 1.029, 1.125}, V::R134a, ""},
    {{"R152A"}, 66.1, C::Common, {1.16, 1.17, 1.36}, V::Fitted, "R152A"},
    {{"R32"}, 52.02, C::Common, {1.18, 1.18, 1.347}, V::Fitted, "R32"},
    {{"R227"}, 170.03, C::CommonLinearT, {0.8, 0.8, 0.91}, V::Fitted, "R227", 1.057},
    {{"HFO1234ZE"}, 114, C::Common, {1.035, 0.95, 1.122}, V::Fitted, "HFO1234ZE"},
    {{"HFO1234YF"}, 114, C::Common, {1.035, 0.95, 1.122}, V::Fitted, "HFO1234YF"},
    {{"R404A"}, 97.6, C::Common, {1.053, 1.023, 1.14}, V::R404a, ""},
    {{"HX4"}, 94.5, C::CommonLinearT, {0.9, 0.9, 0.97}, V::R404a, ""},
    {{"FX_90"}, 109.3, C::Common, {0.98, 1.06, 1.07}, V::Fitted, "FX_90"},
    {{"R507"}, 98.9, C::Own, {}, V::Fitted, "R507"},
    {{"R410A"}, 81, C::Common, {0.97, 0.97, 1.2}, V::Fitted, "R410A"},
    {{"R407A"}, 90.1, C::Common, {0.98, 0.98, 1.039}, V::Fitted, "R407A"},
    {{"R407C", "AC9000"}, 80.13, C::Common, {0.995, 0.995, 0.995}, V::Fitted, "R407C", 1.034},
    {{"R407F"}, 82.1, C::Common, {0.978, 0.969, 1.14}, V::Fitted, "R407F"},
    {{"R407H"}, 88.71, C::Common, {1.08, 0.919, 1.23}, V::Fitted, "R407H"},
    {{"R427A"}, 90.4, C::Common, {0.9, 0.965, 0.985}, V::Fitted, "R427A", 1.041},
    {{"R438A"}, 0.442 * 102 + 0.45 * 120.02 + 0.085 * 53.02 + 0.018 * 58.123, C::Common, {0.89, 0.87, 0.945},
     V::Fitted, "R438A", 1.041},
    {{"R448A"}, 0.26 * 52.02 + 0.26 * 120.02 + 0.27 * 114 + 0.21 * 102, C::Common, {0.845, 0.831, 1.179},
     V::Fitted, "R448A", 1.041},
    {{"R449A"}, 0.243 * 52.02 + 0.247 * 120.02 + 0.253 * 114 + 0.257 * 102, C::Common, {0.855, 0.845, 1.175},
     V::Fitted, "R449A", 1.041},
    {{"R452A"}, 103.5, C::Common, {0.928, 0.91, 1.16}, V::Fitted, "R452A"},
    {{"R454A"}, 80.5, C::Common, {1.015, 0.966, 1.228}, V::Fitted, "R454A", 1.041},
    {{"R454B"}, 0.35 * 52.02 + 0.65 * 114, C::Common, {1.187, 1.052, 1.326}, V::Fitted, "R454B"},
    {{"R454C"}, 90.8, C::Common, {0.96, 0.98, 1.234}, V::Fitted, "R454C"},
    {{"R455A"}, 0.215 * 52.02 + 0.755 * 114 + 0.03 * 44, C::Common, {0.895, 0.88, 1.273}, V::Fitted, "R455A"},
    {{"R413A", "ISC_49"}, 0.945 * (0.88 * 102 + 0.09 * 188.02 + 0.03 * 58.123), C::Common, {1.036, 0.92, 1.013},
     V::Fitted, "R413A"},
    {{"R437A"}, 0.95 * (0.785 * 102 + 0.195 * 120.02 + 0.02 * 58.123), C::Common, {1.058, 0.97, 1.12}, V::Fitted,
     "R437A"},
    {{"R450A"}, 0.58 * 114 + 0.42 * 102, C::Common, {1.058, 0.97, 1.145}, V::Fitted, "R450A"},
    {{"R513A"}, 0.56 * 114 + 0.44 * 102, C::Common, {1.058, 0.97, 1.155}, V::Fitted, "R513A"},
    {{"R515B"}, 117.5, C::Common, {1.044, 0.961, 1.124}, V::Fitted, "R515B"},
    {{"R471A"}, 122.1, C::Common, {1.051, 0.921, 1.031}, V::Fitted, "R471A"},
    {{"ISC_59", "R417A"}, 106.6, C::Common, {1.41, 0.909, 1.348}, V::Fitted, "ISC_59"},
    {{"ISC_29", "R422D"}, 109.8, C::Common, {1.02, 1.08, 1.233}, V::Fitted, "ISC_29"},
    {{"ISC_79", "R422A"}, 113.5, C::Common, {1.02, 1.11, 1.348}, V::Fitted, "ISC_79"},
    {{"ISC_89"}, 113.9, C::Common, {0.842, 0.93, 1.12}, V::Fitted, "ISC_89"},
    {{"RS45"}, 106.6, C::Common, {1.05, 0.94, 1.2}, V::Fitted, "RS45"},
};

// A name we hold no set for (R407B has no table either) is computed as R22, a
// halocarbon in the middle of the field: the exponents need a molar mass and a
// suction cp that belong together.
constexpr const Branch& kGenericBranch = kBranches[11];
static_assert(kGenericBranch.names[0] == "R22");

constexpr const FittedSet* FindFitted(std::string_view name) {
    for (const FittedSet& s : kFittedSets)
        if (!name.empty() && s.name == name) return &s;
    return nullptr;
}

constexpr bool AllZero(const auto& values) {
    for (double v : values)
        if (v != 0.0) return false;
    return true;
}

// Every branch that leaves a part to the fit finds that part in the table.
constexpr bool BranchesComplete() {
    for (const Branch& b : kBranches) {
        const FittedSet* fit = FindFitted(b.fitted);
        if (b.fitted.empty() != (fit == nullptr)) return false;
        if (b.viscosity == V::Fitted && (fit == nullptr || AllZero(fit->gas) || AllZero(fit->liquid))) return false;
        if (AllZero(b.f)) {
            if (fit == nullptr) return false;
            if (b.cp == C::Own ? AllZero(fit->cpOwn) : AllZero(fit->cpFactors)) return false;
        }
    }
    return true;
}
static_assert(BranchesComplete(), "a branch refers to a fitted part that correlation_sets.inc lacks");

const Branch& FindBranch(std::string_view refrigerant) {
    const std::string key = UpperAscii(Trim(refrigerant));
    if (!key.empty())
        for (const Branch& b : kBranches)
            if (b.names[0] == key || b.names[1] == key) return b;
    return kGenericBranch;
}

// The cp parameters of a branch: its own or the fitted ones.
std::array<double, 3> CpParameters(const Branch& b) {
    if (!AllZero(b.f)) return b.f;
    const FittedSet* fit = FindFitted(b.fitted);
    if (b.cp == C::Own) return {fit->cpOwn[0], fit->cpOwn[1], 0.0};
    return fit->cpFactors;
}

double Poly(const std::array<double, 4>& k, double t) { return PolyViscosity(k[0], k[1], k[2], k[3], t); }
double Exp(const std::array<double, 3>& k, double& t) { return ExpViscosity(k[0], k[1], k[2], t); }

// The light-gas set of methane, ethane, ethylene and R14.
constexpr std::array<double, 4> kLightGasVapour{-0.35311, 4.66531e-2, -2.00808e-5, 2.91045e-9};
constexpr std::array<double, 3> kLightGasLiquid{-4.22738, 594.41, 0.0};
// CO2, and ammonia without CO2's factors.
constexpr std::array<double, 4> kCo2Vapour{-5.34835, 1.1418e-1, -3.35825e-5, 4.72675e-9};
constexpr std::array<double, 3> kCo2Liquid{-7.9732, 2614.41, -243288.0};
// R404A-type liquid: one set below 280 K and one from there up.
constexpr std::array<double, 3> kR404aLiquidCold{-3.88835, 666.021, 0.0};
constexpr std::array<double, 3> kR404aLiquidWarm{-13.586, 6104.13, -763533.0};
constexpr double kR404aLiquidEvaporating = 1.013 / 1.823266;

double R134aLiquidViscosity(double t) { return 1e-6 * std::pow(2.71828, 3.555 + 714.25 / t - 0.0019969 * t); }

double R404aLiquidViscosity(double& t) { return Exp(t < 280.0 ? kR404aLiquidCold : kR404aLiquidWarm, t); }

void SetViscosities(CycleState& cs, const Branch& b, double tCondK, double tSuctionK, double tDischargeForEta) {
    const double tEvap = cs.tEvapK;
    // ExpViscosity moves a temperature of 0 to 273.15 K; on copies, so that the
    // state's temperatures stay as the caller set them.
    double tLiqEvap = tEvap;
    double tLiqCond = tCondK;
    switch (b.viscosity) {
        case V::Fitted: {
            const FittedSet& fit = *FindFitted(b.fitted);
            cs.etaVapEvap = Poly(fit.gas, tEvap);
            cs.etaVapSuction = Poly(fit.gas, tSuctionK);
            cs.etaVapDischarge = Poly(fit.gas, tDischargeForEta);
            cs.etaLiqEvap = Exp(fit.liquid, tLiqEvap);
            cs.etaLiqCond = Exp(fit.liquid, tLiqCond);
            break;
        }
        case V::LightGas:
            cs.etaVapEvap = Poly(kLightGasVapour, tEvap);
            cs.etaVapSuction = Poly(kLightGasVapour, tSuctionK);
            cs.etaVapDischarge = Poly(kLightGasVapour, tDischargeForEta);
            cs.etaLiqEvap = Exp(kLightGasLiquid, tLiqEvap);
            cs.etaLiqCond = Exp(kLightGasLiquid, tLiqCond);
            break;
        case V::Co2:
            cs.etaVapEvap = 1.38 * Poly(kCo2Vapour, tEvap);
            cs.etaVapSuction = 1.38 * Poly(kCo2Vapour, tSuctionK);
            cs.etaVapDischarge = 1.1 * Poly(kCo2Vapour, tDischargeForEta);
            cs.etaLiqEvap = 0.67 * Exp(kCo2Liquid, tLiqEvap);
            cs.etaLiqCond = 0.96 * Exp(kCo2Liquid, tLiqCond);
            break;
        case V::Ammonia:
            cs.etaVapEvap = Poly(kCo2Vapour, tEvap);
            cs.etaVapSuction = Poly(kCo2Vapour, tSuctionK);
            cs.etaVapDischarge = Poly(kCo2Vapour, tDischargeForEta);
            cs.etaLiqEvap = Exp(kCo2Liquid, tLiqEvap);
            cs.etaLiqCond = Exp(kCo2Liquid, tLiqCond);
            break;
        case V::R134a:
            cs.etaVapEvap = Poly(kR134aGasEvaporating, tEvap);
            cs.etaVapSuction = Poly(kR134aGasSuctionDischarge, tSuctionK);
            cs.etaVapDischarge = Poly(kR134aGasSuctionDischarge, tDischargeForEta);
            cs.etaLiqEvap = 1.08 * R134aLiquidViscosity(tEvap);
            cs.etaLiqCond = 1.122 * R134aLiquidViscosity(tCondK);
            break;
        case V::R404a:
            cs.etaVapEvap = SutherlandViscosity(tEvap);
            cs.etaVapSuction = SutherlandViscosity(tSuctionK);
            cs.etaVapDischarge = SutherlandViscosity(tDischargeForEta);
            cs.etaLiqEvap = kR404aLiquidEvaporating * R404aLiquidViscosity(tLiqEvap);
            cs.etaLiqCond = R404aLiquidViscosity(tLiqCond);
            break;
    }
}

void SetSpecificHeats(CycleState& cs, const Branch& b, double tCondK, double tDischarge, double tSuctionK) {
    const double tEvap = cs.tEvapK;
    const double tOutlet = tEvap + cs.superheatEvap;
    std::array<double, 3> f = CpParameters(b);
    // The four polynomial forms share their three roles; only the form differs.
    double (*form)(double, double) = nullptr;
    switch (b.cp) {
        case C::Common: form = CpCommon; break;
        case C::CommonLinearT: form = CpCommonLinearT; break;
        case C::AmmoniaWarmSuction:
            // Above 0 °C evaporating the suction gas of an ammonia plant is
            // denser, and its cp grows with the evaporating temperature.
            if (tEvap > 273.15) f[1] *= 1.176 * tEvap / 273.15;
            form = CpAmmoniaForm;
            break;
        case C::Ammonia: form = CpAmmoniaForm; break;
        case C::Propane: form = CpPropaneForm; break;
        case C::Own:
            cs.cpVapEvap = f[0] + f[1] * tOutlet;
            cs.cpVapSuction = f[0] + f[1] * tSuctionK;
            cs.cpVapDischarge = f[0] + f[1] * tDischarge;
            return;
        case C::Co2: {
            const Co2CpFactors a = Co2CpRules(tCondK, cs.pCond, tEvap);
            cs.cpVapDischarge = a.a5 * f[2] * CpAmmoniaForm(1.0, tDischarge);
            cs.cpVapEvap = a.a3 * a.a4 * f[0] * CpAmmoniaForm(1.0, tOutlet);
            cs.cpVapSuction = a.a2 * a.a3 * a.a4 * f[1] * CpAmmoniaForm(1.0, tSuctionK);
            return;
        }
    }
    cs.cpVapEvap = form(f[0], tOutlet);
    cs.cpVapSuction = form(f[1], tSuctionK);
    cs.cpVapDischarge = form(f[2], tDischarge);
}

double CommonRankine(double f, double t, bool linearT) {
    const double r = 1.8 * t;
    const double third = linearT ? 0.128431e-6 * r : 0.128431e-6 * r * r;
    return 4.1866 * f * (0.0282 + 0.3937799e-3 * r - third + 2.27353 / r);
}

}  // namespace

double PolyViscosity(double a, double b, double c, double d, double t) {
    return 0.001 * (a + b * t + c * t * t + d * t * t * t);
}

double ExpViscosity(double a, double b, double c, double& t) {
    if (t == 0.0) t = 273.15;
    return 0.001 * std::pow(2.71828, a + b / t + c / (t * t));
}

double SutherlandViscosity(double t) {
    return 1.24e-5 * (1.0 + 0.87 * 345.25 / 298.15) / (1.0 + 0.87 * 345.25 / t) * std::pow(t / 298.15, 0.5);
}

double CpCommon(double f, double t) { return CommonRankine(f, t, false); }
double CpCommonLinearT(double f, double t) { return CommonRankine(f, t, true); }

double CpAmmoniaForm(double f, double t) {
    return f * (1.9487 + 8.23487e-4 * t + 5.44138e-6 * t * t - 3.62452e-9 * t * t * t);
}

double CpPropaneForm(double f, double t) {
    return f * (0.0830829 + 5.77693e-3 * t - 1.30581e-6 * t * t - 6.91e-10 * t * t * t);
}

Co2CpFactors Co2CpRules(double tCondK, double pCond, double tEvapK) {
    // 304.14 K is the model's critical temperature of CO2: above it the gas
    // cooler runs transcritical and the condensing-side factors stop changing.
    constexpr double kCritical = 304.14;
    Co2CpFactors a;
    a.a1 = std::pow((tCondK >= kCritical ? kCritical : tCondK) / 273.15, 1.42);
    a.a2 = std::pow(pCond / 73.8, 0.29);
    if (tEvapK < 283.15) a.a3 = std::pow(tEvapK / 287.15, 4.07);
    if (tEvapK < 263.15) a.a4 = std::pow(265.15 / tEvapK, 4.07);
    if (tCondK < kCritical) a.a5 = std::pow(tCondK / 306.14, 5.51);
    return a;
}

void EvaluateCorrelations(CycleState& cs, std::string_view refrigerant, double tCondK, double tDischarge,
                          double tDischargeForEta, double tSuctionC) {
    const Branch& b = FindBranch(refrigerant);
    const double tSuctionK = tSuctionC + 273.15;
    SetViscosities(cs, b, tCondK, tSuctionK, tDischargeForEta);
    SetSpecificHeats(cs, b, tCondK, tDischarge, tSuctionK);
    cs.molarMass = b.molarMass;

    // Isentropic exponents from the suction gas. The level c falls slightly as
    // the suction superheat (dt negative) shrinks; kappaAlt leans it towards
    // 1.02 for the comparison compression.
    const double gasConstant = 8.314 / cs.molarMass;  // kJ/(kg K)
    const double cv = cs.cpVapSuction - gasConstant;
    const double dt = cs.tEvapK - tSuctionK;
    const double c = b.c0 * (0.99 - (dt - 10.0) / 1800.0);
    cs.kappa = c * cs.cpVapSuction / cv;
    cs.kappaAlt = ((c + 1.02) / 2.0) * cs.cpVapSuction / cv;
}

double MolarMass(std::string_view refrigerant) { return FindBranch(refrigerant).molarMass; }

}  // namespace kv
