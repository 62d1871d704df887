// The keyboard and the boxes of the landed screens, offscreen: Enter confirms
// a field and presses no button, a typed refrigerant is checked when the
// typing ends, every box shows what the project holds.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTest>

#include "lines/pipe_series.h"
#include "project/project_file.h"
#include "project/project_paths.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "ui/bindings.h"
#include "ui/defaults_dialog.h"
#include "ui/help_dialog.h"
#include "ui/main_window.h"
#include "ui/project_data_dialog.h"
#include "ui/qt_interface.h"
#include "ui/scheme_dialog.h"
#include "workspace_fixture.h"

namespace {

class Keyboard : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 108;  // no welcome screen
        std::string type = "HeatP";
        const std::string dir = (ws.DataDir() / "samples").string() + "/";
        ASSERT_TRUE(kv::LoadProject(ws, type, dir + "Brine_R410A.prj", dir));
        ws.project.AnlagenTyp = type;
    }
    kvui::ProjectDataDialog* OpenData(kvui::MainWindow& window) {
        window.show();
        window.OpenProjectData();
        auto* data = window.findChild<kvui::ProjectDataDialog*>();
        if (data) {
            EXPECT_TRUE(QTest::qWaitForWindowExposed(data));
        }
        return data;
    }
};

TEST_F(Keyboard, EnterConfirmsTheFieldAndPressesNoButton) {
    kvui::MainWindow window(ws);
    auto* data = OpenData(window);
    ASSERT_NE(data, nullptr);
    for (QPushButton* b : data->findChildren<QPushButton*>()) EXPECT_FALSE(b->autoDefault() || b->isDefault());

    // The brine temperature with Enter: the evaporating temperature follows.
    auto* brine = data->findChild<QLineEdit*>(QStringLiteral("doelL"));
    ASSERT_NE(brine, nullptr);
    brine->setFocus();
    brine->selectAll();
    QTest::keyClicks(brine, QStringLiteral("7"));
    ws.project.dtVerd = "5";
    QTest::keyClick(brine, Qt::Key_Return);
    EXPECT_EQ(ws.project.doelL, "7");
    EXPECT_EQ(kv::ToNumber(ws.project.Tver).value, 2.0);
    // No calculation, no save question, no file dialog.
    EXPECT_EQ(data->findChild<kvui::SchemeDialog*>(), nullptr);
    for (QWidget* w : QApplication::topLevelWidgets())
        EXPECT_TRUE(qobject_cast<kvui::ProjectDataDialog*>(w) || w == &window || !w->isVisible())
            << w->metaObject()->className();
    EXPECT_TRUE(questions.empty());
    EXPECT_TRUE(data->isVisible());

    // F1 brings the help of the screen at hand, F5 calculates.
    auto press = [data](Qt::Key key) {
        for (QShortcut* s : data->findChildren<QShortcut*>())
            if (s->key() == QKeySequence(key)) emit s->activated();
    };
    press(Qt::Key_F1);
    EXPECT_NE(data->findChild<kvui::HelpDialog*>(), nullptr);
    press(Qt::Key_F5);
    EXPECT_NE(data->findChild<kvui::SchemeDialog*>(), nullptr);
}

TEST_F(Keyboard, ARefrigerantIsCheckedWhenTheTypingEnds) {
    kvui::MainWindow window(ws);
    auto* data = OpenData(window);
    ASSERT_NE(data, nullptr);
    auto* box = data->findChild<QComboBox*>(QStringLiteral("KaelteM"));
    ASSERT_NE(box, nullptr);
    box->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("R29"));
    EXPECT_TRUE(messages.empty());  // no "Tables missing for: R" after a keystroke
    EXPECT_EQ(ws.project.KaelteM, "R410A");
    QTest::keyClicks(box->lineEdit(), QStringLiteral("0"));
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(ws.project.KaelteM, "R290");
    EXPECT_EQ(box->currentText(), QStringLiteral("R290"));
}

TEST_F(Keyboard, BoxesShowWhatTheProjectHolds) {
    // A fluid outside a box's list is added to it, not replaced by the first entry.
    std::string fluid = "HFO1234YF";
    kvui::Bindings bind;
    QComboBox* box = bind.Box(fluid, {"AMMONIAK", "R717"});
    bind.Refresh();
    EXPECT_EQ(box->currentText(), QStringLiteral("HFO1234YF"));
    EXPECT_EQ(fluid, "HFO1234YF");
    delete box;

    // The defaults screen shows words and examples, and keeps the codes.
    {
        kvui::DefaultsDialog defaults(ws);
        auto* decimal = defaults.findChild<QComboBox*>(QStringLiteral("DezimalModus"));
        ASSERT_NE(decimal, nullptr);
        EXPECT_EQ(decimal->count(), 2);
        EXPECT_TRUE(decimal->currentText().contains(QStringLiteral("1,5")));
        auto* language = defaults.findChild<QComboBox*>(QStringLiteral("Sprache"));
        EXPECT_TRUE(language->currentText().endsWith(QStringLiteral("(ENG)")));
        decimal->setCurrentIndex(1);
        EXPECT_EQ(defaults.findChild<QComboBox*>(QStringLiteral("DezimalModus"))->currentData().toString(),
                  QStringLiteral("1"));
    }

    // A series chosen elsewhere (the scheme) is what the data screen shows and keeps.
    kvui::MainWindow window(ws);
    auto* data = OpenData(window);
    ASSERT_NE(data, nullptr);
    const std::vector<std::string> series = kv::PipeSeriesList(ws);
    ASSERT_GE(series.size(), 2u);
    const std::string other = kvui::Q(series[0]) == data->findChild<QComboBox*>(QStringLiteral("RLcombo"))->currentText()
                                  ? series[1]
                                  : series[0];
    kv::ChoosePipeSeries(ws, other);
    const std::string file = ws.project.RohrDatei;
    data->Refresh();
    EXPECT_EQ(data->findChild<QComboBox*>(QStringLiteral("RLcombo"))->currentText(), kvui::Q(other));
    data->Calculate();
    EXPECT_EQ(ws.project.RohrDatei, file);
}

}  // namespace
