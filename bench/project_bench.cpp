// Speed of saving and loading a project: each write goes through a
// temporary file flushed to the disk; a load writes its working set aside
// and swaps it in with one flush.
#include <benchmark/benchmark.h>

#include "bench_workspace.h"
#include "project/project_io.h"

namespace {

void SaveAndLoad(benchmark::State& state, bool save) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_project");
    kv::SchemeScreen s;
    kvbench::CalculateSample(ws, s, "Brine_R410A.prj");
    ws.project.ProjektDatei = "Bench.prj";
    ws.ui.askYesNo = [](const std::string&, const std::string&) { return true; };
    kv::SaveProjectAndTell(ws, "HeatP", "");
    const std::string file = (ws.DataDir() / "Bench.prj").string();
    for (auto _ : state) {
        if (save) {
            benchmark::DoNotOptimize(kv::SaveProjectAndTell(ws, "HeatP", ""));
        } else {
            std::string type = "HeatP";
            benchmark::DoNotOptimize(kv::LoadProjectChecked(ws, type, file, ws.project.DatenVerz + "/").loaded);
        }
    }
}
BENCHMARK_CAPTURE(SaveAndLoad, save, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(SaveAndLoad, load, false)->Unit(benchmark::kMillisecond);

}  // namespace
