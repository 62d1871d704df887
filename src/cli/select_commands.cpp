// Command of the component selection: select.
#include <cmath>
#include <iostream>

#include "catalogue/catalogue.h"
#include "catalogue/selection.h"
#include "catalogue/selection_plan.h"
#include "catalogue/selection_table.h"
#include "cli.h"
#include "cycle/scheme_screen.h"

namespace kvcli {

namespace {

double Finite(double v) { return std::isfinite(v) ? v : 0.0; }

nlohmann::json RowJson(int kind, const kv::RatedRow& r, const kv::Article* a, double duty) {
    nlohmann::json j = {{"record", r.record}, {"type", r.type}, {"passes", r.passes}};
    const int group = kv::KindGroupCode(kind);
    if (kind == 12) {
        j["requiredSweptVolume"] = Finite(r.requiredSweptVolume);
    } else if (kind == 17) {
        j["capacity"] = Finite(r.capacity);
        j["neededVolume"] = Finite(r.neededVolume);
    } else if (kind == 2 || kind == 11 || (kind >= 8 && kind <= 10) || group == 600 || group == 650) {
        j["capacity"] = Finite(r.capacity);
    } else {
        j["kvNeeded"] = Finite(r.kvNeeded);
        j["drop"] = Finite(r.drop);
        j["share"] = Finite(r.share);
    }
    const bool wide = group == 600 || group == 650;
    const double rated = kind == 12 ? 0.0 : r.capacity;
    j["band"] = kind == 12 || rated == 0 ? std::string(kv::BandName(kv::CapacityBand::Other))
                                         : std::string(kv::BandName(kv::BandOf(rated, duty, wide)));
    if (a && wide) j["energyClass"] = kv::EnergyClass(group, *a);
    return j;
}

}  // namespace

int CmdSelect(const Options& o) {
    const auto kindArg = o.values.find("kind");
    double kindValue = 0;
    if (o.args.size() != 2 || kindArg == o.values.end() || !NumberArg(kindArg->second, kindValue))
        return Fail("usage: kelvaris-cli select PROJECT.prj --kind N [--line NAME] [--series BASE:POSITION]");
    const int kind = static_cast<int>(kindValue);
    if (kv::KindGroupCode(kind) < 0) return Fail("kelvaris-cli: no component kind " + kindArg->second);
    kv::SelectRequest q;
    bool found = false;
    const auto line = o.values.find("line");
    kv::Workspace ws = MakeWorkspace(o);
    int code = 0;
    kv::SchemeScreen scheme;
    if (!CalculateProject(o, ws, scheme, code)) return code;
    for (const kv::SelectRequest& p : kv::PlantSelectionPlan(ws))
        if (p.kind == kind && (line == o.values.end() || p.lineName == line->second)) {
            q = p;
            q.flagA = 1;  // rated even where the line sheet counts none of the kind
            found = true;
            break;
        }
    if (!found) {
        if (line == o.values.end()) return Fail("kelvaris-cli: the plant has no component of kind " + kindArg->second);
        return Fail("kelvaris-cli: no component of kind " + kindArg->second + " in the line " + line->second);
    }
    if (const auto series = o.values.find("series"); series != o.values.end()) {
        const std::size_t colon = series->second.find(':');
        double position = 0;
        if (colon == std::string::npos || !NumberArg(series->second.substr(colon + 1), position) || position < 1)
            return Fail("kelvaris-cli: --series takes BASE:POSITION");
        q.catalogueFile = kv::RecordFileName(series->second.substr(0, std::min<std::size_t>(colon, 7)));
        q.position = kv::OldPositionToNew(static_cast<int>(position));
    }
    q.wholeSeries = true;
    kv::SelectionState state;
    const kv::SelectionResult r = kv::SelectComponent(ws, state, q);
    nlohmann::json rows = nlohmann::json::array();
    for (const kv::RatedRow& row : r.rows) {
        const kv::Article* a = row.record == r.taken ? &r.article : nullptr;
        rows.push_back(RowJson(kind, row, a, Finite(r.duty)));
    }
    // The energy class needs every row's article: read them again only for
    // the heat exchanger groups.
    const int group = kv::KindGroupCode(kind);
    if ((group == 600 || group == 650) && !r.catalogueFile.empty()) {
        const auto articles = kv::ReadSeriesArticles(ws, r.catalogueFile.substr(0, 7), r.position);
        for (std::size_t i = 0; i < rows.size() && i < articles.size(); ++i)
            rows[i]["energyClass"] = kv::EnergyClass(group, articles[i].article);
    }
    nlohmann::json j = {{"kind", kind},
                        {"line", q.lineName},
                        {"lineSize", q.lineSize},
                        {"catalogue", r.catalogueFile},
                        {"position", r.position},
                        {"duty", Finite(r.duty)},
                        {"rows", rows},
                        {"taken", r.taken},
                        {"type", r.article.Field(kv::field::Type)},
                        {"lastDrop", Finite(state.lastDrop)}};
    if (r.skipped) j["skipped"] = true;
    if (!r.message.empty()) j["message"] = r.message;
    if (state.valveCondensingSet) j["valveCondensingC"] = state.valveCondensingC;
    if (o.json) {
        std::cout << JsonText(j) << "\n";
    } else {
        std::cout << "duty: " << j["duty"].dump() << "\n";
        for (const auto& row : rows) std::cout << row.dump() << "\n";
        std::cout << "taken: " << r.taken << "\nlastDrop: " << j["lastDrop"].dump() << "\n";
    }
    return 0;
}

}  // namespace kvcli
