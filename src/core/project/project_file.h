// The project file: a ".prj" holding the data screen's fields in a fixed
// order, then six working files of the data directory line by line, and nine
// companion files beside it sharing its stem. Read by position only; no
// field carries a tag.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

enum class SaveResult {
    Saved,
    Declined,          // the user did not allow overwriting
    PlantTypeNotSaved, // compound, brine, pump and mono-fluid plants have no project file
    Failed,            // the file could not be written
};

// The four plant types a project file holds, compared exactly.
bool PlantTypeHasProjectFile(const std::string& anlagenTyp);

// The file name a save uses, from the record's name and file name: empty or
// ".PRJ" alone take the cleaned project name; any other name has its last
// four characters cut, whatever they are, and ".PRJ" appended.
std::string ProjectFileName(const std::string& projektDatei, const std::string& projektNam);

// Saves under ws.project.ProjektDatei (made by ProjectFileName) in
// `directory`, which ends in its separator or is empty for the data
// directory. The temporary file is renamed over the old one only when all
// was written.
SaveResult SaveProject(Workspace& ws, const std::string& plantType, const std::string& directory);

// The Save button of the data screen: a project with a file name (not empty
// and not ".PRJ" alone) is saved in its directory and the result comes back;
// without one nothing happens and nullopt says that a name must be asked.
std::optional<SaveResult> SaveUnderKnownName(Workspace& ws);

// Loads `filePath`; companions are sought in `directory`. `plantType` (the
// record's) must be one of the four project plant types, else nothing
// happens and false comes back; the file's plant type replaces it.
bool LoadProject(Workspace& ws, std::string& plantType, const std::string& filePath, const std::string& directory);

// SubAct.dat (11 lines) and enerACT.dat (4 items), each followed by "§$%".
std::string PackAuxiliaryData(Workspace& ws);
void UnpackAuxiliaryData(Workspace& ws, const std::string& pack);

// Deletes a project file and its nine companions beside it. False when the
// project file could not be deleted.
bool DeleteProject(Workspace& ws, const std::string& filePath);

// The nine companions between the data directory and the project's directory.
void CopyCompanionsToProject(Workspace& ws, const std::string& projectFileName, const std::string& directory);
void CopyCompanionsFromProject(Workspace& ws, const std::string& projectFileName, const std::string& directory);
// The extensions of the nine companions, in their fixed order.
std::vector<std::string> CompanionExtensions();

// The embedded working files in file order with their fixed line counts.
struct EmbeddedFile {
    const char* name;
    int lines;
};
inline constexpr EmbeddedFile kEmbeddedFiles[6] = {{"hx_prj1.dat", 6},   {"cr_prj1.dat", 1017}, {"onestDM.dat", 5},
                                                   {"ac_prj1.dat", 1383}, {"RIFliess.dat", 2010}, {"Schaltp.dat", 2010}};
inline constexpr EmbeddedFile kTwoStageLineSizes = {"twostDM.dat", 9};

}  // namespace kv
