// The catalogue editor and manager, offscreen, over the factory catalogues.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "shell/startup.h"
#include "ui/catalogue_dialogs.h"
#include "ui/main_window.h"
#include "workspace_fixture.h"

namespace {

class CatalogueScreens : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 108;
    }
};

TEST_F(CatalogueScreens, EditorFromTheMainMenuEditsAndSavesAGroup) {
    kvui::MainWindow window(ws);
    window.show();
    auto* button = window.findChild<QPushButton*>(QStringLiteral("Catalogue"));
    ASSERT_NE(button, nullptr);
    button->click();
    auto* editor = window.findChild<kvui::CatalogueEditorDialog*>();
    ASSERT_NE(editor, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(editor));
    EXPECT_EQ(editor->Model().base, "ALVORAN");

    editor->ShowGroup(1);  // solenoid valves, group 250
    auto* grid = editor->findChild<QTableWidget*>(QStringLiteral("ArticleGrid"));
    ASSERT_EQ(grid->rowCount(), 10);
    EXPECT_EQ(grid->horizontalHeaderItem(4)->text(), QStringLiteral("kv /[m³/h]"));
    EXPECT_EQ(grid->item(0, 0)->text(), QStringLiteral("MSV 6"));
    grid->item(0, 0)->setText(QStringLiteral("MSV 6 spezial für Öl"));
    EXPECT_EQ(editor->Model().rows[0].Field(1), "MSV 6 spezial für Öl");
    editor->findChild<QPushButton*>(QStringLiteral("DeleteRow"))->click();  // no current row: nothing goes
    EXPECT_EQ(grid->rowCount(), 10);
    editor->ShowGroup(2);  // switching saves the edited group
    EXPECT_EQ(Get("ALVORANN.rdm").substr(251 * 570, 20), "MSV 6 spezial f\x81r \x99l");

    kvui::CatalogueEditorDialog again(ws);
    EXPECT_EQ(again.Model().slot, 2);
    again.ShowGroup(1);
    EXPECT_EQ(again.findChild<QTableWidget*>(QStringLiteral("ArticleGrid"))->item(0, 0)->text(),
              QStringLiteral("MSV 6 spezial für Öl"));
    ASSERT_TRUE(again.Copy("MYCOPAN", "My copy"));
    EXPECT_EQ(again.findChild<QComboBox*>(QStringLiteral("Catalogues"))->currentData().toString(),
              QStringLiteral("MYCOPAN"));
    again.RebuildIndex();
    EXPECT_NE(Get("250I.dat").find("\"MYCOPAN\",\"My copy\""), std::string::npos);
    editor->close();
}

TEST_F(CatalogueScreens, ManagerInstallsAndRemoves) {
    kv::CreateCatalogue(ws, "SPAREVD", 1);
    kvui::CatalogueManagerDialog manager(ws);
    auto* installed = manager.findChild<QTableWidget*>(QStringLiteral("Installed"));
    EXPECT_EQ(installed->rowCount(), 7);
    EXPECT_EQ(manager.findChild<QComboBox*>(QStringLiteral("Candidates"))->currentText(), QStringLiteral("SPAREVD"));
    EXPECT_TRUE(manager.Install("SPAREVD", "Spare coolers"));
    EXPECT_EQ(installed->rowCount(), 8);
    EXPECT_EQ(installed->item(7, 2)->text().toStdString(), ws.captions[kv::Cap::CatKindEvaporators]);
    EXPECT_TRUE(manager.Remove("ALVORAN"));
    EXPECT_EQ(installed->rowCount(), 7);
    EXPECT_EQ(Get("katalg.lst").find("ALVORAN"), std::string::npos);
}

}  // namespace
