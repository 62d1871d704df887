// The recently used projects of the main menu: path, name, plant type,
// refrigerant and date, newest first, kept beside the settings file.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct RecentProject {
    std::string path, name, plantType, refrigerant, date;
};

inline constexpr std::size_t kRecentProjects = 8;

// The list as kept; entries whose file is gone are left out.
std::vector<RecentProject> ReadRecentProjects(const Workspace& ws);

// Puts the open project (loaded from or saved to `path`) at the top.
void RememberProject(const Workspace& ws, const std::string& path);

// One line of the menu's list: "Hall3.prj   HeatP   R290   2026-11-23   Hall 3".
std::string RecentProjectLine(const RecentProject& r);

}  // namespace kv
