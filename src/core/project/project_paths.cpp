#include "project/project_paths.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "lines/pipe_series.h"
#include "project/project_io.h"
#include "project/recent_projects.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace fs = std::filesystem;

namespace {

std::string LowerExtension(const std::string& path) {
    std::string ext = fs::path(path).extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); });
    return ext;
}

std::string FolderWithSlash(std::string dir) {
    if (!dir.empty() && dir.back() != '/' && dir.back() != '\\') dir += '/';
    return dir;
}

}  // namespace

std::string WithProjectExtension(const std::string& path) {
    if (path.empty() || LowerExtension(path) == ".prj") return path;
    return path + ".prj";
}

std::string WithPictureExtension(const std::string& path, const std::string& format) {
    const std::string ext = LowerExtension(path);
    if (ext == ".png" || ext == ".pdf" || ext == ".svg" || path.empty()) return path;
    return path + "." + (format.empty() ? std::string("png") : format);
}

bool OpenProjectFromPath(Workspace& ws, const std::string& path) {
    Project& p = ws.project;
    const fs::path file(path);
    std::error_code ec;
    if (!fs::is_regular_file(file, ec)) {
        ws.ui.Message(ws.Title(), "The project file " + path + " was not found. The open project stays as it was.",
                      MessageIcon::Error);
        return false;
    }
    std::string type = p.AnlagenTyp;
    if (!LoadProjectAndTell(ws, type, file.string(), FolderWithSlash(file.parent_path().string())).loaded)
        return false;
    p.AnlagenTyp = type;
    p.ProjektDatei = file.filename().string();
    p.ProjektVerz = file.parent_path().string();
    RememberProject(ws, file.string());
    return true;
}

std::string OpenProjectPath(const Workspace& ws) {
    const Project& p = ws.project;
    const std::string name(Trim(p.ProjektDatei));
    if (name.empty() || UpperAscii(name) == ".PRJ") return {};
    return FolderWithSlash(p.ProjektVerz) + name;
}

std::optional<SaveResult> SaveToOpenFile(Workspace& ws) {
    const std::optional<SaveResult> result = SaveUnderKnownName(ws);
    if (result == SaveResult::Saved) RememberProject(ws, OpenProjectPath(ws));
    return result;
}

SaveResult SaveProjectToPath(Workspace& ws, const std::string& path) {
    Project& p = ws.project;
    const fs::path file(WithProjectExtension(path));
    p.ProjektDatei = file.filename().string();
    p.ProjektVerz = file.parent_path().string();
    const SaveResult result = SaveProjectAndTell(ws, p.AnlagenTyp, FolderWithSlash(p.ProjektVerz));
    if (result == SaveResult::Saved) RememberProject(ws, OpenProjectPath(ws));
    return result;
}

std::string ProjectFolder(const Workspace& ws) {
    std::error_code ec;
    const std::string& dir = ws.project.ProjektVerz;
    if (!Trim(dir).empty() && fs::is_directory(fs::path(dir), ec)) return dir;
    return ws.project.DatenVerz;
}

void SyncPipeSeries(const Workspace& ws, std::string& boxText, std::vector<std::string>& list) {
    list = PipeSeriesList(ws);
    boxText = PipeSeriesText(ws, ws.project.RohrDatei);
    if (!boxText.empty() && std::find(list.begin(), list.end(), boxText) == list.end()) list.push_back(boxText);
}

void ChoosePipeSeries(Workspace& ws, const std::string& boxText) {
    if (const std::string file = PipeSeriesFile(ws, boxText); !file.empty()) ws.project.RohrDatei = file;
}

}  // namespace kv
