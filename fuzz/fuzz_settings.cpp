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
    kv::WriteFileAtomic(ws.settingsFile, std::string(reinterpret_cast<const char*>(data), size));
    kv::LoadSettings(ws);
    // The data directory named in the file is not created by a fuzz run
    // outside the temporary folder: only the default one is.
    return 0;
}
