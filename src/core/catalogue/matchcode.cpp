#include "catalogue/matchcode.h"

#include <map>

#include "catalogue/catalogue.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/separators.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr char kLetters[2] = {'I', 'C'};
constexpr int kMinSeriesName = 3;

// The progress value grows one step a file and starts again from 2 after
// 100, as the old bar did; a callback sees it as it stands.
struct Progress {
    const MatchcodeProgress& report;
    int value = 0;
    void Step() {
        value = value >= 100 ? 2 : value + 1;
        if (report) report(value);
    }
};

}  // namespace

std::string IndexFileName(int code, char letter) { return std::to_string(code) + letter + ".dat"; }

int BuildMatchcode(const Workspace& ws, const MatchcodeProgress& progress) {
    Progress bar{progress};
    std::map<std::string, RecordWriter> files;  // by index file name, all 36 written even when empty
    for (int slot = 1; slot <= kSlotCount; ++slot)
        for (char letter : kLetters) {
            files[IndexFileName(SlotCode(slot), letter)];
            bar.Step();
        }
    int rows = 0;
    for (const InstalledCatalogue& c : ReadCatalogueList(ws)) {
        const int kind = CatalogueKind(ws, c.base);
        const auto names = ReadSeriesNames(ws, c.base);
        for (int slot = 1; slot <= kSlotCount; ++slot) {
            const std::string& name = names[static_cast<std::size_t>(slot - 1)];
            if (name.empty()) continue;
            const int code = SlotCode(slot);
            RecordWriter& w = files[IndexFileName(IndexCode(kind, code), IndexLetter(kind))];
            w.Item(c.base).Item(c.title).Item(name).Item(std::to_string(SeriesPosition(code))).EndLine();
            ++rows;
        }
        bar.Step();
    }
    for (const auto& [name, writer] : files) WriteFileAtomic(ResolveName(ws, name), writer.Text());
    if (progress) progress(100);
    return rows;
}

bool MatchcodeNeeded(const Workspace& ws) {
    const std::string name = IndexFileName(300, 'I');
    if (FileLength(ws, name) == 0) return true;
    RecordReader in = OpenIn(ws, name);
    std::string first;
    return !in.Read(first) || Trim(first) == "0";
}

bool EnsureMatchcode(const Workspace& ws, const MatchcodeProgress& progress) {
    if (!MatchcodeNeeded(ws)) return false;
    BuildMatchcode(ws, progress);
    return true;
}

std::string SeriesEntry::Cell() const { return title + std::string(sep::CatalogueKey) + "  " + base; }

void SplitCell(std::string_view cell, std::string& title, std::string& base) {
    const auto at = cell.find(sep::CatalogueKey);
    title = std::string(cell.substr(0, at));
    base = at == std::string_view::npos ? std::string() : std::string(Trim(cell.substr(at + sep::CatalogueKey.size())));
}

std::vector<SeriesEntry> LookupSeries(const Workspace& ws, int code, char letter) {
    std::vector<SeriesEntry> list;
    RecordReader in = OpenIn(ws, IndexFileName(code, letter));
    const std::vector<std::string> hidden = ReadHiddenProducts(ws);
    SeriesEntry e;
    std::string position;
    while (in.Read(e.base)) {
        e.title.clear(); e.series.clear(); position.clear();
        in.Read(e.title);
        in.Read(e.series);
        in.Read(position);
        if (Trim(e.series).size() < kMinSeriesName) continue;
        if (IsHiddenIn(hidden, e.series)) continue;
        e.position = static_cast<int>(ToNumber(std::string_view(position)).value);
        list.push_back(e);
    }
    return list;
}

std::vector<CatalogueSeries> CatalogueSeriesForGroup(const Workspace& ws, std::string_view base, int code) {
    std::vector<CatalogueSeries> list;
    const int kind = CatalogueKind(ws, base);
    const auto names = ReadSeriesNames(ws, base);
    for (int slot = 1; slot <= kSlotCount; ++slot) {
        const std::string& name = names[static_cast<std::size_t>(slot - 1)];
        if (name.empty() || IndexCode(kind, SlotCode(slot)) != code) continue;
        list.push_back({slot, name, SeriesPosition(SlotCode(slot))});
    }
    return list;
}

std::vector<CompressorSeries> CompressorList(const Workspace& ws, std::string_view refrigerant) {
    const std::string name = UpperAscii(Trim(refrigerant)) + ".LST";
    std::vector<CompressorSeries> list;
    RecordReader in = OpenIn(ws, name);
    CompressorSeries row;
    std::string position;
    while (in.Read(row.file)) {
        row.series.clear(); position.clear();
        in.Read(row.series);
        in.Read(position);
        row.oldPosition = static_cast<int>(ToNumber(std::string_view(position)).value);
        if (!Trim(row.file).empty()) list.push_back(row);
    }
    if (!list.empty() || Trim(refrigerant).empty()) return list;
    for (const InstalledCatalogue& c : ReadCatalogueList(ws)) {
        if (CatalogueKind(ws, c.base) != Compressors) continue;
        for (const CatalogueSeries& s : CatalogueSeriesForGroup(ws, c.base, IndexCode(Compressors, 0)))
            list.push_back({RecordFileName(c.base), s.name, NewPositionToOld(s.position)});
        break;
    }
    OutFile out = OpenOut(ws, name);
    for (const CompressorSeries& s : list) out.Write().Item(s.file).Item(s.series).Item(s.oldPosition).EndLine();
    out.Close();
    return list;
}

}  // namespace kv
