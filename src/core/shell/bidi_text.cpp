#include "shell/bidi_text.h"

#include <vector>

namespace kv {

namespace {

// The next code point of UTF-8 text at `i`, advancing `i`; a broken byte is
// taken as itself.
char32_t NextCodePoint(std::string_view s, std::size_t& i) {
    const auto b = static_cast<unsigned char>(s[i]);
    const int len = b < 0x80 ? 1 : (b >> 5) == 0x6 ? 2 : (b >> 4) == 0xE ? 3 : (b >> 3) == 0x1E ? 4 : 1;
    if (i + static_cast<std::size_t>(len) > s.size()) {
        ++i;
        return b;
    }
    char32_t c = len == 1 ? b : len == 2 ? (b & 0x1F) : len == 3 ? (b & 0x0F) : (b & 0x07);
    for (int k = 1; k < len; ++k) c = (c << 6) | (static_cast<unsigned char>(s[i + static_cast<std::size_t>(k)]) & 0x3F);
    i += static_cast<std::size_t>(len);
    return c;
}

bool RightToLeftLetter(char32_t c) {
    return (c >= 0x0590 && c <= 0x08FF) || (c >= 0xFB1D && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFF);
}

struct Word {
    std::size_t from, to;  // [from, to) in the text
    bool rtl = false, figure = false;
};

}  // namespace

std::string IsolateFigures(std::string_view text) {
    if (text.find(kLeftToRightIsolate) != std::string_view::npos) return std::string(text);
    // The words, apart by blanks.
    std::vector<Word> words;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == ' ') {
            ++i;
            continue;
        }
        Word w{i, i};
        while (i < text.size() && text[i] != ' ') {
            const char32_t c = NextCodePoint(text, i);
            if (RightToLeftLetter(c)) w.rtl = true;
            // Digits, Latin letters (units, names of fluids) and the degree sign.
            if ((c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == 0x00B0)
                w.figure = true;
        }
        w.to = i;
        words.push_back(w);
    }
    std::string out;
    std::size_t done = 0;
    for (std::size_t a = 0; a < words.size();) {
        if (words[a].rtl) {
            ++a;
            continue;
        }
        // The run from its first to its last word with a figure; signs of
        // punctuation at its ends (the label's colon) stay with the sentence.
        std::size_t b = a;
        std::size_t first = words.size(), last = 0;
        for (; b < words.size() && !words[b].rtl; ++b)
            if (words[b].figure) {
                if (first == words.size()) first = b;
                last = b;
            }
        if (first != words.size()) {
            out.append(text.substr(done, words[first].from - done));
            out.append(kLeftToRightIsolate);
            out.append(text.substr(words[first].from, words[last].to - words[first].from));
            out.append(kPopDirectionalIsolate);
            done = words[last].to;
        }
        a = b;
    }
    out.append(text.substr(done));
    return out;
}

}  // namespace kv
