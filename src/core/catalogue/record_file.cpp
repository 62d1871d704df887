#include "catalogue/record_file.h"

#include <system_error>

#include "shell/files.h"

namespace kv {

RecordFileReader::RecordFileReader(const std::filesystem::path& path, int recordLength)
    : recordLength_(recordLength > 0 ? recordLength : 1) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) return;
    const auto size = std::filesystem::file_size(path, ec);
    if (ec) return;
    in_.open(path, std::ios::binary);
    if (!in_) return;
    length_ = static_cast<long long>(size);
    open_ = true;
}

long long RecordFileReader::RecordCount() const {
    return open_ ? (length_ + recordLength_ - 1) / recordLength_ : 0;
}

bool RecordFileReader::Get(long long number, std::string& record) {
    if (!open_ || number < 1 || number > RecordCount()) return false;
    const long long offset = (number - 1) * recordLength_;
    const long long available = std::min<long long>(recordLength_, length_ - offset);
    std::string buf(static_cast<std::size_t>(recordLength_), ' ');
    in_.clear();
    in_.seekg(offset);
    in_.read(buf.data(), available);
    const auto got = in_.gcount();
    if (got < available) std::fill(buf.begin() + got, buf.begin() + available, ' ');
    record = std::move(buf);
    return true;
}

RecordImage::RecordImage(std::filesystem::path path, int recordLength)
    : path_(std::move(path)), bytes_(ReadWholeFile(path_)), recordLength_(recordLength > 0 ? recordLength : 1) {}

long long RecordImage::RecordCount() const {
    return (static_cast<long long>(bytes_.size()) + recordLength_ - 1) / recordLength_;
}

std::string RecordImage::Get(long long number) const {
    std::string record(static_cast<std::size_t>(recordLength_), ' ');
    if (number < 1) return record;
    const auto offset = static_cast<std::size_t>((number - 1) * recordLength_);
    if (offset < bytes_.size()) {
        const std::size_t n = std::min(bytes_.size() - offset, static_cast<std::size_t>(recordLength_));
        record.replace(0, n, bytes_, offset, n);
    }
    return record;
}

void RecordImage::Extend(long long count) {
    const auto want = static_cast<std::size_t>(count * recordLength_);
    if (bytes_.size() < want) bytes_.resize(want, ' ');
}

void RecordImage::Put(long long number, std::string_view record) {
    if (number < 1) return;
    Extend(number);
    std::string r(record.substr(0, static_cast<std::size_t>(recordLength_)));
    r.resize(static_cast<std::size_t>(recordLength_), ' ');
    bytes_.replace(static_cast<std::size_t>((number - 1) * recordLength_), r.size(), r);
}

bool RecordImage::Save() const { return WriteFileAtomic(path_, bytes_); }

}  // namespace kv
