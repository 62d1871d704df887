#include <gtest/gtest.h>

#include "lines/insulation.h"
#include "lines/pipe_editor.h"
#include "lines/pipe_files.h"
#include "lines/pipe_table.h"
#include "shell/records.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;

namespace {

std::vector<std::string> Items(const std::string& text) {
    kv::RecordReader in(text);
    std::vector<std::string> items;
    std::string s;
    while (in.Read(s)) items.push_back(s);
    return items;
}

}  // namespace

using PipeFiles = WorkspaceTest;

TEST_F(PipeFiles, MigrationSplitsTheJoinedTextOfTheOldLayout) {
    Put("RohrDM.DAT",
        "\"Kupfer\"\r\n\"22 x 1#§&12.5$?58%#14\",22,20\r\n\"12 x 1#§&7$?\",12,10\r\n\"carried\",0,1\r\n"
        "\"lost#§&3$?9%#5\",28,26\r\n\"\",0,0\r\n\"after the end#§&1\",35,32\r\n");
    Put("ROHRPI.DAT", "\"old\"\r\n\"SS 33.7#§&50$?150%#35\",33.7,29.7\r\n");
    Put("RohrDS.DAT", "\"2008\",\"anything\"\r\n\"DN 10\",17.2,13.6\r\n");
    const std::string steel = Get("RohrDS.DAT");
    EXPECT_EQ(kv::MigratePipeTables(ws, 1), 2);
    EXPECT_EQ(Get("RohrDS.DAT"), steel);  // "2008" first: up to date

    const auto dm = Items(Get("RohrDM.DAT"));
    ASSERT_EQ(dm.size(), 2u + 3 * 15);
    EXPECT_EQ(dm[0], "2008");
    EXPECT_EQ(dm[1], "7.01");
    const std::vector<std::string> first = {"22 x 1", "22", "20", ".3", ".2", ".5", "14", "", "", "12.5", "58",
                                            "0", "0", "0", "0"};
    EXPECT_EQ(std::vector<std::string>(dm.begin() + 2, dm.begin() + 17), first);
    EXPECT_EQ(dm[17], "12 x 1");
    EXPECT_EQ(dm[20], "");      // below 18 mm no first spare
    EXPECT_EQ(dm[26], "7");     // price
    EXPECT_EQ(dm[27], "");      // the text ends before the pressure
    EXPECT_EQ(dm[32], "carried");  // a text without the mark names the next row
    EXPECT_EQ(dm[41], "3");

    const auto pi = Items(Get("ROHRPI.DAT"));
    ASSERT_EQ(pi.size(), 17u);
    EXPECT_EQ(pi[5], "");       // the further series get no spares
    EXPECT_EQ(pi[12], "150");
    EXPECT_EQ(kv::MigratePipeTables(ws, 2), 0);
}

TEST_F(PipeFiles, SortMovesWholeRowsAndDropsRowsWithoutDiameter) {
    Put("T.DAT",
        "\"2008\",\"7.01\"\r\n\"b\",\"28,0\",\"26\",\"\",\"\",\"\",\"15\",\"\",\"\",\"9\",\"46\",\"0\",\"0\",\"0\",\"0\"\r\n"
        "\"z\",\"0\",\"0\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0\",\"0\",\"0\",\"0\"\r\n"
        "\"a\",\"12\",\"10\",\"\",\"\",\"\",\"11\",\"\",\"\",\"5\",\"114\",\"1\",\"2\",\"3\",\"4\"\r\n");
    EXPECT_TRUE(kv::SortPipeFile(ws, "T.DAT"));
    EXPECT_EQ(Get("T.DAT"),
              "\"2008\",\"7.01\"\r\n\"a\",\"12\",\"10\",\"\",\"\",\"\",\"11\",\"\",\"\",\"5\",\"114\",\"1\",\"2\",\"3\","
              "\"4\"\r\n\"b\",\"28\",\"26\",\"\",\"\",\"\",\"15\",\"\",\"\",\"9\",\"46\",\"0\",\"0\",\"0\",\"0\"\r\n");
    EXPECT_FALSE(kv::SortPipeFile(ws, "missing.DAT"));
    EXPECT_FALSE(kvtest::fs::exists(ws.DataDir() / "missing.DAT"));
}

TEST_F(PipeFiles, EditorMapsColumnsAndSavesQuotesAsApostrophes) {
    kv::InstallFactoryData(ws);
    kv::PipeEditor e = kv::LoadPipeEditor(ws, "RohrDM.DAT");
    EXPECT_EQ(e.grid.Cell(1, 8), "22 x 1");
    EXPECT_EQ(e.grid.Cell(5, 8), "59");   // p zul on column 5
    EXPECT_EQ(e.grid.Cell(6, 8), "14");   // minutes on column 6
    EXPECT_EQ(e.grid.Cell(7, 8), ".3");   // first spare hidden on 7

    kv::InsertEditorRow(e, 1);
    e.grid.Cell(1, 1) = "5\" x 1\"";
    e.grid.Cell(2, 1) = "5\"";
    e.grid.Cell(3, 1) = "3";
    kv::DeleteEditorRow(e, 3);             // "8 x 1" goes
    // A row is never dropped: "15 x 1" without di and a letter in a price
    // are refused, each named, and the file stays as it was.
    const std::string before = Get("RohrDM.DAT");
    e.grid.Cell(3, 5) = "0";
    e.grid.Cell(4, 6) = "1O";
    EXPECT_FALSE(kv::SavePipeEditor(ws, e));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("di/[mm] (5): "), std::string::npos);
    EXPECT_NE(messages[0].text.find(kv::EditorHeading(ws, 4) + " (6): " + ws.captions.Message(12)),
              std::string::npos);
    EXPECT_EQ(Get("RohrDM.DAT"), before);
    e.grid.Cell(4, 6) = "10";
    kv::DeleteEditorRow(e, 5);
    ASSERT_TRUE(kv::SavePipeEditor(ws, e));
    const std::string text = Get("RohrDM.DAT");
    EXPECT_NE(text.find("\"5'' x 1''\",\"5''\",\"3\""), std::string::npos);
    EXPECT_EQ(text.find("\"8 x 1\""), std::string::npos);
    EXPECT_EQ(text.find("\"15 x 1\""), std::string::npos);
    kv::PipeTable t;
    EXPECT_EQ(kv::LoadPipeTable(ws, "RohrDM.DAT", t, false), 15);
    EXPECT_EQ(t.Name(1), "5'' x 1''");
}

TEST_F(PipeFiles, RestoreCopiesTheFactorySeriesBack) {
    kv::InstallFactoryData(ws);
    kv::PipeEditor e = kv::LoadPipeEditor(ws, "rohrk65.dat");
    const std::string factory = Get("RohrK65.STD");
    Put("RohrK65.DAT", "\"2008\",\"7.01\"\r\n");
    answer = false;
    EXPECT_FALSE(kv::RestorePipeTable(ws, e));
    answer = true;
    EXPECT_TRUE(kv::RestorePipeTable(ws, e));
    EXPECT_EQ(Get("RohrK65.DAT"), factory);
    EXPECT_EQ(e.grid.Cell(1, 1), "K65 6.35 x 0.65");

    kv::PipeEditor user = kv::LoadPipeEditor(ws, "RohrUSER.DAT");
    EXPECT_FALSE(kv::RestorePipeTable(ws, user));
    EXPECT_EQ(messages.size(), 1u);
}

TEST_F(PipeFiles, RestoreEndsAtTheEndMarkOfAnOldEditor) {
    kv::InstallFactoryData(ws);
    const std::string factory = Get("RohrK65.STD");
    Put("RohrK65.STD", factory + "\x1a" "text behind the mark\r\n");
    kv::PipeEditor e = kv::LoadPipeEditor(ws, "RohrK65.DAT");
    ASSERT_TRUE(kv::RestorePipeTable(ws, e));
    EXPECT_EQ(Get("RohrK65.DAT"), factory);
}

TEST_F(PipeFiles, AnEmptyK65SeriesIsReplacedByItsFactoryCopy) {
    kv::InstallFactoryData(ws);
    Put("RohrK65.DAT", "");
    EXPECT_TRUE(kv::EnsureK65Table(ws));
    EXPECT_EQ(Get("RohrK65.DAT"), Get("RohrK65.STD"));
    EXPECT_FALSE(kv::EnsureK65Table(ws));
}

TEST_F(PipeFiles, DamagedFilesSurviveEveryRoutine) {
    kv::InstallFactoryData(ws);
    for (const std::string& c : kvtest::DamagedContents(Get("RohrDM.DAT"))) {
        for (const char* f : {"RohrDM.DAT", "ROHRPII.DAT", "RLDaemm.dat"}) Put(f, c);
        kv::MigratePipeTables(ws, 1);
        kv::SortPipeFile(ws, "RohrDM.DAT");
        kv::PipeEditor e = kv::LoadPipeEditor(ws, "ROHRPII.DAT");
        // Either saved, or refused with the cells named.
        messages.clear();
        EXPECT_TRUE(kv::SavePipeEditor(ws, e) || messages.size() == 1u);
        EXPECT_EQ(kv::LoadInsulation(ws).line.size(), 5u);
    }
}

TEST_F(PipeFiles, InsulationTakesDefaultsAndFollowsTheEvaporatingTemperature) {
    Put("RLDaemm.dat", "9\r\n\r\n  \r\n");
    const kv::InsulationThicknesses t = kv::LoadInsulation(ws);
    EXPECT_EQ(Get("RLDaemm.dat"), "9\r\n19\r\n32\r\n13\r\n");
    EXPECT_EQ(kv::SuctionInsulation(t, 0), "9");
    EXPECT_EQ(kv::SuctionInsulation(t, -0.1), "19");
    EXPECT_EQ(kv::SuctionInsulation(t, -15), "19");
    EXPECT_EQ(kv::SuctionInsulation(t, -15.1), "32");
}
