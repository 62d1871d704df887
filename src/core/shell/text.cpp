#include "shell/text.h"

#include <chrono>
#include <ctime>

#include "shell/numbers.h"

namespace kv {

std::string CleanName(int mode, std::string_view text) {
    std::string s(text);
    if (mode == 1) {
        auto q = s.find('"');
        if (q != std::string::npos) s.replace(q, 1, "''");
        return s;
    }
    for (char c : {'.', ',', ':', '-', '&', '=', '!', ' '}) {
        auto at = s.find(c);
        if (at != std::string::npos) s.erase(at, 1);
    }
    return s;
}

namespace {

void AppendUtf8(std::string& out, unsigned cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Windows-1252 code points of 0x80..0x9F; the rest of the upper half is
// Latin-1. Undefined positions are kept as their Latin-1 control value.
constexpr unsigned short kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::string OemToAnsi(std::string_view oem) {
    std::string out;
    out.reserve(oem.size() + 8);
    for (unsigned char c : oem) {
        unsigned cp;
        switch (c) {
            case 129: cp = 0xFC; break;  // ü
            case 132: cp = 0xE4; break;  // ä
            case 142: cp = 0xC4; break;  // Ä
            case 148: cp = 0xF6; break;  // ö
            case 153: cp = 0xD6; break;  // Ö
            case 154: cp = 0xDC; break;  // Ü
            case 225: cp = 0xDF; break;  // ß
            case 248: cp = 0xB0; break;  // °
            case '"': out += "''"; continue;
            default:
                if (c < 0x80) cp = c;
                else if (c < 0xA0) cp = kCp1252High[c - 0x80];
                else cp = c;
        }
        AppendUtf8(out, cp);
    }
    return out;
}

bool IsValidUtf8(std::string_view text) {
    std::size_t i = 0;
    const std::size_t n = text.size();
    while (i < n) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x80) { ++i; continue; }
        int more;
        unsigned cp;
        if (c >= 0xC2 && c <= 0xDF) { more = 1; cp = c & 0x1Fu; }
        else if (c >= 0xE0 && c <= 0xEF) { more = 2; cp = c & 0x0Fu; }
        else if (c >= 0xF0 && c <= 0xF4) { more = 3; cp = c & 0x07u; }
        else return false;
        if (i + static_cast<std::size_t>(more) >= n) return false;  // cut short
        for (int k = 1; k <= more; ++k) {
            const auto d = static_cast<unsigned char>(text[i + static_cast<std::size_t>(k)]);
            if ((d & 0xC0u) != 0x80u) return false;
            cp = (cp << 6) | (d & 0x3Fu);
        }
        // Overlong forms, surrogates and code points above U+10FFFF.
        if ((more == 2 && cp < 0x800) || (more == 3 && (cp < 0x10000 || cp > 0x10FFFF)) ||
            (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        i += static_cast<std::size_t>(more) + 1;
    }
    return true;
}

std::string TextToUtf8(std::string_view text) {
    bool ascii = true;
    for (char c : text)
        if (static_cast<unsigned char>(c) >= 0x80) { ascii = false; break; }
    if (ascii || IsValidUtf8(text)) return std::string(text);
    std::string out;
    out.reserve(text.size() + text.size() / 2);
    for (unsigned char c : text) {
        if (c < 0x80) out += static_cast<char>(c);
        else AppendUtf8(out, c < 0xA0 ? kCp1252High[c - 0x80] : c);
    }
    return out;
}

Date Today() {
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    localtime_r(&now, &tm);
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday};
}

namespace {
std::string Two(int v) {
    std::string s = std::to_string(v);
    return s.size() < 2 ? "0" + s : s;
}
}  // namespace

std::string SystemDateText(const Date& d) {
    return Two(d.day) + "." + Two(d.month) + "." + std::to_string(d.year);
}

std::string DateText(std::string_view datumFormat, std::string_view systemDate) {
    const std::string_view f = Trim(datumFormat);
    if (f != "2" && f != "3" && f != "4") return std::string(systemDate);
    // Find the first separator: anything that is not a digit.
    std::size_t sepAt = 0;
    while (sepAt < systemDate.size() && systemDate[sepAt] >= '0' && systemDate[sepAt] <= '9') ++sepAt;
    std::vector<std::string> parts;
    std::string cur;
    for (char c : systemDate) {
        if (c >= '0' && c <= '9') cur += c;
        else if (!cur.empty()) { parts.push_back(cur); cur.clear(); }
    }
    if (!cur.empty()) parts.push_back(cur);
    if (parts.size() < 3) return std::string(systemDate);
    std::string day, month, year;
    if (sepAt + 1 == 3) {  // separator in position 3: dd.mm.yyyy
        day = parts[0]; month = parts[1]; year = parts[2];
    } else {
        year = parts[0]; month = parts[1]; day = parts[2];
    }
    if (f == "2") return day + "-" + month + "-" + year;
    if (f == "3") return day + "." + month + "." + year;
    return year + "." + month + "." + day;
}

std::string DateText(std::string_view datumFormat) {
    return DateText(datumFormat, SystemDateText(Today()));
}

std::vector<std::string> SplitJoined(std::string_view text, std::string_view separator) {
    std::vector<std::string> out;
    if (separator.empty()) { out.emplace_back(text); return out; }
    std::size_t from = 0;
    for (;;) {
        auto at = text.find(separator, from);
        if (at == std::string_view::npos) { out.emplace_back(text.substr(from)); break; }
        out.emplace_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    return out;
}

std::string UpperAscii(std::string_view s) {
    std::string out(s);
    for (char& c : out) if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return out;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        char x = a[i], y = b[i];
        if (x >= 'a' && x <= 'z') x = static_cast<char>(x - 32);
        if (y >= 'a' && y <= 'z') y = static_cast<char>(y - 32);
        if (x != y) return false;
    }
    return true;
}

}  // namespace kv
