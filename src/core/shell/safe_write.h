// Writing a file so that the user's file survives every failure: the new
// content goes to a temporary file of a name no other process uses, is
// flushed to the disk, takes the old file's mode and is renamed over the
// target only when all of it was written. A symbolic link is written through
// to the file it names. A failure comes back with the file and the reason.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace kv {

// A write that did not happen: the file and why.
struct WriteFailure {
    std::filesystem::path path;
    std::error_code error;
    explicit operator bool() const { return static_cast<bool>(error); }
    // "<file>: <reason>", the reason in the system's words (permission
    // denied, no space left on device).
    std::string Text() const;
};

// Writes `content` to `path` as described above. An empty failure on success.
WriteFailure WriteFileSafely(const std::filesystem::path& path, std::string_view content);

// The two steps of a write, for a set of files that is replaced together:
// PrepareWrite leaves the content in the temporary file, flushed to the disk
// unless the caller flushes the whole set at once (FlushFileSystem);
// CommitWrite renames it over the target and, with `syncFolder`, flushes the
// folder; AbandonWrite removes it.
struct PreparedWrite {
    std::filesystem::path target, temp;
    WriteFailure failure;
};
PreparedWrite PrepareWrite(const std::filesystem::path& path, std::string_view content, bool flush = true);
WriteFailure CommitWrite(PreparedWrite& write, bool syncFolder = true);
void AbandonWrite(PreparedWrite& write);
// Flushes everything written to the file system that holds `folder`, and
// the folder itself: one flush for many files.
void FlushFileSystem(const std::filesystem::path& folder);
// Flushes a folder's list of names: renames and deletions in it.
void FlushFolder(const std::filesystem::path& folder);

// The file a write of `path` changes: `path` itself, or the end of its chain
// of symbolic links.
std::filesystem::path WriteTarget(const std::filesystem::path& path);

// True when the file exists and carries no write permission for anyone: the
// user's read-only mark.
bool IsWriteProtected(const std::filesystem::path& path);

// A seam for the tests: while an object lives, every write on this thread
// whose target path contains `pathPart` fails with `error` after its first
// bytes, as a full disk fails.
class InjectedWriteFailure {
public:
    InjectedWriteFailure(std::string pathPart, std::errc error);
    ~InjectedWriteFailure();
    InjectedWriteFailure(const InjectedWriteFailure&) = delete;
    InjectedWriteFailure& operator=(const InjectedWriteFailure&) = delete;
};

}  // namespace kv
