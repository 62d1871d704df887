#include "shell/records.h"

#include <charconv>

#include "shell/numbers.h"
#include "shell/separators.h"
#include "shell/text.h"

namespace kv {

void RecordReader::SkipBlanks() {
    while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t')) ++pos_;
}

void RecordReader::SkipLineEnd() {
    if (pos_ < text_.size() && text_[pos_] == '\r') ++pos_;
    if (pos_ < text_.size() && text_[pos_] == '\n') ++pos_;
}

bool RecordReader::AtEnd() const {
    // Trailing blank lines and blanks do not hold another item; the
    // end-of-file mark of old editors ends the text, whatever follows it.
    for (std::size_t i = pos_; i < text_.size(); ++i) {
        const char c = text_[i];
        if (c == '\x1a') return true;
        if (c != ' ' && c != '\t' && c != '\r' && c != '\n') return false;
    }
    return true;
}

bool RecordReader::NextItem(std::string& item, bool& quoted) {
    SkipBlanks();
    if (pos_ >= text_.size()) return false;
    if (text_[pos_] == '\x1a') {
        // The end-of-file mark of old editors: nothing behind it is read,
        // and the reader stands at the end so that every loop ends.
        pos_ = text_.size();
        return false;
    }
    quoted = false;
    if (text_[pos_] == '\r' || text_[pos_] == '\n') {
        // An empty line where an item is expected is an empty item: the
        // layouts hold truly empty lines (a Geometr cell and its empty line).
        item.clear();
        SkipLineEnd();
        return true;
    }
    if (text_[pos_] == '"') {
        quoted = true;
        const std::size_t start = ++pos_;
        const std::size_t end = text_.find('"', start);
        const std::size_t stop = end == std::string::npos ? text_.size() : end;
        // A quote left open ends at the line end.
        const std::size_t eol = text_.find_first_of("\r\n", start);
        const std::size_t last = (eol != std::string::npos && eol < stop) ? eol : stop;
        item.assign(text_, start, last - start);
        pos_ = last;
        if (pos_ < text_.size() && text_[pos_] == '"') ++pos_;
        // Anything between the closing quote and the delimiter is dropped.
        while (pos_ < text_.size() && text_[pos_] != ',' && text_[pos_] != '\r' && text_[pos_] != '\n') ++pos_;
    } else {
        const std::size_t start = pos_;
        while (pos_ < text_.size() && text_[pos_] != ',' && text_[pos_] != '\r' && text_[pos_] != '\n') ++pos_;
        item = std::string(TrimRight(std::string_view(text_).substr(start, pos_ - start)));
    }
    if (pos_ < text_.size()) {
        if (text_[pos_] == ',') ++pos_;
        else SkipLineEnd();
    }
    return true;
}

bool RecordReader::Read(std::string& item) {
    std::string s;
    bool quoted;
    if (!NextItem(s, quoted)) return false;
    item = TextToUtf8(s);
    return true;
}

bool RecordReader::Read(double& value) {
    std::string s;
    bool quoted;
    if (!NextItem(s, quoted)) return false;
    value = LeadingValue(s).value;
    return true;
}

bool RecordReader::Read(long long& value) {
    double d = 0;
    if (!Read(d)) return false;
    value = RoundHalfEven(d);
    return true;
}

bool RecordReader::Read(int& value) {
    long long v = 0;
    if (!Read(v)) return false;
    // An integer item out of range is an overflow: the statement fails and
    // the target keeps its value.
    if (v > 2147483647LL || v < -2147483647LL - 1) return true;
    value = static_cast<int>(v);
    return true;
}

bool RecordReader::ReadLine(std::string& line) {
    if (pos_ >= text_.size()) return false;
    if (text_[pos_] == '\x1a') {
        pos_ = text_.size();
        return false;
    }
    // The line ends at its line end or at the end-of-file mark, which also
    // ends the text.
    const std::size_t eol = text_.find_first_of("\r\n\x1a", pos_);
    const std::size_t stop = eol == std::string::npos ? text_.size() : eol;
    line = TextToUtf8(std::string_view(text_).substr(pos_, stop - pos_));
    pos_ = stop < text_.size() && text_[stop] == '\x1a' ? text_.size() : stop;
    SkipLineEnd();
    return true;
}

void RecordReader::Skip(int count) {
    std::string dummy;
    for (int i = 0; i < count; ++i)
        if (!Read(dummy)) return;
}

void RecordWriter::Separate() {
    if (lineOpen_) text_ += ',';
    lineOpen_ = true;
}

RecordWriter& RecordWriter::Item(std::string_view s) {
    Separate();
    text_ += '"';
    text_ += s;
    text_ += '"';
    return *this;
}

RecordWriter& RecordWriter::Item(int value) { return Item(static_cast<long long>(value)); }

RecordWriter& RecordWriter::Item(long long value) {
    Separate();
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, value);
    text_.append(buf, r.ptr);
    return *this;
}

RecordWriter& RecordWriter::Item(double value) {
    Separate();
    text_ += NumberText(value);
    return *this;
}

RecordWriter& RecordWriter::Raw(std::string_view item) {
    Separate();
    text_ += item;
    return *this;
}

RecordWriter& RecordWriter::EndLine() {
    text_ += kLineEnd;
    lineOpen_ = false;
    return *this;
}

RecordWriter& RecordWriter::Line(std::string_view s) {
    if (lineOpen_) EndLine();
    text_ += s;
    text_ += kLineEnd;
    return *this;
}

HeadFields ReadHeadFields(RecordReader& in, int mode) {
    HeadFields h;
    h.lines.resize(24);
    // Each head line holds one item; a quoted item comes without its quotes.
    for (auto& line : h.lines)
        if (!in.Read(line)) break;
    if (mode == 2) {
        const auto at = h.lines[3].find(sep::TextKey);
        if (at != std::string::npos) h.keyText = h.lines[3].substr(at + sep::TextKey.size());
    }
    return h;
}

}  // namespace kv
