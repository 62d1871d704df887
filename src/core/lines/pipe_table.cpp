#include "lines/pipe_table.h"

#include <algorithm>

#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

std::size_t At(int row) { return static_cast<std::size_t>(row); }

// The file name of a series without folder and extension, in capitals:
// "ROHRDM" for "c:\data\RohrDM.dat".
std::string SeriesStem(std::string_view file) {
    const std::size_t slash = file.find_last_of("/\\");
    if (slash != std::string_view::npos) file.remove_prefix(slash + 1);
    const std::size_t dot = file.rfind('.');
    if (dot != std::string_view::npos) file = file.substr(0, dot);
    return UpperAscii(Trim(file));
}

// Text before the first occurrence of any character of `marks`, or all.
std::string_view CutAt(std::string_view s, std::string_view marks) {
    const std::size_t p = s.find_first_of(marks);
    return p == std::string_view::npos ? s : s.substr(0, p);
}

std::string WithoutBlanks(std::string_view s) {
    std::string out;
    for (char c : s)
        if (c != ' ' && c != '\t') out += c;
    return out;
}

// Searches a series by name for modes 7 to 21; the da of the row or 0.
double FindDaByName(const PipeTable& t, int mode, std::string_view name) {
    for (int i = 1; i <= t.PipeRowCount; ++i) {
        const std::string& rowName = t.PipeName[At(i)];
        bool match = false;
        if (mode == 7) match = Trim(CutAt(rowName, "xX")) == Trim(CutAt(name, "xX"));
        else if (mode == 8) match = WithoutBlanks(CutAt(rowName, "'")) == WithoutBlanks(CutAt(name, "'"));
        else match = Trim(rowName) == Trim(name);
        if (match) return t.PipeDa[At(i)];
    }
    return 0.0;
}

}  // namespace

const std::string& PipeTable::Name(int row) const {
    static const std::string empty;
    return HasRow(row) ? PipeName[At(row)] : empty;
}

PipeTableRead ReadPipeTable(RecordReader& in, PipeTable& t) {
    const std::string file = t.file;
    t = PipeTable{};
    t.file = file;
    PipeTableRead result;
    std::string header;
    in.ReadLine(header);  // "2008","7.01"
    int count = 0;
    while (!in.AtEnd()) {
        if (count >= kPipeRows) {
            // The thirty-first row has no place in the arrays.
            result.overflow = true;
            break;
        }
        std::array<std::string, kPipeFields + 1> f{};
        for (int i = 1; i <= kPipeFields; ++i) in.Read(f[At(i)]);
        ++count;
        const std::size_t r = At(count);
        t.PipeName[r] = f[pipefield::Name];
        t.PipeDa[r] = ToNumber(std::string_view(f[pipefield::Da])).value;
        t.PipeDi[r] = ToNumber(std::string_view(f[pipefield::Di])).value;
        t.PipePriceText[r] = NumberText(ToNumber(std::string_view(f[pipefield::Price])).value);
        t.PipePzul[r] = ToNumber(std::string_view(f[pipefield::Pzul])).value;
        t.PipeTimeText[r] = f[pipefield::Time];
        if (t.PipeDa[r] == 0.0 && t.PipeDi[r] == 0.0) break;  // the end row, counted
    }
    t.PipeRowCount = count;
    result.rows = count;
    return result;
}

int LoadPipeTable(Workspace& ws, std::string_view name, PipeTable& table, bool warn) {
    RecordReader in = OpenIn(ws, name);
    table.file = std::string(name);
    const PipeTableRead r = ReadPipeTable(in, table);
    if (r.overflow && warn) {
        std::string text = ws.captions.Message(29);
        if (text.empty())
            text = "The pipe table holds more than 30 sizes: only the first 30 are used for the calculation.";
        ws.ui.Message(ws.Title(), text + " (" + std::string(name) + ")", MessageIcon::Information);
    }
    return table.PipeRowCount;
}

int LoadPipeTable(Workspace& ws, std::string_view name) { return LoadPipeTable(ws, name, ws.pipes, true); }

double PipeLookup(const PipeTable& t, double value, int mode, std::string_view name) {
    const int n = t.PipeRowCount;
    switch (mode) {
    case 1:
    case 4:
        for (int i = 1; i <= n; ++i)
            if (value <= t.PipeDa[At(i)]) return mode == 1 ? t.PipeDi[At(i)] : i;
        return mode == 1 ? 0.0 : n;
    case 2:
    case 3:
        for (int i = 1; i <= n; ++i)
            if (value <= t.PipeDi[At(i)]) return mode == 2 ? t.PipeDa[At(i)] : i;
        return mode == 2 ? 0.0 : n;
    case 5: {
        const std::string_view wanted = Trim(name);
        if (wanted.empty()) return 0.0;
        for (int i = 1; i <= n; ++i)
            if (Trim(t.PipeName[At(i)]) == wanted) return i;
        return 1.0;
    }
    case 6: {
        const std::string wanted(Trim(UpperAscii(name)));
        for (int i = 1; i <= n; ++i) {
            const std::string up = UpperAscii(t.PipeName[At(i)]);
            if (Trim(CutAt(up, "X")) == wanted) return i;
        }
        return 1.0;
    }
    default:
        return 0.0;
    }
}

double PipeLookup(Workspace& ws, double value, int mode, std::string_view name) {
    const char* other = nullptr;
    switch (mode) {
    case 7: other = "RohrDM.dat"; break;
    case 8: other = "RohrIN.std"; break;
    case 9: other = "RohrDS.DAT"; break;
    case 10: other = "RohrPI.DAT"; break;
    case 11: other = "RohrPII.DAT"; break;
    case 21: other = "RohrK65.DAT"; break;
    default: return PipeLookup(ws.pipes, value, mode, name);
    }
    const PipeTable before = ws.pipes;
    LoadPipeTable(ws, other, ws.pipes, false);
    const double da = FindDaByName(ws.pipes, mode, name);
    // Back to the project's own series.
    if (!Trim(ws.project.RohrDatei).empty()) LoadPipeTable(ws, ws.project.RohrDatei, ws.pipes, false);
    else ws.pipes = before;
    return da;
}

std::string ClassifyPipeName(const Workspace& ws, std::string_view name, int what) {
    enum class Family { K1, K2Slash, K2Mark, S3, P5 };
    Family family = Family::K1;  // also the rule for K65 sizes and unknown names
    if (name.find("K65") == std::string_view::npos) {
        // The last mark found decides.
        if (name.find('x') != std::string_view::npos) family = Family::K1;
        if (name.find('/') != std::string_view::npos) family = Family::K2Slash;
        if (name.find('\'') != std::string_view::npos) family = Family::K2Mark;
        if (name.find("DN") != std::string_view::npos) family = Family::S3;
        if (name.find("GF") != std::string_view::npos) family = Family::P5;
    }
    const char* code = "K1";
    switch (family) {
    case Family::K1: code = "K1"; break;
    case Family::K2Slash:
    case Family::K2Mark: code = "K2"; break;
    case Family::S3: code = "S3"; break;
    case Family::P5: code = "P5"; break;
    }
    if (what == 1) return std::string(code) + "Tstk.dat";
    if (what == 2) return std::string(code) + "_RED.dat";
    if (what == 3) {
        switch (family) {
        case Family::K1: return ws.captions[Cap::PipeWord] + " - ";
        case Family::K2Slash:
        case Family::K2Mark: return ws.captions[Cap::PipeCopper] + " inch - ";
        case Family::S3: return ws.captions[Cap::PipeSteel] + " - ";
        case Family::P5: return "GF - ";
        }
    }
    switch (family) {
    case Family::K1: return "RohrDM.dat";
    case Family::K2Slash: return "RohrIN.std";
    case Family::K2Mark: return "RohrIN.DAT";
    case Family::S3: return "RohrDS.DAT";
    case Family::P5: return "ROHRPII.DAT";
    }
    return "RohrDM.dat";
}

std::string SeriesTag(std::string_view pipeFile) {
    const std::string stem = SeriesStem(pipeFile);
    if (stem == "ROHRDM" || stem == "ROHRDS") return " - SI";
    if (stem == "ROHRIN") return " - inch";
    if (stem == "ROHRK65") return " - K65";
    return {};
}

double MetalDensity(std::string_view pipeFile) {
    const std::string stem = SeriesStem(pipeFile);
    if (stem == "ROHRK65") return 8910.0;
    if (stem == "ROHRDS") return 7850.0;
    if (stem == "ROHRPI") return 7900.0;
    if (stem == "ROHRPII") return 960.0;
    return 8940.0;  // copper, metric and inch, and the user's series
}

}  // namespace kv
