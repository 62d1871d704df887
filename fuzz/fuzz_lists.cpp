// Drives the readers of the list files with arbitrary bytes: every layout,
// the change blocks in both counts and the line size file's reader form.
#include <cstddef>
#include <cstdint>
#include <string>

#include "lists/list_rows.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (std::string_view name : {kv::lists::kParts, kv::lists::kUnits, kv::lists::kPipes, kv::lists::kFittings,
                                  kv::lists::kWiring, kv::lists::kPed}) {
        int head = 0, items = 0;
        kv::ListLayout(name, head, items);
        const kv::ListFile f = kv::ParseListText(text, head, items);
        for (const auto& row : f.rows)
            if (row.size() != static_cast<std::size_t>(items)) __builtin_trap();
    }
    for (int items : {kv::lists::kChangeGenerated, kv::lists::kChangeSaved})
        for (const auto& block : kv::ParseListText(text, 0, items).rows)
            (void)kv::PressureOfChangeItem(block[3]);
    return 0;
}
