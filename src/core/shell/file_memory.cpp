#include "shell/file_memory.h"

#include <sys/stat.h>

#include "shell/files.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

namespace {
// Texts above this are damaged tables or foreign files: read, never held.
constexpr std::uintmax_t kHeldTextMax = 256u * 1024u;
}  // namespace

FileMemory::Entry& FileMemory::Look(const Workspace& ws, std::string_view name) {
    if (holding_ == 0 || rereadEveryLook) ++round_;
    std::string key = ws.project.DatenVerz;
    key += '|';
    key += name;
    Entry& e = entries_[key];
    if (e.checkedRound == round_) return e;
    e.checkedRound = round_;
    const fs::path path = ResolveName(ws, name);
    struct stat st {};
    const bool exists = ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
    const std::int64_t timeNs = static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
    const bool same = exists == e.exists && path == e.path && static_cast<std::uintmax_t>(st.st_size) == e.length &&
                      static_cast<std::uint64_t>(st.st_ino) == e.inode && timeNs == e.writeTimeNs;
    if (!same || rereadEveryLook) {
        e.path = path;
        e.exists = exists;
        e.length = exists ? static_cast<std::uintmax_t>(st.st_size) : 0;
        e.inode = exists ? static_cast<std::uint64_t>(st.st_ino) : 0;
        e.writeTimeNs = exists ? timeNs : 0;
        e.textHeld = false;
        e.text.clear();
    }
    return e;
}

std::string FileMemory::Text(Entry& e) {
    if (!e.exists) return {};
    if (e.textHeld) return e.text;
    std::string text = ReadWholeFile(e.path);
    if (text.size() <= kHeldTextMax && text.size() == e.length) {
        e.text = text;
        e.textHeld = true;
    }
    return text;
}

void FileMemory::Forget(const fs::path& path) {
    for (auto& [key, e] : entries_)
        if (e.path == path) e = Entry{};
    ++round_;
}

CalculationRound::CalculationRound(Workspace& ws) : ws_(ws) {
    ws.files.LookAgain();
    ws.properties.LookAgain();
    ++ws.files.holding_;
}

CalculationRound::~CalculationRound() { --ws_.files.holding_; }

}  // namespace kv
