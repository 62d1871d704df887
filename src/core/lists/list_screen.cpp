#include "lists/list_screen.h"

#include <algorithm>

#include "catalogue/selection.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::string_view kCostingChoiceFile = "ListSel.dat";

bool IsUnitList(std::string_view f) { return f == lists::kParts || f == lists::kUnits; }

// Grid column (from 0) of each item of a parts or units row: the quantity
// leads the grid, the price closes it.
constexpr std::array<int, 9> kUnitColumnOfItem = {1, 2, 3, 4, 5, 6, 7, 0, 8};
// Grid column of each of the first six items of a Flansh.DAT row.
constexpr std::array<int, 6> kFittingColumnOfItem = {0, 1, 2, 4, 5, 3};

bool Blank(const std::string& s) { return Trim(s).empty(); }
double Num(const std::string& s) { return ToNumber(std::string(Trim(s))); }

const std::string& At(const GridRow& r, int c) {
    static const std::string empty;
    return c >= 0 && static_cast<std::size_t>(c) < r.size() ? r[static_cast<std::size_t>(c)] : empty;
}

// The row that ends the write of a list.
bool EndsList(std::string_view file, const GridRow& r) {
    if (IsUnitList(file)) return Num(At(r, 0)) == 0 && Num(At(r, 3)) == 0 && Num(At(r, 5)) == 0 && Num(At(r, 7)) == 0;
    if (file == lists::kPipes || file == lists::kWiring) return Blank(At(r, 0)) && Blank(At(r, 1)) && Blank(At(r, 2));
    if (file == lists::kFittings) return Num(At(r, 3)) == 0 && Num(At(r, 4)) == 0 && Num(At(r, 5)) == 0;
    return Blank(At(r, 0)) && Blank(At(r, 1)) && Blank(At(r, 2));
}

void WriteHeader4(RecordWriter& w, const Workspace& ws) {
    const Project& p = ws.project;
    w.Item(p.ProjektNam).Item(p.ProBeschr).Item(p.ProjektDatum.empty() ? DateText(ws.settings.DatumFormat) : p.ProjektDatum)
        .Item(p.AnlagenTyp).EndLine();
}

// The six values a parts list gives back to the project it belongs to.
void RestoreFromHeader(Workspace& ws, const std::vector<std::string>& h) {
    Project& p = ws.project;
    if (h.size() < 14 || Trim(h[0]) != Trim(p.ProjektNam)) return;
    if (!Blank(h[2]) && h[2] != ws.captions[Cap::Refrigerant]) p.ProjektDatum = h[2];
    if (!Blank(h[3])) p.AnlagenTyp = h[3];
    if (Num(h[4]) > 0) p.TeilL = h[4];
    if (Num(h[12]) > 0) p.tkoK = Num(h[12]);
    if (!Blank(h[13])) p.KaelteM = h[13];
}

}  // namespace

int GridColumns(std::string_view file) {
    if (IsUnitList(file)) return kUnitGridColumns;
    if (file == lists::kPipes || file == lists::kWiring) return 5;
    if (file == lists::kFittings || file == lists::kPed) return 6;
    return 0;
}

std::vector<std::string> ColumnCaptions(const Workspace& ws, std::string_view file) {
    const Captions& c = ws.captions;
    if (IsUnitList(file))
        return {c[Cap::ColQuantity], c[Cap::ColComponent], c[Cap::TypeDesignation], c[Cap::Description],
                c[Cap::ColOrderNo],  c[Cap::Connection] + " /[mm]", c[Cap::ColLinePosition],
                c[Cap::PipeSize] + " /[mm]", c[Cap::ColUnitPrice] + " /[" + ws.settings.Waehrung + "]"};
    if (file == lists::kPipes)
        return {c[Cap::ColLinePosition], c[Cap::Length] + " /[m]", c[Cap::PipeSize], c[Cap::InsulationThickness] + " /[mm]",
                c[Cap::PipeClamp]};
    if (file == lists::kWiring)
        return {c[Cap::Consumer], c[Cap::Length] + " /[m]", c[Cap::Cable], c[Cap::ColComponent], c[Cap::ColQuantity]};
    if (file == lists::kFittings)
        return {c[Cap::ColLinePosition], c[Cap::TypeDesignation], c[Cap::PipeSize], c[Cap::ColQuantity],
                c[Cap::Diameter] + " 1 /[mm]", c[Cap::Diameter] + " 2 /[mm]"};
    if (file == lists::kPed)
        return {"n", c[Cap::ColComponent], c[Cap::ColLinePosition],
                c[Cap::AllowedPressure] + " pzul./ [bar g]", c[Cap::TypeDesignation],
                c[Cap::ColOrderNo]};
    return {};
}

std::string ListTitle(const Workspace& ws, std::string_view file) {
    const Captions& c = ws.captions;
    if (file == lists::kParts) return c[Cap::MenuPartsList];
    if (file == lists::kUnits) return c[Cap::MenuUnitsList];
    if (file == lists::kPipes) return c[Cap::MenuPipeList];
    if (file == lists::kFittings) return c[Cap::MenuFlangeList];
    if (file == lists::kWiring) return c[Cap::CableList];
    if (file == lists::kPed) return c[Cap::PedList];
    return std::string(file);
}

bool OpenList(Workspace& ws, ListScreen& s, std::string_view file) {
    s = ListScreen{};
    s.file = std::string(file);
    int head = 0, items = 0;
    if (!ListLayout(file, head, items)) return false;
    ws.project.ListenDatei = s.file;
    const ListFile f = ReadListFile(ws, file, head, items);
    s.header = f.header;
    const int columns = GridColumns(file);
    if (IsUnitList(file)) {
        RecordReader change = OpenIn(ws, file == lists::kParts ? lists::kPartsChange : lists::kUnitsChange);
        for (const auto& row : f.rows) {
            GridRow g(static_cast<std::size_t>(columns));
            for (std::size_t i = 0; i < 9; ++i) g[static_cast<std::size_t>(kUnitColumnOfItem[i])] = row[i];
            // A component row has its block; an accessory row has none.
            if (!Blank(row[0]))
                for (int c = kFirstChangeColumn - 1; c < columns; ++c) change.Read(g[static_cast<std::size_t>(c)]);
            s.grid.push_back(std::move(g));
        }
        if (file == lists::kParts) {
            RestoreFromHeader(ws, s.header);
            if (s.header.size() >= 7) s.freeText1 = s.header[5], s.freeText2 = s.header[6];
        }
    } else if (file == lists::kFittings) {
        for (const auto& row : f.rows) {
            GridRow g(static_cast<std::size_t>(columns));
            for (std::size_t i = 0; i < 6; ++i) g[static_cast<std::size_t>(kFittingColumnOfItem[i])] = row[i];
            s.grid.push_back(std::move(g));
        }
    } else if (file == lists::kPed) {
        for (const auto& row : f.rows) s.grid.emplace_back(row.begin() + 1, row.begin() + 7);
    } else {
        for (const auto& row : f.rows) s.grid.emplace_back(row.begin(), row.begin() + columns);
    }
    return true;
}

bool SaveList(Workspace& ws, ListScreen& s) {
    const std::string_view file = s.file;
    const int columns = GridColumns(file);
    if (columns == 0) return false;
    RecordWriter w, change;
    const Project& p = ws.project;
    if (file == lists::kParts) {
        auto kept = [&](std::size_t i, const std::string& otherwise) {
            return i < s.header.size() ? s.header[i] : otherwise;
        };
        w.Item(p.ProjektNam).Item(p.ProBeschr).Item(p.ProjektDatum.empty() ? DateText(ws.settings.DatumFormat) : p.ProjektDatum)
            .Item(p.AnlagenTyp).Item(p.TeilL).Item(s.freeText1).Item(s.freeText2).Item("")
            .Item(kept(8, NumberText(p.TverK))).Item(kept(9, "0")).Item(kept(10, "0")).Item(kept(11, "0"))
            .Item(NumberText(p.tkoK)).Item(p.KaelteM).EndLine();
    } else if (file != lists::kPed) {
        WriteHeader4(w, ws);
    }
    int counter = 0;
    for (const GridRow& g : s.grid) {
        if (EndsList(file, g)) break;
        if (IsUnitList(file)) {
            for (std::size_t i = 0; i < 9; ++i) w.Item(At(g, kUnitColumnOfItem[i]));
            w.EndLine();
            // The screen writes 24 change items, each a record of its own.
            if (!Blank(At(g, 1)))
                for (int c = kFirstChangeColumn - 1; c < kFirstChangeColumn - 1 + lists::kChangeSaved; ++c)
                    change.Item(At(g, c)).EndLine();
        } else if (file == lists::kFittings) {
            for (std::size_t i = 0; i < 6; ++i) w.Item(At(g, kFittingColumnOfItem[i]));
            w.Item("").EndLine();
        } else if (file == lists::kPed) {
            w.Item(++counter);
            for (int c = 0; c < 6; ++c) w.Item(At(g, c));
            for (int c = 0; c < 4; ++c) w.Item("");
            w.EndLine();
        } else {
            for (int c = 0; c < 5; ++c) w.Item(At(g, c));
            w.EndLine();
        }
    }
    bool ok = WriteListText(ws, file, w.Text());
    if (IsUnitList(file))
        ok = WriteListText(ws, file == lists::kParts ? lists::kPartsChange : lists::kUnitsChange, change.Text()) && ok;
    // The charge goes with every save of a list.
    const auto charge = ReadCharge(ws);
    RecordWriter fuel;
    fuel.Item(NumberText(charge[0])).Item(NumberText(charge[1])).EndLine();
    ok = WriteListText(ws, lists::kCharge, fuel.Text()) && ok;
    if (ok) s.changed = false;
    return ok;
}

void InsertRow(ListScreen& s, int at) {
    const auto n = static_cast<int>(s.grid.size());
    at = std::clamp(at, 0, n);
    s.grid.insert(s.grid.begin() + at, GridRow(static_cast<std::size_t>(GridColumns(s.file))));
    s.changed = true;
}

void DeleteRows(ListScreen& s, int first, int count) {
    const auto n = static_cast<int>(s.grid.size());
    if (first < 0 || first >= n || count <= 0) return;
    s.grid.erase(s.grid.begin() + first, s.grid.begin() + std::min(n, first + count));
    s.changed = true;
}

std::vector<GridRow> CopyRows(const ListScreen& s, int first, int count) {
    const auto n = static_cast<int>(s.grid.size());
    if (first < 0 || first >= n || count <= 0) return {};
    return {s.grid.begin() + first, s.grid.begin() + std::min(n, first + count)};
}

void PasteRows(ListScreen& s, int at, const std::vector<GridRow>& rows) {
    const auto n = static_cast<int>(s.grid.size());
    at = std::clamp(at, 0, n);
    const auto columns = static_cast<std::size_t>(GridColumns(s.file));
    std::vector<GridRow> fitted = rows;
    for (GridRow& r : fitted) r.resize(columns);
    s.grid.insert(s.grid.begin() + at, fitted.begin(), fitted.end());
    if (!rows.empty()) s.changed = true;
}

void SetCell(ListScreen& s, int row, int column, std::string text) {
    if (row < 0 || column < 0 || column >= GridColumns(s.file)) return;
    while (static_cast<int>(s.grid.size()) <= row) s.grid.emplace_back(static_cast<std::size_t>(GridColumns(s.file)));
    GridRow& g = s.grid[static_cast<std::size_t>(row)];
    g.resize(static_cast<std::size_t>(GridColumns(s.file)));
    if (g[static_cast<std::size_t>(column)] == text) return;
    g[static_cast<std::size_t>(column)] = std::move(text);
    s.changed = true;
}

bool ReselectRow(Workspace& ws, ListScreen& s, int row, long long record) {
    if (!IsUnitList(s.file) || row < 0 || row >= static_cast<int>(s.grid.size())) return false;
    GridRow& g = s.grid[static_cast<std::size_t>(row)];
    g.resize(kUnitGridColumns);
    auto item = [&](int n) -> const std::string& { return g[static_cast<std::size_t>(kFirstChangeColumn - 2 + n)]; };
    if (Blank(item(3))) {
        s.message = "no change block";
        return false;
    }
    SelectRequest q;
    q.first = Num(item(1));
    q.second = Num(item(2));
    q.kind = WholeNumber(Num(item(3)));
    const std::string& line = item(4);
    q.lineName = line.substr(0, line.find("$§$"));
    q.lineSize = item(5);
    q.flagA = 1;
    q.flagB = WholeNumber(Num(item(7)));
    q.secondLine = item(8);
    q.secondSize = item(9);
    q.catalogueFile = item(10);
    q.position = WholeNumber(Num(item(19)));
    q.tenth = Num(item(20));
    SelectionState st;
    st.mode = record > 0 ? SelectReselect : SelectNormal;
    q.record = record;
    const SelectionResult r = SelectComponent(ws, st, q);
    if (r.taken == 0 && r.article.Field(field::Type) == kEmptyArticle && !r.message.empty()) s.message = r.message;
    const std::array<std::string, 25> change = ParkEntryOf(r, q).change;
    const std::string quantity = g[0], place = g[6];
    for (std::size_t i = 0; i < 9; ++i) g[static_cast<std::size_t>(kUnitColumnOfItem[i])] = r.listRow[i];
    g[1] = KindListCaption(ws, q.kind);
    g[0] = quantity;
    g[6] = place;
    // The block keeps what the selection does not give back: charges,
    // differences, mass flow and capacity of the generation.
    for (std::size_t i = 0; i < 25; ++i)
        if (!change[i].empty() && i != 23) g[kFirstChangeColumn - 1 + i] = change[i];
    s.changed = true;
    return r.taken != 0;
}

bool RebuildPedList(Workspace& ws) {
    RecordWriter w;
    int counter = 0;
    for (std::string_view file : {lists::kUnits, lists::kParts}) {
        ListScreen s;
        OpenList(ws, s, file);
        for (const GridRow& g : s.grid) {
            if (Blank(At(g, 1))) continue;  // accessory rows are no pressure equipment of their own
            w.Item(++counter).Item(At(g, 0)).Item(At(g, 1)).Item(At(g, 6))
                .Item(PressureOfChangeItem(At(g, kFirstChangeColumn - 1 + 3))).Item(At(g, 2)).Item(At(g, 4));
            for (int c = 0; c < 4; ++c) w.Item("");
            w.EndLine();
        }
    }
    return WriteListText(ws, lists::kPed, w.Text());
}

int CopyListsItemwise(Workspace& ws, const std::string& projectFile, const std::string& directory, bool toProject) {
    static constexpr std::pair<const char*, std::string_view> kPairs[] = {
        {".vlt", lists::kParts},       {".rlt", lists::kPipes},        {".flt", lists::kFittings},
        {".alt", lists::kUnits},       {".vtd", lists::kPartsChange},  {".atd", lists::kUnitsChange}};
    const std::string stem = projectFile.size() > 4 ? projectFile.substr(0, projectFile.size() - 4) : projectFile;
    std::string dir = directory;
    if (!dir.empty() && dir.back() != '/' && dir.back() != '\\') dir += '/';
    int copied = 0;
    for (const auto& [extension, list] : kPairs) {
        const std::string companion = dir + stem + extension;
        const std::string from = toProject ? std::string(list) : companion;
        const std::string to = toProject ? companion : std::string(list);
        if (FileLength(ws, from) == 0) continue;
        RecordReader in = OpenIn(ws, from);
        RecordWriter w;
        std::string item;
        while (!in.AtEnd() && in.Read(item)) w.Item(item).EndLine();
        if (WriteListText(ws, to, w.Text())) ++copied;
    }
    return copied;
}

std::array<bool, 5> ReadCostingChoice(const Workspace& ws) {
    std::array<bool, 5> on{true, true, true, true, true};
    RecordReader in = OpenIn(ws, kCostingChoiceFile);
    for (bool& b : on) {
        int v = 1;
        if (!in.Read(v)) break;
        b = v != 0;
    }
    return on;
}

bool WriteCostingChoice(const Workspace& ws, const std::array<bool, 5>& on) {
    RecordWriter w;
    for (bool b : on) w.Item(b ? 1 : 0);
    w.EndLine();
    return WriteListText(ws, kCostingChoiceFile, w.Text());
}

}  // namespace kv
