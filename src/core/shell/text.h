// Text tools: cleaning names, the old code page of catalogue records, dates,
// splitting joined items.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv {

// Mode 1 replaces the first double quote by two apostrophes. Any other mode
// removes the first occurrence of each of ".", ",", ":", "-", "&", "=", "!"
// and blank, in that order, one occurrence each: "A-B-C.prj" becomes
// "AB-Cprj". Only the first of each goes; that limit is deliberate.
std::string CleanName(int mode, std::string_view text);

// Text of a catalogue record in the old DOS code page, as UTF-8. The German
// letters and the degree sign are mapped, a double quote becomes two
// apostrophes, other bytes above 127 are taken as Windows-1252.
std::string OemToAnsi(std::string_view oem);

// Text read from a file, as valid UTF-8: text that is valid UTF-8 comes back
// as it is; anything else is the old system's Windows code page (1252) and is
// converted, so "K\xFChlhaus" becomes "Kühlhaus". Every reader of the data
// directory, the settings and the project files passes its text through here.
std::string TextToUtf8(std::string_view text);
bool IsValidUtf8(std::string_view text);

// A calendar date.
struct Date {
    int year = 2000, month = 1, day = 1;
};
Date Today();

// The system's own date text, day first with points: "22.11.2026".
std::string SystemDateText(const Date& d);

// Today's date as text by the setting DatumFormat: "1" the system's date
// text, "2" day-month-year with hyphens, "3" day.month.year, "4"
// year.month.day. Day, month and year are cut out of the system's date text
// by where its first separator stands (position 3: day first, else year
// first). Anything else gives the system's date text.
std::string DateText(std::string_view datumFormat, std::string_view systemDate);
std::string DateText(std::string_view datumFormat);

// Splits a joined item at every occurrence of `separator`.
std::vector<std::string> SplitJoined(std::string_view text, std::string_view separator);

// Upper case of the ASCII letters; plant types and codes compare this way.
std::string UpperAscii(std::string_view s);
bool EqualsNoCase(std::string_view a, std::string_view b);

}  // namespace kv
