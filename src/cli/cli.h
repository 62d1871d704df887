// Shared pieces of the batch tool's commands.
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "shell/workspace.h"

namespace kvcli {

struct Options {
    bool json = false;
    std::string settings;
    std::string dataDir;
    std::map<std::string, std::string> values;  // --drive 2 and the like
    std::vector<std::string> args;              // command and its arguments
    const char* argv0 = "kelvaris-cli";
};

// A workspace prepared as the desktop program prepares it, with messages to
// standard error and every question answered No.
kv::Workspace MakeWorkspace(const Options& o);

// The JSON text of `j`; never throws on a text.
std::string JsonText(const nlohmann::json& j, int indent = 2);
// Prints `j` as JSON or, without --json, as "key: value" lines.
void Print(const Options& o, const nlohmann::json& j);

// Prints the figures of a calculation; a figure that is not a number is
// a failure of the calculation: its name on standard error, exit code 1.
int PrintFigures(const Options& o, const nlohmann::json& j);

// A clear message on standard error; returns the exit code 2.
int Fail(const std::string& message);

// A number argument read with the program's own number rule (point or
// comma); false when the text holds no number.
bool NumberArg(const std::string& text, double& value);

// Loads a project file given on the command line into ws; false with the
// exit code set when it is missing or unreadable.
bool LoadProjectArg(kv::Workspace& ws, const std::string& file, int& code);
nlohmann::json ProjectJson(const kv::Project& p);
// Opens the data screen and the plant scheme screen on the loaded project
// as the desktop does; false (messages printed, code 2) when the input check
// refuses it.
}  // namespace kvcli
namespace kv { struct SchemeScreen; }
namespace kvcli {
bool PrepareCalculation(kv::Workspace& ws, kv::SchemeScreen& scheme, int& code);
// Loads the project named by the command's argument, prepares and runs the
// first calculation; false with the exit code set otherwise.
bool CalculateProject(const Options& o, kv::Workspace& ws, kv::SchemeScreen& scheme, int& code);
// Messages one a line, their own line breaks turned into blanks.
void PrintMessageLines(std::ostream& out, const std::vector<std::string>& messages);
nlohmann::json CycleJson(const kv::Workspace& ws);

int CmdFluid(const Options& o);
int CmdSat(const Options& o);
int CmdState(const Options& o);
int CmdCheck(const Options& o);
int CmdCalc(const Options& o);
int CmdShow(const Options& o);
int CmdPipes(const Options& o);
int CmdDp(const Options& o);
// Without the render library the diagram command says that it is not built.
int CmdDiagram(const Options& o);
// The seasonal performance of a heat pump over the typical year.
int CmdAnnual(const Options& o);
// The installed catalogues, the series of a group, the Matchcode rebuild.
int CmdCatalogues(const Options& o);
int CmdCatalogue(const Options& o);
int CmdMatchcode(const Options& o);
// Rates the series of a component kind at the calculated plant.
int CmdSelect(const Options& o);
// Calculates a project and generates its parts lists.
int CmdLists(const Options& o);
// Calculates the project of the command and generates its lists as the
// desktop does (the calculation's pipe and fitting lists, then the parts
// lists); false with the exit code set otherwise.
bool CalculateWithLists(const Options& o, kv::Workspace& ws, kv::SchemeScreen& scheme, int& code, int* emptyRows = nullptr);
// Classifies a project's plant under the Pressure Equipment Directive.
int CmdPed(const Options& o);
// Costs the parts lists of a project; exports them to a file or a workbook.
int CmdCost(const Options& o);
int CmdExport(const Options& o);
// The whole report of a project as one PDF.
int CmdReport(const Options& o);
// The piping scheme of a project as element lines and as a picture.
int CmdScheme(const Options& o);

}  // namespace kvcli
