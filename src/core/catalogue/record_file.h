// Random access to the fixed-record files of a catalogue. Every read goes
// through RecordFileReader, which opens the file once, measures it once and
// never reads past its end: a short or damaged file simply has fewer records.
// Changes go through RecordImage, which holds the whole file and saves it
// through a temporary file renamed over the target.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace kv {

class RecordFileReader {
public:
    RecordFileReader() = default;
    RecordFileReader(const std::filesystem::path& path, int recordLength);

    bool IsOpen() const { return open_; }
    int RecordLength() const { return recordLength_; }
    // Records in the file, a last partial one included.
    long long RecordCount() const;
    // Reads record `number` (from 1). A partial last record is filled up with
    // blanks; past the end, or when the file is missing, false and `record`
    // stays as it was.
    bool Get(long long number, std::string& record);

private:
    std::ifstream in_;
    long long length_ = 0;  // bytes
    int recordLength_ = 1;
    bool open_ = false;
};

class RecordImage {
public:
    RecordImage() = default;
    // The whole file; a missing one is empty.
    RecordImage(std::filesystem::path path, int recordLength);

    long long RecordCount() const;
    // Record `number` from 1, blanks past the end.
    std::string Get(long long number) const;
    // Writes record `number`, cut or padded with blanks; the records between
    // the end and it are filled with blanks.
    void Put(long long number, std::string_view record);
    // Fills the file up with blank records to `count` records.
    void Extend(long long count);
    void Clear() { bytes_.clear(); }
    bool Save() const;
    const std::string& Bytes() const { return bytes_; }

private:
    std::filesystem::path path_;
    std::string bytes_;
    int recordLength_ = 1;
};

}  // namespace kv
