// Writes the sample projects of the factory data into data/samples: each a
// complete plant that calculates. Build with the target kelvaris_make_samples
// and run it from the source tree's root.
#include <filesystem>
#include <iostream>
#include <string>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace fs = std::filesystem;

namespace {

struct Line {
    const char* length;
    const char* height;
};

struct Sample {
    const char* file;
    const char* name;
    const char* description;
    const char* plantType;
    const char* refrigerant;
    const char* pipeFile;
    const char* pair;  // side media and fluid temperatures, "A2/W35"
    const char* doelL;
    const char* dtVerd;
    const char* dKondL;
    const char* dtKond;
    const char* heizL;
    const char* combo1Drive;  // 1..3
    const char* combo1Kind;   // 1..3
    Line lines[9];            // sections 1..8
    int eco, bypass;
    const char* teilL;
};

const Sample kSamples[] = {
    {"AirWater_R290.prj", "Air-to-water heat pump R290", "Outdoor unit A2/W35, floor heating, 10 kW", "HeatP",
     "R290", "RohrDM.DAT", "A2/W35", "2", "8", "35", "5", "10", "3", "3",
     {{}, {"1.5", "0"}, {"6", "1"}, {"3", "0"}, {"6", "1"}, {"1", "0"}, {}, {}, {}}, 0, 0, "100"},
    {"Brine_R410A.prj", "Brine-to-water heat pump R410A", "Ground loop B0/W35, radiators, 16 kW", "HeatP", "R410A",
     "RohrDM.DAT", "B0/W35", "0", "6", "35", "5", "16", "3", "3",
     {{}, {"1", "0"}, {"4", "0.5"}, {"2.5", "0"}, {"4", "0.5"}, {"1", "0"}, {}, {}, {}}, 0, 0, "100"},
    {"Transcritical_CO2.prj", "Transcritical CO2 heat pump", "Air source A-3/W55, gas cooler at 85 bar, 30 kW",
     "HeatP", "R744", "RohrK65.DAT", "A-3/W55", "-3", "7", "28", "4", "30", "2", "1",
     {{}, {"2", "0"}, {"10", "2"}, {"6", "1"}, {"10", "2"}, {"2", "0"}, {}, {}, {}}, 0, 0, "100"},
    {"Chiller_NH3.prj", "Ammonia chiller on steel pipe", "Brine chiller -4 °C / cooling tower water 28 °C, 250 kW",
     "Komp", "R717", "RohrDS.DAT", "B-4/W28", "-4", "6", "28", "7", "250", "1", "1",
     {{}, {"3", "0"}, {"25", "4"}, {"15", "3"}, {"20", "2"}, {"4", "0"}, {}, {}, {}}, 0, 0, "100"},
    {"Economizer_R134a.prj", "R134a plant with economizer and hot-gas bypass",
     "Process cooling with capacity control by hot-gas bypass, 60 kW", "Komp", "R134a", "RohrDM.DAT", "W-2/W30",
     "-2", "8", "30", "10", "60", "2", "2",
     {{}, {"2", "0"}, {"20", "3"}, {"12", "2"}, {"18", "2"}, {"3", "0"}, {"6", "0"}, {"2", "0"}, {"2", "0"}}, 1, 1,
     "50"},
    {"Inch_R404A.prj", "Cold store on inch pipe R404A", "Freezer room -22 °C, air-cooled condenser, 20 kW", "Komp",
     "R404A", "RohrIN.DAT", "A-22/A32", "-22", "8", "32", "10", "20", "2", "1",
     {{}, {"2", "0"}, {"30", "3"}, {"12", "2"}, {"28", "2"}, {"2", "0"}, {}, {}, {}}, 0, 0, "100"},
};

}  // namespace

int main(int argc, char** argv) {
    const fs::path root = argc > 1 ? fs::path(argv[1]) : fs::current_path();
    const fs::path out = root / "data" / "samples";
    const fs::path work = fs::temp_directory_path() / "kv_make_samples";
    fs::remove_all(work);
    fs::create_directories(work / "docs");
    fs::create_directories(out);

    kv::Workspace ws;
    ws.settingsFile = work / "kparam.dat";
    ws.documentsDir = work / "docs";
    ws.factoryDir = root / "data";
    kv::PrepareWorkspace(ws);
    ws.ui.askYesNo = [](const std::string&, const std::string&) { return true; };  // samples are rewritten
    for (const Sample& s : kSamples) {
        kv::NewProject(ws);
        kv::Project& p = ws.project;
        const kv::Captions& c = ws.captions;
        p.ProjektNam = s.name;
        p.ProBeschr = s.description;
        p.AuftrGNo = "SAMPLE";
        p.ProjektDatei = s.file;
        p.KaelteM = s.refrigerant;
        p.RohrDatei = s.pipeFile;
        p.PairText = s.pair;
        p.doelL = s.doelL;
        p.dtVerd = s.dtVerd;
        p.DKondL = s.dKondL;
        p.dtKond = s.dtKond;
        p.Tver = kv::NumberText(kv::ToNumber(std::string(s.doelL)).value - kv::ToNumber(std::string(s.dtVerd)).value);
        p.tko = kv::NumberText(kv::ToNumber(std::string(s.dKondL)).value + kv::ToNumber(std::string(s.dtKond)).value);
        p.HeizL = s.heizL;
        p.Leistung = s.heizL;
        p.ValenzCombo = "Monovalent";
        p.TeilL = s.teilL;
        const kv::Cap drives[3] = {kv::Cap::CompressorDriveFirst, kv::Cap::CompressorDriveSecond,
                                   kv::Cap::CompressorDriveThird};
        const kv::Cap kinds[3] = {kv::Cap::CompressorKindFirst, kv::Cap::CompressorKindSecond,
                                  kv::Cap::CompressorKindThird};
        p.Combo1 = c[drives[s.combo1Drive[0] - '1']] + " - " + c[kinds[s.combo1Kind[0] - '1']];
        for (int i = 1; i <= 8; ++i) {
            p.Geometr.Cell(i, kv::GeoLength) = s.lines[i].length ? s.lines[i].length : "";
            p.Geometr.Cell(i, kv::GeoHeight) = s.lines[i].height ? s.lines[i].height : "";
        }
        p.EcoFlag = s.eco;
        p.HGBypass = s.bypass;
        // The gas cooler pressure of the transcritical sample, bar.
        p.P_gasK = std::string(s.refrigerant) == "R744" ? "85" : "";
        p.CountryKey = "GERMANY";
        p.Location = "Kassel";
        kv::DataScreen screen;
        kv::OpenDataScreen(ws, screen);
        kv::SumZeta(ws, 0, 0);
        p.AnlagenTyp = s.plantType;
        // The sample carries its lists: calculated, lists generated, and the
        // companions saved beside the project.
        kv::InputCheck check;
        kv::SchemeScreen scheme;
        kv::DeleteFile(ws, kv::lists::kFittings);
        if (kv::StartCalculation(ws, screen, &check)) {
            kv::OpenSchemeScreen(ws, scheme);
            if (kv::CalculateCycle(ws, scheme, kv::FirstCalculation)) {
                kv::WriteCalculationLists(ws);
                kv::GenerateLists(ws);
            }
        }
        p.AnlagenTyp = s.plantType;
        if (kv::SaveProject(ws, s.plantType, (out.string() + "/")) != kv::SaveResult::Saved) {
            std::cerr << "not saved: " << s.file << "\n";
            return 1;
        }
        std::cout << "wrote " << (out / s.file).string() << "\n";
    }
    return 0;
}
