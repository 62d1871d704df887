#include <gtest/gtest.h>

#include <algorithm>

#include "refrigerant/refrigerant_window.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "shell/text.h"
#include "workspace_fixture.h"

namespace {

class RefrigerantWindow : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
    kv::FluidSummary Fluid(const std::string& name) {
        for (const kv::FluidSummary& f : kv::RefrigerantWindowFluids())
            if (f.name == name) return f;
        ADD_FAILURE() << name << " not listed";
        return {};
    }
};

TEST_F(RefrigerantWindow, ListsFluidsWithGroupAndLimits) {
    EXPECT_EQ(kv::SafetyGroup(" r717"), "B2L");
    EXPECT_EQ(kv::SafetyGroup("R32"), "A2L");
    EXPECT_EQ(kv::SafetyGroup("R290"), "A3");
    EXPECT_EQ(kv::SafetyGroup("nothing"), "");
    const kv::FluidSummary r134a = Fluid("R134a");
    EXPECT_EQ(r134a.safetyGroup, "A1");
    EXPECT_EQ(r134a.gwp, 1430);
    EXPECT_FALSE(r134a.tableFile.empty());
    EXPECT_GT(kv::RefrigerantWindowFluids().size(), 40u);
}

TEST_F(RefrigerantWindow, SaturationTableMatchesKnownFiguresAndExports) {
    const std::vector<kv::SaturationLine> lines = kv::SaturationLines(ws, Fluid("R134a"));
    ASSERT_GT(lines.size(), 20u);
    // R134a at 0 °C: 2.93 bar, latent heat 198.6 kJ/kg (CoolProp).
    const auto at0 = std::find_if(lines.begin(), lines.end(), [](const auto& l) { return std::abs(l.t) < 0.01; });
    ASSERT_NE(at0, lines.end());
    EXPECT_NEAR(at0->pDew, 2.93, 0.03);
    EXPECT_NEAR(at0->latent, 198.6, 1.5);
    EXPECT_GT(at0->rhoLiq, at0->rhoVap);

    const auto file = root / "r134a.csv";
    ASSERT_TRUE(kv::ExportSaturationCsv(lines, file));
    const std::string csv = kv::ReadWholeFile(file);
    const std::vector<std::string> rows = kv::SplitJoined(csv, "\r\n");
    ASSERT_EQ(rows.size(), lines.size() + 2);  // header, rows, empty tail
    EXPECT_EQ(rows[0].rfind("t [C],p dew [bar]", 0), 0u);
    EXPECT_EQ(std::count(rows[1].begin(), rows[1].end(), ','), 7);
    EXPECT_TRUE(kv::SaturationLines(ws, kv::FluidSummary{}).empty());
}

// Curves stay inside the frame, pressures drawn on a log scale; no table,
// no curve.
TEST_F(RefrigerantWindow, ViewsDrawTheCurvesInsideTheFrame) {
    const std::vector<kv::SaturationLine> lines = kv::SaturationLines(ws, Fluid("R134a"));
    for (const kv::DrawingList& d : {kv::VapourPressureView("R134a", lines), kv::DomeView("R134a", lines)}) {
        int curves = 0;
        for (const kv::DrawItem& item : d.items)
            if (const auto* p = std::get_if<kv::DrawPolyline>(&item)) {
                ++curves;
                for (const kv::DrawPoint& pt : p->points) {
                    EXPECT_GE(pt.x, 0.0);
                    EXPECT_LE(pt.x, d.width);
                    EXPECT_GE(pt.y, 0.0);
                    EXPECT_LE(pt.y, d.height);
                }
            }
        EXPECT_GE(curves, 1);
    }
    const kv::DrawingList none = kv::DomeView("X", {});
    EXPECT_TRUE(std::none_of(none.items.begin(), none.items.end(),
                             [](const kv::DrawItem& i) { return std::holds_alternative<kv::DrawPolyline>(i); }));
}

}  // namespace
