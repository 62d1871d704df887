// The working values of the current operating point. The state-point
// functions and the cycle kernel fill it; it stays valid after a run, and the
// diagram, the selections, the reports and the lists read it.
#pragma once

#include <array>

namespace kv {

struct CycleState {
    bool valid = false;          // a calculation has completed

    double t0K = 0.0;            // evaporating temperature, K
    double tcK = 0.0;            // condensing temperature, K
    double tDischargeK = 0.0;    // discharge temperature, K
    double p0 = 0.0;             // evaporating pressure, bar absolute
    double pc = 0.0;             // condensing pressure, bar absolute
    double pMid = 0.0;           // intermediate pressure (economizer), bar absolute

    // State points of the cycle, numbered as the diagram numbers them.
    std::array<double, 10> h{};  // enthalpies, kJ/kg
    std::array<double, 10> t{};  // temperatures, K
    std::array<double, 10> p{};  // pressures, bar absolute
    std::array<double, 10> rho{};  // densities, kg/m³

    double massFlow = 0.0;       // kg/s
    double Q0 = 0.0;             // refrigerating capacity, kW
    double Qh = 0.0;             // heating capacity, kW
    double pShaft = 0.0;         // shaft power, kW
    double sweptVolume = 0.0;    // required swept volume, m³/h

    // Per line section 1..8: loss, velocity, inner diameter.
    std::array<double, 9> lineLoss{};      // mbar
    std::array<double, 9> lineVelocity{};  // m/s
    std::array<double, 9> lineDi{};        // mm
};

}  // namespace kv
