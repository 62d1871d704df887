#include <gtest/gtest.h>

#include "project/project_file.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "shell/text.h"
#include "workspace_fixture.h"

namespace fs = std::filesystem;

namespace {

class ProjectFile : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        kv::Project& p = ws.project;
        p.ProjektNam = "Cold store 7";
        p.ProBeschr = "Cold store, chilled goods";
        p.AuftrGNo = "A-4711";
        p.ProjektDatum = "01.02.2026";
        p.KaelteM = "R134a";
        p.RohrDatei = "RohrDM.DAT";
        p.Tver = "-10";
        p.tko = "45";
        p.Leistung = "12,5";
        p.tmin = -60;
        p.Combo1 = "Semihermetic - Screw";
        p.Armatur.Cell(1, 2) = "4";
        p.Armatur.Cell(13, 5) = "1";
        p.Armatur.Cell(15, 1) = "2";
        p.Armatur.Cell(14, 2) = "1";
        p.Geometr.Cell(2, 1) = "10";
        p.Geometr.Cell(4, 1) = "8";
        p.Geometr.Cell(7, 2) = "1.5";
        p.Geometr.Cell(5, 3) = "0";
        p.KondArt = 2;
        p.VerdArt = 3;
        p.OelKuehler = 1;
        p.ElStandard = "EN 60204-1";
        p.Text12 = "note";
        p.ParalLeit = 1;
        p.PairText = "B0/W35";
        p.CountryKey = "AUSTRIA";
        p.Location = "Graz";
        p.HeizL = "15";
        p.VerdVol = "0";
        Put("onestDM.dat", "3\r\n7\r\n6\r\n2\r\n1\r\n");
        Put("hx_prj1.dat", "\"a\",\"b\",\"c\",\"d\",\"e\",\"f\"\r\n");
        Put("Rhrltg.DAT", "pipe list");
    }
    kv::Project Reloaded(const std::string& path, const std::string& dir) {
        kv::Workspace other = ws;
        other.project = kv::Project{};
        other.project.DatenVerz = ws.project.DatenVerz;
        std::string type = "HeatP";
        EXPECT_TRUE(kv::LoadProject(other, type, path, dir));
        other.project.AnlagenTyp = type;
        return other.project;
    }
};

TEST_F(ProjectFile, FileNamesFollowTheCutOfFourCharacters) {
    EXPECT_EQ(kv::ProjectFileName("", "A-B-C.x"), "AB-Cx.prj");
    EXPECT_EQ(kv::ProjectFileName(" .prj ", "Plant"), "Plant.prj");
    EXPECT_EQ(kv::ProjectFileName("ABCDEFG.TXT", ""), "ABCDEFG.PRJ");
    EXPECT_EQ(kv::ProjectFileName("ABCDEFG", ""), "ABC.PRJ");
    EXPECT_EQ(kv::ProjectFileName("ABC", ""), ".PRJ");
    EXPECT_EQ(kv::ProjectFileName("Mine.Prj", ""), "Mine.Prj");
}

TEST_F(ProjectFile, SaveAndLoadGiveTheRecordBack) {
    const std::string dir = (root / "projects").string() + "/";
    fs::create_directories(dir);
    ASSERT_EQ(kv::SaveProject(ws, "HeatP", dir), kv::SaveResult::Saved);
    EXPECT_EQ(ws.project.ProjektDatei, "Coldstore 7.prj");
    const std::string path = dir + "Coldstore 7.prj";
    // Companions travel with the project.
    EXPECT_EQ(kv::ReadWholeFile(dir + "Coldstore 7.rlt"), "pipe list");

    Put("Rhrltg.DAT", "changed");
    const kv::Project back = Reloaded(path, dir);
    const kv::Project& p = ws.project;
    EXPECT_EQ(back.ProjektNam, p.ProjektNam);
    EXPECT_EQ(back.ProBeschr, p.ProBeschr);
    EXPECT_EQ(back.AuftrGNo, p.AuftrGNo);
    EXPECT_EQ(back.ProjektDatum.size(), 10u);  // today, not the file's date
    EXPECT_EQ(back.AnlagenTyp, "HeatP");
    EXPECT_EQ(back.Leistung, "12,5");
    EXPECT_EQ(back.Combo1, p.Combo1);
    EXPECT_EQ(back.KondArt, 2);
    EXPECT_EQ(back.VerdArt, 3);
    EXPECT_EQ(back.tmin, -60);
    EXPECT_EQ(back.Armatur.Cell(1, 2), "4");
    EXPECT_EQ(back.Armatur.Cell(13, 5), "1");
    EXPECT_EQ(back.Armatur.Cell(15, 1), "2");
    EXPECT_EQ(back.Armatur.Cell(14, 2), "1");
    EXPECT_EQ(back.Geometr.Cell(2, 1), "10");
    EXPECT_EQ(back.Geometr.Cell(7, 2), "1.5");
    EXPECT_EQ(back.Geometr.Cell(5, 3), "");  // "0" comes back empty
    EXPECT_EQ(back.VerdVol, "0");            // this one compares with "0 " and stays
    EXPECT_EQ(back.OelKuehler, 1);
    EXPECT_EQ(back.ElStandard, "EN 60204-1");
    EXPECT_EQ(back.Text12, "note");
    EXPECT_EQ(back.ParalLeit, 1);
    EXPECT_EQ(back.PairText, "B0/W35");
    EXPECT_EQ(back.Location, "Graz");
    EXPECT_EQ(back.P_mittel, "5");
    EXPECT_EQ(Get("onestDM.dat"), "3\r\n7\r\n6\r\n2\r\n1\r\n");
    EXPECT_EQ(Get("Rhrltg.DAT"), "pipe list");  // copied back from the project's directory
    EXPECT_EQ(Get("hx_prj1.dat").substr(0, 27), "\"a\",\"b\",\"c\",\"d\",\"e\",\"f\"\r\n\r\n");

    // From the first load on, save and load are a fixed point: the same bytes
    // again (the first save still held the "0" that a load empties).
    auto resave = [&](const kv::Project& record) {
        kv::Workspace again = ws;
        again.project = record;
        again.project.ProjektDatum = "01.02.2026";
        again.ui.askYesNo = [](const std::string&, const std::string&) { return true; };
        EXPECT_EQ(kv::SaveProject(again, "HeatP", dir), kv::SaveResult::Saved);
        return kv::ReadWholeFile(path);
    };
    const std::string second = resave(back);
    EXPECT_EQ(resave(Reloaded(path, dir)), second);
}

TEST_F(ProjectFile, SaveButtonNeedsAKnownName) {
    ws.project.ProjektDatei = " .prj";
    EXPECT_FALSE(kv::SaveUnderKnownName(ws).has_value());
    ws.project.ProjektDatei = "Known.prj";
    ws.project.ProjektVerz = (root / "docs").string();
    ASSERT_EQ(kv::SaveUnderKnownName(ws), kv::SaveResult::Saved);
    EXPECT_TRUE(fs::exists(root / "docs" / "Known.prj"));
}

TEST_F(ProjectFile, DeletingTakesTheCompanionsAlong) {
    const std::string dir = (root / "projects").string() + "/";
    fs::create_directories(dir);
    ASSERT_EQ(kv::SaveProject(ws, "HeatP", dir), kv::SaveResult::Saved);
    ASSERT_TRUE(fs::exists(dir + "Coldstore 7.rlt"));
    kv::WriteFileAtomic(dir + "Other.rlt", "another project's list");
    EXPECT_TRUE(kv::DeleteProject(ws, dir + "Coldstore 7.prj"));
    EXPECT_FALSE(fs::exists(dir + "Coldstore 7.prj"));
    EXPECT_FALSE(fs::exists(dir + "Coldstore 7.rlt"));
    EXPECT_TRUE(fs::exists(dir + "Other.rlt"));
}

TEST_F(ProjectFile, LineCountsFollowThePlantType) {
    auto lines = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
    ASSERT_EQ(kv::SaveProject(ws, "HeatP", ""), kv::SaveResult::Saved);
    const std::string one = Get(ws.project.ProjektDatei);
    ws.project.ProjektDatei = "two.prj";
    ASSERT_EQ(kv::SaveProject(ws, "HeatPump-2st", ""), kv::SaveResult::Saved);
    const std::string two = Get("two.prj");
    // 33 lines of the second stage and 4 more lines of line sizes.
    EXPECT_EQ(lines(two) - lines(one), 33 + 4);
    const long fixed = 152 + 6 + 1017 + 5 + 1383 + 2010 + 2010;  // head and the six blocks
    EXPECT_EQ(lines(one), fixed);
}

TEST_F(ProjectFile, OverwriteQuestionAndPlantTypes) {
    ASSERT_EQ(kv::SaveProject(ws, "HeatP", ""), kv::SaveResult::Saved);
    EXPECT_TRUE(questions.empty());
    answer = false;
    EXPECT_EQ(kv::SaveProject(ws, "HeatP", ""), kv::SaveResult::Declined);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_EQ(questions[0].title, ws.captions[kv::Cap::SaveAs]);
    ws.project.ProjektDatei = "Temp_pr.prj";
    EXPECT_EQ(kv::SaveProject(ws, "HeatP", ""), kv::SaveResult::Saved);  // no question
    EXPECT_EQ(questions.size(), 1u);
    ws.project.ProjektDatei = "brine.prj";
    EXPECT_EQ(kv::SaveProject(ws, "Sole", ""), kv::SaveResult::PlantTypeNotSaved);
    EXPECT_EQ(kv::FileLength(ws, "brine.prj"), 0u);
    EXPECT_EQ(kv::SaveProject(ws, "heatp", ""), kv::SaveResult::PlantTypeNotSaved);

    std::string type = "Sole";
    ws.project.ProjektNam = "unchanged";
    EXPECT_FALSE(kv::LoadProject(ws, type, "Temp_pr.prj", ""));
    EXPECT_EQ(ws.project.ProjektNam, "unchanged");
}

TEST_F(ProjectFile, RepairsOnLoad) {
    // Line 1 with a pipe name of four characters and no auxiliary pack; an
    // old compressor box; a date that must not be taken.
    Put("SubAct.dat", "\"9\"\r\n");
    Put("old.prj", "\"Old\",\"\",\"01.01.1999\",\"Komp\",\"R22\",\"Rohr\",0,\"\",-60\r\n\"7\",\"\"\r\n\"12\"\r\n");
    ws.project.RohrDatei = "RohrIN.DAT";
    ws.project.ProjektDatum = "22.11.2026";
    std::string type = "HeatP";
    ASSERT_TRUE(kv::LoadProject(ws, type, "old.prj", ""));
    EXPECT_EQ(type, "Komp");
    EXPECT_EQ(ws.project.RohrDatei, "RohrIN.DAT");
    EXPECT_EQ(ws.project.ProjektDatum, "22.11.2026");
    EXPECT_EQ(ws.project.Combo1, ws.captions[kv::Cap::CompressorDriveSecond] + " - " +
                                     ws.captions[kv::Cap::CompressorKindFirst]);
    EXPECT_EQ(ws.project.Armatur.Cell(13, 5), "");  // "12": more than one character
    EXPECT_EQ(kv::ReadAuxiliaryValues(ws)[0], "5");  // reset to the defaults
    EXPECT_FALSE(ws.project.ElStandard.empty());     // the plant type's standard

    Put("old.prj", "\"Old\",\"\",\"\",\"Komp\",\"R22\",\"RohrX\",0,\"\",-60\r\n");
    ASSERT_TRUE(kv::LoadProject(ws, type, "old.prj", ""));
    EXPECT_EQ(ws.project.RohrDatei, "RohrX");  // five characters count as a name
}

TEST_F(ProjectFile, DamagedFilesLoadWithoutHarm) {
    ASSERT_EQ(kv::SaveProject(ws, "HeatP", ""), kv::SaveResult::Saved);
    const std::string good = Get(ws.project.ProjektDatei);
    std::vector<std::string> bad = kvtest::DamagedContents(good);
    bad.push_back("\"Name with \" quote\",\"x\"\r\n");
    bad.push_back(good.substr(0, good.find("\r\n\r\n")));  // the embedded blocks cut short
    for (const std::string& b : bad) {
        Put("bad.prj", b);
        std::string type = "HeatP";
        kv::Workspace w = ws;
        EXPECT_TRUE(kv::LoadProject(w, type, "bad.prj", ""));
        EXPECT_LE(kv::FileLength(w, "onestDM.dat"), 5u * 300000u + 10u);
    }
}

TEST_F(ProjectFile, AuxiliaryPackRoundTrip) {
    kv::ResetAuxiliaryData(ws, 1);
    kv::ResetAuxiliaryData(ws, 2);
    const std::string pack = kv::PackAuxiliaryData(ws);
    EXPECT_EQ(kv::SplitJoined(pack, "§$%").size(), 16u);
    Put("SubAct.dat", "");
    Put("enerACT.dat", "");
    kv::UnpackAuxiliaryData(ws, pack);
    EXPECT_EQ(kv::PackAuxiliaryData(ws), pack);
}

}  // namespace
