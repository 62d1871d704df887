// Drives the project load with an arbitrary project file (the check for a
// file cut short, the load itself and the swap of the working set), then what
// a user does next with it: the input check of the data screen and, when the
// check lets it through, the plant scheme screen's first calculation. A good
// start for the corpus are the sample projects of data/samples.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "project/project_io.h"
#include "shell/files.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace {

// One prepared workspace: settings, factory data and captions in a folder
// of its own; each input starts from a copy of it.
const kv::Workspace& Prepared() {
    static const kv::Workspace base = [] {
        const std::filesystem::path dir =
            std::filesystem::temp_directory_path() / ("kv_fuzz_project_" + std::to_string(getpid()));
        std::filesystem::create_directories(dir / "docs");
        kv::Workspace ws;
        ws.settingsFile = dir / "kparam.dat";
        ws.documentsDir = dir / "docs";
        ws.historyDir = dir;
        ws.factoryDir = KELVARIS_FACTORY_DATA;
        ws.dataDirOverride = dir / "data";
        kv::PrepareWorkspace(ws);
        return ws;
    }();
    return base;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    kv::Workspace ws = Prepared();
    kv::WriteFileAtomic(ws.DataDir() / "fuzz.prj", std::string(reinterpret_cast<const char*>(data), size));
    std::string type = ws.project.AnlagenTyp;
    const kv::LoadOutcome out = kv::LoadProjectChecked(ws, type, "fuzz.prj", "");
    if (out.warnings.size() > 2 || ws.staging) __builtin_trap();
    if (!out.loaded) return 0;
    kv::DataScreen screen;
    kv::OpenDataScreen(ws, screen);
    ws.project.AnlagenTyp = type;
    if (kv::CheckInput(ws, &screen).Count() != 0) return 0;
    if (!kv::StartCalculation(ws, screen)) return 0;
    kv::SchemeScreen scheme;
    kv::OpenSchemeScreen(ws, scheme);
    kv::CalculateCycle(ws, scheme, kv::FirstCalculation);
    return 0;
}
