// Figures in right-to-left text: "-10 °C", "1 1/8'" or "95 mbar / 0.28 K"
// must read as an engineer writes them inside an Arabic sentence, so every
// run of words without right-to-left letters is set apart as a left-to-right
// isolate (U+2066 ... U+2069), from its first to its last word with a digit,
// a Latin letter or the degree sign.
#pragma once

#include <string>
#include <string_view>

namespace kv {

inline constexpr std::string_view kLeftToRightIsolate = "\u2066";
inline constexpr std::string_view kPopDirectionalIsolate = "\u2069";

// The text with its figure runs isolated; a text that already holds an
// isolate comes back unchanged, so the call can be repeated.
std::string IsolateFigures(std::string_view text);

}  // namespace kv
