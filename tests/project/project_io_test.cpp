// What the engineer would lose: a save that fails unseen, a load that mixes
// two projects' working files, a cut file taken for a whole one, a
// write-protected file overwritten, a second window on the same directory.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "project/project_io.h"
#include "shell/data_dir_access.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace fs = std::filesystem;

namespace {

// A project file written from the layout: 152 head lines for a one-stage
// plant (line 1 of 9 items, line 2 of 2, the single-item lines, lines 33 to
// 35 of 3, 6 and 6 items), then the six embedded files with their counts.
std::vector<std::string> LayoutLines(const std::string& plantType, const std::string& name) {
    std::vector<std::string> l;
    l.push_back("\"" + name + "\",\"d\",\"01.01.2020\",\"" + plantType +
                "\",\"R134a\",\"RohrDM.DAT\",0,\"1§$%2§$%3§$%4§$%5§$%6§$%7§$%8§$%9§$%10§$%11§$%a§$%b§$%c§$%d§$%\",-60");
    l.push_back("\"A-1\",\"Semihermetic - Screw\"");
    for (int i = 0; i < 5 + 2; ++i) l.push_back("\"1\"");
    for (const char* f : {"10", "-10", "45", "5", "5", "5"}) l.push_back(std::string("\"") + f + "\"");
    for (int i = 0; i < 80 + 32 + 4; ++i) l.push_back("\"\"");
    for (int i = 0; i < 5 + 4 + 6 + 3; ++i) l.push_back("\"1\"");
    l.push_back("\"\",\"\",\"\"");
    l.push_back("\"\",\"\",\"\",\"\",\"\",\"0//\"");
    l.push_back("\"\",\"5\",\"\",\"\",\"%&§0\",\"\"");
    for (int i = 0; i < 6; ++i) l.push_back("\"h\",\"x\",\"x\",\"x\",\"x\",\"" + name + "\"");
    for (int lines : {1017, 5, 1383, 2010, 2010})
        for (int i = 0; i < lines; ++i) l.push_back("\"" + name + "\"");
    return l;
}

std::string Text(const std::vector<std::string>& lines, std::size_t keep) {
    std::string t;
    for (std::size_t i = 0; i < keep && i < lines.size(); ++i) t += lines[i] + "\r\n";
    return t;
}

class ProjectIo : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.project.ProjektNam = "P1";
        ws.project.ProjektDatei = "P1.prj";
        ws.project.AnlagenTyp = "HeatP";
    }
    kv::LoadOutcome Load(const std::string& file) {
        std::string type = "HeatP";
        return kv::LoadProjectAndTell(ws, type, (ws.DataDir() / file).string(), ws.project.DatenVerz + "/");
    }
};

unsigned Mode(const fs::path& p) {
    struct stat st {};
    ::stat(p.c_str(), &st);
    return st.st_mode & 07777;
}

}  // namespace

TEST_F(ProjectIo, AFailedSaveIsSaidWithFileAndReasonAndTheOldFileStays) {
    ASSERT_EQ(kv::SaveProjectAndTell(ws, "HeatP", ""), kv::SaveResult::Saved);
    const std::string saved = Get("P1.prj");
    ws.project.Tver = "-25";
    {
        kv::InjectedWriteFailure full("P1.prj", std::errc::no_space_on_device);
        EXPECT_EQ(kv::SaveProjectAndTell(ws, "HeatP", ""), kv::SaveResult::Failed);
    }
    ASSERT_FALSE(messages.empty());
    EXPECT_NE(messages.back().text.find("P1.prj"), std::string::npos);
    EXPECT_NE(messages.back().text.find(std::make_error_code(std::errc::no_space_on_device).message()),
              std::string::npos);
    EXPECT_EQ(Get("P1.prj"), saved);

    // A folder that cannot be written, even by root: it is a file.
    Put("plain", "x");
    EXPECT_EQ(kv::SaveProjectAndTell(ws, "HeatP", (ws.DataDir() / "plain").string() + "/"), kv::SaveResult::Failed);
    EXPECT_NE(messages.back().text.find(std::make_error_code(std::errc::not_a_directory).message()),
              std::string::npos);
}

TEST_F(ProjectIo, ALoadThatCannotWriteItsWorkingFilesLeavesTheOpenProject) {
    Put("A.prj", Text(LayoutLines("HeatP", "A"), 1u << 20));
    Put("B.prj", Text(LayoutLines("HeatP", "B"), 1u << 20));
    ASSERT_TRUE(Load("A.prj").loaded);
    const std::string hx = Get("hx_prj1.dat"), sub = Get("SubAct.dat");
    ASSERT_NE(hx.find("A"), std::string::npos);
    {
        kv::InjectedWriteFailure full("ac_prj1.dat", std::errc::no_space_on_device);
        const kv::LoadOutcome b = Load("B.prj");
        EXPECT_FALSE(b.loaded);
        EXPECT_EQ(b.failure.path.filename(), "ac_prj1.dat");
    }
    EXPECT_EQ(ws.project.ProjektNam, "A");
    EXPECT_EQ(Get("hx_prj1.dat"), hx);
    EXPECT_EQ(Get("SubAct.dat"), sub);
    EXPECT_NE(messages.back().text.find("ac_prj1.dat"), std::string::npos);
    ASSERT_TRUE(Load("B.prj").loaded);
    EXPECT_NE(Get("hx_prj1.dat").find("B"), std::string::npos);
}

TEST_F(ProjectIo, ATruncatedFileLoadsWithAWarningAndTheSaveAsksFirst) {
    const std::vector<std::string> lines = LayoutLines("HeatP", "T");
    Put("whole.prj", Text(lines, lines.size()));
    EXPECT_TRUE(Load("whole.prj").warnings.empty());
    EXPECT_TRUE(messages.empty());

    Put("head.prj", Text(lines, 100));
    const kv::LoadOutcome head = Load("head.prj");
    EXPECT_TRUE(head.loaded);
    ASSERT_EQ(head.warnings.size(), 2u);  // the head, and every block after it
    EXPECT_NE(head.warnings[0].find("head.prj ends within its head"), std::string::npos);
    EXPECT_NE(messages.back().text.find("head.prj"), std::string::npos);

    // A two-stage plant needs 33 head lines more than this file has.
    Put("twostage.prj", Text(LayoutLines("HeatPump-2st", "T"), lines.size()));
    EXPECT_FALSE(Load("twostage.prj").warnings.empty());

    Put("blocks.prj", Text(lines, 152 + 6 + 500));
    const kv::LoadOutcome blocks = Load("blocks.prj");
    ASSERT_EQ(blocks.warnings.size(), 1u);
    EXPECT_NE(blocks.warnings[0].find("cr_prj1.dat has 500 of its 1017"), std::string::npos);
    EXPECT_EQ(ws.loadWarnings, blocks.warnings);

    // The save after such a load asks; No writes nothing.
    ws.project.ProjektDatei = "blocks.prj";
    answer = false;
    const std::string before = Get("blocks.prj");
    EXPECT_EQ(kv::SaveProjectAndTell(ws, "HeatP", ""), kv::SaveResult::Declined);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_NE(questions[0].text.find("blocks.prj"), std::string::npos);
    EXPECT_EQ(Get("blocks.prj"), before);
}

TEST_F(ProjectIo, AWriteProtectedProjectIsOverwrittenOnlyOnYesAndStaysProtected) {
    ASSERT_EQ(kv::SaveProjectAndTell(ws, "HeatP", ""), kv::SaveResult::Saved);
    fs::permissions(ws.DataDir() / "P1.prj", fs::perms(0444));
    const std::string saved = Get("P1.prj");
    ws.project.Tver = "-25";
    answer = false;
    EXPECT_EQ(kv::SaveProjectAndTell(ws, "HeatP", ""), kv::SaveResult::Declined);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_NE(questions[0].text.find("write-protected"), std::string::npos);
    EXPECT_EQ(Get("P1.prj"), saved);
    answer = true;
    EXPECT_EQ(kv::SaveProjectAndTell(ws, "HeatP", ""), kv::SaveResult::Saved);
    EXPECT_NE(Get("P1.prj"), saved);
    EXPECT_EQ(Mode(ws.DataDir() / "P1.prj"), 0444u);
}

TEST_F(ProjectIo, ASecondWindowOnTheDataDirectoryWorksOnACopyOrReadOnly) {
    ASSERT_EQ(kv::OpenDataDirectory(ws), kv::DataDirectoryUse::Own);
    kv::Workspace second = ws;
    second.dataLock.reset();
    second.ui.askYesNo = [](const std::string&, const std::string&) { return true; };
    ASSERT_EQ(kv::OpenDataDirectory(second), kv::DataDirectoryUse::PrivateCopy);
    EXPECT_NE(second.DataDir(), ws.DataDir());
    EXPECT_EQ(second.sharedDataDir, ws.DataDir());
    EXPECT_TRUE(fs::exists(second.DataDir() / "R134A.DAT"));

    kv::Workspace third = ws;
    third.dataLock.reset();
    third.ui.askYesNo = [](const std::string&, const std::string&) { return false; };
    ASSERT_EQ(kv::OpenDataDirectory(third), kv::DataDirectoryUse::ReadOnly);
    EXPECT_EQ(kv::SaveProjectAndTell(third, "HeatP", ""), kv::SaveResult::Declined);
    const fs::path privateDir = third.DataDir();
    third = kv::Workspace();  // the read-only run's working set goes with it
    EXPECT_FALSE(fs::exists(privateDir));

    ws.dataLock.reset();  // the first window ends
    kv::Workspace fourth = second;
    fourth.project.DatenVerz = ws.project.DatenVerz;
    EXPECT_EQ(kv::OpenDataDirectory(fourth), kv::DataDirectoryUse::Own);
}
