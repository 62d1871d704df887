#include "project/project_browser.h"

#include <algorithm>
#include <system_error>

#include "project/project.h"
#include "project/project_file.h"
#include "project/project_io.h"
#include "project/project_paths.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

bool IsProjectFile(const fs::path& p) { return UpperAscii(p.extension().string()) == ".PRJ"; }

// The file less its last four characters, as the companions are named.
std::string StemOf(const fs::path& file) {
    const std::string name = file.filename().string();
    return name.size() >= 4 ? name.substr(0, name.size() - 4) : std::string();
}

}  // namespace

BrowsedProject ReadProjectHead(const fs::path& file) {
    BrowsedProject b;
    b.file = file;
    RecordReader in = OpenIn(file);
    for (std::string* item : {&b.name, &b.description, &b.date, &b.plantType, &b.refrigerant})
        if (!in.Read(*item)) break;
    std::error_code ec;
    for (const std::string& ext : CompanionExtensions())
        if (fs::is_regular_file(file.parent_path() / (StemOf(file) + ext), ec)) b.companions.push_back(ext);
    return b;
}

ProjectBrowser::ProjectBrowser(Workspace& ws) : ws_(ws) {
    AddDirectory(ws.DataDir());
    if (!Trim(ws.project.ProjektVerz).empty()) AddDirectory(ws.project.ProjektVerz);
}

void ProjectBrowser::AddDirectory(const fs::path& dir) {
    if (dir.empty()) return;
    std::error_code ec;
    fs::path d = fs::weakly_canonical(dir, ec);
    if (ec) d = dir;
    if (std::find(dirs_.begin(), dirs_.end(), d) == dirs_.end()) dirs_.push_back(d);
}

void ProjectBrowser::Scan() {
    all_.clear();
    for (const fs::path& dir : dirs_) {
        std::error_code ec;
        std::vector<fs::path> files;
        for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec)) {
            std::error_code e2;
            if (it->is_regular_file(e2) && IsProjectFile(it->path())) files.push_back(it->path());
        }
        // By name, letters without case, as a user reads a list.
        std::sort(files.begin(), files.end(), [](const fs::path& a, const fs::path& b) {
            return UpperAscii(a.filename().string()) < UpperAscii(b.filename().string());
        });
        for (const fs::path& f : files) all_.push_back(ReadProjectHead(f));
    }
    Filter();
}

void ProjectBrowser::Search(std::string text) {
    search_ = UpperAscii(Trim(text));
    Filter();
}

void ProjectBrowser::Filter() {
    shown_.clear();
    for (const BrowsedProject& b : all_) {
        const std::string hay = UpperAscii(b.file.filename().string() + '\n' + b.name + '\n' + b.description + '\n' +
                                           b.date + '\n' + b.plantType + '\n' + b.refrigerant);
        if (search_.empty() || hay.find(search_) != std::string::npos) shown_.push_back(b);
    }
}

bool ProjectBrowser::Open(std::size_t row) { return row < shown_.size() && OpenFile(shown_[row].file); }

bool ProjectBrowser::OpenFile(const fs::path& file) {
    // The one way a project is opened from a path: record, folder and the
    // recently used list follow the load.
    if (!OpenProjectFromPath(ws_, file.string())) return false;
    AddDirectory(file.parent_path());
    return true;
}

bool ProjectBrowser::Transfer(std::size_t row, const std::string& newName, bool keepSource) {
    if (row >= shown_.size()) return false;
    const fs::path from = shown_[row].file;
    std::string name(Trim(newName));
    if (name.find('/') != std::string::npos || name.find('\\') != std::string::npos) name.clear();
    if (!name.empty() && !IsProjectFile(name)) name += ".prj";
    const fs::path to = from.parent_path() / name;
    std::error_code ec;
    if (name.empty() || name.size() <= 4 || to == from || fs::exists(to, ec)) {
        ws_.ui.Message(ws_.Title(), name + " " + ws_.captions[Cap::AlreadyExists] + " !", MessageIcon::Warning);
        return false;
    }
    const std::string fromStem = StemOf(from), toStem = StemOf(to);
    std::vector<std::pair<fs::path, fs::path>> moves{{from, to}};
    for (const std::string& ext : shown_[row].companions)
        moves.emplace_back(from.parent_path() / (fromStem + ext), to.parent_path() / (toStem + ext));
    bool ok = true;
    for (const auto& [a, b] : moves) {
        // A copy goes through a temporary file; a rename stays in its directory.
        if (keepSource) ok = WriteFileAtomic(b, ReadWholeFile(a)) && ok;
        else {
            std::error_code e;
            fs::rename(a, b, e);
            ok = !e && ok;
        }
    }
    Scan();
    return ok;
}

bool ProjectBrowser::Copy(std::size_t row, const std::string& newName) { return Transfer(row, newName, true); }
bool ProjectBrowser::Rename(std::size_t row, const std::string& newName) { return Transfer(row, newName, false); }

bool ProjectBrowser::Delete(std::size_t row) {
    if (row >= shown_.size()) return false;
    const std::string file = shown_[row].file.string();
    if (!ws_.ui.AskYesNo(ws_.Title(), ws_.captions[Cap::BrowserDeleteAll] + " ?" + ws_.lineEnd + file)) return false;
    const bool ok = DeleteProject(ws_, file);
    Scan();
    return ok;
}

}  // namespace kv
