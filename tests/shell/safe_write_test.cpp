// The user's files: a failed write leaves the old file whole and says why,
// two writers never mix, reading never changes a mode, a save keeps the mode
// and writes through a symbolic link.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <atomic>
#include <thread>

#include "shell/files.h"
#include "shell/settings.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;
namespace fs = std::filesystem;

namespace {
unsigned Mode(const fs::path& p) {
    struct stat st {};
    ::stat(p.c_str(), &st);
    return st.st_mode & 07777;
}
int FilesIn(const fs::path& dir) {
    int n = 0;
    for ([[maybe_unused]] const auto& e : fs::directory_iterator(dir)) ++n;
    return n;
}
}  // namespace

using SafeWrite = WorkspaceTest;

TEST_F(SafeWrite, FullDiskOrUnwritableFolderLeavesTheOldFileAndSaysWhy) {
    const fs::path file = ws.DataDir() / "keep.dat";
    Put("keep.dat", "old content");
    {
        kv::InjectedWriteFailure full("keep.dat", std::errc::no_space_on_device);
        const kv::WriteFailure f = kv::WriteFileChecked(file, std::string(10000, 'x'));
        ASSERT_TRUE(f);
        EXPECT_EQ(f.error, std::errc::no_space_on_device);
        EXPECT_NE(f.Text().find("keep.dat"), std::string::npos);
        // The OutFile of a workspace keeps the failure for whoever shows it.
        kv::OutFile out = kv::OpenOut(ws, "keep.dat");
        out.Line("new");
        EXPECT_FALSE(out.Close());
        ASSERT_EQ(ws.writeFailures.size(), 1u);
    }
    EXPECT_EQ(Get("keep.dat"), "old content");
    EXPECT_EQ(FilesIn(ws.DataDir()), 1);  // no temporary left behind

    // Places that not even root can write: a folder that is a file, /proc,
    // a directory standing where the file should be.
    EXPECT_EQ(kv::WriteFileChecked(file / "x.dat", "x").error, std::errc::not_a_directory);
    EXPECT_TRUE(kv::WriteFileChecked("/proc/kelvaris_test.dat", "x"));
    fs::create_directories(ws.DataDir() / "dir.dat");
    EXPECT_TRUE(kv::WriteFileChecked(ws.DataDir() / "dir.dat", "x"));
    EXPECT_FALSE(kv::WriteFileAtomic(root / "no" / "such" / "dir.dat", "x"));
}

TEST_F(SafeWrite, TwoWritersOfOneFileNeverMix) {
    const fs::path file = ws.DataDir() / "X.prj";
    const std::string a(200000, 'a'), b(300000, 'b');
    auto writer = [&file](const std::string& text, int& failures) {
        for (int i = 0; i < 100; ++i)
            if (!kv::WriteFileAtomic(file, text)) ++failures;
    };
    int failA = 0, failB = 0;
    std::atomic<int> running{2};
    auto run = [&](const std::string& text, int& failures) {
        writer(text, failures);
        --running;
    };
    std::thread ta(run, std::cref(a), std::ref(failA)), tb(run, std::cref(b), std::ref(failB));
    // A reader meanwhile sees one whole file or the other, never a mix or nothing.
    int seen = 0;
    while (running > 0) {
        const std::string t = kv::ReadWholeFile(file);
        if (t.empty()) continue;  // before the first rename
        ++seen;
        ASSERT_TRUE(t == a || t == b) << "a mixed file of " << t.size() << " bytes";
    }
    ta.join();
    tb.join();
    EXPECT_EQ(failA + failB, 0);
    EXPECT_GT(seen, 0);
    EXPECT_EQ(FilesIn(ws.DataDir()), 1);
}

TEST_F(SafeWrite, ReadingLeavesModesAndSavingKeepsModeAndLink) {
    // A write-protected project and a settings file nobody may read.
    Put("ro.prj", "p");
    fs::permissions(ws.DataDir() / "ro.prj", fs::perms(0444));
    kv::OpenIn(ws, "ro.prj");
    EXPECT_EQ(Mode(ws.DataDir() / "ro.prj"), 0444u);
    kv::WriteFileAtomic(ws.settingsFile, "\"\",\"\"\r\n");
    fs::permissions(ws.settingsFile, fs::perms::none);
    kv::LoadSettings(ws);
    EXPECT_EQ(Mode(ws.settingsFile), 0u);

    // A private file stays private after a save.
    Put("own.dat", "1");
    fs::permissions(ws.DataDir() / "own.dat", fs::perms(0600));
    ASSERT_TRUE(kv::WriteFileAtomic(ws.DataDir() / "own.dat", "2"));
    EXPECT_EQ(Mode(ws.DataDir() / "own.dat"), 0600u);

    // A link is written through: the link stays, its target changes.
    fs::create_directories(root / "elsewhere");
    kv::WriteFileAtomic(root / "elsewhere" / "real.prj", "old");
    fs::create_symlink(root / "elsewhere" / "real.prj", ws.DataDir() / "link.prj");
    ASSERT_TRUE(kv::WriteFileAtomic(ws.DataDir() / "link.prj", "new"));
    EXPECT_TRUE(fs::is_symlink(ws.DataDir() / "link.prj"));
    EXPECT_EQ(kv::ReadWholeFile(root / "elsewhere" / "real.prj"), "new");
}
