#include <gtest/gtest.h>

#include <cmath>

#include "refrigerant/registry.h"
#include "refrigerant/state_points.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

class StatePoints : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::InstallFactoryData(ws);
        ws.project.VerdArt = 2;
        ws.project.KondArt = 1;
    }
    bool Run(const char* fluid, double t0, double tc, double tSuction, double& subcooling) {
        ws.project.KaelteM = fluid;
        kv::NormalizeRefrigerantName(ws.project);
        return kv::CycleStatePoints(ws, t0, tc, tSuction, subcooling);
    }
};

TEST_F(StatePoints, R134aCycleAgreesWithThePropertyTables) {
    double sc = 3;
    ASSERT_TRUE(Run("R134a", -10, 45, 0, sc));
    const kv::CycleState& c = ws.cycle;
    EXPECT_DOUBLE_EQ(c.tEvapK, 263.15);
    EXPECT_NEAR(c.pEvap, 2.006, 0.005);   // R134a at -10 °C
    EXPECT_NEAR(c.pCond, 11.60, 0.02);    // R134a at 45 °C
    EXPECT_NEAR(c.hVapEvap, 392.7, 0.5);
    EXPECT_NEAR(c.hLiqCond, 264.1, 0.5);
    EXPECT_NEAR(c.rhoSuction, c.rhoVapEvap * 263.15 / 273.15, 1e-9);
    EXPECT_NEAR(c.cpLiquid, 1.5, 0.1);    // kJ/(kg K) of the liquid near 42 °C
    EXPECT_NEAR(c.dpdtEvap, 0.0855, 0.002);  // bar/K at -10 °C
    EXPECT_GT(c.dpdtRatio, 3);
    EXPECT_GT(c.kappa, 1.0);
    EXPECT_LT(c.kappa, 1.3);
    EXPECT_GT(c.tDischargeC, 45);
    EXPECT_LT(c.tDischargeC, 100);
    EXPECT_EQ(sc, 3);  // only CO2 sets the subcooling
    EXPECT_EQ(c.pEvap, c.pEvapBubble);
}

TEST_F(StatePoints, BlendWithGlideTakesTheMeanPressures) {
    double sc = 2;
    ASSERT_TRUE(Run("R407C", -10, 45, 0, sc));
    const kv::CycleState& c = ws.cycle;
    EXPECT_GT(c.pEvapBubble, 0);
    // The evaporating pressure lies between dew and bubble pressure.
    ASSERT_TRUE(kv::CycleStatePoints(ws, -10, 45, 0, sc));
    EXPECT_GT(c.pEvap, 3.0);
    EXPECT_LT(c.pEvap, c.pEvapBubble);
    EXPECT_GT(c.pCond, 17.0);
    EXPECT_LT(c.pCond, 20.0);
    EXPECT_TRUE(std::isfinite(c.dpdtEvap) && c.dpdtEvap > 0);
}

TEST_F(StatePoints, Co2AboveTheCriticalPointIsTranscritical) {
    double sc = 5;
    ASSERT_TRUE(Run("R744", -10, 30.5, 0, sc));
    const kv::CycleState& c = ws.cycle;
    EXPECT_DOUBLE_EQ(c.tCondK, 304.15);  // 30.5 °C is calculated as 31 °C
    EXPECT_EQ(c.pTranscritical, 95);      // the empty high-side pressure
    EXPECT_EQ(c.pCond, 95);
    EXPECT_EQ(sc, 0);
    EXPECT_GT(c.hTranscritical, 0);
    EXPECT_GT(c.rhoDischarge, 0);
    EXPECT_NEAR(c.pEvap, 26.5, 0.2);      // CO2 at -10 °C

    ws.cycle = kv::CycleState{};
    sc = 5;
    ASSERT_TRUE(Run("CO2", -10, 20, 0, sc));
    EXPECT_EQ(sc, 3);  // subcritical
    EXPECT_NEAR(ws.cycle.pCond, 57.3, 0.3);
}

TEST_F(StatePoints, MissingTableIsReported) {
    double sc = 0;
    EXPECT_FALSE(Run("R999", -10, 40, 0, sc));
    EXPECT_FALSE(Run("R407B", -10, 40, 0, sc));
}

TEST(CompressorModel, MotorLossesAndVolumetricEfficiency) {
    EXPECT_DOUBLE_EQ(kv::MotorLossFactor(1, 10), 1 / (0.935 - 1 / 450.0));
    EXPECT_DOUBLE_EQ(kv::MotorLossFactor(7, 10), 1 / (0.905 - 1 / 170.0));
    EXPECT_EQ(kv::MotorLossFactor(2, 0.01), 1.52);  // a tiny power hits the cap
    EXPECT_EQ(kv::MotorLossFactor(3, 0.0), 1.52);

    kv::Workspace ws;
    ws.project.KaelteM = "R134a";
    ws.project.KondArt = 2;
    ws.project.VerdArt = 2;
    const double at6 = kv::VolumetricEfficiency(ws, 12, 0, 2, 0, 6);
    const double pi = 6.0;
    const double a = 0.855;
    EXPECT_NEAR(at6, (1 + ((4.85 - pi) / 4.85) / 85) * a * (1 - 1 / 52.0) * 1.02, 1e-12);  // V = 6: factor 1
    const double at0 = kv::VolumetricEfficiency(ws, 12, 0, 2, 0, 0);
    EXPECT_NEAR(at0, (1 + ((4.85 - pi) / 4.85) / 85) * a * 0.9 * 1.02 * 0.892, 1e-12);
    ws.project.KaelteM = "R744";
    EXPECT_NEAR(kv::VolumetricEfficiency(ws, 12, 0, 2, 0, 6), at6 * 0.88, 1e-12);
    // Line losses raise the pressure ratio and lower lambda.
    EXPECT_LT(kv::VolumetricEfficiency(ws, 12, 300, 2, 200, 6), kv::VolumetricEfficiency(ws, 12, 0, 2, 0, 6));
}

TEST_F(StatePoints, PowerMassFlowAndTheSecondPass) {
    double sc = 3;
    ASSERT_TRUE(Run("R134a", -10, 45, 0, sc));
    kv::CycleState& c = ws.cycle;
    c.superheatEvap = 5;
    const double m = kv::MassFlow(ws, 0.5, 10);
    EXPECT_NEAR(m, 10 / (c.hVapEvap + 5 * c.cpVapEvap - (c.hLiqCond - c.cpLiquid * 3)), 1e-12);
    EXPECT_NEAR(m, 0.075, 0.01);  // 10 kW of R134a between -10 and 45 °C
    EXPECT_EQ(kv::MassFlow(ws, 0.5, 0), 0.5);

    const double p = kv::CompressionPower(
        ws, {.pLow = c.pEvap, .pHigh = c.pCond, .tLowK = c.tEvapK, .tHighK = c.tCondK, .massFlow = m,
             .hHighVap = c.hVapCond, .hLowVap = c.hVapEvap});
    EXPECT_EQ(p, c.pShaft);
    EXPECT_GT(p, 2.5);  // COP of such a cycle lies near 3
    EXPECT_LT(p, 5.0);
    EXPECT_GT(c.qDesuperheat, 0);
    EXPECT_GT(c.etaIsRatio, 0);

    // A negative first power goes on with 10 kW in the second pass.
    const double e = kv::CompressionPower(
        ws, {.pLow = c.pEvap, .pHigh = c.pCond, .tLowK = c.tEvapK, .tHighK = c.tCondK, .massFlow = -0.05,
             .hHighVap = c.hVapCond, .hLowVap = c.hVapEvap, .tDischargeC = 70, .mode = 1});
    EXPECT_NEAR(e, c.pShaft * 0.93 * kv::MotorLossFactor(2, 10) / 0.9, 1e-9);
}

}  // namespace
