// The export screen (KVexport) in its two modes: the costing grid of
// KV_Calc.dat with its recalculation and sums, or the plain export grid of
// Export.dat with the three targets; merging equal rows, editing, the price
// enquiry by mail or workbook.
#pragma once

#include <string>
#include <vector>

#include "lists/costing.h"

namespace kv {

struct Workspace;

struct ExportScreen {
    CostingMode mode = CostingMode::Export;
    std::vector<CostRow> grid;
    BasicRates rates;
    CostSums sums;
    std::string target;   // one of kExportTargets
    std::string directory, fileName;
    std::string message;
};

// Columns the grid shows: 7 for the export, 14 for the costing.
int ExportColumns(CostingMode mode);
// Column heads in the language of the workspace.
std::vector<std::string> ExportHeads(const Workspace& ws, CostingMode mode);
// Opening: a list file already there raises the question whether to keep it
// (the project word, " !", the question word, " ?"); otherwise, or on No, the
// run builds it anew from the lists.
void OpenExportScreen(Workspace& ws, ExportScreen& s, CostingMode mode);
// A cell edited: the grid is recalculated (costing) and the file rewritten.
void EditExportCell(Workspace& ws, ExportScreen& s, int row, int column, const std::string& text);
// StK_add on the grid, through TempEx.dat.
void MergeExportRows(Workspace& ws, ExportScreen& s);
// Grid operations, rows from 0: a row inserted empty before `row`, a row
// deleted, and a text pasted from the cell (row, column) on, split at tabs
// (next column) and line breaks (next row).
void InsertExportRow(Workspace& ws, ExportScreen& s, int row);
void DeleteExportRow(Workspace& ws, ExportScreen& s, int row);
void PasteExportText(Workspace& ws, ExportScreen& s, int row, int column, const std::string& text);
// The rows as tab text, for the clipboard.
std::string CopyExportRows(const ExportScreen& s, int first, int count);

// Writes the chosen target; an empty file name is refused with its message.
bool RunExport(Workspace& ws, ExportScreen& s);
// The sums as the screen shows them: margin line, A, B, S, time.
std::vector<std::string> SumLines(const Workspace& ws, const ExportScreen& s);

}  // namespace kv
