#include <gtest/gtest.h>

#include "lines/line_data.h"
#include "lines/line_sizing.h"
#include "lines/pipe_readout.h"
#include "lines/pipe_table.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;

namespace {

class LineSizing : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        kv::InstallFactoryData(ws);
        kv::LoadPipeTable(ws, "RohrDM.DAT");  // di 4, 6, 8, 10, 13, 14, 16, 20, 26, 32, 39, 50, ...
        rules.pipes = &ws.pipes;
    }
    kv::SizingRules rules;
    // R134a suction gas at -10 °C, about 10 kW.
    kv::SingleFlow suction{0.06, 10.0, 1.1e-5};
};

}  // namespace

TEST_F(LineSizing, SuctionLineStartsAtTheVelocitySizeAndIsRaisedToItsLimit) {
    // d for 10 m/s: 1000 sqrt(4 0.06 / (3.1415 10 10)) = 27.6 mm: first di from 27 is 32 (row 10).
    const kv::LineRun shortRun{5, 0, 0};
    kv::LineResult r = kv::SizeSuctionLine(rules, suction, shortRun, 10, 1.0, 0.25, 2.0);
    EXPECT_EQ(r.row, 10);
    EXPECT_TRUE(r.limitMet);
    EXPECT_NEAR(r.rhoAfterDrop, 10 * (2.0 - r.lossMbar / 1000) / 2.0, 1e-12);
    EXPECT_NEAR(r.velocity, kv::FlowVelocity(0.06, r.rhoAfterDrop, 32), 1e-12);
    EXPECT_NEAR(r.lossK, r.lossMbar / 250, 1e-12);

    // A long line is raised until the loss fits its 50 mbar; the static head
    // comes after.
    const kv::LineRun longRun{60, 3, 8};
    r = kv::SizeSuctionLine(rules, suction, longRun, 10, 0.2, 0.25, 2.0);
    EXPECT_GT(r.row, 10);
    const kv::LineResult below = kv::LineAtRow(rules, r.row - 1, suction, {60, 0, 8}, 250);
    EXPECT_GT(below.lossMbar, 50);
    EXPECT_LE(r.lossMbar - 9.81 * 10 * 3 / 100, 50);

    // A very long line ends on the largest size, above its limit.
    r = kv::SizeSuctionLine(rules, suction, {1e5, 0, 0}, 10, 1.0, 0.25, 2.0);
    EXPECT_EQ(r.row, ws.pipes.PipeRowCount);
    EXPECT_FALSE(r.limitMet);
}

TEST_F(LineSizing, FixedDiametersTakeTheStoredRows) {
    rules.diametersFixed = true;
    rules.storedRow[kv::Suction] = 3;
    rules.storedRow[kv::Liquid] = 99;  // outside the table: sized as usual
    EXPECT_EQ(kv::SizeSuctionLine(rules, suction, {60, 0, 0}, 10, 1.0, 0.25, 2.0).row, 3);
    const kv::SingleFlow liquid{0.06, 1200, 2.5e-4};
    EXPECT_EQ(kv::SizeLiquidLine(rules, liquid, {10, 0, 0}, 0.8, 0.5, 0.25, 3).row, 3);  // d 8.9 mm: di 8
}

TEST_F(LineSizing, InjectionLineWalksFromTheSmallestSize) {
    const kv::TwoPhaseFlow f{0.06, 1300, 10, 1.1e-5, 2.7e-4, 0.25};
    kv::LineResult r = kv::SizeInjectionLine(rules, f, 2, {2, 0, 0}, 1.0, 0.25);
    ASSERT_TRUE(r.sized);
    EXPECT_NEAR(r.massFlow, 0.03, 1e-15);
    EXPECT_LT(r.lossMbar, 250);
    EXPECT_GE(kv::TwoPhaseLineAtRow(rules, r.row - 1, f, 2, {2, 0, 0}, 250).lossMbar, 250);

    r = kv::SizeInjectionLine(rules, f, 1, {1e6, 0, 0}, 1.0, 0.25);
    EXPECT_FALSE(r.sized);
    EXPECT_EQ(r.row, ws.pipes.PipeRowCount + 1);
    EXPECT_EQ(kv::LineSizeText(ws.pipes, r, 1e6), "");

    r = kv::SizeInjectionLine(rules, f, 1, {0, 0, 0}, 1.0, 0.25);
    EXPECT_EQ(r.row, 1);
    EXPECT_EQ(kv::LineSizeText(ws.pipes, r, 0), "0");
}

TEST_F(LineSizing, LinesWithoutWalk) {
    const kv::SingleFlow liquid{0.06, 1100, 2.5e-4};
    // d for 0.5 m/s: 11.8 mm, so di 13 (row 5); the economizer takes the next size.
    EXPECT_EQ(kv::SizeCondenserLine(rules, liquid, {4, 2, 0}, 0.5, 0.25, 3).row, 5);
    EXPECT_EQ(kv::SizeEconomizerLiquid(rules, liquid, 3, 0.5, 750).row, 6);
    EXPECT_NEAR(kv::SizeEconomizerLiquid(rules, liquid, 3, 0.5, 750).zeta, 1.2, 1e-12);

    kv::HotGasBypassFlow hg{0.1, 3, 60, 50, 80, 1.3e-5};
    EXPECT_FALSE(kv::SizeHotGasBypass(rules, hg, {0, 0, 0}, 12, 0.25, 3).sized);
    EXPECT_NEAR(kv::SizeHotGasBypass(rules, hg, {5, 0, 0}, 12, 0.25, 3).massFlow, 0.04, 1e-15);
    hg.kind = 2;
    const kv::LineResult all = kv::SizeHotGasBypass(rules, hg, {5, 0, 0}, 12, 0.25, 3);
    EXPECT_NEAR(all.velocity, kv::FlowVelocity(0.1, 80, all.di), 1e-12);
}

TEST_F(LineSizing, AnEmptyTableSizesNothing) {
    kv::PipeTable empty;
    rules.pipes = &empty;
    EXPECT_FALSE(kv::SizeSuctionLine(rules, suction, {5, 0, 0}, 10, 1, 0.25, 2).sized);
    EXPECT_FALSE(kv::SizeInjectionLine(rules, {0.06, 1300, 10, 1e-5, 2e-4, 0.2}, 1, {5, 0, 0}, 1, 0.25).sized);
    EXPECT_FALSE(kv::SizeCondenserLine(rules, suction, {5, 0, 0}, 0.5, 0.25, 3).sized);
    EXPECT_FALSE(kv::LineAtRow(rules, 1, suction, {5, 0, 0}, 250).sized);
}

TEST_F(LineSizing, RedFiguresFollowTheirLimits) {
    kv::LineLimits l;
    l.maxDtSuction = 1.5;
    l.partLoadPercent = 50;
    kv::CycleState& c = ws.cycle;
    c.lineLossK[kv::Suction] = 1.5;      // at the limit: not red
    c.lineLossK[kv::Discharge] = 1.01;
    c.lineVelocity[kv::Liquid] = 0.81;
    c.lineVelocity[kv::Condensate] = 0.5;
    c.lineOilCarry[kv::Suction] = 0.51;
    kv::MarkLineLimits(c, l);
    EXPECT_FALSE(c.lineLossRed[kv::Suction]);
    EXPECT_TRUE(c.lineLossRed[kv::Discharge]);
    EXPECT_TRUE(c.lineVelocityRed[kv::Liquid]);
    EXPECT_FALSE(c.lineVelocityRed[kv::Condensate]);
    EXPECT_TRUE(c.lineOilRed[kv::Suction]);
    EXPECT_FALSE(c.lineOilRed[kv::Discharge]);
}

TEST_F(LineSizing, StoredSizesAreOfferedAndYesSizesAnew) {
    kv::LineSizes s;
    s.row = {0, 1, 10, 8, 5, 4};
    ASSERT_TRUE(kv::WriteLineSizes(ws, s));
    EXPECT_EQ(Get("onestDM.dat"), "1\r\n10\r\n8\r\n5\r\n4\r\n");
    answer = false;
    EXPECT_TRUE(kv::OfferStoredSizing(ws));
    EXPECT_EQ(ws.cycle.lineRow[kv::Suction], 10);
    EXPECT_EQ(kv::CurrentLineSizes(ws.cycle).row, s.row);
    answer = true;
    EXPECT_FALSE(kv::OfferStoredSizing(ws));
    ASSERT_EQ(questions.size(), 2u);

    ws.settings.Sprache = "ITA";
    EXPECT_EQ(kv::MakeStoredSizingQuestion(ws).text, "Dimensione Tubi : \r\n  Cambiare ?");
    Put("onestDM.dat", "3\r\n0\r\n7\r\n");
    ws.cycle.diametersFixed = false;
    EXPECT_FALSE(kv::OfferStoredSizing(ws));
    EXPECT_EQ(questions.size(), 2u);  // no suction row stored: no question
    for (const std::string& c : kvtest::DamagedContents("1\r\n2\r\n3\r\n4\r\n5\r\n")) {
        Put("onestDM.dat", c);
        kv::ReadLineSizes(ws);
    }
}

TEST_F(LineSizing, ReadOutOfARun) {
    ws.settings.Waehrung = "EUR";
    // 22 x 1: 14 min a metre.
    const kv::PipeReadout r = kv::MakePipeReadout(ws, ws.pipes, 8, 12.5, 8940);
    EXPECT_EQ(r.name, "22 x 1");
    EXPECT_EQ(r.cost, kv::Cut(kv::ToNumber(ws.pipes.PipePriceText[8]).value * 12.5, 2));
    EXPECT_EQ(r.hours, 2);  // 175 min
    EXPECT_EQ(r.restMinutes, 55);
    EXPECT_EQ(r.timeLine.substr(r.timeLine.size() - 6), "2h 55'");
    // 8940 3.1415 (22² - 20²) / 4e6 12.5 = 7.3731 kg
    EXPECT_EQ(r.weightKg, 7.37);
    EXPECT_EQ(kv::MakePipeReadout(ws, ws.pipes, 99, 10, 8940).cost, 0);
}
