// The pipe tables: one text file per tube series, a row per size with outside
// and inside diameter, permitted pressure, assembly time and prices. One
// series at a time is loaded for the calculation; line sizing picks its rows
// by inside diameter, lists and costing by name.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kv {

struct Workspace;
class RecordReader;

// The series files as the project names them. Names match without regard to
// case, so "ROHRDM.DAT" and "RohrDM.dat" are the same file.
namespace pipefile {
inline constexpr const char* CopperMetric = "RohrDM.DAT";
inline constexpr const char* CopperInch = "RohrIN.DAT";
inline constexpr const char* Steel = "RohrDS.DAT";
inline constexpr const char* SeriesOne = "ROHRPI.DAT";
inline constexpr const char* SeriesTwo = "ROHRPII.DAT";
inline constexpr const char* K65 = "RohrK65.DAT";
inline constexpr const char* User = "RohrUSER.DAT";
// The untouched factory copies beside the working files.
inline constexpr const char* CopperMetricFactory = "RohrDM.STD";
inline constexpr const char* CopperInchFactory = "RohrIN.STD";
inline constexpr const char* SteelFactory = "RohrDS.STD";
inline constexpr const char* K65Factory = "RohrK65.STD";
}  // namespace pipefile

// Version header of a pipe table file.
inline constexpr const char* kPipeHeaderYear = "2008";
inline constexpr const char* kPipeHeaderVersion = "7.01";
// Items of one pipe row in the file.
inline constexpr int kPipeFields = 15;
// Rows the calculation keeps; the editor holds more.
inline constexpr int kPipeRows = 30;

// The field numbers of a pipe row, 1-based as in the file.
namespace pipefield {
inline constexpr int Name = 1;
inline constexpr int Da = 2;         // outside diameter, mm
inline constexpr int Di = 3;         // inside diameter, mm
inline constexpr int Spare1 = 4;
inline constexpr int Spare2 = 5;
inline constexpr int Spare3 = 6;
inline constexpr int Time = 7;       // assembly minutes per metre
inline constexpr int Material = 8;   // material price per metre
inline constexpr int Labour = 9;     // labour price per metre
inline constexpr int Price = 10;     // total price per metre
inline constexpr int Pzul = 11;      // permitted pressure, bar gauge
}  // namespace pipefield

// The active series in memory: parallel arrays indexed from 1 to
// PipeRowCount (at most 30); index 0 stays empty.
struct PipeTable {
    std::string file;  // the file it was loaded from
    int PipeRowCount = 0;
    std::array<std::string, kPipeRows + 1> PipeName{};
    std::array<double, kPipeRows + 1> PipeDa{};        // mm
    std::array<double, kPipeRows + 1> PipeDi{};        // mm
    std::array<std::string, kPipeRows + 1> PipePriceText{};  // total price per metre
    std::array<double, kPipeRows + 1> PipePzul{};      // bar gauge
    std::array<std::string, kPipeRows + 1> PipeTimeText{};   // minutes per metre

    // True for 1..PipeRowCount.
    bool HasRow(int row) const { return row >= 1 && row <= PipeRowCount; }
    // Inside diameter of a row; 0 outside the table.
    double Di(int row) const { return HasRow(row) ? PipeDi[static_cast<std::size_t>(row)] : 0.0; }
    double Da(int row) const { return HasRow(row) ? PipeDa[static_cast<std::size_t>(row)] : 0.0; }
    const std::string& Name(int row) const;
};

// What reading a table met.
struct PipeTableRead {
    int rows = 0;            // rows kept, the end row included
    bool overflow = false;   // rows stood past the thirtieth and were refused
};

// Reads a pipe table text into `table`: the header line is passed over, then
// rows of 15 items until the end of the text. A row with da and di both 0
// ends the table and stays counted. Rows past the thirtieth are not taken.
// Unreadable numbers count as 0.
PipeTableRead ReadPipeTable(RecordReader& in, PipeTable& table);

// Loads `name` (a bare name lives in the data directory) into ws.pipes. A
// table longer than 30 rows is cut there and the user is told. Returns the
// row count. A missing file leaves an empty table.
int LoadPipeTable(Workspace& ws, std::string_view name);
// The same into a table of the caller's; `warn` shows the overflow message.
int LoadPipeTable(Workspace& ws, std::string_view name, PipeTable& table, bool warn);

// Looks up the active table (modes 1-6) or another series by name (modes
// 7-11, 21). Modes:
//  1 first row with value <= da: its di (0 if none)
//  2 first row with value <= di: its da (0 if none)
//  3 first row with value <= di: its index (PipeRowCount if none)
//  4 first row with value <= da: its index (PipeRowCount if none)
//  5 row whose trimmed name equals the trimmed name: index (1 if none); an
//    empty name gives 0 at once
//  6 row whose name in capitals, cut before its first "X", equals the name:
//    index (1 if none)
//  7 "RohrDM.dat", names cut before the first "x": da (0 if none)
//  8 "RohrIN.std", names cut before the first "'", blanks removed: da
//  9, 10, 11, 21 "RohrDS.DAT", "RohrPI.DAT", "RohrPII.DAT", "RohrK65.DAT",
//    trimmed names equal: da
// Modes 7 to 21 read their series into ws.pipes and end by loading the
// project's own table again, so they must not be called inside a loop over
// the active table. Any other mode gives 0.
double PipeLookup(Workspace& ws, double value, int mode, std::string_view name);
// Modes 1 to 6 on a table of the caller's.
double PipeLookup(const PipeTable& table, double value, int mode, std::string_view name);

// The fitting family of a size name and the files and label that go with it.
// what: 1 the tee file, 2 the reducer file, 3 the label of the series, any
// other the pipe file. A K65 name, and a name that matches no family, take the
// metric copper entries ("K1Tstk.dat", "K1_RED.dat", the pipe caption,
// "RohrDM.dat").
std::string ClassifyPipeName(const Workspace& ws, std::string_view name, int what);

// The caption tag of a series on the editor: " - SI", " - inch", " - K65" or
// empty.
std::string SeriesTag(std::string_view pipeFile);

// Density of the tube material of a series, kg/m³, for the weight read-out:
// copper 8940, K65 (CuFe2P) 8910, steel 7850, stainless 7900, PE 960; the
// user's series is taken as copper.
double MetalDensity(std::string_view pipeFile);

}  // namespace kv
