#include <gtest/gtest.h>

#include "compliance/ped.h"
#include "cycle/kernel.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "sample_fixture.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

TEST(PedClasses, FluidGroupsAndTheirSettledGap) {
    EXPECT_TRUE(kv::IsGroup1Part(" r290 "));
    EXPECT_TRUE(kv::IsGroup1Part("AMMONIAK"));
    EXPECT_FALSE(kv::IsGroup1Part("R134a"));
    // Ethane and the others are group 1 only in the assembly step.
    EXPECT_FALSE(kv::IsGroup1Part("ETHAN"));
    EXPECT_EQ(kv::AssemblyGroup1List("ETHAN"), 1);
    EXPECT_EQ(kv::AssemblyGroup1List("R1150"), 2);
    EXPECT_EQ(kv::AssemblyGroup1List("METHAN"), 3);
    EXPECT_EQ(kv::AssemblyGroup1List("R744"), 0);
}

// The limits of the directive's tables, at their edges.
TEST(PedClasses, CategoryLimits) {
    // Vessels by PS x V, strict comparisons.
    EXPECT_EQ(kv::ClassifyPart(1, 25, 0, 0, 0, true), 0);
    EXPECT_EQ(kv::ClassifyPart(1, 25.5, 0, 0, 0, true), 1);
    EXPECT_EQ(kv::ClassifyPart(1, 50, 0, 0, 0, false), 0);
    EXPECT_EQ(kv::ClassifyPart(1, 50.1, 0, 0, 0, false), 1);
    EXPECT_EQ(kv::ClassifyPart(1, 1000.1, 0, 0, 0, true), 4);
    EXPECT_EQ(kv::ClassifyPart(1, 3000, 0, 0, 0, false), 3);
    EXPECT_EQ(kv::ClassifyPart(1, 3001, 0, 0, 0, false), 4);
    // Piping of group 2: DN 32 is never classed.
    EXPECT_EQ(kv::ClassifyPart(2, 99999, 32, 0, 0, false), 0);
    EXPECT_EQ(kv::ClassifyPart(2, 1000, 40, 0, 0, false), 0);
    EXPECT_EQ(kv::ClassifyPart(2, 1001, 40, 0, 0, false), 1);
    EXPECT_EQ(kv::ClassifyPart(2, 5001, 40, 0, 0, false), 3);
    // Group 1: the gate on the plant's DN1 and DN2, not on the part's DN.
    EXPECT_EQ(kv::ClassifyPart(2, 800, 20, 20, 25, true), 0);
    EXPECT_EQ(kv::ClassifyPart(2, 800, 20, 20, 30, true), 1);
    EXPECT_EQ(kv::ClassifyPart(2, 1001, 80, 20, 30, true), 2);
    EXPECT_EQ(kv::ClassifyPart(2, 3500, 150, 20, 30, true), 2);
    EXPECT_EQ(kv::ClassifyPart(2, 3501, 150, 20, 30, true), 3);
    EXPECT_EQ(kv::ClassifyPart(2, 10, 400, 20, 30, true), 3);
    // The assembly.
    EXPECT_EQ(kv::ClassifyAssembly(9000, 32, 30, false), 0);
    EXPECT_EQ(kv::ClassifyAssembly(3600, 40, 30, false), 2);
    EXPECT_EQ(kv::ClassifyAssembly(1000, 20, 26, true), 1);
    EXPECT_EQ(kv::ClassifyAssembly(4000, 120, 26, true), 3);
}

TEST(PedClasses, LeakCheckIntervals) {
    EXPECT_EQ(kv::LeakCheckMonths(4.9, false), 0);
    EXPECT_EQ(kv::LeakCheckMonths(5, false), 12);
    EXPECT_EQ(kv::LeakCheckMonths(50, false), 6);
    EXPECT_EQ(kv::LeakCheckMonths(500, true), 6);
}

class Ped : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    void Plant(const std::string& sample) {
        kv::SchemeScreen scheme;
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, scheme, sample));
        ASSERT_TRUE(kv::CalculateButton(ws, scheme));
        ASSERT_TRUE(kv::GenerateLists(ws).ok);
    }
};

// Pressures from the saturation table: R290 at 32 °C and at 55 °C against
// the reference equation of state (11.25 and 19.06 bar absolute).
TEST_F(Ped, PressuresTableAndProtocol) {
    Plant("AirWater_R290.prj");
    kv::PedScreen s;
    kv::OpenPedScreen(ws, s, 2);
    EXPECT_NEAR(kv::ToNumber(s.ps1), 10.25, 0.15);
    EXPECT_NEAR(kv::ToNumber(s.ps2), 18.06, 0.15);
    EXPECT_EQ(kv::ToNumber(s.ps2x11), kv::Cut(1.1 * kv::ToNumber(s.ps2), 2));
    EXPECT_TRUE(s.group1Part);
    EXPECT_EQ(s.rows[0].basis, "PS * DN");
    EXPECT_EQ(s.rows[4].basis, "PS * V");
    EXPECT_GE(s.plantIndex, s.rows[4].index);

    // An edited field is read back with a decimal comma.
    s.ps2 = "60,5";
    kv::ClassifyPlant(ws, s);
    EXPECT_EQ(s.ps2x11, "66.55");
    EXPECT_GE(s.psdn, 60.5 * s.dn2 - 1);

    ASSERT_TRUE(kv::WritePedProtocol(ws, s));
    const std::string page = kv::ReadWholeFile(kv::ResolveName(ws, "PEDpar.DAT"));
    EXPECT_EQ(page.rfind("\"15", 0), 0u);  // the title in size 15
    EXPECT_NE(page.find("Rechteck3"), std::string::npos);
    EXPECT_NE(page.find("&%!PS * V&%!"), std::string::npos);
    ASSERT_TRUE(kv::WriteEcoProtocol(ws));
    EXPECT_NE(kv::ReadWholeFile(kv::ResolveName(ws, "ECOpar.DAT")).find("COP§$&"), std::string::npos);
}

TEST_F(Ped, EmptyUnitsListAndTheHighChoice) {
    Plant("Chiller_NH3.prj");
    kv::WriteFileAtomic(kv::ResolveName(ws, kv::lists::kUnits), "\"P\",\"D\",\"1.1.2026\",\"KOMP\"\r\n");
    kv::PedScreen s;
    kv::OpenPedScreen(ws, s, 1);
    EXPECT_EQ(s.rows[1].text, " -- ");
    EXPECT_EQ(s.rows[2].text, "  ?");
    EXPECT_EQ(s.rows[4].basis, "PS * V");
    const double ps2At43 = kv::ToNumber(s.ps2);
    kv::ChooseHighSide(ws, s, 3);
    EXPECT_GT(kv::ToNumber(s.ps2), ps2At43);
    EXPECT_EQ(s.assemblyIndex, kv::ClassifyAssembly(s.psdn, s.dn1, s.dn2, true));
}

}  // namespace
