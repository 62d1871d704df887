// Upkeep of the pipe table files: the check for the K65 series at start, the
// migration from the superseded three-item layout, the sort by outside
// diameter and the factory copy of each series.
#pragma once

#include <string>
#include <string_view>

namespace kv {

struct Workspace;
class RecordReader;

// True when a pipe table text is of the current layout: its first item is
// "2008" or its second "7.01".
bool IsCurrentPipeLayout(RecordReader& in);

// Converts a text of the old layout: one header item, then rows of three
// items, a joined text, da and di. The joined text holds the name, then
// after "#§&" the total price, after "$?" the permitted pressure and after
// "%#" the assembly minutes. A text without "#§&" writes no row and gives
// its whole text as the name of the row after it. A row with da and di both
// 0 ends the table. With `spares` the three spare items are filled as the
// copper and steel series have them (".3" from da 18 mm, ".2", ".5").
std::string MigrateOldPipeText(RecordReader& in, bool spares);

// Brings "RohrDM.DAT", "RohrDS.DAT", "RohrIN.DAT", "ROHRPI.DAT" and
// "ROHRPII.DAT" to the current layout where they are of the old one. Mode 1
// runs at start, mode 2 from the editor. Missing files are left missing.
// Returns how many files were rewritten.
int MigratePipeTables(Workspace& ws, int mode);

// An empty or missing "RohrK65.dat" is replaced by its factory copy. True
// when it was copied.
bool EnsureK65Table(Workspace& ws);

// What start-up does with the pipe tables: the K65 check, the migration, the
// insulation file, then the project's series is loaded.
void PreparePipeTables(Workspace& ws);

// Sorts a pipe table file by rising da: reads its rows, moves whole rows,
// writes the header and every row whose da is above 0, with da and di
// written from their numbers. False when the file is missing or can't be
// written.
bool SortPipeFile(Workspace& ws, std::string_view file);
// The editor's button: "RohrDM.DAT", "RohrK65.DAT", "RohrIN.DAT", "RohrDS.DAT".
int SortAllPipeTables(Workspace& ws);

// The factory copy of a series, empty where it has none (the two further
// series and the user's).
std::string FactoryCopyOf(std::string_view pipeFile);

}  // namespace kv
