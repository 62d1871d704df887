#include "shell/numbers.h"

#include <charconv>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace kv {
namespace {

bool IsSkipped(char c) { return c == ' ' || c == '\t' || c == '\n'; }

// The digits of a "&H" or "&O" text; the classical run time gives a 16-bit
// integer when the value fits in 16 bits (so "&HFFFF" is -1), else 32 bits.
Number RadixValue(std::string_view digits, int radix) {
    std::uint64_t v = 0;
    bool any = false;
    for (char c : digits) {
        if (IsSkipped(c)) continue;
        int d;
        if (c >= '0' && c <= '9') d = c - '0';
        else if (radix == 16 && c >= 'a' && c <= 'f') d = c - 'a' + 10;
        else if (radix == 16 && c >= 'A' && c <= 'F') d = c - 'A' + 10;
        else break;
        if (d >= radix) break;
        any = true;
        v = v * radix + d;
        if (v > 0xFFFFFFFFull) return {0.0, true};  // overflow: nothing usable
    }
    if (!any) return {0.0, true};
    double value;
    if (v <= 0xFFFF) value = static_cast<std::int16_t>(static_cast<std::uint16_t>(v));
    else value = static_cast<std::int32_t>(static_cast<std::uint32_t>(v));
    return {value, true};
}

}  // namespace

std::string_view TrimLeft(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    return s.substr(i);
}

std::string_view TrimRight(std::string_view s) {
    std::size_t n = s.size();
    while (n > 0 && (s[n - 1] == ' ' || s[n - 1] == '\t' || s[n - 1] == '\r' || s[n - 1] == '\n')) --n;
    return s.substr(0, n);
}

std::string_view Trim(std::string_view s) { return TrimRight(TrimLeft(s)); }

Number LeadingValue(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && IsSkipped(text[i])) ++i;
    if (i + 1 < text.size() && text[i] == '&') {
        char r = text[i + 1];
        if (r == 'H' || r == 'h') return RadixValue(text.substr(i + 2), 16);
        if (r == 'O' || r == 'o') return RadixValue(text.substr(i + 2), 8);
    }
    // Gather the characters of the number, dropping skipped ones, then let
    // from_chars do the locale-free conversion.
    std::string buf;
    buf.reserve(text.size() - i);
    bool sign = false, point = false, exponent = false, digits = false, expDigits = false;
    for (; i < text.size(); ++i) {
        char c = text[i];
        if (IsSkipped(c)) continue;
        if (c >= '0' && c <= '9') {
            buf += c;
            if (exponent) expDigits = true; else digits = true;
        } else if ((c == '+' || c == '-') && !sign && buf.empty()) {
            sign = true;
            if (c == '-') buf += c;
        } else if ((c == '+' || c == '-') && exponent && !expDigits &&
                   (buf.back() == 'e')) {
            buf += c;
        } else if (c == '.' && !point && !exponent) {
            point = true;
            buf += c;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && !exponent && digits) {
            exponent = true;
            buf += 'e';
        } else {
            break;
        }
    }
    if (!digits) return {0.0, false};
    // A dangling exponent ("1E" or "1E-") counts as no exponent.
    if (exponent && !expDigits) {
        while (!buf.empty() && (buf.back() == 'e' || buf.back() == '+' || buf.back() == '-')) buf.pop_back();
    }
    const bool negative = buf[0] == '-';
    std::string body = negative ? buf.substr(1) : buf;
    if (!body.empty() && body[0] == '.') body.insert(body.begin(), '0');  // ".5"
    double v = 0.0;
    auto res = std::from_chars(body.data(), body.data() + body.size(), v);
    if (res.ec == std::errc::result_out_of_range) {
        // Too large: infinity would poison every formula behind it, so take
        // the largest double; too small is 0.
        v = (body.find("e-") != std::string::npos) ? 0.0 : std::numeric_limits<double>::max();
    }
    if (negative) v = -v;
    return {v, false};
}

Number ToNumber(std::string& text) {
    if (Trim(text).empty()) return {0.0, true};
    const auto point = text.find('.');
    const auto comma = text.find(',');
    if (comma != std::string::npos && point == std::string::npos) {
        std::string left(TrimLeft(std::string_view(text).substr(0, comma)));
        std::string right(TrimLeft(std::string_view(text).substr(comma + 1)));
        text = left + "." + right;
    }
    return LeadingValue(text);
}

Number ToNumber(std::string_view text) {
    std::string copy(text);
    return ToNumber(copy);
}

std::string SwapDecimal(std::string_view text, int dezimalModus) {
    const char from = dezimalModus == 0 ? ',' : '.';
    const char to = dezimalModus == 0 ? '.' : ',';
    const auto at = text.find(from);
    if (at == std::string_view::npos) return std::string(text);
    std::string out(TrimLeft(text.substr(0, at)));
    out += to;
    out += TrimLeft(text.substr(at + 1));
    return out;
}

std::string NumberText(double value) {
    if (std::isnan(value)) return "0";
    if (std::isinf(value)) value = value > 0 ? std::numeric_limits<double>::max() : -std::numeric_limits<double>::max();
    if (value == 0.0) return "0";  // also for -0
    char buf[400];
    const double mag = std::fabs(value);
    std::to_chars_result res;
    if (mag >= 1e15 || mag < 1e-9) {
        res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific);
        // The classical exponent form: 1E+20, 2.5E-12.
        std::string s(buf, res.ptr);
        auto e = s.find('e');
        if (e != std::string::npos) s[e] = 'E';
        return s;
    }
    res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed);
    return std::string(buf, res.ptr);
}

std::string StrNumber(double value) {
    std::string s = NumberText(value);
    if (s[0] != '-') s.insert(s.begin(), ' ');
    return s;
}

long long RoundHalfEven(double value) {
    if (!std::isfinite(value)) return 0;
    if (value > 9.2e18) return std::numeric_limits<long long>::max();
    if (value < -9.2e18) return std::numeric_limits<long long>::min();
    return static_cast<long long>(std::nearbyint(value));  // default mode: half to even
}

namespace {
// The powers of ten a figure is cut to: exact in binary up to 1e22, the same
// numbers std::pow gives, without its cost on every figure shown.
constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
}  // namespace

double Cut(double value, int decimals) {
    if (!std::isfinite(value)) return 0.0;
    const double f = decimals >= 0 && decimals < 16 ? kPowersOfTen[decimals] : std::pow(10.0, decimals);
    const double x = value * f;
    // 0.29 * 100 is 28.999999999999996 in binary: a guard far below the last
    // place shown keeps such a figure from losing its last digit.
    const double guard = std::max(1e-6, std::fabs(x) * 1e-12);
    return std::trunc(x + (x >= 0 ? guard : -guard)) / f;
}

int WholeNumber(double v) {
    if (!std::isfinite(v)) return 0;
    constexpr double lo = static_cast<double>(std::numeric_limits<int>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<int>::max());
    return static_cast<int>(std::trunc(std::clamp(v, lo, hi)));
}

long long WholeNumberLong(double v) {
    if (!std::isfinite(v)) return 0;
    // The largest doubles that still convert: 2^63 is already out of range.
    constexpr double lo = -9.2e18, hi = 9.2e18;
    return static_cast<long long>(std::trunc(std::clamp(v, lo, hi)));
}

}  // namespace kv
