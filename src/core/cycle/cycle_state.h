// The working values of the current operating point. The property functions,
// the state-point functions and the cycle kernel fill it; it stays valid
// after a run, and the diagram, the selections, the reports and the lists
// read it. Temperatures in K unless named C, pressures in bar absolute,
// enthalpies in kJ/kg, densities in kg/m³, line losses in mbar, capacities
// and powers in kW, viscosities in Pa s.
#pragma once

#include <array>

#include "cycle/reference_cycle.h"

namespace kv {

// One row of a saturation table, its seven fields in file order. After a
// look-up by pressure (modes 1 and 2) the key column and the pressure column
// have changed places.
struct SatRow {
    double t = 0.0;        // K
    double pDew = 0.0;     // bar
    double pBubble = 0.0;  // bar
    double hLiq = 0.0;     // kJ/kg
    double hVap = 0.0;     // kJ/kg
    double rhoLiq = 0.0;   // kg/m³
    double rhoVap = 0.0;   // kg/m³

    double Column(int column) const;  // 1..7 in file order
};

struct CycleState {
    bool valid = false;  // a calculation has completed

    // Table look-up.
    SatRow lowRow, highRow;
    int rowsFound = 0;       // row hint of the last resolved table
    bool highFound = false;

    // Saturation states.
    double tEvapK = 0.0, tCondK = 0.0;
    double pEvap = 0.0, pEvapBubble = 0.0;
    double hLiqEvap = 0.0, hVapEvap = 0.0, rhoLiqEvap = 0.0, rhoVapEvap = 0.0;
    double rhoSuction = 0.0;
    double pCond = 0.0, hLiqCond = 0.0, hVapCond = 0.0, rhoLiqCond = 0.0, rhoVapCond = 0.0;
    double cpLiquid = 0.0;     // kJ/(kg K)
    double dpdtEvap = 0.0;     // bar/K at the evaporating level
    double dpdtRatio = 0.0;    // bar/K at the condensing level over dpdtEvap
    double rhoDischarge = 0.0;
    double tDischargeAlt = 0.0;
    double pTranscritical = 0.0, hTranscritical = 0.0;  // transcritical CO2 high side
    double etaIsRatio = 0.0;
    double pShaft = 0.0;        // kW
    double qDesuperheat = 0.0;  // kW

    // Correlations.
    double etaVapEvap = 0.0, etaVapSuction = 0.0, etaVapDischarge = 0.0;
    double etaLiqEvap = 0.0, etaLiqCond = 0.0;
    double molarMass = 0.0;  // kg/kmol
    double cpVapEvap = 0.0, cpVapSuction = 0.0, cpVapDischarge = 0.0;  // kJ/(kg K)
    double kappa = 0.0, kappaAlt = 0.0;

    // Inputs the kernel sets before the state points.
    double superheatEvap = 5.0;   // K, SubAct.dat line 1
    double subcooling = 0.0;      // K, liquid subcooling of the run
    double realGasFactor = 1.0;

    // Economizer: subcooling it reaches (K, cut to 0.1), its heat flow (kW),
    // the side stream (kg/s), the vapour density at the intermediate level
    // (geometric mean), the capacity factor of the main flow (1 without
    // economizer), the intermediate pressure (bar) and its saturation
    // temperature (°C).
    double ecoSubcooling = 0.0, ecoHeat = 0.0, ecoMass = 0.0, ecoDensity = 0.0, ecoFactor = 1.0;
    double pIntermediate = 0.0, tIntermediate = 0.0;

    // Results of a run.
    double massFlow = 0.0;             // kg/s
    double Q0 = 0.0, Qh = 0.0;         // kW
    double tDischargeC = 0.0;          // °C
    double requiredSweptVolume = 0.0;  // m³/h
    double qualityInlet = 0.0;         // vapour quality after expansion
    double dpSuction = 0.0, dpDischarge = 0.0, dpLiquid = 0.0;  // mbar
    double rhoAfterDrop = 0.0;         // suction gas density at the compressor inlet, kg/m³
    double tSuctionC = 0.0;            // suction gas temperature, °C
    double bypassMass = 0.0;           // hot-gas bypass mass flow, kg/s
    double eer = 0.0, cop = 0.0;
    double annualCost = 0.0, co2Tons = 0.0;

    // Per line section 1..8: loss, velocity, inner diameter.
    std::array<double, 9> lineLoss{};      // mbar
    std::array<double, 9> lineVelocity{};  // m/s
    std::array<double, 9> lineDi{};        // mm

    // Line sizing, per line section 1..8: the row of the pipe table (the
    // size selector), the loss as saturation temperature, the oil margin
    // (lowest oil-carrying velocity over the velocity) and the figures
    // shown in red.
    std::array<int, 9> lineRow{};
    std::array<double, 9> lineLossK{};     // K
    std::array<double, 9> lineOilCarry{};
    std::array<bool, 9> lineLossRed{}, lineVelocityRed{}, lineOilRed{};
    bool diametersFixed = false;  // rows 1..5 of lineRow stand; nothing is sized

    // The reference check of the run (reference equation of state, no line
    // losses) and the empirical heating COP against its heating COP, %.
    ReferenceCycle reference;
    double referenceDeviation = 0.0;
};

}  // namespace kv
