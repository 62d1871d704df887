// The delimited record form of the text files: comma-separated items, string
// items in double quotes, one logical record a line, CR LF line ends. Read
// strictly by position, item by item across lines.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv {

inline constexpr std::string_view kLineEnd = "\r\n";

// Reads items of a delimited text held in memory. Every read either fills its
// target and returns true, or, past the end of the text, leaves the target as
// it was and returns false: a short file leaves the previous values standing.
// An empty line where an item is expected is an empty item. Text comes out as
// valid UTF-8 (TextToUtf8). Every read that succeeds moves forward; the
// end-of-file mark 0x1A ends the text.
class RecordReader {
public:
    RecordReader() = default;
    explicit RecordReader(std::string text) : text_(std::move(text)) {}

    // One item as text. A quoted item is taken up to its closing quote; an
    // unquoted one up to the next comma or line end, trailing blanks dropped.
    bool Read(std::string& item);
    // One item as a number, point as decimal separator; a quoted item is
    // accepted where a number is expected. An empty item is 0.
    bool Read(double& value);
    // One item as an integer, rounded half to even like the classical run time.
    bool Read(int& value);
    bool Read(long long& value);
    // A whole line as it stands, quotes included, without its line end.
    bool ReadLine(std::string& line);

    // Skips `count` items.
    void Skip(int count);
    bool AtEnd() const;
    std::size_t Length() const { return text_.size(); }
    const std::string& Text() const { return text_; }

private:
    bool NextItem(std::string& item, bool& quoted);
    void SkipBlanks();
    void SkipLineEnd();

    std::string text_;
    std::size_t pos_ = 0;
};

// Builds the text of a delimited file. Items of one line are joined by commas;
// EndLine() closes the record with CR LF.
class RecordWriter {
public:
    RecordWriter& Item(std::string_view text);   // quoted
    RecordWriter& Item(const char* text) { return Item(std::string_view(text)); }
    RecordWriter& Item(const std::string& text) { return Item(std::string_view(text)); }
    RecordWriter& Item(int value);               // plain digits
    RecordWriter& Item(long long value);
    RecordWriter& Item(double value);            // shortest form with a point
    RecordWriter& Raw(std::string_view item);    // an item written as it stands
    RecordWriter& EndLine();
    // A plain line, written as it stands and closed with CR LF.
    RecordWriter& Line(std::string_view text);

    const std::string& Text() const { return text_; }
    std::string Take() { return std::move(text_); }

private:
    void Separate();
    std::string text_;
    bool lineOpen_ = false;
};

// The 24 head lines of a file written by the parts list layer. Mode 2 also
// gives the text behind the first "$§$" of the fourth line.
struct HeadFields {
    std::vector<std::string> lines;  // always 24 entries
    std::string keyText;             // mode 2 only
};
HeadFields ReadHeadFields(RecordReader& in, int mode);

}  // namespace kv
