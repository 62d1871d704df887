#include "shell/data_dir_access.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "shell/files.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

PrivateWorkingSet::PrivateWorkingSet(fs::path shared, fs::path dir, bool keep)
    : shared_(std::move(shared)), dir_(std::move(dir)), keep_(keep) {}

PrivateWorkingSet::~PrivateWorkingSet() {
    if (keep_) return;
    std::error_code ec;
    fs::remove_all(dir_, ec);
}

DataDirectoryLock::~DataDirectoryLock() {
    if (fd_ >= 0) ::close(fd_);  // closing releases the lock
}

namespace {

// A new, empty folder: a temporary one, or one beside `shared` named after
// it with the date and the process.
bool MakeFolder(const fs::path& shared, bool keep, fs::path& dir, std::error_code& ec) {
    if (keep) {
        const std::time_t now = std::time(nullptr);
        std::tm tm{};
        localtime_r(&now, &tm);
        char stamp[32];
        std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", &tm);
        fs::path base = shared;
        if (base.filename().empty()) base = base.parent_path();
        dir = base;
        dir += std::string("-copy-") + stamp + "-" + std::to_string(::getpid());
        if (!fs::create_directory(dir, ec) && !ec) ec = std::make_error_code(std::errc::file_exists);
        return !ec;
    }
    std::string pattern = (fs::temp_directory_path(ec) / "kelvaris-XXXXXX").string();
    if (ec) return false;
    if (!::mkdtemp(pattern.data())) {
        ec = {errno, std::generic_category()};
        return false;
    }
    dir = pattern;
    return true;
}

// Copies the files and folders of `from` into `to`. Another run's temporary
// files and its lock are left out, and a file that goes while the copy runs
// (renamed over by another run) is no failure.
bool CopyTree(const fs::path& from, const fs::path& to, WriteFailure& failure) {
    std::error_code ec;
    fs::recursive_directory_iterator it(from, ec), end;
    for (; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name == kLockFileName || name.find(".tmp~") != std::string::npos) continue;
        // The walk's paths start with `from` itself: a lexical cut is enough
        // and spares a link look-up per path component.
        const fs::path target = to / it->path().lexically_relative(from);
        std::error_code e;
        if (it->is_directory(e)) {
            fs::create_directories(target, e);
        } else if (it->is_regular_file(e)) {
            fs::copy_file(it->path(), target, fs::copy_options::skip_existing, e);
            if (e == std::errc::no_such_file_or_directory && !fs::exists(it->path())) e.clear();
        }
        if (e) {
            failure = {target, e};
            return false;
        }
    }
    if (ec) failure = {from, ec};
    return !ec;
}

}  // namespace

bool UsePrivateWorkingSet(Workspace& ws, WriteFailure& failure, bool keep) {
    const fs::path shared = ws.DataDir();
    fs::path dir;
    std::error_code ec;
    if (!MakeFolder(shared, keep, dir, ec)) {
        failure = {dir.empty() ? fs::temp_directory_path(ec) : dir, ec};
        return false;
    }
    auto set = std::make_shared<PrivateWorkingSet>(shared, dir, keep);
    if (!CopyTree(shared, dir, failure)) return false;
    ws.privateSet = std::move(set);
    ws.sharedDataDir = shared;
    ws.project.DatenVerz = dir.string();
    return true;
}

WriteFailure CopyBackToDataDirectory(const Workspace& ws, const std::vector<std::string>& names) {
    if (!ws.privateSet) return {};
    for (const std::string& name : names) {
        const fs::path from = ResolveName(ws, name);
        std::error_code ec;
        if (!fs::is_regular_file(from, ec)) continue;
        const WriteFailure f = WriteFileChecked(ResolveName(ws.sharedDataDir, name), ReadWholeFile(from));
        if (f) return f;
    }
    return {};
}

DataDirectoryUse OpenDataDirectory(Workspace& ws) {
    const fs::path lockPath = ws.DataDir() / kLockFileName;
    const int fd = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    // A directory where not even a lock file can be made is left to the
    // file routines, which say what they cannot write.
    if (fd < 0) return DataDirectoryUse::Own;
    if (::flock(fd, LOCK_EX | LOCK_NB) == 0) {
        ws.dataLock = std::make_shared<DataDirectoryLock>(fd);
        return DataDirectoryUse::Own;
    }
    ::close(fd);
    const std::string question =
        "The data directory " + ws.project.DatenVerz + " is in use by another Kelvaris window." + ws.lineEnd +
        "Work on a private copy of it (Yes), or use it read-only (No)?";
    const bool copy = ws.ui.AskYesNo(ws.Title(), question);
    WriteFailure failure;
    if (!UsePrivateWorkingSet(ws, failure, copy)) {
        ws.ui.Message(ws.Title(), "No working set of its own could be made: " + failure.Text(), MessageIcon::Error);
        ws.readOnlyUse = true;
        return DataDirectoryUse::ReadOnly;
    }
    if (copy) {
        ws.ui.Message(ws.Title(), "This window works on the copy " + ws.project.DatenVerz + ".");
        return DataDirectoryUse::PrivateCopy;
    }
    ws.readOnlyUse = true;
    return DataDirectoryUse::ReadOnly;
}

}  // namespace kv
