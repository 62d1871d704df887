// Commands of the catalogues: catalogues, catalogue, matchcode.
#include <iostream>

#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "cli.h"
#include "shell/files.h"
#include "shell/numbers.h"

namespace kvcli {
namespace {

nlohmann::json ArticleJson(const kv::SeriesArticle& row) {
    const kv::Article& a = row.article;
    nlohmann::json fields = nlohmann::json::array();
    for (const std::string& f : a.fields) fields.push_back(f);
    return {{"record", row.record},
            {"type", a.Field(kv::field::Type)},
            {"orderNumber", a.Field(kv::field::OrderNumber)},
            {"connection", a.Field(kv::field::Connection)},
            {"description", a.Field(kv::field::Description)},
            {"fields", fields},
            {"price", a.Number(kv::field::Price)}};
}

void PrintJson(const nlohmann::json& j) {
    std::cout << j.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << "\n";
}

}  // namespace

int CmdCatalogues(const Options& o) {
    if (o.args.size() != 1) return Fail("usage: kelvaris-cli catalogues");
    kv::Workspace ws = MakeWorkspace(o);
    nlohmann::json list = nlohmann::json::array();
    for (const kv::InstalledCatalogue& c : kv::ReadCatalogueList(ws)) {
        const int kind = kv::CatalogueKind(ws, c.base);
        if (o.json) list.push_back({{"base", c.base}, {"title", c.title}, {"kind", kind}, {"file", c.file}});
        else std::cout << c.base << "  " << kind << "  " << c.title << "\n";
    }
    if (o.json) PrintJson(list);
    return 0;
}

int CmdCatalogue(const Options& o) {
    const auto group = o.values.find("group");
    double code = 0;
    if (o.args.size() != 2 || group == o.values.end() || !NumberArg(group->second, code))
        return Fail("usage: kelvaris-cli catalogue BASE --group CODE");
    kv::Workspace ws = MakeWorkspace(o);
    const std::string base = o.args[1].substr(0, 7);
    if (kv::FileLength(ws, kv::RecordFileName(base)) == 0) {
        std::cerr << "kelvaris-cli: no catalogue " << base << " in " << ws.project.DatenVerz << "\n";
        return 1;
    }
    nlohmann::json series = nlohmann::json::array();
    for (const kv::CatalogueSeries& s : kv::CatalogueSeriesForGroup(ws, base, static_cast<int>(code))) {
        nlohmann::json articles = nlohmann::json::array();
        for (const kv::SeriesArticle& row : kv::ReadSeriesArticles(ws, base, s.position)) {
            if (o.json) articles.push_back(ArticleJson(row));
            else
                std::cout << s.name << "  " << row.record << "  " << row.article.Field(kv::field::Type) << "  "
                          << row.article.Field(kv::field::OrderNumber) << "\n";
        }
        series.push_back({{"slot", s.slot}, {"series", s.name}, {"position", s.position}, {"articles", articles}});
    }
    if (o.json)
        PrintJson({{"base", base}, {"kind", kv::CatalogueKind(ws, base)}, {"group", static_cast<int>(code)},
                   {"series", series}});
    return 0;
}

int CmdMatchcode(const Options& o) {
    if (o.args.size() != 1) return Fail("usage: kelvaris-cli matchcode");
    kv::Workspace ws = MakeWorkspace(o);
    const int rows = kv::BuildMatchcode(ws, [](int percent) { std::cerr << "Matchcode " << percent << "%\r"; });
    std::cerr << "\n";
    Print(o, {{"indexRows", rows}, {"catalogues", kv::ReadCatalogueList(ws).size()}});
    return 0;
}

}  // namespace kvcli
