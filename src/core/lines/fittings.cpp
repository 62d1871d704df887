#include "lines/fittings.h"

#include <array>
#include <cmath>

#include "lines/pipe_table.h"
#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/workspace.h"

namespace kv {

namespace {

struct KindEntry {
    int kind;
    const char* file;
    const char* source;
};

constexpr std::array<KindEntry, 20> kKinds = {{
    {1, "K1Tstk.dat", "RohrDM.DAT"},  {2, "K2Tstk.dat", "RohrIN.DAT"},  {3, "S3Tstk.dat", "RohrDS.DAT"},
    {4, "P4Tstk.dat", "ROHRPI.DAT"},  {5, "P5Tstk.dat", "ROHRPII.DAT"}, {6, "K1_RED.dat", "RohrDM.DAT"},
    {7, "K2_RED.dat", "RohrIN.DAT"},  {8, "S3_RED.dat", "RohrDS.DAT"},  {9, "P4_RED.dat", "ROHRPI.DAT"},
    {10, "P5_RED.dat", "ROHRPII.DAT"}, {11, "K1OelS.dat", "RohrDM.DAT"}, {12, "K2OelS.dat", "RohrIN.DAT"},
    {13, "STOelS.dat", "RohrDS.DAT"}, {14, "K1DblR.dat", "RohrDM.DAT"}, {15, "K2DblR.dat", "RohrIN.DAT"},
    {16, "STDblR.dat", "RohrDS.DAT"}, {21, "", "RohrK65.dat"},          {26, "", "RohrK65.dat"},
    {31, "", "RohrK65.dat"},          {34, "", "RohrK65.dat"},
}};

const KindEntry* Find(int kind) {
    for (const KindEntry& e : kKinds)
        if (e.kind == kind) return &e;
    return nullptr;
}

// Assembly minutes of a reducer: they follow the larger size only.
std::string ReducerMinutes(double da) {
    long long minutes = 0;
    if (!(da >= 0) || !IntegerPart(std::sqrt(da) + 5.0, minutes)) return "0";
    return std::to_string(minutes);
}

void WriteRow(RecordWriter& w, const std::string& key, const std::string& label, const std::string& minutes) {
    w.Item(key).Item(label).Item("").Item("").Item(minutes).Item("").Item("").Item("").EndLine();
}

}  // namespace

FittingClass FittingClassOf(int kind) {
    if ((kind >= 1 && kind <= 5) || kind == 21) return FittingClass::Tee;
    if ((kind >= 6 && kind <= 10) || kind == 26) return FittingClass::Reducer;
    if ((kind >= 11 && kind <= 13) || kind == 31) return FittingClass::OilTrap;
    if ((kind >= 14 && kind <= 16) || kind == 34) return FittingClass::DoubleRiser;
    return FittingClass::None;
}

std::string_view FittingTableFile(int kind) {
    const KindEntry* e = Find(kind);
    return e ? std::string_view(e->file) : std::string_view();
}

std::string_view FittingSource(int kind) {
    const KindEntry* e = Find(kind);
    return e ? std::string_view(e->source) : std::string_view();
}

std::string FittingCaption(const Workspace& ws, FittingClass c) {
    // The English word stands in when no caption table is loaded.
    auto word = [&](Cap cap, const char* fallback) {
        const std::string& w = ws.captions[cap];
        return w.empty() ? std::string(fallback) : w;
    };
    switch (c) {
    case FittingClass::Tee: return word(Cap::Tee, "Tee");
    case FittingClass::Reducer: return word(Cap::Reducer, "Reducer");
    case FittingClass::OilTrap: return word(Cap::OilTrap, "Oil trap");
    case FittingClass::DoubleRiser: return word(Cap::DoubleRiser, "Double riser");
    case FittingClass::None: break;
    }
    return {};
}

std::string FittingRows(RecordReader& in, int kind, std::string_view caption) {
    RecordWriter w;
    const FittingClass cls = FittingClassOf(kind);
    if (cls == FittingClass::None || kind > kFittingTableCount) return {};
    const std::string cap(caption);
    std::string header;
    in.ReadLine(header);
    // d[0] and s[0] are the current row's da text and name, d[1] to d[3] the
    // rows before it.
    std::array<std::string, 4> d{}, s{};
    long long n = 0;
    while (!in.AtEnd()) {
        std::array<std::string, kPipeFields + 1> f{};
        for (int i = 1; i <= kPipeFields; ++i) in.Read(f[static_cast<std::size_t>(i)]);
        const double da = ToNumber(std::string_view(f[pipefield::Da])).value;
        const double di = ToNumber(std::string_view(f[pipefield::Di])).value;
        if (da == 0.0 && di == 0.0) break;
        ++n;
        for (int i = 3; i > 0; --i) {
            d[static_cast<std::size_t>(i)] = d[static_cast<std::size_t>(i) - 1];
            s[static_cast<std::size_t>(i)] = s[static_cast<std::size_t>(i) - 1];
        }
        d[0] = std::string(Trim(f[pipefield::Da]));
        s[0] = std::string(Trim(f[pipefield::Name]));

        switch (cls) {
        case FittingClass::Tee:
        case FittingClass::OilTrap:
            WriteRow(w, d[0], cap + " " + s[0], "");
            break;
        case FittingClass::Reducer: {
            if (n < 3) break;
            const std::string minutes = ReducerMinutes(da);
            // The largest step first.
            for (std::size_t k : {std::size_t{3}, std::size_t{2}, std::size_t{1}}) {
                if (k == 3 && n <= 3) continue;
                const std::string key = d[0] + "-" + d[k];
                std::string sizes;
                if (kind == 6) sizes = key;
                else if (kind == 7) sizes = s[0] + "-" + s[k];
                else sizes = s[0] + "-" + d[k];
                WriteRow(w, key, cap + " " + sizes, minutes);
            }
            break;
        }
        case FittingClass::DoubleRiser: {
            if (n < 3) break;
            const std::array<std::string, 4>& v = kind == 15 ? s : d;
            const std::string& a = v[2];
            const std::string& b = v[1];
            const std::string& c = v[0];
            for (const std::string& key : {c + "/" + a + "/" + a, c + "/" + b + "/" + a, c + "/" + b + "/" + b})
                WriteRow(w, key, cap + " " + key, "");
            break;
        }
        case FittingClass::None:
            break;
        }
    }
    return w.Take();
}

bool GenerateFittingTable(Workspace& ws, std::string_view target, int kind) {
    const KindEntry* e = Find(kind);
    if (!e) return false;
    std::string rows;
    if (kind <= kFittingTableCount) {
        RecordReader in = OpenIn(ws, e->source);
        rows = FittingRows(in, kind, FittingCaption(ws, FittingClassOf(kind)));
    }
    return WriteFileAtomic(ResolveName(ws, target), rows);
}

int EnsureFittingTables(Workspace& ws) {
    int written = 0;
    for (int kind = 1; kind <= kFittingTableCount; ++kind) {
        const std::string_view file = FittingTableFile(kind);
        if (FileLength(ws, file) > 0) continue;
        if (GenerateFittingTable(ws, file, kind)) ++written;
    }
    return written;
}

}  // namespace kv
