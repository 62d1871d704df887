#include "compliance/ped.h"

#include <algorithm>
#include <cmath>

#include "catalogue/catalogue.h"
#include "catalogue/selection.h"
#include "catalogue/selection_table.h"
#include "energy/annual.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "project/project.h"
#include "refrigerant/property_tables.h"
#include "refrigerant/saturation.h"
#include "shell/captions.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::string_view kGroup1Part[] = {"AMMONIAK", "R717", "R723", "R290", "R1270",
                                            "PROPAN",   "PROPYLEN", "R600A", "R290_600"};
constexpr std::string_view kAssemblySecond[] = {"R170", "ETHYLEN", "R1150"};
constexpr std::string_view kAssemblyThird[] = {"METHAN", "R50"};
constexpr std::string_view kModules[] = {"", " I, Module A", " II, Module A1,D1,E1",
                                         " III, Module B1+D, B1+F, B+E, B+C1, H", " IV, B+D, B+F, G, H1"};
constexpr std::string_view kRoman[] = {"", " I", " II", " III", " IV"};

std::string Name(std::string_view refrigerant) { return UpperAscii(Trim(refrigerant)); }

template <std::size_t N>
bool In(const std::string& name, const std::string_view (&list)[N]) {
    return std::find(std::begin(list), std::end(list), name) != std::end(list);
}

// Dew and bubble pressure at T (K) between the table rows around it; at the
// ends of the table its last row stands.
std::pair<double, double> PressuresAt(const SaturationTable* t, double kelvin) {
    if (!t || t->rows.empty()) return {0.0, 0.0};
    const auto& rows = t->rows;
    if (kelvin <= rows.front().t) return {rows.front().pDew, rows.front().pBubble};
    if (kelvin >= rows.back().t) return {rows.back().pDew, rows.back().pBubble};
    const auto hi = std::upper_bound(rows.begin(), rows.end(), kelvin, [](double k, const SatRow& r) { return k < r.t; });
    const SatRow& b = *hi;
    const SatRow& a = *(hi - 1);
    const double f = b.t > a.t ? (kelvin - a.t) / (b.t - a.t) : 0.0;
    return {a.pDew + f * (b.pDew - a.pDew), a.pBubble + f * (b.pBubble - a.pBubble)};
}

double Field(const std::string& text) { return ToNumber(std::string(Trim(text))); }
std::string Two(double v) { return NumberText(Cut(v, 2)); }

// The diameter a connection text gives: the part in front of the first
// "X" (condenser) or behind it (evaporator); the whole text without one.
double ConnectionDiameter(const std::string& text, bool behind) {
    const std::string u = UpperAscii(text);
    const std::size_t x = u.find('X');
    if (x == std::string::npos) return Field(u);
    return Field(behind ? u.substr(x + 1) : u.substr(0, x));
}

int IndexOfText(const Workspace& ws, const std::string& text) {
    for (int i = 4; i >= 1; --i)
        if (text == CategoryText(ws, i, false) || text == CategoryWord(ws, i)) return i;
    return text.empty() || Trim(text) == "--" || Trim(text) == "?" ? -1 : 0;
}

}  // namespace

bool IsGroup1Part(std::string_view refrigerant) { return In(Name(refrigerant), kGroup1Part); }

int AssemblyGroup1List(std::string_view refrigerant) {
    const std::string n = Name(refrigerant);
    if (In(n, kGroup1Part) || n == "ETHAN") return 1;
    if (In(n, kAssemblySecond)) return 2;
    if (In(n, kAssemblyThird)) return 3;
    return 0;
}

PedPressures DerivePressures(Workspace& ws, int high) {
    PedPressures p;
    const SaturationTable* t = ProjectSaturationTable(ws);
    const double tHigh = kHighSideBaseKelvin + kHighSideChoice[static_cast<std::size_t>(std::clamp(high, 1, 3) - 1)];
    auto side = [&](double kelvin, double glideShare) {
        const auto [dew, bubble] = PressuresAt(t, kelvin);
        return bubble != dew ? dew + glideShare * std::fabs(bubble - dew) : dew;
    };
    p.p1 = side(kLowSideKelvin, 0.3);
    p.p2 = side(tHigh, 0.5);
    p.ps1 = Two(p.p1 - 1);
    p.ps2 = Two(p.p2 - 1);
    p.ps2x11 = Two(1.1 * (p.p2 - 1));
    const std::string n = Name(ws.project.KaelteM);
    if (ws.project.Co2Mode != 0 && (n == "R744" || n == "CO2")) {
        p.ps1 = "45";
        p.ps2 = "120";
        p.ps2x11 = Two(1.1 * 120);
    }
    return p;
}

int ClassifyPart(int mode, double product, double dn, double dn1, double dn2, bool group1) {
    if (!std::isfinite(product)) return 0;
    if (mode == 1) {
        const double limits2[] = {50, 200, 1000, 3000}, limits1[] = {25, 50, 200, 1000};
        const double* l = group1 ? limits1 : limits2;
        int index = 0;
        for (int i = 0; i < 4; ++i)
            if (product > l[i]) index = i + 1;
        return index;
    }
    if (!group1) {
        if (dn <= 32) return 0;
        return product > 5000 ? 3 : product > 3500 ? 2 : product > 1000 ? 1 : 0;
    }
    if (dn1 <= 25 && dn2 <= 25) return 0;
    if (dn <= 100) return product <= 1000 ? 1 : 2;
    if (dn <= 350) return product <= 3500 ? 2 : 3;
    return 3;
}

int ClassifyAssembly(double psdn, double dn1, double dn2, bool group1) {
    if (!group1) {
        if (dn1 <= 32 && dn2 <= 32) return 0;
        return psdn > 5000 ? 3 : psdn > 3500 ? 2 : psdn > 1000 ? 1 : 0;
    }
    if (dn1 <= 25 && dn2 <= 25) return 0;
    const double dnMax = std::max(dn1, dn2);
    if (dnMax <= 100) return psdn <= 1000 ? 1 : 2;
    if (dnMax <= 350) return psdn <= 3500 ? 2 : 3;
    return 3;
}

std::string CategoryText(const Workspace& ws, int index, bool assembly) {
    const Captions& c = ws.captions;
    if (index < 1 || index > 4) return c[PedWord::ArticleForm] + (assembly ? ", Art. 4.3" : ", Art. 3.3");
    return c[PedWord::Category] + std::string(kModules[index]);
}

std::string CategoryWord(const Workspace& ws, int index) {
    if (index < 1 || index > 4) return CategoryText(ws, 0, false);
    return ws.captions[PedWord::Category] + std::string(kRoman[index]);
}

void OpenPedScreen(Workspace& ws, PedScreen& s, int high) {
    s = PedScreen{};
    ChooseHighSide(ws, s, high);
}

void ChooseHighSide(Workspace& ws, PedScreen& s, int high) {
    s.high = std::clamp(high, 1, 3);
    const PedPressures p = DerivePressures(ws, s.high);
    s.ps1 = p.ps1;
    s.ps2 = p.ps2;
    s.ps2x11 = p.ps2x11;
    ClassifyPlant(ws, s);
}

void ClassifyPlant(Workspace& ws, PedScreen& s) {
    const Captions& c = ws.captions;
    const CycleState& cyc = ws.cycle;
    s.group1Part = IsGroup1Part(ws.project.KaelteM);
    s.group1Assembly = AssemblyGroup1List(ws.project.KaelteM) != 0;
    // The largest inner diameters of the low side (injection, suction,
    // economizer suction) and of the high side (the other lines).
    s.dn1 = s.dn2 = 0;
    for (int section = 1; section <= kLineSectionCount; ++section) {
        const double di = cyc.lineDi[static_cast<std::size_t>(section)];
        if (!std::isfinite(di)) continue;
        double& side = (section == Injection || section == Suction || section == EconomizerSuction) ? s.dn1 : s.dn2;
        side = std::max(side, std::round(di));
    }
    const double ps1 = Field(s.ps1), ps2 = Field(s.ps2);
    s.ps2x11 = Two(1.1 * ps2);
    const double low = ps1 * s.dn1, highSide = ps2 * s.dn2;
    s.psdn = std::trunc(std::max(low, highSide));
    s.dnc = low > highSide ? s.dn1 : s.dn2;
    s.assemblyIndex = ClassifyAssembly(s.psdn, s.dn1, s.dn2, s.group1Assembly);
    s.assemblyText = CategoryText(ws, s.assemblyIndex, true);
    s.noteShown = s.assemblyIndex < 0 || s.assemblyIndex > 4;

    // The table: the line, then the main units of the units list.
    for (PedRow& r : s.rows) r = PedRow{};
    PedRow& line = s.rows[0];
    line.component = c[PedWord::Piping];
    line.basis = "PS * DN";
    line.size = NumberText(s.dnc);
    line.product = NumberText(s.psdn);
    line.index = ClassifyPart(2, s.psdn, s.dnc, s.dn1, s.dn2, s.group1Part);
    line.text = CategoryText(ws, line.index, false);
    int running = line.index;

    const std::array<double, 2> charge = ReadCharge(ws);
    const double rhoLiquid = cyc.rhoLiqCond;
    s.volume = rhoLiquid > 0 ? Cut(std::max(charge[0], charge[1]) * 1000 / (0.9 * rhoLiquid), 1) : 0.0;
    const ListFile units = ReadListFile(ws, lists::kUnits, lists::kHeader, lists::kUnitRow);
    const std::array<std::string, 4> names = {KindListCaption(ws, 12), KindListCaption(ws, 13),
                                              KindListCaption(ws, 14), KindListCaption(ws, 17)};
    for (std::size_t i = 0; i < 4; ++i) s.rows[i + 1].component = names[i];
    if (units.rows.empty() || (Trim(units.rows[0][0]).empty() && Trim(units.rows[0][1]).empty())) {
        s.rows[1].basis = s.rows[1].size = s.rows[1].product = s.rows[1].text = " -- ";
        for (std::size_t i : {2u, 3u}) s.rows[i].basis = "PS * DN", s.rows[i].text = "  ?";
        s.rows[4].basis = "PS * V";
        s.rows[4].text = "  ?";
    } else {
        for (const auto& row : units.rows) {
            if (row[0] == names[3]) {
                PedRow& r = s.rows[4];
                r.basis = "PS * V";
                r.size = NumberText(s.volume);
                const double product = std::trunc(ps2 * s.volume);
                r.product = NumberText(product);
                r.index = ClassifyPart(1, product, 0, s.dn1, s.dn2, s.group1Part);
            } else if (row[0] == names[2]) {
                PedRow& r = s.rows[3];
                const double d = ConnectionDiameter(row[4], false);
                const double product = std::trunc(ps2 * d);
                r.basis = "PS * DN";
                r.size = NumberText(d);
                r.product = NumberText(product);
                r.index = ClassifyPart(2, product, d, s.dn1, s.dn2, s.group1Part);
            } else if (row[0] == names[1]) {
                PedRow& r = s.rows[2];
                const double d = ConnectionDiameter(row[4], true);
                const double product = std::trunc(ps1 * d);
                // Among several evaporators the largest product stands.
                if (r.index >= 0 && product <= Field(r.product)) continue;
                r.basis = "PS * DN";
                r.size = NumberText(d);
                r.product = NumberText(product);
                r.index = ClassifyPart(2, product, d, s.dn1, s.dn2, s.group1Part);
            } else if (row[0] == names[0]) {
                s.rows[1].basis = s.rows[1].size = " -- ";
                s.rows[1].product = " -- ";
                s.rows[1].index = 0;
            }
        }
        for (PedRow& r : s.rows) {
            if (r.basis.empty()) r.basis = r.size = r.product = " -- ";
            if (r.index >= 0) r.text = CategoryText(ws, r.index, false);
            else if (r.text.empty()) r.text = " -- ";
        }
    }
    // Combine: the highest category over the rows of the table.
    for (const PedRow& r : s.rows) running = std::max(running, std::max(r.index, IndexOfText(ws, r.text)));
    s.plantIndex = running;
    s.plantText = CategoryWord(ws, running);
}

bool WritePedProtocol(Workspace& ws, const PedScreen& s) {
    const Captions& c = ws.captions;
    const Project& p = ws.project;
    RecordWriter w;
    auto line = [&](const std::string& text) { w.Item(text).EndLine(); };
    auto pair = [&](const std::string& label, const std::string& value) { line("E1" + label + "§$&" + value); };
    line("15" + c[PedWord::Title]);
    line("12" + c[PedWord::Directive]);
    line("10" + p.ProjektNam + (p.ProBeschr.empty() ? "" : " - " + p.ProBeschr));
    line("");
    line("Rechteck1");
    pair(c[Cap::Refrigerant], p.KaelteM);
    pair(c[PedWord::FluidGroup], s.group1Part ? c[PedWord::Group1] : c[PedWord::Group2]);
    pair(c[PedWord::HighSideChoice],
         c[s.high == 1 ? PedWord::Choice43 : s.high == 2 ? PedWord::Choice55 : PedWord::Choice63]);
    pair(c[PedWord::LowSide] + ": PS1", s.ps1 + " bar g");
    pair(c[PedWord::HighSide] + ": PS2", s.ps2 + " bar g");
    pair("1.1 x PS2", s.ps2x11 + " bar g");
    pair(c[PedWord::NominalSize] + " DN1 / DN2", NumberText(s.dn1) + " / " + NumberText(s.dn2) + " mm");
    line("");
    line("Rechteck3");
    line(c[PedWord::Component] + "&%!" + c[PedWord::Basis] + "&%!" + c[PedWord::Size] + "&%!" + c[PedWord::Product] +
         "&%!" + c[PedWord::CategoryColumn]);
    for (std::size_t i = 0; i < s.rows.size(); ++i) {
        const PedRow& r = s.rows[i];
        const std::string unit = r.basis == "PS * V" ? " l" : r.basis == "PS * DN" ? " mm" : "- ";
        line(r.component + "&%!" + r.basis + "&%!" + r.size + unit + "&%!" + r.product + "&%!" + r.text);
    }
    line("");
    pair("&$$" + c[PedWord::AssemblyCategory], s.assemblyText);
    pair(c[PedWord::Category], s.plantText);
    bool ok = WriteListText(ws, "PEDpar.DAT", w.Text());

    // Page 2: the note on category 0 and the signatures.
    RecordWriter w2;
    auto line2 = [&](const std::string& text) { w2.Item(text).EndLine(); };
    line2("12" + c[PedWord::Protocol] + " - " + c[PedWord::Title]);
    line2("");
    if (s.assemblyIndex == 0) {
        line2("E1&$$" + c[PedWord::Note]);
        line2("E2" + c[PedWord::NoteArticle]);
        line2("");
    }
    line2("Rechteck2");
    for (PedWord who : {PedWord::Operator, PedWord::Installer, PedWord::TestedBy}) {
        line2("E1" + c[who] + "§$&" + std::string(40, '_'));
        line2("E2" + c[PedWord::PlaceDate] + "§$&" + std::string(40, '_'));
        line2("E2" + c[PedWord::Signature] + "§$&" + std::string(40, '_'));
        line2("");
    }
    ok = WriteListText(ws, "PEDpar2.DAT", w2.Text()) && ok;
    return ok;
}

int LeakCheckMonths(double tonnesCo2e, bool leakDetection) {
    int months = 0;
    if (tonnesCo2e >= 500) months = 3;
    else if (tonnesCo2e >= 50) months = 6;
    else if (tonnesCo2e >= 5) months = 12;
    return leakDetection ? 2 * months : months;
}

bool WriteEcoProtocol(Workspace& ws, const SeasonalResult* year) {
    const Captions& c = ws.captions;
    const Project& p = ws.project;
    const CycleState& cyc = ws.cycle;
    RecordWriter w;
    auto line = [&](const std::string& text) { w.Item(text).EndLine(); };
    auto pair = [&](const std::string& label, const std::string& value) { line("E1" + label + "§$&" + value); };
    line("15" + c[PedWord::EcoTitle]);
    line("10" + p.ProjektNam + (p.ProBeschr.empty() ? "" : " - " + p.ProBeschr));
    line("");
    line("Rechteck1");
    pair(c[Cap::Refrigerant], p.KaelteM);
    pair("EER", NumberText(Cut(cyc.eer, 2)));
    pair("COP", NumberText(Cut(cyc.cop, 2)));
    if (year && year->ran && year->scop > 0) {
        pair("sCOP", NumberText(year->scop));
        pair("ETAs,h /[%]", NumberText(year->etaSh));
        pair(c[PedWord::AnnualEnergy] + " /[kWh]", NumberText(std::trunc(year->energyTotal)));
    }
    const std::array<double, 2> charge = ReadCharge(ws);
    const double kg = std::max(charge[0], charge[1]);
    const double tonnes = kg * p.Gwp / 1000;
    pair(c[PedWord::Gwp], std::to_string(p.Gwp));
    pair(c[PedWord::RefrigerantCharge] + " /[kg]", NumberText(Cut(kg, 2)));
    pair(c[PedWord::Co2Equivalent] + " /[t]", NumberText(Cut(tonnes, 2)));
    const int months = LeakCheckMonths(tonnes, false);
    pair(c[PedWord::LeakCheckInterval], months > 0 ? std::to_string(months) + " /[12]" : " -- ");
    line("");
    // The energy classes of the adopted heat exchangers, from the change
    // blocks of the units list.
    const ListFile units = ReadListFile(ws, lists::kUnits, lists::kHeader, lists::kUnitRow);
    RecordReader blocks = OpenIn(ws, lists::kUnitsChange);
    for (const auto& row : units.rows) {
        if (Trim(row[0]).empty()) continue;
        std::array<std::string, 25> b;
        for (std::string& item : b)
            if (!blocks.Read(item)) break;
        const int kind = WholeNumber(ToNumber(Trim(b[2])));
        if (kind != 13 && kind != 14) continue;
        const std::string base = b[9].substr(0, std::min<std::size_t>(7, b[9].size()));
        const long long record = WholeNumberLong(ToNumber(Trim(b[10])));
        const int position = WholeNumber(ToNumber(Trim(b[18])));
        for (const SeriesArticle& a : ReadSeriesArticles(ws, base, position))
            if (a.record == record) {
                const std::string cls = EnergyClass(KindGroupCode(kind), a.article);
                if (cls.empty()) break;
                pair(c[PedWord::EfficiencyLabel], row[0] + " " + row[1]);
                line("Eff_class§§§$$$" + cls);
                break;
            }
    }
    return WriteListText(ws, "ECOpar.DAT", w.Text());
}

}  // namespace kv
