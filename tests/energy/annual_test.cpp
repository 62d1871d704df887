#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "energy/annual.h"
#include "energy/annual_profile.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/startup.h"
#include "sample_fixture.h"
#include "workspace_fixture.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

TEST(TypicalYear, CalendarDayShapeAndDemand) {
    double year = 0;
    for (int m = 1; m <= 12; ++m) year += kv::DaysOfMonth(m);
    EXPECT_EQ(kv::DaysOfMonth(2), 28);
    EXPECT_NEAR(year, 364.93, 1e-9);
    for (int h : {1, 5, 23, 24}) EXPECT_TRUE(kv::IsNightHour(h)) << h;
    for (int h : {6, 15, 22}) EXPECT_FALSE(kv::IsNightHour(h)) << h;
    EXPECT_EQ(kv::DayShape(5), 1);
    EXPECT_EQ(kv::DayShape(15), 0);
    // Cut to hundredths, not rounded: 1.237 stays 1.23.
    EXPECT_DOUBLE_EQ(kv::HourTemperature({"", 1.237, 1.237, 20, 18}, 9), 1.23);
    EXPECT_DOUBLE_EQ(kv::HourTemperature({"", 3.9, -1.6, 20, 18}, 1), 0.05);
    EXPECT_DOUBLE_EQ(kv::HeatDemand(10, -12, 20, -12), 10);
    EXPECT_DOUBLE_EQ(kv::HeatDemand(10, -12, 20, 16), 0);  // heating limit 4 K under the room
    EXPECT_EQ(kv::HeatDemand(10, 16, 20, 0), 0);            // design point on the limit: no load line
}

TEST(TypicalYear, SourceKinds) {
    EXPECT_EQ(kv::SourceOf("A2/W35"), kv::SourceKind::Air);
    EXPECT_EQ(kv::SourceOf("B0/W35"), kv::SourceKind::Brine);
    EXPECT_EQ(kv::SourceOf("W10/W35"), kv::SourceKind::Steady);
    const kv::SourceInputs in{-6, -7, 8, -3};
    EXPECT_DOUBLE_EQ(kv::EvaporatingTemperature(kv::SourceKind::Air, in, 7, 0), -1 + 0.12 * 5);
    EXPECT_DOUBLE_EQ(kv::EvaporatingTemperature(kv::SourceKind::Air, in, -2, 0), -10 + 0.15 * -4);
    EXPECT_DOUBLE_EQ(kv::EvaporatingTemperature(kv::SourceKind::Brine, in, 30, kv::AuskuehlF(1)), -10.9);
    EXPECT_DOUBLE_EQ(kv::EvaporatingTemperature(kv::SourceKind::Steady, in, 30, 3), -3);
    EXPECT_EQ(kv::AuskuehlF(2), 3.6);
    EXPECT_EQ(kv::AuskuehlF(7), 0);
}

TEST(SeasonAccumulators, CoverExtraHeatAndFigures) {
    kv::SeasonAccumulators acc;
    auto b = kv::BookHour(acc, 28, 8, 8, 4);  // exactly the capacity: full cover
    EXPECT_EQ(b.extra, 0);
    EXPECT_DOUBLE_EQ(acc.weightedHours, 28);
    EXPECT_DOUBLE_EQ(b.energy, 28 * 2.0);
    b = kv::BookHour(acc, 10, 12, 8, 3);  // beyond it: counts 1 hour, weighs 1.5
    EXPECT_DOUBLE_EQ(b.extra, 4);
    EXPECT_DOUBLE_EQ(acc.weightedHours, 38);
    EXPECT_DOUBLE_EQ(acc.weightedCop, 28 * 4 + 10 * 1.5 * 3);
    EXPECT_DOUBLE_EQ(acc.extraHours, -5);
    EXPECT_DOUBLE_EQ(acc.extraHeat, 40);
    kv::BookHour(acc, 30.63, 0, 8, 3);  // no demand books nothing
    EXPECT_DOUBLE_EQ(acc.weightedHours, 38);

    kv::SeasonAccumulators year{1000, 4100, 4823.9, -2, 312.7};
    const kv::SeasonalResult r = kv::SeasonalFigures(year, 0.3);
    EXPECT_DOUBLE_EQ(r.scop, 4.1);
    EXPECT_DOUBLE_EQ(r.etaSh, 164);
    EXPECT_DOUBLE_EQ(r.copMinusOne, 3.1);
    EXPECT_DOUBLE_EQ(r.annualCost, 1446.9);
    EXPECT_DOUBLE_EQ(r.co2Tons, 2.7978);
    EXPECT_EQ(r.extraHeat, 312);
    EXPECT_EQ(kv::SeasonalFigures(kv::SeasonAccumulators{}, 0.3).scop, 0);  // no heating hour
}

class AnnualRun : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    void OpenSample(const std::string& name) {
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, s, name));
        ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    }
    // ERG_HEAT.DAT as rows of items.
    Rows Table() {
        Rows rows;
        kv::RecordReader in(Get(kv::kSeasonFile));
        std::string line;
        while (in.ReadLine(line)) {
            kv::RecordReader items(line);
            std::vector<std::string> row;
            for (std::string item; items.Read(item);) row.push_back(item);
            rows.push_back(row);
        }
        return rows;
    }
    // A profile of twelve equal months.
    void FlatYear(double tHigh, double tLow, double roomDay, double roomNight) {
        kv::AnnualProfile p;
        p.tNorm = -12;
        p.QNorm = 10;
        for (auto& m : p.months) m = {"M", tHigh, tLow, roomDay, roomNight};
        ASSERT_TRUE(kv::WriteAnnualProfile(ws, p, "test"));
    }
    static double N(const std::string& t) { return kv::ToNumber(t).value; }
    kv::SchemeScreen s;
};

TEST_F(AnnualRun, AirToWaterR290GivesSoundFiguresAndTheDesignPointBack) {
    OpenSample("AirWater_R290.prj");
    const kv::CycleState before = ws.cycle;
    const kv::SchemeScreen screen = s;
    const kv::SeasonalResult r = kv::RechKern(ws, s);
    ASSERT_TRUE(r.ran);
    EXPECT_GT(r.scop, 3.2);  // an air-to-water heat pump for floor heating in central Europe
    EXPECT_LT(r.scop, 5.2);
    EXPECT_GT(r.scop, r.copMin);
    EXPECT_LT(r.scop, r.copMax);
    EXPECT_DOUBLE_EQ(r.etaSh, std::floor(400 * r.scop + 1e-7) / 10);
    EXPECT_GT(r.heatDemand / 10, 1500);  // full-load hours of the building
    EXPECT_LT(r.heatDemand / 10, 2600);
    EXPECT_EQ(s.Eta_heiz, kv::NumberText(r.etaSh));
    EXPECT_EQ(s.Zuheiz, kv::NumberText(r.extraHeat));

    EXPECT_EQ(s.t0, screen.t0);
    EXPECT_EQ(s.Qh, screen.Qh);
    EXPECT_EQ(s.Hubconstant, screen.Hubconstant);
    EXPECT_EQ(s.savedKompHub, screen.savedKompHub);
    EXPECT_NEAR(ws.cycle.Qh, before.Qh, 1e-9);
    EXPECT_NEAR(ws.cycle.Q0, before.Q0, 1e-6);
    EXPECT_NEAR(ws.cycle.pShaft, before.pShaft, 1e-6);
    EXPECT_EQ(ws.cycle.tEvapK, before.tEvapK);
    EXPECT_EQ(ws.cycle.lineRow, before.lineRow);

    // Twelve blocks of a month row and 24 hour rows.
    const Rows t = Table();
    ASSERT_EQ(t.size(), 12u * 25);
    double energy = 0;
    for (int m = 0; m < 12; ++m) {
        const auto& month = t[static_cast<std::size_t>(25 * m)];
        ASSERT_EQ(month.size(), 6u);
        for (int h = 1; h <= 24; ++h) {
            const auto& row = t[static_cast<std::size_t>(25 * m + h)];
            ASSERT_EQ(row.size(), 9u);
            EXPECT_EQ(row[0], "h" + std::to_string(h));
            if (row[2] == "  -- ") {
                EXPECT_EQ(row[3] + row[4] + row[5] + row[6] + row[8], "");
                EXPECT_EQ(row[7], " -");
            } else {
                energy += N(row[5]);
            }
        }
    }
    EXPECT_NEAR(energy, r.energyTotal, 288 * 0.006);
}

TEST_F(AnnualRun, FebruaryCountsTwentyEightDaysAndNightsTakeTheSetback) {
    OpenSample("AirWater_R290.prj");
    FlatYear(0, 0, 20, 17);  // every hour alike but for the room temperature
    const kv::SeasonalResult r = kv::RechKern(ws, s);
    ASSERT_TRUE(r.ran);
    EXPECT_NEAR(r.heatingHours, 24 * 364.93, 1e-6);
    const Rows t = Table();
    for (int h = 1; h <= 24; ++h) {
        const auto& jan = t[static_cast<std::size_t>(h)];
        const auto& feb = t[static_cast<std::size_t>(25 + h)];
        EXPECT_NEAR(N(jan[4]), N(feb[4]), 0.011) << h;  // the same power
        EXPECT_NEAR(N(feb[5]) / N(jan[5]), 28 / 30.63, 0.002) << h;
        // Hours 23 to 5 heat to the night temperature, 6 to 22 to the day's.
        EXPECT_EQ(jan[6], t[h < 6 || h >= 23 ? 23 : 6][6]) << h;
    }
    EXPECT_LT(N(t[5][6]), N(t[6][6]));
}

// The CO2 sample's year: the compressor model puts the mild hours far above
// the Carnot EER (COP up to 22); the year counts them so the engineer is told.
TEST_F(AnnualRun, HoursAboveCarnotAreCounted) {
    OpenSample("Transcritical_CO2.prj");
    const kv::SeasonalResult co2 = kv::RechKern(ws, s);
    ASSERT_TRUE(co2.ran);
    EXPECT_NEAR(co2.scop, 6.46, 0.005);
    EXPECT_NEAR(co2.copMax, 22.17, 0.005);
    EXPECT_NEAR(co2.hoursAboveCarnot, 551, 0.5);
    OpenSample("AirWater_R290.prj");
    EXPECT_EQ(kv::RechKern(ws, s).hoursAboveCarnot, 0);
}

TEST_F(AnnualRun, BrineSourceCoolsOverTheWinter) {
    OpenSample("Brine_R410A.prj");
    const kv::SeasonalResult r = kv::RechKern(ws, s);
    ASSERT_TRUE(r.ran);
    EXPECT_GT(r.scop, 3.5);
    EXPECT_LT(r.scop, 6);
    const Rows t = Table();
    const double design = ws.cycle.tEvapK - 273.15;
    EXPECT_NEAR(N(t[1][2]), design - 3.9, 0.011);       // January
    EXPECT_NEAR(N(t[25 * 9 + 1][2]), design - 1.2, 0.011);  // October
}

TEST_F(AnnualRun, MissingDamagedOrSummerProfile) {
    OpenSample("AirWater_R290.prj");
    const std::string good = Get(kv::kProfileFile);
    std::filesystem::remove(ws.DataDir() / kv::kProfileFile);
    const double q0 = ws.cycle.Q0;
    messages.clear();
    EXPECT_FALSE(kv::RechKern(ws, s).ran);
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(ws.DataDir() / kv::kSeasonFile));
    EXPECT_EQ(ws.cycle.Q0, q0);

    for (const std::string& damaged : kvtest::DamagedContents(good)) {
        Put(kv::kProfileFile, damaged);
        const kv::SeasonalResult r = kv::RechKern(ws, s);
        EXPECT_TRUE(std::isfinite(r.scop) && std::isfinite(r.energyTotal));
        EXPECT_NEAR(ws.cycle.Q0, q0, 1e-6);
    }
    // Cut off in June: the months after it repeat the last one read.
    Put(kv::kProfileFile, good.substr(0, good.find("\"June\"")));
    ASSERT_TRUE(kv::RechKern(ws, s).ran);
    const Rows t = Table();
    EXPECT_EQ(t[25 * 11], t[25 * 4]);

    messages.clear();
    FlatYear(25, 20, 20, 18);
    const kv::SeasonalResult summer = kv::RechKern(ws, s);
    EXPECT_TRUE(summer.ran);
    EXPECT_EQ(summer.scop, 0);
    EXPECT_EQ(messages.size(), 1u);  // no heating hour in the whole year
}

}  // namespace
