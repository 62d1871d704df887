// The report pages: result sets (one report line a record, with the marks of
// their line grammar) laid out on A4 pages as drawing primitives in page
// units, the same for the screen preview, the printer and PDF. The plant
// results of a calculation are written as the result set ergDt3.DAT.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "documents/drawing.h"

namespace kv {

struct Workspace;

// A4 in tenths of a millimetre.
inline constexpr double kPageWidth = 2100.0;
inline constexpr double kPageHeight = 2970.0;

// The records of a result set; `headerItems` items are skipped first (4 for
// ergDt1.DAT and ergDt2.DAT). A missing file gives no lines.
std::vector<std::string> ReadResultSet(const Workspace& ws, std::string_view file, int headerItems);

struct ReportSet {
    std::string title;               // the page title
    std::vector<std::string> lines;  // the records
    bool resultSet = false;          // ergDt1 to ergDt3: the first line stands higher
    int pedCategory = 0;             // 1..4 draws the mark box of a PED report
};

// Lays out the sets one after another; a set starts on a new page and runs
// over as many pages as it needs. Every page carries the project name and
// its number "n / m".
std::vector<DrawingList> LayoutReport(const Workspace& ws, const std::vector<ReportSet>& sets);

// The sets of the whole report of a plant, from the files of the working
// set: plant results, pipe lines, components, and the PED and eco pages
// where they have been written.
std::vector<ReportSet> PlantReportSets(const Workspace& ws);

// The factor further capacity figures of the plant results are rounded by:
// 1000 up to 10 kW of refrigerating capacity, 100 above 10 kW, 10 above 100 kW.
double CapacityScale(double q0);
// The word of a compressor principle 1..5; "Turbo" for kind 4.
std::string CompressorWord(const Workspace& ws, int principle);

// Writes ergDt3.DAT: the plant results of the last calculation.
bool WritePlantResults(Workspace& ws);
// Writes KWcalc.DAT: the heat exchanger sheet of the plant, evaporator and
// condenser with duty, temperature difference, fluid temperatures and the
// adopted article with its energy class.
bool WriteHeatExchangerSheet(Workspace& ws);

// The print settings screen's choices; they stay while the report screen is open.
struct PrintSettings {
    std::string paper = "A4";   // "A4", "A3", "A2"
    int windowState = 2;        // the drawing window: 0 none, 1 maximized, 2 normal
    int fontSize = 10;
    int scale = 100;            // %
};
inline constexpr const char* kPapers[] = {"A4", "A3", "A2"};
inline constexpr const char* kWindowStates[] = {"0 = none", "1 = maximized", "2 = normal"};
inline constexpr int kFontSizes[] = {1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 14, 16, 18, 20};

// The efficiency label of a class "A+++" to "G" as vector graphics, `height`
// high with its top left corner at (x, y).
void DrawEfficiencyLabel(DrawingList& d, double x, double y, double height, std::string_view cls);

}  // namespace kv
