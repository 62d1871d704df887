// The parts list screen: one grid per list file, edited cell by cell, with
// rows inserted, deleted, copied and pasted, a row's component selected
// again from its change block, and the grid written back by the rules of
// the list. The screen also keeps which lists the costing run takes.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

// Grid widths: the 9 columns of a parts or units row and the 25 change
// items behind them; 5 for pipes and wiring, 6 for fittings and the PED list.
inline constexpr int kUnitGridColumns = 34;
inline constexpr int kFirstChangeColumn = 10;

// The lists the screen shows, in the order of its tabs.
inline constexpr std::array<std::string_view, 6> kScreenLists = {"Stklst.DAT", "Vrdlst.DAT", "Rhrltg.DAT",
                                                                  "Flansh.DAT", "Wire.dat",   "PEDlist.dat"};
// The lists the costing run can take, in its order, with their check boxes.
inline constexpr std::array<std::string_view, 5> kCostingLists = {"Vrdlst.DAT", "Stklst.DAT", "Rhrltg.DAT",
                                                                   "Flansh.DAT", "Wire.dat"};

using GridRow = std::vector<std::string>;

struct ListScreen {
    std::string file;                  // the current list, one of kScreenLists
    std::vector<std::string> header;   // as read; rewritten on saving
    std::vector<GridRow> grid;         // rows of GridColumns(file) cells, from column 1
    std::string freeText1, freeText2;  // the texts beside the header of the parts list
    bool changed = false;
    std::string message;
};

// Number of grid columns of a list; 0 for a name the screen does not know.
int GridColumns(std::string_view file);
// Column heads of the visible columns of a list, in the language of the workspace.
std::vector<std::string> ColumnCaptions(const Workspace& ws, std::string_view file);
// The title of a list: the caption of its menu action.
std::string ListTitle(const Workspace& ws, std::string_view file);

// Reads a list into the grid. A missing or empty file opens an empty grid.
// Reading Stklst.DAT restores six values of the project from its header.
bool OpenList(Workspace& ws, ListScreen& s, std::string_view file);
// Writes the grid into its list (and change file) by the rules of the list:
// a write ends at the first row the list counts as its end. False, and no
// file touched, for a name the screen does not know.
bool SaveList(Workspace& ws, ListScreen& s);

// Grid operations; rows counted from 0. Out-of-range rows are ignored.
void InsertRow(ListScreen& s, int at);
void DeleteRows(ListScreen& s, int first, int count);
std::vector<GridRow> CopyRows(const ListScreen& s, int first, int count);
void PasteRows(ListScreen& s, int at, const std::vector<GridRow>& rows);
void SetCell(ListScreen& s, int row, int column, std::string text);

// Selects the component of a parts or units row again from the inputs kept
// in its change block: with `record` > 0 that article of the series, else
// the first that meets the stored duty. The row and its block are replaced.
bool ReselectRow(Workspace& ws, ListScreen& s, int row, long long record = 0);

// Builds PEDlist.dat from the units and the parts list: every component row
// with its quantity, kind, line, the pressure kept in its change block,
// designation and order number.
bool RebuildPedList(Workspace& ws);

// The screen's item-wise copy between the working lists and a project's
// companions, for its six pairs (.vlt, .rlt, .flt, .alt, .vtd, .atd): a
// source of non-zero length is read item by item and each item written as
// a record of its own; an empty or missing source is skipped. `toProject`
// copies the working lists out. Returns the number of files copied.
int CopyListsItemwise(Workspace& ws, const std::string& projectFile, const std::string& directory, bool toProject);

// Which lists the costing run takes ("ListSel.dat": five flags in the
// order of kCostingLists; missing flags are on).
std::array<bool, 5> ReadCostingChoice(const Workspace& ws);
bool WriteCostingChoice(const Workspace& ws, const std::array<bool, 5>& on);

}  // namespace kv
