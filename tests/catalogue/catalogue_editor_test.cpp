#include <gtest/gtest.h>

#include "catalogue/catalogue_editor.h"
#include "shell/files.h"
#include "workspace_fixture.h"

namespace {

class CatalogueEditorModel : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        ws.captions.caption.Assign(std::vector<std::string>(600, "w"));
        ASSERT_TRUE(kv::CreateCatalogue(ws, "MYVALMV", 1));
        Put("katalg.lst", "\"MYVALMVN.rdm\",\"My valves\"\r\n");
    }
    kv::CatalogueEditor ed;
};

TEST_F(CatalogueEditorModel, EditSaveAndReload) {
    kv::OpenCatalogueEditor(ws, ed);
    ASSERT_EQ(ed.base, "MYVALMV");
    EXPECT_EQ(ed.kind, 7);
    EXPECT_EQ(ed.slot, 1);
    EXPECT_TRUE(ed.rows.empty());
    ASSERT_TRUE(kv::AddArticle(ed, 0));
    ASSERT_TRUE(kv::AddArticle(ed, 1));
    kv::SetSeriesName(ed, "Ventile für Flüssigkeit");
    kv::SetEditorCell(ed, 0, 1, "MV 10");   // type
    kv::SetEditorCell(ed, 0, 5, "0.8");     // kv
    kv::SetEditorCell(ed, 0, 4, "10");      // connection
    kv::SetEditorCell(ed, 0, 2, "ORDER-NUMBER-TOO-LONG");
    kv::SetEditorCell(ed, 1, 1, "MV 16");
    kv::SetEditorCell(ed, 1, 5, "2,5");
    kv::SetEditorCell(ed, 1, 21, "Coil ü");  // accessory block 1, type I
    EXPECT_EQ(kv::EditorCell(ed, 0, 2), "ORDER-NUMBER-TO");  // cut to the 15 bytes of the field
    ASSERT_TRUE(kv::SaveGroup(ws, ed));

    // The bytes stand where the layout puts them: slot 1 is group 250, rows from record 252.
    const std::string n = Get("MYVALMVN.rdm");
    EXPECT_EQ(n.substr(251 * 570, 5), "MV 10");
    EXPECT_EQ(n.substr(251 * 570 + 40, 5), "0.8  ");
    EXPECT_EQ(n.substr(252 * 570 + 202, 6), "Coil \x81");
    EXPECT_EQ(Get("MYVALMVI.rdm").substr(0, 23), "Ventile f\x81r Fl\x81ssigkeit");

    kv::CatalogueEditor again;
    kv::OpenCatalogueEditor(ws, again);
    EXPECT_EQ(again.slot, 1);  // katalg.DAT remembers the group
    ASSERT_EQ(again.rows.size(), 2u);
    EXPECT_EQ(again.seriesNames[0], "Ventile für Flüssigkeit");
    EXPECT_EQ(kv::EditorCell(again, 1, 5), "2,5");
    EXPECT_EQ(kv::EditorCell(again, 1, 21), "Coil ü");

    // Deleting the first row moves the second up and blanks its old record.
    kv::DeleteArticle(again, 0);
    ASSERT_TRUE(kv::SaveGroup(ws, again));
    const std::string m = Get("MYVALMVN.rdm");
    EXPECT_EQ(m.substr(251 * 570, 5), "MV 16");
    EXPECT_EQ(m.substr(252 * 570, 570), std::string(570, ' '));
    EXPECT_EQ(m.size(), 900u * 570);

    ASSERT_TRUE(kv::HideSeries(ws, again));
    EXPECT_TRUE(kv::IsHidden(ws, "ventile für"));
}

TEST_F(CatalogueEditorModel, HeadingsByKindAndGroup) {
    EXPECT_EQ(kv::FieldOfColumn(1), 1);
    EXPECT_EQ(kv::FieldOfColumn(5), 2);
    EXPECT_EQ(kv::FieldOfColumn(6), 17);
    EXPECT_EQ(kv::FieldOfColumn(8), 19);
    EXPECT_EQ(kv::FieldOfColumn(17), 7);
    EXPECT_EQ(kv::FieldOfColumn(18), 16);
    EXPECT_EQ(kv::FieldOfColumn(19), 20);
    EXPECT_EQ(kv::FieldOfColumn(38), 39);
    EXPECT_EQ(kv::FieldOfColumn(39), 0);
    auto h = kv::EditorHeadings(ws, 7, 252);
    EXPECT_EQ(h[4], "kv /[m³/h]");
    EXPECT_EQ(h[5], "dpmax /[mbar]");
    h = kv::EditorHeadings(ws, 0, 102);
    EXPECT_EQ(h[5], "Qo R22 /[kW]");
    h = kv::EditorHeadings(ws, 0, 802);
    EXPECT_EQ(h[4], "V km /[dm³]");
    h = kv::EditorHeadings(ws, 4, 652);
    EXPECT_EQ(h[5], "Qo /[kW]");
    EXPECT_EQ(h[14], "Lp-3 /[dbA]");
    h = kv::EditorHeadings(ws, 5, 552);
    EXPECT_EQ(h[4], "Vh /[m³/h]");
    EXPECT_EQ(h[16], "Typ");
    EXPECT_EQ(h[7], "w /[EUR]");
}

TEST_F(CatalogueEditorModel, CopyCreateAndManage) {
    kv::OpenCatalogueEditor(ws, ed);
    kv::AddArticle(ed, 0);
    kv::SetSeriesName(ed, "Liquid valves");
    kv::SetEditorCell(ed, 0, 1, "MV 22");
    kv::SetEditorCell(ed, 0, 5, "5");
    kv::SaveGroup(ws, ed);
    ASSERT_TRUE(kv::CopyCatalogue(ws, ed, "COPYVMV", "Copy of my valves"));
    EXPECT_EQ(ed.base, "COPYVMV");
    ASSERT_EQ(ed.rows.size(), 1u);
    EXPECT_FALSE(kv::CopyCatalogue(ws, ed, "COPYVMV", "twice"));  // the base is taken
    EXPECT_FALSE(kv::NewCatalogue(ws, ed, "SHORT", "too short a base"));
    ASSERT_TRUE(kv::NewCatalogue(ws, ed, "BLANKKD", "Blank condensers"));
    EXPECT_EQ(ed.kind, 4);
    EXPECT_TRUE(ed.rows.empty());

    auto listed = kv::ListInstalled(ws);
    ASSERT_EQ(listed.size(), 3u);
    EXPECT_EQ(listed[1].title, "Copy of my valves");
    EXPECT_TRUE(kv::RemoveCatalogue(ws, "copyvmv"));
    EXPECT_FALSE(kv::RemoveCatalogue(ws, "COPYVMV"));
    EXPECT_EQ(kv::InstallableBases(ws), std::vector<std::string>{"COPYVMV"});
    EXPECT_TRUE(kv::InstallCatalogue(ws, "COPYVMV", "Back again"));
    EXPECT_FALSE(kv::InstallCatalogue(ws, "NOFILES", "no files"));
    EXPECT_NE(Get("250I.dat").find("\"COPYVMV\",\"Back again\""), std::string::npos);
}

}  // namespace
