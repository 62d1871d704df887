// The reference check of a cycle: the simple single-stage cycle at the
// project's evaporating and condensing temperatures, superheat and subcooling,
// with no line losses, computed from the superheated-vapour table of the
// refrigerant (reference equation of state) and an isentropic efficiency.
// Shown beside the empirical figures so that the engineer sees where the
// empirical model strays.
#pragma once

namespace kv {

struct SchemeScreen;
struct SuperheatTable;
struct Workspace;

// Above this deviation of the heating COP (%) the figure is shown red.
inline constexpr double kReferenceDeviationLimit = 15.0;

struct ReferenceInput {
    double t0C = 0.0;          // evaporating temperature (blends: mean of bubble and dew), °C
    double tcC = 0.0;          // condensing temperature, °C
    double superheatK = 0.0;   // suction gas above the dew point
    double subcoolingK = 0.0;  // liquid below the bubble point
    double etaIs = 0.7;        // isentropic efficiency of the compression
    // Transcritical CO2: the gas cooler pressure (bar) and exit temperature (°C)
    // take the place of the condensing level.
    bool transcritical = false;
    double pGasCooler = 0.0, tGasCoolerC = 0.0;
};

struct ReferenceCycle {
    bool valid = false;  // the states lie in the table
    double p0 = 0.0, pc = 0.0;                  // bar
    double t1C = 0.0, h1 = 0.0, s1 = 0.0, rho1 = 0.0;  // suction
    double h2s = 0.0, h2 = 0.0, t2C = 0.0;      // isentropic and real discharge
    double h3 = 0.0;                            // condenser or gas cooler outlet
    double q0 = 0.0, w = 0.0;                   // refrigerating effect, work, kJ/kg
    double copCooling = 0.0, copHeating = 0.0;
    double etaIs = 0.0;
};

ReferenceCycle ComputeReferenceCycle(const SuperheatTable& table, const ReferenceInput& in);

// The reference beside the run just made in ws.cycle: the project's
// refrigerant, temperatures, superheat and subcooling, the isentropic
// efficiency of the settings. Invalid when the fluid has no superheat table.
ReferenceCycle ReferenceOfRun(Workspace& ws, double t0C, double tcC, double superheatK, double subcoolingK);

// Empirical heating COP against the reference one, in %.
double ReferenceDeviationPercent(double copHeatingEmpirical, const ReferenceCycle& ref);

// After a run: the reference into ws.cycle and its figures onto the scheme
// screen (empty when the fluid has no reference table).
void ShowReferenceCheck(Workspace& ws, SchemeScreen& s, double t0C, double tcC, double superheatK,
                        double subcoolingK);

}  // namespace kv
