// The project file as the screens name it: extensions added, Save to the
// file that was opened, the folder the dialogs start in, one pipe series.
#include <gtest/gtest.h>

#include "lines/pipe_series.h"
#include "project/project_paths.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

namespace fs = std::filesystem;

TEST(ProjectPaths, ExtensionsAreAddedNotCut) {
    EXPECT_EQ(kv::WithProjectExtension("/p/R290_AW10"), "/p/R290_AW10.prj");
    EXPECT_EQ(kv::WithProjectExtension("/p/Hall.PRJ"), "/p/Hall.PRJ");
    EXPECT_EQ(kv::WithProjectExtension("/p/v1.2"), "/p/v1.2.prj");
    EXPECT_EQ(kv::WithPictureExtension("/p/diagram", "pdf"), "/p/diagram.pdf");
    EXPECT_EQ(kv::WithPictureExtension("/p/diagram", ""), "/p/diagram.png");
    EXPECT_EQ(kv::WithPictureExtension("/p/diagram.SVG", "png"), "/p/diagram.SVG");
}

class ProjectPathsTest : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
};

TEST_F(ProjectPathsTest, SaveWritesToTheFileThatWasOpened) {
    kv::Project& p = ws.project;
    p.ProjektNam = "Hall 3";
    p.AnlagenTyp = "HeatP";
    p.ProjektVerz.clear();
    EXPECT_FALSE(kv::SaveToOpenFile(ws).has_value());  // no name yet: the screen asks for one
    EXPECT_EQ(kv::ProjectFolder(ws), p.DatenVerz);

    const fs::path folder = root / "projects";
    fs::create_directories(folder);
    ASSERT_EQ(kv::SaveProjectToPath(ws, (folder / "R290_AW10").string()), kv::SaveResult::Saved);
    EXPECT_TRUE(fs::exists(folder / "R290_AW10.prj"));
    EXPECT_EQ(kv::OpenProjectPath(ws), (folder / "R290_AW10.prj").string());
    EXPECT_EQ(kv::ProjectFolder(ws), folder.string());

    // Opened from elsewhere, Save goes back to that file and nowhere else.
    p.ProjektDatei = "Other.prj";
    p.ProjektVerz = ws.DataDir().string();
    ASSERT_TRUE(kv::OpenProjectFromPath(ws, (folder / "R290_AW10.prj").string()));
    EXPECT_EQ(p.ProjektDatei, "R290_AW10.prj");
    p.Tver = "-12";
    answer = true;  // overwrite
    ASSERT_EQ(kv::SaveToOpenFile(ws), kv::SaveResult::Saved);
    EXPECT_FALSE(fs::exists(ws.DataDir() / "R290_AW10.prj"));
    EXPECT_NE(kv::ReadWholeFile(folder / "R290_AW10.prj").find("-12"), std::string::npos);

    // A file that is not there leaves the open project as it was.
    EXPECT_FALSE(kv::OpenProjectFromPath(ws, (folder / "missing.prj").string()));
    EXPECT_EQ(p.ProjektDatei, "R290_AW10.prj");
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(ProjectPathsTest, EveryPipeSeriesBoxFollowsTheRecord) {
    std::string box;
    std::vector<std::string> list;
    const std::vector<std::string> all = kv::PipeSeriesList(ws);
    ASSERT_GE(all.size(), 2u);
    kv::ChoosePipeSeries(ws, all[1]);
    kv::SyncPipeSeries(ws, box, list);
    EXPECT_EQ(box, all[1]);
    kv::ChoosePipeSeries(ws, "");  // nothing chosen keeps the series
    kv::SyncPipeSeries(ws, box, list);
    EXPECT_EQ(box, all[1]);
    // The project's own file is shown under its name and kept in the list.
    ws.project.RohrDatei = "MYPIPES.DAT";
    kv::SyncPipeSeries(ws, box, list);
    EXPECT_EQ(box, "MYPIPES.DAT");
    EXPECT_EQ(list.back(), "MYPIPES.DAT");
}

}  // namespace
