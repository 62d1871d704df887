#include "cycle/scheme_picture.h"

#include "catalogue/component_search.h"
#include "catalogue/selection.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/numbers.h"
#include "shell/text.h"

#include <string>

#include "cycle/scheme_screen.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/workspace.h"

namespace kv {
namespace {

const Rgb kLine{40, 40, 40};
const Rgb kHigh{192, 48, 40};       // hot gas and liquid: the high-pressure side
const Rgb kLow{38, 92, 170};        // suction and injection: the low-pressure side
const Rgb kBody{236, 240, 245};     // component bodies
const Rgb kRed = PaletteColour(12);

DrawFont Font(double size, bool bold = false, bool italic = false) {
    DrawFont f;
    f.italic = italic;
    f.family = "Arial";
    f.size = size;
    f.bold = bold;
    return f;
}

// Size, loss and velocity of a line group as one or two short lines.
void LineFigures(DrawingList& d, const LineGroup& g, double x, double y, HAlign h) {
    if (g.diameter.empty() && g.lossMbar.empty()) return;
    std::string first = g.diameter;
    if (!g.length.empty() && g.length != "0") first += "  L " + g.length + " m";
    d.Text(x, y, first, Font(12, true), kBlack, h, VAlign::Bottom);
    double yy = y + 2;
    if (!g.lossMbar.empty()) {
        std::string loss = g.lossMbar + " mbar";
        if (!g.lossK.empty()) loss += " / " + g.lossK + " K";
        d.Text(x, yy, loss, Font(11), g.lossRed ? kRed : kBlack, h, VAlign::Top);
        yy += 14;
    }
    if (!g.velocity.empty()) {
        std::string w = g.velocity + " m/s";
        d.Text(x, yy, w, Font(11), g.velocityRed ? kRed : kBlack, h, VAlign::Top);
        yy += 14;
    }
    if (!g.minLoad.empty()) d.Text(x, yy, "min. " + g.minLoad, Font(11), g.minLoadRed ? kRed : kBlack, h, VAlign::Top);
}

void Arrow(DrawingList& d, double x, double y, double dx, double dy, const Rgb& c) {
    const Pen pen{c, 2};
    d.Polyline({{x - dx * 8 - dy * 5, y - dy * 8 + dx * 5}, {x, y}, {x - dx * 8 + dy * 5, y - dy * 8 - dx * 5}}, pen);
}

}  // namespace

DrawingList ComposeSchemePicture(const Workspace& ws, const SchemeScreen& s) {
    const Captions& c = ws.captions;
    const Project& p = ws.project;
    DrawingList d;
    d.width = kSchemeWidth;
    d.height = kSchemeHeight;
    d.background = kWhite;
    const Pen frame{kLine, 2};
    const Pen high{kHigh, 3}, low{kLow, 3};

    // Component positions.
    const double condX = 330, condY = 60, condW = 340, condH = 70;      // condenser, top
    const double evapX = 330, evapY = 500, evapW = 340, evapH = 70;     // evaporator, bottom
    const double compX = 800, compY = 330, compR = 48;                 // compressor, right
    const double recX = 120, recY = 200, recW = 90, recH = 44;         // receiver, left top
    const double valveX = 165, valveY = 400;                            // expansion valve, left

    // Condenser with its coil.
    d.Rect(condX, condY, condW, condH, frame, kBody);
    std::vector<DrawPoint> coil;
    for (int i = 0; i <= 12; ++i) coil.push_back({condX + 20 + i * 25.0, condY + (i % 2 ? 18.0 : condH - 18.0)});
    d.Polyline(coil, {kHigh, 1.5});
    d.Text(condX + condW / 2, condY - 6, c[Cap::KindCondenser] + "   tc " + s.Tc + " \u00b0C   pc " + s.pc + " bar",
           Font(13, true), kBlack, HAlign::Centre, VAlign::Bottom);

    // Evaporator with its coil.
    d.Rect(evapX, evapY, evapW, evapH, frame, kBody);
    std::vector<DrawPoint> ecoil;
    for (int i = 0; i <= 12; ++i) ecoil.push_back({evapX + 20 + i * 25.0, evapY + (i % 2 ? 18.0 : evapH - 18.0)});
    d.Polyline(ecoil, {kLow, 1.5});
    d.Text(evapX + evapW / 2, evapY + evapH + 6,
           c[Cap::KindEvaporator] + "   t0 " + s.t0 + " \u00b0C   po " + s.po + " bar", Font(13, true), kBlack,
           HAlign::Centre, VAlign::Top);
    // The capacities on a white plate over the coils.
    auto plate = [&d](double cx, double cy, const std::string& text, const Rgb& colour) {
        d.Rect(cx - 70, cy - 13, 140, 26, {colour, 1}, kWhite);
        d.Text(cx, cy, text, Font(14, true), colour, HAlign::Centre, VAlign::Middle);
    };
    if (!s.Q0.empty()) plate(evapX + evapW / 2, evapY + evapH / 2, "Q0 " + s.Q0 + " kW", kLow);
    if (!s.Qh.empty()) plate(condX + condW / 2, condY + condH / 2, "Qh " + s.Qh + " kW", kHigh);

    // Compressor.
    d.Ellipse(compX, compY, compR, compR, frame, kBody);
    d.Polyline({{compX - 30, compY + 30}, {compX + 30, compY + 12}, {compX + 30, compY - 12}, {compX - 30, compY - 30}},
               {kLine, 2}, true);
    d.Text(compX + compR + 8, compY - 10, c[Cap::KindCompressor], Font(13, true), kBlack, HAlign::Left,
           VAlign::Bottom);
    double yy = compY - 4;
    for (const std::string& t : {s.ElLeistVD_l, s.PN50_l}) {
        if (t.empty()) continue;
        d.Text(compX + compR + 8, yy, t, Font(11), kBlack, HAlign::Left, VAlign::Top);
        yy += 15;
    }

    // Receiver.
    d.Rect(recX, recY, recW, recH, frame, kBody);
    d.Ellipse(recX, recY + recH / 2, 10, recH / 2, frame, kBody);
    d.Ellipse(recX + recW, recY + recH / 2, 10, recH / 2, frame, kBody);
    d.Text(recX + recW / 2, recY - 6, c[Cap::KindReceiver], Font(12, true), kBlack, HAlign::Centre, VAlign::Bottom);

    // The articles taken for the units: the heat exchanger chosen by hand,
    // else the units list of the last list generation.
    const ListFile units = ReadListFile(ws, lists::kUnits, lists::kHeader, lists::kUnitRow);
    auto article = [&](int kind, int group) {
        if (group > 0)
            if (std::string hx = ChosenHeatExchanger(ws, group); !hx.empty()) return hx;
        const std::string caption = KindListCaption(ws, kind);
        for (const auto& row : units.rows)
            if (row[0] == caption && Trim(row[1]) != Trim(kEmptyArticle)) return std::string(Trim(row[1]));
        return std::string();
    };
    const Rgb kArticle{60, 60, 60};
    if (const std::string a = article(14, 650); !a.empty())
        d.Text(condX + condW / 2, condY + condH + 4, a, Font(12, false, true), kArticle, HAlign::Centre, VAlign::Top);
    if (const std::string a = article(13, 600); !a.empty())
        d.Text(evapX + evapW / 2, evapY - 4, a, Font(12, false, true), kArticle, HAlign::Centre, VAlign::Bottom);
    if (const std::string a = article(12, 0); !a.empty())
        d.Text(compX + compR + 8, yy + 2, a, Font(12, false, true), kArticle, HAlign::Left, VAlign::Top);

    // Expansion valve: two triangles tip to tip.
    d.Polyline({{valveX - 14, valveY - 14}, {valveX + 14, valveY + 14}, {valveX + 14, valveY - 14},
                {valveX - 14, valveY + 14}},
               frame, true);
    d.Text(valveX - 20, valveY, c[Cap::KindExpansionValve], Font(12, true), kBlack, HAlign::Right, VAlign::Middle);

    // Discharge line: compressor top to condenser right.
    d.Polyline({{compX, compY - compR}, {compX, condY + condH / 2}, {condX + condW, condY + condH / 2}}, high);
    Arrow(d, condX + condW + 2, condY + condH / 2, -1, 0, kHigh);
    LineFigures(d, s.lines[Discharge], compX + 10, condY + condH / 2 + 40, HAlign::Left);
    if (!s.tEnd.empty()) d.Text(compX + 10, compY - compR - 10, "t2 " + s.tEnd, Font(12, true), kHigh);

    // Condensate line: condenser left to receiver.
    d.Polyline({{condX, condY + condH / 2}, {recX + recW / 2, condY + condH / 2}, {recX + recW / 2, recY}}, high);
    LineFigures(d, s.lines[Condensate], recX + recW / 2 + 12, condY + condH / 2 + 24, HAlign::Left);

    // Liquid line: receiver to expansion valve.
    d.Polyline({{recX + recW / 2, recY + recH}, {recX + recW / 2, valveY - 40}, {valveX, valveY - 40},
                {valveX, valveY - 14}},
               high);
    LineFigures(d, s.lines[Liquid], recX + recW / 2 + 12, recY + recH + 40, HAlign::Left);

    // Injection line: valve to evaporator.
    d.Polyline({{valveX, valveY + 14}, {valveX, evapY + evapH / 2}, {evapX, evapY + evapH / 2}}, low);
    Arrow(d, evapX - 2, evapY + evapH / 2, 1, 0, kLow);
    LineFigures(d, s.lines[Injection], valveX + 12, evapY - 30, HAlign::Left);
    if (!s.xDampf.empty())
        d.Text(valveX + 12, valveY + 30, "x " + s.xDampf, Font(12, true), kLow, HAlign::Left, VAlign::Top);

    // Suction line: evaporator to compressor.
    d.Polyline({{evapX + evapW, evapY + evapH / 2}, {compX, evapY + evapH / 2}, {compX, compY + compR}}, low);
    Arrow(d, compX, compY + compR + 2, 0, -1, kLow);
    LineFigures(d, s.lines[Suction], evapX + evapW + 20, evapY + evapH / 2 - 12, HAlign::Left);
    if (!s.TsLeit.empty())
        d.Text(evapX + evapW + 20, evapY + evapH / 2 + 50, "ts " + s.TsLeit, Font(12, true), kLow, HAlign::Left,
               VAlign::Top);
    if (!s.MstrLab.empty())
        d.Text(compX - compR - 12, compY, s.MstrLab + " kg/s", Font(12), kBlack, HAlign::Right, VAlign::Middle);

    // Hot-gas bypass: discharge line to the evaporator inlet.
    if (p.HGBypass == 1) {
        const Pen bypass{kHigh, 2, DashStyle::Dash};
        d.Polyline({{compX, condY + condH + 60}, {290, condY + condH + 60}, {290, evapY + evapH / 2}}, bypass);
        d.Text(300, condY + condH + 56, c[Cap::HotGasBypass], Font(12, true), kHigh, HAlign::Left, VAlign::Bottom);
        LineFigures(d, s.lines[HotGasBypass], 300, condY + condH + 96, HAlign::Left);
    }

    // Economizer: a plate heat exchanger in the liquid line, its vapour to
    // the compressor's intermediate port.
    if (p.EcoFlag == 1) {
        const double ex = 560, ey = 300;
        d.Rect(ex, ey, 70, 90, frame, kBody);
        d.Line(ex, ey, ex + 70, ey + 90, {kLine, 1});
        d.Text(ex + 35, ey - 6, c[Cap::Economizer], Font(12, true), kBlack, HAlign::Centre, VAlign::Bottom);
        d.Polyline({{recX + recW / 2, valveY - 40}, {ex, valveY - 40}}, {kHigh, 2, DashStyle::Dash});
        d.Polyline({{ex + 70, ey + 30}, {compX - compR, compY}}, {kLow, 2, DashStyle::Dash});
        if (!s.ECOWTPN.empty()) d.Text(ex + 35, ey + 100, s.ECOWTPN + " kW", Font(11), kBlack, HAlign::Centre, VAlign::Top);
        if (!s.pIntermediate.empty())
            d.Text(ex + 35, ey + 116, s.pIntermediate + " bar / " + s.tIntermediate, Font(11), kBlack, HAlign::Centre,
                   VAlign::Top);
        LineFigures(d, s.lines[EconomizerSuction], ex + 80, ey + 10, HAlign::Left);
        LineFigures(d, s.lines[EconomizerLiquid], ex - 10, valveY - 60, HAlign::Right);
    }

    // Figures of merit along the bottom edge.
    std::string merit;
    auto add = [&merit](const std::string& label, const std::string& value) {
        if (value.empty()) return;
        if (!merit.empty()) merit += "     ";
        merit += label + " " + value;
    };
    add("EER", s.LeistZ);
    add("COP", s.COP_Heiz);
    add(c[Cap::ReferenceCheck] + " COP", s.RefCOP);
    add(c[Cap::AnnualCost], s.BetrKo.empty() ? "" : s.BetrKo + " " + ws.settings.Waehrung);
    add("CO2", s.CO2consum.empty() ? "" : s.CO2consum + " t");
    d.Text(20, kSchemeHeight - 12, merit, Font(12, true), kBlack, HAlign::Left, VAlign::Bottom);
    d.Text(kSchemeWidth - 20, 24, p.KaelteM, Font(20, true), kLow, HAlign::Right, VAlign::Baseline);
    return d;
}

}  // namespace kv
