#include "shell/files.h"

#include <chrono>
#include <map>
#include <mutex>
#include <vector>
#include <cstdio>
#include <ctime>
#include <system_error>

#include "shell/safe_write.h"
#include "shell/staged_writes.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

// Files larger than this are damaged beyond use for a text table; reading
// stops there instead of taking all memory.
constexpr std::uintmax_t kMaxReadBytes = 256u * 1024u * 1024u;

// The names in a directory, kept while the directory's time of last change
// stays: a file added, removed or renamed there moves it. A name that is not
// there in its exact spelling is thus looked up without reading the whole
// directory again on every look-up.
struct Listing {
    fs::file_time_type time{};
    std::vector<std::string> names;
};

const std::vector<std::string>* ListDirectory(const fs::path& dir) {
    static std::mutex mutex;
    static std::map<std::string, Listing> listings;
    std::error_code ec;
    const fs::path d = dir.empty() ? fs::path(".") : dir;
    const auto time = fs::last_write_time(d, ec);
    if (ec) return nullptr;
    std::lock_guard<std::mutex> lock(mutex);
    Listing& l = listings[d.string()];
    if (l.time != time || l.names.empty()) {
        l.time = time;
        l.names.clear();
        fs::directory_iterator it(d, ec);
        if (ec) return nullptr;
        for (const auto& e : it) l.names.push_back(e.path().filename().string());
    }
    return &l.names;
}

// The entry of `dir` whose name equals `part` without regard to case.
fs::path FindNoCase(const fs::path& dir, const std::string& part) {
    const std::vector<std::string>* names = ListDirectory(dir);
    if (!names) return {};
    for (const std::string& name : *names)
        if (EqualsNoCase(name, part)) return dir / name;
    return {};
}

}  // namespace

fs::path ResolveName(const fs::path& dataDir, std::string_view name) {
    std::string n(name);
    const bool bare = n.find('/') == std::string::npos && n.find('\\') == std::string::npos;
    for (char& c : n)
        if (c == '\\') c = '/';
    fs::path given = bare ? dataDir / n : fs::path(n);
    std::error_code ec;
    if (fs::exists(given, ec)) return given;
    if (bare) {
        // A file of the data directory: one look into its listing.
        const fs::path match = FindNoCase(dataDir, n);
        return match.empty() ? given : match;
    }
    // Walk the parts and take each one in whatever case it exists.
    fs::path cur = given.root_path();
    fs::path rel = given.relative_path();
    bool found = true;
    for (const auto& part : rel) {
        const std::string p = part.string();
        if (p.empty()) continue;
        if (found) {
            fs::path exact = cur / part;
            if (fs::exists(exact, ec)) { cur = exact; continue; }
            if (p != "." && p != "..") {
                fs::path match = FindNoCase(cur, p);
                if (!match.empty()) { cur = match; continue; }
            }
            found = false;
        }
        cur /= part;
    }
    return cur;
}

fs::path ResolveName(const Workspace& ws, std::string_view name) { return ResolveName(ws.DataDir(), name); }

std::uintmax_t FileLength(const fs::path& path) {
    // One look at the file: a missing file and a directory both fail here.
    std::error_code ec;
    const auto size = fs::file_size(path, ec);
    return ec ? 0 : size;
}

std::uintmax_t FileLength(const Workspace& ws, std::string_view name) { return ws.files.Look(ws, name).length; }

std::string ReadWholeFile(const fs::path& path) {
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) return {};
    std::ifstream in(path, std::ios::binary);
    if (!in) return {};
    std::string out;
    char buf[65536];
    while (in && out.size() < kMaxReadBytes) {
        in.read(buf, sizeof buf);
        out.append(buf, static_cast<std::size_t>(in.gcount()));
    }
    return out;
}

void ClearReadOnly(const fs::path& path) {
    std::error_code ec;
    const fs::file_status st = fs::status(path, ec);
    if (ec || !fs::exists(st)) return;
    if ((st.permissions() & fs::perms::owner_write) == fs::perms::none)
        fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ec);
}

WriteFailure WriteFileChecked(const fs::path& path, std::string_view content) {
    return WriteFileSafely(path, content);
}

bool WriteFileAtomic(const fs::path& path, std::string_view content) { return !WriteFileChecked(path, content); }

RecordReader OpenIn(const fs::path& path) {
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) return RecordReader();
    return RecordReader(ReadWholeFile(path));
}

RecordReader OpenIn(const Workspace& ws, std::string_view name) {
    FileMemory::Entry& e = ws.files.Look(ws, name);
    if (!e.exists) return RecordReader();
    return RecordReader(ws.files.Text(e));
}

OutFile::OutFile(fs::path path, Mode mode) : path_(std::move(path)), mode_(mode), open_(true) {}

OutFile::OutFile(OutFile&& o) noexcept
    : path_(std::move(o.path_)), mode_(o.mode_), writer_(std::move(o.writer_)), failure_(std::move(o.failure_)),
      ws_(o.ws_), open_(o.open_) {
    o.open_ = false;
}

OutFile& OutFile::operator=(OutFile&& o) noexcept {
    if (this != &o) {
        Close();
        path_ = std::move(o.path_);
        mode_ = o.mode_;
        writer_ = std::move(o.writer_);
        failure_ = std::move(o.failure_);
        ws_ = o.ws_;
        open_ = o.open_;
        o.open_ = false;
    }
    return *this;
}

OutFile::~OutFile() { Close(); }

bool OutFile::Close() {
    if (!open_) return true;
    open_ = false;
    if (ws_) {
        ws_->files.Forget(path_);
        ws_->properties.LookAgain();
    }
    const std::string text = writer_.Take();
    if (mode_ == Mode::Output) {
        if (ws_ && ws_->staging) {
            ws_->staging->Put(path_, text);
            return true;
        }
        failure_ = WriteFileChecked(path_, text);
        if (failure_ && ws_) KeepWriteFailure(*ws_, failure_);
        return !failure_;
    }
    ClearReadOnly(path_);
    std::ofstream out(path_, std::ios::binary | std::ios::app);
    if (out) out.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (!out) failure_ = {path_, std::make_error_code(std::errc::io_error)};
    if (failure_ && ws_) KeepWriteFailure(*ws_, failure_);
    return !failure_;
}

OutFile OpenOut(const fs::path& path) { return OutFile(path, OutFile::Mode::Output); }
OutFile OpenOut(const Workspace& ws, std::string_view name) {
    OutFile out = OpenOut(ResolveName(ws, name));
    out.ReportTo(ws);
    return out;
}
OutFile OpenAppend(const fs::path& path) { return OutFile(path, OutFile::Mode::Append); }
OutFile OpenAppend(const Workspace& ws, std::string_view name) {
    OutFile out = OpenAppend(ResolveName(ws, name));
    out.ReportTo(ws);
    return out;
}

RandomFile::RandomFile(fs::path path, int recordLength)
    : path_(std::move(path)), recordLength_(recordLength > 0 ? recordLength : kDefaultRecordLength) {}

long long RandomFile::RecordCount() const {
    return static_cast<long long>(FileLength(path_) / static_cast<std::uintmax_t>(recordLength_));
}

bool RandomFile::Get(long long number, std::string& record) const {
    if (number < 1) return false;
    std::ifstream in(path_, std::ios::binary);
    if (!in) return false;
    const long long offset = (number - 1) * recordLength_;
    if (static_cast<std::uintmax_t>(offset) >= FileLength(path_)) return false;
    in.seekg(offset);
    std::string buf(static_cast<std::size_t>(recordLength_), '\0');
    in.read(buf.data(), recordLength_);
    buf.resize(static_cast<std::size_t>(in.gcount()));
    record = std::move(buf);
    return true;
}

bool RandomFile::Put(long long number, std::string_view record) {
    if (number < 1) return false;
    ClearReadOnly(path_);
    std::error_code ec;
    if (!fs::exists(path_, ec)) {
        std::ofstream create(path_, std::ios::binary);
        if (!create) return false;
    }
    std::fstream io(path_, std::ios::binary | std::ios::in | std::ios::out);
    if (!io) return false;
    // Records between the end of the file and this one are filled with blanks.
    const auto length = static_cast<long long>(FileLength(path_));
    const long long offset = (number - 1) * recordLength_;
    if (offset > length) {
        io.seekp(length);
        const std::string fill(static_cast<std::size_t>(offset - length), ' ');
        io.write(fill.data(), static_cast<std::streamsize>(fill.size()));
    }
    std::string buf(record.substr(0, static_cast<std::size_t>(recordLength_)));
    buf.resize(static_cast<std::size_t>(recordLength_), ' ');
    io.seekp(offset);
    io.write(buf.data(), recordLength_);
    return static_cast<bool>(io);
}

RandomFile OpenRandom(const Workspace& ws, std::string_view name, int recordLength) {
    return RandomFile(ResolveName(ws, name), recordLength);
}

bool DeleteFile(Workspace& ws, std::string_view name) {
    const bool bare = name.find('/') == std::string_view::npos && name.find('\\') == std::string_view::npos;
    const fs::path path = ResolveName(ws, name);
    ws.properties.LookAgain();
    ws.files.Forget(path);
    if (ws.staging) {
        ws.staging->Remove(path);
        return true;
    }
    std::error_code ec;
    ClearReadOnly(path);
    fs::remove(path, ec);
    if (!bare) return !fs::exists(path, ec);
    if (FileLength(path) == 0) return true;
    ws.loeschFehler = true;
    const Captions& c = ws.captions;
    std::string text = "Can not delete/overwrite file:   - ";
    text += std::string(name) + " - " + ws.project.DatenVerz + " : " + ws.lineEnd;
    text += "System blocked." + ws.lineEnd;
    text += c[Cap::DeleteBlocked1] + ws.lineEnd;
    text += c[Cap::DeleteBlocked2] + ws.lineEnd;
    text += c[Cap::DeleteBlockedClose];
    ws.ui.Message(ws.Title(), text, MessageIcon::Error);
    return false;
}

bool ConfirmOverwrite(Workspace& ws, std::string_view name, std::string_view windowCaption) {
    if (FileLength(ResolveName(ws, name)) == 0) return true;
    const Captions& c = ws.captions;
    std::string title(windowCaption);
    title += " " + ws.settings.VersionText;
    std::string text(name);
    text += " " + c[Cap::AlreadyExists] + "!" + ws.lineEnd + c[Cap::Overwrite] + "?";
    return ws.ui.AskYesNo(title, text);
}

void WriteHistory(const Workspace& ws, std::string_view a, std::string_view b, std::string_view c,
                  std::string_view d, std::string_view e) {
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    char timeText[16];
    std::snprintf(timeText, sizeof timeText, "%02d:%02d:%02d", tm.tm_hour, tm.tm_min, tm.tm_sec);
    const Date today{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday};
    OutFile out = OpenAppend((ws.historyDir.empty() ? fs::path(".") : ws.historyDir) / "KV_hist.log");
    out.Write().Item(SystemDateText(today)).Item(std::string_view(timeText)).Item(a).Item(b).Item(c).Item(d).Item(e)
        .Item(ws.project.AnlagenTyp).EndLine();
}

}  // namespace kv
