// The Matchcode: per component group two text index files, <code>I.dat and
// <code>C.dat, that list the series of all installed catalogues, so that a
// selection screen finds the series of a group without opening every
// catalogue. Also the per-refrigerant compressor lists.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

// Progress of a rebuild, 0 to 100.
using MatchcodeProgress = std::function<void(int percent)>;

// The name of the index file of a group code and letter: "250I.dat".
std::string IndexFileName(int code, char letter);

// Rebuilds all 36 index files from the catalogues of katalg.lst. Returns the
// number of index rows written.
int BuildMatchcode(const Workspace& ws, const MatchcodeProgress& progress = {});
// The test at start: the index 300I.dat empty, or its first field "0".
bool MatchcodeNeeded(const Workspace& ws);
// Rebuilds when the test at start asks for it; true when it did.
bool EnsureMatchcode(const Workspace& ws, const MatchcodeProgress& progress = {});

// A series of a group as a selection lists it.
struct SeriesEntry {
    std::string base;
    std::string title;
    std::string series;
    int position = 0;  // record position of the series, code + 2
    // The grid cell: the visible title and, behind "#$§", the hidden base.
    std::string Cell() const;
};
// Splits a grid cell into title and base again.
void SplitCell(std::string_view cell, std::string& title, std::string& base);

// The series of index `<code><letter>.dat` whose names have at least three
// characters and which Prodhide.dat does not hide.
std::vector<SeriesEntry> LookupSeries(const Workspace& ws, int code, char letter);

// The series one catalogue lists under a group code, as BuildMatchcode
// indexes them: (slot, name, position).
struct CatalogueSeries {
    int slot = 0;
    std::string name;
    int position = 0;
};
std::vector<CatalogueSeries> CatalogueSeriesForGroup(const Workspace& ws, std::string_view base, int code);

// <REFRIGERANT>.LST: the compressor series for a refrigerant, rows of
// catalogue file, series name and old-style position. An empty or missing
// list is built from the first compressor catalogue of katalg.lst.
struct CompressorSeries {
    std::string file;
    std::string series;
    int oldPosition = 0;
};
std::vector<CompressorSeries> CompressorList(const Workspace& ws, std::string_view refrigerant);

}  // namespace kv
