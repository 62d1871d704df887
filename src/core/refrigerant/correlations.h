// Closed correlations of the refrigerant model: vapour and liquid viscosities,
// vapour specific heats, molar mass and the isentropic exponents, one
// coefficient set per fluid. The saturation tables give the states; these give
// what the tables do not hold. Temperatures in K unless named C, viscosities
// in Pa s, specific heats in kJ/(kg K).
#pragma once

#include <string_view>

namespace kv {

struct CycleState;

// Gas viscosity: 0.001 * (a + b t + c t² + d t³), t in K.
double PolyViscosity(double a, double b, double c, double d, double t);

// Liquid viscosity: 0.001 * 2.71828^(a + b/t + c/t²), t in K. The base is
// written 2.71828, not e, and the results keep those digits. A t of 0 is
// taken as 273.15 K, and the caller's variable is set to it as well.
double ExpViscosity(double a, double b, double c, double& t);

// Vapour viscosity of the R404A-type blends by Sutherland's law, anchored at
// 12.4 µPa s at 298.15 K.
double SutherlandViscosity(double t);

// Vapour specific heat, common form, evaluated in degrees Rankine (1.8 t):
// 4.1866 f (0.0282 + 0.3937799e-3 T - 0.128431e-6 T² + 2.27353 / T).
double CpCommon(double f, double t);
// The variant of a few sets whose third term is linear in T (0.128431e-6 T).
double CpCommonLinearT(double f, double t);
// Ammonia form, t in K: f (1.9487 + 8.23487e-4 t + 5.44138e-6 t² - 3.62452e-9 t³).
double CpAmmoniaForm(double f, double t);
// Propane form, t in K: f (0.0830829 + 5.77693e-3 t - 1.30581e-6 t² - 6.91e-10 t³).
double CpPropaneForm(double f, double t);

// The correction factors of the CO2 vapour specific heats, each 1 where its
// rule does not apply. tCondK condensing (or gas cooler) temperature, pCond
// condensing pressure in bar.
struct Co2CpFactors {
    double a1 = 1.0;  // (tc / 273.15)^1.42, held at the critical point from 304.14 K; enters none of the three values
    double a2 = 1.0;  // (pc / 73.8)^0.29
    double a3 = 1.0;  // (tEvapK / 287.15)^4.07 below 283.15 K
    double a4 = 1.0;  // (265.15 / tEvapK)^4.07 below 263.15 K
    double a5 = 1.0;  // (tc / 306.14)^5.51 below 304.14 K (subcritical)
};
Co2CpFactors Co2CpRules(double tCondK, double pCond, double tEvapK);

// Sets the correlation fields of `cs` for the fluid `refrigerant` (compared
// trimmed and upper-cased). Reads cs.tEvapK, cs.superheatEvap and, for CO2,
// cs.pCond. Vapour viscosity at tEvapK, at the suction temperature and at
// tDischargeForEta; liquid viscosity at tEvapK and tCondK; vapour cp at the
// evaporator outlet (tEvapK + superheat), at suction (tSuctionC + 273.15) and
// at tDischarge; the molar mass; kappa and kappaAlt from the suction cp.
// tDischarge and tDischargeForEta are in K; the first call of a cycle passes
// the suction temperature in °C there and is repeated with the discharge
// temperature. No range checks: a temperature of 0 K divides by zero.
void EvaluateCorrelations(CycleState& cs, std::string_view refrigerant, double tCondK, double tDischarge,
                          double tDischargeForEta, double tSuctionC);

// Molar mass in kg/kmol of the fluid's set (the generic set's for an unknown name).
double MolarMass(std::string_view refrigerant);

}  // namespace kv
