#include "lists/calc_lists.h"

#include <cmath>

#include "lines/insulation.h"
#include "lists/list_rows.h"
#include "project/field_checks.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/workspace.h"

namespace kv {

namespace {

// Cold lines carry insulation: injection, suction and economizer suction by
// the evaporating temperature; the liquid line with the fourth thickness.
std::string InsulationOf(int section, const InsulationThicknesses& t, double t0C) {
    switch (section) {
    case Injection: case Suction: case EconomizerSuction: return SuctionInsulation(t, t0C);
    case Liquid: return t.line[4];
    default: return std::string();
    }
}

void WriteHeader(RecordWriter& w, const Workspace& ws) {
    for (const std::string& item : ListHeader(ws)) w.Item(item);
    w.EndLine();
}

// A tee or reducer row of Flansh.DAT: line, designation, line size, outer
// diameter, second diameter, quantity, an empty seventh item.
void FittingRow(RecordWriter& w, const std::string& line, const std::string& designation, const std::string& size,
                double d1, double d2, int count) {
    w.Item(line).Item(designation).Item(size).Item(NumberText(d1)).Item(NumberText(d2)).Item(std::to_string(count))
        .Item("").EndLine();
}

std::string SizeWord(double d) { return NumberText(d); }

const CalculatedLine* Find(const std::vector<CalculatedLine>& lines, int section) {
    for (const CalculatedLine& l : lines)
        if (l.section == section) return &l;
    return nullptr;
}

// The label pattern of the result sets: eight blanks, word, unit, value.
std::string Label(const std::string& word, const char* unit, const std::string& value) {
    return "        " + word + " /[" + unit + "] : §$&" + value;
}

}  // namespace

int BendsOfRun(double length) {
    if (!(length > 0) || !std::isfinite(length)) return 0;
    return 2 + WholeNumber(length / 3);
}

std::vector<CalculatedLine> CalculatedLines(Workspace& ws) {
    std::vector<CalculatedLine> lines;
    const InsulationThicknesses ins = LoadInsulation(ws);
    const double t0C = ws.project.TverK > 0 ? ws.project.TverK - 273.15 : ToNumber(ws.project.Tver);
    for (int s = 1; s <= kLineSectionCount; ++s) {
        const auto i = static_cast<std::size_t>(s);
        const int row = ws.cycle.lineRow[i];
        const double length = ToNumber(ws.project.Geometr.Cell(s, GeoLength));
        if (row <= 0 || !ws.pipes.HasRow(row) || !(length > 0) || !std::isfinite(length)) continue;
        CalculatedLine l;
        l.section = s;
        l.caption = LineSectionCaption(ws, s);
        l.size = ws.pipes.Name(row);
        l.outer = ws.pipes.Da(row);
        l.length = length;
        l.lossMbar = ws.cycle.lineLoss[i];
        l.lossK = ws.cycle.lineLossK[i];
        l.velocity = ws.cycle.lineVelocity[i];
        l.insulation = InsulationOf(s, ins, t0C);
        lines.push_back(std::move(l));
    }
    return lines;
}

bool WriteCalculationLists(Workspace& ws, bool appendFittings) {
    const std::vector<CalculatedLine> lines = CalculatedLines(ws);
    const Captions& c = ws.captions;
    bool ok = true;

    // The pipe runs: one row per line, then the bends of each run.
    {
        RecordWriter w;
        WriteHeader(w, ws);
        for (const CalculatedLine& l : lines)
            w.Item(l.caption).Item(NumberText(Cut(l.length, 2))).Item(l.size).Item(l.insulation)
                .Item(std::to_string(WholeNumber(l.length / 3))).EndLine();
        for (const CalculatedLine& l : lines)
            w.Item(c[Cap::Bend] + " " + l.caption).Item(std::to_string(BendsOfRun(l.length)))
                .Item("90° " + l.size).Item("").Item("").EndLine();
        ok = WriteListText(ws, lists::kPipes, w.Text()) && ok;
    }

    // Tees where a line branches off, reducers where the loop changes size.
    if (appendFittings) {
        RecordWriter w;
        if (FileLength(ws, lists::kFittings) == 0) WriteHeader(w, ws);
        const std::string tee = c[Cap::Tee], reducer = c[Cap::Reducer];
        const int evaporators = std::max(1, WholeNumber(ws.project.ArmaturZahl[9][1]));
        auto teeOn = [&](int section, int count) {
            if (const CalculatedLine* l = Find(lines, section); l && count > 0)
                FittingRow(w, l->caption, tee + " " + SizeWord(l->outer), l->size, l->outer, 0, count);
        };
        auto reducerBetween = [&](int from, int to) {
            const CalculatedLine* a = Find(lines, from);
            const CalculatedLine* b = Find(lines, to);
            if (!a || !b || a->outer == b->outer || !(a->outer > 0) || !(b->outer > 0)) return;
            FittingRow(w, b->caption, reducer + " " + SizeWord(a->outer) + "-" + SizeWord(b->outer), b->size,
                       a->outer, b->outer, 1);
        };
        // Several evaporators: the injection line and the suction line are
        // split and joined by tees.
        teeOn(Injection, evaporators - 1);
        teeOn(Suction, evaporators - 1);
        // A hot-gas bypass leaves the discharge line and enters the
        // injection line; the economizer's liquid branch leaves the liquid line.
        if (Find(lines, HotGasBypass)) {
            teeOn(Discharge, 1);
            teeOn(Injection, 1);
        }
        if (Find(lines, EconomizerLiquid)) teeOn(Liquid, 1);
        reducerBetween(Condensate, Liquid);
        reducerBetween(Liquid, Injection);
        if (!w.Text().empty()) ok = WriteListText(ws, lists::kFittings, w.Text(), true) && ok;
    }

    // The pipe lines as a result set.
    {
        RecordWriter w;
        WriteHeader(w, ws);
        const std::string separator = std::string(155, '-');
        for (const CalculatedLine& l : lines) {
            w.Item(separator).EndLine();
            w.Item("&$$" + l.caption).EndLine();
            w.Item(Label(c[Cap::PipeSize], "mm", l.size)).EndLine();
            w.Item(Label(c[Cap::Length], "m", NumberText(Cut(l.length, 2)))).EndLine();
            w.Item(Label(c[Cap::PressureDrop], "mbar", NumberText(Cut(l.lossMbar, 1)))).EndLine();
            w.Item(Label(c[Cap::PressureDrop], "K", NumberText(Cut(l.lossK, 2)))).EndLine();
            w.Item(Label(c[Cap::Velocity], "m/s", NumberText(Cut(l.velocity, 2)))).EndLine();
            if (!l.insulation.empty()) w.Item(Label(c[Cap::InsulationThickness], "mm", l.insulation)).EndLine();
        }
        ok = WriteListText(ws, lists::kLineResults, w.Text()) && ok;
    }

    // The line sizes: five main lines, a spare item, the three further
    // lines, the lengths of the five main lines, the line count, the pipe
    // value and the line count again; then per section its figures.
    {
        RecordWriter w;
        std::array<const CalculatedLine*, 9> by{};
        for (const CalculatedLine& l : lines) by[static_cast<std::size_t>(l.section)] = &l;
        auto size = [&](int s) { return by[static_cast<std::size_t>(s)] ? by[static_cast<std::size_t>(s)]->size : std::string(); };
        for (int s = 1; s <= 5; ++s) w.Item(size(s));
        w.Item("");
        for (int s = 6; s <= 8; ++s) w.Item(size(s));
        for (int s = 1; s <= 5; ++s)
            w.Item(by[static_cast<std::size_t>(s)] ? NumberText(by[static_cast<std::size_t>(s)]->length) : std::string("0"));
        w.Item(std::to_string(lines.size()));
        w.Item(std::to_string(ws.project.ParalLeit)).Item(std::to_string(lines.size())).EndLine();
        for (int s = 1; s <= 8; ++s) {
            const CalculatedLine* l = by[static_cast<std::size_t>(s)];
            w.Item(size(s)).Item(l ? NumberText(Cut(l->length, 2)) : "0").Item(l ? NumberText(Cut(l->lossK, 2)) : "0")
                .Item(l ? NumberText(Cut(l->velocity, 2)) : "0").EndLine();
        }
        ok = WriteListText(ws, lists::kLineSizes, w.Text()) && ok;
    }
    return ok;
}

LineSizeFile ReadLineSizeFile(const Workspace& ws) {
    LineSizeFile f;
    RecordReader in = OpenIn(ws, lists::kLineSizes);
    for (int s = 1; s <= 5; ++s) in.Read(f.size[static_cast<std::size_t>(s)]);
    in.Skip(1);
    for (int s = 6; s <= 8; ++s) in.Read(f.size[static_cast<std::size_t>(s)]);
    in.Skip(5);
    in.Skip(1);
    in.Read(f.pipeValue);
    in.Read(f.lineCount);
    for (int s = 1; s <= 8; ++s) {
        const auto i = static_cast<std::size_t>(s);
        std::string size;
        if (!in.Read(size)) break;
        if (f.size[i].empty()) f.size[i] = size;
        in.Read(f.length[i]);
        in.Read(f.lossK[i]);
        in.Read(f.velocity[i]);
    }
    return f;
}

}  // namespace kv
