#include <gtest/gtest.h>

#include <limits>
#include <variant>

#include "cycle/kernel.h"
#include "documents/element_lines.h"
#include "documents/scheme_generator.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "sample_fixture.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

// Element lines as the drawing program writes them, read and written back.
TEST(ElementLines, FieldsMarksAndBlanks) {
    const char* lines[] = {" 5§$ 11200§$ 9800§$ 6200§$ 9800§$Q§$ 0§$ §$ 3§$",
                           " 1§$ 1000§$ 1210§$ 1000§$ 1800§$Linie§$ 0§$§$0§$",
                           " 302§$ 875§$ 960§$ 250§$ 250§$PSH§$ 0§$§$0§$"};
    for (const char* line : lines) EXPECT_EQ(kv::FormatElement(kv::ParseElement(line)), line);
    const kv::SchemeElement e = kv::ParseElement(lines[0]);
    EXPECT_EQ(e.code, 5);
    EXPECT_EQ(e.x1, 11200);
    EXPECT_EQ(e.y2, 9800);
    EXPECT_EQ(e.text, "Q");
    EXPECT_EQ(e.labelPlace, 3);
    EXPECT_EQ(kv::ElementNumber(-3), "-3");
    EXPECT_EQ(kv::ElementNumber(400), " 400");
    // Short and damaged lines read what is there.
    const kv::SchemeElement shortLine = kv::ParseElement(" 512§$ 2050");
    EXPECT_EQ(shortLine.code, 512);
    EXPECT_EQ(shortLine.x1, 2050);
    EXPECT_EQ(shortLine.y1, 0);
    EXPECT_EQ(kv::ParseElement("").code, 0);
    EXPECT_EQ(kv::ParseElement("1e99§$ 1§$").code, std::numeric_limits<int>::max());  // clamped, not undefined
    // A file: ten header records, then the elements; an unknown code and
    // coordinates far off the sheet are drawn as a box or left out.
    const kv::SchemeFile f = kv::ParseSchemeText(
        "\" 400\"\r\n\"P\"\r\n\"D\"\r\n\"\"\r\n\"\"\r\n\"4\"\r\n\"\"\r\n\"1\"\r\n\"P.prj§$&1.1.2026\"\r\n\"A\"\r\n"
        "\" 4711§$ 100§$ 100§$ 300§$ 300§$X§$\"\r\n\" 5§$ 999999§$ 1§$ 2§$ 3§$\"\r\n");
    ASSERT_EQ(f.elements.size(), 2u);
    const kv::DrawingList d = kv::DrawScheme(f);
    int texts = 0, lines_ = 0;
    for (const kv::DrawItem& i : d.items) {
        texts += std::holds_alternative<kv::DrawText>(i);
        lines_ += std::holds_alternative<kv::DrawLine>(i);
    }
    EXPECT_GE(texts, 1);   // "4711" in its box
    EXPECT_EQ(lines_, 0);  // the line off the sheet is left out
    EXPECT_EQ(kv::ParseSchemeText(kv::SchemeText(f)).elements.size(), 2u);
}

TEST(ElementLines, HeatExchangerNumbers) {
    EXPECT_EQ(kv::CondenserElement(1), 10);
    EXPECT_EQ(kv::CondenserElement(7), 135);
    EXPECT_EQ(kv::EvaporatorElement(4), 1021);
    EXPECT_EQ(kv::EvaporatorElement(5), 5);  // no mapping: it stays
}

class Scheme : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    void Plant(const char* sample) {
        kv::SchemeScreen scheme;
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, scheme, sample));
        ASSERT_TRUE(kv::CalculateButton(ws, scheme));
    }
    static const kv::SchemeElement* Find(const kv::SchemeFile& f, int code, double x1, double y1) {
        for (const kv::SchemeElement& e : f.elements)
            if (e.code == code && e.x1 == x1 && e.y1 == y1) return &e;
        return nullptr;
    }
};

// The fixed places of the loop, one evaporator and a distributor of two.
TEST_F(Scheme, PlainPlantOnItsGrid) {
    Plant("AirWater_R290.prj");
    kv::SchemeFile f = kv::ComposeScheme(ws, 32);  // no lists yet: mode 0
    EXPECT_EQ(f.header[0], " 400");
    EXPECT_EQ(f.header[5], "4");
    const kv::SchemeElement* suction = Find(f, 5, 11200, 9800);
    ASSERT_NE(suction, nullptr);
    EXPECT_EQ(suction->x2, 6200);
    EXPECT_NE(suction->text.find(ws.pipes.Name(ws.cycle.lineRow[kv::Suction])), std::string::npos);
    EXPECT_NE(Find(f, 5, 4300, 9800), nullptr);
    EXPECT_NE(Find(f, 302, 875, 960), nullptr);
    EXPECT_NE(Find(f, 14, 8800, 2580), nullptr);
    EXPECT_EQ(Find(f, 5, 4300, 9680), nullptr);

    // The options of the line texts: length, pressure drop and velocity.
    kv::SchemeOptions options;
    options.length = options.speed = true;
    const kv::SchemeFile withOptions = kv::ComposeScheme(ws, 0, options);
    const kv::SchemeElement* texted = Find(withOptions, 5, 11200, 9800);
    ASSERT_NE(texted, nullptr);
    EXPECT_NE(texted->text.find(", l ="), std::string::npos);
    EXPECT_NE(texted->text.find("*dp ="), std::string::npos);
    EXPECT_NE(texted->text.find("m/s"), std::string::npos);

    ws.project.ArmaturZahl[9][1] = 2;
    f = kv::ComposeScheme(ws, 0);
    EXPECT_NE(Find(f, 5, 4300, 9680), nullptr);
    EXPECT_NE(Find(f, 5, 4300, 9800), nullptr);

    // With the lists, the symbols carry the designations of their rows.
    ASSERT_TRUE(kv::GenerateLists(ws).ok);
    f = kv::ComposeScheme(ws, 32);
    const kv::SchemeElement* compressor = Find(f, 14, 8800, 2580);
    ASSERT_NE(compressor, nullptr);
    EXPECT_EQ(compressor->text, "BSC 13.9");
}

// A load split of the suction line draws its further branches as side
// circuits; a hot-gas defrost its discharge branch.
TEST_F(Scheme, SideCircuitsAndDefrostBranch) {
    Plant("AirWater_R290.prj");
    kv::WriteFileAtomic(kv::ResolveName(ws, "SP_TempS.dat"),
                        "\"1\",\"60\",\"4.6\",\"18 x 1\",\"0.02\",\"50\",\"0.4\",\"9\"\r\n"
                        "\"2\",\"40\",\"3.1\",\"15 x 1\",\"0.01\",\"40\",\"0.3\",\"8\"\r\n");
    ws.project.AbtauArt = 1;
    const kv::SchemeFile f = kv::ComposeScheme(ws, 0);
    const kv::SchemeElement* branch = Find(f, 5, 6200, 6810);
    ASSERT_NE(branch, nullptr);
    EXPECT_EQ(branch->text, "15 x 1  3.1 kW");
    EXPECT_NE(Find(f, 16, 7000, 6690), nullptr);
    EXPECT_EQ(Find(f, 5, 6200, 5660), nullptr);  // one further branch only
    EXPECT_NE(Find(f, 452, 4525, 7325), nullptr);
}

TEST_F(Scheme, EconomizerPlantDrawsItsSideCircuit) {
    Plant("Economizer_R134a.prj");
    const kv::SchemeFile f = kv::ComposeScheme(ws, 0);
    EXPECT_NE(Find(f, 135, 4600, 5500), nullptr);
    EXPECT_NE(Find(f, 8, 400, 5660), nullptr);
    ASSERT_TRUE(kv::WriteScheme(ws, 0));
    EXPECT_EQ(kv::ReadSchemeFile(ws, "RIFliess.dat").elements.size(), f.elements.size());
    const kv::DrawingList d = kv::DrawScheme(f);
    EXPECT_EQ(d.width, kv::kSheetWidth);
    EXPECT_GT(d.items.size(), f.elements.size());
}

}  // namespace
