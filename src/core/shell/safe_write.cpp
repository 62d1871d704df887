#include "shell/safe_write.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kv {
namespace fs = std::filesystem;

namespace {

struct Injected {
    std::string part;
    std::errc error{};
    bool active = false;
};
thread_local Injected injected;

// A number for the temporary names of this process: with the process id it
// keeps two writers of one file (two runs, two threads) apart.
std::atomic<unsigned> tempCounter{0};

std::error_code LastError() { return {errno, std::generic_category()}; }

bool WriteAll(int fd, std::string_view content, const fs::path& target, std::error_code& ec) {
    std::size_t done = 0;
    while (done < content.size()) {
        if (injected.active && target.string().find(injected.part) != std::string::npos && done > 0) {
            ec = std::make_error_code(injected.error);
            return false;
        }
        // Small steps when a failure is injected, so that it strikes mid-file.
        std::size_t chunk = content.size() - done;
        if (injected.active && chunk > 1) chunk = (chunk + 1) / 2;
        const ssize_t n = ::write(fd, content.data() + done, chunk);
        if (n < 0) {
            if (errno == EINTR) continue;
            ec = LastError();
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    if (injected.active && target.string().find(injected.part) != std::string::npos) {
        ec = std::make_error_code(injected.error);
        return false;
    }
    return true;
}

}  // namespace

void FlushFolder(const fs::path& dir) {
    const int fd = ::open(dir.empty() ? "." : dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

std::string WriteFailure::Text() const { return path.string() + ": " + error.message(); }

fs::path WriteTarget(const fs::path& path) {
    fs::path p = path;
    std::error_code ec;
    // 40 links at most, as the system itself follows them.
    for (int i = 0; i < 40 && fs::is_symlink(fs::symlink_status(p, ec)); ++i) {
        const fs::path next = fs::read_symlink(p, ec);
        if (ec) break;
        p = next.is_absolute() ? next : p.parent_path() / next;
    }
    return p;
}

bool IsWriteProtected(const fs::path& path) {
    std::error_code ec;
    const fs::file_status st = fs::status(path, ec);
    if (ec || !fs::is_regular_file(st)) return false;
    using fs::perms;
    return (st.permissions() & (perms::owner_write | perms::group_write | perms::others_write)) == perms::none;
}

PreparedWrite PrepareWrite(const fs::path& path, std::string_view content, bool flush) {
    PreparedWrite w;
    w.target = WriteTarget(path);
    struct stat old {};
    const bool existed = ::stat(w.target.c_str(), &old) == 0;
    if (existed && S_ISDIR(old.st_mode)) {
        w.failure = {w.target, std::make_error_code(std::errc::is_a_directory)};
        return w;
    }
    // A name of this process and this write alone.
    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        w.temp = w.target;
        w.temp += ".tmp~" + std::to_string(::getpid()) + "-" + std::to_string(tempCounter.fetch_add(1));
        fd = ::open(w.temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd < 0 && errno != EEXIST) break;
    }
    if (fd < 0) {
        w.failure = {w.target, errno == EEXIST ? std::make_error_code(std::errc::file_exists) : LastError()};
        w.temp.clear();
        return w;
    }
    std::error_code ec;
    bool ok = WriteAll(fd, content, w.target, ec);
    if (ok && existed) {
        // The old file's mode and owner stay with the new content.
        ::fchmod(fd, old.st_mode & 07777);
        [[maybe_unused]] const int owner = ::fchown(fd, old.st_uid, old.st_gid);
    }
    if (ok && flush && ::fsync(fd) != 0 && errno != EINVAL) {
        ec = LastError();
        ok = false;
    }
    if (::close(fd) != 0 && ok) {
        ec = LastError();
        ok = false;
    }
    if (!ok) {
        w.failure = {w.target, ec};
        AbandonWrite(w);
    }
    return w;
}

WriteFailure CommitWrite(PreparedWrite& w, bool syncFolder) {
    if (w.failure || w.temp.empty()) return w.failure;
    if (::rename(w.temp.c_str(), w.target.c_str()) != 0) {
        w.failure = {w.target, LastError()};
        AbandonWrite(w);
        return w.failure;
    }
    w.temp.clear();
    if (syncFolder) FlushFolder(w.target.parent_path());
    return {};
}

void AbandonWrite(PreparedWrite& w) {
    if (!w.temp.empty()) ::unlink(w.temp.c_str());
    w.temp.clear();
}

void FlushFileSystem(const fs::path& folder) {
    const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    if (::syncfs(fd) != 0) ::sync();
    ::fsync(fd);
    ::close(fd);
}

WriteFailure WriteFileSafely(const fs::path& path, std::string_view content) {
    PreparedWrite w = PrepareWrite(path, content);
    return CommitWrite(w);
}

InjectedWriteFailure::InjectedWriteFailure(std::string pathPart, std::errc error) {
    injected = {std::move(pathPart), error, true};
}

InjectedWriteFailure::~InjectedWriteFailure() { injected = {}; }

}  // namespace kv
