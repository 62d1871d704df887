// The project file as the screens name it: opening a chosen path, saving to
// the file that was opened or to a chosen path, the folder a file dialog
// starts in, and the pipe series that every screen shows from the record.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "project/project_file.h"

namespace kv {

struct Workspace;
struct DataScreen;

// A chosen project path with ".prj" added when it has no such extension
// ("R290_AW10" becomes "R290_AW10.prj", never the cut "R290_.PRJ").
std::string WithProjectExtension(const std::string& path);

// A picture path with the format's extension added when it has none known
// (png, pdf, svg); `format` is the chosen format's extension ("png" when empty).
std::string WithPictureExtension(const std::string& path, const std::string& format);

// Loads the project at `path` and, when it loaded, makes it the open file
// (plant type, file name, folder). The user is told of a failure.
bool OpenProjectFromPath(Workspace& ws, const std::string& path);

// The file that was opened or last saved, as a whole path; empty when the
// project has no file name yet.
std::string OpenProjectPath(const Workspace& ws);

// Save: writes to the file that was opened; no value when the project has no
// file name yet (the screen then asks for one).
std::optional<SaveResult> SaveToOpenFile(Workspace& ws);

// Save as: the path gets ".prj" when it lacks it and becomes the open file.
SaveResult SaveProjectToPath(Workspace& ws, const std::string& path);

// The folder file dialogs start in: the open project's folder when it
// exists, else the data directory.
std::string ProjectFolder(const Workspace& ws);

// The pipe series box of a screen from the one source, the record's pipe
// file; a series not (or no longer) in the list is added to it.
void SyncPipeSeries(const Workspace& ws, std::string& boxText, std::vector<std::string>& list);
// A series chosen in a box becomes the record's pipe file at once, so that no
// other screen's box can bring back the one before.
void ChoosePipeSeries(Workspace& ws, const std::string& boxText);

}  // namespace kv
