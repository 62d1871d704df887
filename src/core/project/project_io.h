// Loading and saving a project as the screens and the batch tool do it:
// around the project file's own routines, a load that either replaces the
// whole working set or leaves it as it was, a file that ended early told to
// the user, and a save whose failure is said with the file and the reason.
#pragma once

#include <string>
#include <vector>

#include "project/project_file.h"
#include "shell/safe_write.h"

namespace kv {

struct Workspace;

// What a project file lacks for its plant type: one text for a head that
// ends early, one for embedded working files that end early, each naming
// the file. Empty for a whole file. `plantType` is the record's, replaced by
// the file's own as the load does.
std::vector<std::string> ProjectFileShortfalls(const std::string& text, std::string plantType,
                                               const std::string& fileName);

struct LoadOutcome {
    bool loaded = false;
    std::vector<std::string> warnings;  // the file ended early
    WriteFailure failure;               // the working files could not be written
};

// LoadProject, with the working files written aside and swapped in only when
// all were written; on a failure the record and the working set stay as
// they were. The warnings are also kept in ws.loadWarnings, and a file that
// ended early is remembered for the next save's question.
LoadOutcome LoadProjectChecked(Workspace& ws, std::string& plantType, const std::string& filePath,
                               const std::string& directory);
// The same, telling the user: a warning naming the file when it ended early,
// an error with the reason when the load failed.
LoadOutcome LoadProjectAndTell(Workspace& ws, std::string& plantType, const std::string& filePath,
                               const std::string& directory);

// SaveProject with the user asked first where the save would write the
// blanks of a file that ended early or write over a write-protected file,
// and a failed write told with the file and the reason (Failed comes back).
// SaveUnderKnownName saves through it.
SaveResult SaveProjectAndTell(Workspace& ws, const std::string& plantType, const std::string& directory);

}  // namespace kv
