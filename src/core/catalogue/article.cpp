#include "catalogue/article.h"

#include <map>

#include "shell/numbers.h"
#include "shell/text.h"

namespace kv {

const std::array<ArticleField, kArticleFieldCount> kArticleFields = {{
    {0, 40},   {40, 5},   {45, 15},  {60, 12},  {72, 40},  {112, 3},  {115, 2},  {117, 6},
    {123, 5},  {128, 5},  {133, 4},  {137, 6},  {143, 6},  {149, 5},  {154, 5},  {159, 6},
    {165, 5},  {170, 5},  {175, 10},
    // Accessory blocks: count, order number, type I, type II; 77 bytes each.
    {185, 2},  {187, 15}, {202, 30}, {232, 30},
    {262, 2},  {264, 15}, {279, 30}, {309, 30},
    {339, 2},  {341, 15}, {356, 30}, {386, 30},
    {416, 2},  {418, 15}, {433, 30}, {463, 30},
    {493, 2},  {495, 15}, {510, 30}, {540, 30},
}};

namespace {

std::string_view DropPadding(std::string_view s) {
    while (!s.empty() && (s.back() == ' ' || s.back() == '\0')) s.remove_suffix(1);
    return s;
}

// The code point of the UTF-8 sequence at `at`, which moves past it. A
// broken sequence gives U+FFFD and moves one byte.
unsigned NextCodePoint(std::string_view s, std::size_t& at) {
    const auto b = static_cast<unsigned char>(s[at]);
    int extra = b >= 0xF0 ? 3 : b >= 0xE0 ? 2 : b >= 0xC0 ? 1 : 0;
    if (b < 0x80) { ++at; return b; }
    if (b < 0xC0 || at + static_cast<std::size_t>(extra) >= s.size()) { ++at; return 0xFFFD; }
    unsigned cp = b & (0x3F >> extra);
    for (int i = 1; i <= extra; ++i) {
        const auto c = static_cast<unsigned char>(s[at + i]);
        if ((c & 0xC0) != 0x80) { ++at; return 0xFFFD; }
        cp = (cp << 6) | (c & 0x3F);
    }
    at += static_cast<std::size_t>(extra) + 1;
    return cp;
}

// Code point to byte of the old code page: the inverse of OemToAnsi. The
// DOS letters come first, so that ü goes to 129 and not to its Latin-1 byte.
const std::map<unsigned, unsigned char>& OemBytes() {
    static const std::map<unsigned, unsigned char> table = [] {
        std::map<unsigned, unsigned char> t;
        auto add = [&t](unsigned char b) {
            const std::string text = OemToAnsi(std::string_view(reinterpret_cast<const char*>(&b), 1));
            std::size_t at = 0;
            if (text.empty()) return;
            const unsigned cp = NextCodePoint(text, at);
            if (at == text.size() && cp != 0xFFFD) t.emplace(cp, b);
        };
        for (unsigned char b : {129, 132, 142, 148, 153, 154, 225, 248}) add(b);
        for (int b = 128; b < 256; ++b) add(static_cast<unsigned char>(b));
        return t;
    }();
    return table;
}

}  // namespace

const std::string& Article::Field(int number) const {
    static const std::string empty;
    return number >= 1 && number <= kArticleFieldCount ? fields[static_cast<std::size_t>(number - 1)] : empty;
}

void Article::SetField(int number, std::string text) {
    if (number >= 1 && number <= kArticleFieldCount) fields[static_cast<std::size_t>(number - 1)] = std::move(text);
}

double Article::Number(int number) const { return ToNumber(std::string_view(Field(number))).value; }

Article DecodeArticle(std::string_view record) {
    Article a;
    for (std::size_t i = 0; i < kArticleFields.size(); ++i) {
        const auto [offset, length] = kArticleFields[i];
        if (static_cast<std::size_t>(offset) >= record.size()) break;
        a.fields[i] = DecodeText(record.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length)));
    }
    return a;
}

std::string EncodeArticle(const Article& article) {
    std::string record(kArticleLength, ' ');
    for (std::size_t i = 0; i < kArticleFields.size(); ++i) {
        const auto [offset, length] = kArticleFields[i];
        const std::string oem = AnsiToOem(article.fields[i]);
        record.replace(static_cast<std::size_t>(offset), std::min<std::size_t>(oem.size(), static_cast<std::size_t>(length)),
                       oem.substr(0, static_cast<std::size_t>(length)));
    }
    return record;
}

bool EndsSeries(const Article& a) {
    return a.Number(field::Size) == 0 && a.Number(field::Connection) == 0 && a.Number(field::Rated1) == 0 &&
           a.Number(field::Rated2) == 0;
}

std::string AnsiToOem(std::string_view utf8) {
    const auto& bytes = OemBytes();
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const unsigned cp = NextCodePoint(utf8, at);
        if (cp < 0x80) { out += static_cast<char>(cp); continue; }
        const auto it = bytes.find(cp);
        out += it != bytes.end() ? static_cast<char>(it->second) : '?';
    }
    return out;
}

std::string ListText(std::string_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (NextCodePoint(text, at) == 0xFFFD) return OemToAnsi(text);
    return std::string(text);
}

std::string DecodeText(std::string_view record) { return OemToAnsi(DropPadding(record)); }

}  // namespace kv
