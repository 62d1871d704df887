#include "lines/load_split.h"

#include <cmath>

#include "lines/line_data.h"
#include "lines/line_sizing.h"
#include "lists/list_rows.h"
#include "project/field_checks.h"
#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/workspace.h"

namespace kv {

namespace {

const char* FileOf(bool discharge) { return discharge ? "SP_TempD.dat" : "SP_TempS.dat"; }

}  // namespace

void OpenLoadSplit(Workspace& ws, LoadSplitScreen& s, bool discharge) {
    s = LoadSplitScreen{};
    s.discharge = discharge;
    const ListFile f = ReadListFile(ws, FileOf(discharge), 0, 8);
    if (f.rows.size() >= 2 && f.rows.size() <= kMaxSplitBranches) {
        s.branches = static_cast<int>(f.rows.size());
        for (std::size_t i = 0; i < f.rows.size(); ++i) s.share[i] = f.rows[i][1];
    }
}

bool CalculateLoadSplit(Workspace& ws, LoadSplitScreen& s) {
    s.messages.clear();
    s.rows.clear();
    s.branches = std::clamp(s.branches, 2, kMaxSplitBranches);
    const Captions& c = ws.captions;
    double sum = 0;
    for (int i = 0; i < s.branches; ++i) {
        const std::string& text = s.share[static_cast<std::size_t>(i)];
        if (!CheckNumberField(ws, s.messages, c[Cap::Branch] + " " + std::to_string(i + 1) + ", " + c[Cap::Share], text,
                              NumberRange{0.1, 100, true}) ||
            Trim(text).empty()) {
            if (Trim(text).empty()) s.messages.push_back(c[Cap::Branch] + " " + std::to_string(i + 1) + ", " + c[Cap::Share]);
            continue;
        }
        sum += ToNumber(Trim(text));
    }
    if (s.messages.empty() && std::fabs(sum - 100) > 0.5)
        s.messages.push_back(c[Cap::Share] + ": " + NumberText(Cut(sum, 1)) + " % / 100 %");
    if (!s.messages.empty()) return false;

    const CycleState& k = ws.cycle;
    const LineData data = ReadLineData(ws);
    SizingRules rules = MakeSizingRules(ws);
    rules.diametersFixed = false;  // each branch is sized for its own flow
    const int section = s.discharge ? Discharge : Suction;
    const LineRun& run = data.run[static_cast<std::size_t>(section)];
    const double duty = s.discharge ? (k.Qh > 0 ? k.Qh : k.Q0 + k.pShaft) : k.Q0;
    for (int i = 0; i < s.branches; ++i) {
        SplitBranch b;
        b.branch = i + 1;
        b.share = ToNumber(Trim(s.share[static_cast<std::size_t>(i)]));
        b.capacity = Cut(duty * b.share / 100, 2);
        b.massFlow = k.massFlow * b.share / 100;
        SingleFlow flow{b.massFlow, s.discharge ? k.rhoDischarge : (k.rhoSuction > 0 ? k.rhoSuction : k.rhoVapEvap),
                        s.discharge ? k.etaVapDischarge : k.etaVapSuction};
        const LineResult r = s.discharge
                                 ? SizeDischargeLine(rules, flow, run, data.limits.wDischarge, data.limits.maxDtDischarge,
                                                     k.dpdtEvap, k.dpdtRatio)
                                 : SizeSuctionLine(rules, flow, run, data.limits.wSuction, data.limits.maxDtSuction,
                                                   k.dpdtEvap, k.pEvap);
        if (r.sized && ws.pipes.HasRow(r.row)) b.size = ws.pipes.Name(r.row);
        b.lossMbar = std::isfinite(r.lossMbar) ? r.lossMbar : 0.0;
        b.lossK = std::isfinite(r.lossK) ? r.lossK : 0.0;
        b.velocity = std::isfinite(r.velocity) ? r.velocity : 0.0;
        b.limitMet = r.limitMet;
        s.rows.push_back(std::move(b));
    }
    return true;
}

bool SaveLoadSplit(Workspace& ws, const LoadSplitScreen& s) {
    RecordWriter w;
    for (const SplitBranch& b : s.rows)
        w.Item(std::to_string(b.branch)).Item(NumberText(b.share)).Item(NumberText(b.capacity)).Item(b.size)
            .Item(NumberText(Cut(b.massFlow, 4))).Item(NumberText(Cut(b.lossMbar, 1))).Item(NumberText(Cut(b.lossK, 2)))
            .Item(NumberText(Cut(b.velocity, 2))).EndLine();
    bool ok = WriteListText(ws, FileOf(s.discharge), w.Text());
    // The report lines of the split, in the grammar of the result sets.
    const Captions& c = ws.captions;
    RecordWriter r;
    r.Item("12" + c[Cap::LoadSplitTitle] + " - " + LineSectionCaption(ws, s.discharge ? Discharge : Suction)).EndLine();
    r.Item(c[Cap::Branch] + "&%!" + c[Cap::Share] + " [%]&%!kW&%!" + c[Cap::PipeSize] + "&%!mbar&%!m/s").EndLine();
    for (const SplitBranch& b : s.rows)
        r.Item(std::to_string(b.branch) + "&%!" + NumberText(b.share) + "&%!" + NumberText(b.capacity) + "&%!" + b.size +
               "&%!" + NumberText(Cut(b.lossMbar, 1)) + "&%!" + NumberText(Cut(b.velocity, 2)))
            .EndLine();
    ok = WriteListText(ws, "sp_print.dat", r.Text()) && ok;
    return ok;
}

}  // namespace kv
