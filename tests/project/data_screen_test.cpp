#include <gtest/gtest.h>

#include "project/data_screen.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

class DataScreenTest : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        kv::Project& p = ws.project;
        p.KaelteM = "R134a";
        p.Tver = "-10";
        p.tko = "45";
        p.Leistung = "10";
        p.Geometr.Cell(2, 1) = "10";
        p.Geometr.Cell(4, 1) = "8";
        kv::OpenDataScreen(ws, s);
    }
    const std::vector<std::string>& Check() {
        check = kv::CheckInput(ws);
        return check.messages;
    }
    kv::DataScreen s;
    kv::InputCheck check;
};

TEST_F(DataScreenTest, OpeningFillsDefaultsAndBoxes) {
    const kv::Project& p = ws.project;
    EXPECT_EQ(s.kaelteList.size(), 60u);
    EXPECT_EQ(s.combo1List.size(), 9u);
    EXPECT_EQ(s.combo1List[0].find(" - "), ws.captions[kv::Cap::CompressorDriveFirst].size());
    EXPECT_EQ(p.RGCombo, s.rgList[0]);
    EXPECT_FALSE(s.inverterEnabled);
    EXPECT_EQ(p.ExVCombo, s.exvList[0]);
    EXPECT_EQ(p.dtVerd, "6");
    EXPECT_EQ(p.lkondl, "60");
    EXPECT_EQ(s.Text[1], "5");   // superheat from SubAct.dat
    EXPECT_EQ(p.CountryKey, "GERMANY");
    EXPECT_GT(s.locationList.size(), 10u);  // AC_CITY.DAT
    EXPECT_TRUE(s.calculateGreen);
    EXPECT_TRUE(kv::ArmaturCellEnterable(10, 1));
    EXPECT_FALSE(kv::ArmaturCellEnterable(5, 2));
    EXPECT_TRUE(kv::ArmaturCellEnterable(7, 6));
    EXPECT_EQ(kv::LocationFileOf("FRANCE"), "FRANCE__.DAT");
    EXPECT_EQ(kv::LocationFileOf(""), "AC_CITY.DAT");
}

TEST_F(DataScreenTest, CheckInputRulesAndTheirOrder) {
    EXPECT_TRUE(Check().empty());
    kv::Project& p = ws.project;

    p.Leistung = "";
    p.KompHub = "";
    ASSERT_EQ(Check().size(), 2u);  // both capacity messages
    EXPECT_EQ(check.messages[0], ws.captions.Message(51));
    EXPECT_EQ(check.messages[1], ws.captions.Message(52));
    p.Leistung = "0";  // any text ends the first two rules; the capacity of 0 is refused after them
    EXPECT_EQ(Check(), std::vector<std::string>{ws.captions[kv::Cap::Capacity] + ": " +
                                                ws.captions[kv::Cap::EntryZero]});
    p.Leistung = "";
    p.KompHub = "0";
    EXPECT_EQ(Check(), std::vector<std::string>{ws.captions.Message(51)});
    p.KompHub = "25";

    p.Tver = "-60";  // equal to tmin of R134a: refused
    ASSERT_EQ(Check().size(), 1u);
    EXPECT_EQ(check.messages[0], ws.captions.Message(53) + "\r\ntmin = -60 °C !");
    p.Tver = "-10";
    p.tko = "85";  // the upper limit passes
    EXPECT_TRUE(Check().empty());
    p.tko = "-10";  // equal to Tver passes
    EXPECT_TRUE(Check().empty());
    p.tko = "45";

    p.TeilL = "100";
    EXPECT_TRUE(Check().empty());
    p.TeilL = "0";
    EXPECT_EQ(Check(), std::vector<std::string>{ws.captions[kv::Cap::PartLoad] + " < 0 !"});
    p.TeilL = "100,5";
    EXPECT_EQ(Check(), std::vector<std::string>{ws.captions[kv::Cap::PartLoad] + " > 100 !"});
    p.TeilL = "100";

    // Five errors at once: the caller opens the error list too.
    p.Leistung = "";
    p.KompHub = "";
    p.dhSL = "0";
    p.Geometr.Cell(2, 1) = "";
    p.Geometr.Cell(4, 1) = "0";
    p.EcoFlag = 1;
    EXPECT_EQ(Check().size(), 7u);
    EXPECT_GT(check.Count(), kv::kErrorListAbove);
    EXPECT_EQ(check.messages.back(), " Economizer - " + ws.captions[kv::Cap::EcoSideSuction] +
                                         ws.captions[kv::Cap::Length] + " = 0 !!");
}

TEST_F(DataScreenTest, LinksCapacityAndInverterRules) {
    kv::Project& p = ws.project;
    p.DKondL = "35";
    p.dtKond = "5,5";
    kv::LinkCondenserTemperature(ws, s);
    EXPECT_EQ(p.tko, "40.5");
    p.doelL = "0";
    p.dtVerd = "";
    kv::LinkEvaporatorTemperature(ws, s);  // one side empty: nothing
    EXPECT_EQ(p.Tver, "-10");
    s.guard = true;
    p.dtVerd = "5";
    kv::LinkEvaporatorTemperature(ws, s);  // a change made by code does not act
    EXPECT_EQ(p.Tver, "-10");
    s.guard = false;
    kv::LinkEvaporatorTemperature(ws, s);
    EXPECT_EQ(p.Tver, "-5");

    p.ValenzCombo = "Bivalent";
    p.lkondl = "60";
    p.HeizL = "10";
    kv::CapacityFromHeat(ws, s);
    EXPECT_EQ(p.Leistung, "6");
    EXPECT_TRUE(s.lkondlEnabled);
    p.ValenzCombo = "Monovalent";
    p.HeizL = "12,5";
    kv::CapacityFromHeat(ws, s);
    EXPECT_EQ(p.Leistung, "12,5");
    EXPECT_FALSE(s.lkondlEnabled);

    p.InverterMin = "35";
    p.InverterMax = "70";
    kv::ChooseCapacityControl(ws, s, s.rgList[1]);
    EXPECT_TRUE(s.inverterEnabled);
    EXPECT_EQ(p.TeilL, "50");
    EXPECT_EQ(p.InverterMode, 1);
    p.InverterMin = "25";
    p.InverterMax = "90";
    kv::InverterRech(ws);
    EXPECT_EQ(p.TeilL, "27.5");  // cut to half a percent
    p.InverterMin = "0";
    kv::InverterRech(ws);
    EXPECT_EQ(p.TeilL, "27.5");
    kv::ChooseCapacityControl(ws, s, s.rgList[0]);
    EXPECT_FALSE(s.inverterEnabled);
}

TEST_F(DataScreenTest, UnknownRefrigerantPutsTheBoxBack) {
    s.KaelteMBox = "R999";
    EXPECT_FALSE(kv::ChooseRefrigerant(ws, s));
    EXPECT_EQ(ws.project.KaelteM, "R134a");
    EXPECT_EQ(s.KaelteMBox, "R134a");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("R999"), std::string::npos);
    s.KaelteMBox = "r 404a";
    EXPECT_TRUE(kv::ChooseRefrigerant(ws, s));
    EXPECT_EQ(ws.project.KaelteM, "R404A");
    EXPECT_EQ(s.KaelteMBox, "R404A");
}

TEST_F(DataScreenTest, DefrostBypassAndFourWay) {
    kv::Project& p = ws.project;
    kv::ToggleHotGasBypass(ws, s);
    EXPECT_EQ(p.HGBypass, 1);
    EXPECT_TRUE(s.hgBypassCheck);
    kv::ChooseDefrost(ws, s, s.abtauList[0]);  // hot-gas defrost clears the bypass
    EXPECT_EQ(p.AbtauArt, 1);
    EXPECT_EQ(p.HGBypass, 0);
    EXPECT_EQ(s.geometrCol6Head, ws.captions[kv::Cap::DefrostHotGas]);
    kv::ChooseDefrost(ws, s, s.abtauList[1]);
    EXPECT_EQ(p.AbtauArt, 2);
    EXPECT_EQ(s.defrostLabels, 2);
    kv::ChooseDefrost(ws, s, s.abtauList[2]);
    EXPECT_EQ(p.AbtauArt, 0);

    kv::ToggleFourWay(ws, s);
    EXPECT_EQ(p.VierWege, 1);
    EXPECT_EQ(p.EcoFlag, 1);
    kv::ToggleFourWay(ws, s);
    EXPECT_EQ(p.VierWege, 0);
    EXPECT_EQ(p.EcoFlag, 0);
}

TEST_F(DataScreenTest, ZetaSumsOfTheLines) {
    kv::Project& p = ws.project;
    p.ZetaWert = {};
    p.ZetaWert[1] = 1.5;
    p.ZetaWert[2] = 2.8;
    p.Armatur.Cell(1, 2) = "4";
    p.Armatur.Cell(2, 2) = "1";
    p.Geometr.Cell(2, 1) = "12";
    p.Geometr.Cell(1, 1) = "3";
    p.Armatur.Cell(1, 1) = "9";  // the injection line takes no fittings
    const auto sums = kv::SumZeta(ws, 0, 2);
    EXPECT_EQ(p.ZetaWert[9], 0.6);   // 0 becomes 0.6
    EXPECT_EQ(p.ZetaWert[11], 1.5);
    EXPECT_NEAR(sums[2], 6 + 2.8 + 0.72, 1e-12);
    EXPECT_EQ(p.Geometr.Cell(2, 3), "9.52");
    EXPECT_NEAR(sums[1], 0.18, 1e-12);
    EXPECT_EQ(p.Geometr.Cell(1, 3), "");  // only the edited line is written
    kv::SumZeta(ws, 1, 0);
    EXPECT_EQ(p.Geometr.Cell(1, 3), "");  // mode 1 writes nothing
}

TEST_F(DataScreenTest, StartCalculationMapsTheScreenIntoTheRecord) {
    kv::Project& p = ws.project;
    p.Combo1 = s.combo1List[5];  // hermetic - scroll
    p.ExVCombo = s.exvList[2];
    s.RLcombo = s.rlList[1];
    s.Combo2 = "B";
    s.Combo3 = "W";
    p.doelL = " 0";
    p.DKondL = "35 ";
    p.Armatur.Cell(3, 2) = "1";
    p.Armatur.Cell(3, 4) = "2";
    p.Armatur.Cell(10, 1) = "0";
    p.Armatur.Cell(4, 3) = "3 pieces";
    s.Text[1] = "7,5";
    Put("ergDt1.DAT", "old result");
    kv::InputCheck refused;
    EXPECT_FALSE(kv::StartCalculation(ws, s, &refused));  // a count with a word is no number
    ASSERT_EQ(refused.Count(), 1);
    EXPECT_NE(refused.messages[0].find(ws.captions[kv::Cap::ColCheckValves]), std::string::npos);
    p.Armatur.Cell(4, 3) = " 3";
    ASSERT_TRUE(kv::StartCalculation(ws, s));
    EXPECT_EQ(p.VerdArt, 3);
    EXPECT_EQ(p.KondArt, 3);
    EXPECT_EQ(p.ExVArt, 418);
    EXPECT_EQ(p.RohrDatei, "RohrIN.DAT");
    EXPECT_EQ(p.PairText, "B0/W35");
    EXPECT_EQ(p.LeistAufteil, 1);
    EXPECT_EQ(p.ParallelInjection, 1);
    EXPECT_EQ(p.ArmaturZahl[4][3], 3);
    EXPECT_EQ(p.RechAuftrag, 77);
    EXPECT_EQ(kv::FileLength(ws, "ergDt1.DAT"), 0u);
    EXPECT_EQ(kv::ReadAuxiliaryValues(ws)[0], "7,5");

    p.Combo1 = "Rolling piston";  // no hyphen: drive 2, principle 1
    ASSERT_TRUE(kv::StartCalculation(ws, s));
    EXPECT_EQ(p.VerdArt, 2);
    EXPECT_EQ(p.KondArt, 1);

    p.Tver = "-70";
    kv::InputCheck check;
    EXPECT_FALSE(kv::StartCalculation(ws, s, &check));
    EXPECT_EQ(check.Count(), 1);
}

TEST_F(DataScreenTest, ModuleReturnAndCompressorSearch) {
    Put("KELVData.dat", "1\r\n0\r\n\"a\"\r\n\"b\"\r\n\"c\"\r\n\"-12\"\r\n\"x\"\r\n\"-8.5\"\r\n\"4\"\r\n");
    ws.project.ValenzCombo = "Monovalent";
    EXPECT_TRUE(kv::TakeOverModuleResult(ws, s));
    EXPECT_EQ(ws.project.Tver, "-12");
    EXPECT_EQ(ws.project.HeizL, "8.5");
    EXPECT_EQ(ws.project.Leistung, "8.5");
    EXPECT_EQ(ws.project.dtVerd, "4");
    Put("KELVData.dat", "0\r\n0\r\n");
    EXPECT_FALSE(kv::TakeOverModuleResult(ws, s));

    kv::CompressorSearchReturn(ws, s, 33.1);
    EXPECT_EQ(ws.project.KompHub, "33.1");
    EXPECT_FALSE(s.leistungEnabled);
    kv::CompressorSearchReturn(ws, s, -1);
    EXPECT_EQ(ws.project.KompHub, "33.1");
    kv::CompressorSearchReturn(ws, s, 0);
    EXPECT_FALSE(s.kompHubEnabled);
    EXPECT_TRUE(s.leistungEnabled);

    ws.project.Combo1 = "Open - Screw";
    ws.project.AbtauArt = 2;
    ASSERT_TRUE(kv::SaveAsStandard(ws));
    const kv::StandardFittings f = kv::ReadStandardFittings(ws);
    EXPECT_EQ(f.kindBox, "Open - Screw");
    EXPECT_EQ(f.defrostKind, 2);
}

}  // namespace

namespace {

bool Has(const std::vector<std::string>& messages, const std::string& text) {
    return std::find(messages.begin(), messages.end(), text) != messages.end();
}

TEST_F(DataScreenTest, NumberFieldsAreNumbersOfAPlausibleSizeAndNamed) {
    kv::Project& p = ws.project;
    const kv::Captions& c = ws.captions;
    const std::string notANumber = ": " + c.Message(12);
    p.Tver = "abc";
    p.Leistung = "zehn";
    p.Geometr.Cell(2, 1) = "10 m";
    Check();
    EXPECT_TRUE(Has(check.messages, c[kv::Cap::EvapTemp] + notANumber));
    EXPECT_TRUE(Has(check.messages, c[kv::Cap::Capacity] + notANumber));
    EXPECT_TRUE(Has(check.messages, c[kv::Cap::LineSuction] + ", " + c[kv::Cap::Length] + notANumber));

    p.Tver = "-10";
    p.Geometr.Cell(2, 1) = "10,5";
    p.Leistung = "1000000";
    EXPECT_EQ(Check(), std::vector<std::string>{c[kv::Cap::Capacity] + ": " + c[kv::Cap::EntryImplausible] +
                                                " (0 ... 5000)"});
    p.Leistung = "12,5";
    EXPECT_TRUE(Check().empty());

    // The design velocities of the screen: the sizing divides by them.
    s.Text[8] = "0";
    kv::InputCheck refused;
    EXPECT_FALSE(kv::StartCalculation(ws, s, &refused));
    EXPECT_EQ(refused.messages,
              std::vector<std::string>{c[kv::Cap::VelocitySuction] + ": " + c[kv::Cap::EntryZero]});
}

}  // namespace
