// Commands of the line sizing: pipes, dp single, dp twophase.
#include <iomanip>
#include <iostream>
#include <sstream>

#include "cli.h"
#include "lines/pipe_table.h"
#include "lines/pressure_drop.h"
#include "lines/zeta.h"
#include "shell/files.h"
#include "shell/numbers.h"

namespace kvcli {
namespace {

constexpr const char* kDpUsage =
    "usage: kelvaris-cli dp single --di MM --length M --m KG_S --rho KG_M3 --eta PA_S [--zeta Z] [--height M]\n"
    "       kelvaris-cli dp twophase --di MM --length M --m KG_S --rho-liquid KG_M3 --rho-vapour KG_M3\n"
    "                    --eta-vapour PA_S --eta-liquid PA_S --x X [--zeta Z]";

// The value of option `key`; false when it is missing (and not optional) or
// holds no number.
bool Option(const Options& o, const std::string& key, double& value, bool optional = false) {
    const auto it = o.values.find(key);
    if (it == o.values.end()) return optional;
    return NumberArg(it->second, value);
}

kv::LossRules Rules(const kv::Workspace& ws) {
    kv::LossRules rules;
    const double tube = kv::Zeta(ws)[kv::kZetaTube];
    rules.tubeZeta = tube == 0 ? 0.6 : tube;
    return rules;
}

nlohmann::json DropJson(double loss, const kv::DropDetail& d) {
    nlohmann::json j;
    j["lossMbar"] = loss;
    j["velocity"] = d.velocity;
    j["reynolds"] = d.reynolds;
    j["lambda"] = d.lambda;
    return j;
}

}  // namespace

int CmdPipes(const Options& o) {
    if (o.args.size() > 2) return Fail("usage: kelvaris-cli pipes [FILE]");
    kv::Workspace ws = MakeWorkspace(o);
    std::string file = o.args.size() == 2 ? o.args[1] : ws.project.RohrDatei;
    if (kv::Trim(file).empty()) file = kv::pipefile::CopperMetric;
    if (kv::FileLength(ws, file) == 0) return Fail("no pipe table " + file + " in " + ws.project.DatenVerz);
    kv::PipeTable t;
    kv::LoadPipeTable(ws, file, t, true);
    nlohmann::json rows = nlohmann::json::array();
    for (int i = 1; i <= t.PipeRowCount; ++i) {
        const std::size_t r = static_cast<std::size_t>(i);
        rows.push_back({{"PipeName", t.PipeName[r]},
                        {"PipeDa", t.PipeDa[r]},
                        {"PipeDi", t.PipeDi[r]},
                        {"PipePzul", t.PipePzul[r]},
                        {"PipePriceText", t.PipePriceText[r]},
                        {"PipeTimeText", t.PipeTimeText[r]}});
    }
    if (o.json) {
        nlohmann::json j;
        j["file"] = file;
        j["PipeRowCount"] = t.PipeRowCount;
        j["rows"] = rows;
        Print(o, j);
        return 0;
    }
    std::cout << file << ": " << t.PipeRowCount << " rows\n";
    std::cout << std::left << std::setw(24) << "PipeName" << std::right << std::setw(9) << "PipeDa" << std::setw(9)
              << "PipeDi" << std::setw(9) << "PipePzul" << std::setw(10) << "Price" << std::setw(7) << "Time"
              << "\n";
    for (int i = 1; i <= t.PipeRowCount; ++i) {
        const std::size_t r = static_cast<std::size_t>(i);
        std::cout << std::left << std::setw(24) << t.PipeName[r] << std::right << std::setw(9)
                  << kv::NumberText(t.PipeDa[r]) << std::setw(9) << kv::NumberText(t.PipeDi[r]) << std::setw(9)
                  << kv::NumberText(t.PipePzul[r]) << std::setw(10) << t.PipePriceText[r] << std::setw(7)
                  << t.PipeTimeText[r] << "\n";
    }
    return 0;
}

int CmdDp(const Options& o) {
    if (o.args.size() != 2) return Fail(kDpUsage);
    const std::string& kind = o.args[1];
    double di = 0, length = 0, m = 0, zeta = 0;
    if (!Option(o, "di", di) || !Option(o, "length", length) || !Option(o, "m", m) ||
        !Option(o, "zeta", zeta, true) || !(di > 0) || length < 0)
        return Fail(kDpUsage);
    if (kind == "single") {
        double rho = 0, eta = 0, height = 0;
        if (!Option(o, "rho", rho) || !Option(o, "eta", eta) || !Option(o, "height", height, true) || !(rho > 0) ||
            !(eta > 0))
            return Fail(kDpUsage);
        const kv::Workspace ws = MakeWorkspace(o);
        kv::DropDetail d;
        const double loss = kv::LineDropSingle(Rules(ws), m, rho, di, length, eta, zeta, height, &d);
        Print(o, DropJson(loss, d));
        return 0;
    }
    if (kind == "twophase") {
        double rhoL = 0, rhoV = 0, etaV = 0, etaL = 0, x = 0;
        if (!Option(o, "rho-liquid", rhoL) || !Option(o, "rho-vapour", rhoV) || !Option(o, "eta-vapour", etaV) ||
            !Option(o, "eta-liquid", etaL) || !Option(o, "x", x) || !(rhoL > 0) || !(rhoV > 0) || !(etaV > 0) ||
            !(etaL > 0) || x < 0 || x > 1)
            return Fail(kDpUsage);
        const kv::Workspace ws = MakeWorkspace(o);
        kv::DropDetail d;
        const double loss = kv::LineDropTwoPhase(Rules(ws), m, rhoL, rhoV, etaV, etaL, di, length, x, zeta, &d);
        Print(o, DropJson(loss, d));
        return 0;
    }
    return Fail(kDpUsage);
}

}  // namespace kvcli
