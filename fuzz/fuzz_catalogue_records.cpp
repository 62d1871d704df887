// Drives the catalogue record reader with arbitrary bytes: the bytes are a
// record file, and the first bytes choose the series position to read.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "catalogue/catalogue.h"
#include "shell/files.h"
#include "shell/workspace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    namespace fs = std::filesystem;
    static const fs::path dir = fs::temp_directory_path() / ("kv_fuzz_cat_" + std::to_string(getpid()));
    static kv::Workspace ws = [] {
        kv::Workspace w;
        fs::create_directories(dir);
        w.project.DatenVerz = dir.string();
        return w;
    }();
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
