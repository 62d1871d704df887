// The pipe series box of the project data and plant scheme screens: its
// entries, the file each entry stands for, and the entry of the file the
// project holds. The box always shows the series the project holds; a
// project without one shows none.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Captions;
struct Workspace;

// Copper SI, copper inch, steel, K65; a project's own series file outside
// these four (series I, II, the user table) comes last under its file name.
std::vector<std::string> PipeSeriesList(const Workspace& ws);
// The entry that shows `file`; empty for an empty name.
std::string PipeSeriesText(const Workspace& ws, const std::string& file);
// The file an entry stands for; empty when the text is no entry.
std::string PipeSeriesFile(const Workspace& ws, const std::string& text);

// The calculation's check of the active pipe table: true when it holds
// sizes. Otherwise the user is told which table is missing, empty or
// unreadable, and the calculation does not run.
bool PipeTableUsable(Workspace& ws);

// Lines of the last calculation whose size is rated below the plant's
// pressure on that side (bar gauge against bar gauge).
std::vector<int> LinesBelowPressure(const Workspace& ws);
// The same, and with `tell` the user is told once per line.
std::vector<int> MarkPipePressure(Workspace& ws, bool tell);

}  // namespace kv
