#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <variant>

#include "documents/report_layout.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

class Report : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.project.ProjektNam = "Plant";
    }
    // The texts of the first page below the title.
    std::vector<kv::DrawText> Texts(const std::vector<std::string>& lines) {
        pages = kv::LayoutReport(ws, {{"T", lines, false, 0}});
        std::vector<kv::DrawText> out;
        for (const kv::DrawItem& i : pages.at(0).items)
            if (const auto* t = std::get_if<kv::DrawText>(&i); t && t->text != "T" && t->at.y < 0.95 * kv::kPageHeight)
                out.push_back(*t);
        return out;
    }
    std::vector<kv::DrawingList> pages;
};

// The line grammar on the composed primitives.
TEST_F(Report, PrefixesMarksAndColumns) {
    constexpr double W = kv::kPageWidth, H = kv::kPageHeight;
    const auto t = Texts({"15Title", "E2Indented", "before&$$Bold text", "Label §$&  value", "a&%!b&%!c",
                          "0 no prefix here", "  spaces stay", "abc", std::string(150, 'x') + "§$&y"});
    ASSERT_EQ(t.size(), 11u);
    EXPECT_EQ(t[0].text, "Title");
    EXPECT_NEAR(t[0].font.size, 1.1 * 15 * 3.528, 1e-9);
    EXPECT_NEAR(t[0].at.y, 0.176 * H, 1e-9);
    // The line after a prefix of 15 steps by 0.018 H plus its extra height.
    EXPECT_NEAR(t[1].at.y - t[0].at.y, 0.018 * H + 3 * 15 * 1.1 / 3000 * H, 1e-6);
    EXPECT_NEAR(t[1].at.x, 0.09 * W + 2 * 0.02 * W, 1e-9);
    EXPECT_EQ(t[2].text, "Bold text");  // the text in front of the mark is dropped
    EXPECT_TRUE(t[2].font.bold);
    EXPECT_EQ(t[3].text, "Label ");
    EXPECT_EQ(t[4].text, "value");  // trimmed on the left, in the value column
    EXPECT_NEAR(t[4].at.x, 0.5 * W, 1e-9);
    EXPECT_EQ(t[5].text, "a");  // table cells at their starts, size 8
    EXPECT_NEAR(t[6].at.x, 0.29 * W, 1e-9);
    EXPECT_NEAR(t[6].font.size, 8 * 3.528, 1e-9);
    EXPECT_EQ(t[8].text, "0 no prefix here");  // "0 " is no font size
    EXPECT_EQ(t[9].text, "  spaces stay");
    // "abc" is shorter than five characters: not printed. 150 characters and
    // more: printed as they stand, the marks not looked at.
    EXPECT_EQ(t[10].text, std::string(150, 'x') + "§$&y");
}

TEST_F(Report, FramesPicturesAndPages) {
    std::vector<std::string> lines = {"Rechteck3", "Eff_class§§§$$$A+", "VDBild", "E9x"};
    for (int i = 0; i < 80; ++i) lines.push_back("line " + std::to_string(i));
    pages = kv::LayoutReport(ws, {{"T", lines, true, 2}, {"U", {"one more line"}, false, 0}});
    ASSERT_GE(pages.size(), 3u);  // the long set runs over, the second starts a page
    int rects = 0;
    bool numbered = false;
    for (const kv::DrawItem& i : pages[0].items) {
        if (const auto* r = std::get_if<kv::DrawRect>(&i)) rects += std::abs(r->height - 0.265 * kv::kPageHeight) < 1e-6;
        if (const auto* t = std::get_if<kv::DrawText>(&i))
            numbered |= t->text == ws.captions[kv::Cap::Page] + " 1 / " + std::to_string(pages.size());
    }
    EXPECT_EQ(rects, 1);
    EXPECT_TRUE(numbered);
    // The places of further capacity figures follow the plant's size; the
    // compressor words by principle, "Turbo" as it stands.
    EXPECT_EQ(kv::CapacityScale(10), 1000);
    EXPECT_EQ(kv::CapacityScale(10.5), 100);
    EXPECT_EQ(kv::CapacityScale(150), 10);
    EXPECT_EQ(kv::CompressorWord(ws, 4), "Turbo");
    EXPECT_EQ(kv::CompressorWord(ws, 3), ws.captions[kv::Cap::CompressorKindThird]);
    // The heat exchanger sheet is a set of its own with its two frames.
    ASSERT_TRUE(kv::WriteHeatExchangerSheet(ws));
    const auto sheet = kv::ReadResultSet(ws, "KWcalc.DAT", 0);
    EXPECT_EQ(std::count(sheet.begin(), sheet.end(), "Rechteck2"), 2);
    // A missing file prints an empty set; no pages for no sets.
    EXPECT_TRUE(kv::ReadResultSet(ws, "nothing.DAT", 0).empty());
    EXPECT_TRUE(kv::LayoutReport(ws, {}).empty());
}

}  // namespace
