// The working files of the data directory held in memory. A calculation
// reads its few working files (auxiliary values, energy values, line data,
// zeta values, the pipe series) at every run; within one calculation each
// file is asked of the file system once, and its text is read again only
// when the file changed (another inode, time of last write or length).
// Outside a calculation every read asks the file system, as a screen that
// edits files expects.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace kv {

struct Workspace;

class FileMemory {
public:
    struct Entry {
        std::filesystem::path path;
        bool exists = false;
        std::uintmax_t length = 0;
        std::uint64_t inode = 0;
        std::int64_t writeTimeNs = 0;
        bool textHeld = false;
        std::string text;
        unsigned long long checkedRound = 0;
    };
    // The file `name` of the workspace as it stands in this round.
    Entry& Look(const Workspace& ws, std::string_view name);
    // The text of the entry, read when not yet held; a file too large to
    // hold is read and handed over without being kept.
    std::string Text(Entry& entry);
    // The files may have changed: the next look at each one asks the disk.
    void LookAgain() { ++round_; }
    // The program wrote `path`: its text is forgotten at once.
    void Forget(const std::filesystem::path& path);
    // Every read opens the file anew: only for measuring what holding saves.
    bool rereadEveryLook = false;

private:
    friend class CalculationRound;
    std::map<std::string, Entry> entries_;
    unsigned long long round_ = 1;
    int holding_ = 0;  // calculations under way: looks are held for the round
};

// A calculation from start to end: the files are asked of the disk once
// each, the property tables likewise.
class CalculationRound {
public:
    explicit CalculationRound(Workspace& ws);
    ~CalculationRound();
    CalculationRound(const CalculationRound&) = delete;
    CalculationRound& operator=(const CalculationRound&) = delete;

private:
    Workspace& ws_;
};

}  // namespace kv
