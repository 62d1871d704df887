#include "lines/line_data.h"

#include <algorithm>
#include <vector>

#include "lines/zeta.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/settings.h"
#include "shell/workspace.h"

namespace kv {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

double Value(const std::string& text) { return ToNumber(std::string_view(text)).value; }

}  // namespace

LineData ReadLineData(const Workspace& ws) { return ReadLineData(ws, ReadAuxiliaryValues(ws)); }

LineData ReadLineData(const Workspace& ws, const std::vector<std::string>& aux) {
    LineData d;
    const Project& p = ws.project;
    for (int line = 1; line <= kLineSectionCount; ++line) {
        LineRun& r = d.run[At(line)];
        r.length = Value(p.Geometr.Cell(line, GeoLength));
        r.zeta = Value(p.Geometr.Cell(line, GeoZetaSum));
        if (line == Suction || line == Discharge || line == Liquid) r.height = Value(p.Geometr.Cell(line, GeoHeight));
    }
    auto auxValue = [&](std::size_t line, double& target) {
        if (line - 1 < aux.size() && !Trim(aux[line - 1]).empty()) target = Value(aux[line - 1]);
    };
    LineLimits& l = d.limits;
    auxValue(5, l.maxDtLiquid);
    auxValue(6, l.maxDtDischarge);
    auxValue(7, l.maxDtInjection);
    auxValue(8, l.wSuction);
    auxValue(9, l.wDischarge);
    auxValue(10, l.wLiquid);
    auxValue(11, l.wCondensate);
    l.maxDtSuction = Value(p.MaxDtSuction);
    l.partLoadPercent = p.PartLoadPercent;
    const double tube = Zeta(ws)[kZetaTube];
    d.loss.tubeZeta = tube == 0 ? 0.6 : tube;
    d.loss.lossMode = p.LossMode;
    d.loss.lossPercent = Value(p.LossPercent);
    d.injectionBranches = std::max(p.ParallelInjection, 1);
    d.bypassKind = p.BypassKind;
    d.condenserQuality = p.FlashText;
    d.floodedCondenser = p.FloodedCondenser == 1;
    return d;
}

SizingRules MakeSizingRules(const Workspace& ws) {
    SizingRules rules;
    rules.pipes = &ws.pipes;
    const LineData d = ReadLineData(ws);
    rules.loss = d.loss;
    rules.diametersFixed = ws.cycle.diametersFixed;
    rules.storedRow = ws.cycle.lineRow;
    return rules;
}

void StoreLineResult(CycleState& c, int section, const LineResult& r) {
    if (section < 1 || section > kLineSectionCount) return;
    const std::size_t i = At(section);
    c.lineRow[i] = r.row;
    c.lineDi[i] = r.di;
    c.lineLoss[i] = r.lossMbar;
    c.lineLossK[i] = r.lossK;
    c.lineVelocity[i] = r.velocity;
    c.lineOilCarry[i] = r.oilCarry;
}

void MarkLineLimits(CycleState& c, const LineLimits& l) {
    c.lineLossRed.fill(false);
    c.lineVelocityRed.fill(false);
    c.lineOilRed.fill(false);
    c.lineLossRed[At(Suction)] = c.lineLossK[At(Suction)] > l.maxDtSuction;
    c.lineLossRed[At(Discharge)] = c.lineLossK[At(Discharge)] > l.maxDtDischarge;
    c.lineLossRed[At(Liquid)] = c.lineLossK[At(Liquid)] > l.maxDtLiquid;
    c.lineVelocityRed[At(Suction)] = c.lineVelocity[At(Suction)] > l.wSuction;
    c.lineVelocityRed[At(Discharge)] = c.lineVelocity[At(Discharge)] > l.wDischarge;
    c.lineVelocityRed[At(Liquid)] = c.lineVelocity[At(Liquid)] > l.wLiquid;
    c.lineVelocityRed[At(Condensate)] = c.lineVelocity[At(Condensate)] > l.wCondensate;
    // The margin is shown in percent, so it is compared in percent.
    c.lineOilRed[At(Suction)] = 100.0 * c.lineOilCarry[At(Suction)] > l.partLoadPercent;
    c.lineOilRed[At(Discharge)] = 100.0 * c.lineOilCarry[At(Discharge)] > l.partLoadPercent;
}

LineSizes ReadLineSizes(const Workspace& ws) {
    LineSizes s;
    RecordReader in = OpenIn(ws, "onestDM.dat");
    for (int i = 1; i <= 5; ++i) in.Read(s.row[At(i)]);
    return s;
}

bool WriteLineSizes(const Workspace& ws, const LineSizes& s) {
    OutFile out = OpenOut(ws, "onestDM.dat");
    for (int i = 1; i <= 5; ++i) out.Write().Item(s.row[At(i)]).EndLine();
    return out.Close();
}

LineSizes CurrentLineSizes(const CycleState& c) {
    LineSizes s;
    for (int i = 1; i <= 5; ++i) s.row[At(i)] = c.lineRow[At(i)];
    return s;
}

StoredSizingQuestion MakeStoredSizingQuestion(const Workspace& ws) {
    const std::string& lang = ws.settings.Sprache;
    if (lang == "ITA") return {"Dimensione Tubi", "Dimensione Tubi : " + ws.lineEnd + "  Cambiare ?"};
    const char* joint = lang == "FRA" ? " de " : lang == "ESP" ? " del " : " ";
    StoredSizingQuestion q;
    q.title = ws.captions[Cap::DimTitleFirst] + joint + ws.captions[Cap::DimTitleSecond];
    q.text = q.title + ": " + ws.lineEnd + ws.captions[Cap::DimQuestion] + " ?";
    return q;
}

bool OfferStoredSizing(Workspace& ws) {
    const LineSizes s = ReadLineSizes(ws);
    if (!(s.row[At(Suction)] > 0 && s.row[At(Liquid)] > 0)) return ws.cycle.diametersFixed;
    for (int i = 1; i <= 5; ++i) ws.cycle.lineRow[At(i)] = s.row[At(i)];
    ws.cycle.diametersFixed = true;
    const StoredSizingQuestion q = MakeStoredSizingQuestion(ws);
    if (ws.ui.AskYesNo(q.title, q.text)) ws.cycle.diametersFixed = false;
    return ws.cycle.diametersFixed;
}

}  // namespace kv
