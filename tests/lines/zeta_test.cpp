#include <gtest/gtest.h>

#include "lines/zeta.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;

using ZetaValues = WorkspaceTest;

TEST_F(ZetaValues, NineAreWrittenTenAreRead) {
    Put("KSIWERT.DAT", "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n0.5\r\n4.5\r\n99\r\n");
    kv::LoadZetaTable(ws);
    EXPECT_EQ(kv::Zeta(ws)[10], 4.5);
    EXPECT_EQ(kv::Zeta(ws)[11], 0);
    kv::ZetaScreen s = kv::OpenZetaScreen(ws);
    EXPECT_EQ(s.cell[9], "0.5");
    s.cell[2] = "2,25";
    ASSERT_TRUE(kv::zeta_speich(ws, s));
    EXPECT_FALSE(s.open);
    EXPECT_EQ(Get("KSIWERT.DAT"), "1\r\n2.25\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n0.5\r\n");
    EXPECT_EQ(kv::Zeta(ws)[2], 2.25);
    EXPECT_EQ(kv::Zeta(ws)[10], 4.5);  // in memory only
}

TEST_F(ZetaValues, AllZeroOrDamagedFilesShowTheFactoryValues) {
    for (const std::string& c : kvtest::DamagedContents("0\r\n0\r\n0\r\n")) {
        ws.project.ZetaWert = {};
        Put("KSIWERT.DAT", c);
        kv::LoadZetaTable(ws);
        kv::ZetaScreen s = kv::OpenZetaScreen(ws);
        double sum = 0;
        for (int i = 1; i <= 9; ++i) sum += kv::Zeta(ws)[static_cast<std::size_t>(i)];
        EXPECT_NE(sum, 0);
    }
    ws.project.ZetaWert = {};
    kv::ZetaScreen s = kv::OpenZetaScreen(ws);
    EXPECT_EQ(s.cell[2], "2.8");
    EXPECT_EQ(kv::Zeta(ws)[9], 0.6);
}

TEST_F(ZetaValues, LineSumCountsFittingsOnFourLinesAndTheTubeOnAll) {
    kv::ZetaTable z{};
    z[1] = 1.5;
    z[7] = 1.8;
    kv::Project& p = ws.project;
    p.Geometr.Cell(kv::Suction, kv::GeoLength) = "12,34";
    p.Armatur.Cell(1, kv::Suction) = "2";
    p.Armatur.Cell(7, kv::Suction) = "1";
    p.Geometr.Cell(kv::Injection, kv::GeoLength) = "12.34";
    p.Armatur.Cell(1, kv::Injection) = "5";  // the injection line has no counts
    EXPECT_NEAR(kv::SumZeta(z, p, kv::Suction), 3.0 + 1.8 + 0.74, 1e-12);
    EXPECT_NEAR(kv::SumZeta(z, p, kv::Injection), 0.74, 1e-12);
    EXPECT_EQ(z[9], 0.6);   // a 0 is replaced in memory
    EXPECT_EQ(z[11], 1.5);
    p.Geometr.Cell(kv::Liquid, kv::GeoLength) = "12";
    EXPECT_NEAR(kv::SumZeta(z, p, kv::Liquid), 0.72, 1e-12);
}
