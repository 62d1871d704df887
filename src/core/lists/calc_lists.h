// The list files a completed plant calculation leaves: the pipe runs
// (Rhrltg.DAT), the tees and reducers where lines branch or change size
// (Flansh.DAT, appended across calculations), the pipe lines as a result set
// (ergDt2.DAT) and the line sizes with their figures (akLeit1.dat), which the
// list generation and the scheme generator read.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

// One refrigerant line of the calculation as the lists carry it.
struct CalculatedLine {
    int section = 0;          // 1..8
    std::string caption;      // line caption of the language
    std::string size;         // pipe size text of the pipe table, as "28 x 1"
    double outer = 0.0;       // outer diameter, mm
    double length = 0.0;      // m
    double lossMbar = 0.0, lossK = 0.0, velocity = 0.0;
    std::string insulation;   // thickness in mm; empty for a line without insulation
};

// The sized lines of the cycle state, in section order; a section without a
// size or without length is left out.
std::vector<CalculatedLine> CalculatedLines(Workspace& ws);

// Number of bends a run of `length` metres gets: one at each end and one at
// every clamp spacing of 3 m.
int BendsOfRun(double length);

// Writes the files. `appendFittings` adds the tees and reducers of this
// calculation to Flansh.DAT (the Calculate button does; a trim of a line on
// the screen rewrites the other files only). False when one of them could
// not be written.
bool WriteCalculationLists(Workspace& ws, bool appendFittings = true);

// The line sizes of akLeit1.dat in the order the list generation reads them:
// injection, suction, discharge, liquid, condensate, then the three further
// lines; with the pipe value and the line count behind them.
struct LineSizeFile {
    std::array<std::string, 9> size{};  // by section 1..8
    double pipeValue = 0.0;
    double lineCount = 0.0;
    // Per section 1..8: length m, pressure drop K, velocity m/s.
    std::array<double, 9> length{}, lossK{}, velocity{};
};
LineSizeFile ReadLineSizeFile(const Workspace& ws);

}  // namespace kv
