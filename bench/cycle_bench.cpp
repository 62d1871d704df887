// Speed of the cycle kernel: one whole operating point, plain and with economizer.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench_workspace.h"
#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace {

namespace fs = std::filesystem;

void Kernel(benchmark::State& state, const char* sample) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_cycle");
    kv::SchemeScreen s;
    kvbench::CalculateSample(ws, s, sample);
    for (auto _ : state) {
        kv::CalculateCycle(ws, s, kv::Silent);
        benchmark::DoNotOptimize(ws.cycle.pShaft);
    }
}
BENCHMARK_CAPTURE(Kernel, plain_R410A, "Brine_R410A.prj");
BENCHMARK_CAPTURE(Kernel, economizer_R134a, "Economizer_R134a.prj");

// The same cycle with every table and working file opened and parsed at each
// look-up, as they were read before the workspace held them.
void KernelRereading(benchmark::State& state, const char* sample) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_cycle");
    kv::SchemeScreen s;
    kvbench::CalculateSample(ws, s, sample);
    ws.properties.rereadEveryLookUp = true;
    ws.files.rereadEveryLook = true;
    for (auto _ : state) {
        kv::CalculateCycle(ws, s, kv::Silent);
        benchmark::DoNotOptimize(ws.cycle.pShaft);
    }
}
BENCHMARK_CAPTURE(KernelRereading, plain_R410A, "Brine_R410A.prj");
BENCHMARK_CAPTURE(KernelRereading, economizer_R134a, "Economizer_R134a.prj");

}  // namespace
