// File routines. A name with neither "/" nor "\" is a file of the data
// directory; both separators are accepted, and names resolve without regard to
// case, since the system's file names vary in case. A missing file is no
// error: it reads as empty, and its length of 0 is how callers ask whether a
// file exists. Nothing here throws.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "shell/records.h"
#include "shell/safe_write.h"

namespace kv {

struct Workspace;

// Where `name` lives: the data directory for a bare name, the name itself
// otherwise; each part found without regard to case where the exact spelling
// is missing. A file that doesn't exist keeps the spelling it was given.
std::filesystem::path ResolveName(const std::filesystem::path& dataDir, std::string_view name);
std::filesystem::path ResolveName(const Workspace& ws, std::string_view name);

// Length in bytes, 0 for a missing file.
std::uintmax_t FileLength(const std::filesystem::path& path);
std::uintmax_t FileLength(const Workspace& ws, std::string_view name);

// The whole content of a file, empty when missing or unreadable.
std::string ReadWholeFile(const std::filesystem::path& path);
// Writes a temporary file beside the target and renames it over the target,
// so a failure never leaves half a file. False on failure (WriteFileSafely
// says why).
bool WriteFileAtomic(const std::filesystem::path& path, std::string_view content);
WriteFailure WriteFileChecked(const std::filesystem::path& path, std::string_view content);

// Clears the read-only mark of a file where it can. Only a write in place
// (append, a record) does so; reading leaves the file's mode alone.
void ClearReadOnly(const std::filesystem::path& path);

// Opens for sequential input: the reader holds the file's text.
RecordReader OpenIn(const Workspace& ws, std::string_view name);
RecordReader OpenIn(const std::filesystem::path& path);

// A file opened for sequential output or append. What is written collects in
// the writer and goes to disk on Close() (or when the object ends): output
// replaces the file through a temporary file, append adds to its end.
class OutFile {
public:
    enum class Mode { Output, Append };
    OutFile() = default;
    OutFile(std::filesystem::path path, Mode mode);
    OutFile(OutFile&& other) noexcept;
    OutFile& operator=(OutFile&& other) noexcept;
    OutFile(const OutFile&) = delete;
    OutFile& operator=(const OutFile&) = delete;
    ~OutFile();

    RecordWriter& Write() { return writer_; }
    // Shorthands for the two statements the files use most.
    OutFile& Line(std::string_view text) { writer_.Line(text); return *this; }
    bool Close();
    const std::filesystem::path& Path() const { return path_; }
    // Why the last Close() failed; empty after a good one.
    const WriteFailure& Failure() const { return failure_; }
    // A file of the workspace: a failure is kept in ws.writeFailures, and
    // while a load collects the working set the content goes there.
    void ReportTo(const Workspace& ws) { ws_ = &ws; }

private:
    std::filesystem::path path_;
    Mode mode_ = Mode::Output;
    RecordWriter writer_;
    WriteFailure failure_;
    const Workspace* ws_ = nullptr;
    bool open_ = false;
};

OutFile OpenOut(const Workspace& ws, std::string_view name);
OutFile OpenOut(const std::filesystem::path& path);
OutFile OpenAppend(const Workspace& ws, std::string_view name);
OutFile OpenAppend(const std::filesystem::path& path);

// A file of fixed-length records, read and written by record number from 1.
class RandomFile {
public:
    static constexpr int kDefaultRecordLength = 128;
    RandomFile() = default;
    RandomFile(std::filesystem::path path, int recordLength);

    int RecordLength() const { return recordLength_; }
    // Number of whole records in the file.
    long long RecordCount() const;
    // Reads record `number`; false (record unchanged) past the end.
    bool Get(long long number, std::string& record) const;
    // Writes record `number`, padded with blanks or cut to the record length.
    bool Put(long long number, std::string_view record);
    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
    int recordLength_ = kDefaultRecordLength;
};

// A record length of 0 takes the default of 128.
RandomFile OpenRandom(const Workspace& ws, std::string_view name, int recordLength);

// Deletes a file. A name with a directory is just deleted. A bare name is
// deleted in the data directory and then measured: if it still has a length,
// ws.loeschFehler is set and the user is told that it could not be deleted.
// Returns true when the file is gone.
bool DeleteFile(Workspace& ws, std::string_view name);

// True when `name` may be written: an empty or missing file at once, else the
// user's answer to "<name> already exists! / Overwrite?". The question's title
// is the calling window's caption with the version.
bool ConfirmOverwrite(Workspace& ws, std::string_view name, std::string_view windowCaption);

// Appends a history line to KV_hist.log in the current directory: date, time,
// the five arguments, the plant type; eight string items.
void WriteHistory(const Workspace& ws, std::string_view a, std::string_view b, std::string_view c,
                  std::string_view d, std::string_view e);

}  // namespace kv
