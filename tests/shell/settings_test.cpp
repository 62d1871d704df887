#include <gtest/gtest.h>

#include "shell/files.h"
#include "shell/separators.h"
#include "shell/defaults_screen.h"
#include "shell/settings.h"
#include "shell/startup.h"
#include "shell/text.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;
namespace fs = std::filesystem;

using SettingsFile = WorkspaceTest;

TEST_F(SettingsFile, MissingFileGivesTheDefaultsAndCreatesTheDataDirectory) {
    ws.project.DatenVerz.clear();
    kv::LoadSettings(ws);
    const kv::Settings& s = ws.settings;
    EXPECT_FALSE(ws.settingsRead);
    EXPECT_EQ(s.Sprache, "ENG");
    EXPECT_EQ(s.Waehrung, "EUR");
    EXPECT_EQ(s.ReportFont, "Arial");
    EXPECT_EQ(s.Laufwerk, "C:\\");
    EXPECT_EQ(s.DecimalText, "2.5");
    EXPECT_EQ(s.setting2_2, 35);
    EXPECT_EQ(s.IntText3_2, "1");
    EXPECT_EQ(s.NumberText3_4, "12");
    EXPECT_EQ(s.IntText3_7, "1");
    EXPECT_EQ(s.VersionText, "10.11.2");
    EXPECT_EQ(s.FixedNumber, 50);
    EXPECT_EQ(s.CableText, kv::DefaultCableText());
    EXPECT_EQ(fs::path(s.DatenVerz), root / "docs" / "Kelvaris");
    EXPECT_TRUE(fs::is_directory(s.DatenVerz));
    EXPECT_EQ(ws.project.DatenVerz, s.DatenVerz);
    EXPECT_EQ(fs::path(s.SamplePicture), fs::path(s.DatenVerz) / "kvsample.jpg");
    EXPECT_FALSE(s.ProjektVerz.empty());
}

TEST_F(SettingsFile, DefaultCableTextHasFourRowsOfFourFields) {
    const auto fields = kv::SplitJoined(kv::DefaultCableText(), kv::sep::AuxItem);
    ASSERT_EQ(fields.size(), 17u);  // 16 fields, each closed by the separator
    EXPECT_EQ(fields[1], "12");
    EXPECT_EQ(fields[6], "230 V");
    EXPECT_EQ(fields[7], "NYM-J 2 x 1");
    EXPECT_EQ(fields[10], "230 V");
    EXPECT_EQ(fields[14], "0 V");
}

TEST_F(SettingsFile, OddStoredValuesAreRepaired) {
    kv::WriteFileAtomic(ws.settingsFile,
                        "\"\",\"" + ws.project.DatenVerz +
                            "\",\"\",\"DE\",\"\",\"Ar\",\"inst\",4,\"s9\",\"s10\",\"RohrIN.DAT\",7,\"C:\",9\r\n"
                            "1,40,\"0\",\"s4\",\"C:\\\",1,\"s7\",3\r\n"
                            "\"\",\"\",\"3\",\"\",\"\",\"t6\",\"\",\"10.10.9\"\r\n");
    kv::LoadSettings(ws);
    const kv::Settings& s = ws.settings;
    EXPECT_TRUE(ws.settingsRead);
    EXPECT_EQ(s.Sprache, "ENG");      // two letters
    EXPECT_EQ(s.ReportFont, "Arial"); // too short
    EXPECT_EQ(s.Laufwerk, "C:\\");
    EXPECT_EQ(s.DecimalText, "2.5");  // zero
    EXPECT_EQ(s.VersionText, "10.11.2");
    EXPECT_NE(s.ProjektVerz, "C:\\");
    // The items of other programs come through unchanged.
    EXPECT_EQ(s.InstallText, "inst");
    EXPECT_EQ(s.setting1_8, 4);
    EXPECT_EQ(s.setting1_10, "s10");
    EXPECT_EQ(s.setting1_12, 7);
    EXPECT_EQ(s.setting1_14, 9);
    EXPECT_EQ(s.setting2_2, 40);
    EXPECT_EQ(s.DezimalModus, 1);
    EXPECT_EQ(s.PictureSet, 3);
    EXPECT_EQ(s.DatumFormat, "3");
    EXPECT_EQ(s.Text3_6, "t6");
    EXPECT_EQ(ws.project.RohrDatei, "RohrIN.DAT");

    // The repaired version is what the next save writes.
    ASSERT_TRUE(kv::SaveSettings(ws));
    const std::string saved = kv::ReadWholeFile(ws.settingsFile);
    EXPECT_NE(saved.find("\"10.11.2\"\r\n"), std::string::npos);
    EXPECT_EQ(saved.find("10.10.9"), std::string::npos);
}

TEST_F(SettingsFile, SaveAndLoadGiveTheSameSettings) {
    kv::LoadSettings(ws);
    ws.settings.Sprache = "GER";
    ws.settings.DecimalText = "3,75";
    ws.settings.DezimalModus = 1;
    ws.settings.DatumFormat = "4";
    ws.project.RohrDatei = "RohrDS.DAT";
    ws.project.ProjektVerz = (root / "projects").string();
    ASSERT_TRUE(kv::SaveSettings(ws));
    const std::string first = kv::ReadWholeFile(ws.settingsFile);

    kv::Workspace again = ws;
    again.settings = kv::Settings{};
    kv::LoadSettings(again);
    EXPECT_EQ(again.settings.Sprache, "GER");
    EXPECT_EQ(again.settings.DecimalText, "3.75");
    EXPECT_EQ(again.settings.DatumFormat, "4");
    EXPECT_EQ(again.project.RohrDatei, "RohrDS.DAT");
    EXPECT_EQ(again.project.ProjektVerz, (root / "projects").string());
    ASSERT_TRUE(kv::SaveSettings(again));
    EXPECT_EQ(kv::ReadWholeFile(ws.settingsFile), first);
}

TEST_F(SettingsFile, IsentropicEfficiencyOfTheReferenceCheckOnLineFour) {
    kv::LoadSettings(ws);
    EXPECT_DOUBLE_EQ(ws.settings.ReferenceEtaIs, 0.7);
    ws.settings.ReferenceEtaIs = 0.65;
    ASSERT_TRUE(kv::SaveSettings(ws));
    const std::string text = kv::ReadWholeFile(ws.settingsFile);
    EXPECT_NE(text.find("\r\n0.65\r\n"), std::string::npos);
    kv::LoadSettings(ws);
    EXPECT_DOUBLE_EQ(ws.settings.ReferenceEtaIs, 0.65);
    // A file of three lines (older programs) and one out of range give 0.7.
    const std::string threeLines = text.substr(0, text.find("0.65\r\n"));
    for (const std::string& file : {threeLines, threeLines + "1.5\r\n", threeLines + "x\r\n"}) {
        kv::WriteFileAtomic(ws.settingsFile, file);
        kv::LoadSettings(ws);
        EXPECT_DOUBLE_EQ(ws.settings.ReferenceEtaIs, 0.7);
    }
}

TEST_F(SettingsFile, DamagedFilesGiveDefaultsWithoutComplaint) {
    for (const std::string& bad : kvtest::DamagedContents("\"\",\"x\",\"\",\"GER\"\r\n")) {
        kv::WriteFileAtomic(ws.settingsFile, bad);
        kv::LoadSettings(ws);
        EXPECT_GE(ws.settings.Sprache.size(), 3u);
        EXPECT_EQ(ws.settings.VersionText, "10.11.2");
        EXPECT_FALSE(ws.project.DatenVerz.empty());
    }
    EXPECT_TRUE(messages.empty());
}

TEST_F(SettingsFile, ElectricalStandardByPlantTypeAndKind) {
    EXPECT_EQ(kv::ElStandardLine("komp", 1), 1);
    EXPECT_EQ(kv::ElStandardLine("2stage", 1), 2);
    EXPECT_EQ(kv::ElStandardLine("Verb", 2), 7);
    EXPECT_EQ(kv::ElStandardLine("MonoF", 2), 10);
    EXPECT_EQ(kv::ElStandardLine("HeatP", 1), 0);
    EXPECT_EQ(kv::ElStandardLine("KOMP", 2), 0);
    Put("EL_stand.dat", "L1\r\nL2\r\nL3\r\nL4\r\nL5\r\nL6\r\nL7\r\nL8\r\n");
    EXPECT_EQ(kv::ElStandardText(ws, "Sole", 2), "L8");
    EXPECT_EQ(kv::ElStandardText(ws, "Pump", 2), "");  // the file is short
    EXPECT_EQ(kv::ElStandardText(ws, "HeatP", 1), "");
}

TEST_F(SettingsFile, SmallDefaultFiles) {
    kv::EnsureInsulationFile(ws);
    EXPECT_EQ(Get("RLDaemm.dat"), "13\r\n19\r\n32\r\n\r\n");
    Put("RLDaemm.dat", "9\r\n13\r\n");
    kv::EnsureInsulationFile(ws);  // a file with content stays
    EXPECT_EQ(kv::ReadInsulationFile(ws), (std::vector<std::string>{"9", "13"}));

    Put("AC_PAR.DAT", "\"AUSTRIA\"\r\n");
    EXPECT_EQ(kv::DefaultCountryKey(ws), "AUSTRIA");

    kv::StandardFittings f;
    f.cells[1][2] = "4";
    f.cells[13][4] = "1";
    f.kindBox = "Electric-Scroll";
    f.defrostKind = 2;
    ASSERT_TRUE(kv::WriteStandardFittings(ws, f));
    const kv::StandardFittings g = kv::ReadStandardFittings(ws);
    EXPECT_TRUE(g.read);
    EXPECT_EQ(g.cells[1][2], "4");
    EXPECT_EQ(g.cells[13][4], "1");
    EXPECT_EQ(g.kindBox, "Electric-Scroll");
    EXPECT_EQ(g.defrostKind, 2);
}

TEST_F(SettingsFile, AuxiliaryDataFromDefaultsAndFromTheCatalogueRecords) {
    kv::ResetAuxiliaryData(ws, 1);
    auto aux = kv::ReadAuxiliaryValues(ws);
    ASSERT_EQ(aux.size(), 11u);
    EXPECT_EQ(aux[0], "5");     // superheat, K
    EXPECT_EQ(aux[7], "10");    // suction velocity, m/s
    EXPECT_EQ(aux[9], "0.8");   // liquid velocity, m/s

    kv::RandomFile rdm = kv::OpenRandom(ws, "Armstd.rdm", 0);
    rdm.Put(23, "  7.5");
    rdm.Put(33, "1,2  ");
    kv::ResetAuxiliaryData(ws, 1);
    aux = kv::ReadAuxiliaryValues(ws);
    EXPECT_EQ(aux[0], "7.5");
    EXPECT_EQ(aux[5], "1.2");
    EXPECT_EQ(aux[1], "2");  // record 24 is blank: the default stays

    ws.project.AnlagenTyp = "MonoF";
    kv::ResetAuxiliaryData(ws, 1);
    int lines = 0;
    std::string line;
    for (kv::RecordReader in = kv::OpenIn(ws, "SubAct.dat"); in.ReadLine(line);) ++lines;
    EXPECT_EQ(lines, 22);

    Put("energk.dat", "\"10\",\"300\",\"0.28\",\"0.6\"\r\n");
    kv::ResetAuxiliaryData(ws, 2);
    EXPECT_EQ(Get("enerACT.dat"), "\"10\",\"300\",\"0.28\",\"0.6\"\r\n");
    EXPECT_EQ(kv::ReadEnergyValues(ws), (std::vector<std::string>{"10", "300", "0.28", "0.6"}));
}

TEST_F(SettingsFile, DefaultsScreenWritesTheStoredFields) {
    kv::LoadSettings(ws);
    kv::DefaultsScreen d = kv::OpenDefaultsScreen(ws);
    EXPECT_EQ(d.Sprache, "ENG");
    EXPECT_EQ(d.hoursPerDay, "12");
    d.Waehrung = "CHF";
    d.DezimalModus = "1";
    d.PictureSet = "9";  // out of range: the last set
    d.energyPrice = "0,35";
    d.DefaultCountry = "AUSTRIA";
    // A relative data directory and a price in words are refused, each named.
    const std::string dataDir = d.DatenVerz;
    d.DatenVerz = "35";
    d.loadFactor = "half";
    EXPECT_FALSE(kv::ApplyDefaults(ws, d));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].text, ws.captions[kv::Cap::LoadFactor] + ": " + ws.captions.Message(12) + "\r\n" +
                                    ws.captions[kv::Cap::DataDirectory] + ": " +
                                    ws.captions[kv::Cap::DirectoryUnusable]);
    EXPECT_EQ(kv::FileLength(ws, "energk.dat"), 0u);
    d.DatenVerz = dataDir;
    d.loadFactor = "0.5";
    EXPECT_EQ(d.referenceEtaIs, "0.7");
    d.referenceEtaIs = "0,75";
    ASSERT_TRUE(kv::ApplyDefaults(ws, d));
    kv::Workspace again = ws;
    kv::LoadSettings(again);
    EXPECT_EQ(again.settings.Waehrung, "CHF");
    EXPECT_EQ(again.settings.DezimalModus, 1);
    EXPECT_EQ(again.settings.PictureSet, 5);
    EXPECT_DOUBLE_EQ(again.settings.ReferenceEtaIs, 0.75);
    d.referenceEtaIs = "7";  // not an efficiency: the default
    ASSERT_TRUE(kv::ApplyDefaults(ws, d));
    EXPECT_DOUBLE_EQ(ws.settings.ReferenceEtaIs, 0.7);
    EXPECT_EQ(Get("energk.dat"), "\"12\",\"365\",\"0.35\",\"0.5\"\r\n");
    EXPECT_EQ(kv::DefaultCountryKey(ws), "AUSTRIA");
}

TEST_F(SettingsFile, DataDirectoryOnlyFromAUsableAbsolutePath) {
    const fs::path fallback = root / "docs" / "Kelvaris";
    auto dataDirOf = [&](const std::string& item) {
        kv::WriteFileAtomic(ws.settingsFile, "\"caller\",\"" + item + "\",\"x\",\"GER\",\"\xA4\"\r\n");
        kv::LoadSettings(ws);
        return fs::path(ws.project.DatenVerz);
    };
    // The first line missing: the next item ("35") would be a relative path.
    kv::WriteFileAtomic(ws.settingsFile, "0,35,\"2.5\",\"\",\"\",0,\"\",0\r\n\"\",\"1\"\r\n");
    kv::LoadSettings(ws);
    EXPECT_EQ(fs::path(ws.project.DatenVerz), fallback);
    EXPECT_EQ(dataDirOf("35"), fallback);
    EXPECT_EQ(dataDirOf("C:\\Kelvaris"), fallback);
    kv::WriteFileAtomic(root / "a_file", "x");
    EXPECT_EQ(dataDirOf((root / "a_file").string()), fallback);
    EXPECT_EQ(dataDirOf((root / "new" / "data").string()), root / "new" / "data");  // made when missing
    EXPECT_TRUE(fs::is_directory(root / "new" / "data"));
    EXPECT_EQ(ws.settings.Waehrung, "\xC2\xA4");  // the old code page's currency sign, as UTF-8
}

TEST_F(SettingsFile, ADataDirectoryOfTheRunWinsBeforeAnythingIsInstalled) {
    kv::WriteFileAtomic(ws.settingsFile, "\"\",\"" + (root / "settings_data").string() + "\"\r\n");
    ws.dataDirOverride = root / "run_data";
    kv::PrepareWorkspace(ws);
    EXPECT_EQ(fs::path(ws.project.DatenVerz), root / "run_data");
    EXPECT_GT(ws.factoryFilesInstalled, 100);
    EXPECT_TRUE(fs::exists(root / "run_data" / "Caption.ENG"));
    EXPECT_FALSE(fs::exists(root / "settings_data" / "Caption.ENG"));
    // The settings keep their own data directory.
    kv::SaveSettings(ws);
    kv::Workspace other = ws;
    other.dataDirOverride.clear();
    kv::LoadSettings(other);
    EXPECT_EQ(fs::path(other.project.DatenVerz), root / "settings_data");
}
