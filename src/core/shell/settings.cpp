#include "shell/settings.h"

#include <system_error>

#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/separators.h"
#include "shell/startup.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace fs = std::filesystem;

namespace {

constexpr const char* kSettingsFile = "kparam.dat";

// Sound defaults of the auxiliary values, in the order of SubAct.dat:
// superheat at the evaporator 5 K, suction line pick-up 2 K, subcooling 2 K,
// no inner heat exchanger step, allowed losses of liquid, discharge and
// injection line 0.5, 1.0 and 1.0 K, design velocities suction 10 m/s,
// discharge 12 m/s, liquid 0.8 m/s, condensate 0.5 m/s.
constexpr const char* kAuxiliaryDefaults[kAuxiliaryCount] = {"5", "2", "2", "0", "0.5", "1", "1",
                                                              "10", "12", "0.8", "0.5"};
// enerACT.dat: runFactorA 12 h of operation a day, runFactorD 365 days a
// year, energy price 0.30 a kWh, runFactorC 0.5 mean load share: about 2200
// full-load hours a year, the usual figure of a heat pump in central Europe.
constexpr const char* kEnergyDefaults[kEnergyCount] = {"12", "365", "0.3", "0.5"};

std::string NormalizedNumberText(const std::string& text) { return NumberText(ToNumber(text).value); }

}  // namespace

bool UsableDataDirectory(const std::string& text) {
    if (Trim(text).empty()) return false;
    const fs::path dir(text);
    if (!dir.is_absolute()) return false;
    std::error_code ec;
    if (fs::is_directory(dir, ec)) return true;
    if (fs::exists(dir, ec)) return false;
    fs::create_directories(dir, ec);
    return !ec && fs::is_directory(dir, ec);
}

std::string DefaultCableText() {
    struct Row { const char *caption, *number, *voltage, *cable; };
    static constexpr Row rows[4] = {
        {"Supply", "12", "400 V", "NYY-J 5 x 2.5"},
        {"Compressor", "1", "230 V", "NYM-J 2 x 1"},
        {"Fan", "1", "230 V", "NYM-J 2 x 1"},
        {"Spare", "0", "0 V", ""},
    };
    std::string out;
    for (const Row& r : rows) {
        for (const char* f : {r.caption, r.number, r.voltage, r.cable}) {
            out += f;
            out += sep::AuxItem;
        }
    }
    return out;
}

void LoadSettings(Workspace& ws) {
    Settings s;  // the defaults
    s.setting1_14 = 0;
    RecordReader in = OpenIn(ws.settingsFile);
    ws.settingsRead = in.Length() > 0;

    // Line 1: up to item 10, then items 11 to 14 in turn.
    in.Read(s.callerItem1);
    in.Read(s.DatenVerz);
    in.Read(s.callerItem2);
    s.Sprache.clear();
    s.Waehrung.clear();
    s.ReportFont.clear();
    in.Read(s.Sprache);
    in.Read(s.Waehrung);
    in.Read(s.ReportFont);
    in.Read(s.InstallText);
    in.Read(s.setting1_8);
    in.Read(s.setting1_9);
    in.Read(s.setting1_10);
    in.Read(s.RohrDatei);
    // A first start names no pipe series: new projects take the SI copper
    // series, so that a plant is never calculated without line losses.
    if (Trim(s.RohrDatei).empty()) s.RohrDatei = "RohrDM.DAT";
    in.Read(s.setting1_12);
    s.Laufwerk.clear();
    in.Read(s.Laufwerk);
    in.Read(s.setting1_14);
    // Line 2.
    in.Read(s.setting2_1);
    in.Read(s.setting2_2);
    in.Read(s.DecimalText);
    in.Read(s.setting2_4);
    in.Read(s.ProjektVerz);
    in.Read(s.DezimalModus);
    in.Read(s.setting2_7);
    in.Read(s.PictureSet);
    // Line 3.
    s.IntText3_2.clear();
    s.NumberText3_4.clear();
    s.IntText3_7.clear();
    s.VersionText.clear();
    in.Read(s.SamplePicture);
    in.Read(s.IntText3_2);
    in.Read(s.DatumFormat);
    in.Read(s.NumberText3_4);
    in.Read(s.CableText);
    in.Read(s.Text3_6);
    in.Read(s.IntText3_7);
    in.Read(s.VersionText);
    // Line 4.
    double eta = 0.0;
    if (in.Read(eta)) s.ReferenceEtaIs = eta;

    // The defaults, in the order of the tables.
    if (s.Sprache.size() < 3) s.Sprache = "ENG";
    if (s.Waehrung.empty()) s.Waehrung = "EUR";
    if (s.ReportFont.size() < 3) s.ReportFont = "Arial";
    if (s.Laufwerk.size() > 3 || s.Laufwerk.empty() || s.Laufwerk == "0" || s.Laufwerk == "C:") s.Laufwerk = "C:\\";
    if (ToNumber(s.DecimalText).value <= 0) s.DecimalText = "2.5";
    if (s.ProjektVerz.empty() || s.ProjektVerz == "C:\\") {
        std::error_code ec;
        s.ProjektVerz = fs::current_path(ec).string();
    }
    if (!ws.dataDirOverride.empty()) {
        std::error_code ec;
        fs::create_directories(ws.dataDirOverride, ec);
    } else if (!UsableDataDirectory(s.DatenVerz)) {
        const fs::path dir = DefaultDataDir(ws);
        std::error_code ec;
        fs::create_directories(dir, ec);
        s.DatenVerz = dir.string();
    }
    if (s.SamplePicture.empty()) s.SamplePicture = (fs::path(s.DatenVerz) / "kvsample.jpg").string();
    if (s.IntText3_2.empty()) s.IntText3_2 = "1";
    if (s.NumberText3_4.empty()) s.NumberText3_4 = "12";
    if (s.CableText.empty()) s.CableText = DefaultCableText();
    if (s.IntText3_7.empty()) s.IntText3_7 = "1";
    if (s.VersionText != kVersionText) s.VersionText = kVersionText;
    s.ReferenceEtaIs = ValidReferenceEtaIs(s.ReferenceEtaIs);
    s.FixedNumber = 50;

    ws.settings = std::move(s);
    ws.project.DatenVerz = ws.dataDirOverride.empty() ? ws.settings.DatenVerz : ws.dataDirOverride.string();
    ws.project.ProjektVerz = ws.settings.ProjektVerz;
    ws.project.RohrDatei = ws.settings.RohrDatei;
}

double ValidReferenceEtaIs(double eta) {
    return eta >= 0.3 && eta <= 1.0 ? eta : kDefaultReferenceEtaIs;
}

bool SaveSettings(Workspace& ws) {
    Settings& s = ws.settings;
    if (ws.dataDirOverride.empty())
        s.DatenVerz = ws.sharedDataDir.empty() ? ws.project.DatenVerz : ws.sharedDataDir.string();
    s.ProjektVerz = ws.project.ProjektVerz;
    s.RohrDatei = ws.project.RohrDatei;
    std::error_code ec;
    if (ws.settingsFile.has_parent_path()) fs::create_directories(ws.settingsFile.parent_path(), ec);
    OutFile out = OpenOut(ws.settingsFile);
    out.ReportTo(ws);
    RecordWriter& w = out.Write();
    w.Item(s.callerItem1).Item(s.DatenVerz).Item(s.callerItem2).Item(s.Sprache).Item(s.Waehrung)
        .Item(s.ReportFont).Item(s.InstallText).Item(s.setting1_8).Item(s.setting1_9).Item(s.setting1_10)
        .Item(s.RohrDatei).Item(s.setting1_12).Item(s.Laufwerk).Item(s.setting1_14).EndLine();
    w.Item(s.setting2_1).Item(s.setting2_2).Item(NormalizedNumberText(s.DecimalText)).Item(s.setting2_4)
        .Item(s.ProjektVerz).Item(s.DezimalModus).Item(s.setting2_7).Item(s.PictureSet).EndLine();
    w.Item(s.SamplePicture).Item(NormalizedNumberText(s.IntText3_2)).Item(s.DatumFormat)
        .Item(NormalizedNumberText(s.NumberText3_4)).Item(s.CableText).Item(s.Text3_6)
        .Item(NormalizedNumberText(s.IntText3_7)).Item(s.VersionText).EndLine();
    w.Item(ValidReferenceEtaIs(s.ReferenceEtaIs)).EndLine();
    return out.Close();
}

int ElStandardLine(const std::string& anlagenTyp, int kind) {
    const std::string u = UpperAscii(anlagenTyp);
    struct Pick { const char* type; int kind1, kind2; };
    static constexpr Pick picks[] = {{"KOMP", 1, 0}, {"2STAGE", 2, 0}, {"VERB", 3, 7},
                                     {"SOLE", 4, 8}, {"PUMP", 5, 9},   {"MONOF", 6, 10}};
    for (const Pick& p : picks)
        if (u == p.type) return kind == 1 ? p.kind1 : kind == 2 ? p.kind2 : 0;
    return 0;
}

std::string ElStandardText(const Workspace& ws, const std::string& anlagenTyp, int kind) {
    const int line = ElStandardLine(anlagenTyp, kind);
    if (line == 0) return {};
    RecordReader in = OpenIn(ws, "EL_stand.dat");
    std::string text;
    for (int i = 1; i <= line; ++i) {
        text.clear();
        if (!in.ReadLine(text)) return {};
    }
    return std::string(Trim(text));
}

void EnsureInsulationFile(Workspace& ws) {
    if (FileLength(ws, "RLDaemm.dat") > 0) return;
    OutFile out = OpenOut(ws, "RLDaemm.dat");
    out.Line("13").Line("19").Line("32").Line("");
}

std::vector<std::string> ReadInsulationFile(const Workspace& ws) {
    RecordReader in = OpenIn(ws, "RLDaemm.dat");
    std::vector<std::string> out;
    std::string line;
    while (in.ReadLine(line)) out.emplace_back(Trim(line));
    while (!out.empty() && out.back().empty()) out.pop_back();
    return out;
}

std::string DefaultCountryKey(const Workspace& ws) {
    RecordReader in = OpenIn(ws, "AC_PAR.DAT");
    std::string key;
    in.Read(key);
    return key;
}

StandardFittings ReadStandardFittings(const Workspace& ws) {
    StandardFittings f;
    RecordReader in = OpenIn(ws, "ARMSTD.DAT");
    f.read = in.Length() > 0;
    for (int col = 1; col <= 13; ++col)
        for (int row = 1; row <= 4; ++row) in.Read(f.cells[col][row]);
    in.Read(f.kindBox);
    in.Read(f.defrostKind);
    return f;
}

bool WriteStandardFittings(const Workspace& ws, const StandardFittings& f) {
    OutFile out = OpenOut(ws, "ARMSTD.DAT");
    for (int col = 1; col <= 13; ++col)
        for (int row = 1; row <= 4; ++row) out.Write().Item(f.cells[col][row]).EndLine();
    out.Write().Item(f.kindBox).EndLine();
    out.Write().Item(f.defrostKind).EndLine();
    return out.Close();
}

std::vector<std::string> ReadAuxiliaryValues(const Workspace& ws) {
    std::vector<std::string> v(kAuxiliaryDefaults, kAuxiliaryDefaults + kAuxiliaryCount);
    RecordReader in = OpenIn(ws, "SubAct.dat");
    for (auto& item : v) in.Read(item);
    return v;
}

std::vector<std::string> ReadEnergyValues(const Workspace& ws) {
    std::vector<std::string> v(kEnergyDefaults, kEnergyDefaults + kEnergyCount);
    RecordReader in = OpenIn(ws, "enerACT.dat");
    for (auto& item : v) in.Read(item);
    return v;
}

void ResetAuxiliaryData(Workspace& ws, int kind) {
    if (kind == 1) {
        std::vector<std::string> values(kAuxiliaryDefaults, kAuxiliaryDefaults + kAuxiliaryCount);
        // The standard values of the catalogue's fittings file, where it has
        // them: records 23..26 the first four, 32..35 the next four, each a
        // five-character number field.
        const RandomFile rdm = OpenRandom(ws, "Armstd.rdm", 0);
        const int records[8] = {23, 24, 25, 26, 32, 33, 34, 35};
        for (int i = 0; i < 8; ++i) {
            std::string rec;
            if (!rdm.Get(records[i], rec)) continue;
            const Number n = ToNumber(std::string_view(rec).substr(0, 5));
            if (!n.isInteger || n.value != 0) values[static_cast<std::size_t>(i)] = NumberText(n.value);
        }
        const int times = EqualsNoCase(ws.project.AnlagenTyp, "MonoF") ? 2 : 1;
        OutFile out = OpenOut(ws, "SubAct.dat");
        for (int t = 0; t < times; ++t)
            for (const auto& v : values) out.Write().Item(ToNumber(v).value).EndLine();
    } else if (kind == 2) {
        std::vector<std::string> values(kEnergyDefaults, kEnergyDefaults + kEnergyCount);
        RecordReader in = OpenIn(ws, "energk.dat");
        for (auto& v : values) in.Read(v);
        OutFile out = OpenOut(ws, "enerACT.dat");
        for (const auto& v : values) out.Write().Item(v);
        out.Write().EndLine();
    }
}

}  // namespace kv
