// Commands of the energy calculation: annual, the seasonal performance of a
// heat pump over the typical year of the data directory's JG_HEAT.DAT.
#include <iostream>

#include "cli.h"
#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "energy/annual.h"
#include "shell/data_dir_access.h"
#include "shell/files.h"

namespace kvcli {

int CmdAnnual(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli annual PROJECT.prj");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    kv::SchemeScreen scheme;
    // The design point first, as calc gives it: the year holds its compressor.
    if (!CalculateProject(o, ws, scheme, code)) return code;
    const kv::SeasonalResult r = kv::RechKern(ws, scheme);
    if (!r.ran) {
        std::cerr << "kelvaris-cli: the seasonal performance could not be calculated\n";
        return 1;
    }
    // The hour table is what this command leaves in the data directory.
    if (const kv::WriteFailure f = kv::CopyBackToDataDirectory(ws, {kv::kSeasonFile})) {
        std::cerr << "kelvaris-cli: the hour table was not written: " << f.Text() << "\n";
        return 1;
    }

    nlohmann::json j;
    j["refrigerant"] = ws.project.KaelteM;
    j["heatSource"] = ws.project.PairText;
    j["scop"] = r.scop;
    j["etaSh"] = r.etaSh;
    j["copMinusOne"] = r.copMinusOne;
    j["copMax"] = r.copMax;
    j["copMin"] = r.copMin;
    j["electricEnergy"] = r.energyTotal;
    j["heatDemand"] = r.heatDemand;
    j["annualCost"] = r.annualCost;
    j["currency"] = ws.settings.Waehrung;
    j["co2Tons"] = r.co2Tons;
    j["extraHeat"] = r.extraHeat;
    j["extraHeatCost"] = r.extraHeatCost;
    j["heatingHours"] = r.heatingHours;
    j["fullLoadHours"] = r.weightedHours;
    j["designQh"] = ws.cycle.Qh;
    j["designCop"] = ws.cycle.cop;
    // Hours the refrigerant model puts above the Carnot limit: the sCOP
    // counts them as the model gives them, the engineer is told.
    j["warnings"] = ws.loadWarnings;
    if (r.hoursAboveCarnot > 0)
        j["warnings"].push_back(std::to_string(static_cast<long>(r.hoursAboveCarnot)) +
                                " h of the year with an EER above Carnot");
    j["hourTable"] = kv::ResolveName(ws.sharedDataDir, kv::kSeasonFile).string();
    return PrintFigures(o, j);
}

}  // namespace kvcli
