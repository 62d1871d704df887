#include "shell/staged_writes.h"

#include <set>
#include <system_error>

#include "shell/files.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

void StagedWrites::Put(const fs::path& path, std::string content) {
    Remove(path);
    entries_.back().content = std::move(content);
}

void StagedWrites::Remove(const fs::path& path) {
    for (auto it = entries_.begin(); it != entries_.end(); ++it)
        if (it->path == path) {
            entries_.erase(it);
            break;
        }
    entries_.push_back({path, std::nullopt});
}

WriteFailure StagedWrites::Commit() {
    std::vector<PreparedWrite> prepared;
    prepared.reserve(entries_.size());
    for (const Entry& e : entries_) {
        if (!e.content) continue;
        prepared.push_back(PrepareWrite(e.path, *e.content, false));
        if (prepared.back().failure) {
            const WriteFailure failure = prepared.back().failure;
            for (PreparedWrite& p : prepared) AbandonWrite(p);
            entries_.clear();
            return failure;
        }
    }
    // All written aside and flushed in one go: the swap. A rename in one
    // folder does not fail for want of space; should one fail all the same,
    // the rest still goes in.
    std::set<fs::path> folders;
    for (const PreparedWrite& p : prepared) folders.insert(p.target.parent_path());
    for (const fs::path& folder : folders) FlushFileSystem(folder);
    WriteFailure first;
    for (PreparedWrite& p : prepared) {
        const WriteFailure f = CommitWrite(p, false);
        if (f && !first) first = f;
    }
    std::error_code ec;
    for (const Entry& e : entries_) {
        if (e.content) continue;
        fs::remove(e.path, ec);
        folders.insert(e.path.parent_path());
    }
    for (const fs::path& folder : folders) FlushFolder(folder);
    entries_.clear();
    return first;
}

bool WriteWorkingFile(const Workspace& ws, const fs::path& path, std::string_view content) {
    if (ws.staging) {
        ws.staging->Put(path, std::string(content));
        return true;
    }
    const WriteFailure failure = WriteFileChecked(path, content);
    if (failure) KeepWriteFailure(ws, failure);
    return !failure;
}

void KeepWriteFailure(const Workspace& ws, const WriteFailure& failure) {
    constexpr std::size_t kKept = 32;
    if (ws.writeFailures.size() >= kKept) ws.writeFailures.erase(ws.writeFailures.begin());
    ws.writeFailures.push_back(failure);
}

void SayWriteFailures(Workspace& ws, const std::string& headline, const std::string& fallback) {
    std::string text = headline;
    for (const WriteFailure& f : ws.writeFailures) text += "\n" + f.Text();
    if (ws.writeFailures.empty() && !fallback.empty()) text += "\n" + fallback;
    ws.writeFailures.clear();
    ws.ui.Message(ws.Title(), text, MessageIcon::Error);
}

}  // namespace kv
