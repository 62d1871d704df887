// The zeta values: the loss coefficient of each kind of fitting, global to
// the installation and kept in "KSIWERT.DAT". Indices 1 to 8 are the fitting
// kinds of the line sheet, 9 the allowance of the straight tube per 10 m,
// 10 and 11 belong to the last count columns of the sheet.
#pragma once

#include <array>
#include <string>

#include "project/project.h"

namespace kv {

struct Workspace;
class RecordReader;

// The table is the array that start-up reads into Project::ZetaWert,
// indexed 1..11 (index 0 unused); these functions work on it.
using ZetaTable = std::array<double, 12>;

inline constexpr int kZetaWritten = 9;  // the file gets indices 1..9
inline constexpr int kZetaRead = 10;    // start-up reads 1..10
inline constexpr int kZetaTube = 9;     // straight tube per 10 m

// Factory values of indices 1 to 9.
inline constexpr std::array<double, 10> kZetaFactory = {0, 1.5, 2.8, 1.2, 0.8, 1.5, 0.8, 1.8, 1.5, 0.6};

ZetaTable& Zeta(Workspace& ws);
const ZetaTable& Zeta(const Workspace& ws);

// Reads up to ten values into indices 1 to 10; a short file leaves the
// later indices as they were.
void ReadZetaTable(RecordReader& in, ZetaTable& z);
void LoadZetaTable(Workspace& ws);

// The zeta screen as a model: the nine values as the grid shows them.
struct ZetaScreen {
    std::array<std::string, kZetaWritten + 1> cell{};  // 1..9
    bool open = false;
};

// Opens the screen: shows the nine values; when they sum to 0 (file empty or
// all zero) the factory values are set and shown.
ZetaScreen OpenZetaScreen(Workspace& ws);
// Sets indices 1 to 9 to the factory values and shows them.
void zeta_mach(Workspace& ws, ZetaScreen& screen);
// Takes the nine grid values through the number reader into the table,
// rewrites "KSIWERT.DAT" (nine values) and closes the screen. A cell that is
// not a number (or not a plausible zeta value) is refused with a message and
// nothing changes. False then, or when the file could not be written; the
// screen stays open.
bool zeta_speich(Workspace& ws, ZetaScreen& screen);
// Row caption of the screen: the fitting kinds 1 to 8, row 9 the pipe word
// with "/10m".
std::string ZetaRowCaption(const Workspace& ws, int index);

// The zeta sum of line `line` (1..8) of the project's line sheet: for the
// suction, discharge, liquid and condenser lines (2 to 5) the sum of value
// times count over the eleven kinds (counts in Armatur (k, line)), then for
// every line the tube term int(z9 * length * 10) / 100, the length from
// Geometr (line, 1). A 0 at index 9 becomes 0.6 and at index 11 becomes 1.5
// in the table first (the file keeps its values).
// The project data screen's SumZeta(ws, mode, line) fills the sheet with
// the same sums.
double SumZeta(ZetaTable& z, const Project& project, int line);

}  // namespace kv
