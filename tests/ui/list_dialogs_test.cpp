// The parts list screen and the line and electrical data screen offscreen:
// reached from the main menu, edited, saved and read back.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "cycle/kernel.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "sample_fixture.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "ui/list_dialogs.h"
#include "ui/cost_dialogs.h"
#include "lists/costing.h"
#include <QClipboard>
#include <QComboBox>
#include <QSlider>
#include <QGuiApplication>
#include <filesystem>
#include "ui/ped_dialog.h"
#include "ui/report_dialog.h"
#include "ui/load_split_dialog.h"
#include <QSpinBox>
#include "shell/numbers.h"
#include "ui/viewer_dialog.h"
#include "documents/scheme_generator.h"
#include "ui/scheme_dialog.h"
#include <QRadioButton>
#include "ui/main_window.h"
#include "workspace_fixture.h"

namespace {

class ListScreens : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 108;  // no welcome screen
        kv::SchemeScreen scheme;
        ASSERT_TRUE(kvtest::OpenSampleScheme(ws, scheme, "AirWater_R290.prj"));
        ASSERT_TRUE(kv::CalculateButton(ws, scheme));
        ASSERT_TRUE(kv::GenerateLists(ws).ok);
    }
    void Shot(QWidget* w, const char* name) {
        const QByteArray shots = qgetenv("KV_SCREENSHOTS");
        if (!shots.isEmpty()) w->grab().save(QString::fromLocal8Bit(shots) + QLatin1Char('/') + QLatin1String(name));
    }
};

TEST_F(ListScreens, PartsListIsEditedSavedAndReadBack) {
    kvui::MainWindow window(ws);
    window.show();
    window.findChild<QPushButton*>(QStringLiteral("UnitsList"))->click();
    auto* lists = window.findChild<kvui::ListDialog*>();
    ASSERT_NE(lists, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(lists));
    EXPECT_EQ(lists->CurrentTab(), 1);  // the units list
    lists->ShowList(0);
    Shot(lists, "parts_list.png");

    QTableWidget* parts = lists->Grid(0);
    const int rows = parts->rowCount();
    ASSERT_GT(rows, 3);
    EXPECT_EQ(parts->item(0, 1)->text().toStdString(), ws.captions[kv::Cap::KindBallValve]);
    // A quantity typed in, a row copied to the top, the last one deleted.
    parts->item(0, 0)->setText(QStringLiteral("7"));
    parts->setCurrentCell(1, 0);
    lists->CopyRows();
    parts->setCurrentCell(0, 0);
    lists->PasteRows();
    EXPECT_EQ(parts->rowCount(), rows + 1);
    parts->setCurrentCell(rows, 0);
    parts->selectRow(rows);
    lists->DeleteRows();
    EXPECT_EQ(parts->rowCount(), rows);
    ASSERT_TRUE(lists->Save());

    const kv::ListFile file = kv::ReadListFile(ws, kv::lists::kParts, kv::lists::kPartsHeader, kv::lists::kUnitRow);
    ASSERT_EQ(file.rows.size(), static_cast<std::size_t>(rows));
    EXPECT_EQ(file.rows[1][7], "7");          // the edited row, now second
    EXPECT_EQ(file.rows[0][1], file.rows[2][1]);  // the copy and its original
    EXPECT_EQ(file.header[7], "");             // rewritten by the screen
    // The screen writes change blocks of 24 items, one per component row.
    int components = 0;
    for (const auto& r : file.rows) components += !r[0].empty();
    const std::string change = kv::ReadWholeFile(kv::ResolveName(ws, kv::lists::kPartsChange));
    EXPECT_EQ(std::count(change.begin(), change.end(), '\n'), 24 * components);

    // The costing choice is kept for the costing run.
    auto* box = lists->findChild<QTabWidget*>()->widget(2)->findChild<QCheckBox*>(QStringLiteral("Costing"));
    ASSERT_NE(box, nullptr);
    box->setChecked(false);
    EXPECT_FALSE(kv::ReadCostingChoice(ws)[2]);

    // The PED list is built from the lists with the pressures of the blocks.
    ASSERT_TRUE(lists->RebuildPed());
    EXPECT_GE(lists->Grid(5)->rowCount(), 4);
    Shot(lists, "ped_list.png");
    lists->close();
}

TEST_F(ListScreens, LineAndElectricalData) {
    kvui::MainWindow window(ws);
    window.show();
    window.findChild<QPushButton*>(QStringLiteral("Options"))->click();
    auto* d = window.findChild<kvui::LineElectricDialog*>();
    ASSERT_NE(d, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(d));
    auto* wiring = d->findChild<QTableWidget*>(QStringLiteral("Wiring"));
    ASSERT_GE(wiring->rowCount(), 4);  // compressor, fans, valve coils
    EXPECT_TRUE(wiring->item(0, 2)->text().contains(QStringLiteral("mm²")));
    Shot(d, "line_electric.png");

    auto* lines = d->findChild<QTableWidget*>(QStringLiteral("Lines"));
    lines->item(kv::Suction - 1, 0)->setText(QStringLiteral("abc"));
    EXPECT_FALSE(d->Apply());
    EXPECT_FALSE(d->findChild<QLabel*>(QStringLiteral("Message"))->text().isEmpty());
    lines->item(kv::Suction - 1, 0)->setText(QStringLiteral("12,5"));
    d->findChild<QLineEdit*>(QStringLiteral("Insulation4"))->setText(QStringLiteral("9"));
    ASSERT_TRUE(d->Apply());
    EXPECT_EQ(ws.project.Geometr.Cell(kv::Suction, kv::GeoLength), "12,5");
    const kv::ListFile wire = kv::ReadListFile(ws, kv::lists::kWiring, kv::lists::kHeader, kv::lists::kPipeRow);
    EXPECT_EQ(wire.rows.size(), static_cast<std::size_t>(wiring->rowCount()));
}

// The cable of a load carries its current and keeps the drop within 3 %.
TEST(Cables, CrossSectionByCurrentAndDrop) {
    EXPECT_EQ(kv::CableCrossSection(10, 10, 400, true), 1.5);
    EXPECT_EQ(kv::CableCrossSection(30, 10, 400, true), 4);
    // A long run: the drop, not the current, decides.
    EXPECT_GT(kv::CableCrossSection(10, 200, 400, true), 1.5);
    EXPECT_NEAR(kv::LoadCurrent(10, 400, true), 16.98, 0.01);
    EXPECT_EQ(kv::ConductorText(5, 2.5), "5 x 2.5 mm²");
}

}  // namespace

namespace {

TEST_F(ListScreens, PedProtocolFromTheListScreen) {
    kvui::ListDialog lists(ws, QStringLiteral("PEDlist.dat"));
    lists.show();
    lists.findChild<QPushButton*>(QStringLiteral("PedProtocol"))->click();
    auto* ped = lists.findChild<kvui::PedDialog*>();
    ASSERT_NE(ped, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(ped));
    auto* table = ped->findChild<QTableWidget*>(QStringLiteral("PedTable"));
    EXPECT_EQ(table->item(4, 1)->text(), QStringLiteral("PS * V"));
    const QString at43 = ped->findChild<QLineEdit*>(QStringLiteral("PS2"))->text();
    ped->findChild<QRadioButton*>(QStringLiteral("High3"))->click();
    EXPECT_GT(ped->findChild<QLineEdit*>(QStringLiteral("PS2"))->text().toDouble(), at43.toDouble());
    Shot(ped, "ped_protocol.png");
    // A pressure typed with a comma is classified anew.
    auto* ps2 = ped->findChild<QLineEdit*>(QStringLiteral("PS2"));
    ps2->setText(QStringLiteral("40,5"));
    ped->Classify();
    EXPECT_EQ(ped->findChild<QLabel*>(QStringLiteral("PS2x11"))->text(), QStringLiteral("44.55"));
    ped->findChild<QPushButton*>(QStringLiteral("Protocol"))->click();
    EXPECT_GT(kv::FileLength(ws, "PEDpar.DAT"), 100u);
    ped->close();

    // The scheme names the units the lists took.
    kvui::SchemeDialog scheme(ws);
    scheme.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scheme));
    Shot(&scheme, "plant_scheme_units.png");
}

}  // namespace

namespace {

TEST_F(ListScreens, OrderNumbersByMaker) {
    kvui::OrderNumbersDialog d(ws);
    const kv::OrderNumbersScreen& m = d.Model();
    ASSERT_FALSE(m.makers.empty());
    ASSERT_FALSE(m.all.empty());
    // Equal order numbers are one line: the ball valves of two lines add up.
    int lines = 0;
    for (const kv::OrderLine& l : m.all) lines += l.orderNumber == m.all.front().orderNumber && l.maker == m.all.front().maker;
    EXPECT_EQ(lines, 1);
    // Accessories keep their own order number.
    EXPECT_TRUE(std::any_of(m.all.begin(), m.all.end(), [](const kv::OrderLine& l) { return l.orderNumber == "CV 90-0230"; }));
    d.ChooseMaker(0);
    for (const kv::OrderLine& l : m.shown) EXPECT_EQ(l.maker, m.makers[0]);
    EXPECT_EQ(d.findChild<QTableWidget*>(QStringLiteral("Orders"))->rowCount(), static_cast<int>(m.shown.size()));
    Shot(&d, "order_numbers.png");
}

}  // namespace

namespace {

TEST_F(ListScreens, CostingExportAndCostData) {
    kvui::ListDialog lists(ws, QStringLiteral("Stklst.DAT"));
    lists.show();
    ws.ui.askYesNo = [](const std::string&, const std::string&) { return false; };  // build anew
    lists.findChild<QPushButton*>(QStringLiteral("CalcAnfang"))->click();
    auto* costing = lists.findChild<kvui::ExportDialog*>();
    ASSERT_NE(costing, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(costing));
    const kv::ExportScreen& m = costing->Model();
    ASSERT_GT(m.grid.size(), 10u);
    EXPECT_GT(m.sums.sales, m.sums.labourCost + m.sums.materialCost);
    Shot(costing, "costing.png");
    // A quantity typed in is priced at once.
    auto* grid = costing->findChild<QTableWidget*>(QStringLiteral("ExSpread"));
    const double before = m.sums.sales;
    grid->item(0, 0)->setText(QStringLiteral("3"));
    EXPECT_GT(m.sums.sales, before);
    EXPECT_EQ(kv::ReadCostRows(ws, kv::CostingMode::Costing)[0][0], "3");
    // Export to a file, the workbook beside the project, the mail address.
    const std::filesystem::path dir = ws.DataDir() / "out";
    std::filesystem::create_directories(dir);
    costing->findChild<QLineEdit*>(QStringLiteral("Directory"))->setText(QString::fromStdString(dir.string()));
    costing->findChild<QLineEdit*>(QStringLiteral("FileName"))->setText(QStringLiteral("list.dat"));
    costing->findChild<QComboBox*>(QStringLiteral("Target"))->setCurrentText(QStringLiteral("ASCII/ANSI-File"));
    ASSERT_TRUE(costing->Export());
    EXPECT_GT(std::filesystem::file_size(dir / "list.dat"), 100u);
    ws.project.ProjektVerz = dir.string();
    ASSERT_TRUE(costing->Workbook());
    EXPECT_TRUE(std::filesystem::exists(kv::WorkbookPath(ws)));
    EXPECT_TRUE(costing->MailAddress().startsWith(QStringLiteral("mailto:")));
    // Rows pasted from a spreadsheet, a row inserted and deleted again.
    const std::size_t rows = m.grid.size();
    QGuiApplication::clipboard()->setText(QStringLiteral("2\tStk\tCable tie\r\n5\tm\tHose\r\n"));
    grid->setCurrentCell(static_cast<int>(rows), 0);
    costing->PasteRows();
    ASSERT_EQ(m.grid.size(), rows + 2);
    EXPECT_EQ(m.grid[rows + 1][2], "Hose");
    grid->setCurrentCell(0, 0);
    costing->InsertRow();
    EXPECT_TRUE(m.grid[0][2].empty());
    costing->DeleteRow();
    EXPECT_EQ(m.grid.size(), rows + 2);
    // The workbook as the fourth target.
    costing->findChild<QComboBox*>(QStringLiteral("Target"))->setCurrentIndex(3);
    costing->findChild<QLineEdit*>(QStringLiteral("FileName"))->setText(QStringLiteral("list.xlsx"));
    ASSERT_TRUE(costing->Export());
    EXPECT_TRUE(std::filesystem::exists(dir / "list.xlsx"));
    costing->close();

    kvui::CostDataDialog data(ws);
    data.ShowMode(630);  // copper tees
    auto* cost = data.findChild<QTableWidget*>(QStringLiteral("CostGrid"));
    ASSERT_GT(cost->rowCount(), 10);
    cost->item(0, 3)->setText(QStringLiteral("60"));  // an hour for the smallest tee
    data.PricesFromRates();
    const kv::BasicRates rates = kv::ReadBasicRates(ws);
    EXPECT_EQ(cost->item(0, 5)->text().toDouble(), kv::PriceFromRates(rates, 60, 0, 1));
    ASSERT_TRUE(data.Save());
    EXPECT_EQ(kv::ReadPartTable(ws, "K1Tstk.dat")[0][4], "60");
    // The detail grid of a pipe size: its sum is the purchase price.
    data.ShowMode(620);
    cost->setCurrentCell(3, 0);
    kvui::DetailPriceDialog* detail = data.OpenDetail();
    ASSERT_NE(detail, nullptr);
    detail->Grid()->item(1, 1)->setText(QStringLiteral("2"));
    detail->Grid()->item(1, 5)->setText(QStringLiteral("1.25"));
    const double pipe = detail->Grid()->item(0, 5)->text().toDouble();
    ASSERT_TRUE(detail->Apply());
    EXPECT_NEAR(cost->item(3, 2)->text().toDouble(), pipe + 2.5, 0.011);
    detail->close();
    data.ShowMode(602);
    EXPECT_EQ(data.findChild<QTableWidget*>(QStringLiteral("CostGrid"))->rowCount(), 14);
    Shot(&data, "cost_data.png");
}

}  // namespace

namespace {

TEST_F(ListScreens, ReportFromTheSchemeScreen) {
    kvui::SchemeDialog scheme(ws);
    scheme.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scheme));
    scheme.findChild<QPushButton*>(QStringLiteral("Report"))->click();
    auto* report = scheme.findChild<kvui::ReportDialog*>();
    ASSERT_NE(report, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(report));
    const std::size_t pages = report->Pages().size();
    ASSERT_GE(pages, 3u);  // results, lines, components
    Shot(report, "report.png");
    // A line added to the results is laid out at once; the PDF has every page.
    auto* grid = report->findChild<QTableWidget*>(QStringLiteral("DataSpread"));
    grid->setCurrentCell(0, 0);
    report->InsertLine();
    grid->item(0, 0)->setText(QStringLiteral("12A line of the engineer's own"));
    EXPECT_EQ(report->Sets()[0].lines[0], "12A line of the engineer's own");
    // Copied and pasted lines: the grid and the pages follow.
    const std::size_t lines = report->Sets()[0].lines.size();
    grid->setCurrentCell(0, 0);
    report->CopyLines();
    report->PasteLines();
    ASSERT_EQ(report->Sets()[0].lines.size(), lines + 1);
    EXPECT_EQ(report->Sets()[0].lines[1], "12A line of the engineer's own");
    // The print settings stay with the screen.
    report->findChild<QPushButton*>(QStringLiteral("PrintSettings"))->click();
    auto* settings = report->findChild<kvui::PrintSettingsDialog*>();
    ASSERT_NE(settings, nullptr);
    settings->findChild<QComboBox*>(QStringLiteral("Paper"))->setCurrentText(QStringLiteral("A3"));
    settings->findChild<QSlider*>(QStringLiteral("Scale"))->setValue(80);
    settings->findChild<QPushButton*>(QStringLiteral("Ende_druck"))->click();
    EXPECT_EQ(report->Settings().paper, "A3");
    EXPECT_EQ(report->Settings().scale, 80);
    const std::filesystem::path pdf = ws.DataDir() / "report.pdf";
    ASSERT_TRUE(report->SavePdf(QString::fromStdString(pdf.string())));
    EXPECT_GT(std::filesystem::file_size(pdf), 2000u);
    report->close();
}

}  // namespace

namespace {

// The viewer of a generated scheme: zoom, an element moved with the mouse
// and saved into Aktdraw.dat, the picture saved as SVG.
TEST_F(ListScreens, SchemeViewerZoomsMovesAndSaves) {
    ASSERT_TRUE(kv::WriteScheme(ws, 32));
    kvui::ViewerDialog viewer(ws, QStringLiteral("RIFliess.dat"));
    viewer.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&viewer));
    ASSERT_GT(viewer.Scheme().elements.size(), 30u);
    Shot(&viewer, "scheme_viewer.png");
    const double fitted = viewer.Scale();
    viewer.Zoom(2);
    EXPECT_NEAR(viewer.Scale(), 2 * fitted, 1e-9);
    // The compressor block at (8800, 2580) moved by 500 to the right.
    viewer.Press(8900, 2700);
    viewer.Drag(9400, 2700);
    viewer.Release();
    ASSERT_TRUE(viewer.SaveDrawing());
    const kv::SchemeFile saved = kv::ReadSchemeFile(ws, "Aktdraw.dat");
    bool moved = false;
    for (const kv::SchemeElement& e : saved.elements) moved |= e.code == 14 && e.x1 == 9300;
    EXPECT_TRUE(moved);
    const std::filesystem::path svg = ws.DataDir() / "scheme.svg";
    ASSERT_TRUE(viewer.SaveAs(QString::fromStdString(svg.string())));
    EXPECT_GT(std::filesystem::file_size(svg), 1000u);
}

}  // namespace

namespace {

TEST_F(ListScreens, LoadSplitOfTheSuctionLine) {
    kvui::SchemeDialog scheme(ws);
    scheme.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scheme));
    scheme.findChild<QPushButton*>(QStringLiteral("slpitSL"))->click();
    auto* split = scheme.findChild<kvui::LoadSplitDialog*>();
    ASSERT_NE(split, nullptr);
    split->findChild<QSpinBox*>(QStringLiteral("Branches"))->setValue(3);
    split->findChild<QLineEdit*>(QStringLiteral("Share1"))->setText(QStringLiteral("50"));
    split->findChild<QLineEdit*>(QStringLiteral("Share2"))->setText(QStringLiteral("30"));
    split->findChild<QLineEdit*>(QStringLiteral("Share3"))->setText(QStringLiteral("10"));
    EXPECT_FALSE(split->Calculate());  // 90 % only
    EXPECT_FALSE(split->findChild<QLabel*>(QStringLiteral("Message"))->text().isEmpty());
    split->findChild<QLineEdit*>(QStringLiteral("Share3"))->setText(QStringLiteral("20"));
    ASSERT_TRUE(split->Calculate());
    const auto& rows = split->Model().rows;
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_NEAR(rows[0].massFlow, ws.cycle.massFlow / 2, 1e-12);
    for (const kv::SplitBranch& b : rows) EXPECT_FALSE(b.size.empty());
    // The smaller branch takes no larger pipe than the larger one.
    EXPECT_LE(kv::ToNumber(rows[2].size).value, kv::ToNumber(rows[0].size).value);
    Shot(split, "load_split.png");
    ASSERT_TRUE(split->Save());
    EXPECT_EQ(kv::ReadListFile(ws, "SP_TempS.dat", 0, 8).rows.size(), 3u);
    EXPECT_GT(kv::FileLength(ws, "sp_print.dat"), 50u);
}

}  // namespace
