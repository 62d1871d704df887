// The program's own settings in kparam.dat and the small default files for
// new projects beside it.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Workspace;

inline constexpr const char* kVersionText = "10.11.2";
// A good reciprocating or scroll compressor near its design point.
inline constexpr double kDefaultReferenceEtaIs = 0.7;
// The isentropic efficiency as the settings keep it: 0.3 to 1, else the default.
double ValidReferenceEtaIs(double eta);

// kparam.dat: three lines read strictly by position, and a fourth of our own. Items whose meaning
// belongs to other programs of the family are carried through unchanged.
struct Settings {
    // Line 1, 14 items.
    std::string callerItem1;
    std::string DatenVerz;        // data directory
    std::string callerItem2;
    std::string Sprache = "ENG";  // language code
    std::string Waehrung = "EUR"; // currency code
    std::string ReportFont = "Arial";
    std::string InstallText;
    int setting1_8 = 0;
    std::string setting1_9;
    std::string setting1_10;
    std::string RohrDatei;        // pipe table file name
    int setting1_12 = 0;
    std::string Laufwerk = "C:\\";  // drive text
    int setting1_14 = 0;

    // Line 2, 8 items.
    int setting2_1 = 0;
    double setting2_2 = 35;
    std::string DecimalText = "2.5";  // a decimal number kept as text; not above 0: 2.5
    std::string setting2_4;
    std::string ProjektVerz;      // directory of the last project
    int DezimalModus = 0;         // 0 comma to point, 1 point to comma
    std::string setting2_7;
    int PictureSet = 0;           // screen picture set 0..5

    // Line 3, 8 text items.
    std::string SamplePicture;    // path of the sample picture
    std::string IntText3_2 = "1";
    std::string DatumFormat;      // "1" to "4"
    std::string NumberText3_4 = "12";
    std::string CableText;        // electrical cable table
    std::string Text3_6;
    std::string IntText3_7 = "1";
    std::string VersionText = kVersionText;

    // Line 4: the isentropic efficiency of the reference check (0.3 to 1;
    // 0.7 when missing or out of range). Older files end before it.
    double ReferenceEtaIs = kDefaultReferenceEtaIs;

    // Fixed after every read.
    int FixedNumber = 50;
};

// The default cable text: four rows of caption, number, voltage, cable type,
// each field closed by "§$%".
std::string DefaultCableText();

// The data directory named in kparam.dat counts only as an absolute path of
// a directory that exists or can be made (it is made here); anything else (a
// shifted item such as "35", a drive path of another system, a file) takes
// the default, so that the factory files never land in the current directory.
bool UsableDataDirectory(const std::string& text);

// Reads kparam.dat (ws.settingsFile) into ws.settings, applies the defaults,
// and carries the data directory, the project directory and the pipe table
// into the project record. A missing or short file gives the defaults. An
// empty data directory is replaced by the default one, created if missing.
void LoadSettings(Workspace& ws);
// Writes kparam.dat from ws.settings, taking the live data directory, project
// directory and pipe table from the project record.
bool SaveSettings(Workspace& ws);

// The electrical standard of a plant type from EL_stand.dat: the line is
// picked by the upper-cased plant type and the list kind (1 or 2); other plant
// types give an empty text.
int ElStandardLine(const std::string& anlagenTyp, int kind);
std::string ElStandardText(const Workspace& ws, const std::string& anlagenTyp, int kind);

// RLDaemm.dat: the pipe insulation thicknesses, mm. A missing or empty file is
// written with "13", "19", "32" and an empty fourth line.
void EnsureInsulationFile(Workspace& ws);
std::vector<std::string> ReadInsulationFile(const Workspace& ws);

// AC_PAR.DAT: first line the default country key.
std::string DefaultCountryKey(const Workspace& ws);

// ARMSTD.DAT: the standard fittings of a new project.
struct StandardFittings {
    std::string cells[14][5];  // [column 1..13][row 1..4]
    std::string kindBox;       // text of the compressor kind box
    int defrostKind = 0;
    bool read = false;         // the file had content
};
StandardFittings ReadStandardFittings(const Workspace& ws);
bool WriteStandardFittings(const Workspace& ws, const StandardFittings& f);

// The auxiliary values of the project: SubAct.dat (11 lines) and
// enerACT.dat (one line of four text items).
inline constexpr int kAuxiliaryCount = 11;
inline constexpr int kEnergyCount = 4;
std::vector<std::string> ReadAuxiliaryValues(const Workspace& ws);  // 11 entries
std::vector<std::string> ReadEnergyValues(const Workspace& ws);     // 4 entries

// Kind 1 rebuilds SubAct.dat from records 23..26 and 32..35 of Armstd.rdm
// (written twice over for a mono-fluid plant), kind 2 rebuilds enerACT.dat
// from the four items of energk.dat.
void ResetAuxiliaryData(Workspace& ws, int kind);

}  // namespace kv
