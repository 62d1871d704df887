// The cost data screen (CalcList): one table at a time by its mode: 601 the
// basic rates, 602 the assembly minutes of fittings, 612 of main units,
// 620-625 the price columns of the pipe tables, 630-634 tees, 640-644
// reducers, 650-652 oil traps, 660-662 double risers.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct CostDataScreen {
    int mode = 601;
    std::string file;
    std::vector<std::string> heads;       // column heads
    std::vector<std::string> rowLabels;   // row heads of the rates and minutes tables
    std::vector<std::vector<std::string>> grid;
    std::vector<std::vector<std::string>> hidden;  // items of a row the grid does not show, kept
    std::string message;
};

// The modes of the screen, in the order of its list of tables.
std::vector<int> CostDataModes();
// The file of a mode; empty for an unknown one.
std::string CostDataFile(int mode);
// A title of a mode for the list of tables.
std::string CostDataTitle(const Workspace& ws, int mode);

bool OpenCostData(Workspace& ws, CostDataScreen& s, int mode);
bool SaveCostData(Workspace& ws, CostDataScreen& s);
// The labour selling and selling prices of every row from minutes and
// purchase price by the basic rates (pipe and part tables).
void PricesFromRates(const Workspace& ws, CostDataScreen& s);

// The detail price grid of one pipe or part size: up to 15 rows of a label,
// quantity, unit, designation, a spare text and the unit price; its sum of
// quantity x unit price, cut to cents, is the purchase price of the size.
struct DetailGrid {
    std::string file;   // by the size text, the table mode and the language
    int row = -1;       // the row of the cost data grid it belongs to
    std::vector<std::array<std::string, 6>> rows;  // 15
};
inline constexpr int kDetailRows = 15;
// Opens the detail grid of a row of a pipe or part table; its file is read
// when there is one, else the pipe itself (1 m at the row's price), fixing
// material, insulation and clamps are proposed. False for another mode.
bool OpenDetailGrid(Workspace& ws, const CostDataScreen& s, int row, DetailGrid& d);
double DetailPurchase(const DetailGrid& d);
// Writes the detail file and puts its sum into the row's purchase price.
bool ApplyDetailGrid(Workspace& ws, CostDataScreen& s, const DetailGrid& d);

}  // namespace kv
