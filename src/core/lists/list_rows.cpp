#include "lists/list_rows.h"

#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

ListFile ParseListText(std::string text, int headerItems, int rowItems) {
    ListFile f;
    RecordReader in(std::move(text));
    std::string item;
    for (int i = 0; i < headerItems && in.Read(item); ++i) f.header.push_back(item);
    if (rowItems <= 0) return f;
    while (!in.AtEnd()) {
        std::vector<std::string> row;
        row.reserve(static_cast<std::size_t>(rowItems));
        for (int i = 0; i < rowItems; ++i) {
            item.clear();
            if (!in.Read(item)) break;
            row.push_back(item);
        }
        if (row.empty()) break;
        row.resize(static_cast<std::size_t>(rowItems));
        f.rows.push_back(std::move(row));
    }
    return f;
}

ListFile ReadListFile(const Workspace& ws, std::string_view name, int headerItems, int rowItems) {
    return ParseListText(ReadWholeFile(ResolveName(ws, name)), headerItems, rowItems);
}

bool ListLayout(std::string_view name, int& headerItems, int& rowItems) {
    using namespace lists;
    if (name == kParts) headerItems = kPartsHeader, rowItems = kUnitRow;
    else if (name == kUnits) headerItems = kHeader, rowItems = kUnitRow;
    else if (name == kPipes || name == kWiring) headerItems = kHeader, rowItems = kPipeRow;
    else if (name == kFittings) headerItems = kHeader, rowItems = kFittingRow;
    else if (name == kPed) headerItems = 0, rowItems = kPedRow;
    else return false;
    return true;
}

std::vector<std::vector<std::string>> ReadChangeBlocks(const Workspace& ws, std::string_view name, int items) {
    return ParseListText(ReadWholeFile(ResolveName(ws, name)), 0, items).rows;
}

std::array<double, 2> ReadCharge(const Workspace& ws) {
    std::array<double, 2> v{};
    RecordReader in = OpenIn(ws, lists::kCharge);
    in.Read(v[0]);
    in.Read(v[1]);
    return v;
}

std::array<std::string, 4> ListHeader(const Workspace& ws) {
    return {ws.project.ProjektNam, ws.project.ProBeschr, DateText(ws.settings.DatumFormat), ws.project.AnlagenTyp};
}

bool WriteListText(const Workspace& ws, std::string_view name, const std::string& text, bool append) {
    OutFile out = append ? OpenAppend(ws, name) : OpenOut(ws, name);
    if (!text.empty()) out.Write().Raw(text);
    return out.Close();
}

std::string PressureOfChangeItem(std::string_view item) {
    const std::size_t at = item.find("$§$");
    return at == std::string_view::npos ? std::string() : std::string(item.substr(at + std::string_view("$§$").size()));
}

}  // namespace kv
