#include "refrigerant/registry.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "project/project.h"
#include "shell/captions.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace {

using Names = std::vector<std::string>;

// The standard spellings of a name: "R404A" gives R404A, R404a, R 404A,
// R 404a, r404A, r404a, r 404A, r 404a; a name without a final letter
// ("R32") gives R32, R 32, r32, r 32.
Names Std(std::string_view base) {
    const std::string number(base.substr(1));
    Names out;
    const char last = number.empty() ? '0' : number.back();
    const bool letter = (last >= 'A' && last <= 'Z') || (last >= 'a' && last <= 'z');
    for (const char* prefix : {"R", "R ", "r", "r "}) {
        if (!letter) {
            out.push_back(prefix + number);
            continue;
        }
        std::string upper = number, lower = number;
        upper.back() = static_cast<char>(std::toupper(static_cast<unsigned char>(last)));
        lower.back() = static_cast<char>(std::tolower(static_cast<unsigned char>(last)));
        out.push_back(prefix + upper);
        out.push_back(prefix + lower);
    }
    return out;
}

Names Join(std::initializer_list<Names> lists) {
    Names out;
    for (const Names& l : lists) out.insert(out.end(), l.begin(), l.end());
    return out;
}

// The sixteen spellings of the two HFOs: "HFO" or "R", with or without a
// blank before "1234", and four cases of the suffix.
Names Hfo(std::string_view suffix) {
    Names out;
    const std::string up = UpperAscii(suffix);
    std::string low = up;
    for (char& c : low) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const std::string cases[4] = {up, low, std::string{up[0], low[1]}, std::string{low[0], up[1]}};
    for (const char* prefix : {"HFO", "R"})
        for (const char* blank : {"", " "})
            for (const std::string& c : cases) out.push_back(std::string(prefix) + blank + "1234" + c);
    return out;
}

struct ChainRow {
    Names names;
    const char* canonical;  // nullptr: the spelling that matched stays
    std::optional<int> tmin;
    std::optional<int> tmax;
};

const Names& AmmoniaAliases() {
    static const Names a = {"R 717", "NH3", "NH 3", "AMMONIAKO", "r 717", "r717", "nh 3", "Nh3", "nH3", "N h3", "nH 3"};
    return a;
}

// The normalisation chain. Its order is part of the behaviour: the first
// match wins, so "AMMONIAK" and "R717" keep their spelling and tmax 100 while
// the other ammonia spellings reach row 30 much later.
const std::vector<ChainRow>& Chain() {
    static const std::vector<ChainRow> chain = [] {
        std::vector<ChainRow> c = {
            {{"AMMONIAK", "R717"}, nullptr, std::nullopt, 100},
            {Std("R11"), "R11", -30, 65},
            {Std("R12"), "R12", -60, 70},
            {{"R13"}, nullptr, -90, 25},
            {Std("R13B1"), "R13B1", -60, 65},
            {Join({Std("R50"), {"METHAN"}}), "R50", -160, -95},
            {Join({Std("R170"), {"ETHAN"}}), "R170", -95, 25},
            {{"R1150", "ETHYLEN"}, nullptr, -110, 0},
            {{"R14"}, nullptr, -140, -50},
            {{"R22"}, nullptr, -60, 70},
            {{"R23"}, nullptr, -115, 65},
            {{"R508A", "R508a", "R 508A", "R 508a"}, "R508A", -105, 65},
            {{"R508B", "R508b", "R 508B", "R 508b"}, "R508B", -105, 65},
            {Std("R32"), "R32", -50, 65},
            {{"R502"}, nullptr, -60, 65},
            {{"R290_600"}, nullptr, -20, 75},
            {{"PROPAN", "R290", "R 290", "PROPANO", "r290", "r 290"}, "R290", -70, 85},
            {{"PROPYLEN", "PROPEN", "R1270", "R 1270", "r1270", "r 1270"}, "R1270", -70, 85},
            {Std("R600A"), "R600a", -40, 105},
            {{"R152A", "R152a"}, "R152a", -50, 70},
            {Hfo("YF"), "HFO1234YF", -30, 80},
            {Hfo("ZE"), "HFO1234ZE", -30, 75},
            {Std("R134A"), "R134a", -60, 85},
            // The lower-case R134a spellings listed for R471A never fire: the
            // R134a row above takes them.
            {{"R471A", "R471a", "R 471A", "R 471a", "r134A", "r134a", "r 134A", "r 134a"}, "R471A", -60, 85},
            {Std("R438A"), "R438A", -60, 70},
            {Std("R437A"), "R437A", -40, 80},
            {Std("R513A"), "R513A", -60, 85},
            {Std("R515B"), "R515B", -60, 75},
            {Std("R450A"), "R450A", -60, 85},
            {AmmoniaAliases(), "R717", -70, std::nullopt},
            {Std("R507"), "R507", -90, 65},
            {{"R123", "R723"}, nullptr, -60, 65},
        };
        for (const char* n : {"R401A", "R401B", "R402A", "R402B", "R452A", "R404A"}) c.push_back({Std(n), n, -60, 65});
        for (const char* n : {"R408A", "R409A", "R443A"}) c.push_back({Std(n), n, -50, 65});
        c.push_back({Std("R432B"), "R432B", -45, 65});
        c.push_back({Std("R454C"), "R454C", -40, 65});
        c.push_back({{"R413A", "ISC_49", "ISC_59", "R417A", "ISC_79", "ISC_29", "FX_90", "RS45", "R422A", "R422D",
                      "R427A", "R437A"},
                     nullptr, -40, 65});
        c.push_back({{"ISC_89"}, nullptr, -60, 65});
        c.push_back({{"ISC_69L", "R403B", "R403b", "ISC69L", "R 403B", "R 403b", "r403B", "r403b", "isc69l", "r 403B",
                      "r 403b"},
                     "R403B", -55, 65});
        c.push_back({Std("R407C"), "R407C", -50, 65});
        c.push_back({Std("R407F"), "R407F", -55, 65});
        c.push_back({Std("R407H"), "R407H", -50, 65});
        c.push_back({{"AC9000"}, nullptr, -50, 65});
        c.push_back({Std("R407A"), "R407A", -45, 65});
        for (const char* n : {"R449A", "R448A", "R454A", "R454B"}) c.push_back({Std(n), n, -55, 65});
        c.push_back({{"HX4"}, nullptr, -50, 65});
        c.push_back({Std("R455A"), "R455A", -50, 65});
        c.push_back({{"R124"}, nullptr, -10, 95});
        c.push_back({{"R227"}, nullptr, -20, 95});
        c.push_back({{"Co2", "co2", "cO2", "CO2", "Co 2", "co 2", "cO 2", "CO 2"}, "CO2", -55, 55});
        c.push_back({{"R744", "R 744", "r744", "r 744"}, "R744", -55, 55});
        return c;
    }();
    return chain;
}

struct TableRow {
    const char* names[2];
    const char* file;
    int rows;
    int gwp;
    const char* rewrite;
};

// Table files, row hints and GWP. Names compare upper-cased; a second name
// shares the row.
constexpr TableRow kTables[] = {
    {{"R11", nullptr}, "R11.DAT", 18, 4600, nullptr},
    {{"R12", nullptr}, "R12.DAT", 30, 3200, "R12"},
    {{"R13", nullptr}, "R13.DAT", 26, 14000, "R13"},
    {{"R13B1", nullptr}, "R13B1.DAT", 30, 6900, "R13B1"},
    {{"R50", "METHAN"}, "R50.DAT", 17, 21, "R50"},
    {{"R170", "ETHAN"}, "R170.DAT", 27, 6, "R170"},
    {{"R1150", "ETHYLEN"}, "R1150.DAT", 24, 2, "R1150"},
    {{"R14", nullptr}, "R14.DAT", 21, 6500, "R14"},
    {{"R22", nullptr}, "R22.DAT", 31, 1810, nullptr},
    {{"R23", nullptr}, "R23.DAT", 26, 14800, nullptr},
    {{"R508B", nullptr}, "R508B.DAT", 24, 13400, nullptr},
    {{"R508A", nullptr}, "R508A.DAT", 24, 13214, nullptr},
    {{"R290_600", nullptr}, "R290_600.DAT", 24, 3, nullptr},
    {{"PROPAN", "R290"}, "PROPAN.DAT", 38, 3, nullptr},
    {{"PROPYLEN", "R1270"}, "PROPYLEN.DAT", 37, 3, nullptr},
    {{"R600A", nullptr}, "R600A.DAT", 33, 3, nullptr},
    {{"R152A", nullptr}, "R152A.DAT", 25, 124, nullptr},
    {{"HFO1234YF", nullptr}, "HFO1234YF.DAT", 26, 4, nullptr},
    {{"HFO1234ZE", nullptr}, "HFO1234ZE.DAT", 28, 7, nullptr},
    {{"R134A", nullptr}, "R134A.DAT", 28, 1430, nullptr},
    {{"R471A", nullptr}, "R471A.DAT", 28, 148, nullptr},
    {{"AMMONIAK", "R717"}, "AMMONIAK.DAT", 36, 0, nullptr},
    {{"R723", nullptr}, "R723.DAT", 25, 8, nullptr},
    {{"R123", nullptr}, "R123.DAT", 27, 120, nullptr},
    {{"R401A", nullptr}, "R401A.DAT", 26, 1100, nullptr},
    {{"R401B", nullptr}, "R401B.DAT", 26, 1200, nullptr},
    {{"R402A", nullptr}, "R402A.DAT", 27, 2600, nullptr},
    {{"R402B", nullptr}, "R402B.DAT", 27, 2310, nullptr},
    {{"R404A", nullptr}, "R404A.DAT", 27, 3922, nullptr},
    {{"R408A", nullptr}, "R408A.DAT", 27, 3020, nullptr},
    {{"R409A", nullptr}, "R409A.DAT", 27, 1540, nullptr},
    {{"R32", nullptr}, "R32.dat", 27, 650, nullptr},
    {{"R407A", nullptr}, "R407A.DAT", 21, 2107, nullptr},
    {{"R407C", "AC9000"}, "R407C.DAT", 23, 1774, nullptr},
    {{"R407F", nullptr}, "R407F.DAT", 29, 1825, nullptr},
    {{"R407H", nullptr}, "R407H.DAT", 27, 1490, nullptr},
    {{"R432B", nullptr}, "R432B.DAT", 20, 4, nullptr},
    {{"R443A", nullptr}, "R443A.DAT", 28, 4, nullptr},
    {{"R410A", nullptr}, "R410A.DAT", 25, 2088, nullptr},
    {{"R413A", "ISC_49"}, "R413A.DAT", 25, 1920, nullptr},
    {{"R427A", nullptr}, "R427A.DAT", 25, 1830, nullptr},
    {{"R437A", nullptr}, "R437A.DAT", 29, 1805, nullptr},
    {{"R438A", nullptr}, "R438A.DAT", 29, 2264, nullptr},
    {{"R448A", nullptr}, "R448A.DAT", 27, 1386, nullptr},
    {{"R454A", nullptr}, "R454A.DAT", 27, 238, nullptr},
    {{"R454B", nullptr}, "R454B.DAT", 30, 467, nullptr},
    {{"R454C", nullptr}, "R454C.DAT", 26, 148, nullptr},
    {{"R455A", nullptr}, "R455A.DAT", 27, 146, nullptr},
    {{"R449A", nullptr}, "R449A.DAT", 27, 1397, nullptr},
    {{"R452A", nullptr}, "R452A.DAT", 27, 2141, nullptr},
    {{"R502", nullptr}, "R502.DAT", 25, 4100, nullptr},
    {{"R507", nullptr}, "R507.DAT", 29, 3965, nullptr},
    {{"R450A", nullptr}, "R450A.DAT", 28, 601, nullptr},
    {{"R513A", nullptr}, "R513A.DAT", 28, 631, nullptr},
    {{"R515B", nullptr}, "R515B.DAT", 28, 299, nullptr},
    {{"HX4", nullptr}, "HX4.DAT", 23, 3700, nullptr},
    {{"R124", nullptr}, "R124.DAT", 29, 609, nullptr},
    {{"R227", nullptr}, "R227.DAT", 28, 3220, nullptr},
    {{"ISC_69L", "R403B"}, "ISC_69L.DAT", 25, 4310, nullptr},
    {{"ISC_59", "R417A"}, "ISC_59.DAT", 24, 2346, nullptr},
    {{"RS45", nullptr}, "RS45.DAT", 25, 4600, nullptr},
    {{"ISC_29", "R422D"}, "ISC_29.DAT", 25, 2729, nullptr},
    {{"ISC_79", "R422A"}, "ISC_79.DAT", 27, 3143, nullptr},
    {{"FX_90", nullptr}, "FX_90.DAT", 25, 3960, nullptr},
    {{"ISC_89", nullptr}, "ISC_89.DAT", 28, 3090, nullptr},
    {{"CO2", "R744"}, "CO2.DAT", 18, 1, nullptr},
};

const TableRow* FindTable(std::string_view name) {
    const std::string u = UpperAscii(Trim(name));
    for (const TableRow& r : kTables)
        for (const char* n : r.names)
            if (n && u == n) return &r;
    return nullptr;
}

struct CharRow {
    Names names;
    double ratio, b, c, d;
};

// Characteristic numbers; names compare exactly.
const std::vector<CharRow>& Characteristics() {
    static const std::vector<CharRow> rows = {
        {{"CO2", "R744"}, 2.68, 0.7333, 8, 242},
        {{"R723"}, 5.7, 4.27, 15.47, 746.4},
        {{"AMMONIAK", "R717"}, 5.35, 4.27, 14.91, 1073},
        {{"R290_600"}, 4.48, 1, 11.89, 265},
        {{"PROPAN", "R290"}, 4.48, 1, 11.89, 265},
        {{"PROPYLEN", "R1270"}, 4.3, 1, 14.14, 270},
        {{"R11"}, 6.85, 0.63, 8.68, 152},
        {{"R12", "R13B1"}, 4.39, 0.63, 8.68, 112},
        {{"R50", "METHAN", "R170", "ETHAN", "R1150", "ETHYLEN", "R14"}, 4.39, 0.63, 8.68, 80},
        {{"R22"}, 4.85, 1, 13.66, 155},
        {{"ISC_59", "R417A", "RS45"}, 4.8, 1, 12.27, 131},
        {{"ISC_29", "R422D"}, 5.1, 1, 14.4, 100.5},
        {{"R427A"}, 5.4, 1, 14.3, 142.8},
        {{"ISC_79", "R422A"}, 4.8, 1, 16.2, 86.6},
        {{"FX_90"}, 5.3, 1, 14.15, 106.9},
        {{"R152a"}, 5.6, 0.68, 8.55, 232.2},
        {{"HFO1234YF", "HFO1234ZE"}, 5.94, 0.68, 7.29, 124},
        {{"R450A"}, 5.42, 0.68, 9.9, 116.53},
        {{"R513A"}, 5.42, 0.68, 9.9, 117.17},
        {{"R515B"}, 5.97, 0.68, 7.25, 119.4},
        {{"R134a", "R134A"}, 5.34, 0.68, 9.6, 138},
        {{"R471a", "R471A"}, 6.6, 0.68, 6.63, 122.7},
        {{"R413A", "ISC_49"}, 5.5, 0.68, 10.5, 128},
        {{"R401A"}, 5.65, 0.7333, 10.05, 157},
        {{"R401B"}, 5.56, 0.7333, 8.65, 151},
        {{"R402A"}, 4.7, 0.7333, 15.96, 102},
        {{"R402B"}, 4.76, 0.7333, 15.96, 121},
        {{"R404A"}, 4.64, 0.7333, 16.17, 102},
        {{"R437A"}, 5.678, 0.7333, 11.76, 129.59},
        {{"R438A"}, 5.432, 0.7333, 14.33, 122.01},
        {{"R452A"}, 4.96, 0.7333, 16.5, 102.1},
        {{"R407A"}, 5.39, 0.733, 16, 151},
        {{"R407C", "AC9000"}, 5.2, 0.85, 14.96, 153},
        {{"R407F"}, 5, 0.85, 16.25, 153.3},
        {{"R407H"}, 5.37, 0.85, 15.76, 166.35},
        {{"R448A"}, 5.16, 0.85, 16.27, 143.9},
        {{"R454A"}, 4.99, 0.85, 16.55, 143.83},
        {{"R454B"}, 4.79, 0.85, 15.28, 187.97},
        {{"R454C"}, 5.14, 0.85, 14.45, 130.37},
        {{"R455A"}, 5.06, 0.85, 15.7, 135.09},
        {{"R449A"}, 5.17, 0.85, 16.04, 137.1},
        {{"R408A"}, 4.7, 0.7333, 15.1, 137},
        {{"R409A"}, 5.5, 0.68, 10.1, 153},
        {{"R443A"}, 4.52, 0.9, 9.14, 267.4},
        {{"R432B"}, 4.19, 0.9, 18.48, 249.1},
        {{"R410A"}, 4.7, 0.9, 21.6, 157},
        {{"R32"}, 4.79, 0.9, 22.11, 238.2},
        {{"R502"}, 4.07, 0.7333, 14.54, 99},
        {{"ISC_69L", "R403B"}, 4.3, 0.7333, 16.24, 112},
        {{"R507"}, 4.15, 0.7333, 16.5, 101},
        {{"HX4"}, 4.97, 0.9, 16.13, 122},
        {{"R600A"}, 5.57, 0.7, 4.97, 250},
        {{"ISC_89"}, 4.4, 0.7333, 18.14, 69},
    };
    return rows;
}

const CharRow* FindCharacteristics(std::string_view name) {
    for (const CharRow& r : Characteristics())
        for (const std::string& n : r.names)
            if (n == name) return &r;
    return nullptr;
}

bool InList(std::string_view u, std::initializer_list<std::string_view> list) {
    for (std::string_view n : list)
        if (u == n) return true;
    return false;
}

}  // namespace

NormalizedName NormalizeName(std::string_view name) {
    NormalizedName out;
    out.name = std::string(Trim(name));
    out.tmax = 65;
    for (const ChainRow& row : Chain()) {
        for (const std::string& alias : row.names) {
            if (alias != out.name) continue;
            if (row.canonical) out.name = row.canonical;
            out.tmin = row.tmin;
            if (row.tmax) out.tmax = *row.tmax;
            out.matched = true;
            return out;
        }
    }
    return out;
}

void NormalizeRefrigerantName(Project& project) {
    const NormalizedName n = NormalizeName(project.KaelteM);
    project.KaelteM = n.name;
    project.tmax = n.tmax;
    if (n.tmin) project.tmin = *n.tmin;
}

std::optional<TableInfo> LookupRefrigerantTable(std::string_view name) {
    const TableRow* r = FindTable(name);
    if (!r) return std::nullopt;
    return TableInfo{r->file, r->rows, r->gwp, r->rewrite ? r->rewrite : ""};
}

int ResolveRefrigerantTable(Project& project, std::string& tableFile) {
    const TableRow* r = FindTable(project.KaelteM);
    if (!r) return 0;
    tableFile = r->file;
    project.Gwp = r->gwp;
    if (r->rewrite) project.KaelteM = r->rewrite;
    return r->rows;
}

double RefrigerantCharacteristic(std::string_view name, int selector) {
    if (selector == 5) return 0.01;
    const CharRow* r = FindCharacteristics(name);
    switch (selector) {
        case 1: return r ? r->ratio : 4.35;
        case 2: return r ? r->b : 0.9;
        case 3: return r ? r->c : 0.0;
        case 4: return r ? r->d : 0.0;
        default: return 0.0;
    }
}

bool IsRefrigerantKnown(std::string_view name) {
    return FindTable(name) != nullptr || UpperAscii(Trim(name)) == "R407B";
}

int CheckRefrigerantAvailable(Workspace& ws, std::string_view name) {
    if (IsRefrigerantKnown(name)) return 0;
    // The refusal text stands in "<LANG>.dat": a first line and eight more.
    RecordReader in = OpenIn(ws, ws.settings.Sprache + ".dat");
    std::string text, line;
    for (int i = 0; i < 9 && in.ReadLine(line); ++i) {
        if (i > 0) text += ws.lineEnd;
        text += line;
    }
    text += ws.lineEnd + ws.lineEnd + ws.captions.Message(61) + " " + std::string(name);
    ws.ui.Message(ws.Title(), text, MessageIcon::Error);
    return 1;
}

const std::vector<std::string>& RefrigerantListForProject() {
    static const std::vector<std::string> list = {
        "AMMONIAK", "CO2",    "PROPAN", "PROPYLEN", "HFO1234ZE", "R11",     "R12",     "R13",     "R13B1",  "R14",
        "R22",      "R23",    "R32",    "R123",     "R124",      "R134a",   "R152a",   "R227",    "R290",   "R401A",
        "R401B",    "R402A",  "R402B",  "R403B",    "R404A",     "R407A",   "R407C",   "R407F",   "R408A",  "R409A",
        "R410A",    "R413A",  "R417A",  "R422A",    "R422D",     "R427A",   "R437A",   "R438A",   "R448A",  "R449A",
        "R450A",    "R452A",  "R502",   "R507",     "R508A",     "R508B",   "R513A",   "R515B",   "R600a",  "R717",
        "R723",     "R744",   "R1270",  "FX_90",    "ISC_29",    "ISC_49",  "ISC_59",  "ISC_69L", "ISC_79", "ISC_89"};
    return list;
}

const std::vector<std::string>& RefrigerantListFull() {
    static const std::vector<std::string> list = [] {
        std::vector<std::string> out;
        for (const std::string& n : RefrigerantListForProject()) {
            if (n == "R1270") out.push_back("R1150");
            out.push_back(n);
            if (n == "PROPYLEN") for (const char* m : {"ETHAN", "ETHYLEN", "METHAN", "HFO1234YF"}) out.push_back(m);
            if (n == "R32") out.push_back("R50");
            if (n == "R152a") out.push_back("R170");
            if (n == "R290") out.push_back("R290_600");
            if (n == "R407F") out.push_back("R407H");
            if (n == "R427A") out.push_back("R432B");
            if (n == "R438A") out.push_back("R443A");
            if (n == "R452A") for (const char* m : {"R454A", "R454B", "R454C", "R455A", "R471A"}) out.push_back(m);
        }
        return out;
    }();
    return list;
}

std::optional<RefrigerantEntry> FindRefrigerant(std::string_view name) {
    const NormalizedName n = NormalizeName(name);
    const TableRow* t = FindTable(n.name);
    if (!n.matched && !t) return std::nullopt;
    RefrigerantEntry e;
    e.canonicalName = n.name;
    for (const ChainRow& row : Chain()) {
        bool here = false;
        for (const std::string& a : row.names) here = here || a == n.name || (row.canonical && n.name == row.canonical);
        if (here) {
            e.aliases = row.names;
            break;
        }
    }
    if (t) {
        e.tableFile = t->file;
        e.rowHint = t->rows;
        e.gwp = t->gwp;
    }
    e.tmin = n.tmin;
    e.tmax = n.tmax;
    e.designPressureRatio = RefrigerantCharacteristic(n.name, 1);
    e.charB = RefrigerantCharacteristic(n.name, 2);
    e.charC = RefrigerantCharacteristic(n.name, 3);
    e.charD = RefrigerantCharacteristic(n.name, 4);
    e.charE = RefrigerantCharacteristic(n.name, 5);
    return e;
}

double CapacityFactorByGroup(std::string_view name, double tK) {
    const std::string u = UpperAscii(Trim(name));
    double group = 1.0;
    if (InList(u, {"R290", "PROPAN", "R600A", "PROPYLEN", "AMMONIAK", "R1270", "R717", "R723", "R290_600"}))
        group = 1.12;
    else if (InList(u, {"R134A", "R152A", "HFO1234ZE", "HFO1234YF", "R513A", "R515B", "R437A", "R450A", "R454B",
                        "R471A"}))
        group = 0.96;
    else if (InList(u, {"R407C", "R449A", "R452A", "R438A", "R448A", "R455A", "R454A"}))
        group = 0.84;
    else if (InList(u, {"R404A", "R507"}))
        group = 1.02;
    return group * (1 + (318.15 - tK) / 450);
}

double EvaporatorFactorByGroup(std::string_view name, double tK, double dtK, int kind, int subKind,
                               bool brineEvaporator) {
    dtK *= 1.25;
    const double T = tK + dtK;
    const double base = (kind == 23 && subKind != 2) ? 1.35 : 1.15;
    double temperature;
    if (T <= 246.15) temperature = 1 / base;
    else if (T < 273.15) temperature = (1 + 0.00555555555555556 * std::fabs(T - 246.15)) / base;
    else if (T == 273.15) temperature = 1.15 / base;
    else if (T < 278.15) temperature = (1.15 + 0.04 * std::fabs(T - 273.15)) / base;
    else temperature = 1.35 / base;

    const std::string u = UpperAscii(Trim(name));
    double fluid;
    if (InList(u, {"CO2", "R744"})) fluid = 1.18;
    else if (InList(u, {"PROPAN", "R600A", "PROPYLEN", "R290", "R1270", "R290_600"})) fluid = 1.15;
    // "Ammoniak" in mixed case never equals an upper-cased name: the spelling
    // AMMONIAK falls through to the last rule, as it always has.
    else if (InList(u, {"Ammoniak", "R717", "R723"})) fluid = 1.12;
    else if (InList(u, {"R404A", "R507"})) fluid = 1.03;
    else if (InList(u, {"R134A", "R152A", "HFO1234ZE", "HFO1234YF", "R513A", "R437A", "R450A", "R515B", "R471A"}))
        fluid = tK < 263.15 ? 1 + (263.15 - tK) / 300 : 1.0;
    else
        // The other fluids, mostly R22 successors and R410A/R32 types: on
        // direct expansion the coil rates as the reference; with a brine on
        // the evaporator side the refrigerant film is no longer the
        // controlling resistance and low evaporating temperatures cost 1 %
        // per 10 K below -10 °C, with 0.95 as the floor.
        fluid = brineEvaporator ? std::max(0.95, 1 - std::max(0.0, 263.15 - tK) / 1000) : 1.0;
    return temperature * fluid;
}

bool IsCo2(std::string_view name) {
    const std::string u = UpperAscii(Trim(name));
    return u == "CO2" || u == "R744";
}

}  // namespace kv
