// The pipe table editor as a model without a screen: the grid of 40 rows by
// 15 columns as text, its headings, and the actions of its buttons. The
// screen shows columns 1 to 6 and hides 7 to 15; the file holds the items in
// another order (see EditorColumn).
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "shell/grid.h"

namespace kv {

struct Workspace;
class RecordReader;

inline constexpr int kEditorRows = 40;
inline constexpr int kEditorColumns = 15;

// The editor column of a file item 1..15: name, da, di on 1 to 3, the total
// price on 4, p zul on 5, the minutes on 6; the spares, material and labour
// prices and the reserved items hidden on 7 to 15. 0 outside 1..15.
int EditorColumn(int field);

struct PipeEditor {
    std::string file;  // the series shown
    TextGrid<kEditorColumns, kEditorRows> grid;  // (column, row) from 1
    std::array<std::string, kEditorColumns + 1> clipboard{};  // a copied row
    bool hasClipboard = false;
};

// Fills the grid from a pipe table text: header passed over, up to 40 rows.
void ReadPipeEditor(RecordReader& in, PipeEditor& editor);
// Opens `file` in the editor. A missing file gives an empty grid.
PipeEditor LoadPipeEditor(const Workspace& ws, std::string_view file);
// The text the save writes: the header, then every row whose da and di are
// both non-zero, the name cleaned as file names are, a double quote anywhere
// written as two apostrophes so that the record form holds.
std::string PipeEditorText(const PipeEditor& editor);
// The cells that cannot be saved, one message each: a row that holds
// anything needs da and di as numbers above 0, and the price, p zul and
// minutes columns hold numbers or nothing. A row is never dropped silently.
std::vector<std::string> CheckPipeEditor(const Workspace& ws, const PipeEditor& editor);
// Writes the grid to its file. False when a cell is refused (the user is
// told which) or the file can't be written.
bool SavePipeEditor(Workspace& ws, const PipeEditor& editor);

// Row actions of the grid: the rows below move down or up by one; what falls
// off the end of the grid is lost.
void InsertEditorRow(PipeEditor& editor, int row);
void DeleteEditorRow(PipeEditor& editor, int row);
void CopyEditorRow(PipeEditor& editor, int row);
void PasteEditorRow(PipeEditor& editor, int row);

// Column headings in the language of the workspace.
std::string EditorHeading(const Workspace& ws, int column);
// The editor's title: the caption of the series and its tag (" - SI" ...).
std::string EditorTitle(const Workspace& ws, std::string_view file);

// Copies the factory copy of the series shown over its working file, after
// bringing old files up to date, and shows the restored table. The user is
// asked first; a series without factory copy is refused with a message.
// True when the file was restored.
bool RestorePipeTable(Workspace& ws, PipeEditor& editor);

}  // namespace kv
