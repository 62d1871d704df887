// Project files written here line by line from the layout of the file, not
// through SaveProject: every plant type that has a project file, with the
// second stage of the two-stage types, each Geometr cell followed by a truly
// empty line as the old system wrote it. Each loads field for field, and a
// save of what was loaded gives the same bytes back.
#include <gtest/gtest.h>

#include "project/project_file.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

std::string Q(const std::string& s) { return "\"" + s + "\""; }

struct Corpus {
    std::string text;
    std::vector<std::string> blocks[6];  // the lines of the embedded files
};

// A distinct text for every cell, none of them "0" (which loads as empty).
std::string A(int col, int row) { return "a" + std::to_string(col) + "." + std::to_string(row); }
// Geometr (6, 1) stands on line 7 and again in the second stage block.
std::string G(int col, int row) {
    return col == 6 && row == 1 ? "7.5" : std::to_string(col) + "." + std::to_string(row) + "5";
}

Corpus WriteByLayout(const std::string& type, bool twoStage) {
    Corpus c;
    std::vector<std::string> l;
    std::string pack;
    for (int i = 1; i <= 15; ++i) pack += std::to_string(i) + "§$%";
    l.push_back(Q("Kühlhaus 7") + "," + Q("Chilled goods") + "," + Q("01.02.2026") + "," + Q(type) + "," +
                Q("R134a") + "," + Q("RohrIN.DAT") + ",1," + Q(pack) + ",-60");  // 1
    l.push_back(Q("A-4711") + "," + Q("Open - Screw"));                                // 2
    for (const char* v : {"3", "4", "5", "6"}) l.push_back(Q(v));                      // 3 to 6
    l.push_back(Q(G(6, 1)));                                                           // 7
    l.push_back(Q("80"));                                                              // 8
    l.push_back("1");                                                                  // 9
    for (const char* v : {"12,5", "-10", "45", "1", "6", "4"}) l.push_back(Q(v));      // 10 to 15
    for (int col = 1; col <= 10; ++col)                                                // 16
        for (int row = 1; row <= 8; ++row) l.push_back(Q(A(col, row)));
    for (int row = 1; row <= 4; ++row)                                                 // 17
        for (int col = 1; col <= 4; ++col) {
            l.push_back(Q(G(col, row)));
            l.push_back("");
        }
    for (int row = 1; row <= 4; ++row) l.push_back(Q(G(5, row)));                     // 18
    l.push_back(Q("25"));                                                              // 19
    l.push_back("3");                                                                  // 20
    l.push_back(Q("40"));                                                              // 21
    l.push_back(Q("50"));                                                              // 22
    l.push_back(Q("2"));                                                               // 23
    for (const char* v : {"60", "35", "7", "10"}) l.push_back(Q(v));                   // 24 to 27
    if (twoStage) {                                                                    // 28
        for (int row = 1; row <= 4; ++row)
            for (int col = 6; col <= 9; ++col) {
                l.push_back(Q(G(col, row)));
                l.push_back("");
            }
        l.push_back("1");
    }
    for (int row = 1; row <= 3; ++row)                                                 // 29
        for (int col = 7; col <= 8; ++col) l.push_back(Q(twoStage ? "" : G(col, row)));
    l.push_back(Q("2"));                                                               // 30
    l.push_back(Q("1"));                                                               // 31
    l.push_back(Q("1"));                                                               // 32
    l.push_back(Q("Plate HX") + "," + Q("B10/W35") + "," + Q("AUSTRIA"));              // 33
    l.push_back(Q("Graz") + "," + Q("15") + "," + Q("Inverter") + "," + Q("30") + "," + Q("90") + "," +
                Q("1//EN 60204-1"));                                                   // 34
    l.push_back(Q("Valve") + "," + Q("6") + "," + Q("90") + "," + Q("2") + "," + Q("note%&§1") + "," + Q("1"));  // 35
    const int counts[6] = {6, 1017, twoStage ? 9 : 5, 1383, 2010, 2010};
    for (int b = 0; b < 6; ++b)
        for (int i = 0; i < counts[b]; ++i)
            c.blocks[b].push_back(i < 3 ? Q("block" + std::to_string(b) + "." + std::to_string(i)) : std::string());
    for (const auto& block : c.blocks) l.insert(l.end(), block.begin(), block.end());
    for (const std::string& line : l) c.text += line + "\r\n";
    return c;
}

class ProjectLayout : public kvtest::WorkspaceTest, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
    }
};

TEST_P(ProjectLayout, LoadsFieldForFieldAndSavesTheSameBytes) {
    const std::string type = GetParam();
    const bool twoStage = kv::IsTwoStagePlant(type);
    const Corpus c = WriteByLayout(type, twoStage);
    Put("layout.prj", c.text);
    ws.project.ProjektDatum = "01.02.2026";
    std::string loaded = "HeatP";
    ASSERT_TRUE(kv::LoadProject(ws, loaded, "layout.prj", ""));
    const kv::Project& p = ws.project;

    EXPECT_EQ(loaded, type);
    EXPECT_EQ(p.ProjektNam, "Kühlhaus 7");
    EXPECT_EQ(p.ProBeschr, "Chilled goods");
    EXPECT_EQ(p.KaelteM, "R134a");
    EXPECT_EQ(p.RohrDatei, "RohrIN.DAT");
    EXPECT_EQ(p.tmin, -60);
    EXPECT_EQ(kv::ReadAuxiliaryValues(ws)[10], "11");
    EXPECT_EQ(kv::ReadEnergyValues(ws)[3], "15");
    EXPECT_EQ(p.AuftrGNo, "A-4711");
    EXPECT_EQ(p.Combo1, "Open - Screw");
    EXPECT_EQ(p.Armatur.Cell(13, 5), "3");
    EXPECT_EQ(p.Armatur.Cell(12, 3), "4");
    EXPECT_EQ(p.Armatur.Cell(12, 2), "5");
    EXPECT_EQ(p.Armatur.Cell(11, 2), "6");
    EXPECT_EQ(p.TeilL, "80");
    EXPECT_EQ(p.EcoFlag, 1);
    EXPECT_EQ(p.Leistung, "12,5");
    EXPECT_EQ(p.Tver, "-10");
    EXPECT_EQ(p.tko, "45");
    EXPECT_EQ(p.dhSL, "1");
    EXPECT_EQ(p.dtVerd, "6");
    EXPECT_EQ(p.dtKond, "4");
    for (int col = 1; col <= 10; ++col)
        for (int row = 1; row <= 8; ++row) EXPECT_EQ(p.Armatur.Cell(col, row), A(col, row)) << col << "," << row;
    for (int row = 1; row <= 4; ++row)
        for (int col = 1; col <= 5; ++col) EXPECT_EQ(p.Geometr.Cell(col, row), G(col, row)) << col << "," << row;
    EXPECT_EQ(p.KompHub, "25");
    EXPECT_EQ(p.VerdArt, 3);
    EXPECT_EQ(p.VerdVol, "40");
    EXPECT_EQ(p.KondVol, "50");
    EXPECT_EQ(p.KondArt, 2);
    EXPECT_EQ(p.lkondl, "60");
    EXPECT_EQ(p.DKondL, "35");
    EXPECT_EQ(p.loelL, "7");
    EXPECT_EQ(p.doelL, "10");
    if (twoStage) {
        for (int row = 1; row <= 4; ++row)
            for (int col = 6; col <= 9; ++col) EXPECT_EQ(p.Geometr.Cell(col, row), G(col, row)) << col << "," << row;
        EXPECT_EQ(p.ZweiteStufe, 1);
    } else {
        EXPECT_EQ(p.Geometr.Cell(6, 1), G(6, 1));
        for (int row = 1; row <= 3; ++row)
            for (int col = 7; col <= 8; ++col) EXPECT_EQ(p.Geometr.Cell(col, row), G(col, row)) << col << "," << row;
    }
    EXPECT_EQ(p.AbtauArt, 2);
    EXPECT_EQ(p.VierWege, 1);
    EXPECT_EQ(p.HGBypass, 1);
    EXPECT_EQ(p.WaermeTauscher, "Plate HX");
    EXPECT_EQ(p.PairText, "B10/W35");
    EXPECT_EQ(p.CountryKey, "AUSTRIA");
    EXPECT_EQ(p.Location, "Graz");
    EXPECT_EQ(p.HeizL, "15");
    EXPECT_EQ(p.RGCombo, "Inverter");
    EXPECT_EQ(p.InverterMin, "30");
    EXPECT_EQ(p.InverterMax, "90");
    EXPECT_EQ(p.OelKuehler, 1);
    EXPECT_EQ(p.ElStandard, "EN 60204-1");
    EXPECT_EQ(p.ExVCombo, "Valve");
    EXPECT_EQ(p.P_mittel, "6");
    EXPECT_EQ(p.P_gasK, "90");
    EXPECT_EQ(p.Armatur.Cell(15, 1), "2");
    EXPECT_EQ(p.Text12, "note");
    EXPECT_EQ(p.ParalLeit, 1);
    EXPECT_EQ(p.Armatur.Cell(14, 2), "1");
    const char* files[6] = {"hx_prj1.dat", "cr_prj1.dat", twoStage ? "twostDM.dat" : "onestDM.dat",
                            "ac_prj1.dat", "RIFliess.dat", "Schaltp.dat"};
    for (int b = 0; b < 6; ++b) {
        std::string expected;
        for (const std::string& line : c.blocks[b]) expected += line + "\r\n";
        EXPECT_EQ(Get(files[b]), expected) << files[b];
    }

    // The writer follows the same layout byte for byte, empty lines included.
    ws.project.ProjektDatei = "again.prj";
    ASSERT_EQ(kv::SaveProject(ws, loaded, ""), kv::SaveResult::Saved);
    const std::string again = Get("again.prj");
    std::size_t at = 0;
    while (at < again.size() && at < c.text.size() && again[at] == c.text[at]) ++at;
    const auto lineOf = [](const std::string& t, std::size_t at) {
        const std::size_t from = t.rfind('\n', at == 0 ? 0 : at - 1);
        return t.substr(from == std::string::npos ? 0 : from + 1, 60);
    };
    EXPECT_EQ(again.size(), c.text.size());
    EXPECT_EQ(lineOf(again, at), lineOf(c.text, at)) << "first difference at byte " << at;
}

INSTANTIATE_TEST_SUITE_P(PlantTypes, ProjectLayout, ::testing::Values("Komp", "2stage", "HeatP", "HeatPump-2st"));

}  // namespace
