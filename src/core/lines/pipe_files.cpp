#include "lines/pipe_files.h"

#include <array>
#include <vector>

#include "lines/insulation.h"
#include "lines/pipe_table.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/separators.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

using Row = std::array<std::string, kPipeFields + 1>;  // items 1..15

// A bound for damaged files only; real tables have a few dozen rows.
constexpr std::size_t kMaxSortedRows = 10000;

std::string Upper(std::string_view s) { return UpperAscii(s); }

// File name of a series without folder and extension, in capitals.
std::string Stem(std::string_view file) {
    const std::size_t slash = file.find_last_of("/\\");
    if (slash != std::string_view::npos) file.remove_prefix(slash + 1);
    const std::size_t dot = file.rfind('.');
    if (dot != std::string_view::npos) file = file.substr(0, dot);
    return Upper(Trim(file));
}

void WriteHeader(RecordWriter& w) { w.Item(kPipeHeaderYear).Item(kPipeHeaderVersion).EndLine(); }

void WriteRow(RecordWriter& w, const Row& r) {
    for (int i = 1; i <= kPipeFields; ++i) w.Item(r[static_cast<std::size_t>(i)]);
    w.EndLine();
}

}  // namespace

bool IsCurrentPipeLayout(RecordReader& in) {
    std::string first, second;
    in.Read(first);
    in.Read(second);
    return first == kPipeHeaderYear || second == kPipeHeaderVersion;
}

std::string MigrateOldPipeText(RecordReader& in, bool spares) {
    RecordWriter w;
    WriteHeader(w);
    std::string oldHeader;
    in.Read(oldHeader);
    std::string pendingName;
    bool havePending = false;
    for (;;) {
        std::string text, daText, diText;
        if (!in.Read(text)) break;
        in.Read(daText);
        in.Read(diText);
        const double da = ToNumber(std::string_view(daText)).value;
        const double di = ToNumber(std::string_view(diText)).value;
        if (da == 0.0 && di == 0.0) break;
        const std::size_t m1 = text.find(sep::PipeMark1);
        if (m1 == std::string::npos) {
            pendingName = text;
            havePending = true;
            continue;
        }
        Row r{};
        r[pipefield::Name] = havePending ? pendingName : text.substr(0, m1);
        havePending = false;
        std::string rest = text.substr(m1 + sep::PipeMark1.size());
        const std::size_t m2 = rest.find(sep::PipeMark2);
        r[pipefield::Price] = rest.substr(0, m2);
        if (m2 != std::string::npos) {
            rest = rest.substr(m2 + sep::PipeMark2.size());
            const std::size_t m3 = rest.find(sep::PipeMark3);
            r[pipefield::Pzul] = rest.substr(0, m3);
            if (m3 != std::string::npos) r[pipefield::Time] = rest.substr(m3 + sep::PipeMark3.size());
        }
        r[pipefield::Da] = daText;
        r[pipefield::Di] = diText;
        if (spares) {
            r[pipefield::Spare1] = da >= 18.0 ? ".3" : "";
            r[pipefield::Spare2] = ".2";
            r[pipefield::Spare3] = ".5";
        }
        for (int i = 12; i <= kPipeFields; ++i) r[static_cast<std::size_t>(i)] = "0";
        WriteRow(w, r);
    }
    return w.Take();
}

int MigratePipeTables(Workspace& ws, int mode) {
    (void)mode;  // the editor and the start run the same conversion
    static constexpr std::array<const char*, 5> kFiles = {"RohrDM.DAT", "RohrDS.DAT", "RohrIN.DAT", "ROHRPI.DAT",
                                                          "ROHRPII.DAT"};
    int rewritten = 0;
    for (std::size_t i = 0; i < kFiles.size(); ++i) {
        if (FileLength(ws, kFiles[i]) == 0) continue;
        RecordReader check = OpenIn(ws, kFiles[i]);
        if (IsCurrentPipeLayout(check)) continue;
        RecordReader in = OpenIn(ws, kFiles[i]);
        const std::string text = MigrateOldPipeText(in, i < 3);
        // Written beside the old file and renamed over it.
        if (WriteFileAtomic(ResolveName(ws, kFiles[i]), text)) ++rewritten;
    }
    return rewritten;
}

bool EnsureK65Table(Workspace& ws) {
    if (FileLength(ws, pipefile::K65) > 0) return false;
    const auto factory = ResolveName(ws, pipefile::K65Factory);
    if (FileLength(factory) == 0) return false;
    return WriteFileAtomic(ResolveName(ws, pipefile::K65), ReadWholeFile(factory));
}

void PreparePipeTables(Workspace& ws) {
    EnsureK65Table(ws);
    MigratePipeTables(ws, 1);
    LoadInsulation(ws);
    if (!Trim(ws.project.RohrDatei).empty()) LoadPipeTable(ws, ws.project.RohrDatei);
}

bool SortPipeFile(Workspace& ws, std::string_view file) {
    if (FileLength(ws, file) == 0) return false;
    RecordReader in = OpenIn(ws, file);
    std::string header;
    in.ReadLine(header);
    struct Entry {
        Row items;
        double da = 0, di = 0;
    };
    std::vector<Entry> rows;
    // The editor shows 40 rows; a sort keeps whatever more the file holds.
    while (!in.AtEnd() && rows.size() < kMaxSortedRows) {
        Entry e;
        for (int i = 1; i <= kPipeFields; ++i) in.Read(e.items[static_cast<std::size_t>(i)]);
        e.da = ToNumber(std::string_view(e.items[pipefield::Da])).value;
        e.di = ToNumber(std::string_view(e.items[pipefield::Di])).value;
        rows.push_back(std::move(e));
    }
    // Bubble sort on da, whole rows moving; passes until nothing moves, so
    // rows of equal da keep their order.
    for (bool moved = true; moved;) {
        moved = false;
        for (std::size_t j = 0; j + 1 < rows.size(); ++j)
            if (rows[j + 1].da < rows[j].da) {
                std::swap(rows[j], rows[j + 1]);
                moved = true;
            }
    }
    RecordWriter w;
    WriteHeader(w);
    for (Entry& e : rows) {
        if (!(e.da > 0.0)) continue;
        e.items[pipefield::Da] = NumberText(e.da);
        e.items[pipefield::Di] = NumberText(e.di);
        WriteRow(w, e.items);
    }
    return WriteFileAtomic(ResolveName(ws, file), w.Text());
}

int SortAllPipeTables(Workspace& ws) {
    int sorted = 0;
    for (const char* f : {pipefile::CopperMetric, pipefile::K65, pipefile::CopperInch, pipefile::Steel})
        if (SortPipeFile(ws, f)) ++sorted;
    return sorted;
}

std::string FactoryCopyOf(std::string_view pipeFile) {
    const std::string stem = Stem(pipeFile);
    if (stem == "ROHRK65") return pipefile::K65Factory;
    if (stem == "ROHRDM") return pipefile::CopperMetricFactory;
    if (stem == "ROHRDS") return pipefile::SteelFactory;
    if (stem == "ROHRIN") return pipefile::CopperInchFactory;
    return {};
}

}  // namespace kv
