#include <gtest/gtest.h>

#include "shell/files.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;
namespace fs = std::filesystem;

using FileRoutines = WorkspaceTest;

TEST_F(FileRoutines, NamesResolveInTheDataDirectoryWithoutRegardToCase) {
    Put("RohrDM.DAT", "x");
    fs::create_directories(ws.DataDir() / "Samples");
    kv::WriteFileAtomic(ws.DataDir() / "Samples" / "Heat.prj", "p");

    EXPECT_EQ(kv::ResolveName(ws, "rohrdm.dat"), ws.DataDir() / "RohrDM.DAT");
    EXPECT_EQ(kv::ResolveName(ws, "ROHRDM.DAT"), ws.DataDir() / "RohrDM.DAT");
    // Both separators, and case-insensitive parts of a path.
    const std::string back = ws.project.DatenVerz + "\\SAMPLES\\heat.PRJ";
    EXPECT_EQ(kv::ResolveName(ws, back), ws.DataDir() / "Samples" / "Heat.prj");
    // A new file keeps the spelling it was given.
    EXPECT_EQ(kv::ResolveName(ws, "New.dat"), ws.DataDir() / "New.dat");
    // A name with a drive is used as it stands.
    EXPECT_EQ(kv::ResolveName(ws, "C:\\Kelvaris\\x.dat"), fs::path("C:/Kelvaris/x.dat"));
    EXPECT_EQ(kv::FileLength(ws, "rohrdm.dat"), 1u);
    EXPECT_EQ(kv::FileLength(ws, "missing.dat"), 0u);
}

TEST_F(FileRoutines, OutputReplacesWholeAndAppendAdds) {
    {
        kv::OutFile out = kv::OpenOut(ws, "work.dat");
        out.Write().Item("a").Item(1).EndLine();
    }
    EXPECT_EQ(Get("work.dat"), "\"a\",1\r\n");
    {
        kv::OutFile out = kv::OpenAppend(ws, "WORK.DAT");  // same file, other case
        out.Line("b");
    }
    EXPECT_EQ(Get("work.dat"), "\"a\",1\r\nb\r\n");
    kv::OpenOut(ws, "work.dat").Close();  // opening for output empties it
    EXPECT_EQ(kv::FileLength(ws, "work.dat"), 0u);
    // No temporary file is left behind.
    int files = 0;
    for ([[maybe_unused]] const auto& e : fs::directory_iterator(ws.DataDir())) ++files;
    EXPECT_EQ(files, 1);
    // A missing file reads as empty.
    EXPECT_EQ(kv::OpenIn(ws, "nothing.dat").Length(), 0u);
}

TEST_F(FileRoutines, WritingClearsTheReadOnlyMarkReadingDoesNot) {
    // The mark itself is looked at: root may write a file without it, so
    // only the permission bits show whether the mark was cleared.
    const fs::path path = ws.DataDir() / "ro.dat";
    auto readOnly = [&] {
        Put("ro.dat", "x");
        fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                        fs::perm_options::remove);
    };
    auto writable = [&] { return (fs::status(path).permissions() & fs::perms::owner_write) != fs::perms::none; };
    readOnly();
    kv::OpenAppend(ws, "ro.dat").Line("y");
    EXPECT_TRUE(writable());
    EXPECT_EQ(Get("ro.dat"), "xy\r\n");
    readOnly();
    kv::OpenRandom(ws, "ro.dat", 1).Put(1, "z");
    EXPECT_TRUE(writable());
    EXPECT_EQ(Get("ro.dat"), "z");
    readOnly();
    kv::OpenIn(ws, "ro.dat");  // reading leaves the mark alone
    EXPECT_FALSE(writable());
}

TEST_F(FileRoutines, AWorkingFileMarkedReadOnlyIsStillWritten) {
    Put("ro.dat", "x");
    fs::permissions(ws.DataDir() / "ro.dat", fs::perms::owner_write, fs::perm_options::remove);
    kv::OpenOut(ws, "ro.dat").Line("y");
    EXPECT_EQ(Get("ro.dat"), "y\r\n");
}

TEST_F(FileRoutines, RandomRecordsByNumber) {
    kv::RandomFile f = kv::OpenRandom(ws, "rec.rdm", 0);
    EXPECT_EQ(f.RecordLength(), 128);
    kv::RandomFile g = kv::OpenRandom(ws, "rec.rdm", 10);
    ASSERT_TRUE(g.Put(3, "third"));
    ASSERT_TRUE(g.Put(1, "first record too long"));
    EXPECT_EQ(g.RecordCount(), 3);
    std::string r = "unchanged";
    ASSERT_TRUE(g.Get(1, r));
    EXPECT_EQ(r, "first reco");
    ASSERT_TRUE(g.Get(2, r));
    EXPECT_EQ(r, std::string(10, ' '));
    ASSERT_TRUE(g.Get(3, r));
    EXPECT_EQ(r, "third     ");
    r = "unchanged";
    EXPECT_FALSE(g.Get(4, r));
    EXPECT_FALSE(g.Get(0, r));
    EXPECT_EQ(r, "unchanged");
}

TEST_F(FileRoutines, ConfirmOverwriteAsksOnlyForAFileWithContent) {
    Put("empty.prj", "");
    EXPECT_TRUE(kv::ConfirmOverwrite(ws, "empty.prj", "Project"));
    EXPECT_TRUE(kv::ConfirmOverwrite(ws, "missing.prj", "Project"));
    EXPECT_TRUE(questions.empty());

    Put("full.prj", "data");
    answer = false;
    EXPECT_FALSE(kv::ConfirmOverwrite(ws, "full.prj", "Project"));
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_EQ(questions[0].title, "Project " + ws.settings.VersionText);
    EXPECT_EQ(questions[0].text.rfind("full.prj ", 0), 0u);
    answer = true;
    EXPECT_TRUE(kv::ConfirmOverwrite(ws, "full.prj", "Project"));
}

TEST_F(FileRoutines, DeleteFileInTheDataDirectory) {
    Put("Verdpark.dat", "x");
    EXPECT_TRUE(kv::DeleteFile(ws, "VERDPARK.DAT"));
    EXPECT_EQ(kv::FileLength(ws, "Verdpark.dat"), 0u);
    EXPECT_TRUE(kv::DeleteFile(ws, "never-there.dat"));
    EXPECT_FALSE(ws.loeschFehler);
    EXPECT_TRUE(messages.empty());
}

TEST_F(FileRoutines, HistoryLineOfEightItems) {
    ws.project.AnlagenTyp = "HeatP";
    kv::WriteHistory(ws, "save", "P1.prj", "", "x", "y");
    kv::RecordReader in = kv::OpenIn(root / "KV_hist.log");
    std::vector<std::string> items(8);
    for (auto& i : items) ASSERT_TRUE(in.Read(i));
    EXPECT_EQ(items[2], "save");
    EXPECT_EQ(items[7], "HeatP");
    EXPECT_TRUE(in.AtEnd());
}
