// Commands of the costing and the export: cost, export.
#include <iostream>

#include "cli.h"
#include "cycle/scheme_screen.h"
#include "lists/calc_lists.h"
#include "lists/costing.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/files.h"
#include "workbook/workbook.h"

namespace kvcli {

namespace {

// The lists of the project: calculated and generated as the desktop does.
bool ProjectLists(const Options& o, kv::Workspace& ws, int& code) {
    kv::SchemeScreen scheme;
    return CalculateWithLists(o, ws, scheme, code);
}

nlohmann::json Rows(const std::vector<kv::CostRow>& rows) {
    nlohmann::json out = nlohmann::json::array();
    for (const kv::CostRow& r : rows) out.push_back(r);
    return out;
}

}  // namespace

int CmdCost(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli cost PROJECT.prj");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    if (!ProjectLists(o, ws, code)) return code;
    std::vector<kv::CostRow> rows = kv::RunCosting(ws, kv::CostingMode::Costing);
    const kv::BasicRates rates = kv::ReadBasicRates(ws);
    const kv::CostSums s = kv::RecalculateCosts(rows, rates);
    kv::WriteCostRows(ws, kv::CostingMode::Costing, rows);
    nlohmann::json j;
    j["rates"] = {{"labourRate", rates.R()}, {"surchargeLabour", rates.SL()}, {"surchargeMaterial", rates.SM()}};
    j["rows"] = Rows(rows);
    j["sums"] = {{"labourCost", kv::Money(s.labourCost)}, {"materialCost", kv::Money(s.materialCost)},
                 {"sales", kv::Money(s.sales)},           {"margin", kv::Money(s.margin)},
                 {"marginPercent", s.marginPercent},      {"hours", s.hours},
                 {"minutes", s.restMinutes}};
    j["currency"] = ws.settings.Waehrung;
    Print(o, j);
    return 0;
}

int CmdExport(const Options& o) {
    double target = 0;
    const auto t = o.values.find("target");
    const auto out = o.values.find("out");
    if (o.args.size() != 2 || t == o.values.end() || out == o.values.end() || !NumberArg(t->second, target) ||
        target < 1 || target > 4)
        return Fail("usage: kelvaris-cli export PROJECT.prj --target 1|2|3|4 --out FILE\n"
                    "  1 Excel-File (tab text), 2 DBase-File (comma text), 3 ASCII/ANSI-File, 4 workbook .xlsx");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    if (!ProjectLists(o, ws, code)) return code;
    const std::vector<kv::CostRow> rows = kv::RunCosting(ws, kv::CostingMode::Export);
    bool ok = false;
    std::string error;
    if (target == 4) {
        ok = kvbook::WriteWorkbook(out->second, kv::EnquiryWorkbook(ws, rows), ws.project.ProjektNam, error);
    } else {
        ok = kv::WriteExportFile(out->second, kv::kExportTargets[static_cast<std::size_t>(target) - 1], rows);
        if (!ok) error = "cannot write " + out->second;
    }
    if (!ok) {
        std::cerr << "kelvaris-cli: " << error << "\n";
        return 1;
    }
    nlohmann::json j;
    j["rows"] = rows.size();
    j["file"] = out->second;
    Print(o, j);
    return 0;
}

}  // namespace kvcli
