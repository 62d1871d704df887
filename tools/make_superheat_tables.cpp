// Generates the superheated-vapour tables of the reference check (<stem>_SH.DAT
// in data/) from CoolProp. Not part of the project's build: built by hand
// against a scratch build of CoolProp, see tools/README.md.
//
//   make_superheat_tables <saturation table dir> <output dir> [STEM ...]
//
// For every saturation table of the first directory whose fluid is defined
// below (or for the stems named), one file with two kinds of rows:
//   S,tm,p,tBubble,tDew,hLiq,hVap,sLiq,sVap,cpLiq
//     saturation at the mean temperature tm = (tBubble + tDew) / 2 in 1 K
//     steps over the saturation table's range; hLiq, sLiq of the bubble-point
//     liquid, hVap, sVap of the dew-point vapour at p; cpLiq the mean slope
//     of the bubble-line liquid enthalpy over the 5 K below the bubble point.
//   V,p,t,h,s,rho
//     isobars of the vapour: a subcritical isobar starts at its dew point,
//     then 2 K, 5 K and every temperature step above it up to the top
//     temperature; supercritical isobars (CO2) start at a fixed temperature.
// Units: °C, bar abs, kJ/kg, kJ/(kg K), kg/m³. Enthalpy and entropy on the
// IIR reference (h = 200 kJ/kg, s = 1 kJ/(kg K) for the saturated, for blends
// the bubble-point, liquid at 0 °C); R50 and R14 on the NBP reference (h = 0,
// s = 0 for the saturated liquid at 1.01325 bar).
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "AbstractState.h"
#include "CoolProp.h"
#include "DataStructures.h"

namespace fs = std::filesystem;
using CoolProp::AbstractState;

namespace {

struct Component {
    const char* name;  // CoolProp fluid name
    double mass;       // mass fraction
};

struct FluidDef {
    const char* stem;                 // saturation table file without extension
    std::vector<Component> parts;     // one part: a pure or pseudo-pure fluid
    bool nbp = false;                 // NBP reference instead of IIR
    double topC = 180;                // top temperature of the isobars
};

// The fluids and compositions of the saturation tables (mass fractions).
const std::vector<FluidDef>& Fluids() {
    static const std::vector<FluidDef> defs = {
        {"R11", {{"R11", 1}}},
        {"R12", {{"R12", 1}}},
        {"R13", {{"R13", 1}}},
        {"R50", {{"Methane", 1}}, true},
        {"R170", {{"Ethane", 1}}},
        {"R1150", {{"Ethylene", 1}}},
        {"R14", {{"R14", 1}}, true},
        {"R22", {{"R22", 1}}},
        {"R23", {{"R23", 1}}},
        {"PROPAN", {{"Propane", 1}}},
        {"PROPYLEN", {{"Propylene", 1}}},
        {"R600A", {{"IsoButane", 1}}},
        {"R152A", {{"R152A", 1}}},
        {"HFO1234YF", {{"R1234yf", 1}}},
        {"HFO1234ZE", {{"R1234ze(E)", 1}}},
        {"R134A", {{"R134a", 1}}},
        {"AMMONIAK", {{"Ammonia", 1}}, false, 280},
        {"R123", {{"R123", 1}}},
        {"R124", {{"R124", 1}}},
        {"R227", {{"R227EA", 1}}},
        {"R32", {{"R32", 1}}},
        {"CO2", {{"CarbonDioxide", 1}}},
        {"R401A", {{"R22", 0.53}, {"R152A", 0.13}, {"R124", 0.34}}},
        {"R401B", {{"R22", 0.61}, {"R152A", 0.11}, {"R124", 0.28}}},
        {"R402A", {{"R125", 0.60}, {"Propane", 0.02}, {"R22", 0.38}}},
        {"R402B", {{"R125", 0.38}, {"Propane", 0.02}, {"R22", 0.60}}},
        {"R404A", {{"R404A", 1}}},
        {"R407A", {{"R32", 0.20}, {"R125", 0.40}, {"R134a", 0.40}}},
        {"R407C", {{"R407C", 1}}},
        {"R407F", {{"R32", 0.30}, {"R125", 0.30}, {"R134a", 0.40}}},
        {"R407H", {{"R32", 0.325}, {"R125", 0.15}, {"R134a", 0.525}}},
        {"R408A", {{"R125", 0.07}, {"R143a", 0.46}, {"R22", 0.47}}},
        {"R409A", {{"R22", 0.60}, {"R124", 0.25}, {"R142b", 0.15}}},
        {"R410A", {{"R410A", 1}}},
        {"R413A", {{"R218", 0.09}, {"R134a", 0.88}, {"IsoButane", 0.03}}},
        {"R427A", {{"R32", 0.15}, {"R125", 0.25}, {"R143a", 0.10}, {"R134a", 0.50}}},
        {"R437A", {{"R125", 0.195}, {"R134a", 0.785}, {"n-Butane", 0.014}, {"n-Pentane", 0.006}}},
        {"R438A",
         {{"R32", 0.085}, {"R125", 0.45}, {"R134a", 0.442}, {"n-Butane", 0.017}, {"Isopentane", 0.006}}},
        {"R448A", {{"R32", 0.26}, {"R125", 0.26}, {"R1234yf", 0.20}, {"R134a", 0.21}, {"R1234ze(E)", 0.07}}},
        {"R449A", {{"R32", 0.243}, {"R125", 0.247}, {"R1234yf", 0.253}, {"R134a", 0.257}}},
        {"R450A", {{"R134a", 0.42}, {"R1234ze(E)", 0.58}}},
        {"R452A", {{"R32", 0.11}, {"R125", 0.59}, {"R1234yf", 0.30}}},
        {"R454A", {{"R32", 0.35}, {"R1234yf", 0.65}}},
        {"R454B", {{"R32", 0.689}, {"R1234yf", 0.311}}},
        {"R454C", {{"R32", 0.215}, {"R1234yf", 0.785}}},
        {"R455A", {{"CarbonDioxide", 0.03}, {"R32", 0.215}, {"R1234yf", 0.755}}},
        {"R471A", {{"R1234ze(E)", 0.787}, {"R227EA", 0.043}, {"R1336mzz(E)", 0.17}}},
        {"R502", {{"R22", 0.488}, {"R115", 0.512}}},
        {"R507", {{"R125", 0.5}, {"R143a", 0.5}}},
        {"R508A", {{"R23", 0.39}, {"R116", 0.61}}},
        {"R508B", {{"R23", 0.46}, {"R116", 0.54}}},
        {"R513A", {{"R1234yf", 0.56}, {"R134a", 0.44}}},
        {"R515B", {{"R1234ze(E)", 0.911}, {"R227EA", 0.089}}},
        {"R432B", {{"Propylene", 0.80}, {"DimethylEther", 0.20}}},
        {"R443A", {{"Propylene", 0.55}, {"Propane", 0.40}, {"IsoButane", 0.05}}},
        {"R290_600", {{"Propane", 0.5}, {"IsoButane", 0.5}}},
        {"ISC_69L", {{"Propane", 0.05}, {"R22", 0.56}, {"R218", 0.39}}},
        {"ISC_59", {{"R125", 0.466}, {"R134a", 0.50}, {"n-Butane", 0.034}}},
        {"ISC_29", {{"R125", 0.651}, {"R134a", 0.315}, {"IsoButane", 0.034}}},
        {"ISC_79", {{"R125", 0.851}, {"R134a", 0.115}, {"IsoButane", 0.034}}},
        {"RS45", {{"R125", 0.632}, {"R143a", 0.18}, {"R134a", 0.16}, {"IsoButane", 0.028}}},
        {"FX_90", {{"R404A", 1}}},
        {"ISC_89", {{"R125", 0.79}, {"R134a", 0.183}, {"n-Butane", 0.027}}},
        {"HX4", {{"R404A", 1}}},
    };
    return defs;
}

// Grid of the isobars: pressure ratio between neighbours, temperature step.
constexpr double kPressureRatio = 1.35;
constexpr double kStepK = 15.0;
// Supercritical CO2: isobars every 2 bar from 74 to 110 bar, every 5 bar to
// 150 bar; nodes from 25 °C, 1 K apart up to 50 °C (the steep pseudo-critical
// region of the gas cooler outlet), then 10 K apart.
constexpr double kCo2LowC = 25.0;
constexpr double kCo2FineToC = 50.0;

struct Fluid {
    std::unique_ptr<AbstractState> as;
    bool mixture = false;
    bool glide = false;  // bubble and dew temperature differ (blends, pseudo-pure blends)
    double hOff = 0, sOff = 0;  // J/kg, J/(kg K) added to CoolProp's values
    // The last bubble and dew point found: the mixture flash fails now and
    // then without a start value, and finds the point from these.
    CoolProp::GuessesStructure guess[2];
    bool guessed[2] = {false, false};
};

// Saturated state at pressure p (Pa), quality q = 0 (bubble) or 1 (dew).
void Saturate(Fluid& f, double p, int q) {
    try {
        f.as->update(CoolProp::PQ_INPUTS, p, q);
    } catch (const std::exception&) {
        if (!f.guessed[q]) throw;
        f.as->update_with_guesses(CoolProp::PQ_INPUTS, p, q, f.guess[q]);
    }
    if (!f.mixture) return;
    CoolProp::GuessesStructure& g = f.guess[q];
    g.clear();
    g.T = f.as->T();
    g.rhomolar_liq = f.as->saturated_liquid_keyed_output(CoolProp::iDmolar);
    g.rhomolar_vap = f.as->saturated_vapor_keyed_output(CoolProp::iDmolar);
    g.x = f.as->mole_fractions_liquid();
    g.y = f.as->mole_fractions_vapor();
    f.guessed[q] = true;
}

double H(const Fluid& f) { return (f.as->hmass() + f.hOff) / 1000; }
double S(const Fluid& f) { return (f.as->smass() + f.sOff) / 1000; }

Fluid Make(const FluidDef& d) {
    Fluid f;
    std::string names;
    std::vector<double> mass;
    for (const Component& c : d.parts) {
        if (!names.empty()) names += "&";
        names += c.name;
        mass.push_back(c.mass);
    }
    f.mixture = d.parts.size() > 1;
    f.glide = f.mixture || std::string(d.parts[0].name).rfind("R4", 0) == 0;
    if (f.mixture) {
        // Pairs without interaction parameters take the linear estimate.
        for (std::size_t i = 0; i < d.parts.size(); ++i)
            for (std::size_t j = i + 1; j < d.parts.size(); ++j) {
                const std::string a = CoolProp::get_fluid_param_string(d.parts[i].name, "CAS");
                const std::string b = CoolProp::get_fluid_param_string(d.parts[j].name, "CAS");
                // CoolProp refuses the estimate for a pair it has parameters for.
                try {
                    CoolProp::apply_simple_mixing_rule(a, b, "linear");
                } catch (const std::exception&) {
                }
            }
    }
    f.as.reset(AbstractState::factory("HEOS", names));
    if (f.mixture) f.as->set_mass_fractions(mass);
    // Reference state: the bubble-point liquid at 0 °C, or at 1.01325 bar.
    if (d.nbp) f.as->update(CoolProp::PQ_INPUTS, 101325.0, 0);
    else f.as->update(CoolProp::QT_INPUTS, 0, 273.15);
    const double h0 = d.nbp ? 0.0 : 200000.0, s0 = d.nbp ? 0.0 : 1000.0;
    f.hOff = h0 - f.as->hmass();
    f.sOff = s0 - f.as->smass();
    return f;
}

// The first and last temperature of a saturation table, °C.
bool TableRange(const fs::path& file, double& first, double& last) {
    std::ifstream in(file);
    std::string line;
    bool any = false;
    const bool celsius = file.filename().string() == "R123.DAT";
    while (std::getline(in, line)) {
        double t = 0;
        if (std::sscanf(line.c_str(), "%lf", &t) != 1) continue;
        if (!celsius) t -= 273.15;
        if (!any) first = t;
        last = t;
        any = true;
    }
    return any;
}

struct SatPoint {
    double p = 0, tb = 0, td = 0, hl = 0, hv = 0, sl = 0, sv = 0, cpl = 0;  // Pa, K, kJ
};

// Saturation at pressure p (Pa): bubble and dew point.
bool SatAtPressure(Fluid& f, double p, SatPoint& s) {
    try {
        Saturate(f, p, 0);
        s.tb = f.as->T();
        s.hl = H(f);
        s.sl = S(f);
        Saturate(f, p, 1);
        s.td = f.as->T();
        s.hv = H(f);
        s.sv = S(f);
        s.p = p;
        return std::isfinite(s.tb) && std::isfinite(s.td) && s.hv > s.hl;
    } catch (...) {
        return false;
    }
}

// Saturation at the mean temperature tm (K); pGuess in Pa.
bool SatAtMean(Fluid& f, double tm, double pGuess, SatPoint& s) {
    if (!f.glide) {
        try {
            f.as->update(CoolProp::QT_INPUTS, 0, tm);
            return SatAtPressure(f, f.as->p(), s);
        } catch (...) {
            return false;
        }
    }
    // Secant on ln p for (tBubble + tDew) / 2 = tm.
    double x0 = std::log(pGuess), x1 = x0 + 0.01;
    SatPoint a, b;
    if (!SatAtPressure(f, std::exp(x0), a) || !SatAtPressure(f, std::exp(x1), b)) return false;
    double f0 = (a.tb + a.td) / 2 - tm, f1 = (b.tb + b.td) / 2 - tm;
    for (int i = 0; i < 40 && std::fabs(f1) > 1e-7; ++i) {
        if (f1 == f0) return false;
        const double x2 = x1 - f1 * (x1 - x0) / (f1 - f0);
        x0 = x1;
        f0 = f1;
        x1 = x2;
        if (!SatAtPressure(f, std::exp(x1), b)) return false;
        f1 = (b.tb + b.td) / 2 - tm;
    }
    if (std::fabs(f1) > 1e-5) return false;
    s = b;
    return true;
}

std::string Fmt(double v, int decimals) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
    return buf;
}
// Pressures with six significant digits, in plain decimal notation.
std::string FmtP(double bar) {
    const int digits = bar >= 100 ? 3 : bar >= 10 ? 4 : bar >= 1 ? 5 : bar >= 0.1 ? 6 : 7;
    return Fmt(bar, digits);
}

bool VapourNode(Fluid& f, double p, double tK, bool dew, bool gas, std::ostringstream& out) {
    try {
        if (dew) {
            Saturate(f, p, 1);
        } else {
            // Below the critical pressure the state is known to be vapour;
            // above it the flash finds the phase itself.
            if (gas) f.as->specify_phase(CoolProp::iphase_gas);
            f.as->update(CoolProp::PT_INPUTS, p, tK);
            f.as->unspecify_phase();
        }
        const double h = H(f), s = S(f), rho = f.as->rhomass();
        if (!std::isfinite(h) || !std::isfinite(s) || !(rho > 0)) return false;
        out << "V," << FmtP(p / 1e5) << "," << Fmt(f.as->T() - 273.15, 3) << "," << Fmt(h, 3) << "," << Fmt(s, 5)
            << "," << Fmt(rho, rho >= 100 ? 3 : 4) << "\r\n";
        return true;
    } catch (...) {
        f.as->unspecify_phase();
        return false;
    }
}

// One isobar. Subcritical: nodes at the dew point and 2, 5, 10, 20, 30 ... K
// above it (the vapour's properties bend most near the dew point).
// Supercritical: from tStartK, 1 K apart up to fineToC, then 10 K apart.
int Isobar(Fluid& f, double p, double tStartK, bool dew, double topC, double fineToC, std::ostringstream& out) {
    int n = 0;
    if (!VapourNode(f, p, tStartK, dew, dew, out)) return 0;
    ++n;
    const double t0 = tStartK - 273.15;
    const double topK = std::max(topC, t0 + 40) + 273.15;
    std::vector<double> next;
    if (dew) {
        for (double d : {2.0, 5.0}) next.push_back(t0 + d);
        for (double d = kStepK; t0 + d - kStepK + 273.15 < topK; d += kStepK) next.push_back(t0 + d);
    } else {
        for (double t = t0 + 1; t - 10 + 273.15 < topK; t += t < fineToC ? 1 : 10) next.push_back(t);
    }
    for (double t : next)
        if (VapourNode(f, p, t + 273.15, false, dew, out)) ++n;
    return n;
}

bool Generate(const FluidDef& d, const fs::path& satDir, const fs::path& outDir) {
    fs::path satFile;
    for (const auto& e : fs::directory_iterator(satDir)) {
        const std::string n = e.path().filename().string();
        const std::string stem = e.path().stem().string();
        std::string up = stem;
        std::transform(up.begin(), up.end(), up.begin(), ::toupper);
        if (up == d.stem && n.size() > 4) satFile = e.path();
    }
    double firstC = 0, lastC = 0;
    if (satFile.empty() || !TableRange(satFile, firstC, lastC)) {
        std::fprintf(stderr, "%s: no saturation table\n", d.stem);
        return false;
    }
    Fluid f = Make(d);
    std::ostringstream out;
    std::string composition;
    for (const Component& c : d.parts)
        composition += std::string(composition.empty() ? "" : "/") + c.name +
                       (d.parts.size() > 1 ? " " + Fmt(100 * c.mass, 1) + "%" : "");
    out << "# Superheated-vapour table of " << d.stem << ": " << composition << ", CoolProp "
        << CoolProp::get_global_param_string("version") << " HEOS; " << (d.nbp ? "NBP" : "IIR") << " reference\r\n";
    out << "# S,tm C,p bar,tBubble C,tDew C,hLiq kJ/kg,hVap kJ/kg,sLiq kJ/(kg K),sVap kJ/(kg K),cpLiq kJ/(kg K)\r\n";
    out << "# V,p bar,t C,h kJ/kg,s kJ/(kg K),rho kg/m3\r\n";

    // Saturation rows.
    std::vector<SatPoint> sat;
    double pGuess = 0;
    {
        // Start pressure for blends: the pure-fluid way at the first row.
        try {
            f.as->update(CoolProp::QT_INPUTS, 1, firstC + 273.15);
            pGuess = f.as->p();
        } catch (...) {
            pGuess = 1e5;
        }
    }
    std::vector<double> tms;
    int misses = 0;
    for (double tc = firstC; tc <= lastC + 1e-9 && misses < 4; tc += 1.0) {
        SatPoint s;
        // The next pressure guessed from the slope of ln p over the last rows.
        double guess = pGuess;
        if (sat.size() >= 2) {
            const SatPoint& a = sat[sat.size() - 2];
            const SatPoint& b = sat.back();
            guess = b.p * std::exp(std::log(b.p / a.p) / (tms.back() - tms[tms.size() - 2]) * (tc - tms.back()));
        }
        if (!SatAtMean(f, tc + 273.15, guess, s)) {
            if (!sat.empty()) ++misses;
            continue;
        }
        misses = 0;
        pGuess = s.p;
        sat.push_back(s);
        tms.push_back(tc);
    }
    // Liquid specific heat: the mean slope of the bubble-line enthalpy over
    // the 5 K below each bubble point (the pressure term that separates it
    // from the isobaric cp is below 0.5 % of it away from the critical point).
    for (std::size_t i = 0; i < sat.size(); ++i) {
        const double tLow = sat[i].tb - 5;
        std::size_t j = 0;
        while (j + 2 < sat.size() && sat[j + 1].tb < tLow) ++j;
        const SatPoint& a = sat[j];
        const SatPoint& b = sat[j + 1];
        const double h5 = a.hl + (b.hl - a.hl) * (tLow - a.tb) / (b.tb - a.tb);
        sat[i].cpl = (sat[i].hl - h5) / 5;
    }
    for (std::size_t i = 0; i < sat.size(); ++i) {
        const SatPoint& s = sat[i];
        out << "S," << Fmt(tms[i], 2) << "," << FmtP(s.p / 1e5) << "," << Fmt(s.tb - 273.15, 3) << ","
            << Fmt(s.td - 273.15, 3) << "," << Fmt(s.hl, 3) << "," << Fmt(s.hv, 3) << "," << Fmt(s.sl, 5) << ","
            << Fmt(s.sv, 5) << "," << Fmt(s.cpl, 4) << "\r\n";
    }
    if (sat.size() < 2) {
        std::fprintf(stderr, "%s: saturation failed\n", d.stem);
        return false;
    }
    // Subcritical isobars, ln-spaced between the first and the last saturation row.
    const double pLo = sat.front().p, pHi = sat.back().p;
    const int n = std::max(2, static_cast<int>(std::ceil(std::log(pHi / pLo) / std::log(kPressureRatio))));
    int isobars = 0;
    for (int k = 0; k <= n; ++k) {
        const double p = pLo * std::exp(std::log(pHi / pLo) * k / n);
        double td = 0;
        try {
            Saturate(f, p, 1);
            td = f.as->T();
        } catch (...) {
            continue;
        }
        if (Isobar(f, p, td, true, d.topC, -1e9, out) > 2) ++isobars;
    }
    // Supercritical isobars of CO2.
    if (std::string(d.stem) == "CO2") {
        for (double pb = 74; pb <= 150 + 1e-9; pb += pb < 110 ? 2 : 5)
            if (Isobar(f, pb * 1e5, kCo2LowC + 273.15, false, d.topC, kCo2FineToC, out) > 2) ++isobars;
    }
    const fs::path target = outDir / (std::string(d.stem) + "_SH.DAT");
    std::ofstream file(target, std::ios::binary);
    file << out.str();
    std::printf("%s: %zu saturation rows, %d isobars -> %s\n", d.stem, sat.size(), isobars, target.string().c_str());
    return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: make_superheat_tables SATDIR OUTDIR [STEM ...]\n");
        return 2;
    }
    const fs::path satDir = argv[1], outDir = argv[2];
    int failed = 0;
    for (const FluidDef& d : Fluids()) {
        if (argc > 3 && std::find_if(argv + 3, argv + argc, [&](const char* a) { return d.stem == std::string(a); }) ==
                            argv + argc)
            continue;
        try {
            if (!Generate(d, satDir, outDir)) ++failed;
        } catch (const std::exception& e) {
            std::fprintf(stderr, "%s: %s\n", d.stem, e.what());
            ++failed;
        }
    }
    return failed == 0 ? 0 : 1;
}
