// The desktop program's main menu, offscreen: start, welcome, language, End.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "shell/exchange.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "project/project_paths.h"
#include "project/project_state.h"
#include "shell/captions.h"
#include <QLineEdit>
#include <QListWidget>
#include "ui/project_data_dialog.h"
#include "ui/main_window.h"
#include "ui/viewer_dialog.h"
#include "ui/qt_interface.h"
#include "ui/welcome_dialog.h"
#include "workspace_fixture.h"

namespace {

// With KV_SCREENSHOTS naming a folder, the tests leave pictures of what they
// saw there, to be looked at by eye.
void Snapshot(QWidget& w, const char* name) {
    const QByteArray dir = qgetenv("KV_SCREENSHOTS");
    if (!dir.isEmpty()) w.grab().save(QString::fromLocal8Bit(dir) + QLatin1Char('/') + QLatin1String(name) + ".png");
}

// Presses `button` of the next message box that opens, from a timer, since
// the box runs a loop of its own.
void AnswerNextBox(QMessageBox::StandardButton button, QString* seenText = nullptr) {
    QTimer::singleShot(50, [button, seenText] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) {
            AnswerNextBox(button, seenText);
            return;
        }
        if (seenText) *seenText = box->text();
        box->button(button)->click();
    });
}

class MainWindowTest : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        ws.project.DatenVerz.clear();  // the start finds the default
    }
};

TEST_F(MainWindowTest, StartsWithWelcomeAndEndsOnYes) {
    kvui::MainWindow window(ws);
    ws.ui = kvui::MakeQtInterface(&window);
    kv::StartSystem(ws);
    window.FillCaptions();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    // A plain start brings the welcome screen, opened without a loop of its own.
    kvui::WelcomeDialog* welcome = nullptr;
    for (int i = 0; i < 50 && !welcome; ++i) {
        QTest::qWait(20);
        welcome = window.findChild<kvui::WelcomeDialog*>();
    }
    ASSERT_NE(welcome, nullptr);
    Snapshot(*welcome, "welcome");
    auto* german = welcome->findChild<QPushButton*>(QStringLiteral("lang_GER"));
    ASSERT_NE(german, nullptr);
    german->click();
    QTest::qWait(20);
    EXPECT_EQ(ws.settings.Sprache, "GER");
    auto* end = window.findChild<QPushButton*>(QStringLiteral("End"));
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(end->text(), kvui::Q(ws.captions[kv::Cap::MenuEnd]));
    Snapshot(window, "main_menu_ger");

    // No keeps the run going.
    QSignalSpy ended(&window, &kvui::MainWindow::ended);
    AnswerNextBox(QMessageBox::No);
    end->click();
    EXPECT_EQ(ended.count(), 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(kv::FileLength(ws.settingsFile), 0u);

    // Yes writes kparam.dat and ends.
    QString question;
    AnswerNextBox(QMessageBox::Yes, &question);
    end->click();
    EXPECT_EQ(ended.count(), 1);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(question.startsWith(kvui::Q(ws.captions.Message(59))));
    EXPECT_NE(kv::ReadWholeFile(ws.settingsFile).find("\"GER\""), std::string::npos);
}

TEST_F(MainWindowTest, MissingLanguageTablesKeepTheLanguage) {
    kvui::MainWindow window(ws);
    ws.ui = kvui::MakeQtInterface(&window);
    ws.statusWord = 108;  // a continuation: no welcome screen
    kv::PrepareWorkspace(ws);
    window.FillCaptions();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(30);
    EXPECT_EQ(window.findChild<kvui::WelcomeDialog*>(), nullptr);

    // Polish tables taken away from this data directory.
    std::filesystem::remove(kv::ResolveName(ws, "Caption.POL"));
    auto* polish = window.findChild<QPushButton*>(QStringLiteral("lang_POL"));
    ASSERT_NE(polish, nullptr);
    QString shown;
    AnswerNextBox(QMessageBox::Ok, &shown);
    polish->click();
    EXPECT_EQ(ws.settings.Sprache, "ENG");
    EXPECT_TRUE(shown.startsWith(kvui::Q(ws.captions.Message(61))));
    EXPECT_FALSE(polish->isChecked());

    // The drawing program is not installed here: the scheme opens in the viewer.
    window.findChild<QPushButton*>(QStringLiteral("Drawing"))->click();
    auto* viewer = window.findChild<kvui::ViewerDialog*>();
    ASSERT_NE(viewer, nullptr);
    viewer->close();
    // Another program that is missing: the user is told which, once.
    QString missing;
    AnswerNextBox(QMessageBox::Ok, &missing);
    auto* parts = window.findChild<QPushButton*>(QStringLiteral("PartsProgram"));
    parts->click();
    EXPECT_TRUE(missing.contains(QStringLiteral("kelvpart.exe")));
    EXPECT_FALSE(parts->isEnabled());
    EXPECT_TRUE(parts->toolTip().contains(QStringLiteral("kelvpart.exe")));
}

TEST_F(MainWindowTest, AFailedSaveIsShownAndTheFileStays) {
    kvui::MainWindow window(ws);
    kv::PrepareWorkspace(ws);
    kv::Project& p = ws.project;
    p.ProjektNam = "Hall 3";
    p.ProjektDatei = "Hall3.prj";
    p.ProjektVerz = ws.DataDir().string();  // the file that was opened
    p.AnlagenTyp = "HeatP";
    window.SaveProjectAction();
    const std::string saved = kv::ReadWholeFile(ws.DataDir() / "Hall3.prj");
    ASSERT_FALSE(saved.empty());
    ASSERT_TRUE(messages.empty());

    p.Tver = "-30";
    answer = true;  // overwrite the project
    {
        kv::InjectedWriteFailure full("Hall3.prj", std::errc::no_space_on_device);
        window.SaveProjectAction();
    }
    ASSERT_EQ(messages.size(), 1u);
    const std::string& text = messages[0].text;
    EXPECT_NE(text.find((ws.DataDir() / "Hall3.prj").string()), std::string::npos);
    EXPECT_NE(text.find(std::make_error_code(std::errc::no_space_on_device).message()), std::string::npos);
    EXPECT_EQ(kv::ReadWholeFile(ws.DataDir() / "Hall3.prj"), saved);
}

// Input is never lost unasked: Cancel on the data screen restores the
// project, New asks while input is unsaved, the title bar marks it, the
// recent list opens a saved project with one click, Qt's buttons speak German.
TEST_F(MainWindowTest, UnsavedInputIsAskedForAndCancelRestoresTheProject) {
    kv::PrepareWorkspace(ws);
    kvui::MainWindow window(ws);
    kv::Project& p = ws.project;
    p.ProjektNam = "Hall 3";
    p.AnlagenTyp = "HeatP";
    p.Tver = "-6";
    kv::MarkProjectSaved(ws);
    window.UpdateTitle();
    EXPECT_FALSE(window.windowTitle().endsWith(QStringLiteral(" *")));

    window.OpenProjectData();
    auto* data = window.findChild<kvui::ProjectDataDialog*>();
    ASSERT_NE(data, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(data));
    auto* tver = data->findChild<QLineEdit*>(QStringLiteral("Tver"));
    tver->selectAll();
    QTest::keyClicks(tver, QStringLiteral("-15"));
    EXPECT_EQ(p.Tver, "-15");
    QTest::keyClick(data, Qt::Key_Escape);
    EXPECT_EQ(p.Tver, "-6");
    EXPECT_FALSE(kv::HasUnsavedInput(ws));

    p.Tver = "-20";
    window.UpdateTitle();
    EXPECT_TRUE(window.windowTitle().endsWith(QStringLiteral("Hall 3 *")));
    QString asked;
    AnswerNextBox(QMessageBox::Cancel, &asked);
    window.NewProjectAction();
    EXPECT_EQ(asked, kvui::Q(ws.captions[kv::Cap::UnsavedInputQuestion]));
    EXPECT_EQ(p.Tver, "-20");  // cancelled: nothing lost

    // Saved, the project is in the recent list; a click loads it again.
    const std::string file = (root / "Hall3.prj").string();
    ASSERT_EQ(kv::SaveProjectToPath(ws, file), kv::SaveResult::Saved);
    window.FillCaptions();
    auto* recent = window.findChild<QListWidget*>(QStringLiteral("RecentProjects"));
    ASSERT_EQ(recent->count(), 1);
    EXPECT_TRUE(recent->item(0)->text().contains(QStringLiteral("HeatP")));
    p.Tver = "5";
    AnswerNextBox(QMessageBox::No);  // drop the edit
    window.OpenRecent(recent->item(0)->data(Qt::UserRole).toString());
    EXPECT_EQ(p.Tver, "-20");
    for (auto* d : window.findChildren<kvui::ProjectDataDialog*>()) d->accept();

    ASSERT_TRUE(kv::ChangeLanguage(ws, "GER"));
    window.FillCaptions();
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    EXPECT_EQ(box.button(QMessageBox::Yes)->text(), kvui::Q(ws.captions[kv::Cap::Yes]));
    EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), kvui::Q(ws.captions[kv::Cap::Cancel]));
}

}  // namespace

int main(int argc, char** argv) {
    // The screens are shown on a 1366 x 768 laptop screen at 100 %.
    const QString screen = QDir::temp().filePath(QStringLiteral("kelvaris_ui_screen.json"));
    QFile config(screen);
    if (config.open(QIODevice::WriteOnly | QIODevice::Truncate))
        config.write(R"({"screens": [{"name": "laptop", "x": 0, "y": 0, "width": 1366, "height": 768,
                         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    config.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screen).toLocal8Bit());
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
