// Numbers kept as text: reading them with either decimal separator, swapping
// the separator, and writing them in the shortest decimal form.
#pragma once

#include <string>
#include <string_view>

namespace kv {

// The value of a number text. An empty text is the integer 0, a double 0 is
// something else, and hexadecimal or octal texts are integers too; callers
// that care (a field left empty versus a field holding "0") can tell.
struct Number {
    double value = 0.0;
    bool isInteger = false;

    constexpr operator double() const { return value; }
};

// The classical leading numeric value of a text: blanks, tabs and line feeds
// are skipped wherever they stand, then an optional sign, digits, at most one
// point and an optional exponent introduced by E or D are taken up to the
// first other character. "&H" and "&O" start hexadecimal and octal integers.
// A text without digits is 0. Never depends on the user's locale.
Number LeadingValue(std::string_view text);

// Reads a number typed with a decimal point or a decimal comma.
//  - point only, or neither: the leading value;
//  - comma only: the first comma becomes a point in `text` itself (both parts
//    trimmed on the left), then the leading value; the caller's text changes;
//  - both: the text is read as it stands, so reading stops at the comma
//    ("1.234,5" is 1.234 and "1,234.5" is 1);
//  - trimmed empty: the integer 0.
Number ToNumber(std::string& text);
Number ToNumber(std::string_view text);  // same, on a copy
inline Number ToNumber(const char* text) { return ToNumber(std::string_view(text)); }

// Converts the separator of a number text: mode 0 comma to point, mode 1
// point to comma. Only the first separator is touched; both parts are trimmed
// on the left. A text without the separator comes back unchanged.
std::string SwapDecimal(std::string_view text, int dezimalModus);

// The shortest decimal text that reads back as the same double, with a point
// and without a leading blank: 0.5, -12, 2.5, 100000. Very large or very small
// magnitudes fall back to exponent form (1E+20). Used for every number written
// to a file.
std::string NumberText(double value);

// The same with the leading blank that the classical Str() puts before a
// number that is not negative (" 0", " 2.5"). A few file items keep it.
std::string StrNumber(double value);

// Integer conversion of the classical kind: rounds half to even.
long long RoundHalfEven(double value);

// Figures are cut, not rounded: keep `decimals` places by multiplying, taking
// the integer part and dividing. A guard below the last place shown takes
// out the binary noise of the multiplication; a figure that is not finite
// gives 0.
double Cut(double value, int decimals);

// Trimming helpers shared by the text routines.
std::string_view TrimLeft(std::string_view s);
std::string_view TrimRight(std::string_view s);
std::string_view Trim(std::string_view s);

// A count or code read from a file as an int: cut towards zero, a value
// beyond the int range clamped to it, a value that is not a number 0.
int WholeNumber(double v);
long long WholeNumberLong(double v);

}  // namespace kv
