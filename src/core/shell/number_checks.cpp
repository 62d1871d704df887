#include "shell/number_checks.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

namespace {
bool Digit(char c) { return c >= '0' && c <= '9'; }

// The value of a text that IsNumberText accepts.
double StrictValue(std::string_view t) {
    std::string s(t);
    for (char& c : s) {
        if (c == ',') c = '.';
        if (c == 'E') c = 'e';
    }
    if (!s.empty() && s[0] == '+') s.erase(0, 1);
    double v = 0;
    const auto r = std::from_chars(s.data(), s.data() + s.size(), v);
    if (r.ec == std::errc::result_out_of_range) return s.find("e-") != std::string::npos ? 0.0 : HUGE_VAL;
    return v;
}
}  // namespace

bool IsNumberText(std::string_view text) {
    const std::string_view t = Trim(text);
    std::size_t i = 0;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    bool digits = false, separator = false;
    for (; i < t.size(); ++i) {
        if (Digit(t[i])) digits = true;
        else if ((t[i] == '.' || t[i] == ',') && !separator) separator = true;
        else break;
    }
    if (!digits) return false;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
        bool expDigits = false;
        for (; i < t.size() && Digit(t[i]); ++i) expDigits = true;
        if (!expDigits) return false;
    }
    return i == t.size();
}

NumberFault CheckNumberField(std::string_view text, const NumberRange& range) {
    if (Trim(text).empty()) return NumberFault::None;
    if (!IsNumberText(text)) return NumberFault::NotANumber;
    const double v = StrictValue(Trim(text));
    if (range.zeroRefused && v == 0.0) return NumberFault::Zero;
    if (!(v >= range.min && v <= range.max)) return NumberFault::Implausible;
    return NumberFault::None;
}

std::string NumberFaultMessage(const Workspace& ws, std::string_view label, NumberFault fault,
                               const NumberRange& range) {
    const Captions& c = ws.captions;
    std::string what;
    switch (fault) {
        case NumberFault::None: return {};
        case NumberFault::NotANumber: what = c.Message(12); break;
        case NumberFault::Implausible:
            what = c[Cap::EntryImplausible] + " (" + NumberText(range.min) + " ... " + NumberText(range.max) + ")";
            break;
        case NumberFault::Zero: what = c[Cap::EntryZero]; break;
    }
    return std::string(Trim(label)) + ": " + what;
}

bool CheckNumberField(const Workspace& ws, std::vector<std::string>& messages, std::string_view label,
                      std::string_view text, const NumberRange& range) {
    const NumberFault fault = CheckNumberField(text, range);
    if (fault == NumberFault::None) return true;
    messages.push_back(NumberFaultMessage(ws, label, fault, range));
    return false;
}

bool ShowFieldMessages(Workspace& ws, const std::vector<std::string>& messages) {
    if (messages.empty()) return true;
    std::string text;
    for (const std::string& m : messages) text += (text.empty() ? "" : ws.lineEnd) + m;
    ws.ui.Message(ws.Title(), text, MessageIcon::Error);
    return false;
}

bool IntegerPart(double value, long long& target) {
    // 2^63 is the first double that does not fit; -2^63 itself does.
    if (!std::isfinite(value) || value >= 9223372036854775808.0 || value < -9223372036854775808.0) return false;
    target = static_cast<long long>(value);
    return true;
}

bool RoundedInteger(double value, int& target) {
    if (!std::isfinite(value)) return false;
    const double r = std::nearbyint(value);  // half to even in the default rounding mode
    if (r > std::numeric_limits<int>::max() || r < std::numeric_limits<int>::min()) return false;
    target = static_cast<int>(r);
    return true;
}

}  // namespace kv
