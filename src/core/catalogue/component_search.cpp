#include "catalogue/component_search.h"

#include <algorithm>
#include <cmath>

#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "catalogue/selection.h"
#include "catalogue/selection_table.h"
#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

bool OperatingPointForSearch(Workspace& ws, DataScreen& screen) {
    if (ws.project.CalcState == 1 && ws.cycle.pEvap > 0) return true;
    if (!StartCalculation(ws, screen)) return false;
    SchemeScreen scheme;
    OpenSchemeScreen(ws, scheme);
    return CalculateCycle(ws, scheme, FirstCalculation);
}

std::vector<CompressorCandidate> SearchCompressors(const Workspace& ws, double qMin, double qMax, int principle) {
    std::vector<CompressorCandidate> rows;
    const std::vector<CompressorSeries> listed = CompressorList(ws, ws.project.KaelteM);
    for (const InstalledCatalogue& cat : ReadCatalogueList(ws)) {
        if (CatalogueKind(ws, cat.base) != Compressors) continue;
        const std::string file = RecordFileName(cat.base);
        const bool named = std::any_of(listed.begin(), listed.end(),
                                       [&](const CompressorSeries& s) { return UpperAscii(s.file) == UpperAscii(file); });
        for (const CatalogueSeries& s : CatalogueSeriesForGroup(ws, cat.base, 550)) {
            if (named && std::none_of(listed.begin(), listed.end(), [&](const CompressorSeries& l) {
                    return UpperAscii(l.file) == UpperAscii(file) && OldPositionToNew(l.oldPosition) == s.position;
                }))
                continue;
            for (const SeriesArticle& a : ReadSeriesArticles(ws, cat.base, s.position)) {
                CompressorCandidate c;
                c.principle = static_cast<int>(a.article.Number(field::UnitCode));
                if (principle != 0 && c.principle != 0 && c.principle != principle) continue;
                c.sweptVolume = a.article.Number(field::Size);
                c.capacity = CompressorCapacity(ws, c.sweptVolume);
                if (c.capacity < qMin || (qMax > 0 && c.capacity > qMax)) continue;
                c.base = cat.base;
                c.title = cat.title;
                c.series = s.name;
                c.record = a.record;
                c.type = a.article.Field(field::Type);
                c.orderNumber = a.article.Field(field::OrderNumber);
                c.power = a.article.Number(field::Rated2);
                c.cop = c.power > 0 ? Cut(c.capacity / c.power, 2) : 0.0;
                rows.push_back(std::move(c));
            }
        }
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const CompressorCandidate& a, const CompressorCandidate& b) { return a.capacity < b.capacity; });
    return rows;
}

double CompressorSearchResult(const std::vector<CompressorCandidate>& rows, int chosen) {
    if (chosen < 0 || chosen >= static_cast<int>(rows.size())) return -1;
    return rows[static_cast<std::size_t>(chosen)].sweptVolume;
}

std::vector<HeatExchangerCandidate> SearchHeatExchangers(const Workspace& ws, int groupCode, double duty) {
    std::vector<HeatExchangerCandidate> rows;
    if (groupCode != 600 && groupCode != 650) return rows;
    EnsureMatchcode(ws);
    const PlantDuty plant = DutyOf(ws);
    const char letter = plant.brine ? 'C' : 'I';
    for (const SeriesEntry& s : LookupSeries(ws, groupCode, letter)) {
        for (const SeriesArticle& a : ReadSeriesArticles(ws, s.base, s.position)) {
            HeatExchangerCandidate c;
            c.capacity = HeatExchangerCapacity(plant, groupCode, a.article);
            if (BandOf(c.capacity, duty, true) == CapacityBand::Other) continue;
            c.base = s.base;
            c.title = s.title;
            c.series = s.series;
            c.record = a.record;
            c.type = a.article.Field(field::Type);
            c.orderNumber = a.article.Field(field::OrderNumber);
            c.volume = a.article.Number(field::Size);
            c.energyClass = EnergyClass(groupCode, a.article);
            rows.push_back(std::move(c));
        }
    }
    std::stable_sort(rows.begin(), rows.end(), [](const HeatExchangerCandidate& a, const HeatExchangerCandidate& b) {
        return a.capacity < b.capacity;
    });
    return rows;
}

bool WriteChosenHeatExchanger(const Workspace& ws, int groupCode, const HeatExchangerCandidate& c) {
    RecordWriter w;
    w.Item(c.type).Item(RecordFileName(c.base)).Item(c.record).Item(NumberText(Cut(c.capacity, 2)))
        .Item(NumberText(c.volume)).Item(c.energyClass).EndLine();
    w.Item(std::to_string(groupCode)).Item(c.orderNumber).Item(c.title).Item(c.series).Item("").Item("").EndLine();
    for (int line = 2; line < 6; ++line) {
        for (int i = 0; i < 6; ++i) w.Item("");
        w.EndLine();
    }
    return WriteFileAtomic(ResolveName(ws, "hx_prj1.dat"), w.Text());
}

std::string ChosenHeatExchanger(const Workspace& ws) {
    RecordReader in = OpenIn(ws, "hx_prj1.dat");
    std::string type;
    in.Read(type);
    return std::string(Trim(type));
}

std::string ChosenHeatExchanger(const Workspace& ws, int groupCode) {
    RecordReader in = OpenIn(ws, "hx_prj1.dat");
    std::string type, cls, group, skip;
    in.Read(type);
    for (int i = 0; i < 4; ++i) in.Read(skip);
    in.Read(cls);
    in.Read(group);
    if (Trim(type).empty() || static_cast<int>(ToNumber(Trim(group))) != groupCode) return {};
    return std::string(Trim(type)) + (Trim(cls).empty() ? "" : "  (" + std::string(Trim(cls)) + ")");
}

}  // namespace kv
