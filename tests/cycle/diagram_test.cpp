#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <variant>
#include <vector>

#include "cycle/diagram.h"
#include "documents/drawing.h"
#include "refrigerant/registry.h"
#include "refrigerant/state_points.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

using kv::TrimField;
namespace dg = kv::diagram;

std::vector<kv::DrawText> TextsIn(const kv::DrawingList& d, kv::Rgb colour) {
    std::vector<kv::DrawText> out;
    for (const kv::DrawItem& item : d.items)
        if (const auto* t = std::get_if<kv::DrawText>(&item); t && t->colour == colour) out.push_back(*t);
    return out;
}

const kv::DrawText* FindText(const kv::DrawingList& d, const std::string& text) {
    for (const kv::DrawItem& item : d.items)
        if (const auto* t = std::get_if<kv::DrawText>(&item); t && t->text == text) return t;
    return nullptr;
}

// Every coordinate of the drawing is a number and lies on the picture.
void ExpectOnPicture(const kv::DrawingList& d) {
    const auto on = [&](const kv::DrawPoint& p) {
        EXPECT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
        EXPECT_GE(p.x, 0);
        EXPECT_LE(p.x, d.width);
        EXPECT_GE(p.y, 0);
        EXPECT_LE(p.y, d.height);
    };
    for (const kv::DrawItem& item : d.items) {
        if (const auto* l = std::get_if<kv::DrawLine>(&item)) on(l->from), on(l->to);
        else if (const auto* p = std::get_if<kv::DrawPolyline>(&item))
            for (const auto& pt : p->points) on(pt);
        else if (const auto* t = std::get_if<kv::DrawText>(&item)) on(t->at);
    }
}

class Diagram : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::InstallFactoryData(ws);
        ws.project.VerdArt = 2;
        ws.project.KondArt = 1;
    }
    // Opens the window for a fluid at t0 / tc and draws.
    kv::DrawingList Draw(const char* fluid, double t0, double tc) {
        ws.project.KaelteM = fluid;
        kv::NormalizeRefrigerantName(ws.project);
        ws.project.Tver = kv::NumberText(t0);
        ws.project.tko = kv::NumberText(tc);
        w = kv::OpenDiagramWindow(ws);
        return kv::Play_DiaG(ws, w);
    }
    const kv::SaturationTable& Table(const std::string& file) {
        return ws.properties.Saturation(ws.DataDir(), file);
    }
    kv::DiagramWindow w;
};

TEST(DiagramRules, TableFilesTickStepsAndGrids) {
    EXPECT_EQ(kv::DiagramTableFile("ISC_49"), "R413A.DAT");
    EXPECT_EQ(kv::DiagramTableFile("R403B"), "ISC_69L.DAT");
    EXPECT_EQ(kv::DiagramTableFile("R422D"), "ISC_29.DAT");
    EXPECT_EQ(kv::DiagramTableFile("R1270"), "PROPYLEN.DAT");
    EXPECT_EQ(kv::DiagramTableFile("METHAN"), "R50.dat");
    EXPECT_EQ(kv::DiagramTableFile("R134a"), "R134A.DAT");
    EXPECT_EQ(kv::DiagramTableFile("Frigen 99"), "");

    struct Case { const char* file; double step, pScale; int last; bool celsius; };
    for (const Case c : {Case{"R723.DAT", 200, 1, 9, false}, Case{"AMMONIAK.DAT", 200, 1, 9, false},
                         Case{"R290_600.DAT", 100, 1, 9, false}, Case{"PROPAN.DAT", 100, 1, 9, false},
                         Case{"PROPYLEN.DAT", 100, 1, 9, false}, Case{"CO2.DAT", 100, 1.5, 11, false},
                         Case{"R123.DAT", 50, 1, 9, true}, Case{"R134A.DAT", 50, 1, 9, false}}) {
        const kv::TickRule r = kv::DiagramTickRule(c.file);
        EXPECT_EQ(r.step, c.step) << c.file;
        EXPECT_EQ(r.pScale, c.pScale) << c.file;
        EXPECT_EQ(r.lastGridIndex, c.last) << c.file;
        EXPECT_EQ(r.celsius, c.celsius) << c.file;
    }
    EXPECT_EQ(kv::PressureGrid(9, false), (std::vector<double>{0.2, 0.5, 1, 2, 5, 10, 15, 20, 30, 50}));
    EXPECT_EQ(kv::PressureGrid(11, false).back(), 150);
    // The inch series has eleven values: index 11 stops at its end.
    EXPECT_EQ(kv::PressureGrid(11, true), (std::vector<double>{5, 10, 20, 30, 50, 100, 150, 200, 300, 400, 500}));
    EXPECT_TRUE(kv::AllRowsCount(" r744 "));
    EXPECT_FALSE(kv::AllRowsCount("R134a"));
}

TEST_F(Diagram, Co2ReachesOneAndAHalfTimesTheTableTopAndTheGridTo150Bar) {
    const kv::DrawingList d = Draw("R744", -10, 35);
    const kv::DiagramScales& s = w.scales;
    ASSERT_TRUE(s.valid);
    const auto& rows = Table("CO2.DAT").rows;
    EXPECT_EQ(s.tableFile, "CO2.DAT");
    EXPECT_EQ(s.pScale, 1.5);
    EXPECT_EQ(s.lastGridIndex, 11);
    EXPECT_EQ(s.step, 100);
    EXPECT_DOUBLE_EQ(s.pUpper, 1.5 * rows.back().pBubble);
    EXPECT_EQ(s.firstRowUsed, 0);  // all rows of CO2 count
    EXPECT_DOUBLE_EQ(s.pBottom, rows.front().pDew);
    EXPECT_DOUBLE_EQ(s.hMin, std::floor(rows.front().hLiq));
    // 100 bar lies inside the frame, 150 bar above it: not drawn.
    ASSERT_NE(FindText(d, "100"), nullptr);
    EXPECT_NEAR(FindText(d, "100")->at.y, s.Y(100), 1e-9);
    EXPECT_LT(s.Y(150), dg::kScaleTop);
    for (const kv::DrawText& t : TextsIn(d, kv::kBlack))
        EXPECT_NE(t.text, "150") << "the 150 bar line lies above the frame";
    // Tick labels under the axis in steps of 100 kJ/kg, the first one step
    // past the first tick.
    std::vector<double> ticks;
    for (const kv::DrawText& t : TextsIn(d, kv::kBlack))
        if (t.at.y == dg::kAxisY + 4) ticks.push_back(kv::ToNumber(t.text).value);
    ASSERT_GE(ticks.size(), 2u);
    EXPECT_EQ(ticks.front(), s.firstTick + s.step);
    EXPECT_EQ(ticks[1] - ticks[0], 100);
    // Above the critical point the cycle runs at the gas cooler pressure.
    EXPECT_TRUE(w.cycle.transcritical);
    EXPECT_DOUBLE_EQ(w.cycle.pCond, 95);
    ExpectOnPicture(d);
}

TEST_F(Diagram, TickStepsFollowTheTableFile) {
    for (const auto& [fluid, step] : {std::pair{"R717", 200.0}, std::pair{"R290", 100.0}, std::pair{"R134a", 50.0}}) {
        const kv::DrawingList d = Draw(fluid, -10, 40);
        const kv::DiagramScales& s = w.scales;
        ASSERT_TRUE(s.valid) << fluid;
        EXPECT_EQ(s.step, step) << fluid;
        EXPECT_DOUBLE_EQ(s.firstTick, s.hMin - std::fmod(s.hMin, step) + step);
        EXPECT_NEAR(s.tickUnits, dg::kScaleWidth * step / s.hSpan, 1e-12);
        // Marks run from the axis up 7 units, between the left axis and 600;
        // the labels stop short of the axis label at 580.
        int marks = 0, labels = 0;
        for (const kv::DrawItem& item : d.items) {
            const auto* l = std::get_if<kv::DrawLine>(&item);
            if (!l || l->from.y != dg::kAxisY || l->to.y != dg::kTickTop) continue;
            ++marks;
            EXPECT_GT(l->from.x, dg::kFrameLeft);
            EXPECT_LE(l->from.x, dg::kTickRight);
            const double h = s.hMin + (l->from.x - dg::kScaleLeft) * s.hSpan / dg::kScaleWidth;
            const kv::DrawText* label = FindText(d, kv::NumberText(std::round(h)));
            if (l->from.x < dg::kLabelRight) {
                ASSERT_NE(label, nullptr) << fluid << " " << h;
                EXPECT_EQ(std::fmod(std::round(h), step), 0.0);
                ++labels;
            }
        }
        EXPECT_GE(marks, 3) << fluid;
        EXPECT_GE(labels, 3) << fluid;
    }
}

TEST_F(Diagram, R123TemperaturesAreLabelledInDegreesC) {
    const kv::DrawingList d = Draw("R123", 5, 60);
    ASSERT_TRUE(w.scales.valid);
    EXPECT_TRUE(w.scales.celsiusTable);
    const auto labels = TextsIn(d, kv::PaletteColour(4));
    ASSERT_GE(labels.size(), 5u);
    const auto& rows = Table("R123.DAT").rows;
    for (const kv::DrawText& t : labels) {
        const double tC = kv::ToNumber(t.text).value;
        EXPECT_GE(tC, -65);
        EXPECT_LE(tC, 180);
        // The label stands beside the boiling line at its own temperature.
        const kv::SatRow* row = nullptr;
        for (const auto& r : rows)
            if (std::fabs(r.t - 273.15 - tC) < 1e-6) row = &r;
        ASSERT_NE(row, nullptr) << t.text;
        EXPECT_NEAR(t.at.y, w.scales.Y(row->pBubble), 1e-9);
        EXPECT_NEAR(w.scales.X(row->hLiq) - t.at.x, t.text.size() > 2 ? 28 : 16, 1e-9);
    }
    EXPECT_NE(FindText(d, "60"), nullptr);
    // The table's 50 rows are more than its hint of 27, but the skipped cold
    // end stops at the row 5 K below the evaporating level (0 °C, row 13),
    // so the level at 5 °C stays on the drawing.
    EXPECT_EQ(w.scales.firstRowUsed, 13);
    EXPECT_GT(w.scales.Y(w.cycle.pEvap), dg::kScaleTop);
    EXPECT_LT(w.scales.Y(w.cycle.pEvap), dg::kAxisY);
}

TEST_F(Diagram, ReadOutGivesTheSaturationStateOfTheHeight) {
    Draw("R134a", -10, 45);
    const kv::DiagramScales& s = w.scales;
    ASSERT_TRUE(s.valid);
    EXPECT_EQ(s.firstRowUsed, 34 - 28);  // the table's rows beyond its hint of 28 come off the cold end
    EXPECT_NEAR(kv::ReadOutAt(ws, w, 300, dg::kScaleTop).p, s.pUpper, 1e-9 * s.pUpper);
    EXPECT_NEAR(kv::ReadOutAt(ws, w, 300, dg::kAxisY).p, s.pBottom, 1e-9 * s.pBottom);

    // At -10 °C: inside the dome and left of it the same figures; the panel
    // follows the mouse.
    const double y = s.Y(2.006033);
    const kv::DiagramReadout inside = kv::ReadOutAt(ws, w, s.X(300), y);
    const kv::DiagramReadout outside = kv::ReadOutAt(ws, w, s.X(150), y);
    ASSERT_TRUE(inside.inTable);
    EXPECT_NEAR(inside.t, -10, 1e-6);
    EXPECT_NEAR(inside.hLiq, 186.697, 1e-3);
    EXPECT_NEAR(inside.hVap, 392.665, 1e-3);
    EXPECT_NEAR(inside.rhoVap, 10.04, 1e-6);
    EXPECT_EQ(inside.t0F, "-10.0 \u00b0C");
    EXPECT_EQ(inside.VerdTemp, "p :");
    EXPECT_EQ(inside.psilabel, "bar a");
    EXPECT_EQ(inside.EnthDiff, "roh\u00b4\u00b4:");
    EXPECT_FALSE(inside.glide);
    EXPECT_TRUE(inside.tGlide.empty());
    EXPECT_EQ(inside.hsF, outside.hsF);
    EXPECT_EQ(inside.rhoTF, outside.rhoTF);
    EXPECT_EQ(outside.panelX, s.X(150) + 8);
    EXPECT_EQ(outside.panelY, y);
    kv::HideReadout(w);
    EXPECT_FALSE(w.readout.visible);

    // A blend shows its bubble temperature and glide.
    Draw("R407C", -10, 45);
    const kv::DiagramReadout blend = kv::ReadOutAt(ws, w, 200, w.scales.Y(3.0));
    ASSERT_TRUE(blend.glide);
    EXPECT_GT(blend.glideK, 3);
    EXPECT_LT(blend.glideK, 9);
    EXPECT_NEAR(blend.t - blend.tBubble, blend.glideK, 1e-12);
    EXPECT_EQ(blend.tGlide.rfind("Glide   : ", 0), 0u);

    // Above the table's top (CO2 draws to 1.5 times it): the pressure alone.
    Draw("CO2", -10, 25);
    const kv::DiagramReadout top = kv::ReadOutAt(ws, w, 100, dg::kScaleTop);
    EXPECT_TRUE(top.visible);
    EXPECT_FALSE(top.inTable);
    EXPECT_NEAR(top.p, w.scales.pUpper, 1e-6);
    EXPECT_TRUE(top.t0F.empty());
}

TEST_F(Diagram, InchUnitsLabelTheGridInPsi) {
    ws.project.RohrDatei = "ROHRIN.DAT";
    const kv::DrawingList d = Draw("R404A", -30, 42);
    ASSERT_TRUE(w.inchUnits);
    EXPECT_NE(FindText(d, "[psi a]"), nullptr);
    EXPECT_EQ(FindText(d, "[bar a]"), nullptr);
    const kv::DrawText* p100 = FindText(d, "100");
    ASSERT_NE(p100, nullptr);
    EXPECT_NEAR(p100->at.y, w.scales.Y(100 / 14.504), 1e-9);
    EXPECT_NE(FindText(d, "200"), nullptr);
    EXPECT_NE(kv::ReadOutAt(ws, w, 200, 200).psilabel.find(" psi a"), std::string::npos);
    EXPECT_NE(w.figures.pressures.find("psi a"), std::string::npos);
}

TEST_F(Diagram, CycleCornersAreTheStatePointsAndTheStateIsKept) {
    ws.cycle.pShaft = 12.5;  // a result of the plant screen's last run
    const kv::DrawingList d = Draw("R134a", -10, 45);
    EXPECT_EQ(ws.cycle.pShaft, 12.5);
    EXPECT_EQ(ws.cycle.tEvapK, 0.0);
    EXPECT_EQ(ws.project.KaelteM, "R134a");

    // The same state points by hand: superheat 5 + 2 K, subcooling 2 K.
    double sub = 2;
    ws.cycle.superheatEvap = 5;
    ASSERT_TRUE(kv::CycleStatePoints(ws, -10, 45, -3, sub));
    const kv::CycleState c = ws.cycle;
    const double h4 = c.hLiqCond - c.cpLiquid * 2;
    const std::vector<kv::CyclePoint> expected = {
        {h4, c.pEvap},       {c.hVapEvap, c.pEvap}, {c.hVapEvap + 5 * c.cpVapEvap, c.pEvap},
        {c.hVapEvap + 7 * c.cpVapEvap, c.pEvap},    {w.cycle.hDischarge, c.pCond},
        {c.hVapCond, c.pCond}, {c.hLiqCond, c.pCond}, {h4, c.pCond}};
    ASSERT_EQ(w.cycle.corners.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(w.cycle.corners[i].h, expected[i].h, 1e-9) << i;
        EXPECT_NEAR(w.cycle.corners[i].p, expected[i].p, 1e-12) << i;
    }
    EXPECT_NEAR(w.cycle.hDischarge, c.hVapCond + c.cpVapDischarge * (w.cycle.tDischargeC - 45), 1e-6);
    EXPECT_GT(w.cycle.eer, 1.5);
    EXPECT_LT(w.cycle.eer, 5);
    // EER_ACT: cut to two places.
    ASSERT_EQ(w.figures.EER_ACT.size(), 4u);
    EXPECT_DOUBLE_EQ(kv::ToNumber(w.figures.EER_ACT).value, w.cycle.eer);
    EXPECT_DOUBLE_EQ(w.cycle.eer, std::trunc(w.cycle.q0 / w.cycle.power * 100) / 100);

    // The blue path joins the corners at the scales' x and y, and closes.
    const kv::DrawPolyline* path = nullptr;
    for (const kv::DrawItem& item : d.items)
        if (const auto* p = std::get_if<kv::DrawPolyline>(&item); p && p->pen.colour == kv::PaletteColour(9))
            path = p;
    ASSERT_NE(path, nullptr);
    ASSERT_EQ(path->points.size(), expected.size() + 1);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(path->points[i].x, w.scales.X(expected[i].h), 1e-9);
        EXPECT_NEAR(path->points[i].y, w.scales.Y(expected[i].p), 1e-9);
    }
    EXPECT_EQ(path->points.back(), path->points.front());
}

TEST_F(Diagram, WindowTrimFieldsAndScrollbars) {
    ws.project.KaelteM = "R134a";
    ws.cycle.tEvapK = 273.15 - 7.6;
    ws.cycle.tCondK = 273.15 + 44.9;
    Put("SubAct.dat", "6\r\n3\r\n4\r\n1\r\n0.5\r\n1\r\n1\r\n10\r\n12\r\n0.8\r\n0.5\r\n");
    w = kv::OpenDiagramWindow(ws);
    EXPECT_EQ(w[TrimField::Evaporating].value, -7);
    EXPECT_EQ(w[TrimField::Condensing].value, 44);
    EXPECT_EQ(w[TrimField::SuperheatEvaporator].text, "6");
    EXPECT_EQ(w[TrimField::SuperheatSuctionLine].text, "3");
    EXPECT_EQ(w[TrimField::Subcooling].text, "4");
    EXPECT_EQ(w[TrimField::SubcoolingIhx].text, "1");
    EXPECT_EQ(w[TrimField::Evaporating].field, "to_act");
    EXPECT_EQ(w[TrimField::Condensing].scroll, "tc_Scroll");
    EXPECT_FALSE(w[TrimField::GasCoolerPressure].enabled);
    EXPECT_FALSE(w.guard);

    // A bar writes its integer text; the guard stops the events.
    EXPECT_TRUE(kv::ScrollTrim(w, TrimField::Condensing, 50));
    EXPECT_EQ(w[TrimField::Condensing].text, "50");
    EXPECT_TRUE(kv::ScrollTrim(w, TrimField::SuperheatEvaporator, 500));
    EXPECT_EQ(w[TrimField::SuperheatEvaporator].text, std::to_string(w[TrimField::SuperheatEvaporator].max));
    w.guard = true;
    EXPECT_FALSE(kv::ScrollTrim(w, TrimField::Condensing, 30));
    EXPECT_EQ(w[TrimField::Condensing].text, "50");
    w.guard = false;
    EXPECT_FALSE(kv::ScrollTrim(w, TrimField::GasCoolerPressure, 100));  // not in use without the CO2 mode

    // The kinds of evaporation set the superheats.
    EXPECT_EQ(kv::OpenDiagramWindow(ws, "Teil\u00fcberflutete Verdampfung")[TrimField::SuperheatSuctionLine].text, "4");
    ws.captions.caption.Assign(std::vector<std::string>(static_cast<std::size_t>(kv::Cap::Count_), "x"));
    const kv::DiagramWindow dry = kv::OpenDiagramWindow(ws, "x");
    EXPECT_EQ(dry[TrimField::SuperheatEvaporator].text, "2");
    EXPECT_EQ(dry[TrimField::SuperheatSuctionLine].text, "5");

    ws.project.Co2Mode = 1;
    ws.cycle.pIntermediate = 40;
    const kv::DiagramWindow co2 = kv::OpenDiagramWindow(ws);
    EXPECT_TRUE(co2[TrimField::GasCoolerPressure].enabled);
    EXPECT_EQ(co2[TrimField::IntermediatePressure].text, "40");
}

TEST_F(Diagram, BadTablesDrawNothingOrStayOnThePicture) {
    ws.project.KaelteM = "R407B";  // passes the check, has no table
    w = kv::OpenDiagramWindow(ws);
    kv::DrawingList d = kv::Play_DiaG(ws, w);
    EXPECT_TRUE(d.Empty());
    EXPECT_FALSE(kv::ReadOutAt(ws, w, 100, 100).visible);

    const std::string good = Get("R134A.DAT");
    for (const std::string& bad : kvtest::DamagedContents(good)) {
        Put("R134A.DAT", bad);
        ws.properties.Clear();
        d = Draw("R134a", -10, 45);
        ExpectOnPicture(d);
        kv::ReadOutAt(ws, w, 300, 200);
    }
}

// A table of `perGap` rows between each pair of the factory rows, the
// values interpolated: a dense table as a damaged or generated file holds.
std::string DenseTable(const std::vector<kv::SatRow>& rows, int perGap) {
    std::string text;
    for (std::size_t i = 0; i + 1 < rows.size(); ++i)
        for (int k = 0; k < perGap; ++k) {
            const double f = static_cast<double>(k) / perGap;
            for (int c = 1; c <= 7; ++c) {
                const double v = rows[i].Column(c) + f * (rows[i + 1].Column(c) - rows[i].Column(c));
                text += kv::NumberText(v) + (c < 7 ? "," : "\r\n");
            }
        }
    return text;
}

TEST_F(Diagram, LongTablesDrawOnePointAColumnAndDamagedOnesAreRefused) {
    const std::vector<kv::SatRow> rows = Table("R134A.DAT").rows;
    // 1,881 rows: drawn, but no line holds more points than the frame has columns.
    Put("R134A.DAT", DenseTable(rows, 57));
    ws.properties.Clear();
    kv::DrawingList d = Draw("R134a", -10, 45);
    ASSERT_EQ(Table("R134A.DAT").rows.size(), (rows.size() - 1) * 57);
    std::size_t longest = 0;
    for (const kv::DrawItem& item : d.items)
        if (const auto* p = std::get_if<kv::DrawPolyline>(&item)) longest = std::max(longest, p->points.size());
    EXPECT_GT(longest, 50u);
    EXPECT_LE(longest, static_cast<std::size_t>(d.width)) << longest;
    EXPECT_TRUE(messages.empty());

    // Beyond 2,000 rows, or out of order: refused, and said once per table.
    Put("R134A.DAT", DenseTable(rows, 70));
    ws.properties.Clear();
    EXPECT_TRUE(Draw("R134a", -10, 45).Empty());
    kv::Play_DiaG(ws, w);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("R134A.DAT has 2310 rows"), std::string::npos);
    std::vector<kv::SatRow> swapped = rows;
    std::swap(swapped[3], swapped[4]);
    Put("R134A.DAT", DenseTable(swapped, 1));
    ws.properties.Clear();
    EXPECT_TRUE(Draw("R134a", -10, 45).Empty());
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_NE(messages[1].text.find("out of order: row 5"), std::string::npos);
}

TEST(Drawing, ClippingAndPlacing) {
    const kv::ClipBox box{0, 0, 10, 10};
    kv::DrawPoint a{-5, 5}, b{15, 5};
    ASSERT_TRUE(kv::ClipSegment(a, b, box));
    EXPECT_EQ(a, (kv::DrawPoint{0, 5}));
    EXPECT_EQ(b, (kv::DrawPoint{10, 5}));
    kv::DrawPoint c{-5, -5}, e{-1, 20};
    EXPECT_FALSE(kv::ClipSegment(c, e, box));
    kv::DrawPoint n{NAN, 1}, m{2, 2};
    EXPECT_FALSE(kv::ClipSegment(n, m, box));

    // A path leaving and re-entering the box gives two pieces.
    kv::DrawingList d;
    kv::AddClippedPath(d, {{1, 1}, {5, 1}, {20, 1}, {20, 5}, {5, 5}, {2, 8}}, box, {});
    ASSERT_EQ(d.items.size(), 2u);
    EXPECT_EQ(std::get<kv::DrawPolyline>(d.items[0]).points.size(), 3u);
    EXPECT_EQ(std::get<kv::DrawPolyline>(d.items[1]).points.front(), (kv::DrawPoint{10, 5}));

    kv::DrawingList page;
    kv::DrawingList pic;
    pic.Text(10, 20, "x", {"Arial", 8});
    pic.Line(0, 0, 10, 10, {kv::kBlack, 2});
    page.Append(pic, 100, 50, 0.5);
    EXPECT_EQ(std::get<kv::DrawText>(page.items[0]).at, (kv::DrawPoint{105, 60}));
    EXPECT_EQ(std::get<kv::DrawText>(page.items[0]).font.size, 4);
    EXPECT_EQ(std::get<kv::DrawLine>(page.items[1]).pen.width, 1);
    EXPECT_EQ(kv::PaletteColour(9), (kv::Rgb{0, 0, 255}));
    EXPECT_EQ(kv::PaletteColour(99), kv::kBlack);
}

}  // namespace
