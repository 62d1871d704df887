// The parsed property tables of the data directory. A calculation makes
// dozens of look-ups; the rows of each file are parsed once and held in the
// workspace. Whether a file changed on disk (the time of its last write) is
// asked once per calculation, or after the program itself wrote a file of
// the workspace, never on each look-up: an edited table is seen by the next
// calculation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "cycle/cycle_state.h"
#include "refrigerant/superheat_table.h"

namespace kv {

// A saturation table: the rows before the end of the file or before a
// terminator row (fields 1 and 3 zero), units converted and densities cut to
// two decimals as the reader delivers them.
struct SaturationTable {
    std::vector<SatRow> rows;
    bool terminated = false;  // the file ended in a terminator row
    // The temperature step when every row is that far from the one before
    // (5 K in the factory tables), else 0: a look-up computes its row.
    double gridStep = 0.0;
    bool present = false;     // the file exists and has content
    // Why the table was refused (no rows then): longer than any real table
    // or its temperatures not rising. Empty for a table in use.
    std::string refusal;
};

// The factory tables hold 17 to 50 rows; a table far beyond that is damaged
// and would cost every look-up and every drawing a walk through all of it.
inline constexpr std::size_t kMaxSaturationRows = 2000;

// One row of the supercritical CO2 table.
struct SupercriticalRow {
    double t = 0.0;    // °C
    double p = 0.0;    // bar
    double h = 0.0;    // kJ/kg
    double rho = 0.0;  // kg/m³
    double cp = 0.0;   // kJ/(kg K)
    double eta = 0.0;  // Pa s
};
struct SupercriticalTable {
    std::vector<SupercriticalRow> rows;
    bool sortedByT = false;  // rows ascend in t: a scan may start at the first row of its temperature
    bool present = false;
};

// Parsing, without any cache: the file's bytes to rows.
SaturationTable ParseSaturationTable(std::string_view text, std::string_view fileName);
SupercriticalTable ParseSupercriticalTable(std::string_view text);

class PropertyCache {
public:
    // The table `fileName` of `dataDir`, parsed when first asked for and again
    // when the file has changed.
    const SaturationTable& Saturation(const std::filesystem::path& dataDir, const std::string& fileName);
    const SupercriticalTable& Supercritical(const std::filesystem::path& dataDir, const std::string& fileName);
    // The superheated-vapour table of the reference check: parsed at the
    // first look-up and then held for the run without looking at the file
    // again (factory data that no screen edits; every calculation asks).
    // The directory comes as text: no path is built on a look-up.
    const SuperheatTable& Superheat(const std::string& dataDir, const std::string& fileName);
    // Forgets everything: the next look-ups read the files anew.
    void Clear();
    // The files may have changed: the next look-up of each table asks the
    // file system once for its time of last write. A calculation begins
    // with this; a write through the file routines does it as well.
    void LookAgain() const { ++round_; }
    // Every look-up opens and parses its file anew, as the tables were read
    // before they were held: only for measuring what holding them saves.
    bool rereadEveryLookUp = false;

private:
    struct Stamp {
        std::filesystem::file_time_type time{};
        bool operator==(const Stamp&) const = default;
    };
    template <class Table>
    struct Entry {
        std::filesystem::path path;
        Stamp stamp;
        Table table;
        bool loaded = false;
        unsigned long long checkedRound = 0;  // the round in which the stamp was last asked
    };
    template <class Table, class Parse>
    const Table& Get(std::map<std::string, Entry<Table>>& entries, const std::filesystem::path& dataDir,
                     const std::string& fileName, Parse parse);
    template <class Table, class Parse>
    const Table& Refresh(Entry<Table>& entry, const std::filesystem::path& dataDir, const std::string& fileName,
                         Parse parse);

    std::map<std::string, Entry<SaturationTable>> saturation_;
    std::map<std::string, Entry<SupercriticalTable>> supercritical_;
    std::map<std::string, SuperheatTable> superheat_;
    mutable unsigned long long round_ = 1;
    // The saturation table asked for last, found without building its path.
    // A copy or a move starts without it: it points into the map it came from.
    struct LastHit {
        Entry<SaturationTable>* entry = nullptr;
        LastHit() = default;
        LastHit(const LastHit&) {}
        LastHit& operator=(const LastHit&) {
            entry = nullptr;
            return *this;
        }
    };
    std::string lastSatDir_, lastSatFile_;
    LastHit lastSat_;
};

}  // namespace kv
