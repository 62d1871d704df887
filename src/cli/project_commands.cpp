// Commands on project files: check, show.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "cli.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "project/project_io.h"
#include "shell/files.h"

namespace kvcli {
namespace fs = std::filesystem;

bool LoadProjectArg(kv::Workspace& ws, const std::string& file, int& code) {
    std::error_code ec;
    const fs::path path = fs::absolute(file, ec);
    if (!fs::is_regular_file(path, ec)) {
        code = Fail("no such project file: " + file);
        return false;
    }
    if (!std::ifstream(path).good()) {
        code = Fail("cannot read the project file: " + file);
        return false;
    }
    std::string type = ws.project.AnlagenTyp;
    std::string dir = path.parent_path().string();
    if (!dir.empty() && dir.back() != '/') dir += '/';
    const kv::LoadOutcome loaded = kv::LoadProjectChecked(ws, type, path.string(), dir);
    if (loaded.failure) {
        std::cerr << "kelvaris-cli: the project was not loaded: " << loaded.failure.Text() << "\n";
        code = 1;
        return false;
    }
    if (!loaded.loaded) {
        code = Fail("the project file could not be loaded: " + file);
        return false;
    }
    for (const std::string& w : loaded.warnings) std::cerr << "kelvaris-cli: " << w << "\n";
    ws.project.AnlagenTyp = type;
    ws.project.ProjektDatei = path.filename().string();
    ws.project.ProjektVerz = dir;
    return true;
}

int CmdCheck(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli check PROJECT.prj");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    if (!LoadProjectArg(ws, o.args[1], code)) return code;
    const kv::InputCheck check = kv::CheckInput(ws);
    if (o.json) {
        nlohmann::json j;
        j["messages"] = check.messages;
        j["count"] = check.Count();
        std::cout << JsonText(j) << "\n";
    } else {
        PrintMessageLines(std::cout, check.messages);
    }
    return check.Count();
}

nlohmann::json ProjectJson(const kv::Project& p) {
    nlohmann::json j;
    j["AnlagenTyp"] = p.AnlagenTyp;
    j["ProjektNam"] = p.ProjektNam;
    j["ProBeschr"] = p.ProBeschr;
    j["AuftrGNo"] = p.AuftrGNo;
    j["ProjektDatum"] = p.ProjektDatum;
    j["ProjektDatei"] = p.ProjektDatei;
    j["ProjektVerz"] = p.ProjektVerz;
    j["DatenVerz"] = p.DatenVerz;
    j["RohrDatei"] = p.RohrDatei;
    j["KaelteM"] = p.KaelteM;
    j["ElStandard"] = p.ElStandard;
    j["WaermeTauscher"] = p.WaermeTauscher;
    j["Tver"] = p.Tver;
    j["tko"] = p.tko;
    j["dtVerd"] = p.dtVerd;
    j["dtKond"] = p.dtKond;
    j["doelL"] = p.doelL;
    j["DKondL"] = p.DKondL;
    j["loelL"] = p.loelL;
    j["dhSL"] = p.dhSL;
    j["Leistung"] = p.Leistung;
    j["KompHub"] = p.KompHub;
    j["HeizL"] = p.HeizL;
    j["lkondl"] = p.lkondl;
    j["TeilL"] = p.TeilL;
    j["VerdVol"] = p.VerdVol;
    j["KondVol"] = p.KondVol;
    j["InverterMin"] = p.InverterMin;
    j["InverterMax"] = p.InverterMax;
    j["P_mittel"] = p.P_mittel;
    j["P_gasK"] = p.P_gasK;
    j["VerdArt"] = p.VerdArt;
    j["KondArt"] = p.KondArt;
    j["EcoFlag"] = p.EcoFlag;
    j["HGBypass"] = p.HGBypass;
    j["VierWege"] = p.VierWege;
    j["OelKuehler"] = p.OelKuehler;
    j["ParalLeit"] = p.ParalLeit;
    j["AbtauArt"] = p.AbtauArt;
    j["ExVArt"] = p.ExVArt;
    j["ZweiteStufe"] = p.ZweiteStufe;
    j["LeistAufteil"] = p.LeistAufteil;
    j["Combo1"] = p.Combo1;
    j["RGCombo"] = p.RGCombo;
    j["ExV_Combo"] = p.ExVCombo;
    j["Text12"] = p.Text12;
    j["PairText"] = p.PairText;
    j["CountryKey"] = p.CountryKey;
    j["Location"] = p.Location;
    j["tmin"] = p.tmin;
    j["Gwp"] = p.Gwp;
    nlohmann::json armatur = nlohmann::json::array();
    for (int row = 1; row <= kv::ArmaturGrid::kRows; ++row) {
        nlohmann::json r = nlohmann::json::array();
        for (int col = 1; col <= kv::ArmaturGrid::kCols; ++col) r.push_back(p.Armatur.Cell(col, row));
        armatur.push_back(r);
    }
    j["Armatur"] = armatur;
    nlohmann::json geometr = nlohmann::json::array();
    for (int row = 1; row <= kv::GeometrGrid::kRows; ++row) {
        nlohmann::json r = nlohmann::json::array();
        for (int col = 1; col <= kv::GeometrGrid::kCols; ++col) r.push_back(p.Geometr.Cell(col, row));
        geometr.push_back(r);
    }
    j["Geometr"] = geometr;
    return j;
}

int CmdShow(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli show PROJECT.prj");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    if (!LoadProjectArg(ws, o.args[1], code)) return code;
    nlohmann::json j = ProjectJson(ws.project);
    j["warnings"] = ws.loadWarnings;
    if (o.json) std::cout << JsonText(j) << "\n";
    else Print(o, j);
    return 0;
}

}  // namespace kvcli
