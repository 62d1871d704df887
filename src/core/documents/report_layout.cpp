#include "documents/report_layout.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "catalogue/component_search.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/captions.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr double W = kPageWidth, H = kPageHeight;
constexpr double kPoint = 3.528;  // tenths of a millimetre per point
constexpr std::array<double, 6> kCellStarts = {0.105, 0.29, 0.38, 0.52, 0.66, 0.8};
constexpr double kValueColumn = 0.5;
constexpr double kPageEnd = 0.93;

DrawFont Font(double points, bool bold = false) {
    DrawFont f;
    f.family = "Arial";
    f.size = points * kPoint;
    f.bold = bold;
    return f;
}

// The number of characters of a UTF-8 text.
std::size_t Characters(std::string_view s) {
    std::size_t n = 0;
    for (unsigned char c : s) n += (c & 0xC0) != 0x80;
    return n;
}

std::string WithoutLineEnd(std::string s) {
    while (!s.empty() && (s.back() == '\r' || s.back() == '\n')) s.pop_back();
    while (!s.empty() && (s.front() == '\r' || s.front() == '\n')) s.erase(s.begin());
    return s;
}

// The pictures of the grammar, drawn in place of the bitmaps of old.
void CompressorPicture(DrawingList& d, double cx, double cy, double h) {
    const Pen pen{kBlack, h / 40};
    d.Ellipse(cx, cy, h / 2, h / 2, pen, Rgb{235, 240, 245});
    d.Polyline({{cx - h * 0.3, cy + h * 0.3}, {cx + h * 0.3, cy + h * 0.12}, {cx + h * 0.3, cy - h * 0.12},
                {cx - h * 0.3, cy - h * 0.3}},
               pen, true);
}

void PartPicture(DrawingList& d, double x, double y, double h) {
    const Pen pen{kBlack, h / 80};
    const double w = h * 0.6;
    d.Rect(x, y, w, h, pen, Rgb{245, 245, 245});
    d.Line(x - w * 0.25, y + h / 2, x + w * 1.25, y + h / 2, {kBlack, h / 50});
    d.Polyline({{x + w * 0.2, y + h * 0.35}, {x + w * 0.8, y + h * 0.65}, {x + w * 0.8, y + h * 0.35},
                {x + w * 0.2, y + h * 0.65}},
               pen, true);
}

void RoomPicture(DrawingList& d, double cx, double top, double h) {
    const Pen pen{kBlack, h / 60};
    d.Polyline({{cx - h * 0.7, top + h}, {cx - h * 0.7, top + h * 0.35}, {cx, top}, {cx + h * 0.7, top + h * 0.35},
                {cx + h * 0.7, top + h}},
               pen, true);
}

struct Layout {
    const Workspace& ws;
    std::vector<DrawingList> pages;
    std::vector<std::string> titles;
    double y = 0;
    double first = 0.176 * H;
    std::string title;

    DrawingList& Page() { return pages.back(); }

    void NewPage() {
        DrawingList p;
        p.width = W;
        p.height = H;
        p.background = kWhite;
        p.Text(0.09 * W, 0.09 * H, title, Font(14, true));
        p.Line(0.06 * W, 0.105 * H, 0.94 * W, 0.105 * H, {kBlack, 3});
        pages.push_back(std::move(p));
        titles.push_back(title);
        y = first;
    }

    void Line(std::string line) {
        line = WithoutLineEnd(std::move(line));
        if (y > kPageEnd * H) NewPage();
        double points = 10, extra = 0, indent = 0;
        bool bold = false;
        std::string t = line;
        if (t.size() >= 2) {
            const std::string two = t.substr(0, 2);
            const double n = LeadingValue(two);
            if (n > 0 && std::isdigit(static_cast<unsigned char>(two[0]))) {
                points = 1.1 * n;
                extra = 3 * n * 1.1 / 3000 * H;
                t = t.substr(2);
            } else if (two[0] == 'E') {
                indent = std::isdigit(static_cast<unsigned char>(two[1])) ? (two[1] - '0') * 0.02 * W : 0.0;
                t = t.substr(2);
            }
        }
        if (const std::size_t at = t.find("&$$"); at != std::string::npos) {
            bold = true;
            t = t.substr(at + 3);
        }
        const double x0 = 0.09 * W + indent;
        const double step = 0.018 * H + extra;
        DrawingList& d = Page();
        if (Characters(t) >= 150) {
            d.Text(x0, y, t, Font(points, bold));
            y += step;
            return;
        }
        std::size_t mark = t.find("§$&");
        if (mark == std::string::npos) mark = t.find("$§$");
        if (mark != std::string::npos) {
            std::string value = t.substr(mark + std::string_view("§$&").size());
            value.erase(0, value.find_first_not_of(' '));
            d.Text(x0, y, std::string(t.substr(0, mark)), Font(points, bold));
            d.Text(kValueColumn * W + indent, y, value, Font(points, bold));
            y += step;
            return;
        }
        if (t.find("&%!") != std::string::npos) {
            std::size_t from = 0;
            for (std::size_t cell = 0; cell < kCellStarts.size(); ++cell) {
                const std::size_t to = t.find("&%!", from);
                std::string text = t.substr(from, to == std::string::npos ? std::string::npos : to - from);
                text = std::string(Trim(text));
                d.Text(kCellStarts[cell] * W + indent, y, text, Font(8, bold));
                if (to == std::string::npos) break;
                from = to + 3;
            }
            y += 0.015 * H;
            return;
        }
        if (t.find("VDBild") != std::string::npos) {
            CompressorPicture(d, 0.5 * W, y + 0.016 * H - 0.035 * H + 0.035 * H, 0.07 * H);
            y += 0.032 * H + step;
            return;
        }
        if (t.find("RaumBEnde") != std::string::npos) {
            y += step;
            return;
        }
        if (t.find("RaumBild") != std::string::npos) {
            RoomPicture(d, 0.6 * W, y - 0.7 * 0.1 * H, 0.1 * H);
            y += step;
            return;
        }
        if (t.find("Rechteck") != std::string::npos) {
            y += 0.007 * H;
            const char digit = t.size() > t.find("Rechteck") + 8 ? t[t.find("Rechteck") + 8] : ' ';
            const double height = digit == '2' ? 0.12 * H : digit == '3' ? 0.265 * H : 0.2 * H;
            d.Rect(0.08 * W, y, 0.84 * W, height, {kBlack, 2});
            y += step;
            return;
        }
        if (const std::size_t e = t.find("Eff_class"); e != std::string::npos) {
            std::string cls;
            if (const std::size_t m = t.find("§§§$$$"); m != std::string::npos) cls = std::string(Trim(t.substr(m + std::string_view("§§§$$$").size())));
            const double h = 0.12 * H;
            if (y + h > kPageEnd * H) NewPage();
            DrawEfficiencyLabel(Page(), 0.6 * W, y - 0.01 * H, h, cls);
            y += h + step;
            return;
        }
        if (t.find("Part_Pic") != std::string::npos) {
            PartPicture(d, 0.63 * W, y, 0.12 * H);
            y += step;
            return;
        }
        if (Characters(t) >= 5) d.Text(x0, y, t, Font(points, bold));
        y += step;
    }
};

}  // namespace

std::vector<std::string> ReadResultSet(const Workspace& ws, std::string_view file, int headerItems) {
    std::vector<std::string> lines;
    RecordReader in = OpenIn(ws, file);
    in.Skip(headerItems);
    std::string item;
    while (!in.AtEnd() && in.Read(item)) lines.push_back(item);
    return lines;
}

void DrawEfficiencyLabel(DrawingList& d, double x, double y, double height, std::string_view cls) {
    static const std::array<std::pair<const char*, Rgb>, 7> kClasses = {{{"A+++", Rgb{0, 140, 60}},
                                                                          {"A++", Rgb{30, 170, 70}},
                                                                          {"A+", Rgb{140, 200, 60}},
                                                                          {"A", Rgb{230, 225, 40}},
                                                                          {"B", Rgb{250, 185, 30}},
                                                                          {"C", Rgb{240, 120, 30}},
                                                                          {"D", Rgb{225, 30, 40}}}};
    const double bar = height / kClasses.size();
    d.Rect(x - bar * 0.3, y - bar * 0.3, bar * 8.6, height + bar * 0.6, {kBlack, 2});
    for (std::size_t i = 0; i < kClasses.size(); ++i) {
        const double top = y + i * bar, length = bar * (2.5 + 0.6 * i);
        d.Rect(x, top + 0.08 * bar, length, 0.84 * bar, {kClasses[i].second, 1}, kClasses[i].second);
        d.Text(x + bar * 0.2, top + bar / 2, kClasses[i].first, Font(bar / kPoint * 0.55, true), kWhite, HAlign::Left,
               VAlign::Middle);
        if (cls == kClasses[i].first) {
            // The black arrow of the class at the right of the label.
            const double ax = x + bar * 8.1;
            d.Rect(ax - bar * 2.0, top + 0.05 * bar, bar * 2.0, 0.9 * bar, {kBlack, 1}, kBlack);
            d.Text(ax - bar * 0.2, top + bar / 2, kClasses[i].first, Font(bar / kPoint * 0.6, true), kWhite, HAlign::Right,
                   VAlign::Middle);
        }
    }
}

std::vector<DrawingList> LayoutReport(const Workspace& ws, const std::vector<ReportSet>& sets) {
    Layout l{ws, {}, {}, 0, 0, {}};
    for (const ReportSet& s : sets) {
        l.title = s.title;
        l.first = (s.resultSet ? 0.16 : 0.176) * H;
        l.NewPage();
        if (s.pedCategory >= 1 && s.pedCategory <= 4) {
            DrawingList& d = l.Page();
            d.Rect(0.22 * W, 0.11 * H, 0.46 * W, 0.14 * H, {Rgb{0, 60, 140}, 6});
            d.Text(0.45 * W, 0.18 * H, ws.captions[PedWord::Category] + " " + std::string(std::array<const char*, 5>{"", "I", "II", "III", "IV"}[static_cast<std::size_t>(s.pedCategory)]),
                   Font(24, true), Rgb{0, 60, 140}, HAlign::Centre, VAlign::Middle);
            l.y = std::max(l.y, 0.27 * H);
        }
        for (const std::string& line : s.lines) l.Line(line);
    }
    // Every page: the project name and its number.
    const std::size_t n = l.pages.size();
    for (std::size_t i = 0; i < n; ++i) {
        DrawingList& d = l.pages[i];
        d.Line(0.06 * W, 0.955 * H, 0.94 * W, 0.955 * H, {kBlack, 2});
        d.Text(0.06 * W, 0.972 * H, ws.project.ProjektNam, Font(8));
        d.Text(0.94 * W, 0.972 * H, ws.captions[Cap::Page] + " " + std::to_string(i + 1) + " / " + std::to_string(n),
               Font(8), kBlack, HAlign::Right);
    }
    return l.pages;
}

std::vector<ReportSet> PlantReportSets(const Workspace& ws) {
    const Captions& c = ws.captions;
    const std::string head = c[Cap::ReportWord] + " - " + c[Cap::Refrigerant] + " : " + ws.project.KaelteM;
    std::vector<ReportSet> sets;
    auto add = [&](std::string title, std::string_view file, int header, bool result) {
        ReportSet s{std::move(title), ReadResultSet(ws, file, header), result, 0};
        if (!s.lines.empty()) sets.push_back(std::move(s));
    };
    add(head + " - " + c[Cap::ReportPlantData], "ergDt3.DAT", 0, true);
    add(head + " - " + c[Cap::ReportLineData], lists::kLineResults, lists::kHeader, true);
    add(head + " - " + c[Cap::ReportComponents], lists::kComponentResults, lists::kHeader, true);
    add(head + " - " + c[Cap::KindEvaporator] + " / " + c[Cap::KindCondenser], "KWcalc.DAT", 0, false);
    const std::string ped = c[Cap::ReportWord] + ": PED - " + c[Cap::Refrigerant] + " : " + ws.project.KaelteM;
    add(ped, "PEDpar.DAT", 0, false);
    add(ped, "PEDpar2.DAT", 0, false);
    add(c[Cap::ReportWord] + ": ECO - " + c[Cap::Refrigerant] + " : " + ws.project.KaelteM, "ECOpar.DAT", 0, false);
    return sets;
}

double CapacityScale(double q0) {
    if (q0 > 100) return 10;
    if (q0 > 10) return 100;
    return 1000;
}

std::string CompressorWord(const Workspace& ws, int principle) {
    const Captions& c = ws.captions;
    switch (principle) {
    case 1: return c[Cap::CompressorKindFirst];
    case 2: return c[Cap::CompressorKindSecond];
    case 3: return c[Cap::CompressorKindThird];
    case 4: return "Turbo";
    case 5: return c[Cap::CompressorRollingPiston];
    default: return c[Cap::KindCompressor];
    }
}

bool WritePlantResults(Workspace& ws) {
    const Captions& c = ws.captions;
    const CycleState& k = ws.cycle;
    const Project& p = ws.project;
    const std::string lang = ws.settings.Sprache;
    // Capacities to cents; further capacity figures to the places the
    // plant's size calls for (three up to 10 kW, two up to 100, one above).
    auto capacity = [](double v) { return NumberText(std::trunc(100 * v + 0.005) / 100); };
    const double scale = CapacityScale(k.Q0);
    auto scaled = [&](double v) { return NumberText(std::round(v * scale) / scale); };
    auto label = [](const std::string& word, const char* unit, const std::string& value) {
        return "        " + word + " /[" + unit + "] : §$&" + value;
    };
    RecordWriter w;
    auto line = [&](const std::string& t) { w.Item(t).EndLine(); };
    line("15" + p.ProjektNam);
    if (!p.ProBeschr.empty()) line("12" + p.ProBeschr);
    line("");
    line("&$$" + c[Cap::ReportPlantData]);
    line(std::string(155, '-'));
    line(label(c[Cap::Refrigerant], "-", p.KaelteM));
    line(label(c[Cap::EvapTemp], "°C", NumberText(Cut(k.tEvapK - 273.15, 2))));
    line(label(c[Cap::CondTemp], "°C", NumberText(Cut(k.tCondK - 273.15, 2))));
    line(label(c[Cap::EvapPressure], "bar", NumberText(Cut(k.pEvap, 2))));
    line(label(c[Cap::CondPressure], "bar", NumberText(Cut(k.pCond, 2))));
    const std::string type = UpperAscii(p.AnlagenTyp);
    const bool heatPump = type == "HEATP" || type == "HEATPUMP-2ST";
    const double qh = k.Qh > 0 ? k.Qh : k.Q0 + k.pShaft;
    if (type == "MONOF") {
        // The two stages of a mono-fluid unit: each half and the whole.
        line(label(c[Cap::RefrigCapacity], "kW", capacity(k.Q0) + "  - (" + scaled(k.Q0 / 2) + " =>  " + scaled(k.Q0 / 2) +
                                                      " / " + capacity(k.Q0) + ")"));
        line(label(c[Cap::ShaftPower], "kW", scaled(k.pShaft) + "  - (" + scaled(k.pShaft / 2) + " =>  " +
                                                 scaled(k.pShaft / 2) + " / " + scaled(k.pShaft) + ")"));
    } else {
        line(label(c[Cap::RefrigCapacity], "kW", capacity(k.Q0)));
        line(label(c[Cap::ShaftPower], "kW", scaled(k.pShaft)));
    }
    // A heat pump names its heating capacity " Qh " with the heat pump word;
    // French, Italian, Spanish and Portuguese join the words with their "of".
    if (heatPump) {
        const std::string pump = type == "HEATP" ? c[Cap::PlantHeatPump] : c[Cap::PlantHeatPumpTwoStage];
        line(label(c[Cap::HeatingCapacity] + std::string(GrammaticalJoint(lang, Joint::Of)) + pump + " Qh", "kW",
                   scaled(qh)));
        line(label("COP", "-", NumberText(Cut(k.cop, 2))));
    } else {
        line(label(c[Cap::HeatingCapacity], "kW", scaled(qh)));
        line(label("EER", "-", NumberText(Cut(k.eer, 2))));
    }
    line(label(c[Cap::KindCompressor], "-", CompressorWord(ws, p.KondArt)));
    line(label(c[Cap::MassFlow], "kg/s", NumberText(Cut(k.massFlow, 4))));
    line(label(c[Cap::DischargeTemp], "°C", NumberText(Cut(k.tDischargeC, 1))));
    line(label(c[Cap::RequiredSweptVolume], "m³/h", NumberText(Cut(k.requiredSweptVolume, 2))));
    return WriteListText(ws, "ergDt3.DAT", w.Text());
}

bool WriteHeatExchangerSheet(Workspace& ws) {
    const Captions& c = ws.captions;
    const CycleState& k = ws.cycle;
    const Project& p = ws.project;
    const ListFile units = ReadListFile(ws, lists::kUnits, lists::kHeader, lists::kUnitRow);
    RecordWriter w;
    auto line = [&](const std::string& t) { w.Item(t).EndLine(); };
    auto pair = [&](const std::string& word, const char* unit, const std::string& value) {
        line("E1" + word + " /[" + unit + "] : §$&" + value);
    };
    auto article = [&](int kind, int group) {
        std::string text = ChosenHeatExchanger(ws, group);
        if (!text.empty()) return text;
        for (const auto& r : units.rows)
            if (r[0] == KindListCaption(ws, kind)) return r[1] + ", " + r[2];
        return std::string(" -- ");
    };
    line("15" + c[Cap::KindEvaporator] + " / " + c[Cap::KindCondenser]);
    line("10" + p.ProjektNam);
    line("");
    line("Rechteck2");
    line("&$$" + c[Cap::KindEvaporator]);
    pair(c[Cap::RefrigCapacity], "kW", NumberText(std::trunc(100 * k.Q0 + 0.005) / 100));
    pair(c[Cap::DtEvaporator], "K", NumberText(p.dtVerdK));
    pair(c[Cap::EvapTemp], "°C", NumberText(Cut(k.tEvapK - 273.15, 2)));
    if (!Trim(p.doelL).empty()) pair(c[Cap::EvapSide], "°C", p.doelL);
    pair(c[Cap::TypeDesignation], "-", article(13, 600));
    line("");
    line("Rechteck2");
    line("&$$" + c[Cap::KindCondenser]);
    const double qc = k.Qh > 0 ? k.Qh : k.Q0 + k.pShaft;
    pair(c[Cap::HeatingCapacity], "kW", NumberText(std::trunc(100 * qc + 0.005) / 100));
    pair(c[Cap::DtCondenser], "K", NumberText(p.dtKondK));
    pair(c[Cap::CondTemp], "°C", NumberText(Cut(k.tCondK - 273.15, 2)));
    if (!Trim(p.DKondL).empty()) pair(c[Cap::CondSide], "°C", p.DKondL);
    pair(c[Cap::TypeDesignation], "-", article(14, 650));
    return WriteListText(ws, "KWcalc.DAT", w.Text());
}

}  // namespace kv
