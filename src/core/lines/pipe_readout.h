// The small panel behind a line's size label: the size, its length, the
// cost and assembly time of the run and the weight of the tube.
#pragma once

#include <string>

namespace kv {

struct Workspace;
struct PipeTable;

struct PipeReadout {
    std::string name;         // name of the size
    double cost = 0.0;        // price per metre times length, cut to 2 decimals
    double minutes = 0.0;     // minutes per metre times length
    long long hours = 0, restMinutes = 0;  // whole minutes split by 60
    double weightKg = 0.0;    // cut to 2 decimals
    // The panel's lines: caption and size, length with " m", cost with the
    // currency, time as hours and minutes ("2h 5'"), weight with " kg".
    std::string sizeLine, lengthLine, costLine, timeLine, weightLine;
};

// The read-out of row `row` of `table` for a run of `lengthM` metres of a
// tube of `metalDensity` kg/m³ (see MetalDensity). A row outside the table
// gives zeros and an empty name.
PipeReadout MakePipeReadout(const Workspace& ws, const PipeTable& table, int row, double lengthM,
                            double metalDensity);

}  // namespace kv
