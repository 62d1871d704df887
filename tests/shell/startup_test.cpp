#include <gtest/gtest.h>

#include "shell/exchange.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

using kvtest::WorkspaceTest;
namespace fs = std::filesystem;

using Startup = WorkspaceTest;

TEST_F(Startup, FactoryDataIsCopiedWhenMissingAndNeverOverwritten) {
    Put("caption.eng", "title\r\nmine\r\n");  // present in another case
    const int copied = kv::InstallFactoryData(ws);
    EXPECT_GT(copied, 0);
    EXPECT_EQ(Get("caption.eng"), "title\r\nmine\r\n");
    EXPECT_FALSE(fs::exists(ws.DataDir() / "Caption.ENG"));
    EXPECT_GT(kv::FileLength(ws, "Caption.GER"), 0u);
    EXPECT_EQ(kv::InstallFactoryData(ws), 0);  // all there now
}

TEST_F(Startup, PlainStartConsumesNothingAndShowsTheWelcome) {
    kv::StartSystem(ws);
    EXPECT_EQ(ws.project.AnlagenTyp, "HeatP");
    EXPECT_EQ(ws.statusWord, 0);
    EXPECT_TRUE(kv::IsPlainStart(ws));
    EXPECT_EQ(kv::StartActionFor(ws.statusWord), kv::StartAction::MainMenu);
    EXPECT_EQ(Get("KELVData.dat"), "0\r\n0\r\n");
    EXPECT_EQ(Get("RLDaemm.dat").substr(0, 4), "13\r\n");
    EXPECT_FALSE(ws.captions[kv::Cap::MenuEnd].empty());
    EXPECT_GT(ws.project.ZetaWert[1], 0.0);
    EXPECT_TRUE(messages.empty());
}

TEST_F(Startup, StatusWordOfAModuleIsActedOnOnce) {
    kv::ExchangeData d;
    d.flag = 1;
    d.status = kv::status::LoadProject;
    d.ProjectFile() = "Plant7.prj";
    d.ProjectDirectory() = (root / "projects").string();
    d.item[5] = "caller item";
    d.number20 = 2.5;
    ASSERT_TRUE(kv::WriteExchangeFile(ws, d));

    kv::StartSystem(ws);
    EXPECT_EQ(ws.statusWord, 117);
    EXPECT_FALSE(kv::IsPlainStart(ws));
    EXPECT_EQ(kv::StartActionFor(ws.statusWord), kv::StartAction::LoadProjectAndDataScreen);
    EXPECT_EQ(ws.project.ProjektDatei, "Plant7.prj");
    EXPECT_EQ(ws.project.ProjektVerz, (root / "projects").string());
    EXPECT_EQ(ws.exchange.item[5], "caller item");
    EXPECT_EQ(ws.exchange.number20, 2.5);
    // Cleared in the file before any window opens.
    EXPECT_EQ(Get("KELVData.dat"), "0\r\n0\r\n");
    kv::StartSystem(ws);
    EXPECT_EQ(ws.statusWord, 0);

    EXPECT_EQ(kv::StartActionFor(108), kv::StartAction::ProjectDataScreen);
    EXPECT_EQ(kv::StartActionFor(118), kv::StartAction::ProjectDataScreen);
    EXPECT_EQ(kv::StartActionFor(119), kv::StartAction::CatalogueEditor);
    EXPECT_EQ(kv::StartActionFor(120), kv::StartAction::PipeListScreen);
    EXPECT_EQ(kv::StartActionFor(5), kv::StartAction::MainMenu);
}

TEST_F(Startup, ExchangeFileWithFlagZeroGivesOnlyTheFirstTwoItems) {
    Put("KELVData.dat", "0\r\n108\r\n\"Other.prj\"\r\n\"/x\"\r\n");
    const kv::ExchangeData d = kv::ReadExchangeFile(ws);
    EXPECT_EQ(d.status, 108);
    EXPECT_EQ(d.item[3], "");
    for (const std::string& bad : kvtest::DamagedContents("1\r\n117\r\n\"a.prj\"\r\n")) {
        Put("KELVData.dat", bad);
        kv::ConsumeExchangeFile(ws);
        EXPECT_EQ(Get("KELVData.dat"), "0\r\n0\r\n");
    }
}

TEST_F(Startup, HandOverWritesTheProjectIntoTheExchangeFile) {
    kv::PrepareWorkspace(ws);
    ws.project.ProjektNam = "Cold store";
    ws.project.KaelteM = "R744";
    ws.project.AnlagenTyp = "PUMP";
    ws.project.PumpText = "pump text";
    EXPECT_FALSE(kv::HandOver(ws, kv::ExternalProgram::Draw, 1, kv::status::DrawingProgram));
    const kv::ExchangeData d = kv::ReadExchangeFile(ws);
    EXPECT_EQ(d.flag, 1);
    EXPECT_EQ(d.status, 1);
    EXPECT_EQ(d.item[10], "Cold store");
    EXPECT_EQ(d.item[12], "R744");
    EXPECT_EQ(d.item[18], "pump text");
    EXPECT_EQ(d.item[21], ws.settings.Sprache);
    // The settings are saved before a hand-over; the missing program is named.
    EXPECT_GT(kv::FileLength(ws.settingsFile), 0u);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("kelvdraw.exe"), std::string::npos);
}

TEST_F(Startup, ExternalProgramIsStartedInItsDirectory) {
    kv::PrepareWorkspace(ws);
    fs::create_directories(ws.programDir);
    kv::WriteFileAtomic(ws.programDir / "KelvDraw", "#!/bin/sh\n");
    fs::path started, where;
    ws.ui.startDetached = [&](const fs::path& p, const fs::path& w) {
        started = p;
        where = w;
        return true;
    };
    EXPECT_TRUE(kv::StartExternalProgram(ws, kv::ExternalProgram::Draw));
    EXPECT_EQ(started, ws.programDir / "KelvDraw");
    EXPECT_EQ(where, ws.programDir);
    EXPECT_TRUE(messages.empty());
}

TEST_F(Startup, NewProjectEmptiesTheWorkingSetAndTakesTheStandards) {
    kv::PrepareWorkspace(ws);
    for (std::string_view f : kv::WorkingFiles()) Put(std::string(f), "old");
    Put("Verdpark.dat", "old");
    ws.project.ProjektNam = "Old";
    ws.project.AuftrGNo = "4711";
    ws.project.Armatur.Cell(5, 3) = "9";
    ws.project.Geometr.Cell(2, 1) = "30";
    ws.settings.DatumFormat = "4";

    kv::NewProject(ws);
    EXPECT_EQ(ws.project.ProjektNam, "");
    EXPECT_EQ(ws.project.AuftrGNo, "");
    EXPECT_EQ(ws.project.Geometr.Cell(2, 1), "");
    EXPECT_EQ(ws.project.Armatur.Cell(5, 3), kv::ReadStandardFittings(ws).cells[5][3]);
    EXPECT_EQ(ws.project.AbtauArt, 0);
    EXPECT_EQ(ws.project.AbtauCombo, ws.captions[kv::Cap::DefrostElectric]);
    EXPECT_FALSE(ws.project.Combo1.empty());
    EXPECT_EQ(kv::FileLength(ws, "ergDt1.DAT"), 0u);
    EXPECT_EQ(kv::FileLength(ws, "Verdpark.dat"), 0u);
    EXPECT_EQ(kv::ReadAuxiliaryValues(ws).size(), 11u);
    EXPECT_GT(kv::FileLength(ws, "SubAct.dat"), 0u);
    EXPECT_GT(kv::FileLength(ws, "enerACT.dat"), 0u);
    EXPECT_EQ(ws.project.ProjektDatum.size(), 10u);
    EXPECT_EQ(ws.project.ProjektDatum[4], '.');  // year first in format 4
}

TEST_F(Startup, EndAsksAndKeepsTheWorkingFiles) {
    kv::PrepareWorkspace(ws);
    Put("ergDt1.DAT", "result");
    answer = false;
    EXPECT_FALSE(kv::EndSystem(ws));
    EXPECT_EQ(kv::FileLength(ws.settingsFile), 0u);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_EQ(questions[0].title, ws.captions[kv::Cap::EndTitle] + "  Kelvaris");
    EXPECT_EQ(questions[0].text, ws.captions.Message(59) + " : Kelvaris");

    answer = true;
    EXPECT_TRUE(kv::EndSystem(ws));
    EXPECT_GT(kv::FileLength(ws.settingsFile), 0u);
    EXPECT_EQ(Get("ergDt1.DAT"), "result");
}
