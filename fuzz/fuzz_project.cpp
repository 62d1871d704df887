// Drives the project load with an arbitrary project file: the check for a
// file cut short, the load itself and the swap of the working set.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "project/project_io.h"
#include "shell/files.h"
#include "shell/workspace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::filesystem::path dir =
        std::filesystem::temp_directory_path() / ("kv_fuzz_project_" + std::to_string(getpid()));
    std::filesystem::create_directories(dir);
    kv::Workspace ws;
    ws.project.DatenVerz = dir.string();
    kv::WriteFileAtomic(dir / "fuzz.prj", std::string(reinterpret_cast<const char*>(data), size));
    std::string type = "HeatP";
    const kv::LoadOutcome out = kv::LoadProjectChecked(ws, type, "fuzz.prj", "");
    if (out.warnings.size() > 2 || ws.staging) __builtin_trap();
    return 0;
}
