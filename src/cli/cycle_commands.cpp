// Commands of the cycle calculation: calc.
#include <algorithm>
#include <cmath>
#include <iostream>

#include "cli.h"
#include "cycle/kernel.h"
#include "cycle/plausibility.h"
#include "cycle/scheme_screen.h"
#include "lines/pipe_series.h"
#include "lines/pipe_table.h"
#include "project/data_screen.h"

namespace kvcli {

void PrintMessageLines(std::ostream& out, const std::vector<std::string>& messages) {
    for (const std::string& m : messages) {
        std::string line = m;
        for (char& ch : line)
            if (ch == '\r' || ch == '\n') ch = ' ';
        out << line << "\n";
    }
}

bool PrepareCalculation(kv::Workspace& ws, kv::SchemeScreen& scheme, int& code) {
    kv::DataScreen screen;
    kv::OpenDataScreen(ws, screen);
    kv::InputCheck check;
    if (!kv::StartCalculation(ws, screen, &check)) {
        PrintMessageLines(std::cerr, check.messages);
        code = 2;
        return false;
    }
    kv::OpenSchemeScreen(ws, scheme);
    return true;
}

bool CalculateProject(const Options& o, kv::Workspace& ws, kv::SchemeScreen& scheme, int& code) {
    if (!LoadProjectArg(ws, o.args[1], code)) return false;
    if (!PrepareCalculation(ws, scheme, code)) return false;
    // The question on stored sizes is answered No: a batch run keeps them.
    if (!kv::CalculateCycle(ws, scheme, kv::FirstCalculation)) {
        // The kernel's message has said why, on standard error.
        std::cerr << "kelvaris-cli: the cycle could not be calculated\n";
        code = 1;
        return false;
    }
    return true;
}

// The reference check: null where the refrigerant has no reference table.
nlohmann::json ReferenceJson(const kv::CycleState& c) {
    const kv::ReferenceCycle& r = c.reference;
    if (!r.valid) return nullptr;
    return {{"copHeating", r.copHeating},
            {"copCooling", r.copCooling},
            {"tDischargeC", r.t2C},
            {"etaIs", r.etaIs},
            {"deviationPercent", c.referenceDeviation}};
}

nlohmann::json CycleJson(const kv::Workspace& ws) {
    const kv::CycleState& c = ws.cycle;
    nlohmann::json j;
    j["refrigerant"] = ws.project.KaelteM;
    j["Q0"] = c.Q0;
    j["Qh"] = c.Qh;
    j["massFlow"] = c.massFlow;
    j["pShaft"] = c.pShaft;
    j["eer"] = c.eer;
    j["cop"] = c.cop;
    j["tDischargeC"] = c.tDischargeC;
    j["requiredSweptVolume"] = c.requiredSweptVolume;
    j["qualityInlet"] = c.qualityInlet;
    j["pEvap"] = c.pEvap;
    j["pCond"] = c.pCond;
    j["dpSuction"] = c.dpSuction;
    j["dpDischarge"] = c.dpDischarge;
    j["dpLiquid"] = c.dpLiquid;
    j["annualCost"] = c.annualCost;
    j["co2Tons"] = c.co2Tons;
    // What the load noticed (a file cut short), then doubts on the figures.
    std::vector<std::string> warnings = ws.loadWarnings;
    for (std::string& note : kv::PlausibilityNotes(ws)) warnings.push_back(std::move(note));
    j["warnings"] = warnings;
    if (ws.project.EcoFlag == 1) {
        j["pIntermediate"] = c.pIntermediate;
        j["tIntermediate"] = c.tIntermediate;
        j["ecoMass"] = c.ecoMass;
        j["ecoHeat"] = c.ecoHeat;
    }
    static constexpr const char* kNames[9] = {"",       "injection", "suction",           "discharge",        "liquid",
                                              "condensate", "hotGasBypass", "economizerLiquid", "economizerSuction"};
    nlohmann::json lines = nlohmann::json::object();
    const std::vector<int> below = kv::LinesBelowPressure(ws);  // sizes rated below the plant's pressure
    for (int i = 1; i <= 8; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const int row = c.lineRow[k];
        if (row <= 0 || !ws.pipes.HasRow(row)) continue;
        nlohmann::json l;
        l["size"] = ws.pipes.Name(row);
        l["di"] = ws.pipes.Di(row);
        l["lossMbar"] = c.lineLoss[k];
        l["lossK"] = c.lineLossK[k];
        l["velocity"] = c.lineVelocity[k];
        l["red"] = {{"loss", c.lineLossRed[k]}, {"velocity", c.lineVelocityRed[k]}, {"oilReturn", c.lineOilRed[k]},
                    {"pressure", std::find(below.begin(), below.end(), i) != below.end()}};
        lines[kNames[i]] = l;
    }
    j["lines"] = lines;
    j["reference"] = ReferenceJson(c);
    return j;
}

int CmdCalc(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli calc PROJECT.prj");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    kv::SchemeScreen scheme;
    if (!CalculateProject(o, ws, scheme, code)) return code;
    return PrintFigures(o, CycleJson(ws));
}

int PrintFigures(const Options& o, const nlohmann::json& j) {
    for (const auto& [key, value] : j.items())
        if (value.is_number_float() && !std::isfinite(value.get<double>())) {
            std::cerr << "kelvaris-cli: the figure " << key << " is not a number\n";
            return 1;
        }
    Print(o, j);
    return 0;
}

}  // namespace kvcli
