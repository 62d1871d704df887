#include "project/data_screen.h"

#include <cmath>

#include "lines/pipe_series.h"
#include "project/box_meaning.h"
#include "project/field_checks.h"
#include "refrigerant/registry.h"
#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/settings.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace {

// Guards the change events while code sets fields.
struct Guard {
    explicit Guard(DataScreen& s) : s_(s), was_(s.guard) { s.guard = true; }
    ~Guard() { s_.guard = was_; }
    DataScreen& s_;
    bool was_;
};

double Num(const std::string& text) { return ToNumber(std::string_view(text)).value; }
bool HasText(const std::string& text) { return !Trim(text).empty(); }

// A computed figure as the field shows it: shortest text, without the
// binary noise of sums of tenths.
std::string FieldText(double v) { return NumberText(std::round(v * 1e9) / 1e9); }

const std::string& ListAt(const std::vector<std::string>& list, std::size_t i) {
    static const std::string empty;
    return i < list.size() ? list[i] : empty;
}

}  // namespace

std::string MediumCaption(const Workspace& ws, const std::string& letter) {
    if (letter == "A") return ws.captions[Cap::MediumAir];
    if (letter == "B") return ws.captions[Cap::MediumBrine];
    if (letter == "W") return ws.captions[Cap::MediumWater];
    return {};
}

bool ArmaturCellEnterable(int col, int row) {
    switch (row) {
        case 1: return col == 9 || col == 10;
        case 2: return (col >= 1 && col <= 4) || col == 7 || col == 11 || col == 12 || col == 13;
        case 3: return col == 1 || col == 2 || col == 4 || col == 5 || col == 7 || col == 12;
        case 4: return (col >= 1 && col <= 4) || col == 6 || col == 7 || col == 8;
        case 5: return col == 1 || col == 2 || col == 4 || col == 13;
        case 6: return col == 7;
        default: return false;
    }
}

void FillBoxes(Workspace& ws, DataScreen& s) {
    const Captions& c = ws.captions;
    s.kaelteList = RefrigerantListForProject();
    s.combo1List = CompressorBoxList(c);
    s.valenzList = {"Monovalent", "Bivalent"};
    s.rgList = {c[EsimWord::CtrlOnOff],          c[EsimWord::CtrlInverter],   c[EsimWord::CtrlInverterBaseLoad],
                c[EsimWord::CtrlCylinderUnloading], c[EsimWord::CtrlSlideValve], c[EsimWord::CtrlDigitalScroll],
                c[EsimWord::CtrlHotGasBypass]};
    s.rlList = PipeSeriesList(ws);
    s.exvList = ValveBoxList(c);
    s.abtauList = {c[Cap::DefrostHotGas], c[Cap::DefrostReverse], c[Cap::DefrostElectric]};
    s.mediaList = {"A", "B", "W"};
    s.countryList.clear();
    RecordReader in = OpenIn(ws, "COUNTRY.DAT");
    std::string line;
    while (in.ReadLine(line))
        if (HasText(line)) s.countryList.emplace_back(Trim(line));
}

std::string LocationFileOf(const std::string& countryKey) {
    std::string key(Trim(countryKey));
    while (key.size() < 8) key += '_';
    if (key == "GERMANY_" || key == "________") return "AC_CITY.DAT";
    return key + ".DAT";
}

void FillLocations(Workspace& ws, DataScreen& s) {
    s.locationList.clear();
    RecordReader in = OpenIn(ws, LocationFileOf(ws.project.CountryKey));
    std::string line;
    while (in.ReadLine(line))
        if (HasText(line)) s.locationList.emplace_back(Trim(line));
}

std::string BuildPairText(const std::string& combo2, const std::string& doelL, const std::string& combo3,
                          const std::string& dKondL) {
    return combo2 + std::string(Trim(doelL)) + "/" + combo3 + std::string(Trim(dKondL));
}

void OpenDataScreen(Workspace& ws, DataScreen& s) {
    Guard g(s);
    Project& p = ws.project;
    FillBoxes(ws, s);
    const std::vector<std::string> aux = ReadAuxiliaryValues(ws);
    for (int i = 1; i <= 11; ++i) s.Text[static_cast<std::size_t>(i)] = aux[static_cast<std::size_t>(i - 1)];
    p.AnlagenTyp = plant::HeatP;

    if (p.RGCombo.empty()) p.RGCombo = ListAt(s.rgList, 0);
    if (p.InverterMin.empty()) p.InverterMin = "35";
    if (p.InverterMax.empty()) p.InverterMax = "70";
    InverterCheck(s, p.RGCombo != ListAt(s.rgList, 0));
    if (p.ExVCombo.empty()) p.ExVCombo = ListAt(s.exvList, 0);
    if (Num(p.dhSL) == 0 || Num(p.dhSL) > 10) p.dhSL = "1";
    if (p.tko.empty()) p.tko = "45";
    if (Num(p.dtVerd) == 0 || Num(p.dtVerd) > 15) p.dtVerd = "6";
    if (Num(p.dtKond) == 0 || Num(p.dtKond) > 25) p.dtKond = "4";
    if (Num(p.TeilL) <= 0 || Num(p.TeilL) > 100) p.TeilL = "100";
    ValidationMark(ws, s);
    s.KaelteMBox = p.KaelteM;

    s.ecoCheck = p.EcoFlag == 1;
    s.hgBypassCheck = p.HGBypass == 1;
    s.vierWegeCheck = p.VierWege == 1;
    s.oelKCheck = p.OelKuehler == 1;
    s.paraLCheck = p.ParalLeit == 1;

    if (Trim(p.CountryKey).empty()) p.CountryKey = DefaultCountryKey(ws);
    FillLocations(ws, s);
    if (!p.PairText.empty()) {
        s.Combo2 = p.PairText.substr(0, 1);
        const auto slash = p.PairText.find('/');
        if (slash != std::string::npos && slash + 1 < p.PairText.size()) s.Combo3 = p.PairText.substr(slash + 1, 1);
    }
    if (p.lkondl.empty() || p.lkondl == "0") p.lkondl = "60";
    s.lkondlEnabled = p.ValenzCombo != "Monovalent";

    if (p.AbtauArt == 1 || p.AbtauArt == 2) {
        p.AbtauCombo = ListAt(s.abtauList, static_cast<std::size_t>(p.AbtauArt - 1));
        Abtaudarstell(ws, s, p.AbtauArt);
    } else {
        p.AbtauCombo = ListAt(s.abtauList, 2);
        s.geometrCol6Head = ws.captions[Cap::LineHotGasBypass];
        s.defrostLabels = 1;
    }

    s.RLcombo = PipeSeriesText(ws, p.RohrDatei);
}

bool ChooseRefrigerant(Workspace& ws, DataScreen& s) {
    if (s.guard) return false;
    // Normalisation first, then the availability check, as on every screen.
    const bool known = CheckRefrigerantAvailable(ws, NormalizeName(s.KaelteMBox).name) == 0;
    if (known) {
        ws.project.KaelteM = s.KaelteMBox;
        NormalizeRefrigerantName(ws.project);
    }
    s.KaelteMBox = ws.project.KaelteM;
    ValidationMark(ws, s);
    return known;
}

void ToggleEconomizer(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    ws.project.EcoFlag = ws.project.EcoFlag == 1 ? 0 : 1;
    s.ecoCheck = ws.project.EcoFlag == 1;
}

void ToggleOilCooler(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    ws.project.OelKuehler = ws.project.OelKuehler == 1 ? 0 : 1;
    s.oelKCheck = ws.project.OelKuehler == 1;
}

void ToggleParallelLines(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    ws.project.ParalLeit = ws.project.ParalLeit == 1 ? 0 : 1;
    s.paraLCheck = ws.project.ParalLeit == 1;
}

void Abtaudarstell(Workspace& ws, DataScreen& s, int kind) {
    Guard g(s);
    Project& p = ws.project;
    if (kind == 1) {
        s.hgBypassCheck = false;
        p.HGBypass = 0;
        p.AbtauArt = 1;
        s.geometrCol6Head = ws.captions[Cap::DefrostHotGas];
        s.defrostLabels = 1;
    } else if (kind == 2) {
        s.geometrCol6Head = ws.captions[Cap::DefrostReverse];
        s.defrostLabels = 2;
    } else {
        p.AbtauArt = 0;
        s.geometrCol6Head = ws.captions[Cap::LineHotGasBypass];
        s.defrostLabels = 1;
    }
}

void ChooseDefrost(Workspace& ws, DataScreen& s, const std::string& text) {
    if (s.guard) return;
    Project& p = ws.project;
    p.AbtauCombo = text;
    if (text == ListAt(s.abtauList, 0)) p.AbtauArt = 1;
    else if (text == ListAt(s.abtauList, 1)) p.AbtauArt = 2;
    else p.AbtauArt = 0;
    Abtaudarstell(ws, s, p.AbtauArt);
}

void ToggleHotGasBypass(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    Project& p = ws.project;
    p.HGBypass = p.HGBypass + 1;
    if (p.HGBypass > 1) p.HGBypass = 0;
    s.hgBypassCheck = p.HGBypass == 1;
    if (p.HGBypass == 1) {
        p.AbtauArt = 0;
        s.geometrCol6Head = ws.captions[Cap::LineHotGasBypass];
    }
}

void ToggleFourWay(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    Project& p = ws.project;
    p.VierWege = p.VierWege + 1;
    if (p.VierWege > 1) p.VierWege = 0;
    // The four-way valve reverses through the economizer path: on ticks it,
    // off clears it.
    p.EcoFlag = p.VierWege;
    s.vierWegeCheck = p.VierWege == 1;
    s.ecoCheck = p.EcoFlag == 1;
}

void LinkCondenserTemperature(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    Guard g(s);
    Project& p = ws.project;
    if (HasText(p.DKondL) && HasText(p.dtKond)) p.tko = FieldText(Num(p.DKondL) + Num(p.dtKond));
    ValidationMark(ws, s);
}

void LinkEvaporatorTemperature(Workspace& ws, DataScreen& s) {
    if (s.guard) return;
    Guard g(s);
    Project& p = ws.project;
    if (HasText(p.doelL) && HasText(p.dtVerd)) p.Tver = FieldText(Num(p.doelL) - Num(p.dtVerd));
    ValidationMark(ws, s);
}

void CapacityFromHeat(Workspace& ws, DataScreen& s) {
    Project& p = ws.project;
    const double share = Num(p.lkondl);
    if (p.ValenzCombo != "Monovalent") {
        p.Leistung = FieldText(std::floor(0.005 + share * Num(p.HeizL)) / 100);
        s.lkondlEnabled = true;
    } else {
        p.Leistung = p.HeizL;
        s.lkondlEnabled = false;
    }
}

void InverterRech(Workspace& ws) {
    Project& p = ws.project;
    const double lo = Num(p.InverterMin), hi = Num(p.InverterMax);
    if (lo > 0 && hi > 0) p.TeilL = FieldText(std::floor(2 * 100 * lo / hi) / 2);
}

void InverterCheck(DataScreen& s, bool on) { s.inverterEnabled = on; }

void ChooseCapacityControl(Workspace& ws, DataScreen& s, const std::string& text) {
    Project& p = ws.project;
    p.RGCombo = text;
    if (text == ListAt(s.rgList, 1) || text == ListAt(s.rgList, 2)) {
        p.InverterMode = text == ListAt(s.rgList, 1) ? 1 : 2;
        InverterCheck(s, true);
        InverterRech(ws);
    } else {
        p.InverterMode = 0;
        InverterCheck(s, false);
    }
}

std::array<double, 9> SumZeta(Workspace& ws, int mode, int editedLine) {
    Project& p = ws.project;
    if (p.ZetaWert[9] == 0) p.ZetaWert[9] = 0.6;
    if (p.ZetaWert[11] == 0) p.ZetaWert[11] = 1.5;
    std::array<double, 9> sums{};
    for (int i = 1; i <= 8; ++i) {
        const double length = Num(p.Geometr.Cell(i, GeoLength));
        double sum = 0;
        if (i >= 2 && i <= 5)
            for (int k = 1; k <= 11; ++k) sum += p.ZetaWert[static_cast<std::size_t>(k)] * Num(p.Armatur.Cell(k, i));
        // The straight tube: ZetaWert(9) per 10 m, cut to hundredths; the
        // guard keeps 0.6 x 12 m from being cut to 0.71 by binary noise.
        sum += std::floor(p.ZetaWert[9] * length * 10 + 1e-9) / 100;
        sums[static_cast<std::size_t>(i)] = sum;
        if (mode != 1 && (editedLine == 0 || editedLine == i)) p.Geometr.Cell(i, GeoZetaSum) = FieldText(sum);
    }
    return sums;
}

bool ValidationMark(Workspace& ws, DataScreen& s) {
    Project& p = ws.project;
    bool ok = !Trim(p.KaelteM).empty();
    ok = ok && Num(p.Geometr.Cell(2, GeoLength)) > 0 && Num(p.Geometr.Cell(4, GeoLength)) > 0;
    ok = ok && !(Num(p.KompHub) <= 0 && Num(p.Leistung) <= 0);
    if (ok) NormalizeRefrigerantName(p);  // the limits are refreshed first
    ok = ok && Num(p.Tver) > p.tmin;
    ok = ok && !(Num(p.tko) > p.tmax);
    ok = ok && !(Num(p.Tver) > Num(p.tko));
    ok = ok && Num(p.dhSL) > 0;
    if (ok) s.calculateGreen = true;  // a failing check leaves the colour as it was
    return ok;
}

InputCheck CheckInput(Workspace& ws, const DataScreen* screen) {
    Project& p = ws.project;
    const Captions& c = ws.captions;
    NormalizeRefrigerantName(p);
    InputCheck out;
    auto add = [&out](std::string text) { out.messages.push_back(std::move(text)); };
    // Steps 1 and 2: a capacity field holding any text ends the test.
    if (Num(p.KompHub) <= 0 && Num(p.Leistung) <= 0 && Trim(p.Leistung).empty()) {
        add(c.Message(51));
        if (Trim(p.KompHub).empty()) add(c.Message(52));
    }
    const double tver = Num(p.Tver), tko = Num(p.tko);
    if (tver <= p.tmin) add(c.Message(53) + ws.lineEnd + "tmin = " + NumberText(p.tmin) + " " + "°C" + " !");
    if (tko > p.tmax) add(c.Message(54));
    if (tver > tko) add(c.Message(55));
    if (Num(p.dhSL) <= 0) add(c.Message(56));
    if (Num(p.Geometr.Cell(2, GeoLength)) <= 0) add(c.Message(57));
    if (Num(p.Geometr.Cell(4, GeoLength)) <= 0) add(c.Message(58));
    const double teil = Num(p.TeilL);
    if (teil <= 0) add(c[Cap::PartLoad] + " < 0 !");
    if (teil > 100) add(c[Cap::PartLoad] + " > 100 !");
    if (p.HGBypass == 1 && Num(p.Geometr.Cell(6, GeoLength)) <= 0)
        add(c[Cap::HotGasBypass] + " " + c[Cap::Length] + " = 0 !!");
    if (p.EcoFlag == 1 && Num(p.Geometr.Cell(7, GeoLength)) <= 0)
        add(" Economizer - " + c[Cap::EcoSideLiquid] + c[Cap::Length] + " = 0 !!");
    if (p.EcoFlag == 1 && Num(p.Geometr.Cell(8, GeoLength)) <= 0)
        add(" Economizer - " + c[Cap::EcoSideSuction] + c[Cap::Length] + " = 0 !!");
    CheckNumberFields(ws, screen, out.messages);
    return out;
}

bool StartCalculation(Workspace& ws, DataScreen& s, InputCheck* check) {
    Project& p = ws.project;
    InputCheck result = CheckInput(ws, &s);
    const bool ok = result.Count() == 0;
    if (check) *check = std::move(result);
    if (!ok) return false;

    for (auto& col : p.ArmaturZahl) col.fill(0.0);
    {
        OutFile out = OpenOut(ws, "SubAct.dat");
        for (int i = 1; i <= 11; ++i) out.Write().Item(s.Text[static_cast<std::size_t>(i)]).EndLine();
    }
    p.PartLoadPercent = Num(p.TeilL);
    p.PairText = BuildPairText(s.Combo2, p.doelL, s.Combo3, p.DKondL);

    p.ExVCombo = BoxTextInCurrentLanguage(ws, BoxKind::Valve, p.ExVCombo);
    p.ExVArt = 17;
    static constexpr int kValveKinds[4] = {17, 417, 418, 419};
    for (std::size_t i = 0; i < 4; ++i)
        if (p.ExVCombo == ListAt(s.exvList, i)) {
            p.ExVArt = kValveKinds[i];
            break;
        }

    p.LeistAufteil = (RoundHalfEven(Num(p.Armatur.Cell(3, 2))) != 0 && RoundHalfEven(Num(p.Armatur.Cell(3, 4))) != 0)
                         ? 1
                         : 0;
    int injection = 1;
    RoundedInteger(Num(p.Armatur.Cell(10, 1)), injection);
    p.ParallelInjection = std::max(1, injection);
    for (int col = 1; col <= 13; ++col)
        for (int row = 1; row <= 6; ++row)
            p.ArmaturZahl[static_cast<std::size_t>(col)][static_cast<std::size_t>(row)] =
                LeadingValue(p.Armatur.Cell(col, row)).value;
    p.dtVerdK = Num(p.dtVerd);
    p.dtKondK = Num(p.dtKond);

    // The compressor box: drive before the first hyphen, principle after it.
    const Captions& c = ws.captions;
    p.Combo1 = BoxTextInCurrentLanguage(ws, BoxKind::Compressor, p.Combo1);
    const auto hyphen = p.Combo1.find('-');
    const std::string left(Trim(std::string_view(p.Combo1).substr(0, hyphen)));
    const std::string right = hyphen == std::string::npos ? "" : std::string(Trim(std::string_view(p.Combo1).substr(hyphen + 1)));
    if (left == c[Cap::CompressorDriveFirst]) p.VerdArt = 1;
    else if (left == c[Cap::CompressorDriveSecond]) p.VerdArt = 2;
    else if (left == c[Cap::CompressorDriveThird]) p.VerdArt = 3;
    else p.VerdArt = 2;
    if (right == c[Cap::CompressorKindSecond]) p.KondArt = 2;
    else if (right == c[Cap::CompressorKindThird]) p.KondArt = 3;
    else p.KondArt = 1;

    if (const std::string pipe = PipeSeriesFile(ws, s.RLcombo); !pipe.empty()) p.RohrDatei = pipe;

    for (const char* f : {"ergDt1.DAT", "ergDt2.DAT", "ergDt3.DAT"}) OpenOut(ws, f).Close();
    DeleteFile(ws, "Verdpark.dat");
    p.RechAuftrag = 77;
    ws.cycle.valid = false;
    return true;
}

bool TakeOverModuleResult(Workspace& ws, DataScreen& s) {
    RecordReader in = OpenIn(ws, kExchangeFile);
    int flag = 0, statusWord = 0;
    in.Read(flag);
    if (flag == 0) return false;
    in.Read(statusWord);
    std::array<std::string, 10> item{};  // the nine items, 1..9
    for (int i = 1; i <= 9; ++i) in.Read(item[static_cast<std::size_t>(i)]);
    Project& p = ws.project;
    if (HasText(item[4])) p.Tver = std::string(Trim(item[4]));
    p.HeizL = FieldText(std::fabs(Num(item[6])));
    CapacityFromHeat(ws, s);
    if (HasText(item[7])) p.dtVerd = std::string(Trim(item[7]));
    return true;
}

bool SaveAsStandard(Workspace& ws) {
    StandardFittings f;
    for (int col = 1; col <= 13; ++col)
        for (int row = 1; row <= 4; ++row) f.cells[col][row] = ws.project.Armatur.Cell(col, row);
    f.kindBox = ws.project.Combo1;
    f.defrostKind = ws.project.AbtauArt;
    return WriteStandardFittings(ws, f);
}

void CompressorSearchReturn(Workspace& ws, DataScreen& s, double value) {
    if (value > 0) {
        ws.project.KompHub = FieldText(value);
        s.kompHubEnabled = true;
        s.leistungEnabled = false;
    } else if (value == 0) {
        s.kompHubEnabled = false;
        s.leistungEnabled = true;
    }
}

}  // namespace kv
