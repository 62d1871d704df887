// Costing of the parts lists: the cost tables (basic rates, assembly minutes
// of fittings by size band and of main units by capacity band, price tables
// of pipes and pipe parts), the costing run that turns the lists into the
// priced rows of KV_Calc.dat (or the plain rows of Export.dat), the
// recalculation of a row grid with its sums and margin, the merging of equal
// neighbour rows, the export targets and the supplier enquiry.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

// GmontZ.dat: labour rate R (currency/h), surcharges SL and SM (%), a further
// time value, and thirteen kept records.
struct BasicRates {
    std::array<std::string, 17> record{};
    double R() const;
    double SL() const;
    double SM() const;
};
BasicRates ReadBasicRates(const Workspace& ws);
bool WriteBasicRates(const Workspace& ws, const BasicRates& r);

// The time matrix of the run: KmontZ.dat rows 1 to 14, AmontZ.dat rows 15 to
// 18, five bands each; minutes.
using TimeMatrix = std::array<std::array<double, 5>, 18>;
TimeMatrix ReadTimeMatrix(const Workspace& ws);
// The component kinds of the rows of KmontZ.dat and AmontZ.dat, in file order.
inline constexpr std::array<int, 14> kFittingTimeKinds = {5, 6, 7, 8, 9, 16, 1, 2, 3, 4, 18, 0, 10, 15};
inline constexpr std::array<int, 4> kUnitTimeKinds = {17, 13, 12, 14};

// Size band of a connection diameter (mm) and capacity band of a unit (kW), 1..5.
int SizeBand(double d);
int CapacityBandOf(double kW);

// A row of a pipe part table: size, designation, maker, a spare, minutes,
// purchase price, labour selling price, selling price.
using PartRow = std::array<std::string, 8>;
// Reads a part table: rows of 8 items up to the first empty size, at most 500.
std::vector<PartRow> ReadPartTable(const Workspace& ws, std::string_view file);
// The part table of a kind ("Tstk", "_RED", "OelS", "DblR") for a size text:
// "K65" in it gives the K65 tables, "GF" the P5, "DN" the S3, "/" or "'" the
// K2, "x" the K1; the later matches win in the order K65, x, /, ', DN, GF.
std::string PartTableFor(std::string_view sizeText, std::string_view kind);
// The pipe table of a size text by the same rule.
std::string PipeTableFor(std::string_view sizeText);

// Prices from rates on the cost data screen: selector 1 the labour selling
// price, 2 the selling price, for `minutes` and purchase price P.
double PriceFromRates(const BasicRates& r, double minutes, double purchase, int selector);
// The file of a detail price grid for a size text and table mode, e.g.
// "KS54.ENG": the prefix by the kind of size, the outside diameter (an inch
// size through the inch series), the language code.
std::string DetailPriceFile(Workspace& ws, std::string_view sizeText, int tableMode, std::string_view language);

// A row of KV_Calc.dat and Export.dat: 14 items.
using CostRow = std::array<std::string, 14>;

enum class CostingMode { Costing, Export };

// The costing run over the lists the parts list screen lets the costing
// take, in the order units, parts, pipes, fittings, wiring; `stored` names a
// project file whose companions are read instead of the working lists.
std::vector<CostRow> RunCosting(const Workspace& ws, CostingMode mode, const std::string& stored = {});
// Writes KV_Calc.dat (costing) or Export.dat (export).
bool WriteCostRows(const Workspace& ws, CostingMode mode, const std::vector<CostRow>& rows);
std::vector<CostRow> ReadCostRows(const Workspace& ws, CostingMode mode);

// The recalculation of the grid with its sums.
struct CostSums {
    double labourCost = 0.0;     // A, sum of q x Lc
    double materialCost = 0.0;   // B, sum of q x P
    double sales = 0.0;          // S, sum of q x (Lv + Mv)
    double minutes = 0.0;        // T, sum of t x q
    double margin = 0.0;         // S - (A + B)
    double marginPercent = 0.0;  // cut to hundredths; 0 when S is 0
    int hours = 0, restMinutes = 0;
};
double Money(double x);
CostSums RecalculateCosts(std::vector<CostRow>& rows, const BasicRates& rates);

// StK_add: equal neighbour rows (designation, order number, unit) become one
// with their quantities added; the first row's other items stay.
std::vector<CostRow> MergeEqualRows(const std::vector<CostRow>& rows, bool costing);

// The export targets and ExPar.dat.
inline constexpr std::array<std::string_view, 3> kExportTargets = {"Excel-File", "DBase-File", "ASCII/ANSI-File"};
std::string ExportText(std::string_view target, const std::vector<CostRow>& rows);
bool WriteExportFile(const std::string& path, std::string_view target, const std::vector<CostRow>& rows);
std::array<std::string, 2> ReadExportChoice(const Workspace& ws);
bool WriteExportChoice(const Workspace& ws, const std::array<std::string, 2>& choice);

// Supplier.dat: nine records.
std::array<std::string, 9> ReadSupplier(const Workspace& ws);
// The mailto: address of a price enquiry with the project and the rows.
std::string EnquiryMailUrl(const Workspace& ws, const std::vector<CostRow>& rows);

// The cells of the enquiry workbook: head cells by name ("C2", ...) and the
// rows from sheet row 21, columns A to G.
struct WorkbookCell {
    std::string cell, text;
};
struct WorkbookContent {
    std::vector<WorkbookCell> head;
    std::vector<std::array<std::string, 7>> rows;
};
WorkbookContent EnquiryWorkbook(const Workspace& ws, const std::vector<CostRow>& rows);
// Where the workbook goes: the project's directory, the project name and "_01.xlsx".
std::string WorkbookPath(const Workspace& ws);

}  // namespace kv
