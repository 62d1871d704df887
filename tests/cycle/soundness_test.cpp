// Physical soundness of the cycle over every refrigerant of the registry, the
// samples' figures pinned, and the faults that once gave wrong figures.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <set>

#include "cycle/diagram.h"
#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "lines/line_data.h"
#include "lines/pipe_series.h"
#include "project/box_meaning.h"
#include "project/data_screen.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "refrigerant/state_points.h"
#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "shell/text.h"
#include "sample_fixture.h"
#include "workspace_fixture.h"

namespace {

class Soundness : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    void Open(const std::string& name) { ASSERT_TRUE(kvtest::OpenSampleScheme(ws, s, name)); }
    bool HasNote(const std::string& word) const {
        for (const std::string& n : s.notes)
            if (n.find(word) != std::string::npos) return true;
        return false;
    }
    kv::SchemeScreen s;
};

// Every fluid with a table: pressure rising, liquid denser than vapour, latent
// heat positive and falling toward the critical point; and the plant on it.
TEST_F(Soundness, EveryRefrigerantOfTheRegistry) {
    Open("AirWater_R290.prj");
    std::set<std::string> files;
    for (const std::string& name : kv::RefrigerantListFull()) {
        const auto info = kv::LookupRefrigerantTable(name);
        if (!info || info->rowHint == 0 || !files.insert(kv::UpperAscii(info->file)).second) continue;
        const kv::SaturationTable& t = ws.properties.Saturation(ws.DataDir(), info->file);
        if (!t.present) continue;
        SCOPED_TRACE(name + " " + info->file);
        double lastLatent = 1e9;
        for (std::size_t i = 0; i < t.rows.size(); ++i) {
            const kv::SatRow& r = t.rows[i];
            if (i > 0) {
                EXPECT_GT(r.pDew, t.rows[i - 1].pDew) << r.t;
            }
            EXPECT_GT(r.rhoLiq, r.rhoVap) << r.t;
            const double latent = r.hVap - r.hLiq;
            EXPECT_GT(latent, 0) << r.t;
            EXPECT_LT(latent, lastLatent + 0.5) << r.t;  // half a kJ/kg of table noise
            lastLatent = latent;
        }
        // The whole plant on this fluid, between its limits: discharge above
        // condensing (or the engineer told: R124's kappa of 1.09
        // puts it 0.04 K below), and Q0 + P = Qh within what the line losses
        // add to the power after Q0 is fixed (up to 2.8 %, R471A).
        const kv::NormalizedName limits = kv::NormalizeName(name);
        const double t0 = std::max(limits.tmin.value_or(-60) + 10.0, -10.0);
        const double tc = std::min({limits.tmax - 5.0, 40.0, t.rows.back().t - 273.15 - 10});
        if (tc < t0 + 15) continue;
        ws.cycle = kv::CycleState{};
        kv::OpenSchemeScreen(ws, s);
        s.KaelteMBox = name;
        ASSERT_TRUE(kv::ChangeRefrigerant(ws, s));
        s.t0 = kv::NumberText(t0);
        s.Tc = kv::NumberText(tc);
        if (!kv::CalculateCycle(ws, s, kv::Recalculate)) {
            ADD_FAILURE() << (messages.empty() ? "" : messages.back().text);
            continue;
        }
        const kv::CycleState& c = ws.cycle;
        EXPECT_TRUE(c.tDischargeC > tc || HasNote("t2")) << c.tDischargeC;
        EXPECT_GE((c.Q0 + c.pShaft) / c.Qh, 1);
        EXPECT_LT((c.Q0 + c.pShaft) / c.Qh, 1.03);
    }
}

// Figures of the factory samples, each in a workspace of its own, and the
// balance Q0 + P = Qh within the line losses the calculation books.
struct Pinned {
    const char* sample;
    double q0, p, cop, t2;
};
TEST_F(Soundness, SampleFiguresArePinned) {
    const Pinned pinned[] = {
        {"AirWater_R290.prj", 7.7164, 2.4142, 4.20, 63.09},   {"Brine_R410A.prj", 13.1072, 3.0492, 5.30, 72.33},
        {"Chiller_NH3.prj", 196.2254, 54.4142, 4.61, 143.85}, {"Inch_R404A.prj", 12.1258, 8.0972, 2.50, 75.95},
        {"Transcritical_CO2.prj", 23.5296, 6.9675, 4.38, 79.50}, {"Economizer_R134a.prj", 43.6343, 21.3191, 3.05, 71.07},
    };
    for (const Pinned& x : pinned) {
        SCOPED_TRACE(x.sample);
        kvtest::WorkspaceTest::TearDown();
        SetUp();
        Open(x.sample);
        ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
        const kv::CycleState& c = ws.cycle;
        EXPECT_NEAR(c.Q0, x.q0, 5e-4);
        EXPECT_NEAR(c.pShaft, x.p, 5e-4);
        EXPECT_NEAR(c.cop, x.cop, 1e-9);
        EXPECT_NEAR(c.tDischargeC, x.t2, 5e-3);
        // The economizer's two stages with the side stream draw more than the
        // single-stage estimate that fixes Q0: 9 % over Qh, kept as the
        // calculation has it; the single-stage plants stay within 2 %.
        const double balance = (c.Q0 + c.pShaft - c.Qh) / c.Qh;
        EXPECT_GE(balance, 0);
        EXPECT_LT(balance, ws.project.EcoFlag == 1 ? 0.09 : 0.02);
        EXPECT_EQ(HasNote("Q0 + P"), ws.project.EcoFlag == 1);
        // CO2's injection line is the one the Chisholm limit of 0.95 lifts.
        EXPECT_EQ(HasNote("Chisholm"), kv::IsCo2(ws.project.KaelteM));
    }
}

// The same project gives the same figures whatever language the program
// speaks: the compressor box text is matched through every caption table.
TEST_F(Soundness, FiguresDoNotDependOnTheLanguage) {
    for (const char* language : {"ENG", "GER", "RUS", "ARA"}) {
        SCOPED_TRACE(language);
        ASSERT_TRUE(kv::ChangeLanguage(ws, language));
        ws.cycle = kv::CycleState{};
        Open("AirWater_R290.prj");
        ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
        EXPECT_EQ(ws.project.VerdArt, 3);
        EXPECT_EQ(ws.project.KondArt, 3);
        EXPECT_NEAR(ws.cycle.pShaft, 2.4142, 5e-4);
        EXPECT_NEAR(ws.cycle.requiredSweptVolume, 14.578, 5e-3);
    }
    // A German text read in English keeps its meaning.
    ASSERT_TRUE(kv::ChangeLanguage(ws, "ENG"));
    EXPECT_EQ(kv::BoxTextInCurrentLanguage(ws, kv::BoxKind::Compressor, "Vollhermetisch - Scroll"), "Hermetic - Scroll");
    EXPECT_EQ(kv::BoxEntryOf(ws, kv::BoxKind::Compressor, "Schraube"), 3);  // a bare principle of an old file
    EXPECT_EQ(kv::BoxEntryOf(ws, kv::BoxKind::Compressor, "no such machine"), -1);
}

// Transcritical CO2 at 80 to 110 bar, gas cooler exit 35 °C, t0 -5 °C. The
// gas cooler exit enthalpy is CoolProp's h3 of reference_cycles.csv; the
// power comes from the discharge temperature of the compressor model, whose
// calibration puts it below the isentropic one (80 to 108 °C in CoolProp),
// so the power falls as the pressure rises. Pinned as the model gives them.
TEST_F(Soundness, TranscriticalCo2From80To110Bar) {
    const struct {
        double p, h3, q0, power, t2;
    } cases[] = {{80, 352.291, 21.939, 8.491, 68.92},
                 {90, 299.043, 25.172, 5.483, 73.08},
                 {100, 289.518, 26.394, 3.959, 75.86},
                 {110, 283.945, 27.776, 2.590, 77.58}};
    for (const auto& x : cases) {
        SCOPED_TRACE(x.p);
        ws.cycle = kv::CycleState{};
        Open("Transcritical_CO2.prj");
        ws.project.P_gasK = kv::NumberText(x.p);
        s.Tc = "35";
        s.t0 = "-5";
        ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
        const kv::CycleState& c = ws.cycle;
        EXPECT_DOUBLE_EQ(c.pCond, x.p);
        EXPECT_NEAR(c.hLiqCond, x.h3, 0.01);
        EXPECT_NEAR(c.Q0, x.q0, 2e-3);
        EXPECT_NEAR(c.pShaft, x.power, 2e-3);
        EXPECT_NEAR(c.tDischargeC, x.t2, 0.01);
        // Above the Carnot EER (6.70 between -5 and 35 °C) the engineer is told.
        EXPECT_EQ(HasNote("Carnot"), c.eer > 268.15 / 40);
    }
}

TEST_F(Soundness, FaultsThatGaveWrongFigures) {
    // Cut carries no binary noise.
    EXPECT_DOUBLE_EQ(kv::Cut(0.29, 2), 0.29);
    EXPECT_DOUBLE_EQ(kv::Cut(-2.999, 1), -2.9);
    EXPECT_DOUBLE_EQ(kv::Cut(1234.5678, 2), 1234.56);

    // A pressure above the table's last row is the last row's temperature,
    // never one further down.
    Open("Inch_R404A.prj");
    const double t60 = kv::TemperatureOfPressure(ws, 60), t45 = kv::TemperatureOfPressure(ws, 45);
    EXPECT_EQ(t60, t45);
    EXPECT_GE(t45, kv::TemperatureOfPressure(ws, 30));

    // The sizing question comes once per opening of the screen.
    ASSERT_TRUE(kv::WriteLineSizes(ws, kv::LineSizes{{0, 3, 6, 5, 4, 4}}));
    answer = true;
    ASSERT_TRUE(kv::CalculateButton(ws, s));
    ASSERT_TRUE(kv::CalculateButton(ws, s));
    EXPECT_EQ(questions.size(), 1u);
    // Three times the capacity: the lines are sized anew, no old size and its
    // loss stay behind.
    const int suctionRow = ws.cycle.lineRow[kv::Suction];
    s.Qh = kv::NumberText(3 * kv::ToNumber(s.Qh).value);
    ASSERT_TRUE(kv::CalculateButton(ws, s));
    EXPECT_EQ(questions.size(), 1u);
    EXPECT_GT(ws.cycle.lineRow[kv::Suction], suctionRow);
    EXPECT_FALSE(ws.cycle.lineLossRed[kv::Suction]);

    // A suction line that loses more than the evaporating pressure stops the
    // run with a message; no NaN reaches the power.
    messages.clear();
    EXPECT_FALSE(kv::MoveLineScrollbar(ws, s, kv::Suction, 1));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("Suction line"), std::string::npos);
    EXPECT_FALSE(ws.cycle.valid);
}

// The diagram of a calculated plant: CO2 on its own gas cooler pressure, the
// economizer plant with both stages and its side stream.
TEST_F(Soundness, DiagramDrawsThePlantAsCalculated) {
    Open("Transcritical_CO2.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
    kv::DiagramWindow w = kv::OpenDiagramWindow(ws);
    kv::Play_DiaG(ws, w);
    EXPECT_EQ(w[kv::TrimField::GasCoolerPressure].text, "85");
    EXPECT_DOUBLE_EQ(w.cycle.pCond, 85);

    Open("Economizer_R134a.prj");
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
    const double pm = ws.cycle.pIntermediate;
    w = kv::OpenDiagramWindow(ws);
    kv::Play_DiaG(ws, w);
    const kv::DiagramCycle& c = w.cycle;
    ASSERT_EQ(c.corners.size(), 11u);
    EXPECT_NEAR(c.corners[4].p, pm, 1e-9);  // low stage ends at the intermediate level
    EXPECT_NEAR(c.corners[5].p, pm, 1e-9);  // where the side stream's vapour mixes in
    EXPECT_LT(c.corners[5].h, c.corners[4].h);
    EXPECT_LT(c.corners[0].h, c.corners[9].h);  // the economizer subcools the main liquid
    ASSERT_EQ(c.sideStream.size(), 3u);
    EXPECT_NEAR(c.sideStream[1].p, pm, 1e-9);
}

TEST_F(Soundness, PipeSeriesShownIsTheOneHeld) {
    Open("Brine_R410A.prj");
    EXPECT_EQ(kv::PipeSeriesText(ws, "RohrK65.DAT"), "K65 pipe");
    EXPECT_EQ(kv::PipeSeriesFile(ws, "K65 pipe"), "RohrK65.DAT");
    EXPECT_EQ(kv::PipeSeriesList(ws).size(), 4u);
    kv::DataScreen data;
    ws.project.RohrDatei.clear();  // a new project without a series
    kv::OpenDataScreen(ws, data);
    EXPECT_EQ(data.RLcombo, "");
    kv::OpenSchemeScreen(ws, s);
    messages.clear();
    EXPECT_FALSE(kv::CalculateCycle(ws, s, kv::Recalculate));
    ASSERT_EQ(messages.size(), 1u);

    // Copper under a transcritical CO2 plant: rated below 85 bar, red with a message.
    Open("Transcritical_CO2.prj");
    kv::ChangePipeStandard(ws, s, kv::PipeSeriesText(ws, "RohrDM.DAT"));
    messages.clear();
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::FirstCalculation));
    auto redLines = [this] {
        int n = 0;
        for (const kv::LineGroup& g : s.lines) n += g.diameterRed ? 1 : 0;
        return n;
    };
    EXPECT_GT(redLines(), 0);
    EXPECT_EQ(messages.size(), static_cast<std::size_t>(redLines()));
    kv::ChangePipeStandard(ws, s, kv::PipeSeriesText(ws, "RohrK65.DAT"));
    ASSERT_TRUE(kv::CalculateCycle(ws, s, kv::Recalculate));
    EXPECT_EQ(redLines(), 0);
}

}  // namespace
