// The state points of a cycle from evaporating and condensing temperature:
// an empirical table-plus-factor model whose constants are the system's
// calibration. All functions work on ws.cycle.
#pragma once

namespace kv {

struct Workspace;

// The main entry, in its sixteen steps. `subcooling` is in-out: for CO2 it
// becomes 3 below the critical point and 0 above it. False when the fluid has
// no table (or its file is missing); ws.cycle is then partly filled.
bool CycleStatePoints(Workspace& ws, double tEvapC, double tCondC, double tSuctionC, double& subcooling);

// Scan of the supercritical CO2 table "CO2_sh01.dat". Selector 1 fills the
// high-side outlet at (tK, pTarget), 2 the discharge state, 3 the pressure per
// Kelvin at the high side. False when no row qualified.
bool SupercriticalScan(Workspace& ws, double tK, double pTarget, int selector);

// Discharge temperature in K; also sets cycle.tDischargeAlt.
double DischargeTemperature(Workspace& ws, double powerKw, double pLow, double pHigh, double tSuctionK,
                            double kappa);

// Motor and drive losses as a factor from 1 up to 1.52, by drive kind.
double MotorLossFactor(int verdArt, double powerKw);
double MotorLossFactor(const Workspace& ws, double powerKw);

// Compression power. Mode 0 computes the discharge temperature and returns
// the shaft power; modes 1 and 2 take tDischargeC and return the electrical
// input. Sets cycle.pShaft, qDesuperheat, etaIsRatio.
struct CompressionInput {
    double pLow = 0.0, pHigh = 0.0;    // suction and discharge pressure, bar
    double tLowK = 0.0, tHighK = 0.0;  // saturation temperatures at those pressures, K
    double massFlow = 0.0;             // kg/s
    double tSuctionC = 0.0;            // suction gas temperature, °C
    double hHighVap = 0.0;             // enthalpy of saturated vapour at the high level, kJ/kg
    double hLowVap = 0.0;              // enthalpy of saturated vapour at the low level, kJ/kg
    double tDischargeC = 0.0;          // the discharge temperature modes 1 and 2 take, °C
    int mode = 0;
};
double CompressionPower(Workspace& ws, const CompressionInput& in);

// Volumetric efficiency lambda at the pressures (bar) and line losses (mbar)
// for a swept volume V (m³/h).
double VolumetricEfficiency(const Workspace& ws, double pCond, double dpDischargeMbar, double pEvap,
                            double dpSuctionMbar, double sweptVolume);

// Refrigerant mass flow in kg/s for the refrigerating capacity q0 in kW;
// `fallback` when the balance gives 0. With the project's economizer on it
// also sets the economizer fields of the cycle state.
double MassFlow(Workspace& ws, double fallback, double q0);

}  // namespace kv
