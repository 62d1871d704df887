// Drives LoadSettings with an arbitrary kparam.dat.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "shell/files.h"
#include "shell/settings.h"
#include "shell/workspace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("kv_fuzz_settings_" + std::to_string(getpid()));
    std::filesystem::create_directories(dir / "docs");
    kv::Workspace ws;
    ws.settingsFile = dir / "kparam.dat";
    ws.documentsDir = dir / "docs";
    // A data directory named in the file would be made where it names: the
    // run's own directory keeps the fuzz run inside the temporary folder.
    ws.dataDirOverride = dir / "data";
    kv::WriteFileAtomic(ws.settingsFile, std::string(reinterpret_cast<const char*>(data), size));
    kv::LoadSettings(ws);
    return 0;
}
