// The accessory selection and the component selection table, offscreen, over
// the factory catalogues and a calculated sample plant.
#include <gtest/gtest.h>

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

#include "cycle/kernel.h"
#include "sample_fixture.h"
#include "shell/startup.h"
#include "ui/scheme_dialog.h"
#include "ui/selection_dialogs.h"
#include "workspace_fixture.h"

namespace {

class SelectionScreens : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        kv::SchemeScreen scheme;
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, scheme, "AirWater_R290.prj"));
        ASSERT_TRUE(kv::CalculateCycle(ws, scheme, kv::FirstCalculation));
    }
};

TEST_F(SelectionScreens, SeriesChosenForAKindIsWrittenOnLeaving) {
    kvui::AccessorySelectionDialog d(ws);
    d.ChooseKind(14);  // compressors
    auto* series = d.findChild<QListWidget*>(QStringLiteral("ReiheList"));
    ASSERT_GT(series->count(), 0);
    d.ChooseSeries(0);
    EXPECT_GT(d.findChild<QListWidget*>(QStringLiteral("BTList"))->count(), 0);
    d.findChild<QPushButton*>(QStringLiteral("einfuegbutt"))->click();
    d.findChild<QPushButton*>(QStringLiteral("ueberN"))->click();  // no article row chosen: nothing parked
    EXPECT_TRUE(kv::ReadPark(ws, kv::kMainUnitPark).empty());
    EXPECT_TRUE(kv::AdoptMainUnit(ws, d.Model(), 0));
    EXPECT_EQ(kv::ReadPark(ws, kv::kMainUnitPark).size(), 2u);
    d.findChild<QPushButton*>(QStringLiteral("AuslegStart"))->click();
    EXPECT_FALSE(d.findChild<QLabel*>(QStringLiteral("Meldung"))->text().isEmpty());
    d.findChild<QPushButton*>(QStringLiteral("delVerd"))->click();
    EXPECT_TRUE(kv::ReadPark(ws, kv::kMainUnitPark).empty());
    const kv::SeriesEntry chosen = d.Model().series[static_cast<std::size_t>(d.Model().seriesIndex)];
    d.findChild<QPushButton*>(QStringLiteral("Close"))->click();
    const auto list = kv::ReadSeriesChoices(ws, false);
    ASSERT_EQ(list.size(), 18u);
    EXPECT_EQ(list[13].file, kv::RecordFileName(chosen.base));
    EXPECT_EQ(list[13].position, chosen.position);
}

TEST_F(SelectionScreens, TableRatesTheCondensersAndAdoptsARow) {
    kvui::ComponentSelectionDialog d(ws, 652, "TUNDRKD", 652);
    const kv::SelectionTable& t = d.Table();
    ASSERT_FALSE(t.rows.empty());
    auto* grid = d.findChild<QTableWidget*>(QStringLiteral("venttab"));
    EXPECT_EQ(grid->rowCount(), static_cast<int>(t.rows.size()));
    EXPECT_TRUE(d.findChild<QLabel*>(QStringLiteral("Meldung"))->text().startsWith(QStringLiteral("Qo min = ")));
    ASSERT_GE(t.marked, 0);
    EXPECT_EQ(grid->currentRow(), t.marked);
    EXPECT_FALSE(t.rows[0].energyClass.empty());
    d.findChild<QPushButton*>(QStringLiteral("VentUeberNehm"))->click();
    EXPECT_EQ(d.result(), QDialog::Accepted);
    EXPECT_NE(Get("BT_calc.DAT").find("Eff_class"), std::string::npos);
    EXPECT_EQ(kv::ReadPark(ws, kv::kMainUnitPark).at(2).row[1], t.rows[static_cast<std::size_t>(t.marked)].type);
}

// A compressor series at an inverter frequency: more swept volume, more
// capacity, and the frequency goes with the project.
TEST_F(SelectionScreens, CompressorTableAtAnInverterFrequency) {
    const kv::SeriesChoice compressors = kv::ReadSeriesChoices(ws, false).at(13);
    kvui::ComponentSelectionDialog d(ws, 552, compressors.file.substr(0, 7), compressors.position);
    ASSERT_FALSE(d.Table().rows.empty());
    const double at50 = d.Table().rows[0].rated;
    auto* hz = d.findChild<QSpinBox*>(QStringLiteral("Frequency"));
    ASSERT_NE(hz, nullptr);
    hz->setValue(70);
    EXPECT_NEAR(d.Table().rows[0].rated, at50 * 1.4, at50 * 0.1);
    EXPECT_TRUE(d.findChild<QLabel*>(QStringLiteral("Meldung"))->text().endsWith(QStringLiteral("(70 Hz)")));
    EXPECT_EQ(ws.project.Frequency, "70");
}

TEST_F(SelectionScreens, SchemeScreenOpensTheSelection) {
    kvui::SchemeDialog scheme(ws);
    scheme.findChild<QPushButton*>(QStringLiteral("ArmSelek"))->click();
    EXPECT_NE(scheme.findChild<kvui::AccessorySelectionDialog*>(), nullptr);
}

}  // namespace

namespace {

TEST_F(SelectionScreens, CompressorSearchReturnsItsSweptVolume) {
    kvui::CompressorSearchDialog d(ws);
    ASSERT_FALSE(d.Rows().empty());
    EXPECT_EQ(d.findChild<QTableWidget*>(QStringLiteral("Compressors"))->rowCount(), static_cast<int>(d.Rows().size()));
    EXPECT_EQ(d.Result(), -1);
    d.Choose(0);
    EXPECT_EQ(d.Result(), d.Rows()[0].sweptVolume);
    EXPECT_EQ(d.result(), QDialog::Accepted);
}

TEST_F(SelectionScreens, HeatExchangerChoiceGoesToTheWorkingFile) {
    kvui::HeatExchangerSelectionDialog d(ws, 650);
    ASSERT_FALSE(d.Rows().empty());
    EXPECT_FALSE(d.Choose(-1));
    ASSERT_TRUE(d.Choose(0));
    EXPECT_EQ(kv::ChosenHeatExchanger(ws), d.Rows()[0].type);
    kvui::SchemeDialog scheme(ws);
    bool shown = false;
    for (const QLabel* l : scheme.findChildren<QLabel*>()) shown = shown || l->text().contains(QString::fromStdString(d.Rows()[0].type));
    EXPECT_TRUE(shown) << "the plant scheme names the chosen unit";
}

}  // namespace
