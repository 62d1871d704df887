// Drives katalg.lst and the Matchcode build with arbitrary bytes as the list
// and as one catalogue's series file; then reads an index back.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "shell/files.h"
#include "fuzz_catalogue_workspace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static kv::Workspace& ws = FuzzCatalogueWorkspace("kv_fuzz_lst_");
    const std::filesystem::path dir = ws.DataDir();
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    kv::WriteFileAtomic(dir / "katalg.lst", bytes + "\r\n\"FUZZCKPN.rdm\",\"fuzz\"\r\n");
    kv::WriteFileAtomic(dir / "FUZZCKPI.rdm", bytes);
    kv::WriteFileAtomic(dir / "Prodhide.dat", bytes);
    kv::BuildMatchcode(ws);
    for (int slot = 1; slot <= kv::kSlotCount; ++slot)
        for (const kv::SeriesEntry& e : kv::LookupSeries(ws, kv::SlotCode(slot), 'I')) {
            std::string title, base;
            kv::SplitCell(e.Cell(), title, base);
        }
    (void)kv::CompressorList(ws, "R404A");
    std::filesystem::remove(dir / "R404A.LST");
    return 0;
}
