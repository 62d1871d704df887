#include "catalogue/selection_screen.h"

#include "lists/list_generation.h"

#include <algorithm>

#include "catalogue/selection_table.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

int KindOfSlot(int slot) { return KindOfGroup(SlotCode(slot)); }

void OpenAccessorySelection(const Workspace& ws, AccessorySelectionScreen& s) {
    s = AccessorySelectionScreen{};
    EnsureMatchcode(ws);  // the lists come from the index files
    s.brine = UpperAscii(Trim(ws.project.AnlagenTyp)) == "SOLE";
    s.letter = s.brine ? 'C' : 'I';
    s.aktBTsp = ReadSeriesChoices(ws, s.brine);
    s.aktBTsp.resize(kSlotCount);
}

void ChooseKind(const Workspace& ws, AccessorySelectionScreen& s, int slot) {
    s.slot = std::clamp(slot, 1, kSlotCount);
    s.series = LookupSeries(ws, SlotCode(s.slot), s.letter);
    s.makers.clear();
    for (const SeriesEntry& e : s.series)
        if (std::find(s.makers.begin(), s.makers.end(), e.title) == s.makers.end()) s.makers.push_back(e.title);
    s.articles.clear();
    s.seriesIndex = -1;
    ChooseMaker(s, -1);
}

void ChooseMaker(AccessorySelectionScreen& s, int maker) {
    s.maker = maker >= 0 && maker < static_cast<int>(s.makers.size()) ? maker : -1;
    s.shownSeries.clear();
    for (std::size_t i = 0; i < s.series.size(); ++i)
        if (s.maker < 0 || s.series[i].title == s.makers[static_cast<std::size_t>(s.maker)])
            s.shownSeries.push_back(static_cast<int>(i));
}

void ChooseSeries(const Workspace& ws, AccessorySelectionScreen& s, int shownRow) {
    s.articles.clear();
    s.seriesIndex = -1;
    if (shownRow < 0 || shownRow >= static_cast<int>(s.shownSeries.size())) return;
    s.seriesIndex = s.shownSeries[static_cast<std::size_t>(shownRow)];
    const SeriesEntry& e = s.series[static_cast<std::size_t>(s.seriesIndex)];
    s.articles = ReadSeriesArticles(ws, e.base, e.position);
}

bool UseChosenSeries(AccessorySelectionScreen& s) {
    if (s.seriesIndex < 0 || s.seriesIndex >= static_cast<int>(s.series.size())) return false;
    const SeriesEntry& e = s.series[static_cast<std::size_t>(s.seriesIndex)];
    SeriesChoice& row = s.aktBTsp[static_cast<std::size_t>(s.slot - 1)];
    row.file = RecordFileName(e.base);
    row.position = e.position;
    if (row.caption.empty()) row.caption = e.series;
    return true;
}

void ClearPreselection(const Workspace& ws) { ClearParks(ws); }

bool AdoptMainUnit(const Workspace& ws, AccessorySelectionScreen& s, int articleRow) {
    const int kind = KindOfSlot(s.slot);
    if (!IsMainUnitKind(kind) || articleRow < 0 || articleRow >= static_cast<int>(s.articles.size()) ||
        s.seriesIndex < 0)
        return false;
    const SeriesArticle& a = s.articles[static_cast<std::size_t>(articleRow)];
    const SeriesEntry& e = s.series[static_cast<std::size_t>(s.seriesIndex)];
    ParkEntry p;
    p.row = {s.aktBTsp[static_cast<std::size_t>(s.slot - 1)].caption, a.article.Field(field::Type),
             a.article.Field(field::Description), a.article.Field(field::OrderNumber),
             a.article.Field(field::Connection), "", "", "1", a.article.Field(field::Price)};
    p.change[2] = std::to_string(kind);
    p.change[9] = RecordFileName(e.base);
    p.change[10] = std::to_string(a.record);
    p.change[18] = std::to_string(e.position);
    return PutParkEntry(ws, kMainUnitPark, ParkPosition(kind), p);
}

bool LeaveAccessorySelection(const Workspace& ws, const AccessorySelectionScreen& s) {
    return WriteSeriesChoices(ws, s.brine, s.aktBTsp);
}

bool StartListGeneration(Workspace& ws, AccessorySelectionScreen& s) {
    LeaveAccessorySelection(ws, s);
    const ListGeneration g = GenerateLists(ws);
    const Captions& c = ws.captions;
    s.message = g.ok ? c[Cap::MenuPartsList] + ": " + std::to_string(g.fittingRows + g.accessoryRows) + ", " +
                           c[Cap::MenuUnitsList] + ": " + std::to_string(g.unitRows)
                     : g.message;
    return g.ok;
}

}  // namespace kv
