#include "shell/workspace.h"

#include <cstdlib>
#include <system_error>

#include "shell/files.h"
#include "shell/numbers.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

fs::path HomeDir() {
    const char* home = std::getenv("HOME");
    return home && *home ? fs::path(home) : fs::current_path();
}

fs::path ConfigHome() {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    return xdg && *xdg ? fs::path(xdg) : HomeDir() / ".config";
}

// The documents folder of the XDG user directories: the environment first,
// then user-dirs.dirs, then ~/Documents.
fs::path DocumentsDir() {
    if (const char* env = std::getenv("XDG_DOCUMENTS_DIR"); env && *env) return fs::path(env);
    RecordReader in = OpenIn(ConfigHome() / "user-dirs.dirs");
    std::string line;
    while (in.ReadLine(line)) {
        std::string_view l = Trim(line);
        constexpr std::string_view key = "XDG_DOCUMENTS_DIR=";
        if (l.substr(0, key.size()) != key) continue;
        std::string v(l.substr(key.size()));
        if (v.size() >= 2 && v.front() == '"' && v.back() == '"') v = v.substr(1, v.size() - 2);
        if (v.rfind("$HOME", 0) == 0) v = HomeDir().string() + v.substr(5);
        if (!v.empty() && v != HomeDir().string() && v != HomeDir().string() + "/") return fs::path(v);
    }
    return HomeDir() / "Documents";
}

}  // namespace

Workspace MakeDesktopWorkspace(const fs::path& programDir) {
    Workspace ws;
    ws.settingsFile = ConfigHome() / "Kelvaris" / "kparam.dat";
    ws.documentsDir = DocumentsDir();
    ws.programDir = programDir;
    std::error_code ec;
    ws.historyDir = fs::current_path(ec);
    // An installed program finds its factory data beside it; a build tree
    // uses the source tree's.
    const fs::path installed = programDir / ".." / "share" / "kelvaris" / "data";
    ws.factoryDir = fs::is_directory(installed, ec) ? installed : fs::path(KELVARIS_FACTORY_DATA);
    return ws;
}

}  // namespace kv
