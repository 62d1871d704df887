#include <gtest/gtest.h>

#include <filesystem>

#include "lists/costing.h"
#include "lists/list_rows.h"
#include "lists/list_screen.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

using kvtest::WorkspaceTest;

class Costing : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.project.ProjektNam = "Plant";
        ws.project.AnlagenTyp = "KOMP";
    }
    void Put(const std::string& name, const std::string& text) { kv::WriteFileAtomic(kv::ResolveName(ws, name), text); }
};

TEST(CostBands, EdgesOfTheBands) {
    EXPECT_EQ(kv::SizeBand(16), 1);
    EXPECT_EQ(kv::SizeBand(17), 2);   // between 16 and 18
    EXPECT_EQ(kv::SizeBand(110), 4);  // although the head reads ">108 mm"
    EXPECT_EQ(kv::SizeBand(110.5), 5);
    EXPECT_EQ(kv::CapacityBandOf(5), 1);
    EXPECT_EQ(kv::CapacityBandOf(60), 4);
    EXPECT_EQ(kv::CapacityBandOf(60.01), 5);
    EXPECT_EQ(kv::PartTableFor("28 x 1", "Tstk"), "K1Tstk.dat");
    EXPECT_EQ(kv::PartTableFor("5/8'", "_RED"), "K2_RED.dat");
    EXPECT_EQ(kv::PartTableFor("DN 25 (33.7 x 2.6)", "Tstk"), "S3Tstk.dat");  // DN wins over x
    EXPECT_EQ(kv::PartTableFor("K65 9.52 x 0.85", "Tstk"), "K65Tstk.dat");
    EXPECT_EQ(kv::PartTableFor("DN 25", "OelS"), "STOelS.dat");
}

TEST_F(Costing, DetailPriceFileNames) {
    EXPECT_EQ(kv::DetailPriceFile(ws, " 54 x 1.5", 620, "ENG"), "KS54.ENG");
    EXPECT_EQ(kv::DetailPriceFile(ws, "2 1/8'", 651, "GER"), "KIo53.GER");
    EXPECT_EQ(kv::DetailPriceFile(ws, "GF 63", 660, "ENG"), "GFd63.ENG");
    EXPECT_EQ(kv::DetailPriceFile(ws, "DN 50", 622, "ENG"), "ST50.ENG");
}

// The run over lists written here from the layouts: a unit, a fitting with
// an accessory, a pipe with insulation, a reducer in the other order, a cable.
TEST_F(Costing, RunPricesTheRowsOfEveryList) {
    Put("GmontZ.dat", "\"60\"\r\n\"10\"\r\n\"20\"\r\n\"0\"\r\n");
    std::string k;
    for (int row = 0; row < 14; ++row)
        for (int band = 1; band <= 5; ++band) k += "\"" + std::to_string(10 * band + row) + "\"\r\n";
    Put("KmontZ.dat", k);
    std::string a;
    for (int row = 0; row < 4; ++row)
        for (int band = 1; band <= 5; ++band) a += "\"" + std::to_string(100 * band + row) + "\"\r\n";
    Put("AmontZ.dat", a);
    const std::string head = "\"Plant\",\"D\",\"01.01.2026\",\"KOMP\"\r\n";
    const std::string compressor = ws.captions[kv::Cap::KindCompressor];
    Put("Vrdlst.DAT", head + "\"" + compressor + "\",\"BSC 13.9\",\"scroll\",\"BK 1\",\"20/24\",\"Compressor\",\"1\",\"2\",\"1000\"\r\n");
    std::string block;
    for (int i = 1; i <= 24; ++i) block += "\"" + std::string(i == 24 ? "12.5" : "0") + "\"\r\n";
    Put("A_CHANGE.DAT", block);
    const std::string ball = ws.captions[kv::Cap::KindBallValve];
    Put("Stklst.DAT", "\"Plant\",\"D\",\"R\",\"KOMP\",\"100\",\"\",\"\",\"5\",\"263\",\"0\",\"0\",\"0\",\"318\",\"R134a\"\r\n"
                      "\"" + ball + "\",\"BKV 22\",\"ball\",\"AV 300\",\"22\",\"Suction line\",\"28 x 1\",\"3\",\"40\"\r\n"
                      "\"\",\"Cap, AV 9\",\"\",\"" + ball + "Zubehör \",\"\",\"\",\"\",\"3\",\"\"\r\n");
    Put("Rhrltg.DAT", head + "\"Suction line\",\"6\",\"28 x 1\",\"19\",\"2\"\r\n");
    Put("Flansh.DAT", head + "\"Liquid line\",\"" + ws.captions[kv::Cap::Reducer] + " 35-28\",\"28 x 1\",\"35\",\"28\",\"2\",\"\"\r\n");
    Put("Wire.dat", head + "\"Compressor\",\"7.25\",\"5 x 2.5 mm²\",\"BSC\",\"3\"\r\n");

    const std::vector<kv::CostRow> rows = kv::RunCosting(ws, kv::CostingMode::Costing);
    ASSERT_EQ(rows.size(), 7u);
    // The unit: capacity 12.5 kW is band 2 of the compressor row (17).
    EXPECT_EQ(rows[0][7], "202");
    EXPECT_EQ(rows[0][10], "2000");  // whole currency, quantity 2
    // Labour selling per unit: int(100 x (202 / 60 x 60 x 1.1)) / 100.
    EXPECT_EQ(rows[0][11], "222.2");
    EXPECT_EQ(rows[0][12], "1222.2");
    EXPECT_EQ(rows[0][13], "2444.4");
    // The ball valve: connection 22 mm is band 2 of row 2 (kind 6); its
    // accessory keeps that row and takes band 1 (no connection).
    EXPECT_EQ(rows[1][7], "21");
    EXPECT_EQ(rows[2][7], "11");
    EXPECT_EQ(rows[2][3], ball + "Zubehör ");
    // The pipe from the factory table, and its insulation without money.
    EXPECT_EQ(rows[3][1], "m");
    EXPECT_FALSE(rows[3][8].empty());
    EXPECT_EQ(rows[4][3], "19 mm");
    EXPECT_TRUE(rows[4][13].empty());
    // The reducer written large-small matches the table row small-large.
    EXPECT_EQ(rows[5][3], "28");
    EXPECT_FALSE(rows[5][8].empty());
    // The cable: quantity times length to a tenth.
    EXPECT_EQ(rows[6][0], "21.7");

    // The choice of the parts list screen leaves lists out.
    kv::WriteCostingChoice(ws, {false, true, true, true, false});
    EXPECT_EQ(kv::RunCosting(ws, kv::CostingMode::Costing).size(), 5u);
    // Export rows carry their texts only.
    EXPECT_TRUE(kv::RunCosting(ws, kv::CostingMode::Export)[0][7].empty());
}

TEST(CostGrid, RecalculationSumsAndMargin) {
    kv::BasicRates r;
    r.record[0] = "60";
    r.record[1] = "10";
    r.record[2] = "20";
    std::vector<kv::CostRow> rows(2);
    rows[0][0] = "2", rows[0][7] = "30", rows[0][8] = "100";
    rows[1][0] = "1.5", rows[1][7] = "12", rows[1][8] = "8.5";
    const kv::CostSums s = kv::RecalculateCosts(rows, r);
    EXPECT_EQ(rows[0][9], "60");     // 2 x 30/60 x 60
    EXPECT_EQ(rows[0][12], "240");   // 2 x 100 x 1.2
    EXPECT_EQ(rows[0][13], "306");   // 2 x (33 + 120)
    EXPECT_NEAR(s.sales, 306 + 1.5 * (13.2 + 10.2), 1e-9);
    EXPECT_NEAR(s.margin, s.sales - (60 + 18 + 200 + 12.75), 1e-9);
    EXPECT_EQ(s.hours, 1);
    EXPECT_EQ(s.restMinutes, 18);
    // Figures beyond any range (a damaged file) give sums, not a crash.
    std::vector<kv::CostRow> huge(1);
    huge[0][0] = "1e300", huge[0][7] = "1e300", huge[0][8] = "nan";
    const kv::CostSums h = kv::RecalculateCosts(huge, r);
    EXPECT_GE(h.hours, 0);
    std::vector<kv::CostRow> none;
    EXPECT_EQ(kv::RecalculateCosts(none, r).marginPercent, 0);

    // Only equal neighbours merge; the first row's line stays.
    std::vector<kv::CostRow> m(4);
    for (auto& row : m) row[1] = "Stk", row[2] = "BKV 10", row[3] = "AV 300", row[0] = "1";
    m[0][6] = "Suction";
    m[1][6] = "Liquid";
    m[2][2] = "other";
    const auto merged = kv::MergeEqualRows(m, true);
    ASSERT_EQ(merged.size(), 3u);
    EXPECT_EQ(merged[0][0], "2");
    EXPECT_EQ(merged[0][6], "Suction");
    EXPECT_EQ(kv::MergeEqualRows({m[0]}, false).size(), 1u);

    // The three targets: six columns for the database, seven for the others.
    const std::string dbase = kv::ExportText("DBase-File", merged);
    EXPECT_EQ(dbase.substr(0, dbase.find('\r')), "\"2,Stk,BKV 10,AV 300,,\"");
    EXPECT_NE(kv::ExportText("Excel-File", merged).find("2\tStk\tBKV 10\tAV 300\t\t\tSuction\t\r"), std::string::npos);
    EXPECT_EQ(kv::ExportText("ASCII/ANSI-File", {merged[0]}), "\"2\",\"Stk\",\"BKV 10\",\"AV 300\",\"\",\"\",\"Suction\"\r\n");
}

TEST_F(Costing, EnquiryMailAndWorkbookCells) {
    Put("Supplier.dat", "\"Kaelte Nord\"\r\n\"\"\r\n\"Hafenstr. 1\"\r\n\"20457\"\r\n\"Hamburg\"\r\n\"\"\r\n\"040 1\"\r\n\"040 2\"\r\n\"order@example.com\"\r\n");
    std::vector<kv::CostRow> rows(1);
    rows[0][0] = "2", rows[0][2] = "BKV 10", rows[0][3] = "AV 300";
    const std::string url = kv::EnquiryMailUrl(ws, rows);
    EXPECT_EQ(url.rfind("mailto:order@example.com?Subject=Preisanfrage/Bestellung:&Body=", 0), 0u);
    EXPECT_NE(url.find("Kaelte%20Nord,%20Hafenstr.%201,%2020457%20Hamburg%0A%0A"), std::string::npos);
    EXPECT_NE(url.find("2%20%20BKV%2010%20AV%20300%0A%0A"), std::string::npos);
    const kv::WorkbookContent w = kv::EnquiryWorkbook(ws, rows);
    auto cell = [&](const std::string& name) {
        for (const auto& c : w.head)
            if (c.cell == name) return c.text;
        return std::string("?");
    };
    EXPECT_EQ(cell("C6"), "Plant");
    EXPECT_EQ(cell("C5"), ws.captions[kv::Cap::ProjectWord] + ws.labelSuffix);
    EXPECT_EQ(cell("C14"), "E-Mail Anfrage an:");
    EXPECT_EQ(cell("C16"), "Phone: 040 1");
    ASSERT_EQ(w.rows.size(), 1u);
    EXPECT_EQ(w.rows[0][2], "BKV 10");
}

}  // namespace
