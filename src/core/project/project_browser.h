// The project browser: the project files of the data directory and of the
// directories used lately, each with the head of its file (name,
// description, date, plant type, refrigerant) and the companions present;
// open, copy and rename with the companions, delete after a question, and a
// search over the texts shown.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct BrowsedProject {
    std::filesystem::path file;
    std::string name, description, date, plantType, refrigerant;
    std::vector<std::string> companions;  // extensions present beside the file
};

class ProjectBrowser {
public:
    explicit ProjectBrowser(Workspace& ws);

    // The data directory first, then the project's own directory, then
    // those added; each once.
    const std::vector<std::filesystem::path>& Directories() const { return dirs_; }
    void AddDirectory(const std::filesystem::path& dir);

    // Reads the directories again; the search stays.
    void Scan();
    // Keeps the projects whose file name or head holds `text`, letters
    // compared without case; empty shows all.
    void Search(std::string text);
    const std::vector<BrowsedProject>& Shown() const { return shown_; }

    // Loads the shown project at `row` as the load action does; true when
    // the project replaced the one in memory.
    bool Open(std::size_t row);
    // The same for a file picked elsewhere; its directory joins the list.
    bool OpenFile(const std::filesystem::path& file);
    // Copies or renames the project and its companions to `newName` (".prj"
    // added when missing) in the same directory. Refused with a message when
    // the name is empty, unchanged or taken.
    bool Copy(std::size_t row, const std::string& newName);
    bool Rename(std::size_t row, const std::string& newName);
    // Deletes the project and its companions once the user agreed.
    bool Delete(std::size_t row);

private:
    bool Transfer(std::size_t row, const std::string& newName, bool keepSource);
    void Filter();

    Workspace& ws_;
    std::vector<std::filesystem::path> dirs_;
    std::vector<BrowsedProject> all_, shown_;
    std::string search_;
};

// The head of one project file; nothing but the file name when unreadable.
BrowsedProject ReadProjectHead(const std::filesystem::path& file);

}  // namespace kv
