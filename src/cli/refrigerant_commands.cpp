// Commands of the refrigerant model: fluid, sat, state.
#include <cmath>

#include "cli.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "refrigerant/state_points.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"

namespace kvcli {
namespace {

nlohmann::json Optional(const std::optional<int>& v) { return v ? nlohmann::json(*v) : nlohmann::json(nullptr); }

// The project's refrigerant set to `name`, normalised; false with a message
// when the registry does not know it or has no table for it.
bool SelectFluid(kv::Workspace& ws, const std::string& name, const kv::SaturationTable** table, int& code) {
    ws.project.KaelteM = name;
    kv::NormalizeRefrigerantName(ws.project);
    if (!kv::IsRefrigerantKnown(ws.project.KaelteM)) {
        code = Fail("unknown refrigerant: " + name);
        return false;
    }
    *table = kv::ProjectSaturationTable(ws);
    if (!*table) {
        code = Fail("no property table for " + ws.project.KaelteM + " in " + ws.project.DatenVerz);
        return false;
    }
    return true;
}

bool InsideTable(const kv::SaturationTable& t, double tK) {
    return tK >= t.rows.front().t && tK <= t.rows.back().t;
}

std::string Celsius(double tK) { return kv::NumberText(std::round((tK - 273.15) * 100) / 100) + " °C"; }

}  // namespace

int CmdFluid(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli fluid NAME");
    const auto e = kv::FindRefrigerant(o.args[1]);
    if (!e) return Fail("unknown refrigerant: " + o.args[1]);
    nlohmann::json j;
    j["canonicalName"] = e->canonicalName;
    j["tmin"] = Optional(e->tmin);
    j["tmax"] = e->tmax;
    j["tableFile"] = e->tableFile;
    j["rowHint"] = e->rowHint;
    j["gwp"] = e->gwp;
    j["designPressureRatio"] = e->designPressureRatio;
    j["charB"] = e->charB;
    j["charC"] = e->charC;
    j["charD"] = e->charD;
    j["charE"] = e->charE;
    j["available"] = kv::IsRefrigerantKnown(e->canonicalName);
    Print(o, j);
    return 0;
}

int CmdSat(const Options& o) {
    double tC = 0;
    if (o.args.size() != 3 || !NumberArg(o.args[2], tC)) return Fail("usage: kelvaris-cli sat NAME TEMP_C");
    kv::Workspace ws = MakeWorkspace(o);
    const kv::SaturationTable* table = nullptr;
    int code = 0;
    if (!SelectFluid(ws, o.args[1], &table, code)) return code;
    const double tK = tC + 273.15;
    if (!InsideTable(*table, tK))
        return Fail(o.args[2] + " °C is outside the table of " + ws.project.KaelteM + " (" +
                    Celsius(table->rows.front().t) + " to " + Celsius(table->rows.back().t) + ")");
    int rows = 0;
    kv::ReadSaturationRows(ws, tK, rows, kv::ByTemperature);
    const double f = kv::RowFraction(ws.cycle, tK);
    auto col = [&](int c) {
        const double low = ws.cycle.lowRow.Column(c);
        return low + f * (ws.cycle.highRow.Column(c) - low);
    };
    nlohmann::json j;
    j["t"] = tK;
    j["pDew"] = col(2);
    j["pBubble"] = col(3);
    j["hLiq"] = col(4);
    j["hVap"] = col(5);
    j["rhoLiq"] = col(6);
    j["rhoVap"] = col(7);
    Print(o, j);
    return 0;
}

int CmdState(const Options& o) {
    double t0 = 0, tc = 0, tSuction = 0, subcooling = 0;
    if (o.args.size() != 6 || !NumberArg(o.args[2], t0) || !NumberArg(o.args[3], tc) ||
        !NumberArg(o.args[4], tSuction) || !NumberArg(o.args[5], subcooling))
        return Fail("usage: kelvaris-cli state NAME T0_C TC_C TSUCTION_C SUBCOOLING [--drive N] [--principle N]");
    kv::Workspace ws = MakeWorkspace(o);
    double v = 0;
    if (auto it = o.values.find("drive"); it != o.values.end()) {
        if (!NumberArg(it->second, v) || !kv::RoundedInteger(v, ws.project.VerdArt))
            return Fail("--drive takes a number 1 to 3");
    }
    if (auto it = o.values.find("principle"); it != o.values.end()) {
        if (!NumberArg(it->second, v) || !kv::RoundedInteger(v, ws.project.KondArt))
            return Fail("--principle takes a number 1 to 5");
    }
    const kv::SaturationTable* table = nullptr;
    int code = 0;
    if (!SelectFluid(ws, o.args[1], &table, code)) return code;
    const double t0K = t0 + 273.15, tcK = tc + 273.15;
    if (tc <= t0) return Fail("the condensing temperature must lie above the evaporating temperature");
    if (!InsideTable(*table, t0K) || !InsideTable(*table, t0K + 1))
        return Fail(o.args[2] + " °C is outside the table of " + ws.project.KaelteM + " (" +
                    Celsius(table->rows.front().t) + " to " + Celsius(table->rows.back().t) + ")");
    const bool transcritical = kv::IsCo2(ws.project.KaelteM) && tcK > 303.15;
    if (!transcritical && (!InsideTable(*table, tcK - 5) || !InsideTable(*table, tcK + 1)))
        return Fail(o.args[3] + " °C is outside the table of " + ws.project.KaelteM + " (condensing up to " +
                    Celsius(table->rows.back().t - 1) + ")");
    if (transcritical && !ws.properties.Supercritical(ws.DataDir(), "CO2_sh01.dat").present)
        return Fail("the supercritical CO2 table CO2_sh01.dat is missing in " + ws.project.DatenVerz);

    if (!kv::CycleStatePoints(ws, t0, tc, tSuction, subcooling)) return Fail("no property table for " + o.args[1]);
    const kv::CycleState& c = ws.cycle;
    for (double x : {c.pEvap, c.pCond, c.hVapEvap, c.hLiqCond, c.kappa, c.rhoDischarge})
        if (!std::isfinite(x)) return Fail("the state points of this operating point are not defined");
    nlohmann::json j;
    j["refrigerant"] = ws.project.KaelteM;
    j["tEvapK"] = c.tEvapK;
    j["tCondK"] = c.tCondK;
    j["pEvap"] = c.pEvap;
    j["pEvapBubble"] = c.pEvapBubble;
    j["hLiqEvap"] = c.hLiqEvap;
    j["hVapEvap"] = c.hVapEvap;
    j["rhoLiqEvap"] = c.rhoLiqEvap;
    j["rhoVapEvap"] = c.rhoVapEvap;
    j["rhoSuction"] = c.rhoSuction;
    j["pCond"] = c.pCond;
    j["hLiqCond"] = c.hLiqCond;
    j["hVapCond"] = c.hVapCond;
    j["rhoLiqCond"] = c.rhoLiqCond;
    j["rhoVapCond"] = c.rhoVapCond;
    j["cpLiquid"] = c.cpLiquid;
    j["dpdtEvap"] = c.dpdtEvap;
    j["dpdtRatio"] = c.dpdtRatio;
    j["rhoDischarge"] = c.rhoDischarge;
    j["tDischargeAlt"] = c.tDischargeAlt;
    j["pTranscritical"] = c.pTranscritical;
    j["hTranscritical"] = c.hTranscritical;
    j["etaIsRatio"] = c.etaIsRatio;
    j["pShaft"] = c.pShaft;
    j["qDesuperheat"] = c.qDesuperheat;
    j["etaVapEvap"] = c.etaVapEvap;
    j["etaVapSuction"] = c.etaVapSuction;
    j["etaVapDischarge"] = c.etaVapDischarge;
    j["etaLiqEvap"] = c.etaLiqEvap;
    j["etaLiqCond"] = c.etaLiqCond;
    j["molarMass"] = c.molarMass;
    j["cpVapEvap"] = c.cpVapEvap;
    j["cpVapSuction"] = c.cpVapSuction;
    j["cpVapDischarge"] = c.cpVapDischarge;
    j["kappa"] = c.kappa;
    j["kappaAlt"] = c.kappaAlt;
    j["tDischargeK"] = c.tDischargeC + 273.15;
    j["subcooling"] = subcooling;
    Print(o, j);
    return 0;
}

}  // namespace kvcli
