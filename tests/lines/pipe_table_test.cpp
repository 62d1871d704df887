#include <gtest/gtest.h>

#include "lines/pipe_files.h"
#include "lines/pipe_table.h"
#include "shell/records.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;

namespace {

// A table text of `n` rows with da = 10, 20, ... and di = da - 2.
std::string Rows(int n) {
    std::string t = "\"2008\",\"7.01\"\r\n";
    for (int i = 1; i <= n; ++i) {
        const std::string da = std::to_string(10 * i), di = std::to_string(10 * i - 2);
        t += "\"" + da + " x 1\",\"" + da + "\",\"" + di + "\",\"\",\".2\",\".5\",\"12\",\"3\",\"4\",\"7,5\",\"40\","
             "\"0\",\"0\",\"0\",\"0\"\r\n";
    }
    return t;
}

}  // namespace

using PipeTables = WorkspaceTest;

TEST_F(PipeTables, FactorySeriesLoadInRisingOrderWithTheirFigures) {
    kv::InstallFactoryData(ws);
    for (const char* f : {"RohrDM.DAT", "RohrIN.DAT", "RohrDS.DAT", "RohrK65.DAT", "ROHRPI.DAT", "ROHRPII.DAT"}) {
        SCOPED_TRACE(f);
        kv::PipeTable t;
        const int n = kv::LoadPipeTable(ws, f, t, true);
        ASSERT_GE(n, 10);
        ASSERT_LE(n, kv::kPipeRows);
        for (int i = 1; i <= n; ++i) {
            EXPECT_GT(t.Da(i), t.Di(i));
            EXPECT_GT(t.PipePzul[i], 0);
            if (i > 1) {
                EXPECT_GT(t.Da(i), t.Da(i - 1));
            }
        }
        // The factory copy holds the same rows as the working file.
        if (!kv::FactoryCopyOf(f).empty()) {
            EXPECT_EQ(Get(kv::FactoryCopyOf(f)), Get(f));
        }
    }
    EXPECT_EQ(kv::LoadPipeTable(ws, "RohrUSER.DAT"), 0);
    kv::LoadPipeTable(ws, "rohrdm.dat");
    EXPECT_EQ(ws.pipes.Name(8), "22 x 1");
    EXPECT_EQ(ws.pipes.Di(8), 20);
    EXPECT_EQ(ws.pipes.PipeTimeText[8], "14");
}

TEST_F(PipeTables, PriceIsReadTolerantlyAndTheEndRowStaysCounted) {
    Put("T.DAT", Rows(3) + "\"\",\"0\",\"0\"\r\n" + Rows(2).substr(15));
    EXPECT_EQ(kv::LoadPipeTable(ws, "T.DAT"), 4);
    EXPECT_EQ(ws.pipes.PipePriceText[1], "7.5");
    EXPECT_EQ(ws.pipes.PipeDa[4], 0);
}

TEST_F(PipeTables, MoreThanThirtyRowsAreRefusedWithAMessage) {
    Put("T.DAT", Rows(35));
    EXPECT_EQ(kv::LoadPipeTable(ws, "T.DAT"), 30);
    EXPECT_EQ(ws.pipes.Da(30), 300);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("T.DAT"), std::string::npos);
}

TEST_F(PipeTables, DamagedFilesLoadWithoutHarm) {
    for (const std::string& c : kvtest::DamagedContents(Rows(20))) {
        Put("T.DAT", c);
        const int n = kv::LoadPipeTable(ws, "T.DAT");
        EXPECT_GE(n, 0);
        EXPECT_LE(n, kv::kPipeRows);
    }
    EXPECT_EQ(kv::LoadPipeTable(ws, "missing.DAT"), 0);
}

TEST_F(PipeTables, LookupsByValue) {
    Put("T.DAT", Rows(5));  // da 10..50, di 8..48
    kv::LoadPipeTable(ws, "T.DAT");
    EXPECT_EQ(kv::PipeLookup(ws, 20, 1, ""), 18);    // first da not below 20
    EXPECT_EQ(kv::PipeLookup(ws, 19, 2, ""), 30);    // first di not below 19: 28
    EXPECT_EQ(kv::PipeLookup(ws, 28, 3, ""), 3);
    EXPECT_EQ(kv::PipeLookup(ws, 31, 4, ""), 4);
    EXPECT_EQ(kv::PipeLookup(ws, 99, 3, ""), 5);     // above every di: the last row
    EXPECT_EQ(kv::PipeLookup(ws, 99, 1, ""), 0);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 5, " 30 x 1 "), 3);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 5, "nothing"), 1);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 5, "  "), 0);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 6, "40"), 4);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 99, "40"), 0);
}

TEST_F(PipeTables, LookupsOnAnEmptyTable) {
    kv::PipeTable empty;
    EXPECT_EQ(kv::PipeLookup(empty, 10, 1, ""), 0);
    EXPECT_EQ(kv::PipeLookup(empty, 10, 2, ""), 0);
    EXPECT_EQ(kv::PipeLookup(empty, 10, 3, ""), 0);
    EXPECT_EQ(kv::PipeLookup(empty, 10, 4, ""), 0);
    EXPECT_EQ(kv::PipeLookup(empty, 10, 5, "x"), 1);
}

TEST_F(PipeTables, LookupsInOtherSeriesRestoreTheProjectsTable) {
    kv::InstallFactoryData(ws);
    ws.project.RohrDatei = "RohrDS.DAT";
    kv::LoadPipeTable(ws, ws.project.RohrDatei);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 7, "22 x 1.5"), 22);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 8, "7/8 '"), 22.23);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 9, "DN 25 (33.7 x 2.6)"), 33.7);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 11, "GF PE 32 x 2.9"), 32);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 21, "K65 22.22 x 1.9"), 22.22);
    EXPECT_EQ(kv::PipeLookup(ws, 0, 9, "no such size"), 0);
    EXPECT_EQ(ws.pipes.file, "RohrDS.DAT");
    EXPECT_EQ(ws.pipes.Name(1), "DN 10 (17.2 x 1.8)");
}

TEST_F(PipeTables, NamesClassifyByTheirLastMark) {
    EXPECT_EQ(kv::ClassifyPipeName(ws, "22 x 1", 1), "K1Tstk.dat");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "22 x 1", 4), "RohrDM.dat");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "7/8", 2), "K2_RED.dat");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "7/8", 0), "RohrIN.std");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "7/8'", 0), "RohrIN.DAT");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "DN 25 (33.7 x 2.6)", 1), "S3Tstk.dat");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "GF PE 32 x 2.9", 0), "ROHRPII.DAT");
    EXPECT_EQ(kv::ClassifyPipeName(ws, "GF PE 32 x 2.9", 3), "GF - ");
    // K65 sizes and unknown names take the metric copper entries.
    for (const char* n : {"K65 22.22 x 1.9", "K65 7/8'", "???"}) {
        EXPECT_EQ(kv::ClassifyPipeName(ws, n, 1), "K1Tstk.dat");
        EXPECT_EQ(kv::ClassifyPipeName(ws, n, 2), "K1_RED.dat");
        EXPECT_EQ(kv::ClassifyPipeName(ws, n, 9), "RohrDM.dat");
    }
}
