// The refrigerant window offscreen: opened from the main menu on the
// project's fluid, another fluid chosen, the table exported.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "shell/files.h"
#include "shell/startup.h"
#include "ui/main_window.h"
#include "ui/picture_view.h"
#include "ui/refrigerant_dialog.h"
#include "workspace_fixture.h"

namespace {

class RefrigerantScreen : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 108;  // no welcome screen
        ws.project.KaelteM = "R134a";
    }
};

TEST_F(RefrigerantScreen, ShowsTheProjectFluidAndExportsAnother) {
    kvui::MainWindow window(ws);
    window.show();
    auto* button = window.findChild<QPushButton*>(QStringLiteral("Refrigerant"));
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->text().isEmpty());
    button->click();
    auto* dialog = window.findChild<kvui::RefrigerantDialog*>();
    ASSERT_NE(dialog, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
    auto* fluids = dialog->findChild<QTableWidget*>(QStringLiteral("Fluids"));
    auto* table = dialog->findChild<QTableWidget*>(QStringLiteral("Saturation"));
    EXPECT_EQ(fluids->item(fluids->currentRow(), 0)->text(), QStringLiteral("R134a"));
    EXPECT_EQ(fluids->item(fluids->currentRow(), 1)->text(), QStringLiteral("A1"));
    EXPECT_GT(table->rowCount(), 20);
    EXPECT_EQ(table->rowCount(), static_cast<int>(dialog->Table().size()));
    EXPECT_FALSE(dialog->findChild<kvui::PictureView*>(QStringLiteral("DomeView"))->Picture().items.empty());
    const QByteArray shots = qgetenv("KV_SCREENSHOTS");
    if (!shots.isEmpty()) dialog->grab().save(QString::fromLocal8Bit(shots) + QStringLiteral("/refrigerant.png"));

    for (int r = 0; r < fluids->rowCount(); ++r)
        if (fluids->item(r, 0)->text() == QStringLiteral("R717")) fluids->setCurrentCell(r, 0);
    EXPECT_EQ(fluids->item(fluids->currentRow(), 1)->text(), QStringLiteral("B2L"));
    ASSERT_GT(table->rowCount(), 0);
    const QString file = QString::fromStdString((root / "nh3.csv").string());
    ASSERT_TRUE(dialog->ExportCsv(file));
    const std::string csv = kv::ReadWholeFile(root / "nh3.csv");
    EXPECT_EQ(static_cast<int>(std::count(csv.begin(), csv.end(), '\n')), table->rowCount() + 1);
}

}  // namespace
