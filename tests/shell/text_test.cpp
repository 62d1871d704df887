#include <gtest/gtest.h>

#include "shell/separators.h"
#include "shell/text.h"

TEST(CleanName, RemovesOnlyTheFirstOccurrenceOfEachCharacter) {
    EXPECT_EQ(kv::CleanName(0, "A-B-C.prj"), "AB-Cprj");
    EXPECT_EQ(kv::CleanName(0, "a.b.c, d:e-f&g=h!i j k"), "ab.cdefghi j k");
    EXPECT_EQ(kv::CleanName(1, "7\" tube \"x\""), "7'' tube \"x\"");
    EXPECT_EQ(kv::CleanName(0, ""), "");
}

TEST(OemToAnsi, MapsTheGermanLettersAndDegreeOfTheOldCodePage) {
    const std::string oem = "Verfl\x81ssiger \x84\x8e\x94\x99\x9a \xe1 5\xf8" "C \"A\"";
    EXPECT_EQ(kv::OemToAnsi(oem), "Verflüssiger äÄöÖÜ ß 5°C ''A''");
    EXPECT_EQ(kv::OemToAnsi("\x80"), "€");  // the rest as Windows-1252
    EXPECT_EQ(kv::OemToAnsi("plain"), "plain");
}

TEST(DateText, FormatsFromTheSystemDate) {
    EXPECT_EQ(kv::DateText("1", "22.11.2026"), "22.11.2026");
    EXPECT_EQ(kv::DateText("2", "22.11.2026"), "22-11-2026");
    EXPECT_EQ(kv::DateText("3", "22.11.2026"), "22.11.2026");
    EXPECT_EQ(kv::DateText("4", "22.11.2026"), "2026.11.22");
    // A system date with the year first is cut the other way.
    EXPECT_EQ(kv::DateText("2", "2026-11-22"), "22-11-2026");
    EXPECT_EQ(kv::DateText("", "2026-11-22"), "2026-11-22");
    EXPECT_EQ(kv::DateText("3", "garbage"), "garbage");
    EXPECT_EQ(kv::SystemDateText({2026, 3, 7}), "07.03.2026");
}

TEST(Separators, SplitJoinedItems) {
    const std::string pack = std::string("5") + std::string(kv::sep::AuxItem) + "2" + std::string(kv::sep::AuxItem);
    EXPECT_EQ(kv::SplitJoined(pack, kv::sep::AuxItem), (std::vector<std::string>{"5", "2", ""}));
    EXPECT_TRUE(kv::EqualsNoCase("heatp", "HEATP"));
    EXPECT_FALSE(kv::EqualsNoCase("heatp", "HEATP2"));
}

TEST(Text, AnythingThatIsNotUtf8IsTheOldCodePage) {
    EXPECT_TRUE(kv::IsValidUtf8("plain \xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80"));
    // Overlong, surrogate, beyond U+10FFFF, cut short, a lone continuation.
    for (const char* bad : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        EXPECT_FALSE(kv::IsValidUtf8(bad)) << bad;
    EXPECT_EQ(kv::TextToUtf8("\xC0\xAF"), "\xC3\x80\xC2\xAF");
    // Random bytes always come out valid.
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(255 - i);
    EXPECT_TRUE(kv::IsValidUtf8(kv::TextToUtf8(bytes)));
}
