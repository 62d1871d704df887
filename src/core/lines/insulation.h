// Insulation thicknesses of the lines, "RLDaemm.dat": four lines, one value
// in mm each. The suction line takes the first three by evaporating
// temperature; the fourth goes with the liquid line.
#pragma once

#include <array>
#include <string>

namespace kv {

struct Workspace;

struct InsulationThicknesses {
    // Lines 1 to 4 as text; index 0 unused.
    std::array<std::string, 5> line{};
};

// Reads "RLDaemm.dat", puts the default in every blank line ("13", "19",
// "32", "13") and writes all four lines back.
InsulationThicknesses LoadInsulation(Workspace& ws);
bool SaveInsulation(Workspace& ws, const InsulationThicknesses& t);

// The suction line's thickness for an evaporating temperature in °C: line 1
// down to 0 °C, line 2 below 0 °C down to -15 °C, line 3 below -15 °C.
const std::string& SuctionInsulation(const InsulationThicknesses& t, double t0C);

}  // namespace kv
