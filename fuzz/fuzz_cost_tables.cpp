// Drives the readers of the costing with arbitrary bytes: list rows and the
// grid paste of the export screen, the part-table and file-name choices of a
// size text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "lists/costing.h"
#include "lists/list_rows.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const auto& row : kv::ParseListText(text, 0, 14).rows) {
        std::vector<kv::CostRow> rows(1);
        for (std::size_t i = 0; i < 14 && i < row.size(); ++i) rows[0][i] = row[i];
        kv::BasicRates r;
        r.record[0] = row[0];
        (void)kv::RecalculateCosts(rows, r);
        (void)kv::MergeEqualRows(rows, true);
        for (std::string_view t : kv::kExportTargets) (void)kv::ExportText(t, rows);
    }
    (void)kv::PartTableFor(text, "_RED");
    (void)kv::PipeTableFor(text);
    (void)kv::SizeBand(text.size());
    return 0;
}
