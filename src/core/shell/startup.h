// Start and end of a run, a new project, and the hand-over to the other
// programs of the family.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

// The default data directory: the documents folder + "/Kelvaris".
std::filesystem::path DefaultDataDir(const Workspace& ws);

// Copies every file of the factory data that is missing in the data
// directory (compared without regard to case); existing files are never
// overwritten. Returns the number of files copied.
int InstallFactoryData(Workspace& ws);

// The preparation every front end shares: settings, fixed run values, the
// data directory and its factory files, the caption tables, the pipe
// insulation file, the zeta values. The exchange file is left alone.
void PrepareWorkspace(Workspace& ws);

// The steps of a start that need no window, in order: settings, fixed run
// values, the data directory and its factory files, the caption tables, the
// pipe insulation file, the exchange file (consumed). The window then fills
// its captions, shows the welcome screen on a plain start and acts on
// `ws.statusWord` (StartActionFor).
void StartSystem(Workspace& ws);
// True when this start is no continuation: the welcome screen is shown.
bool IsPlainStart(const Workspace& ws);

// Empties the working files, clears the project's identification and grids,
// fills in the standard fittings and the auxiliary data, dates it today.
void NewProject(Workspace& ws);

// Asks whether to end. On Yes, writes kparam.dat and returns true: the caller
// closes its windows and ends the process. On No nothing happens.
bool EndSystem(Workspace& ws);

// The other programs of the family.
enum class ExternalProgram { Draw, Main, Parts, HeatExchanger, ColdRoom, AirConditioning, Print, Viewer };
struct ExternalProgramInfo {
    ExternalProgram id;
    std::string_view file;  // the program's file name as the family names it
};
const std::vector<ExternalProgramInfo>& ExternalPrograms();
// Where the program is: in the program directory or the data directory, with
// or without its ".exe", found without regard to case. Empty when missing.
std::filesystem::path FindExternalProgram(const Workspace& ws, ExternalProgram program);
// Starts a program detached in its working directory. When it is missing the
// user is told, naming it, and false comes back. The exchange file and the
// settings are the caller's to write first (HandOver does both).
bool StartExternalProgram(Workspace& ws, ExternalProgram program);
// Writes the exchange file with flag and status, saves the settings and
// starts the program.
bool HandOver(Workspace& ws, ExternalProgram program, int flag, int statusWord);

// The working files that a new project empties.
const std::vector<std::string_view>& WorkingFiles();

}  // namespace kv
