#include "lists/cost_data_screen.h"

#include <array>
#include <cmath>

#include "lists/costing.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::array<const char*, 6> kPipeFiles = {"RohrDM.DAT", "RohrIN.DAT", "RohrDS.DAT",
                                                   "ROHRPI.DAT", "ROHRPII.DAT", "RohrK65.DAT"};
constexpr std::array<const char*, 5> kFamilies = {"K1", "K2", "S3", "P4", "P5"};
constexpr std::array<const char*, 3> kTrapFamilies = {"K1", "K2", "ST"};

bool IsPipeMode(int m) { return m >= 620 && m <= 625; }
bool IsPartMode(int m) { return (m >= 630 && m <= 634) || (m >= 640 && m <= 644) || (m >= 650 && m <= 652) || (m >= 660 && m <= 662); }

// Pipe table items shown: size, minutes, purchase, labour selling, selling
// price per metre (items 1, 7, 8, 9, 10 of 15).
constexpr std::array<std::size_t, 5> kPipeItems = {0, 6, 7, 8, 9};
// Part table items shown: all but the fourth.
constexpr std::array<std::size_t, 7> kPartItems = {0, 1, 2, 4, 5, 6, 7};

std::vector<std::vector<std::string>> Blank(std::size_t rows, std::size_t columns) {
    return std::vector<std::vector<std::string>>(rows, std::vector<std::string>(columns));
}

}  // namespace

std::vector<int> CostDataModes() {
    std::vector<int> m = {601, 602, 612};
    for (int i = 620; i <= 625; ++i) m.push_back(i);
    for (int base : {630, 640})
        for (int i = 0; i < 5; ++i) m.push_back(base + i);
    for (int base : {650, 660})
        for (int i = 0; i < 3; ++i) m.push_back(base + i);
    return m;
}

std::string CostDataFile(int mode) {
    if (mode == 601) return "GmontZ.dat";
    if (mode == 602) return "KmontZ.dat";
    if (mode == 612) return "AmontZ.dat";
    if (IsPipeMode(mode)) return kPipeFiles[static_cast<std::size_t>(mode - 620)];
    if (mode >= 630 && mode <= 634) return std::string(kFamilies[static_cast<std::size_t>(mode - 630)]) + "Tstk.dat";
    if (mode >= 640 && mode <= 644) return std::string(kFamilies[static_cast<std::size_t>(mode - 640)]) + "_RED.dat";
    if (mode >= 650 && mode <= 652) return std::string(kTrapFamilies[static_cast<std::size_t>(mode - 650)]) + "OelS.dat";
    if (mode >= 660 && mode <= 662) return std::string(kTrapFamilies[static_cast<std::size_t>(mode - 660)]) + "DblR.dat";
    return {};
}

std::string CostDataTitle(const Workspace& ws, int mode) {
    const Captions& c = ws.captions;
    std::string word;
    if (mode == 601) return c[Cap::LabourRate] + ", " + c[Cap::SurchargeLabour] + ", " + c[Cap::SurchargeMaterial];
    if (mode == 602) return c[Cap::AssemblyTimesFittings];
    if (mode == 612) return c[Cap::AssemblyTimesUnits];
    if (IsPipeMode(mode)) word = c[Cap::PipePrices];
    else word = c[Cap::FittingPrices];
    return word + " - " + CostDataFile(mode);
}

bool OpenCostData(Workspace& ws, CostDataScreen& s, int mode) {
    s = CostDataScreen{};
    s.mode = mode;
    s.file = CostDataFile(mode);
    if (s.file.empty()) return false;
    const Captions& c = ws.captions;
    const std::string cur = ws.settings.Waehrung;
    RecordReader in = OpenIn(ws, s.file);
    if (mode == 601) {
        s.heads = {c[Cap::Price]};
        s.rowLabels = {c[Cap::LabourRate] + " /[" + cur + "/h]", c[Cap::SurchargeLabour] + " [%]",
                       c[Cap::SurchargeMaterial] + " [%]", c[Cap::ExtraTime] + " [h]"};
        const BasicRates r = ReadBasicRates(ws);
        for (std::size_t i = 0; i < 4; ++i) s.grid.push_back({r.record[i]});
        return true;
    }
    if (mode == 602 || mode == 612) {
        const bool units = mode == 612;
        s.heads = units ? std::vector<std::string>{"0-5 kW", "5-15 kW", "15-30 kW", "30-60 kW", ">60 kW"}
                        : std::vector<std::string>{"6-16 mm", "18-28 mm", "35-54 mm", "64-108 mm", ">108 mm"};
        const std::size_t rows = units ? kUnitTimeKinds.size() : kFittingTimeKinds.size();
        for (std::size_t r = 0; r < rows; ++r)
            s.rowLabels.push_back(KindListCaption(ws, units ? kUnitTimeKinds[r] : kFittingTimeKinds[r]));
        s.grid = Blank(rows, 5);
        for (auto& row : s.grid)
            for (std::string& cell : row)
                if (!in.Read(cell)) break;
        return true;
    }
    if (IsPipeMode(mode)) {
        s.heads = {"d /[mm]", c[Cap::AssemblyTime] + " /[min/m]", c[Cap::PurchasePrice] + " /[" + cur + "/m]",
                   c[Cap::Labour] + " VK /[" + cur + "/m]", c[Cap::SellingPrice] + " /[" + cur + "/m]"};
        const ListFile f = ParseListText(in.Text(), 2, 15);
        s.hidden.push_back(f.header);
        for (const auto& row : f.rows) {
            std::vector<std::string> g;
            for (std::size_t i : kPipeItems) g.push_back(row[i]);
            s.grid.push_back(std::move(g));
            s.hidden.push_back(row);
        }
        return true;
    }
    s.heads = {"d /[mm]", c[Cap::TypeDesignation], c[Cap::Manufacturer], c[Cap::AssemblyTime] + " /[h]", cur,
               c[Cap::Labour] + " VK /[" + cur + "]", c[Cap::SellingPrice] + " /[" + cur + "]"};
    for (const PartRow& r : ReadPartTable(ws, s.file)) {
        std::vector<std::string> g;
        for (std::size_t i : kPartItems) g.push_back(r[i]);
        s.grid.push_back(std::move(g));
        s.hidden.push_back({r[3]});
    }
    // Room to add rows: 60 in a tee table, 30 in the others.
    const std::size_t rows = mode >= 630 && mode <= 634 ? 60 : 30;
    while (s.grid.size() < rows) s.grid.push_back(std::vector<std::string>(kPartItems.size()));
    return true;
}

bool SaveCostData(Workspace& ws, CostDataScreen& s) {
    RecordWriter w;
    if (s.mode == 601) {
        BasicRates r = ReadBasicRates(ws);
        for (std::size_t i = 0; i < 4 && i < s.grid.size(); ++i) r.record[i] = s.grid[i].empty() ? "" : s.grid[i][0];
        return WriteBasicRates(ws, r);
    }
    if (s.mode == 602 || s.mode == 612) {
        for (const auto& row : s.grid)
            for (const std::string& cell : row) w.Item(cell).EndLine();
        return WriteListText(ws, s.file, w.Text());
    }
    if (IsPipeMode(s.mode)) {
        // The other columns of the pipe table stay as they were.
        std::vector<std::string> header = s.hidden.empty() ? std::vector<std::string>{} : s.hidden[0];
        for (const std::string& item : header) w.Item(item);
        w.EndLine();
        for (std::size_t r = 0; r < s.grid.size(); ++r) {
            std::vector<std::string> row = r + 1 < s.hidden.size() ? s.hidden[r + 1] : std::vector<std::string>(15);
            row.resize(15);
            for (std::size_t i = 0; i < kPipeItems.size() && i < s.grid[r].size(); ++i) row[kPipeItems[i]] = s.grid[r][i];
            for (const std::string& item : row) w.Item(item);
            w.EndLine();
        }
        return WriteListText(ws, s.file, w.Text());
    }
    for (std::size_t r = 0; r < s.grid.size(); ++r) {
        const auto& g = s.grid[r];
        if (g.empty() || Trim(g[0]).empty()) break;  // an empty size ends the table
        std::array<std::string, 8> item{};
        for (std::size_t i = 0; i < kPartItems.size() && i < g.size(); ++i) item[kPartItems[i]] = g[i];
        if (r < s.hidden.size() && !s.hidden[r].empty()) item[3] = s.hidden[r][0];
        for (const std::string& x : item) w.Item(x).EndLine();
    }
    return WriteListText(ws, s.file, w.Text());
}

void PricesFromRates(const Workspace& ws, CostDataScreen& s) {
    const BasicRates r = ReadBasicRates(ws);
    const bool pipe = IsPipeMode(s.mode);
    if (!pipe && !IsPartMode(s.mode)) return;
    // Columns of minutes, purchase, labour selling and selling price.
    const std::size_t t = pipe ? 1 : 3, p = pipe ? 2 : 4, l = pipe ? 3 : 5, v = pipe ? 4 : 6;
    for (auto& row : s.grid) {
        if (row.size() <= v || Trim(row[0]).empty()) continue;
        const double minutes = ToNumber(Trim(row[t])), price = ToNumber(Trim(row[p]));
        row[l] = NumberText(PriceFromRates(r, minutes, price, 1));
        row[v] = NumberText(PriceFromRates(r, minutes, price, 2));
    }
}

namespace {
// The purchase price column of the screen's grid: pipe tables 2, part tables 4.
std::size_t PurchaseColumn(int mode) { return IsPipeMode(mode) ? 2 : 4; }
}  // namespace

bool OpenDetailGrid(Workspace& ws, const CostDataScreen& s, int row, DetailGrid& d) {
    d = DetailGrid{};
    if ((!IsPipeMode(s.mode) && !IsPartMode(s.mode)) || row < 0 || row >= static_cast<int>(s.grid.size())) return false;
    const auto& g = s.grid[static_cast<std::size_t>(row)];
    if (g.empty() || Trim(g[0]).empty()) return false;
    const std::string size(Trim(g[0]));
    d.row = row;
    d.file = DetailPriceFile(ws, size, s.mode, ws.settings.Sprache);
    d.rows.assign(kDetailRows, {});
    RecordReader in = OpenIn(ws, d.file);
    bool any = false;
    for (auto& r : d.rows)
        for (std::string& cell : r)
            if (in.Read(cell)) any = true;
    if (any) return true;
    const Captions& c = ws.captions;
    const std::size_t p = PurchaseColumn(s.mode);
    d.rows[0] = {size, "1", "m ", c[Cap::PipeWord], "", p < g.size() ? g[p] : std::string()};
    d.rows[1] = {size + " " + c[Cap::FixingMaterial], "", "Stk", c[Cap::FixingMaterial], "", ""};
    d.rows[2] = {size + " " + c[Cap::Insulation], "", "m ", c[Cap::Insulation], "", ""};
    d.rows[3] = {size + " " + c[Cap::PipeClamp], "", "Stk", c[Cap::PipeClamp], "", ""};
    return true;
}

double DetailPurchase(const DetailGrid& d) {
    double sum = 0;
    for (const auto& r : d.rows) sum += ToNumber(Trim(r[1])) * ToNumber(Trim(r[5]));
    return std::trunc(100 * sum) / 100;
}

bool ApplyDetailGrid(Workspace& ws, CostDataScreen& s, const DetailGrid& d) {
    if (d.row < 0 || d.row >= static_cast<int>(s.grid.size())) return false;
    RecordWriter w;
    for (const auto& r : d.rows) {
        for (const std::string& cell : r) w.Item(cell);
        w.EndLine();
    }
    const bool ok = WriteListText(ws, d.file, w.Text());
    auto& g = s.grid[static_cast<std::size_t>(d.row)];
    const std::size_t p = PurchaseColumn(s.mode);
    if (p < g.size()) g[p] = NumberText(DetailPurchase(d));
    return ok;
}

}  // namespace kv
