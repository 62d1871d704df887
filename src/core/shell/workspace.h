// Everything one run of the system works on, handed explicitly to what needs
// it: the settings, the data directory, the open project, the working values
// of the cycle, the caption tables and the user interface's callbacks. Tests
// run many workspaces side by side.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "cycle/cycle_state.h"
#include "lines/pipe_table.h"
#include "project/project.h"
#include "refrigerant/property_tables.h"
#include "shell/captions.h"
#include "shell/exchange.h"
#include "shell/file_memory.h"
#include "shell/safe_write.h"
#include "shell/settings.h"
#include "shell/user_interface.h"

namespace kv {

inline constexpr const char* kProductName = "Kelvaris";

class StagedWrites;
class PrivateWorkingSet;
class DataDirectoryLock;

struct Workspace {
    // Where kparam.dat lives. The data directory is named inside it.
    std::filesystem::path settingsFile;
    // The factory data directory whose files are installed into the data directory.
    std::filesystem::path factoryDir;
    // Folder whose "Kelvaris" subfolder is the default data directory (the
    // user's documents folder).
    std::filesystem::path documentsDir;
    // Where the external programs of the family are looked for.
    std::filesystem::path programDir;
    // Where KV_hist.log is written (the current directory of the run).
    std::filesystem::path historyDir;
    // A data directory given for this run alone (the batch tool's
    // --data-dir): it replaces the settings' one before anything is
    // installed, and the settings file keeps its own.
    std::filesystem::path dataDirOverride;

    Settings settings;
    Project project;
    CycleState cycle;
    Captions captions;
    UserInterface ui;
    // Parsed property tables and working files of the data directory; a
    // read through a const workspace still fills them.
    mutable PropertyCache properties;
    mutable FileMemory files;

    // Run state.
    std::string lineEnd = "\r\n";
    std::string labelSuffix = " :";
    std::string productName = kProductName;
    ExchangeData exchange;     // the exchange file as read at start
    int statusWord = 0;        // status word of the exchange file at start
    int optionMark = 0;        // set when a screen is opened in option mode
    bool loeschFehler = false; // a file could not be deleted
    bool settingsRead = false; // kparam.dat had content at start
    int factoryFilesInstalled = 0;  // files copied from the factory data at start
    // The pipe series loaded for the calculation (the project's RohrDatei).
    PipeTable pipes;
    // Writes of workspace files that failed, oldest first; whoever shows
    // them clears the list.
    mutable std::vector<WriteFailure> writeFailures;
    // While a project load collects the new working set, its writes go here.
    StagedWrites* staging = nullptr;
    // The project file last loaded, when it had ended early: a save asks
    // before it writes the blanks over the user's file.
    std::string truncatedLoad;
    // The input of the project as last loaded, saved or begun (InputFingerprint).
    std::string savedInput;
    // What the last project load found missing in its file.
    std::vector<std::string> loadWarnings;
    // A run on a private working set: the data directory proper (settings
    // keep naming it), the set, and the desktop's lock on the directory.
    std::filesystem::path sharedDataDir;
    std::shared_ptr<PrivateWorkingSet> privateSet;
    std::shared_ptr<DataDirectoryLock> dataLock;
    bool readOnlyUse = false;  // another window owns the data directory: nothing is saved

    std::filesystem::path DataDir() const { return std::filesystem::path(project.DatenVerz); }
    // Title of the message boxes: product name and version.
    std::string Title() const { return productName + " " + settings.VersionText; }
};

// A workspace with the usual places of a desktop user: kparam.dat in the
// configuration folder, the documents folder from the XDG user directories,
// the factory data beside the program or in the source tree.
Workspace MakeDesktopWorkspace(const std::filesystem::path& programDir);

}  // namespace kv
