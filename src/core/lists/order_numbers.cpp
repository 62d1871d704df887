#include "lists/order_numbers.h"

#include <algorithm>

#include "catalogue/catalogue.h"
#include "catalogue/selection.h"
#include "lists/list_rows.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

void ReadList(const Workspace& ws, std::string_view list, std::string_view change, int headerItems,
              const std::vector<InstalledCatalogue>& catalogues, std::vector<OrderLine>& out) {
    const ListFile f = ReadListFile(ws, list, headerItems, lists::kUnitRow);
    RecordReader blocks = OpenIn(ws, change);
    std::string maker, kind;
    for (const auto& row : f.rows) {
        if (!Trim(row[0]).empty()) {
            // A component row: its maker is the catalogue its block names.
            std::array<std::string, lists::kChangeGenerated> b;
            for (std::string& item : b) blocks.Read(item);
            const std::string base = b[9].substr(0, std::min<std::size_t>(7, b[9].size()));
            maker = base;
            for (const InstalledCatalogue& c : catalogues)
                if (EqualsNoCase(c.base, base)) maker = c.title;
            kind = row[0];
        }
        const std::string order(Trim(row[3]));
        if (order.empty() || Trim(row[1]) == Trim(kEmptyArticle) || order.find("Zubehör") != std::string::npos) {
            // Accessory rows carry the parent word in the order column: their
            // designation holds the article, its order number behind the last comma.
            if (Trim(row[0]).empty() && !Trim(row[1]).empty()) {
                const std::string text(Trim(row[1]));
                const std::size_t comma = text.rfind(", ");
                const std::string number = comma == std::string::npos ? text : text.substr(comma + 2);
                const std::string name = comma == std::string::npos ? std::string(Trim(row[2])) : text.substr(0, comma);
                out.push_back({maker, number, name, kind, std::max(1, WholeNumber(ToNumber(Trim(row[7]))))});
            }
            continue;
        }
        out.push_back({maker, order, std::string(Trim(row[1])), kind, std::max(1, WholeNumber(ToNumber(Trim(row[7]))))});
    }
}

}  // namespace

void OpenOrderNumbers(const Workspace& ws, OrderNumbersScreen& s) {
    s = OrderNumbersScreen{};
    const std::vector<InstalledCatalogue> catalogues = ReadCatalogueList(ws);
    std::vector<OrderLine> lines;
    ReadList(ws, lists::kUnits, lists::kUnitsChange, lists::kHeader, catalogues, lines);
    ReadList(ws, lists::kParts, lists::kPartsChange, lists::kPartsHeader, catalogues, lines);
    // Equal order numbers of one maker are one line with the quantities added.
    for (const OrderLine& l : lines) {
        auto same = std::find_if(s.all.begin(), s.all.end(), [&](const OrderLine& o) {
            return o.maker == l.maker && o.orderNumber == l.orderNumber;
        });
        if (same != s.all.end()) same->quantity += l.quantity;
        else s.all.push_back(l);
        if (std::find(s.makers.begin(), s.makers.end(), l.maker) == s.makers.end()) s.makers.push_back(l.maker);
    }
    ChooseOrderMaker(s, -1);
}

void ChooseOrderMaker(OrderNumbersScreen& s, int maker) {
    s.maker = maker >= 0 && maker < static_cast<int>(s.makers.size()) ? maker : -1;
    s.shown.clear();
    for (const OrderLine& l : s.all)
        if (s.maker < 0 || l.maker == s.makers[static_cast<std::size_t>(s.maker)]) s.shown.push_back(l);
}

std::string OrderText(const OrderNumbersScreen& s) {
    std::string out;
    for (const OrderLine& l : s.shown)
        out += std::to_string(l.quantity) + "\t" + l.orderNumber + "\t" + l.designation + "\t" + l.maker + "\n";
    return out;
}

}  // namespace kv
