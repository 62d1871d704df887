// Picking a catalogue article for one component of the plant: the series that
// serves the component's kind (AddrNeu.LST, Sole.LST in a brine plant) is
// read once, every row is rated at the plant's state by the rule of its kind,
// and the first row that meets the duty is taken. Main units and fittings the
// user picked beforehand stand in the parks Verdpark.dat and Armapark.dat.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/article.h"
#include "catalogue/catalogue.h"
#include "lines/pipe_table.h"

namespace kv {

struct Workspace;
struct SelectionFiles;

// The mode word of a selection run.
enum SelectModeValue : int {
    SelectNormal = 0,
    SelectStored = 44,        // takes a stored article, with the stored figure as duty
    SelectRateOnly = 55,      // rates without writing anything
    SelectNoAccessories = 77, // skips the accessory blocks
    SelectReselect = 88,      // re-selects from the record of a list row
    SelectNothing = 113,      // the call does nothing
    SelectReselectRow = 188,  // as 88
    SelectToFittingsPark = 444,  // writes the taken row into Armapark.dat
};

// What a selection keeps between its calls: the mode word, the pressure drop
// of the last article, the two charge sums of vessels and valves in the lines
// and the condensing temperature at which the last adopted expansion valve
// reaches its duty.
struct SelectionState {
    int mode = SelectNormal;
    double lastDrop = 0.0;                // mbar
    double chargeFirst = 0.0, chargeSecond = 0.0;  // kg
    double valveCondensingC = 0.0;        // °C, whole degrees
    bool valveCondensingSet = false;
    double storedFigure = 0.0;            // mode 44: the duty of the stored article
    double storedExtra = 0.0;             // mode 44: added to a heat exchanger's duty
    // Set for a run over many components (the list generation): the series
    // list, the parks and the series read are kept here and read only once.
    std::shared_ptr<SelectionFiles> files;
};

// The arguments of one call.
struct SelectRequest {
    double first = 0.0;   // mass flow kg/s, capacity kW or charge kg, by kind
    double second = 0.0;  // density kg/m³
    int kind = 0;
    std::string lineName;
    std::string lineSize;
    int flagA = 1, flagB = 0;
    std::string catalogueFile;  // modes 44, 88, 188 and an explicit series
    long long record = 0;       // the fixed record in modes 44, 88, 188
    double tenth = 0.0;
    int position = 0;           // with catalogueFile: the series position to rate instead of the list's
    bool wholeSeries = false;   // rate the rows behind the taken one too (for showing the series)
    int section = 0;            // line section 1..8 of the component's line; 0 for a unit
    int quantity = 1;           // how many of it the line holds
    std::string secondLine;     // the line a component joins to the first one (liquid-suction exchanger)
    std::string secondSize;
};

// The plant's state as the rating rules read it.
struct PlantDuty {
    std::string fluid;
    std::string plantType;   // in capitals
    double pCond = 0.0, pEvap = 0.0;            // bar
    double tEvapK = 0.0, tCondK = 0.0;
    double massFlow = 0.0;                      // kg/s of the plant
    double dpLiquid = 0.0, dpSuction = 0.0, dpDischarge = 0.0;  // mbar
    double partLoad = 100.0;                    // %
    std::string dtVerd, dtKond;                 // as typed; empty takes the rated difference
    bool brine = false;
    bool brineEvaporator = false;
    double designPressureRatio = 4.35, charB = 0.9, charC = 0.0, charD = 0.0, charE = 0.01;
};
PlantDuty DutyOf(const Workspace& ws);

// The rating of one row. Figures a kind does not have stay 0.
struct RatedRow {
    int row = 0;               // 1..48
    long long record = 0;
    std::string type;
    double capacity = 0.0;     // kW at the plant's state, or content in kg for a receiver
    double kvNeeded = 0.0, drop = 0.0, share = 0.0;  // valves
    double requiredSweptVolume = 0.0;                // compressors, m³/h
    double neededVolume = 0.0;                       // receivers, dm³
    double velocity = 0.0;                           // electronic valves, m/s in the port
    bool passes = false;
};

// The whole result of a call.
struct SelectionResult {
    bool skipped = false;      // empty line size, flag 0 or mode 113: nothing selected
    bool fromPark = false;     // copied from Verdpark.dat or Armapark.dat
    std::string message;       // why nothing was found, or the status line
    std::string catalogueFile;
    int position = 0;
    double duty = 0.0;
    std::vector<RatedRow> rows;
    long long taken = 0;       // record of the taken article; 0: the empty article
    Article article;           // the taken article; " - " when none
    std::string sizeText;      // connection size text of the row
    std::array<std::string, 9> listRow;  // the row for the parts list
    std::vector<std::array<std::string, 4>> accessories;  // count, order number, type I, type II
    std::array<std::string, 25> parkedChange{};  // the change block of a parked article
};

// Text of the empty article, and the designation it carries.
inline constexpr std::string_view kEmptyArticle = " - ";
inline constexpr std::string_view kEmptyArticleText = "  -";

// Default connection text of a kind; "28" for a kind not listed.
std::string DefaultConnection(int kind);
// The group code (section) of a kind: 0 for kind 0, 50 for kind 1, ...
int KindGroupCode(int kind);
// The line of AddrNeu.LST (slot, 1..18) that serves a kind.
int KindSlot(int kind);
// Main units: 12, 13, 14, 17, 23, 33.
bool IsMainUnitKind(int kind);
// Position of a main unit in Verdpark.dat: 13, 23, 33 (and 1, 11, 21) 1;
// 12 (and 0) 2; 14 (and 2) 3; others 4.
int ParkPosition(int kind);
// A designation of the electronic valve list.
bool IsElectronicValve(std::string_view type);

// Rates one row by the rule of its kind. `lambda` and `massFlow` are the
// compressor's volumetric efficiency at this row and the plant's mass flow.
RatedRow RateRow(const PlantDuty& d, const SelectRequest& q, const Article& a, int row, double lambda = 0.75);

// The duty of a heat exchanger row: cut to 0.05 kW, above 20 kW to whole kW.
double HeatExchangerDuty(double first);

// The whole call: series found, rows rated, article taken, state updated.
SelectionResult SelectComponent(Workspace& ws, SelectionState& state, const SelectRequest& q);

// One line of AddrNeu.LST or Sole.LST.
struct SeriesChoice {
    std::string caption;
    std::string file;
    int position = 0;
};
std::vector<SeriesChoice> ReadSeriesChoices(const Workspace& ws, bool brine);
bool WriteSeriesChoices(const Workspace& ws, bool brine, const std::vector<SeriesChoice>& list);

// A park entry: the 9 items of a list row and the 25 of its change block.
struct ParkEntry {
    std::array<std::string, 9> row;
    std::array<std::string, 25> change;
};
inline constexpr std::string_view kMainUnitPark = "Verdpark.dat";
inline constexpr std::string_view kFittingsPark = "Armapark.dat";
inline constexpr std::string_view kMainUnitScratch = "VDablage.dat";
inline constexpr std::string_view kFittingsScratch = "Armaablage.dat";
std::vector<ParkEntry> ReadPark(const Workspace& ws, std::string_view file);
// Puts `entry` at `position` (from 1) of the park, filling the entries
// before it blank; the old park goes to its scratch copy first.
bool PutParkEntry(const Workspace& ws, std::string_view file, int position, const ParkEntry& entry);
// Adds or replaces the fittings park entry of the same kind and line.
bool PutFittingsEntry(const Workspace& ws, const ParkEntry& entry);
// Empties both parks.
void ClearParks(const Workspace& ws);
// A series read row by row as far as a selection needs it, the record file
// opened once.
class SeriesRows {
public:
    SeriesRows(const Workspace& ws, std::string_view base, int position);
    ~SeriesRows();
    SeriesRows(SeriesRows&&) noexcept;
    SeriesRows& operator=(SeriesRows&&) noexcept;
    // Row i from 0; nullptr past the end of the series.
    const SeriesArticle* Row(std::size_t i);

private:
    struct Reader;
    std::unique_ptr<Reader> in_;
    std::vector<SeriesArticle> rows_;
    long long position_ = 0;
    bool ended_ = false;
};

// The files of a run over many components, each read on first use.
struct SelectionFiles {
    bool choicesRead = false, mainParkRead = false, fittingsParkRead = false, dutyRead = false;
    PlantDuty duty;
    std::vector<SeriesChoice> choices;
    std::vector<ParkEntry> mainPark, fittingsPark;
    std::map<std::pair<std::string, int>, SeriesRows> series;
    bool inchRead = false;
    PipeTable inch;  // the inch series, for connections named in inches
};

// The connection of an article in mm: a name in inches ("5/8'", "1 1/8'")
// is looked up in the inch pipe series and gives its outside diameter; a
// name of the metric series ("22 x 1") gives its outside diameter too; any
// other text stands as it is.
std::string ConnectionMillimetres(const Workspace& ws, const PipeTable& inch, std::string_view text);

// The park entry of a taken article.
ParkEntry ParkEntryOf(const SelectionResult& r, const SelectRequest& q);

}  // namespace kv
