#include "lines/pipe_series.h"

#include "cycle/cycle_state.h"
#include "cycle/scheme_screen.h"
#include "lines/pipe_table.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace {

struct SeriesEntry {
    const char* file;
    std::string text;
};

std::vector<SeriesEntry> Entries(const Captions& c) {
    return {{pipefile::CopperMetric, c[Cap::PipeWord] + " SI"},
            {pipefile::CopperInch, c[Cap::PipeWord] + " INCH"},
            {pipefile::Steel, c[Cap::PipeSteel]},
            {pipefile::K65, c[Cap::PipeK65]}};
}

// The plant's pressure, bar gauge, on the side of a line: injection and
// suction on the low side, the economizer suction at the intermediate level,
// the rest on the high side.
double SidePressureGauge(const CycleState& c, int section) {
    constexpr double kAtmosphere = 1.013;  // bar
    switch (section) {
        case Injection:
        case Suction: return c.pEvap - kAtmosphere;
        case EconomizerSuction: return c.pIntermediate - kAtmosphere;
        default: return c.pCond - kAtmosphere;
    }
}

}  // namespace

std::vector<std::string> PipeSeriesList(const Workspace& ws) {
    std::vector<std::string> list;
    for (const SeriesEntry& e : Entries(ws.captions)) list.push_back(e.text);
    const std::string own = PipeSeriesText(ws, ws.project.RohrDatei);
    if (!own.empty() && own == std::string(Trim(ws.project.RohrDatei))) list.push_back(own);
    return list;
}

std::string PipeSeriesText(const Workspace& ws, const std::string& file) {
    const std::string name(Trim(file));
    for (const SeriesEntry& e : Entries(ws.captions))
        if (EqualsNoCase(name, e.file)) return e.text;
    return name;
}

std::string PipeSeriesFile(const Workspace& ws, const std::string& text) {
    for (const SeriesEntry& e : Entries(ws.captions))
        if (text == e.text) return e.file;
    // The project's own series, shown under its file name.
    if (!Trim(text).empty() && EqualsNoCase(std::string(Trim(text)), std::string(Trim(ws.project.RohrDatei))))
        return std::string(Trim(text));
    return {};
}

bool PipeTableUsable(Workspace& ws) {
    if (ws.pipes.PipeRowCount > 0 && ws.pipes.Di(1) > 0) return true;
    const std::string name(Trim(ws.project.RohrDatei));
    ws.ui.Message(ws.Title(),
                  ws.captions.Message(61) + " " + ws.captions[Cap::PipeTable] + (name.empty() ? "" : " " + name),
                  MessageIcon::Error);
    return false;
}

std::vector<int> LinesBelowPressure(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    std::vector<int> below;
    for (int section = Injection; section <= EconomizerSuction; ++section) {
        const int row = c.lineRow[static_cast<std::size_t>(section)];
        if (!ws.pipes.HasRow(row)) continue;
        const double permitted = ws.pipes.PipePzul[static_cast<std::size_t>(row)];
        const double pressure = SidePressureGauge(c, section);
        // A size without a rating (0) is not judged.
        if (permitted > 0 && permitted < pressure) below.push_back(section);
    }
    return below;
}

std::vector<int> MarkPipePressure(Workspace& ws, bool tell) {
    const CycleState& c = ws.cycle;
    const std::vector<int> below = LinesBelowPressure(ws);
    if (tell)
        for (int section : below) {
            const int row = c.lineRow[static_cast<std::size_t>(section)];
            ws.ui.Message(ws.Title(),
                          ws.captions[static_cast<Cap>(static_cast<int>(Cap::LineInjection) + section - 1)] + ": " + ws.pipes.Name(row) + ws.lineEnd + "p zul " +
                              CutText(ws.pipes.PipePzul[static_cast<std::size_t>(row)], 1) + " bar g < " +
                              ws.captions[Cap::Pressure] + " " + CutText(SidePressureGauge(c, section), 1) +
                              " bar g",
                          MessageIcon::Error);
        }
    return below;
}

}  // namespace kv
