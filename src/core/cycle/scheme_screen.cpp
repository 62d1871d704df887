#include "cycle/scheme_screen.h"

#include <algorithm>

#include "cycle/kernel.h"
#include "lines/line_data.h"
#include "lines/line_sizing.h"
#include "lines/pipe_series.h"
#include "lines/pipe_table.h"
#include "documents/report_layout.h"
#include "lists/calc_lists.h"
#include "project/project.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {
// A completed calculation leaves its pipe and fitting lists and the line
// sizes for the parts list and the scheme.
bool CalculateAndList(Workspace& ws, SchemeScreen& s, int mode, bool appendFittings) {
    const bool ok = CalculateCycle(ws, s, mode);
    if (ok && ws.project.CalcState == 1) {
        WriteCalculationLists(ws, appendFittings);
        WriteHeatExchangerSheet(ws);
    }
    return ok;
}
}  // namespace
namespace {

double Num(const std::string& text) { return ToNumber(std::string_view(text)).value; }

std::string Psi(double pBar) { return "(" + CutText(pBar * 14.504, 1) + "psi a)"; }

// The limit message: message 54, a line break, "tmin = " or "tmax = ", the
// limit, a blank, the unit and " !".
void LimitMessage(Workspace& ws, const char* which, double limit) {
    ws.ui.Message(ws.Title(),
                  ws.captions.Message(54) + ws.lineEnd + which + NumberText(limit) + " " +
                      ws.captions[Cap::UnitDegreeC] + " !",
                  MessageIcon::Error);
}

void OrderMessage(Workspace& ws) { ws.ui.Message(ws.Title(), ws.captions.Message(55), MessageIcon::Error); }


}  // namespace

void OpenSchemeScreen(Workspace& ws, SchemeScreen& s) {
    Project& p = ws.project;
    s.guard = true;
    NormalizeRefrigerantName(p);
    s.KaelteMBox = p.KaelteM;
    s.t0 = p.Tver;
    s.Tc = p.tko;
    s.Qh = !Trim(p.Leistung).empty() ? p.Leistung : p.HeizL;
    s.Hubconstant = Num(p.KompHub) > 0 && Trim(p.Leistung).empty();
    s.savedKompHub = s.Hubconstant ? Num(p.KompHub) : 0.0;
    s.EcoCheck = p.EcoFlag == 1;
    s.sizingOffered = false;
    s.RLcombo = PipeSeriesText(ws, p.RohrDatei);
    LoadPipeTable(ws, p.RohrDatei);
    const LineData lines = ReadLineData(ws);
    for (int i = 1; i <= 8; ++i) {
        LineGroup& g = s.lines[static_cast<std::size_t>(i)];
        g.maxRow = ws.pipes.PipeRowCount;
        g.length = NumberText(lines.run[static_cast<std::size_t>(i)].length);
    }
    s.guard = false;
}

bool EnterEvaporatingTemperature(Workspace& ws, SchemeScreen& s) {
    Project& p = ws.project;
    NormalizeRefrigerantName(p);
    const double t0 = Num(s.t0);
    if (t0 < p.tmin) {
        LimitMessage(ws, "tmin = ", p.tmin);
        return false;
    }
    if (!(Num(s.Tc) > t0)) {
        OrderMessage(ws);
        return false;
    }
    p.Tver = s.t0;
    return CalculateAndList(ws, s, Recalculate, false);
}

bool EnterCondensingTemperature(Workspace& ws, SchemeScreen& s) {
    Project& p = ws.project;
    NormalizeRefrigerantName(p);
    const double tc = Num(s.Tc);
    if (!(tc > Num(s.t0))) {
        OrderMessage(ws);
        return false;
    }
    if (tc > p.tmax) {
        LimitMessage(ws, "tmax = ", p.tmax);
        return false;
    }
    p.tko = s.Tc;
    return CalculateAndList(ws, s, Recalculate, false);
}

bool CalculateButton(Workspace& ws, SchemeScreen& s) {
    Project& p = ws.project;
    NormalizeRefrigerantName(p);
    const double t0 = Num(s.t0), tc = Num(s.Tc);
    // Equal temperatures pass: the button tests Tc >= t0.
    if (tc < t0) {
        OrderMessage(ws);
        return false;
    }
    if (t0 < p.tmin) {
        LimitMessage(ws, "tmin = ", p.tmin);
        return false;
    }
    if (tc > p.tmax) {
        LimitMessage(ws, "tmax = ", p.tmax);
        return false;
    }
    p.Tver = s.t0;
    p.tko = s.Tc;
    return CalculateAndList(ws, s, FirstCalculation, true);
}

double TemperatureOfPressure(Workspace& ws, double pBar) {
    CycleState& c = ws.cycle;
    const SaturationTable* table = ProjectSaturationTable(ws);
    if (!table || table->rows.empty()) return 0.0;
    const SatRow& first = table->rows.front();
    const SatRow& last = table->rows.back();
    // The saturation temperature of a pressure in one pressure column. A
    // pressure beyond the table's last row has no row pair above it: it reads
    // as the last row's temperature (and below the first row as the first
    // row's), never as a pair left over from an earlier look-up.
    auto temperatureIn = [&](int mode, double first_p, double last_p) {
        if (pBar >= last_p) return last.t - 273.15;
        if (pBar <= first_p) return first.t - 273.15;
        c.highFound = false;
        ScanSaturationRows(*table, pBar, mode, c);
        // The table steps by 5 K: the row fraction times 5 is the way from
        // the lower row's temperature, which the swapped column holds.
        const double lowT = mode == ByDewPressure ? c.lowRow.pDew : c.lowRow.pBubble;
        return (lowT - 273.15) + RowFraction(c, pBar) * 5;
    };
    double t = temperatureIn(ByDewPressure, first.pDew, last.pDew);
    if (first.pDew != first.pBubble) t = (t + temperatureIn(ByBubblePressure, first.pBubble, last.pBubble)) / 2;
    return t;
}

void EnterEvaporatingPressure(Workspace& ws, SchemeScreen& s) {
    if (s.guard) return;
    const double p = Num(s.po);
    s.p0psi = Psi(p);
    s.t0 = CutText(TemperatureOfPressure(ws, p), 2);
}

void EnterCondensingPressure(Workspace& ws, SchemeScreen& s) {
    if (s.guard) return;
    const double p = Num(s.pc);
    s.pcpsi = Psi(p);
    s.Tc = CutText(TemperatureOfPressure(ws, p), 2);
}

bool ChangeRefrigerant(Workspace& ws, SchemeScreen& s) {
    if (CheckRefrigerantAvailable(ws, NormalizeName(s.KaelteMBox).name) != 0) {
        s.KaelteMBox = ws.project.KaelteM;  // the box shows the project's fluid again
        return false;
    }
    ws.project.KaelteM = s.KaelteMBox;
    NormalizeRefrigerantName(ws.project);
    s.KaelteMBox = ws.project.KaelteM;
    if (s.cConstant && ws.ui.AskYesNo(ws.Title(), ws.captions.Message(11))) {
        for (auto& g : s.lines) g.row = 0;
        ws.cycle.lineRow.fill(0);
    }
    return true;
}

void ChangePipeStandard(Workspace& ws, SchemeScreen& s, const std::string& text) {
    Project& p = ws.project;
    NormalizeRefrigerantName(p);
    const double tc = Num(s.Tc);
    if (!(tc > Num(s.t0))) OrderMessage(ws);
    else if (tc > p.tmax) LimitMessage(ws, "tmax = ", p.tmax);
    const std::string file = PipeSeriesFile(ws, text);
    if (file.empty()) return;
    s.RLcombo = text;
    p.RohrDatei = file;
    LoadPipeTable(ws, file);
    for (auto& g : s.lines) {
        g.maxRow = ws.pipes.PipeRowCount;
        g.row = std::min(g.row, g.maxRow);
    }
}

void SetHubconstant(Workspace& ws, SchemeScreen& s, bool on) {
    s.Hubconstant = on;
    if (on) {
        s.savedKompHub = ws.cycle.requiredSweptVolume;
        ws.project.KompHub = CutText(s.savedKompHub, 2);
        s.Q0 = CutText(ws.cycle.Q0, 2);
    } else {
        s.savedKompHub = 0.0;
        ws.project.KompHub = "0";
    }
}

void SetEcoCheck(Workspace& ws, SchemeScreen& s, bool on) {
    s.EcoCheck = on;
    ws.project.EcoFlag = on ? 1 : 0;
    // The main lines go back to their calculated sizes.
    for (int i = Injection; i <= Liquid; ++i)
        s.lines[static_cast<std::size_t>(i)].row = ws.cycle.lineRow[static_cast<std::size_t>(i)];
}

bool MoveLineScrollbar(Workspace& ws, SchemeScreen& s, int section, int row) {
    if (ws.project.CalcState != 1 || section < 1 || section > 8) return false;
    CycleState& c = ws.cycle;
    const int last = ws.pipes.PipeRowCount;
    if (last == 0) return false;
    row = std::clamp(row, 1, last);
    // With the swept volume kept, the suction line must not lose more than
    // the evaporating pressure: its size walks up until it does not.
    if (section == Suction && s.Hubconstant) {
        const LineData lines = ReadLineData(ws);
        const SizingRules rules = MakeSizingRules(ws);
        const SingleFlow flow{c.massFlow, c.rhoSuction, c.etaVapSuction > 1e-3 ? c.etaVapSuction * 1e-3 : c.etaVapSuction};
        while (row < last) {
            const LineResult r = LineAtRow(rules, row, flow, lines.run[Suction], MbarPerKelvinLow(c.dpdtEvap));
            if (!(r.lossMbar / 1000 > c.pEvap)) break;
            ++row;
        }
    }
    // Every line keeps its size; the moved one takes its new size, and the
    // run recalculates what follows from it.
    for (int i = 1; i <= 8; ++i)
        if (c.lineRow[static_cast<std::size_t>(i)] == 0) c.lineRow[static_cast<std::size_t>(i)] = s.lines[static_cast<std::size_t>(i)].row;
    c.lineRow[static_cast<std::size_t>(section)] = row;
    s.lines[static_cast<std::size_t>(section)].row = row;
    s.keepSizesOnce = true;
    return CalculateAndList(ws, s, Recalculate, false);
}

}  // namespace kv
