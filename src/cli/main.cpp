// kelvaris-cli: the batch front end over the same core as the desktop program.
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <spawn.h>
#include <string>
#include <unistd.h>
#include <vector>

#include <nlohmann/json.hpp>

#include "shell/startup.h"
#include "shell/workspace.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;

constexpr const char* kUsage = R"(kelvaris-cli - batch tool of Kelvaris, refrigeration and heat pump plant design

Usage: kelvaris-cli [options] COMMAND [arguments]

Commands:
  info        data directory, language, settings file, factory files installed
  version     program and file version
  help        this text

Options:
  --json            print the result as JSON
  --settings FILE   read kparam.dat from FILE instead of the user's configuration folder
  --data-dir DIR    use DIR as data directory for this run (the settings file is not changed)
  -h, --help        this text

Exit codes: 0 done, 1 a command reported a failure, 2 wrong usage or unreadable input.
)";

struct Options {
    bool json = false;
    std::string settings;
    std::string dataDir;
    std::vector<std::string> args;
};

kv::Workspace MakeWorkspace(const Options& o, const char* argv0) {
    std::error_code ec;
    fs::path exe = fs::canonical("/proc/self/exe", ec);
    if (ec) exe = fs::absolute(argv0, ec);
    kv::Workspace ws = kv::MakeDesktopWorkspace(exe.parent_path());
    if (!o.settings.empty()) ws.settingsFile = o.settings;
    // Messages go to standard error; questions are answered No, so a batch run
    // never overwrites what it was not told to.
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
    kv::PrepareWorkspace(ws);
    if (!o.dataDir.empty()) {
        ws.project.DatenVerz = fs::absolute(o.dataDir, ec).string();
        fs::create_directories(ws.project.DatenVerz, ec);
        ws.factoryFilesInstalled = kv::InstallFactoryData(ws);
        kv::LoadCaptions(ws);
        kv::LoadVerbCaptions(ws);
        kv::LoadOtherCaptions(ws);
        kv::LoadHelpTable(ws);
    }
    return ws;
}

int Info(const Options& o, const char* argv0) {
    kv::Workspace ws = MakeWorkspace(o, argv0);
    if (o.json) {
        nlohmann::json j;
        j["dataDirectory"] = ws.project.DatenVerz;
        j["language"] = ws.settings.Sprache;
        j["settingsFile"] = ws.settingsFile.string();
        j["settingsRead"] = ws.settingsRead;
        j["factoryFilesInstalled"] = ws.factoryFilesInstalled;
        j["factoryDirectory"] = ws.factoryDir.string();
        j["pipeTable"] = ws.project.RohrDatei;
        j["currency"] = ws.settings.Waehrung;
        j["version"] = ws.settings.VersionText;
        std::cout << j.dump(2) << "\n";
    } else {
        std::cout << "Data directory:          " << ws.project.DatenVerz << "\n"
                  << "Language:                " << ws.settings.Sprache << "\n"
                  << "Settings file:           " << ws.settingsFile.string()
                  << (ws.settingsRead ? " (read)" : " (not found, defaults used)") << "\n"
                  << "Factory files installed: " << ws.factoryFilesInstalled << "\n"
                  << "Factory data:            " << ws.factoryDir.string() << "\n";
    }
    return 0;
}

int Version(const Options& o) {
    if (o.json) {
        nlohmann::json j;
        j["program"] = "kelvaris-cli";
        j["version"] = KELVARIS_VERSION;
        j["fileVersion"] = kv::kVersionText;
        std::cout << j.dump(2) << "\n";
    } else {
        std::cout << "kelvaris-cli " << KELVARIS_VERSION << "\n";
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    Options o;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--json") o.json = true;
        else if (a == "-h" || a == "--help") { std::cout << kUsage; return 0; }
        else if ((a == "--settings" || a == "--data-dir") && i + 1 < argc) (a == "--settings" ? o.settings : o.dataDir) = argv[++i];
        else if (a.rfind("--", 0) == 0) { std::cerr << "kelvaris-cli: unknown option " << a << "\n" << kUsage; return 2; }
        else o.args.push_back(a);
    }
    if (o.args.empty()) { std::cerr << kUsage; return 2; }
    const std::string& cmd = o.args[0];
    if (cmd == "help") { std::cout << kUsage; return 0; }
    if (cmd == "version") return Version(o);
    if (cmd == "info") return Info(o, argv[0]);
    std::cerr << "kelvaris-cli: unknown command " << cmd << "\n" << kUsage;
    return 2;
}
