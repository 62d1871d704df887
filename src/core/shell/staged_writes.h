// Writes of the working files held back until all of them can be made. A
// project load replaces the working set of the data directory: its files are
// collected here, written aside, and swapped in only when every one of them
// was written, so a load that fails leaves the previous set as it was.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/safe_write.h"

namespace kv {

struct Workspace;

class StagedWrites {
public:
    // The new content of a file; a later entry for the same file wins.
    void Put(const std::filesystem::path& path, std::string content);
    // The file is deleted when the set is swapped in.
    void Remove(const std::filesystem::path& path);
    // Writes every file aside, then renames them in and deletes the removed
    // ones. On a failure before the swap nothing has changed; the failure
    // names the file and the reason.
    WriteFailure Commit();
    bool Empty() const { return entries_.empty(); }

private:
    struct Entry {
        std::filesystem::path path;
        std::optional<std::string> content;  // none: delete
    };
    std::vector<Entry> entries_;
};

// Writes a file of the working set: into the workspace's staged set while a
// load collects one, else at once. A failure is kept in ws.writeFailures.
bool WriteWorkingFile(const Workspace& ws, const std::filesystem::path& path, std::string_view content);

// Keeps a failure in ws.writeFailures for whoever shows it; the oldest go
// when nobody has asked for a long time.
void KeepWriteFailure(const Workspace& ws, const WriteFailure& failure);

// Tells the user of ws.writeFailures under `headline`, each with its file
// and reason (`fallback` names the file when none was kept), and clears them.
void SayWriteFailures(Workspace& ws, const std::string& headline, const std::string& fallback = {});

}  // namespace kv
