// The superheated-vapour table of a refrigerant (<stem>_SH.DAT): saturation
// at the mean of bubble and dew temperature and isobars of the vapour, from
// the reference equation of state. The reference check of the cycle reads
// its states here, independent of the empirical model.
//
// Interpolation: saturation rows (1 K apart) linearly, the pressure in ln p;
// along an isobar by a cubic through the four nearest nodes; across isobars
// by a cubic in ln p through the four nearest isobars. Below the critical
// pressure the isobars are compared at equal superheat (each starts at its
// dew point), above it at equal temperature.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct SuperheatSatRow {
    double tm = 0.0;       // °C, mean of bubble and dew temperature
    double p = 0.0;        // bar
    double tBubble = 0.0;  // °C
    double tDew = 0.0;     // °C
    double hLiq = 0.0;     // kJ/kg, bubble-point liquid
    double hVap = 0.0;     // kJ/kg, dew-point vapour
    double sLiq = 0.0;     // kJ/(kg K)
    double sVap = 0.0;     // kJ/(kg K)
    double cpLiq = 0.0;    // kJ/(kg K), mean over the 5 K below the bubble point
};

struct SuperheatNode {
    double t = 0.0;    // °C
    double h = 0.0;    // kJ/kg
    double s = 0.0;    // kJ/(kg K)
    double rho = 0.0;  // kg/m³
    double lnRho = 0.0;  // ln rho: the density is interpolated in its logarithm
};

struct Isobar {
    double p = 0.0;     // bar
    double lnP = 0.0;
    std::size_t first = 0, count = 0;  // its nodes in SuperheatTable::nodes, rising t
    bool fromDew = false;              // subcritical: the first node is the dew point
};

struct SuperheatTable {
    std::vector<SuperheatSatRow> sat;  // rising tm
    std::vector<SuperheatNode> nodes;
    std::vector<Isobar> isobars;       // rising p
    std::size_t subcritical = 0;       // the first isobars, up to the last saturation pressure
    bool present = false;              // the file held usable rows of both kinds
};

// The file's bytes to a table. Lines that do not parse are skipped; rows out
// of order are dropped; never throws.
SuperheatTable ParseSuperheatTable(std::string_view text);

// The file name of a saturation table's superheat table: R134A.DAT ->
// R134A_SH.DAT.
std::string SuperheatFileName(const std::string& saturationFile);

// A vapour state.
struct VapourState {
    double t = 0.0;    // °C
    double h = 0.0;    // kJ/kg
    double s = 0.0;    // kJ/(kg K)
    double rho = 0.0;  // kg/m³
};

// Saturation at the mean temperature tmC. False outside the rows.
bool SaturationAtMean(const SuperheatTable& table, double tmC, SuperheatSatRow& out);

// Vapour at pressure p (bar) `superheatK` above its dew point (below the
// critical pressure) or at temperature tC (above it).
bool VapourAtSuperheat(const SuperheatTable& table, double p, double superheatK, VapourState& out);
bool VapourAtTemperature(const SuperheatTable& table, double p, double tC, VapourState& out);

// The outcome of a search along the isobars.
enum class VapourFind { Found, Wet, Outside };
// Enthalpy at pressure p and entropy s; Wet when s lies below the dew point.
VapourFind VapourEnthalpyAtEntropy(const SuperheatTable& table, double p, double s, double& h);
// Temperature at pressure p and enthalpy h; Wet when h lies below the dew point.
VapourFind VapourTemperatureAtEnthalpy(const SuperheatTable& table, double p, double h, double& tC);

}  // namespace kv
