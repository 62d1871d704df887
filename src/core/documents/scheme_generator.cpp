#include "documents/scheme_generator.h"

#include <algorithm>
#include <cmath>

#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "project/field_checks.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

struct Composer {
    const Workspace& ws;
    SchemeFile f;

    void Line(int code, double x1, double y1, double x2, double y2, const std::string& text = {}, int place = 0) {
        SchemeElement e;
        e.code = code;
        e.x1 = x1, e.y1 = y1, e.x2 = x2, e.y2 = y2;
        e.text = text;
        e.labelPlace = place;
        e.rest = {" 0", code == 5 || code == 6 || code == 7 || code == 8 ? " " : "", std::to_string(place)};
        f.elements.push_back(std::move(e));
    }
    void Symbol(int code, double x, double y, double w, double h, const std::string& text = {}) {
        SchemeElement e;
        e.code = code;
        e.x1 = x, e.y1 = y, e.x2 = w, e.y2 = h;
        e.text = text;
        e.rest = {" 0", "", "0"};
        f.elements.push_back(std::move(e));
    }
};

// Symbols of the fitting kinds on a horizontal and on a vertical line.
struct KindSymbol {
    int kind, horizontal, vertical;
    double w, h;  // of the horizontal form; the vertical one turns it
};
constexpr KindSymbol kKindSymbols[] = {
    {6, 511, 512, 300, 180}, {1, 20, 15, 300, 160},   {5, 21, 16, 300, 180},  {7, 26, 27, 300, 160},
    {4, 422, 422, 300, 180}, {3, 1511, 1511, 300, 180}, {15, 9015, 9015, 300, 180}, {16, 1521, 1521, 240, 150},
    {9, 38, 38, 300, 600},   {8, 135, 135, 700, 320}, {0, 25, 25, 300, 180},   {18, 18, 18, 300, 180},
    {10, 340, 340, 280, 160}};

const KindSymbol* SymbolOf(int kind) {
    for (const KindSymbol& k : kKindSymbols)
        if (k.kind == kind) return &k;
    return nullptr;
}

// The column of the line sheet's fittings grid that counts a kind.
int SheetColumn(int kind) {
    switch (kind) {
    case 6: return 1; case 1: return 2; case 8: return 3; case 7: return 4; case 9: return 5; case 4: return 6;
    case 5: return 7; case 3: return 8; case 15: return 11; case 16: return 12; case 0: case 18: return 13;
    default: return 0;
    }
}

}  // namespace

int CondenserElement(int number) {
    switch (number) {
    case 1: return 10; case 2: return 1021; case 3: return 1022; case 4: return 2021; case 5: return 2022;
    case 6: return 34; case 7: return 135; case 8: return 31; default: return number;
    }
}

int EvaporatorElement(int number) {
    switch (number) {
    case 1: return 10; case 2: return 1020; case 3: return 1021; case 4: return 1021; case 6: return 34;
    case 7: return 135; case 8: return 31; default: return number;
    }
}

SchemeFile ComposeScheme(const Workspace& ws, int mode, const SchemeOptions& options) {
    Composer c{ws, {}};
    const Project& p = ws.project;
    const Captions& cap = ws.captions;
    c.f.header = {" 400", p.ProjektNam, p.ProBeschr, "", "", "4", "", "1", p.ProjektDatei + "§$&" + p.ProjektDatum,
                  p.AuftrGNo};

    // Designations of the lists in modes 32 and 132; an empty units list drops to mode 0.
    const ListFile units = ReadListFile(ws, lists::kUnits, lists::kHeader, lists::kUnitRow);
    if ((mode == 32 || mode == 132) && units.rows.empty()) mode = 0;
    const ListFile parts = mode ? ReadListFile(ws, lists::kParts, lists::kPartsHeader, lists::kUnitRow) : ListFile{};
    auto unitText = [&](int kind) {
        if (mode)
            for (const auto& r : units.rows)
                if (r[0] == KindListCaption(ws, kind)) return r[1];
        return KindListCaption(ws, kind);
    };
    // Mode 132 names the parts by the PED list (kind, line, designation).
    const ListFile ped = mode == 132 ? ReadListFile(ws, lists::kPed, 0, lists::kPedRow) : ListFile{};
    auto partText = [&](int kind, int section) {
        if (mode) {
            const std::string line = LineSectionCaption(ws, section), kindWord = KindListCaption(ws, kind);
            for (const auto& r : ped.rows)
                if (r[2] == kindWord && r[3] == line) return r[5];
            for (const auto& r : parts.rows)
                if (r[0] == kindWord && r[5] == line) return r[1];
        }
        return KindListCaption(ws, kind);
    };

    // Line texts: the size and the caption of the line.
    const LineSizeFile sizes = ReadLineSizeFile(ws);
    auto lineText = [&](int section) {
        const auto i = static_cast<std::size_t>(section);
        const std::string& size = sizes.size[i];
        std::string text = size.empty() ? LineSectionCaption(ws, section) : size + " " + LineSectionCaption(ws, section);
        if (options.length && sizes.length[i] > 0) text += ", l =" + NumberText(sizes.length[i]) + "m";
        if (options.speed && !size.empty())
            text += " *dp =" + NumberText(sizes.lossK[i]) + "K, v =" + NumberText(sizes.velocity[i]) + "m/s";
        return text;
    };

    // Heat exchangers by ACT_WT.dat: evaporator number, condenser number.
    int evapNumber = 1, condNumber = 1;
    {
        RecordReader in = OpenIn(ws, "ACT_WT.dat");
        double a = 0, b = 0;
        if (in.Read(a) && a > 0) evapNumber = WholeNumber(a);
        if (in.Read(b) && b > 0) condNumber = WholeNumber(b);
    }
    const int evapElement = EvaporatorElement(evapNumber), condElement = CondenserElement(condNumber);

    // The main run: suction along y = 9800 from x = 11200, discharge along
    // y = 2800, condensate along y = 1800, liquid down x = 400.
    c.Line(5, 11200, 9800, 6200, 9800, lineText(Suction), 3);
    c.Line(5, 11200, 3000, 11200, 9800, "", 0);
    c.Line(5, 9240, 3000, 11200, 3000, "", 0);
    c.Line(6, 8800, 2800, 6200, 2800, lineText(Discharge), 1);
    c.Line(6, 6200, 2800, 6200, 2100);
    c.Line(7, 5000, 1800, 900, 1800, lineText(Condensate), 1);
    const bool receiver = true;
    if (receiver) {
        c.Line(7, 900, 1800, 900, 2300);
        c.Symbol(38, 750, 2300, 300, 600, unitText(17));
        c.Line(8, 900, 2900, 900, 3000);
        c.Line(8, 900, 3000, 400, 3000);
        c.Line(8, 400, 3000, 400, 9800, lineText(Liquid), 2);
    } else {
        c.Line(8, 400, 1800, 400, 5100, lineText(Liquid), 2);
        c.Line(8, 400, 5100, 400, 9800);
    }
    c.Line(8, 400, 9800, 4140, 9800);

    // The evaporator group: the expansion valve, then one injection line or a distributor.
    c.Symbol(17, 4140, 9650, 160, 300, unitText(2) == KindListCaption(ws, 2) ? partText(2, Injection) : unitText(2));
    const int evaporators = std::max(1, WholeNumber(p.ArmaturZahl[9][1]));
    if (evaporators == 1) {
        c.Line(5, 4300, 9800, 5000, 9800, lineText(Injection), 0);
    } else {
        const double from[3] = {9680, 9800, 9920}, to[3] = {9700, 9800, 9900};
        for (int i = 0; i < std::min(evaporators, 3); ++i) c.Line(5, 4300, from[i], 5000, to[i], i == 1 ? lineText(Injection) : "", 0);
    }
    // Heat exchanger symbols at their places.
    if (evapElement == 31) c.Symbol(31, 4400, 9500, 1600, 600, unitText(13));
    else if (evapElement == 135) {
        c.Symbol(135, 5200, 8900, 500, 1000, unitText(13));
        c.Line(5, 5700, 9050, 6200, 9050);
        c.Line(5, 6200, 9050, 6200, 9800);
    } else c.Symbol(evapElement, 5000, 8800, 1200, 1000, unitText(13));
    if (condElement == 31) c.Symbol(31, 5400, 1500, 1600, 600, unitText(14));
    else if (condElement == 135) c.Symbol(135, 5400, 950, 500, 1000, unitText(14));
    else c.Symbol(condElement, 5000, 1500, 1200, 600, unitText(14));

    // The pressure switch on the high side with its control line.
    c.Symbol(302, 875, 960, 250, 250, "PSH");
    c.Line(1, 1000, 1210, 1000, 1800, "Linie", 0);

    // Accessories the line sheet counts: along the run of their line.
    struct Run {
        int section;
        bool vertical;
        double fixed, from, to;
        std::initializer_list<int> kinds;
    };
    const Run runs[] = {{Suction, false, 9800, 6600, 10900, {5, 8, 6, 16, 1, 15, 0, 10}},
                        {Discharge, false, 2800, 6500, 8500, {6, 16, 9, 1}},
                        {Liquid, true, 400, 3300, 9400, {6, 5, 7, 3, 4}},
                        {Condensate, false, 1800, 1300, 4700, {18, 1}}};
    for (const Run& run : runs) {
        std::vector<int> present;
        for (int kind : run.kinds) {
            const int column = SheetColumn(kind);
            const bool there = kind == 10 ? p.HGBypass != 0
                                          : column > 0 && ToNumber(Trim(p.Armatur.Cell(column, run.section))) != 0;
            if (there) present.push_back(kind);
        }
        const double step = present.empty() ? 0 : (run.to - run.from) / static_cast<double>(present.size());
        for (std::size_t i = 0; i < present.size(); ++i) {
            const KindSymbol* s = SymbolOf(present[i]);
            if (!s) continue;
            const double at = run.from + step * (static_cast<double>(i) + 0.5);
            const std::string text = partText(present[i], run.section);
            if (run.vertical) c.Symbol(s->vertical, run.fixed - s->h / 2, at - s->w / 2, s->h, s->w, text);
            else c.Symbol(s->horizontal, at - s->w / 2, run.fixed - s->h / 2, s->w, s->h, text);
        }
    }

    // Economizer: the side circuit from the liquid line to the compressor.
    if (p.EcoFlag != 0) {
        c.Line(8, 400, 5660, 3000, 5660, lineText(EconomizerLiquid), 1);
        c.Symbol(16, 3100, 5540, 150, 240, partText(5, EconomizerLiquid));
        c.Symbol(17, 3500, 5510, 160, 300, partText(2, EconomizerLiquid));
        c.Line(8, 3250, 5660, 3500, 5660);
        c.Line(5, 3660, 5660, 4600, 5660);
        c.Symbol(135, 4600, 5500, 700, 320, cap[Cap::KindEconomizerHx]);
        c.Line(5, 5300, 5660, 9000, 5660, lineText(EconomizerSuction), 1);
        c.Line(5, 9000, 5660, 9000, 3400);
    }
    // Side circuits of a load split: each further suction branch a line
    // pair with its solenoid valve, regulator and ball valve, its text the
    // branch's capacity; further discharge branches on the second form.
    {
        const ListFile suction = ReadListFile(ws, "SP_TempS.dat", 0, 8);
        const double ys[3] = {6810, 5660, 4510};
        for (std::size_t i = 1; i < suction.rows.size() && i <= 3; ++i) {
            const double y = ys[i - 1];
            const std::string text = suction.rows[i][3] + "  " + suction.rows[i][2] + " kW";
            c.Line(5, 6200, 9800, 6200, y);
            c.Line(5, 6200, y, 11200, y, text, 1);
            c.Symbol(16, 7000, y - 120, 150, 240);
            c.Symbol(17, 7600, y - 150, 160, 300);
            c.Symbol(512, 8200, y - 150, 180, 300);
        }
        const ListFile discharge = ReadListFile(ws, "SP_TempD.dat", 0, 8);
        const double yd[2] = {4510, 4600};
        for (std::size_t i = 1; i < discharge.rows.size() && i <= 2; ++i) {
            const double y = yd[i - 1] + 0;
            const double x = 8600 - 200.0 * static_cast<double>(i);
            const std::string text = discharge.rows[i][3] + "  " + discharge.rows[i][2] + " kW";
            c.Line(6, x, 2800, x, y);
            c.Line(6, x, y, 6400 + 200.0 * static_cast<double>(i - 1), y, text, 1);
            c.Line(6, 6400 + 200.0 * static_cast<double>(i - 1), y, 6400 + 200.0 * static_cast<double>(i - 1), 2800);
        }
    }
    // The extra side circuit (oil-side heat recovery): its capacity field and device.
    if (p.OelKuehler != 0) {
        c.Symbol(335, 12300, 2000, 800, 250, NumberText(std::trunc(ws.cycle.pShaft * 0.1 * 100) / 100) + " kW");
        c.Symbol(47, 12250, 3200, 300, 300, "");
        c.Line(1, 12400, 2250, 12400, 3200);
    }
    // The further discharge branch of a hot-gas defrost: down to the
    // evaporator inlet, with its valves on the way.
    if (p.AbtauArt != 0) {
        c.Line(6, 6400, 2800, 6400, 3000);
        c.Line(6, 6400, 3000, 4600, 3000);
        c.Line(6, 4600, 3000, 4600, 9800, cap[Cap::DefrostHotGas], 2);
        c.Symbol(452, 4525, 7325, 150, 240);
        c.Symbol(16, 4525, 7625, 150, 240, KindListCaption(ws, 5));
        c.Symbol(512, 4510, 7925, 180, 300, KindListCaption(ws, 6));
    }
    // A second stage: the intermediate vessel and its loop.
    if (IsTwoStagePlant(p.AnlagenTyp)) {
        c.Symbol(19, 7350, 5800, 400, 500, cap[Cap::IntermediatePressure]);
        c.Line(6, 7400, 5800, 7400, 3400);
        c.Line(5, 7800, 5800, 7800, 3000);
        c.Line(5, 7800, 3000, 8800, 3000);
    }
    // Hot-gas bypass: from the discharge down to the injection.
    if (p.HGBypass != 0) {
        c.Line(6, 6350, 2800, 6350, 9800, lineText(HotGasBypass), 2);
        c.Symbol(340, 6270, 6000, 160, 280, KindListCaption(ws, 10));
    }

    // The compressor block; a two-stage plant draws one per compressor,
    // each 300 further right and 200 further down.
    c.Symbol(14, 8800, 2580, 440, 400, unitText(12));
    if (IsTwoStagePlant(p.AnlagenTyp))
        for (int i = 1; i < std::max(1, static_cast<int>(p.ArmaturZahl[14][2])) && i < 4; ++i)
            c.Symbol(14, 8800 + 300.0 * i, 2580 + 200.0 * i, 440, 400, unitText(12));
    c.Line(1, 9000, 3400, 9000, 3200);
    c.Line(1, 9000, 3400, 9600, 3400);
    c.Line(1, 9600, 3400, 9600, 5200);
    c.Line(1, 9600, 5200, 9950, 5200);
    c.Line(1, 10100, 5200, 10100, 5400);
    c.Line(1, 10100, 5400, 10450, 5400);
    c.Line(1, 10450, 5400, 10450, 4700);
    c.Symbol(340, 9950, 5120, 160, 280, KindListCaption(ws, 5));
    c.Symbol(511, 9540, 3600, 200, 120);
    c.Symbol(21, 9540, 4400, 200, 120);
    c.Symbol(26, 9540, 4000, 200, 120);
    c.Symbol(28, 9540, 4800, 200, 120);

    // The control box with its dashed connection and indicator.
    c.Symbol(-1, 12000, 8000, 400, 1000, "");
    c.Line(-3, 12200, 9000, 12200, 9200);
    c.Symbol(300, 12100, 9200, 200, 200, "TI");
    // The indicator bubbles of the stage, 125 apart.
    const char* tags[] = {"PZH", "PZL", "PSL", "PI", "TI"};
    for (int i = 0; i < 5; ++i) c.Symbol(i < 3 ? 302 : 300, 8600 + 125.0 * i * 2, 1700, 200, 200, tags[i]);
    // Flow arrows with the line captions.
    c.Symbol(717, 8000, 9750, 250, 100, LineSectionCaption(ws, Suction));
    c.Symbol(719, 7600, 2750, 250, 100, LineSectionCaption(ws, Discharge));
    return c.f;
}

bool WriteScheme(Workspace& ws, int mode, const SchemeOptions& options) {
    return WriteSchemeFile(ws, "RIFliess.dat", ComposeScheme(ws, mode, options));
}

namespace {

constexpr Rgb kSuction{0, 80, 200}, kDischarge{200, 20, 20}, kLiquid{0, 140, 60}, kCondensate{235, 130, 0},
    kControl{120, 120, 120}, kSymbol{30, 30, 30}, kFill{238, 242, 246};

DrawFont Label(double size) {
    DrawFont f;
    f.size = size;
    return f;
}

void Valve(DrawingList& d, double x, double y, double w, double h, bool vertical) {
    const Pen pen{kSymbol, 12};
    if (vertical)
        d.Polyline({{x, y}, {x + w, y + h}, {x, y + h}, {x + w, y}}, pen, true);
    else
        d.Polyline({{x, y}, {x + w, y + h}, {x + w, y}, {x, y + h}}, pen, true);
}

void HeatExchanger(DrawingList& d, double x, double y, double w, double h) {
    d.Rect(x, y, w, h, {kSymbol, 14}, kFill);
    std::vector<DrawPoint> coil;
    for (int i = 0; i <= 10; ++i) coil.push_back({x + w * (0.05 + 0.09 * i), y + (i % 2 ? h * 0.25 : h * 0.75)});
    d.Polyline(coil, {kSymbol, 8});
}

}  // namespace

DrawingList DrawScheme(const SchemeFile& f) {
    DrawingList d;
    d.width = kSheetWidth;
    d.height = kSheetHeight;
    d.background = kWhite;
    auto inside = [](double x, double y) { return x >= -1000 && x <= kSheetWidth + 1000 && y >= -1000 && y <= kSheetHeight + 1000; };
    for (const SchemeElement& e : f.elements) {
        if (IsLineElement(e.code)) {
            if (!inside(e.x1, e.y1) || !inside(e.x2, e.y2)) continue;
            Rgb colour = kControl;
            double width = 8;
            if (e.code == 5) colour = kSuction, width = 30;
            if (e.code == 6) colour = kDischarge, width = 30;
            if (e.code == 7) colour = kCondensate, width = 30;
            if (e.code == 8) colour = kLiquid, width = 30;
            if (e.code == -3) {
                // Dashed: short strokes along the line.
                const double len = std::hypot(e.x2 - e.x1, e.y2 - e.y1);
                for (double s = 0; s < len; s += 120) {
                    const double a = s / len, b = std::min(len, s + 60) / len;
                    d.Line(e.x1 + (e.x2 - e.x1) * a, e.y1 + (e.y2 - e.y1) * a, e.x1 + (e.x2 - e.x1) * b,
                           e.y1 + (e.y2 - e.y1) * b, {kControl, 8});
                }
            } else {
                d.Line(e.x1, e.y1, e.x2, e.y2, {colour, width});
            }
            continue;
        }
        const double x = e.x1, y = e.y1, w = e.x2, h = e.y2;
        if (!inside(x, y) || !(w > 0) || !(h > 0) || w > kSheetWidth || h > kSheetHeight) continue;
        const std::string text(Trim(e.text));
        switch (e.code) {
        case 10: case 31: case 34: case 135: case 1020: case 1021: case 1022: case 2021: case 2022:
            HeatExchanger(d, x, y, w, h);
            break;
        case 14: case 9:
            d.Ellipse(x + w / 2, y + h / 2, std::min(w, h) / 2, std::min(w, h) / 2, {kSymbol, 14}, kFill);
            d.Polyline({{x + w * 0.3, y + h * 0.8}, {x + w * 0.75, y + h * 0.65}, {x + w * 0.75, y + h * 0.35},
                        {x + w * 0.3, y + h * 0.2}},
                       {kSymbol, 10}, true);
            break;
        case 17:
            Valve(d, x, y, w, h, true);
            d.Line(x + w / 2, y + h / 2, x + w * 1.4, y + h / 2, {kSymbol, 8});
            break;
        case 19: case 38:
            d.Rect(x, y, w, h, {kSymbol, 14}, kFill);
            d.Ellipse(x + w / 2, y, w / 2, w / 5, {kSymbol, 10}, kFill);
            d.Ellipse(x + w / 2, y + h, w / 2, w / 5, {kSymbol, 10}, kFill);
            break;
        case 52:
            d.Rect(x, y, w, h, {kSymbol, 14}, kFill);
            break;
        case 300: case 301: case 302:
            d.Ellipse(x + w / 2, y + h / 2, w / 2, h / 2, {kSymbol, 10}, kWhite);
            d.Text(x + w / 2, y + h / 2, text, Label(h * 0.32), kSymbol, HAlign::Centre, VAlign::Middle);
            break;
        case 717: case 719:
            d.Polyline({{x, y}, {x + w, y + h / 2}, {x, y + h}}, {kSymbol, 10}, true);
            break;
        case -1:
            d.Rect(x, y, w, h, {kSymbol, 14});
            break;
        case 335: case 29: case 47:
            d.Rect(x, y, w, h, {kSymbol, 10}, kWhite);
            break;
        case 15: case 16: case 20: case 21: case 25: case 26: case 27: case 28: case 18: case 22: case 340: case 341:
        case 422: case 452: case 511: case 512: case 611: case 612: case 1511: case 1521: case 9015: case 111:
        case 113: case 114:
            Valve(d, x, y, w, h, h > w);
            break;
        default:
            // An element of a code without a symbol: a box with its code.
            d.Rect(x, y, w, h, {kSymbol, 8}, kWhite);
            d.Text(x + w / 2, y + h / 2, std::to_string(e.code), Label(std::min(h, w) * 0.3), kSymbol, HAlign::Centre,
                   VAlign::Middle);
            break;
        }
        // Texts beside upright symbols, below the ones lying in a line.
        const bool bubble = e.code == 300 || e.code == 301 || e.code == 302;
        const bool arrow = e.code == 717 || e.code == 719;
        if (text.empty() || bubble || arrow) continue;
        if ((h < w && h < 400) || e.code == 17)
            d.Text(x + w / 2, y + h + 40, text, Label(110), kSymbol, HAlign::Centre, VAlign::Top);
        else
            d.Text(x + w + 40, y + h / 2, text, Label(120), kSymbol, HAlign::Left, VAlign::Middle);
    }
    // The texts of the lines last, so that no symbol covers them.
    for (const SchemeElement& e : f.elements) {
        if (!IsLineElement(e.code) || !inside(e.x1, e.y1) || !inside(e.x2, e.y2)) continue;
        const Rgb colour = e.code == 5 ? kSuction : e.code == 6 ? kDischarge : e.code == 7 ? kCondensate
                         : e.code == 8 ? kLiquid : kControl;
        if (Trim(e.text).empty() || e.text == "Linie") continue;
        const bool vertical = std::fabs(e.x2 - e.x1) < std::fabs(e.y2 - e.y1);
        // Upright lines carry their text on the left, reading upward, clear
        // of the symbols whose texts stand on their right.
        auto& t = d.Text((e.x1 + e.x2) / 2 - (vertical ? 50 : 0), (e.y1 + e.y2) / 2 - (vertical ? 0 : 130), e.text,
                         Label(130), colour, HAlign::Centre, VAlign::Bottom);
        if (vertical) t.rotation = -90;
    }
    return d;
}

}  // namespace kv
