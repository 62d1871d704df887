#include "catalogue/catalogue_editor.h"

#include <algorithm>
#include <filesystem>

#include "catalogue/record_file.h"
#include "shell/captions.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

// Grid column of fields 1 to 19; the accessory fields 20 to 39 follow in
// columns 19 to 38. Field 6 is spare and not shown.
constexpr std::array<int, 19> kColumnOfField = {1, 5, 2, 4, 3, 0, 17, 9, 10, 11, 12, 13, 14, 15, 16, 18, 6, 7, 8};

// The headings that depend on the kind and the group: columns 5, 6, 7 and
// 10 to 17.
void KindHeadings(std::vector<std::string>& h, int kind, int position) {
    auto set = [&h](int column, std::string text) { h[static_cast<std::size_t>(column - 1)] = std::move(text); };
    // The kind decides first; a general or brine catalogue goes by the group.
    enum { Capacity, Compressor, Exchanger, Receiver, Valve } form = Valve;
    if (kind == ExpansionValves) form = Capacity;
    else if (kind == Compressors) form = Compressor;
    else if (kind == Evaporators || kind == Condensers || kind == BrineCoolers) form = Exchanger;
    else if (kind == SolenoidValves) form = Valve;
    else if (position == 102 || position == 402 || position == 452) form = Capacity;
    else if (position == 552) form = Compressor;
    else if (position == 602 || position == 652) form = Exchanger;
    else if (position == 802) form = Receiver;
    if (form == Capacity) {
        set(5, "");
        set(6, "Qo R22 /[kW]");
        set(7, "Qo RXX /[kW]");
    } else if (form == Compressor) {
        set(5, "Vh /[m³/h]");
        set(6, ". /[-]");
        set(7, "Pel comp [kW]");
        set(10, " /[kg/h]");
        set(13, "V Km/[dm³]");
        set(14, "Pel fan /[kW]");
    } else if (form == Exchanger) {
        set(5, "V Km /[dm³]");
        set(6, "Qo /[kW]");
        set(7, "Pel /[kW]");
        set(10, " /[m³/h]");
        set(11, " /[m]");
        set(12, " /[mm]");
        set(13, " /[m²]");
        set(14, " /[kW]");
    } else if (form == Receiver) {
        set(5, "V km /[dm³]");
    } else {
        set(5, "kv /[m³/h]");
        set(6, "dpmax /[mbar]");
        set(7, "dpmin /[mbar]");
    }
    if (kind == Condensers) {
        set(15, "Lp-3 /[dbA]");
        set(16, "LP-S /[dBA]");
    } else if (kind == BrineCoolers) {
        set(15, "dp  /[kPa]");
        set(16, "Vh  /[kg/s]");
        set(17, "Typ");
    } else if (kind == Brine) {
        set(15, "dp /[kPa]");
        set(16, "Vh /[kg/s]");
        set(17, "Typ");
    }
}

Article* Row(CatalogueEditor& ed, int row) {
    return row >= 0 && row < static_cast<int>(ed.rows.size()) ? &ed.rows[static_cast<std::size_t>(row)] : nullptr;
}

void RememberPlace(const Workspace& ws, const CatalogueEditor& ed) {
    WriteCatalogueScreenState(ws, {ed.base, ed.title, std::to_string(ed.slot), std::to_string(ed.kind)});
}

bool Listed(const std::vector<InstalledCatalogue>& list, std::string_view base) {
    return std::any_of(list.begin(), list.end(), [&](const InstalledCatalogue& c) { return EqualsNoCase(c.base, base); });
}

bool AddToList(const Workspace& ws, std::string_view base, std::string_view title) {
    auto list = ReadCatalogueList(ws);
    if (Listed(list, base)) return false;
    list.push_back({RecordFileName(base), std::string(base), std::string(title)});
    return WriteCatalogueList(ws, list);
}

}  // namespace

Cap GroupCaption(int code) {
    static constexpr Cap kByGroup[] = {
        Cap::KindEvapPressureRegulator, Cap::KindShutOffValve, Cap::KindExpansionValve, Cap::KindFilterDrier,
        Cap::KindSightGlass, Cap::KindSolenoidValve, Cap::KindBallValve, Cap::KindCheckValve,
        Cap::KindSuctionLiquidHx, Cap::KindOilSeparator, Cap::KindHotGasBypassValve, Cap::KindCompressor,
        Cap::KindEvaporator, Cap::KindCondenser, Cap::KindSuctionFilter, Cap::KindVibrationAbsorber,
        Cap::KindReceiver, Cap::KindCondPressureRegulator};
    const int group = code / kGroupRecords;
    return code >= 0 && code % kGroupRecords == 0 && group < kSlotCount ? kByGroup[group] : Cap::TitleLine_;
}

Cap KindCaption(int kind) {
    static constexpr Cap kByKind[] = {Cap::CatKindGeneral,     Cap::CatKindExpansionValves, Cap::CatKindCompressors,
                                      Cap::CatKindEvaporators, Cap::CatKindCondensers,      Cap::CatKindBrine,
                                      Cap::CatKindBrineCoolers, Cap::CatKindSolenoidValves};
    return kind >= 0 && kind <= SolenoidValves ? kByKind[kind] : Cap::CatKindGeneral;
}

int FieldOfColumn(int column) {
    if (column >= 19 && column <= kCatalogueColumns) return column + 1;
    for (std::size_t f = 0; f < kColumnOfField.size(); ++f)
        if (kColumnOfField[f] == column) return static_cast<int>(f) + 1;
    return 0;
}

std::vector<std::string> EditorHeadings(const Workspace& ws, int kind, int position) {
    const Captions& c = ws.captions;
    std::vector<std::string> h(kCatalogueColumns);
    h[0] = c[Cap::TypeDesignation];
    h[1] = c[Cap::OrderNumber];
    h[2] = c[Cap::Description];
    h[3] = "da  /[mm]";
    h[7] = c[Cap::Price] + " /[" + ws.settings.Waehrung + "]";
    h[8] = c[Cap::Weight] + " /[kg]";
    h[17] = "p max /[bar g]";
    for (int block = 0; block < field::AccessoryBlocks; ++block) {
        const auto at = static_cast<std::size_t>(18 + 4 * block);
        h[at] = "n";
        h[at + 1] = c[Cap::OrderNumber];
        h[at + 2] = c[Cap::Accessory] + " I";
        h[at + 3] = c[Cap::Accessory] + " II";
    }
    KindHeadings(h, kind, position);
    return h;
}

void OpenCatalogueEditor(const Workspace& ws, CatalogueEditor& ed) {
    ed = CatalogueEditor{};
    ed.catalogues = ReadCatalogueList(ws);
    const auto state = ReadCatalogueScreenState(ws);
    std::string base = Listed(ed.catalogues, state[0]) ? state[0] : std::string();
    if (base.empty() && !ed.catalogues.empty()) base = ed.catalogues.front().base;
    int slot = static_cast<int>(ToNumber(std::string_view(state[2])).value);
    if (slot < 1 || slot > kSlotCount) slot = 1;
    if (!base.empty() && SelectCatalogue(ws, ed, base)) SelectGroup(ws, ed, slot);
}

bool SelectCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view base) {
    if (FileLength(ws, RecordFileName(base)) == 0) return false;
    ed.base = std::string(base);
    ed.title.clear();
    for (const InstalledCatalogue& c : ed.catalogues)
        if (EqualsNoCase(c.base, base)) ed.title = c.title;
    ed.kind = CatalogueKind(ws, base);
    ed.seriesNames = ReadSeriesNames(ws, base);
    ed.slot = 0;
    ed.rows.clear();
    ed.changed = false;
    return true;
}

void SelectGroup(const Workspace& ws, CatalogueEditor& ed, int slot) {
    ed.slot = std::clamp(slot, 1, kSlotCount);
    ed.rows.clear();
    for (SeriesArticle& row : ReadSeriesArticles(ws, ed.base, ed.Position())) ed.rows.push_back(std::move(row.article));
    ed.headings = EditorHeadings(ws, ed.kind, ed.Position());
    ed.changed = false;
    RememberPlace(ws, ed);
}

std::string EditorCell(const CatalogueEditor& ed, int row, int column) {
    if (row < 0 || row >= static_cast<int>(ed.rows.size())) return {};
    return ed.rows[static_cast<std::size_t>(row)].Field(FieldOfColumn(column));
}

void SetEditorCell(CatalogueEditor& ed, int row, int column, std::string text) {
    Article* a = Row(ed, row);
    const int f = FieldOfColumn(column);
    if (!a || f == 0) return;
    // What the record cannot hold is cut here, so that the grid shows what will be saved.
    const std::size_t length = static_cast<std::size_t>(kArticleFields[static_cast<std::size_t>(f - 1)].length);
    while (AnsiToOem(text).size() > length) {
        while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80) text.pop_back();
        if (!text.empty()) text.pop_back();
    }
    a->SetField(f, std::move(text));
    ed.changed = true;
}

void SetSeriesName(CatalogueEditor& ed, std::string name) {
    if (ed.slot < 1) return;
    ed.seriesNames[static_cast<std::size_t>(ed.slot - 1)] = std::move(name);
    ed.changed = true;
}

bool AddArticle(CatalogueEditor& ed, int row) {
    if (ed.slot < 1 || static_cast<int>(ed.rows.size()) >= kSeriesRows) return false;
    const auto at = static_cast<std::size_t>(std::clamp(row, 0, static_cast<int>(ed.rows.size())));
    ed.rows.insert(ed.rows.begin() + static_cast<std::ptrdiff_t>(at), Article{});
    ed.changed = true;
    return true;
}

void DeleteArticle(CatalogueEditor& ed, int row) {
    if (!Row(ed, row)) return;
    ed.rows.erase(ed.rows.begin() + row);
    ed.changed = true;
}

bool SaveGroup(const Workspace& ws, CatalogueEditor& ed) {
    if (ed.base.empty() || ed.slot < 1) return false;
    RecordImage records(ResolveName(ws, RecordFileName(ed.base)), kArticleLength);
    records.Extend(static_cast<long long>(kSlotCount) * kGroupRecords);
    for (int r = 0; r < kSeriesRows; ++r) {
        const bool filled = r < static_cast<int>(ed.rows.size());
        records.Put(ed.Position() + r, filled ? EncodeArticle(ed.rows[static_cast<std::size_t>(r)]) : std::string());
    }
    RecordImage series(ResolveName(ws, SeriesFileName(ed.base)), kCatalogueTextLength);
    series.Extend(kSlotCount);
    series.Put(ed.slot, AnsiToOem(ed.seriesNames[static_cast<std::size_t>(ed.slot - 1)]));
    const bool ok = records.Save() && series.Save();
    if (ok) ed.changed = false;
    return ok;
}

namespace {
bool MakeCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view newBase, std::string_view title,
                   int mode) {
    const std::string base(Trim(newBase).substr(0, 7));
    if (base.size() != 7 || FileLength(ws, RecordFileName(base)) > 0) return false;
    if (!CreateCatalogue(ws, base, mode, ed.base)) return false;
    AddToList(ws, base, title);
    ed.catalogues = ReadCatalogueList(ws);
    if (!SelectCatalogue(ws, ed, base)) return false;
    SelectGroup(ws, ed, 1);
    return true;
}
}  // namespace

bool CopyCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view newBase, std::string_view title) {
    return !ed.base.empty() && MakeCatalogue(ws, ed, newBase, title, 2);
}

bool NewCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view newBase, std::string_view title) {
    return MakeCatalogue(ws, ed, newBase, title, 1);
}

bool HideSeries(const Workspace& ws, const CatalogueEditor& ed) {
    if (ed.slot < 1) return false;
    const std::string& name = ed.seriesNames[static_cast<std::size_t>(ed.slot - 1)];
    if (Trim(name).empty()) return false;
    auto lines = ReadHiddenProducts(ws);
    if (IsHiddenIn(lines, name)) return true;
    lines.push_back(name);
    return WriteHiddenProducts(ws, lines);
}

std::vector<ManagedCatalogue> ListInstalled(const Workspace& ws) {
    std::vector<ManagedCatalogue> rows;
    for (const InstalledCatalogue& c : ReadCatalogueList(ws)) {
        const bool present = FileLength(ws, RecordFileName(c.base)) > 0;
        rows.push_back({c.base, c.title, present ? CatalogueKind(ws, c.base) : KindFromBase(c.base), present});
    }
    return rows;
}

std::vector<std::string> InstallableBases(const Workspace& ws) {
    std::vector<std::string> bases;
    const auto listed = ReadCatalogueList(ws);
    std::error_code ec;
    for (std::filesystem::directory_iterator it(ws.DataDir(), ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() != 12 || !EqualsNoCase(name.substr(7), "N.rdm")) continue;
        const std::string base = name.substr(0, 7);
        if (!Listed(listed, base)) bases.push_back(base);
    }
    std::sort(bases.begin(), bases.end());
    return bases;
}

bool InstallCatalogue(const Workspace& ws, std::string_view base, std::string_view title) {
    if (FileLength(ws, RecordFileName(base)) == 0 || !AddToList(ws, base, title)) return false;
    BuildMatchcode(ws);
    return true;
}

bool RemoveCatalogue(const Workspace& ws, std::string_view base) {
    auto list = ReadCatalogueList(ws);
    const auto end = std::remove_if(list.begin(), list.end(),
                                    [&](const InstalledCatalogue& c) { return EqualsNoCase(c.base, base); });
    if (end == list.end()) return false;
    list.erase(end, list.end());
    if (!WriteCatalogueList(ws, list)) return false;
    BuildMatchcode(ws);
    return true;
}

}  // namespace kv
