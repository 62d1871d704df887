// Command of the PED classification: ped.
#include <iostream>

#include "cli.h"
#include "compliance/ped.h"
#include "cycle/scheme_screen.h"
#include "energy/annual.h"
#include "shell/text.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/files.h"

namespace kvcli {

int CmdPed(const Options& o) {
    double high = 1;
    if (const auto h = o.values.find("high"); h != o.values.end() && (!NumberArg(h->second, high) || high < 1 || high > 3))
        return Fail("kelvaris-cli: --high takes 1, 2 or 3");
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli ped PROJECT.prj [--high 1|2|3]");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    kv::SchemeScreen scheme;
    // The units list the classification reads: generated for this plant.
    if (!CalculateWithLists(o, ws, scheme, code)) return code;
    kv::PedScreen s;
    kv::OpenPedScreen(ws, s, static_cast<int>(high));
    // A heat pump's eco protocol carries the figures of its typical year.
    kv::SeasonalResult year;
    const std::string type = kv::UpperAscii(ws.project.AnlagenTyp);
    if (type == "HEATP" || type == "HEATPUMP-2ST") year = kv::RechKern(ws, scheme);
    const bool written = kv::WritePedProtocol(ws, s) && kv::WriteEcoProtocol(ws, &year);

    nlohmann::json j;
    j["ps1"] = s.ps1;
    j["ps2"] = s.ps2;
    j["ps2x11"] = s.ps2x11;
    j["fluidGroupPart"] = s.group1Part ? 1 : 2;
    j["fluidGroupAssembly"] = s.group1Assembly ? 1 : 2;
    j["dn1"] = s.dn1;
    j["dn2"] = s.dn2;
    j["psdn"] = s.psdn;
    j["assembly"] = {{"index", s.assemblyIndex}, {"text", s.assemblyText}};
    j["plant"] = {{"index", s.plantIndex}, {"text", s.plantText}};
    nlohmann::json rows = nlohmann::json::array();
    for (const kv::PedRow& r : s.rows)
        rows.push_back({{"component", r.component},
                        {"basis", r.basis},
                        {"size", r.size},
                        {"product", r.product},
                        {"index", r.index},
                        {"text", r.text}});
    j["rows"] = rows;
    Print(o, j);
    if (!written) std::cerr << "kelvaris-cli: the protocol files could not be written\n";
    return written ? 0 : 1;
}

}  // namespace kvcli
