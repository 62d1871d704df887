// Writes the factory cost tables of data/: the basic rates (GmontZ.dat), the
// assembly minutes of fittings (KmontZ.dat) and of main units (AmontZ.dat),
// and the priced tables of tees, reducers, oil traps and double risers of
// every pipe family. The rows are those the program derives from the pipe
// tables; this tool fills in minutes and prices. Build with the target
// kelvaris_make_cost_tables and run it from the source tree's root. The
// figures and their reasoning are in data/README.md ("Cost tables").
#include <array>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <string>

#include "lines/fittings.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/workspace.h"

namespace fs = std::filesystem;

namespace {

constexpr double kRate = 72.0;            // EUR/h
constexpr double kSurchargeLabour = 15.0;  // %
constexpr double kSurchargeMaterial = 20.0;

// Minutes per fitting kind and size band, rows kinds 5, 6, 7, 8, 9, 16, 1, 2,
// 3, 4, 18, 0, 10, 15; per main unit and capacity band, rows 17, 13, 12, 14.
constexpr int kFittingMinutes[14][5] = {
    {20, 25, 35, 50, 70}, {15, 20, 30, 45, 60},  {15, 20, 30, 45, 60},  {40, 50, 70, 90, 120},
    {45, 60, 80, 110, 150}, {15, 20, 30, 45, 60}, {15, 20, 30, 45, 60}, {30, 35, 45, 60, 80},
    {15, 20, 30, 40, 60}, {10, 15, 20, 30, 45},  {30, 40, 55, 75, 100}, {30, 40, 55, 75, 100},
    {30, 40, 55, 75, 100}, {20, 25, 35, 50, 70}};
constexpr int kUnitMinutes[4][5] = {
    {60, 90, 120, 180, 240}, {120, 180, 240, 360, 480}, {180, 240, 360, 480, 720}, {120, 180, 240, 360, 480}};

enum class Joining { Brazed, Welded, Glued };

struct Family {
    double (*tee)(double d);  // purchase price of a tee of outside diameter d, EUR
    Joining joining;
};

double CopperTee(double d) { return 0.8 + 0.012 * std::pow(d, 1.9); }
double K65Tee(double d) { return 3 * CopperTee(d); }
double SteelTee(double d) { return 3.0 + 0.35 * d; }
double PlasticTee(double d) { return 1.0 + 0.08 * d; }

double JointMinutes(Joining j, double d) {
    switch (j) {
    case Joining::Brazed: return 4.0 + 0.12 * d;
    case Joining::Welded: return 10.0 + 0.3 * d;
    case Joining::Glued: return 3.0 + 0.05 * d;
    }
    return 0;
}

Family FamilyOfSource(const std::string& source) {
    if (source == "RohrDS.DAT" || source == "ROHRPI.DAT") return {SteelTee, Joining::Welded};
    if (source == "ROHRPII.DAT") return {PlasticTee, Joining::Glued};
    if (source == "RohrK65.DAT") return {K65Tee, Joining::Brazed};
    return {CopperTee, Joining::Brazed};
}

std::string Money(double v) { return kv::NumberText(std::round(100 * v) / 100); }

// Fills minutes and prices into the rows the program derives: a part costs a
// share of a tee of its largest size and takes its joints.
std::string Priced(const std::string& rows, kv::FittingClass cls, const Family& f) {
    double share = 1, joints = 3;
    if (cls == kv::FittingClass::Reducer) share = 0.6, joints = 2;
    if (cls == kv::FittingClass::OilTrap) share = 1.5, joints = 4;
    if (cls == kv::FittingClass::DoubleRiser) share = 3.0, joints = 8;
    kv::RecordReader in(rows);
    kv::RecordWriter w;
    for (;;) {
        std::array<std::string, 8> r;
        if (!in.Read(r[0])) break;
        for (std::size_t i = 1; i < 8; ++i) in.Read(r[i]);
        const double d = kv::ToNumber(std::string_view(r[0]).substr(0, r[0].find_first_of("-/")));
        // The program's own minutes (reducers) stand; the others by the joints.
        const double minutes = r[4].empty() ? std::round(joints * JointMinutes(f.joining, d)) : kv::ToNumber(r[4]).value;
        const double price = share * f.tee(d);
        const double labour = (100 + kSurchargeLabour) * kRate * minutes / 60 / 100;
        r[4] = kv::NumberText(minutes);
        r[5] = Money(price);
        r[6] = Money(labour);
        r[7] = Money(((100 + kSurchargeMaterial) * price) / 100 + labour);
        for (const std::string& item : r) w.Item(item);
        w.EndLine();
    }
    return w.Take();
}

bool Write(const fs::path& path, const std::string& text) {
    if (kv::WriteFileAtomic(path, text)) return true;
    std::cerr << "not written: " << path << "\n";
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    const fs::path data = (argc > 1 ? fs::path(argv[1]) : fs::current_path()) / "data";
    kv::RecordWriter rates;
    for (double v : {kRate, kSurchargeLabour, kSurchargeMaterial, 0.0}) rates.Item(kv::NumberText(v)).EndLine();
    for (int i = 0; i < 13; ++i) rates.Item("0").EndLine();
    kv::RecordWriter fittings, units;
    for (const auto& row : kFittingMinutes)
        for (int v : row) fittings.Item(std::to_string(v)).EndLine();
    for (const auto& row : kUnitMinutes)
        for (int v : row) units.Item(std::to_string(v)).EndLine();
    bool ok = Write(data / "GmontZ.dat", rates.Text()) && Write(data / "KmontZ.dat", fittings.Text()) &&
              Write(data / "AmontZ.dat", units.Text());

    kv::Workspace words;  // no caption table: the English words stand in
    for (int kind = 1; kind <= kv::kFittingTableCount; ++kind) {
        const std::string source(kv::FittingSource(kind));
        kv::RecordReader in(kv::ReadWholeFile(data / source));
        const kv::FittingClass cls = kv::FittingClassOf(kind);
        const std::string rows = kv::FittingRows(in, kind, kv::FittingCaption(words, cls));
        ok = Write(data / std::string(kv::FittingTableFile(kind)), Priced(rows, cls, FamilyOfSource(source))) && ok;
    }
    // The K65 series: tees and reducers as the metric copper rows are made.
    for (auto [kind, file] : {std::pair{1, "K65Tstk.dat"}, std::pair{6, "K65_RED.dat"}}) {
        kv::RecordReader in(kv::ReadWholeFile(data / "RohrK65.DAT"));
        const kv::FittingClass cls = kv::FittingClassOf(kind);
        const std::string rows = kv::FittingRows(in, kind, kv::FittingCaption(words, cls));
        ok = Write(data / file, Priced(rows, cls, FamilyOfSource("RohrK65.DAT"))) && ok;
    }
    std::cout << (ok ? "cost tables written to " : "cost tables incomplete in ") << data.string() << "\n";
    return ok ? 0 : 1;
}
