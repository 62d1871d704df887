#include <gtest/gtest.h>

#include "lines/fittings.h"
#include "shell/records.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;

namespace {

// A source table of the given (name, da) rows.
std::string Source(std::initializer_list<std::pair<const char*, const char*>> rows) {
    std::string t = "\"2008\",\"7.01\"\r\n";
    for (const auto& [name, da] : rows)
        t += std::string("\"") + name + "\",\"" + da + "\",\"1\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0\",\"0\","
             "\"0\",\"0\"\r\n";
    return t;
}

// The rows of a fitting table as (key, label, minutes).
std::vector<std::array<std::string, 3>> Generate(const std::string& source, int kind) {
    kv::RecordReader in(source);
    kv::RecordReader out(kv::FittingRows(in, kind, "R"));
    std::vector<std::array<std::string, 3>> rows;
    std::array<std::string, 8> f;
    while (!out.AtEnd()) {
        for (auto& item : f) out.Read(item);
        rows.push_back({f[0], f[1], f[4]});
    }
    return rows;
}

const std::string kFour = Source({{"a", "10"}, {"b", "16"}, {"c", "25"}, {"d", "36"}});

}  // namespace

TEST(FittingRows, ReducersFromTwoThreeAndFourSourceRows) {
    EXPECT_TRUE(Generate(Source({{"a", "10"}, {"b", "16"}}), 6).empty());

    const auto three = Generate(Source({{"a", "10"}, {"b", "16"}, {"c", "25"}}), 6);
    ASSERT_EQ(three.size(), 2u);
    EXPECT_EQ(three[0][0], "25-10");  // the larger step first
    EXPECT_EQ(three[1][0], "25-16");
    EXPECT_EQ(three[0][1], "R 25-10");
    EXPECT_EQ(three[0][2], "10");  // int(sqrt(25) + 5)

    const auto four = Generate(kFour, 6);
    ASSERT_EQ(four.size(), 5u);
    EXPECT_EQ(four[2][0], "36-10");
    EXPECT_EQ(four[3][0], "36-16");
    EXPECT_EQ(four[4][0], "36-25");
    EXPECT_EQ(four[4][2], "11");
}

TEST(FittingRows, ASizeBeyondEveryIntegerGivesNoMinutes) {
    // sqrt(1.5e42) + 5 does not fit an integer: the conversion fails and
    // the reducer gets 0 minutes, not a wrapped value.
    const auto rows = Generate(Source({{"a", "10"}, {"b", "16"}, {"c", "1.5e42"}}), 6);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0][2], "0");
    EXPECT_EQ(Generate(Source({{"a", "10"}, {"b", "16"}, {"c", "1e30"}}), 6)[0][2], "1000000000000005");
}

TEST(FittingRows, LabelsOfTheReducerKinds) {
    EXPECT_EQ(Generate(kFour, 7)[4][1], "R d-c");
    EXPECT_EQ(Generate(kFour, 7)[4][0], "36-25");  // the key keeps the diameters
    EXPECT_EQ(Generate(kFour, 8)[4][1], "R d-25");
    EXPECT_EQ(Generate(kFour, 10)[4][1], "R d-25");
}

TEST(FittingRows, TeesOilTrapsAndDoubleRisers) {
    const auto tees = Generate(Source({{"  a", "10"}, {"b", "16"}}), 1);
    ASSERT_EQ(tees.size(), 2u);
    EXPECT_EQ(tees[0][0], "10");
    EXPECT_EQ(tees[0][1], "R a");
    EXPECT_EQ(Generate(kFour, 13).size(), 4u);

    const auto risers = Generate(kFour, 14);
    ASSERT_EQ(risers.size(), 6u);
    EXPECT_EQ(risers[0][0], "25/10/10");
    EXPECT_EQ(risers[1][0], "25/16/10");
    EXPECT_EQ(risers[2][0], "25/16/16");
    EXPECT_EQ(risers[5][1], "R 36/25/25");
    EXPECT_EQ(Generate(kFour, 15)[3][0], "d/b/b");
}

using FittingFiles = WorkspaceTest;

TEST_F(FittingFiles, EmptyTablesAreGeneratedOnceFromTheFactorySeries) {
    kv::InstallFactoryData(ws);
    // The factory tables come priced; emptied, they are derived anew.
    for (int kind = 1; kind <= kv::kFittingTableCount; ++kind) Put(std::string(kv::FittingTableFile(kind)), "");
    EXPECT_EQ(kv::EnsureFittingTables(ws), 16);
    EXPECT_EQ(kv::EnsureFittingTables(ws), 0);
    EXPECT_NE(Get("K1Tstk.dat").find("\"22\",\"Tee 22 x 1\""), std::string::npos);
    EXPECT_NE(Get("K2_RED.dat").find("\"22.23-15.88\",\"Reducer 7/8'-5/8'\""), std::string::npos);
    EXPECT_TRUE(kv::GenerateFittingTable(ws, "K65Tstk.dat", 21));
    EXPECT_EQ(kv::FileLength(ws, "K65Tstk.dat"), 0u);
    EXPECT_FALSE(kv::GenerateFittingTable(ws, "X.dat", 17));
}

TEST_F(FittingFiles, DamagedSourcesStillGiveAFile) {
    for (const std::string& c : kvtest::DamagedContents(kFour)) {
        Put("RohrDM.DAT", c);
        EXPECT_TRUE(kv::GenerateFittingTable(ws, "K1_RED.dat", 6));
        EXPECT_TRUE(kv::GenerateFittingTable(ws, "K1DblR.dat", 14));
    }
}
