#include "lists/export_screen.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "lists/list_rows.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

const char* FileOf(CostingMode m) { return m == CostingMode::Costing ? "KV_Calc.dat" : "Export.dat"; }

void Refresh(Workspace& ws, ExportScreen& s) {
    if (s.mode == CostingMode::Costing) s.sums = RecalculateCosts(s.grid, s.rates);
    WriteCostRows(ws, s.mode, s.grid);
}

}  // namespace

int ExportColumns(CostingMode mode) { return mode == CostingMode::Costing ? 14 : 7; }

std::vector<std::string> ExportHeads(const Workspace& ws, CostingMode mode) {
    const Captions& c = ws.captions;
    const std::string cur = ws.settings.Waehrung;
    std::vector<std::string> h = {"n", "", c[Cap::TypeDesignation], c[Cap::ColOrderNo], c[Cap::Manufacturer], " d = ",
                                  c[Cap::ColLinePosition]};
    if (mode == CostingMode::Costing) {
        h.push_back(c[Cap::AssemblyTime] + " /[min]");
        h.push_back(c[Cap::Total] + " EK /[" + cur + "]");
        h.push_back(c[Cap::Labour] + " EK /[" + cur + "]");
        h.push_back(c[Cap::Material] + " EK /[" + cur + "]");
        h.push_back(c[Cap::Labour] + " VK /[" + cur + "]");
        h.push_back(c[Cap::Material] + " VK /[" + cur + "]");
        h.push_back(c[Cap::Total] + " VK /[" + cur + "]");
    }
    return h;
}

void OpenExportScreen(Workspace& ws, ExportScreen& s, CostingMode mode) {
    s = ExportScreen{};
    s.mode = mode;
    s.rates = ReadBasicRates(ws);
    const Captions& c = ws.captions;
    bool keep = false;
    if (FileLength(ws, FileOf(mode)) > 0) {
        const std::string word = mode == CostingMode::Costing ? c[Cap::KeepCosting] : c[Cap::KeepExport];
        keep = ws.ui.AskYesNo(ws.Title(), c[Cap::ProjectWord] + (mode == CostingMode::Export ? " Exportieren" : "") +
                                              " !" + ws.lineEnd + word + " ?");
    }
    s.grid = keep ? ReadCostRows(ws, mode) : RunCosting(ws, mode);
    Refresh(ws, s);
    const std::array<std::string, 2> choice = ReadExportChoice(ws);
    s.target = choice[0];
    const std::filesystem::path path(choice[1]);
    s.directory = path.parent_path().string();
    s.fileName = path.filename().string();
    if (s.directory.empty()) s.directory = ws.project.ProjektVerz;
}

void EditExportCell(Workspace& ws, ExportScreen& s, int row, int column, const std::string& text) {
    if (row < 0 || column < 0 || column >= 14) return;
    while (static_cast<int>(s.grid.size()) <= row) s.grid.push_back(CostRow{});
    s.grid[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
    Refresh(ws, s);
}

void InsertExportRow(Workspace& ws, ExportScreen& s, int row) {
    const auto n = static_cast<int>(s.grid.size());
    s.grid.insert(s.grid.begin() + std::clamp(row, 0, n), CostRow{});
    Refresh(ws, s);
}

void DeleteExportRow(Workspace& ws, ExportScreen& s, int row) {
    if (row < 0 || row >= static_cast<int>(s.grid.size())) return;
    s.grid.erase(s.grid.begin() + row);
    Refresh(ws, s);
}

void PasteExportText(Workspace& ws, ExportScreen& s, int row, int column, const std::string& text) {
    if (row < 0 || column < 0) return;
    const int columns = ExportColumns(s.mode);
    int r = row, c = column;
    std::string cell;
    auto put = [&] {
        if (c < columns) {
            while (static_cast<int>(s.grid.size()) <= r) s.grid.push_back(CostRow{});
            s.grid[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = cell;
        }
        cell.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char ch = text[i];
        if (ch == '\t') {
            put();
            ++c;
        } else if (ch == '\r' || ch == '\n') {
            put();
            if (ch == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            ++r;
            c = column;
            if (i + 1 >= text.size()) break;
        } else {
            cell += ch;
        }
    }
    if (!cell.empty()) put();
    Refresh(ws, s);
}

std::string CopyExportRows(const ExportScreen& s, int first, int count) {
    std::string out;
    const int columns = ExportColumns(s.mode);
    for (int r = std::max(0, first); r < first + count && r < static_cast<int>(s.grid.size()); ++r) {
        for (int c = 0; c < columns; ++c) out += (c ? "\t" : "") + s.grid[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)];
        out += "\n";
    }
    return out;
}

void MergeExportRows(Workspace& ws, ExportScreen& s) {
    const bool costing = s.mode == CostingMode::Costing;
    s.grid = MergeEqualRows(s.grid, costing);
    RecordWriter w;
    for (const CostRow& r : s.grid) {
        for (const std::string& item : r) w.Item(item);
        w.EndLine();
    }
    WriteListText(ws, "TempEx.dat", w.Text());
    Refresh(ws, s);
}

bool RunExport(Workspace& ws, ExportScreen& s) {
    const Captions& c = ws.captions;
    if (Trim(s.fileName).empty()) {
        s.message = s.target + ws.lineEnd + "File - " + c[Cap::FileName] + " : " + c[Cap::PathWord] + " = '' '' !";
        return false;
    }
    const std::string path = (s.directory.empty() ? std::string(".") : s.directory) + "/" + s.fileName;
    WriteExportChoice(ws, {s.target, path});
    if (!WriteExportFile(path, s.target, s.grid)) {
        s.message = path;
        return false;
    }
    s.message = path;
    return true;
}

std::vector<std::string> SumLines(const Workspace& ws, const ExportScreen& s) {
    const Captions& c = ws.captions;
    const std::string cur = ws.settings.Waehrung;
    const CostSums& x = s.sums;
    return {c[Cap::Margin] + ": " + NumberText(x.marginPercent) + "% /" + cur + " " + NumberText(std::trunc(100 * x.margin) / 100),
            c[Cap::Labour] + " EK: " + NumberText(Money(x.labourCost)) + " " + cur,
            c[Cap::Material] + " EK: " + NumberText(Money(x.materialCost)) + " " + cur,
            c[Cap::Total] + " VK: " + NumberText(Money(x.sales)) + " " + cur,
            c[Cap::TotalAssemblyTime] + ": " + std::to_string(x.hours) + "h " + std::to_string(x.restMinutes) + "'"};
}

}  // namespace kv
