// Who works on the data directory. The working files of the open project
// live there, so two runs on one directory would read each other's files.
// A desktop run takes an advisory lock on it; a second desktop finds it taken
// and works read-only or on a private copy. Each batch run works on a
// private working set in a temporary folder and copies back only the files
// its command is meant to change.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "shell/safe_write.h"

namespace kv {

struct Workspace;

// A copy of the data directory; the folder goes when the last owner ends,
// unless it was made to be kept.
class PrivateWorkingSet {
public:
    PrivateWorkingSet(std::filesystem::path shared, std::filesystem::path dir, bool keep);
    ~PrivateWorkingSet();
    PrivateWorkingSet(const PrivateWorkingSet&) = delete;
    PrivateWorkingSet& operator=(const PrivateWorkingSet&) = delete;
    const std::filesystem::path& Shared() const { return shared_; }
    const std::filesystem::path& Dir() const { return dir_; }

private:
    std::filesystem::path shared_, dir_;
    bool keep_;
};

// The lock of a desktop run on its data directory, held while it lives.
class DataDirectoryLock {
public:
    explicit DataDirectoryLock(int fd) : fd_(fd) {}
    ~DataDirectoryLock();
    DataDirectoryLock(const DataDirectoryLock&) = delete;
    DataDirectoryLock& operator=(const DataDirectoryLock&) = delete;

private:
    int fd_;
};

// Name of the lock file inside the data directory.
inline constexpr const char* kLockFileName = ".kelvaris.lock";

// Copies the data directory into a fresh folder (a temporary one, or one
// beside the data directory that is kept) and points ws at it; the data
// directory itself stays in ws.sharedDataDir. False with the failure when
// the copy could not be made; ws is then unchanged.
bool UsePrivateWorkingSet(Workspace& ws, WriteFailure& failure, bool keep = false);

// Copies the named files of the private working set back into the data
// directory, each through a temporary file. Without a private set nothing
// happens.
WriteFailure CopyBackToDataDirectory(const Workspace& ws, const std::vector<std::string>& names);

enum class DataDirectoryUse {
    Own,          // the lock is this run's
    PrivateCopy,  // another run holds it: this one works on a copy it keeps
    ReadOnly,     // another run holds it: this one saves nothing
};
// Takes the lock of a desktop run. When another run holds it, the user is
// told and asked: Yes works on a private copy, No uses the directory
// read-only (a temporary working set, projects are not saved).
DataDirectoryUse OpenDataDirectory(Workspace& ws);

}  // namespace kv
