// The project data screen and the plant scheme screen, offscreen, on a
// factory sample: fill, calculate, trim a line.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>

#include "project/project_file.h"
#include "shell/startup.h"
#include "ui/defaults_dialog.h"
#include "ui/diagram_dialog.h"
#include "ui/main_window.h"
#include "ui/project_data_dialog.h"
#include "ui/qt_interface.h"
#include "ui/scheme_dialog.h"
#include "ui/tables_dialogs.h"
#include "workspace_fixture.h"

namespace {

void Snapshot(QWidget& w, const char* name) {
    const QByteArray dir = qgetenv("KV_SCREENSHOTS");
    if (!dir.isEmpty()) w.grab().save(QString::fromLocal8Bit(dir) + QLatin1Char('/') + QLatin1String(name) + ".png");
}

class Screens : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 108;  // no welcome screen
    }
    void LoadSample(const char* name) {
        std::string type = "HeatP";
        const std::string dir = (ws.DataDir() / "samples").string() + "/";
        ASSERT_TRUE(kv::LoadProject(ws, type, dir + name, dir));
        ws.project.AnlagenTyp = type;
    }
};

TEST_F(Screens, CalculateFromTheDataScreenAndTrimALine) {
    LoadSample("Brine_R410A.prj");
    kvui::MainWindow window(ws);
    window.show();
    window.OpenProjectData();
    auto* data = window.findChild<kvui::ProjectDataDialog*>();
    ASSERT_NE(data, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(data));
    EXPECT_EQ(data->findChild<QLineEdit*>(QStringLiteral("Tver"))->text(), kvui::Q(ws.project.Tver));

    // A grey fitting cell takes no input; an open one does and sums the zetas.
    auto* armatur = data->findChild<QTableWidget*>(QStringLiteral("Armatur"));
    ASSERT_NE(armatur, nullptr);
    EXPECT_FALSE(armatur->item(1, 4)->flags() & Qt::ItemIsEditable);  // (5, 2)
    armatur->item(1, 0)->setText(QStringLiteral("8"));                // (1, 2): bends of the suction line
    EXPECT_EQ(ws.project.Armatur.Cell(1, 2), "8");
    EXPECT_FALSE(ws.project.Geometr.Cell(2, 3).empty());
    Snapshot(*data, "project_data");

    data->findChild<QPushButton*>(QStringLiteral("Calculate"))->click();
    auto* scheme = data->findChild<kvui::SchemeDialog*>();
    ASSERT_NE(scheme, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(scheme));
    scheme->findChild<QPushButton*>(QStringLiteral("rechbutt"))->click();
    EXPECT_TRUE(ws.cycle.valid);
    EXPECT_GT(ws.cycle.Q0, 0);
    // The R410A sample strays from the reference by more than 15 %: red, explained.
    auto* reference = scheme->findChild<QLabel*>(QStringLiteral("ReferenceFigures"));
    ASSERT_NE(reference, nullptr);
    EXPECT_TRUE(reference->text().startsWith(kvui::Q(scheme->Model().RefCOP)));
    EXPECT_FALSE(scheme->Model().RefCOP.empty());
    EXPECT_TRUE(reference->styleSheet().contains(QStringLiteral("color")));
    EXPECT_EQ(reference->toolTip(), kvui::Q(ws.captions[kv::Cap::ReferenceStrays]));
    auto* bar = scheme->findChild<QScrollBar*>(QStringLiteral("SaugScroll2"));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->value(), ws.cycle.lineRow[kv::Suction]);
    const double loss = ws.cycle.lineLoss[kv::Suction];
    bar->setValue(bar->value() + 1);
    EXPECT_LT(ws.cycle.lineLoss[kv::Suction], loss);
    Snapshot(*scheme, "plant_scheme");

    // The diagram of the point, trimmed on a scrollbar, read at a point, saved.
    scheme->findChild<QPushButton*>(QStringLiteral("Diagram"))->click();
    auto* diagram = scheme->findChild<kvui::DiagramDialog*>();
    ASSERT_NE(diagram, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(diagram));
    auto* t0 = diagram->findChild<QScrollBar*>(QStringLiteral("to_scroll"));
    ASSERT_NE(t0, nullptr);
    t0->setValue(t0->value() - 4);
    EXPECT_EQ(diagram->Model()[kv::TrimField::Evaporating].text, std::to_string(t0->value()));
    diagram->ReadOut(300, 300, true);
    EXPECT_TRUE(diagram->findChild<QLabel*>(QStringLiteral("Readout"))->isVisible());
    Snapshot(*diagram, "diagram");
    diagram->ReadOut(0, 0, false);
    const std::string png = (root / "diagram.png").string();
    EXPECT_TRUE(diagram->SaveAs(QString::fromStdString(png)));
    EXPECT_GT(kv::FileLength(png), 10000u);
    diagram->accept();
    scheme->accept();
    data->accept();
}

// The CO2 and economizer samples on the plant scheme screen: the pipe series
// box shows the series the project holds, doubts on the figures stand in red.
TEST_F(Screens, SchemeOfTheCo2AndEconomizerSamples) {
    for (const char* sample : {"Transcritical_CO2.prj", "Economizer_R134a.prj"}) {
        SCOPED_TRACE(sample);
        LoadSample(sample);
        kvui::MainWindow window(ws);
        window.show();
        window.OpenProjectData();
        auto* data = window.findChild<kvui::ProjectDataDialog*>();
        ASSERT_NE(data, nullptr);
        EXPECT_EQ(data->findChild<QComboBox*>(QStringLiteral("RLcombo"))->count(), 4);  // K65 among the series
        Snapshot(*data, ws.project.EcoFlag == 1 ? "data_economizer" : "data_co2");
        data->findChild<QPushButton*>(QStringLiteral("Calculate"))->click();
        auto* scheme = data->findChild<kvui::SchemeDialog*>();
        ASSERT_NE(scheme, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(scheme));
        scheme->findChild<QPushButton*>(QStringLiteral("rechbutt"))->click();
        EXPECT_TRUE(ws.cycle.valid);
        EXPECT_EQ(scheme->findChild<QComboBox*>(QStringLiteral("RLcombo"))->currentText().toStdString(),
                  ws.project.RohrDatei == "RohrK65.DAT" ? "K65 pipe" : "Pipe SI");
        // The economizer's balance and CO2's two-phase loss are in doubt.
        EXPECT_FALSE(scheme->findChild<QLabel*>(QStringLiteral("notes"))->text().isEmpty());
        Snapshot(*scheme, ws.project.EcoFlag == 1 ? "scheme_economizer" : "scheme_co2");
        scheme->accept();
        data->accept();
    }
}

TEST_F(Screens, PipeAndZetaTables) {
    kvui::MainWindow window(ws);
    window.OpenPipeTables();
    auto* pipes = window.findChild<kvui::PipeTableDialog*>();
    ASSERT_NE(pipes, nullptr);
    auto* grid = pipes->findChild<QTableWidget*>(QStringLiteral("PipeGrid"));
    EXPECT_FALSE(grid->item(0, 0)->text().isEmpty());
    pipes->findChild<QPushButton*>(QStringLiteral("RohrIN.DAT"))->click();
    EXPECT_EQ(pipes->Model().file, "RohrIN.DAT");
    Snapshot(*pipes, "pipe_tables");
    pipes->accept();

    window.OpenZetaValues();
    auto* zeta = window.findChild<kvui::ZetaDialog*>();
    ASSERT_NE(zeta, nullptr);
    auto* zgrid = zeta->findChild<QTableWidget*>(QStringLiteral("ZetaGrid"));
    zgrid->item(0, 0)->setText(QStringLiteral("2,5"));
    ASSERT_TRUE(zeta->Save());
    EXPECT_DOUBLE_EQ(ws.project.ZetaWert[1], 2.5);
}

TEST_F(Screens, EditorsRefuseABadCellAndSayWhich) {
    const std::string notANumber = ": " + ws.captions.Message(12);
    // A letter in a pipe size: the save is refused, the file and its rows stay.
    kvui::PipeTableDialog pipes(ws);
    pipes.show();
    const std::string series = Get("RohrDM.DAT");
    auto* grid = pipes.findChild<QTableWidget*>(QStringLiteral("PipeGrid"));
    ASSERT_NE(grid, nullptr);
    grid->item(0, 1)->setText(QStringLiteral("1O"));
    QTest::mouseClick(pipes.findChild<QPushButton*>(QStringLiteral("PipeSave")), Qt::LeftButton);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("da/[mm] (1)" + notANumber), std::string::npos);
    EXPECT_EQ(Get("RohrDM.DAT"), series);

    // A zeta value that is not a number is not stored as 0.
    const double before = kv::Zeta(ws)[2];
    kvui::ZetaDialog zeta(ws);
    zeta.show();
    zeta.findChild<QTableWidget*>(QStringLiteral("ZetaGrid"))->item(1, 0)->setText(QStringLiteral("abc"));
    QTest::mouseClick(zeta.findChild<QPushButton*>(QStringLiteral("ZetaSave")), Qt::LeftButton);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[1].text, kv::ZetaRowCaption(ws, 2) + notANumber);
    EXPECT_TRUE(zeta.isVisible());
    EXPECT_EQ(kv::Zeta(ws)[2], before);

    // The defaults: the hours of a day in words.
    kvui::DefaultsDialog defaults(ws);
    defaults.show();
    auto* hours = defaults.findChild<QLineEdit*>(QStringLiteral("HoursPerDay"));
    ASSERT_NE(hours, nullptr);
    hours->selectAll();
    QTest::keyClicks(hours, QStringLiteral("zehn"));
    EXPECT_FALSE(defaults.Apply());
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages[2].text, ws.captions[kv::Cap::HoursPerDay] + notANumber);
}

}  // namespace
