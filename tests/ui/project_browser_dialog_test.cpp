// The project browser offscreen: reached from the main menu's load button,
// searched, a copy made and opened.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include "shell/files.h"
#include "shell/startup.h"
#include "ui/main_window.h"
#include "ui/project_browser_dialog.h"
#include "workspace_fixture.h"

namespace {

class BrowserScreen : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 108;  // no welcome screen
        ws.project.ProjektVerz = (ws.DataDir() / "samples").string();
        ws.project.AnlagenTyp = "HeatP";
    }
};

TEST_F(BrowserScreen, LoadButtonOpensTheBrowserWhichOpensAProject) {
    kv::WriteFileAtomic(ws.DataDir() / "samples" / "Brine_R410A.rlt", "pipe list");
    kvui::MainWindow window(ws);
    window.show();
    auto* load = window.findChild<QPushButton*>(QStringLiteral("LoadProject"));
    ASSERT_NE(load, nullptr);
    load->click();
    auto* browser = window.findChild<kvui::ProjectBrowserDialog*>();
    ASSERT_NE(browser, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(browser));
    auto* grid = browser->findChild<QTableWidget*>(QStringLiteral("Projects"));
    const int all = grid->rowCount();
    EXPECT_GE(all, 6);  // the samples at least

    QTest::keyClicks(browser->findChild<QLineEdit*>(QStringLiteral("Search")), QStringLiteral("r410a"));
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_TRUE(grid->item(0, 0)->text().startsWith(QStringLiteral("Brine_R410A.prj")));
    const QByteArray shots = qgetenv("KV_SCREENSHOTS");
    if (!shots.isEmpty()) {
        browser->findChild<QLineEdit*>(QStringLiteral("Search"))->clear();
        browser->grab().save(QString::fromLocal8Bit(shots) + QStringLiteral("/project_browser.png"));
        browser->Search(QStringLiteral("r410a"));
    }

    ASSERT_TRUE(browser->CopyCurrent(QStringLiteral("Second")));
    browser->Search(QStringLiteral("Second.prj"));
    ASSERT_EQ(grid->rowCount(), 1);
    EXPECT_TRUE(grid->item(0, 5)->text().startsWith(QStringLiteral(".rlt")));  // the companions came along

    QSignalSpy opened(browser, &kvui::ProjectBrowserDialog::projectOpened);
    browser->findChild<QPushButton*>(QStringLiteral("Open"))->click();
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(ws.project.ProjektDatei, "Second.prj");
    EXPECT_FALSE(browser->isVisible());
}

}  // namespace
