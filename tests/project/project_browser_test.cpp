#include <gtest/gtest.h>

#include "project/project_browser.h"
#include "project/project_file.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace fs = std::filesystem;

namespace {

class Browser : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        other = root / "elsewhere";
        fs::create_directories(other);
        // Heads written as the layout has them: name, description, date,
        // plant type, refrigerant, pipe table, flag, pack, tmin.
        Put("Store.prj", "\"Cold store 7\",\"Chilled goods\",\"01.02.2026\",\"Komp\",\"R134a\",\"RohrDM.DAT\",0,\"\",-60\r\n");
        Put("Store.rlt", "pipe list");
        Put("Store.cal", "calc");
        Put("pump.PRJ", "\"Brine pump\",\"Heat pump, school\",\"03.04.2025\",\"HeatP\",\"R290\"\r\n");
        Put("notes.txt", "not a project");
        kv::WriteFileAtomic(other / "Far.prj", "\"Far away\"");  // ends after the name
        kv::WriteFileAtomic(other / "empty.prj", "");
    }
    fs::path other;
};

TEST_F(Browser, ListsHeadsAndCompanionsOfAllDirectories) {
    kv::ProjectBrowser b(ws);
    b.AddDirectory(other);
    const std::size_t dirs = b.Directories().size();
    b.AddDirectory(ws.DataDir());  // once only
    EXPECT_EQ(b.Directories().size(), dirs);
    b.Scan();
    ASSERT_EQ(b.Shown().size(), 4u);
    const kv::BrowsedProject& store = b.Shown()[1];
    EXPECT_EQ(store.file.filename(), "Store.prj");
    EXPECT_EQ(store.name, "Cold store 7");
    EXPECT_EQ(store.description, "Chilled goods");
    EXPECT_EQ(store.date, "01.02.2026");
    EXPECT_EQ(store.plantType, "Komp");
    EXPECT_EQ(store.refrigerant, "R134a");
    EXPECT_EQ(store.companions, (std::vector<std::string>{".rlt", ".cal"}));
    EXPECT_EQ(b.Shown()[0].refrigerant, "R290");  // upper-case extension counts
    // Damaged files are listed with what they hold.
    EXPECT_EQ(b.Shown()[3].file.filename(), "Far.prj");
    EXPECT_EQ(b.Shown()[3].name, "Far away");
    EXPECT_TRUE(b.Shown()[3].plantType.empty());
    EXPECT_TRUE(b.Shown()[2].name.empty());

    b.Search("school");
    ASSERT_EQ(b.Shown().size(), 1u);
    EXPECT_EQ(b.Shown()[0].name, "Brine pump");
    b.Search(" r134A ");
    ASSERT_EQ(b.Shown().size(), 1u);
    b.Search("nothing like it");
    EXPECT_TRUE(b.Shown().empty());
    EXPECT_FALSE(b.Open(0));  // no row, no harm
    b.Search("");
    EXPECT_EQ(b.Shown().size(), 4u);
}

TEST_F(Browser, CopyRenameAndDeleteTakeTheCompanions) {
    kv::ProjectBrowser b(ws);
    b.Scan();
    ASSERT_TRUE(b.Copy(1, "Store copy"));  // rows: pump.PRJ, Store.prj
    EXPECT_EQ(Get("Store copy.prj"), Get("Store.prj"));
    EXPECT_EQ(Get("Store copy.rlt"), "pipe list");
    EXPECT_EQ(Get("Store copy.cal"), "calc");
    EXPECT_FALSE(fs::exists(ws.DataDir() / "Store copy.vlt"));

    // A taken, empty or path-like name is refused with a message.
    const std::size_t said = messages.size();
    EXPECT_FALSE(b.Copy(0, "Store.prj"));
    EXPECT_FALSE(b.Rename(0, "  "));
    EXPECT_FALSE(b.Rename(0, "../up"));
    EXPECT_EQ(messages.size(), said + 3);

    b.Search("Store copy");
    ASSERT_EQ(b.Shown().size(), 1u);
    ASSERT_TRUE(b.Rename(0, "Moved.prj"));
    EXPECT_FALSE(fs::exists(ws.DataDir() / "Store copy.prj"));
    EXPECT_FALSE(fs::exists(ws.DataDir() / "Store copy.rlt"));
    EXPECT_EQ(Get("Moved.cal"), "calc");

    b.Search("Moved");
    answer = false;
    EXPECT_FALSE(b.Delete(0));
    EXPECT_TRUE(fs::exists(ws.DataDir() / "Moved.prj"));
    answer = true;
    EXPECT_TRUE(b.Delete(0));
    EXPECT_FALSE(fs::exists(ws.DataDir() / "Moved.prj"));
    EXPECT_FALSE(fs::exists(ws.DataDir() / "Moved.rlt"));
    EXPECT_TRUE(fs::exists(ws.DataDir() / "Store.rlt"));
    EXPECT_TRUE(b.Shown().empty());
}

TEST_F(Browser, OpenLoadsAsTheLoadActionDoes) {
    ws.project.ProjektNam = "Saved plant";
    ws.project.KaelteM = "R404A";
    const std::string dir = other.string() + "/";
    ASSERT_EQ(kv::SaveProject(ws, "HeatP", dir), kv::SaveResult::Saved);
    ws.project.ProjektNam = "changed";
    ws.project.AnlagenTyp = "Komp";
    kv::ProjectBrowser b(ws);
    b.AddDirectory(other);
    b.Scan();
    b.Search("Saved plant");
    ASSERT_EQ(b.Shown().size(), 1u);
    ASSERT_TRUE(b.Open(0));
    EXPECT_EQ(ws.project.ProjektNam, "Saved plant");
    EXPECT_EQ(ws.project.AnlagenTyp, "HeatP");
    EXPECT_EQ(ws.project.ProjektDatei, "Savedplant.prj");
    EXPECT_EQ(fs::path(ws.project.ProjektVerz), fs::path(other));
}

}  // namespace
