// The record of the open project. Input fields stay text, exactly as the
// project data screen holds them, until a calculation parses them, so that a
// comma decimal, an empty field and a zero stay told apart.
#pragma once

#include <array>
#include <string>

#include "shell/grid.h"

namespace kv {

// Line sections, the columns of Geometr and the rows of Armatur.
enum LineSection : int {
    Injection = 1,
    Suction = 2,
    Discharge = 3,
    Liquid = 4,
    Condensate = 5,
    HotGasBypass = 6,
    EconomizerLiquid = 7,
    EconomizerSuction = 8,
};
inline constexpr int kLineSectionCount = 8;

// Geometr rows.
enum GeometrRow : int { GeoLength = 1, GeoHeight = 2, GeoZetaSum = 3, GeoSpare = 4 };

// Fittings per line section: rows 1 to 8 (6 in use), columns 1 to 13 one
// kind of fitting each, plus single-purpose cells up to column 15.
using ArmaturGrid = TextGrid<15, 8>;
// Line geometry: columns 1 to 8 one line section each, rows 1 to 4; the
// two-stage plant types keep their second stage in columns 6 to 9.
using GeometrGrid = TextGrid<9, 4>;

// The stored plant types. The project file accepts these spellings exactly;
// every other comparison upper-cases first.
namespace plant {
inline constexpr const char* Komp = "Komp";
inline constexpr const char* TwoStage = "2stage";
inline constexpr const char* HeatP = "HeatP";
inline constexpr const char* HeatPump2st = "HeatPump-2st";
inline constexpr const char* Verb = "Verb";
inline constexpr const char* Sole = "Sole";
inline constexpr const char* Pump = "PUMP";
inline constexpr const char* MonoF = "MonoF";
}  // namespace plant

// True for the plant types with a second stage ("2STAGE", "HEATPUMP-2ST").
bool IsTwoStagePlant(const std::string& anlagenTyp);

struct Project {
    // Plant type, default "HeatP" at start and whenever the data screen opens.
    std::string AnlagenTyp = plant::HeatP;

    // Identification and files.
    std::string ProjektNam;
    std::string ProBeschr;
    std::string AuftrGNo;       // order number
    std::string ProjektDatum;   // in the configured date format; empty: today
    std::string ProjektDatei;   // file name with extension, no directory
    std::string ProjektVerz;    // directory of the last project
    std::string DatenVerz;      // the data directory
    std::string RohrDatei;      // pipe table file: "RohrDM.DAT", "RohrIN.DAT", "RohrDS.DAT", ...
    std::string KaelteM;        // refrigerant name as the registry knows it
    std::string ElStandard;     // electrical standard text
    std::string WaermeTauscher; // heat-exchanger text
    std::string PumpText;       // extra text of a pump plant, handed to the other module

    // Operating point and sizing inputs, as typed. Temperatures °C, differences K.
    std::string Tver;         // evaporating temperature = doelL - dtVerd
    std::string tko = "45";   // condensing temperature = DKondL + dtKond
    std::string dtVerd = "6"; // evaporator-side fluid minus evaporating temperature
    std::string dtKond = "4"; // condensing temperature minus condenser-side fluid
    std::string doelL;        // evaporator-side fluid temperature
    std::string DKondL;       // condenser-side fluid temperature
    std::string loelL;        // companion field of doelL
    std::string dhSL = "1";   // suction-line entry of the operating point, above 0
    std::string Leistung;     // capacity, kW (or KompHub)
    std::string KompHub;      // compressor swept volume, m³/h
    std::string HeizL;        // heating capacity, kW
    std::string lkondl = "60";  // share of HeizL covered when bivalent, %
    std::string TeilL = "100";  // part load, % (0 < TeilL <= 100)
    std::string VerdVol;      // evaporator volume, dm³
    std::string KondVol;      // condenser volume, dm³
    std::string InverterMin = "35";  // Hz
    std::string InverterMax = "70";  // Hz
    std::string P_mittel = "5";
    std::string P_gasK;

    // Kinds and flags.
    int VerdArt = 1;      // compressor drive kind 1..3 (Combo1 before the hyphen)
    int KondArt = 1;      // compressor principle (Combo1 after the hyphen); 3 scroll
    int EcoFlag = 0;      // economizer
    int HGBypass = 0;     // hot-gas bypass
    int VierWege = 0;     // four-way valve
    int OelKuehler = 0;   // oil-side heat removal
    int ParalLeit = 0;    // parallel lines
    int AbtauArt = 0;     // defrost: 0 electric, 1 and 2 the two gas kinds
    int ExVArt = 17;      // expansion valve kind: 17, 417, 418, 419
    int ZweiteStufe = 0;  // second stage of the two-stage plant types
    int LeistAufteil = 0; // capacity split: Armatur (3,2) and (3,4) both non-zero

    // Texts of the data screen's boxes and fields that the project keeps.
    std::string Combo1;       // compressor kind: "<drive> - <principle>" captions
    std::string AbtauCombo;   // defrost box text
    std::string ValenzCombo = "Monovalent";  // "Monovalent" or "Bivalent"
    std::string RGCombo;      // capacity control text
    std::string ExVCombo;     // expansion valve text
    std::string PairText;     // side media and fluid temperatures, as "B0/W35"
    std::string CountryKey;   // country of the climate data (Combo4)
    std::string Location;     // location of the climate data (Combo5)
    std::string Text12;       // free text of the data screen

    // Line description.
    ArmaturGrid Armatur;
    GeometrGrid Geometr;

    // Refrigerant figures and calculation modes.
    int Gwp = 0;              // global warming potential of KaelteM
    int Co2Mode = 0;          // non-zero: transcritical CO2 compression rules
    std::string DiagPower;    // compressor power of a diagnostic plant ("DiaG"), kW
    int InverterMode = 0;     // 1, 2: the two inverter kinds of the capacity control box

    // Numbers taken from the screen when a calculation starts.
    double PartLoadPercent = 100.0;   // TeilL
    double dtVerdK = 6.0, dtKondK = 4.0;
    int ParallelInjection = 1;        // Armatur (10, 1): parallel injection lines, at least 1
    std::array<std::array<double, 7>, 14> ArmaturZahl{};  // [column 0..13][row 0..6], counts of fittings
    int CalcState = 0;                // 77 while a calculation runs, 1 when it has completed

    // Line sizing inputs of the project screen and the line data screen.
    std::string MaxDtSuction = "1";  // allowed loss of the suction line, K
    int LossMode = 0;         // 0 equivalent length from zeta, 666 length allowance in percent
    std::string LossPercent;  // the length allowance of LossMode 666, %
    std::string FlashText;    // vapour share of the condenser line, %, or the word for automatic
    int FloodedCondenser = 0; // 1: flooded condenser outlet, no vapour in the condenser line
    int BypassKind = 0;       // hot-gas bypass kind; 1 and 2 carry the whole mass flow

    // Compressor and cycle options of the calculation.
    std::string Frequency = "50";   // operating frequency of an inverter compressor, Hz
    double BaseFrequency = 50.0;    // frequency the swept volume is rated at, Hz
    int SecondCycle = 0;            // 1: the discharge temperature is shown for a second cycle
    double KappaSecond = 1.3;       // its isentropic exponent
    double HourlyEvaporatingTemp = 0.0;  // °C, set by the annual run for each hour
    double SuperheatEvap = 5.0;     // K, the run's evaporator superheat

    // Working state of the run; not saved.
    double TverK = 0.0;   // K
    double tkoK = 0.0;    // K
    double tmin = 0.0;    // lowest evaporating temperature of the refrigerant, °C
    double tmax = 0.0;    // highest condensing temperature of the refrigerant, °C
    int RechAuftrag = 0;  // 77 calculate from the data screen, 2 diagram only
    int FensterModus = 0; // next window: 1 load, 2 save as, 5 delete; 0 consumed
    std::string ListenDatei;  // parts list file for the parts list screen
    std::array<double, 12> ZetaWert{};  // fitting zeta values by index 1..11
    int LastprofilMark = 0;   // stored load profile mark
};

}  // namespace kv
