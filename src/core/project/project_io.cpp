#include "project/project_io.h"
#include "project/project_state.h"

#include "project/project.h"
#include "shell/files.h"
#include "shell/staged_writes.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

// Items of the head in the order the load reads them, before and after the
// rows of the second stage: line 1 (9), line 2 (2), five cells, part load and
// economizer flag, six fields, 80 Armatur cells, 16 Geometr cells of two
// lines, 4 cells, five compressor and volume items, four fluid fields; then
// six cells, three flags, and the three lines of 3, 6 and 6 items.
constexpr int kHeadItemsBefore = 9 + 2 + 5 + 2 + 6 + 80 + 32 + 4 + 5 + 4;
constexpr int kTwoStageItems = 33;
constexpr int kHeadItemsAfter = 6 + 3 + 3 + 6 + 6;

}  // namespace

std::vector<std::string> ProjectFileShortfalls(const std::string& text, std::string plantType,
                                               const std::string& fileName) {
    std::vector<std::string> warnings;
    RecordReader in(text);
    std::string item;
    int read = 0;
    auto readItems = [&](int count) {
        for (int i = 0; i < count; ++i) {
            if (!in.Read(item)) return false;
            if (++read == 4) plantType = item;  // the file's plant type decides its layout
        }
        return true;
    };
    const bool headWhole = readItems(kHeadItemsBefore) &&
                           (!IsTwoStagePlant(plantType) || readItems(kTwoStageItems)) && readItems(kHeadItemsAfter);
    const int headItems = kHeadItemsBefore + (IsTwoStagePlant(plantType) ? kTwoStageItems : 0) + kHeadItemsAfter;
    if (!headWhole) {
        warnings.push_back("The project file " + fileName + " ends within its head: " + std::to_string(read) +
                           " of the " + std::to_string(headItems) + " fields of a " + plantType +
                           " project are there; the others keep their former values.");
    }
    std::string line;
    for (EmbeddedFile f : kEmbeddedFiles) {
        if (std::string_view(f.name) == "onestDM.dat" && IsTwoStagePlant(plantType)) f = kTwoStageLineSizes;
        int lines = 0;
        while (lines < f.lines && in.ReadLine(line)) ++lines;
        if (lines < f.lines) {
            warnings.push_back("The project file " + fileName + " ends early: the working file " + f.name + " has " +
                               std::to_string(lines) + " of its " + std::to_string(f.lines) +
                               " lines, and what follows it is missing; the missing lines are loaded empty.");
            break;
        }
    }
    return warnings;
}

LoadOutcome LoadProjectChecked(Workspace& ws, std::string& plantType, const std::string& filePath,
                               const std::string& directory) {
    LoadOutcome out;
    const fs::path file = ResolveName(ws, filePath);
    if (PlantTypeHasProjectFile(plantType))
        out.warnings = ProjectFileShortfalls(ReadWholeFile(file), plantType, file.string());
    const Project before = ws.project;
    const std::string typeBefore = plantType;

    StagedWrites stage;
    ws.staging = &stage;
    ws.writeFailures.clear();
    out.loaded = LoadProject(ws, plantType, filePath, directory);
    ws.staging = nullptr;
    if (out.loaded) out.failure = stage.Commit();
    if (out.failure) {
        ws.project = before;
        plantType = typeBefore;
        out.loaded = false;
    }
    ws.loadWarnings = out.loaded ? out.warnings : std::vector<std::string>();
    if (out.loaded) ws.truncatedLoad = out.warnings.empty() ? std::string() : file.string();
    if (out.loaded) MarkProjectSaved(ws);
    return out;
}

LoadOutcome LoadProjectAndTell(Workspace& ws, std::string& plantType, const std::string& filePath,
                               const std::string& directory) {
    LoadOutcome out = LoadProjectChecked(ws, plantType, filePath, directory);
    if (out.failure) {
        ws.writeFailures = {out.failure};
        SayWriteFailures(ws, "The project " + filePath +
                                 " was not loaded: its working files could not be written. The open project "
                                 "stays as it was.");
    } else if (!out.warnings.empty()) {
        std::string text;
        for (const std::string& w : out.warnings) text += (text.empty() ? "" : "\n") + w;
        ws.ui.Message(ws.Title(), text, MessageIcon::Warning);
    }
    return out;
}

SaveResult SaveProjectAndTell(Workspace& ws, const std::string& plantType, const std::string& directory) {
    Project& p = ws.project;
    if (ws.readOnlyUse) {
        ws.ui.Message(ws.Title(), "This window uses the data directory read-only: the project is not saved.",
                      MessageIcon::Warning);
        return SaveResult::Declined;
    }
    if (!ws.truncatedLoad.empty() &&
        !ws.ui.AskYesNo(ws.Title(), "The project was loaded from " + ws.truncatedLoad +
                                        ", which ended early. The missing lines would be saved empty." +
                                        ws.lineEnd + "Save all the same?"))
        return SaveResult::Declined;
    const fs::path target = WriteTarget(ResolveName(ws, directory + ProjectFileName(p.ProjektDatei, p.ProjektNam)));
    if (IsWriteProtected(target) &&
        !ws.ui.AskYesNo(ws.Title(), target.string() + " is write-protected." + ws.lineEnd +
                                        "Save over it all the same? It stays write-protected."))
        return SaveResult::Declined;

    ws.writeFailures.clear();
    SaveResult result = SaveProject(ws, plantType, directory);
    // A companion that could not be written fails the save as much as the file.
    if (result == SaveResult::Saved && !ws.writeFailures.empty()) result = SaveResult::Failed;
    if (result == SaveResult::Failed) SayWriteFailures(ws, "The project was not saved.", target.string());
    if (result == SaveResult::Saved) ws.truncatedLoad.clear();
    if (result == SaveResult::Saved) MarkProjectSaved(ws);
    ws.writeFailures.clear();
    return result;
}

}  // namespace kv
