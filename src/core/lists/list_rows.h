// The list files of a plant: the parts list of fittings (Stklst.DAT), the
// main units (Vrdlst.DAT), the pipe runs (Rhrltg.DAT), the small pipe parts
// (Flansh.DAT), the wiring (Wire.dat) and the pressure equipment
// (PEDlist.dat), each beside a change file that keeps the inputs of the
// selection behind a row. Every item is a quoted string; a reader takes items
// by count, never by line.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

namespace lists {
inline constexpr std::string_view kParts = "Stklst.DAT";
inline constexpr std::string_view kPartsChange = "V_CHANGE.DAT";
inline constexpr std::string_view kUnits = "Vrdlst.DAT";
inline constexpr std::string_view kUnitsChange = "A_CHANGE.DAT";
inline constexpr std::string_view kPipes = "Rhrltg.DAT";
inline constexpr std::string_view kFittings = "Flansh.DAT";
inline constexpr std::string_view kWiring = "Wire.dat";
inline constexpr std::string_view kPed = "PEDlist.dat";
inline constexpr std::string_view kCharge = "FuellM.dat";
inline constexpr std::string_view kComponentResults = "ergDt1.DAT";
inline constexpr std::string_view kLineResults = "ergDt2.DAT";
inline constexpr std::string_view kLineSizes = "akLeit1.dat";

inline constexpr int kPartsHeader = 14;    // items of the Stklst.DAT header
inline constexpr int kHeader = 4;          // items of the other headers
inline constexpr int kUnitRow = 9;         // Stklst.DAT and Vrdlst.DAT rows
inline constexpr int kPipeRow = 5;         // Rhrltg.DAT and Wire.dat rows
inline constexpr int kFittingRow = 7;      // Flansh.DAT rows
inline constexpr int kPedRow = 11;         // PEDlist.dat rows
inline constexpr int kChangeGenerated = 25;  // a change block as the generation writes it
inline constexpr int kChangeSaved = 24;      // as the parts list screen writes it
}  // namespace lists

// A list file read by item count: the header, then whole rows. A row cut
// short at the end of the file is kept with its missing items empty.
struct ListFile {
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
};
// `headerItems` 0 for a file without header. A missing file reads empty.
ListFile ReadListFile(const Workspace& ws, std::string_view name, int headerItems, int rowItems);
ListFile ParseListText(std::string text, int headerItems, int rowItems);

// The row and header sizes of a known list name; false for another name.
bool ListLayout(std::string_view name, int& headerItems, int& rowItems);

// The change blocks of a change file, `items` per block.
std::vector<std::vector<std::string>> ReadChangeBlocks(const Workspace& ws, std::string_view name, int items);

// The two charges of FuellM.dat, kg; 0 where the file has none.
std::array<double, 2> ReadCharge(const Workspace& ws);

// The four items of a list header: project name, description, date text,
// plant type word.
std::array<std::string, 4> ListHeader(const Workspace& ws);

// Writes a whole list text through the workspace's file layer (so that the
// file memory forgets the old content), replacing or appending.
bool WriteListText(const Workspace& ws, std::string_view name, const std::string& text, bool append = false);

// The text of a pressure behind the first "$§$" of a change item; empty
// without the mark.
std::string PressureOfChangeItem(std::string_view item);

}  // namespace kv
