#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <fstream>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "lines/line_data.h"
#include "lines/pipe_table.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/files.h"
#include "refrigerant/property_tables.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "sample_fixture.h"
#include "workspace_fixture.h"

namespace fs = std::filesystem;

namespace {

class Kernel : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    // Loads a factory sample and brings it to the plant scheme screen.
    void OpenSample(const std::string& name) { ASSERT_TRUE(kvtest::OpenSampleScheme(ws, s, name)); }
    kv::SchemeScreen s;
};

TEST_F(Kernel, EverySampleCalculatesWithSoundFigures) {
    for (const auto& e : fs::directory_iterator(ws.DataDir() / "samples")) {
        if (e.path().extension() != ".prj") continue;
        SCOPED_TRACE(e.path().filename().string());
        ws.cycle = kv::CycleState{};
        OpenSample(e.path().filename().string());
        ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
        const kv::CycleState& c = ws.cycle;
        EXPECT_TRUE(c.valid);
        EXPECT_EQ(ws.project.CalcState, 1);
        EXPECT_GT(c.Q0, 0);
        EXPECT_LT(c.Q0, c.Qh);
        EXPECT_GT(c.pShaft, 0);
        EXPECT_GT(c.cop, 1.5);
        EXPECT_LT(c.cop, 7.0);
        EXPECT_GT(c.tDischargeC, kv::ToNumber(s.Tc).value);
        EXPECT_LT(c.tDischargeC, 160);
        EXPECT_GT(c.requiredSweptVolume, 0);
        for (int line : {kv::Injection, kv::Suction, kv::Discharge, kv::Liquid})
            EXPECT_TRUE(ws.pipes.HasRow(c.lineRow[static_cast<std::size_t>(line)])) << "line " << line;
        EXPECT_NE(s.ElLeistVD_l.find("Qel="), std::string::npos);
        EXPECT_EQ(s.tEnd.substr(s.tEnd.size() - 4), " \u00b0C");
    }
}

// The tables are held in memory between calculations; a table changed on
// disk behind the program's back is still seen by the next calculation.
TEST_F(Kernel, ChangedTableOnDiskIsSeenByTheNextCalculation) {
    OpenSample("Brine_R410A.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    const double pEvap = ws.cycle.pEvap;
    const fs::path table = kv::ResolveName(ws, "R410A.DAT");
    std::string text = kv::ReadWholeFile(table);
    ASSERT_FALSE(text.empty());
    // Every pressure of the table a tenth higher: the evaporating pressure follows.
    kv::SaturationTable parsed = kv::ParseSaturationTable(text, "R410A.DAT");
    std::string scaled;
    for (const kv::SatRow& r : parsed.rows)
        scaled += kv::NumberText(r.t) + "," + kv::NumberText(r.pDew * 1.1) + "," + kv::NumberText(r.pBubble * 1.1) +
                  "," + kv::NumberText(r.hLiq) + "," + kv::NumberText(r.hVap) + "," + kv::NumberText(r.rhoLiq) + "," +
                  kv::NumberText(r.rhoVap) + "\r\n";
    {
        std::ofstream out(table, std::ios::binary | std::ios::trunc);
        out << scaled;
    }
    // A later time of last write than the parsed copy's, whatever the clock's grain.
    fs::last_write_time(table, fs::last_write_time(table) + std::chrono::seconds(2));
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_NEAR(ws.cycle.pEvap, pEvap * 1.1, 1e-6 * pEvap);
}

TEST_F(Kernel, ReferenceCheckBesideTheRun) {
    OpenSample("AirWater_R290.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
    const kv::CycleState& c = ws.cycle;
    ASSERT_TRUE(c.reference.valid);
    EXPECT_DOUBLE_EQ(c.reference.etaIs, 0.7);
    EXPECT_NEAR(c.referenceDeviation, (c.eer + 1) / c.reference.copHeating * 100 - 100, 1e-9);
    EXPECT_GT(c.reference.t2C, kv::ToNumber(s.Tc).value);
    EXPECT_EQ(s.RefCOP, kv::CutText(c.reference.copHeating, 2));
    EXPECT_EQ(s.RefRed, std::fabs(c.referenceDeviation) > kv::kReferenceDeviationLimit);

    // A better compressor raises the reference COP.
    const double copAt07 = c.reference.copHeating;
    ws.settings.ReferenceEtaIs = 0.9;
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_GT(ws.cycle.reference.copHeating, copAt07);

    // The R410A sample strays by more than 15 %: red, with its tooltip.
    ws.settings.ReferenceEtaIs = 0.7;
    OpenSample("Brine_R410A.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
    EXPECT_GT(ws.cycle.referenceDeviation, kv::kReferenceDeviationLimit);
    EXPECT_TRUE(s.RefRed);
    EXPECT_EQ(s.RefTip, ws.captions[kv::Cap::ReferenceStrays]);

    // A fluid without a reference table: the run stands, the check is absent.
    ws.project.KaelteM = "R723";
    messages.clear();
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_FALSE(ws.cycle.reference.valid);
    EXPECT_TRUE(s.RefCOP.empty());
    EXPECT_FALSE(s.RefRed);
    EXPECT_TRUE(messages.empty());
}

TEST_F(Kernel, CapacitiesAndFiguresOfMerit) {
    EXPECT_DOUBLE_EQ(kv::RefrigeratingCapacity(100, 3), 75);
    ws.cycle.Q0 = 30;
    kv::AnnualFigures(ws, s, 10);
    EXPECT_DOUBLE_EQ(ws.cycle.eer, 3);
    EXPECT_DOUBLE_EQ(ws.cycle.cop, 4);
    EXPECT_EQ(s.BetrKo, "6570");        // 10 kW x 12 h x 0.5 x 0.30 x 365 d
    EXPECT_EQ(s.CO2consum, "15.3");     // x 0.7 kg/kWh, cut to 0.1 t
    EXPECT_EQ(kv::CutText(0.29, 2), "0.29");
    EXPECT_EQ(kv::CutText(-2.999, 1), "-2.9");
}

TEST_F(Kernel, KeptSweptVolumeOfZeroSkipsItsBranch) {
    OpenSample("Brine_R410A.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    const double free = ws.cycle.Q0;
    s.Hubconstant = true;
    s.savedKompHub = 0;
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_NEAR(ws.cycle.Q0, free, 1e-9);

    // Kept at the volume it demanded, the capacity follows from it.
    kv::SetHubconstant(ws, s, true);
    const double volume = s.savedKompHub;
    ASSERT_GT(volume, 0);
    s.savedKompHub = volume * 1.5;
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_GT(ws.cycle.Q0, free * 1.2);
}

TEST_F(Kernel, LongSuctionLineEndsOnTheLargestSizeInRed) {
    OpenSample("AirWater_R290.prj");
    ws.project.Geometr.Cell(2, 1) = "1000000";  // far beyond what the largest size carries
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_EQ(ws.cycle.lineRow[kv::Suction], ws.pipes.PipeRowCount);
    EXPECT_TRUE(ws.cycle.lineLossRed[kv::Suction]);
    EXPECT_TRUE(s.lines[kv::Suction].lossRed);
}

TEST_F(Kernel, AnnualHourTakesItsEvaporatingTemperatureAndKeepsQh) {
    OpenSample("AirWater_R290.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    ws.cycle.Qh = 7.5;
    s.Qh = "99";
    ws.project.HourlyEvaporatingTemp = -12;
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::AnnualHour));
    EXPECT_EQ(s.t0, "-12");
    EXPECT_EQ(ws.cycle.Qh, 7.5);
    EXPECT_NEAR(ws.cycle.tEvapK, 261.15, 1e-9);
}

TEST_F(Kernel, MissingAuxiliaryFileIsWrittenFirst) {
    OpenSample("Brine_R410A.prj");
    fs::remove(ws.DataDir() / "SubAct.dat");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_GT(kv::FileLength(ws, "SubAct.dat"), 0u);
}

TEST_F(Kernel, EconomizerPath) {
    OpenSample("Economizer_R134a.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    const kv::CycleState& c = ws.cycle;
    EXPECT_NEAR(c.pIntermediate, std::pow(c.pCond * c.pEvap, 0.45), 1e-9);
    EXPECT_GT(c.tIntermediate, ws.project.TverK - 273.15);
    EXPECT_GT(c.ecoMass, 0);
    EXPECT_LT(c.ecoFactor, 1);
    EXPECT_FALSE(s.ECOWTPN.empty());
    EXPECT_TRUE(ws.pipes.HasRow(c.lineRow[kv::EconomizerLiquid]));
    EXPECT_TRUE(ws.pipes.HasRow(c.lineRow[kv::HotGasBypass]));

    kv::SetEcoCheck(ws, s, false);
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_EQ(ws.cycle.ecoFactor, 1);
    EXPECT_TRUE(s.ECOWTPN.empty());
}

TEST_F(Kernel, SchemeEntriesAndScrollbars) {
    OpenSample("Inch_R404A.prj");
    // A scrollbar before the first calculation does nothing.
    EXPECT_FALSE(kv::MoveLineScrollbar(ws, s, kv::Suction, 3));

    ASSERT_TRUE(kv::CalculateButton(ws, s));
    const double q0 = ws.cycle.Q0;
    s.t0 = "-80";  // below tmin of R404A
    EXPECT_FALSE(kv::EnterEvaporatingTemperature(ws, s));
    EXPECT_EQ(ws.cycle.Q0, q0);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("tmin = -60"), std::string::npos);
    s.t0 = "32";
    s.Tc = "32";  // equal: the button runs, and the run reports that it has no figures
    messages.clear();
    EXPECT_FALSE(kv::CalculateButton(ws, s));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].text.find("Calculate: "), 0u) << messages[0].text;
    EXPECT_FALSE(ws.cycle.valid);
    EXPECT_EQ(ws.project.CalcState, 1);
    s.t0 = "-22";

    // The suction line one size up: less loss, and the row stays.
    ASSERT_TRUE(kv::CalculateButton(ws, s));
    const int row = ws.cycle.lineRow[kv::Suction];
    const double loss = ws.cycle.lineLoss[kv::Suction];
    ASSERT_TRUE(kv::MoveLineScrollbar(ws, s, kv::Suction, row + 1));
    EXPECT_EQ(ws.cycle.lineRow[kv::Suction], row + 1);
    EXPECT_LT(ws.cycle.lineLoss[kv::Suction], loss);
    EXPECT_EQ(ws.cycle.lineRow[kv::Liquid], s.lines[kv::Liquid].row);

    // A pressure typed in gives its saturation temperature.
    s.po = "2,0349";
    kv::EnterEvaporatingPressure(ws, s);
    EXPECT_NEAR(kv::ToNumber(s.t0).value, -30, 0.6);
    EXPECT_EQ(s.p0psi.front(), '(');
}

}  // namespace
