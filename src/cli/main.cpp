// kelvaris-cli: the batch front end over the same core as the desktop program.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <spawn.h>
#include <string>
#include <unistd.h>

#include "cli.h"
#include "shell/data_dir_access.h"
#include "shell/numbers.h"
#include "shell/startup.h"

extern char** environ;

namespace kvcli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kUsage = R"(kelvaris-cli - batch tool of Kelvaris, refrigeration and heat pump plant design

Usage: kelvaris-cli [options] COMMAND [arguments]

Commands:
  info                         data directory, language, settings file, factory files installed
  version                      program and file version
  fluid NAME                   registry entry of a refrigerant
  sat NAME TEMP_C              saturation state at a temperature
  state NAME T0_C TC_C TSUCTION_C SUBCOOLING [--drive N] [--principle N]
                               state points of a cycle
  check PROJECT.prj            input check of a project: one message a line, exit code = their count
  show PROJECT.prj             the project record after loading
  calc PROJECT.prj             calculates the project's operating point and line sizes
  pipes [FILE]                 the sizes of a pipe series (default the project's series)
  dp single --di MM --length M --m KG_S --rho KG_M3 --eta PA_S [--zeta Z] [--height M]
                               pressure drop of a line of one phase
  dp twophase --di MM --length M --m KG_S --rho-liquid KG_M3 --rho-vapour KG_M3
              --eta-vapour PA_S --eta-liquid PA_S --x X [--zeta Z]
                               pressure drop of a two-phase line (Chisholm)
  diagram PROJECT.prj --out FILE.png|.svg|.pdf
                               the h,log p diagram of the project's cycle
  diagram --fluid NAME --t0 C --tc C --out FILE.png|.svg|.pdf
                               the h,log p diagram of a fluid at two temperatures
  annual PROJECT.prj           seasonal performance of a heat pump over the typical year
                               (sCOP, ETAs,h, cost, CO2, supplementary heat); writes ERG_HEAT.DAT
  catalogues                   the installed catalogues: base, title, kind
  catalogue BASE --group CODE  the series of a catalogue's group with their articles
  matchcode                    rebuilds the catalogue index files (progress on standard error)
  select PROJECT.prj --kind N [--line NAME] [--series BASE:POSITION]
                               calculates the project and rates the series of a component kind
  lists PROJECT.prj [--out-dir DIR]
                               calculates the project, generates its parts lists and prints
                               parts, units, pipes, fittings and the refrigerant charge
  ped PROJECT.prj [--high 1|2|3]
                               PED classification of the plant (high side at 43, 55 or 63 °C);
                               writes the protocols PEDpar.DAT, PEDpar2.DAT and ECOpar.DAT
  cost PROJECT.prj             costs the parts lists: purchase, labour, selling price, margin, time
  export PROJECT.prj --target 1|2|3|4 --out FILE
                               the lists as tab text, comma text, records or an .xlsx workbook
  report PROJECT.prj --out FILE.pdf
                               the whole report: plant results, lines, components, PED and eco pages
  scheme PROJECT.prj [--mode 0|32|132] [--rif FILE] [--out FILE.svg|.pdf|.png]
                               the piping scheme as element lines (RIFliess.dat form) and as a drawing
  help                         this text

Options:
  --json            print the result as JSON
  --settings FILE   read kparam.dat from FILE instead of the user's configuration folder
  --data-dir DIR    use DIR as data directory for this run (the settings file is not changed)
  --drive N         compressor drive kind 1 to 3 (open, semi-hermetic, hermetic)
  --principle N     compressor principle 1 to 5 (3 is the scroll compressor)
  -h, --help        this text

Exit codes: 0 done, 1 a command reported a failure, 2 wrong usage or unreadable input.
)";

int Info(const Options& o) {
    kv::Workspace ws = MakeWorkspace(o);
    nlohmann::json j;
    j["dataDirectory"] = ws.sharedDataDir.string();
    j["language"] = ws.settings.Sprache;
    j["settingsFile"] = ws.settingsFile.string();
    j["settingsRead"] = ws.settingsRead;
    j["factoryFilesInstalled"] = ws.factoryFilesInstalled;
    j["factoryDirectory"] = ws.factoryDir.string();
    j["pipeTable"] = ws.project.RohrDatei;
    j["currency"] = ws.settings.Waehrung;
    j["version"] = ws.settings.VersionText;
    Print(o, j);
    return 0;
}

int Version(const Options& o) {
    nlohmann::json j;
    j["program"] = "kelvaris-cli";
    j["version"] = KELVARIS_VERSION;
    j["fileVersion"] = kv::kVersionText;
    if (o.json) Print(o, j);
    else std::cout << "kelvaris-cli " << KELVARIS_VERSION << "\n";
    return 0;
}

}  // namespace

kv::Workspace MakeWorkspace(const Options& o) {
    std::error_code ec;
    fs::path exe = fs::canonical("/proc/self/exe", ec);
    if (ec) exe = fs::absolute(o.argv0, ec);
    kv::Workspace ws = kv::MakeDesktopWorkspace(exe.parent_path());
    if (!o.settings.empty()) ws.settingsFile = o.settings;
    ws.ui.message = [](const std::string& title, const std::string& text, kv::MessageIcon) {
        std::cerr << title << ": " << text << "\n";
    };
    ws.ui.startDetached = [](const fs::path& program, const fs::path& workDir) {
        pid_t pid;
        std::string p = program.string();
        char* argv[] = {p.data(), nullptr};
        posix_spawn_file_actions_t fa;
        posix_spawn_file_actions_init(&fa);
        posix_spawn_file_actions_addchdir_np(&fa, workDir.c_str());
        const int rc = posix_spawn(&pid, p.c_str(), &fa, nullptr, argv, environ);
        posix_spawn_file_actions_destroy(&fa);
        return rc == 0;
    };
    if (!o.dataDir.empty()) ws.dataDirOverride = fs::absolute(o.dataDir, ec);
    kv::PrepareWorkspace(ws);
    // The command works on a copy of the working set: a run beside it on
    // the same directory neither sees nor changes its working files.
    kv::WriteFailure failure;
    if (!kv::UsePrivateWorkingSet(ws, failure)) {
        std::cerr << "kelvaris-cli: no private working set: " << failure.Text() << "\n";
        std::exit(1);
    }
    return ws;
}

std::string JsonText(const nlohmann::json& j, int indent) {
    // The readers hand on valid UTF-8 only; a text that is not (a file name
    // from the command line) is written with a replacement character rather
    // than ending the run.
    return j.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

void Print(const Options& o, const nlohmann::json& j) {
    if (o.json) {
        std::cout << JsonText(j) << "\n";
        return;
    }
    for (auto it = j.begin(); it != j.end(); ++it) {
        std::cout << it.key() << ": ";
        if (it->is_string()) std::cout << it->get<std::string>();
        else std::cout << JsonText(*it, -1);
        std::cout << "\n";
    }
}

int Fail(const std::string& message) {
    std::cerr << "kelvaris-cli: " << message << "\n";
    return 2;
}

bool NumberArg(const std::string& text, double& value) {
    std::string t = text;
    const std::string_view trimmed = kv::Trim(t);
    if (trimmed.empty()) return false;
    const char c = trimmed.front();
    if (!(c == '-' || c == '+' || c == '.' || c == ',' || (c >= '0' && c <= '9'))) return false;
    value = kv::ToNumber(t).value;
    return true;
}

}  // namespace kvcli

int main(int argc, char** argv) {
    using namespace kvcli;
    Options o;
    o.argv0 = argv[0];
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--json") o.json = true;
        else if (a == "-h" || a == "--help") { std::cout << kUsage; return 0; }
        else if (a == "--with-length") o.values["with-length"] = "1";
        else if (a == "--with-speed") o.values["with-speed"] = "1";
        else if (a.rfind("--", 0) == 0 && a.size() > 2) {
            if (i + 1 >= argc) { std::cerr << "kelvaris-cli: " << a << " needs a value\n"; return 2; }
            const std::string key = a.substr(2), value = argv[++i];
            if (key == "settings") o.settings = value;
            else if (key == "data-dir") o.dataDir = value;
            else if (key == "drive" || key == "principle") o.values[key] = value;
            else if (key == "out" || key == "fluid" || key == "t0" || key == "tc") o.values[key] = value;
            else if (key == "group") o.values[key] = value;
            else if (key == "kind" || key == "line" || key == "series" || key == "out-dir" || key == "high" || key == "target" || key == "mode" || key == "rif") o.values[key] = value;
            else if (key == "di" || key == "length" || key == "m" || key == "rho" || key == "eta" || key == "zeta" ||
                     key == "height" || key == "rho-liquid" || key == "rho-vapour" || key == "eta-vapour" ||
                     key == "eta-liquid" || key == "x")
                o.values[key] = value;
            else { std::cerr << "kelvaris-cli: unknown option " << a << "\n" << kUsage; return 2; }
        } else o.args.push_back(a);
    }
    if (o.args.empty()) { std::cerr << kUsage; return 2; }
    const std::string& cmd = o.args[0];
    if (cmd == "help") { std::cout << kUsage; return 0; }
    if (cmd == "version") return Version(o);
    if (cmd == "info") return Info(o);
    if (cmd == "fluid") return CmdFluid(o);
    if (cmd == "sat") return CmdSat(o);
    if (cmd == "state") return CmdState(o);
    if (cmd == "check") return CmdCheck(o);
    if (cmd == "calc") return CmdCalc(o);
    if (cmd == "show") return CmdShow(o);
    if (cmd == "pipes") return CmdPipes(o);
    if (cmd == "dp") return CmdDp(o);
    if (cmd == "diagram") return CmdDiagram(o);
    if (cmd == "annual") return CmdAnnual(o);
    if (cmd == "catalogues") return CmdCatalogues(o);
    if (cmd == "catalogue") return CmdCatalogue(o);
    if (cmd == "matchcode") return CmdMatchcode(o);
    if (cmd == "select") return CmdSelect(o);
    if (cmd == "lists") return CmdLists(o);
    if (cmd == "ped") return CmdPed(o);
    if (cmd == "cost") return CmdCost(o);
    if (cmd == "export") return CmdExport(o);
    if (cmd == "report") return CmdReport(o);
    if (cmd == "scheme") return CmdScheme(o);
    std::cerr << "kelvaris-cli: unknown command " << cmd << "\n" << kUsage;
    return 2;
}
