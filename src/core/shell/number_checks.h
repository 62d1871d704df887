// Numbers typed by the user, and integers taken from outside data. Files
// keep the tolerant reading of ToNumber, where "abc" is 0; a screen refuses
// a field that is not a number or lies outside what a plant can have, and
// says which field it is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

// True when the trimmed text is a number and nothing else: an optional sign,
// digits with at most one decimal point or comma, an optional exponent (E and
// an integer). "12,5", "-10", ".5" and "1e3" are numbers; "", "abc", "10 kW",
// "1.234,5" and "&H10" are not.
bool IsNumberText(std::string_view text);

// What a number field accepts: plausible values from min to max, both
// included; zeroRefused for a field the calculation divides by.
struct NumberRange {
    double min;
    double max;
    bool zeroRefused = false;
};

enum class NumberFault { None, NotANumber, Implausible, Zero };

// The check of one field. An empty field passes: whether a field may stay
// empty is the rule of its screen.
NumberFault CheckNumberField(std::string_view text, const NumberRange& range);

// "<label>: <what is wrong>" in the language of the workspace; empty for None.
std::string NumberFaultMessage(const Workspace& ws, std::string_view label, NumberFault fault,
                               const NumberRange& range);

// Checks a field and adds its message to `messages`; true when it passed.
bool CheckNumberField(const Workspace& ws, std::vector<std::string>& messages, std::string_view label,
                      std::string_view text, const NumberRange& range);

// Shows the messages of an editor's check in one box; false when there were any.
bool ShowFieldMessages(Workspace& ws, const std::vector<std::string>& messages);

// Integers of outside data. Each conversion fails, leaving the target as it
// was, when the value is not finite or does not fit the target, as the
// overflow of the classical run time does.
bool IntegerPart(double value, long long& target);  // cut towards zero
bool RoundedInteger(double value, int& target);     // rounded half to even

}  // namespace kv
