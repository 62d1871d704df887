// The fitting tables: tees, reducers, oil traps and double risers of each
// tube series, derived from its pipe table so that the parts list has a
// fitting of every size. One file per kind and series, no header, 8 items a
// row: key, label, two reserved, assembly minutes, material, labour and
// total price of one piece.
#pragma once

#include <string>
#include <string_view>

namespace kv {

struct Workspace;
class RecordReader;

enum class FittingClass { None, Tee, Reducer, OilTrap, DoubleRiser };

// Kinds 1 to 16 are the sixteen tables; 21, 26, 31 and 34 are the tee,
// reducer, oil trap and double riser of the K65 series, which have no rows.
inline constexpr int kFittingTableCount = 16;

FittingClass FittingClassOf(int kind);
// The table file of kinds 1 to 16, empty otherwise.
std::string_view FittingTableFile(int kind);
// The pipe table a kind is made from, empty for an unknown kind.
std::string_view FittingSource(int kind);
// The word of a fitting class in the language of the workspace.
std::string FittingCaption(const Workspace& ws, FittingClass c);

// The rows of a fitting table from the text of its source pipe table.
//  tee and oil trap, from row 1: key da, label "<caption> <name>";
//  reducer, from row 3: from the current size to the size three rows back
//    (from row 4 on), two back and one back, key "da-da"; the label joins
//    the sizes as da values (kind 6), names (kind 7) or the name with the da
//    of the smaller size (kinds 8 to 10); assembly minutes int(sqrt(da) + 5);
//  double riser, from row 3, three rows "c/a/a", "c/b/a", "c/b/b" with a two
//    back, b one back, c the current size, as da values (kinds 14, 16) or
//    names (kind 15).
// Reading stops at the end row (da and di 0) or the end of the text.
std::string FittingRows(RecordReader& source, int kind, std::string_view caption);

// Writes `target` from the source pipe table of `kind`. The K65 kinds write
// an empty file. False for an unknown kind or when the file can't be written.
bool GenerateFittingTable(Workspace& ws, std::string_view target, int kind);

// Generates every table of kinds 1 to 16 whose file is empty or missing.
// Returns how many were written.
int EnsureFittingTables(Workspace& ws);

}  // namespace kv
