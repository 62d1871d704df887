// Drives the catalogue record reader with arbitrary bytes: the bytes are a
// record file, and the first bytes choose the series position to read.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "catalogue/catalogue.h"
#include "shell/files.h"
#include "fuzz_catalogue_workspace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static kv::Workspace& ws = FuzzCatalogueWorkspace("kv_fuzz_cat_");
    const std::filesystem::path dir = ws.DataDir();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const int position = size > 0 ? static_cast<int>(data[0]) * 4 + 2 : 2;
    kv::WriteFileAtomic(dir / "FUZZCKPN.rdm", bytes);
    kv::WriteFileAtomic(dir / "FUZZCKPI.rdm", bytes);
    kv::WriteFileAtomic(dir / "FUZZCKPA.rdm", bytes);
    for (const auto& row : kv::ReadSeriesArticles(ws, "FUZZCKP", position))
        (void)kv::EncodeArticle(row.article);
    (void)kv::ReadSeriesNames(ws, "FUZZCKP");
    (void)kv::ReadAccessoryTexts(ws, "FUZZCKP", position);
    (void)kv::CatalogueKind(ws, "FUZZCKP");
    (void)kv::DecodeArticle(bytes);
    (void)kv::AnsiToOem(bytes);
    return 0;
}
