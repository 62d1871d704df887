#include "project/recent_projects.h"

#include <chrono>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "shell/files.h"
#include "shell/workspace.h"

namespace kv {

namespace fs = std::filesystem;

namespace {

fs::path ListFile(const Workspace& ws) { return ws.settingsFile.parent_path() / "recent_projects.txt"; }

// One entry a line, its fields apart by tabs; tabs and line ends in a name
// become blanks.
std::string Field(std::string s) {
    for (char& c : s)
        if (c == '\t' || c == '\r' || c == '\n') c = ' ';
    return s;
}

std::string Today() {
    const auto days = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    const std::chrono::year_month_day ymd(days);
    auto two = [](unsigned v) { return (v < 10 ? "0" : "") + std::to_string(v); };
    return std::to_string(static_cast<int>(ymd.year())) + "-" + two(static_cast<unsigned>(ymd.month())) + "-" +
           two(static_cast<unsigned>(ymd.day()));
}

}  // namespace

std::vector<RecentProject> ReadRecentProjects(const Workspace& ws) {
    std::vector<RecentProject> list;
    if (ws.settingsFile.empty()) return list;
    std::istringstream in(ReadWholeFile(ListFile(ws)));
    std::string line;
    std::error_code ec;
    while (std::getline(in, line) && list.size() < kRecentProjects) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        std::vector<std::string> f;
        std::size_t from = 0;
        for (std::size_t tab; (tab = line.find('\t', from)) != std::string::npos; from = tab + 1)
            f.push_back(line.substr(from, tab - from));
        f.push_back(line.substr(from));
        if (f.size() != 5 || !fs::is_regular_file(fs::path(f[0]), ec)) continue;
        list.push_back({f[0], f[1], f[2], f[3], f[4]});
    }
    return list;
}

void RememberProject(const Workspace& ws, const std::string& path) {
    if (ws.settingsFile.empty() || path.empty()) return;
    std::vector<RecentProject> list = ReadRecentProjects(ws);
    std::erase_if(list, [&path](const RecentProject& r) { return r.path == path; });
    const Project& p = ws.project;
    list.insert(list.begin(), {path, p.ProjektNam, p.AnlagenTyp, p.KaelteM, Today()});
    if (list.size() > kRecentProjects) list.resize(kRecentProjects);
    std::string text;
    for (const RecentProject& r : list)
        text += Field(r.path) + '\t' + Field(r.name) + '\t' + Field(r.plantType) + '\t' + Field(r.refrigerant) + '\t' +
                Field(r.date) + '\n';
    WriteFileAtomic(ListFile(ws), text);  // a list that cannot be written is only not remembered
}

std::string RecentProjectLine(const RecentProject& r) {
    return fs::path(r.path).filename().string() + "   " + r.plantType + "   " + r.refrigerant + "   " + r.date +
           (r.name.empty() ? std::string() : "   " + r.name);
}

}  // namespace kv
