// Speed of the cycle kernel: one whole operating point, plain and with economizer.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace {

namespace fs = std::filesystem;

void Kernel(benchmark::State& state, const char* sample) {
    const fs::path root = fs::temp_directory_path() / "kv_bench_cycle";
    fs::create_directories(root / "docs");
    kv::Workspace ws;
    ws.settingsFile = root / "kparam.dat";
    ws.documentsDir = root / "docs";
    ws.factoryDir = KELVARIS_FACTORY_DATA;
    kv::PrepareWorkspace(ws);
    std::string type = "HeatP";
    const std::string dir = (ws.DataDir() / "samples").string() + "/";
    kv::LoadProject(ws, type, dir + sample, dir);
    kv::DataScreen data;
    kv::OpenDataScreen(ws, data);
    ws.project.AnlagenTyp = type;
    kv::StartCalculation(ws, data);
    kv::SchemeScreen s;
    kv::OpenSchemeScreen(ws, s);
    kv::CalculateCycle(ws, s, kv::Recalculate);
    for (auto _ : state) {
        kv::CalculateCycle(ws, s, kv::Silent);
        benchmark::DoNotOptimize(ws.cycle.pShaft);
    }
}
BENCHMARK_CAPTURE(Kernel, plain_R410A, "Brine_R410A.prj");
BENCHMARK_CAPTURE(Kernel, economizer_R134a, "Economizer_R134a.prj");

}  // namespace
