// Command of the parts lists: lists.
#include <filesystem>
#include <iostream>
#include <system_error>

#include "cli.h"
#include "cycle/scheme_screen.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "shell/files.h"

namespace kvcli {

namespace {

nlohmann::json Rows(const kv::Workspace& ws, std::string_view name) {
    int head = 0, items = 0;
    kv::ListLayout(name, head, items);
    nlohmann::json rows = nlohmann::json::array();
    for (const auto& row : kv::ReadListFile(ws, name, head, items).rows) rows.push_back(row);
    return rows;
}

}  // namespace

bool CalculateWithLists(const Options& o, kv::Workspace& ws, kv::SchemeScreen& scheme, int& code, int* emptyRows) {
    if (!CalculateProject(o, ws, scheme, code)) return false;
    // A fresh run: the fittings of earlier calculations are not this plant's.
    kv::DeleteFile(ws, kv::lists::kFittings);
    const bool written = kv::WriteCalculationLists(ws);
    const kv::ListGeneration g = kv::GenerateLists(ws);
    if (emptyRows) *emptyRows = g.emptyRows;
    if (!written || !g.ok) {
        std::cerr << "kelvaris-cli: " << (g.message.empty() ? "the lists could not be written" : g.message) << "\n";
        code = 1;
        return false;
    }
    return true;
}

int CmdLists(const Options& o) {
    if (o.args.size() != 2) return Fail("usage: kelvaris-cli lists PROJECT.prj [--out-dir DIR]");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0, empty = 0;
    kv::SchemeScreen scheme;
    if (!CalculateWithLists(o, ws, scheme, code, &empty)) return code;
    bool ok = true;
    nlohmann::json j;
    j["parts"] = Rows(ws, kv::lists::kParts);
    j["units"] = Rows(ws, kv::lists::kUnits);
    j["pipes"] = Rows(ws, kv::lists::kPipes);
    j["fittings"] = Rows(ws, kv::lists::kFittings);
    const auto charge = kv::ReadCharge(ws);
    j["charge"] = {charge[0], charge[1]};
    j["emptyRows"] = empty;
    if (const auto dir = o.values.find("out-dir"); dir != o.values.end()) {
        std::error_code ec;
        std::filesystem::create_directories(dir->second, ec);
        for (std::string_view name : {kv::lists::kParts, kv::lists::kPartsChange, kv::lists::kUnits,
                                      kv::lists::kUnitsChange, kv::lists::kPipes, kv::lists::kFittings,
                                      kv::lists::kCharge, kv::lists::kComponentResults, kv::lists::kLineResults,
                                      kv::lists::kLineSizes}) {
            std::filesystem::copy_file(kv::ResolveName(ws, name), std::filesystem::path(dir->second) / name,
                                       std::filesystem::copy_options::overwrite_existing, ec);
            if (ec) {
                std::cerr << "kelvaris-cli: " << name << " could not be written to " << dir->second << "\n";
                ok = false;
            }
        }
    }
    Print(o, j);
    return ok ? 0 : 1;
}

}  // namespace kvcli
