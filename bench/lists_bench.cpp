// The whole parts list generation of a sample plant: every component
// selected in order, the lists, change files, report entries and charge
// written.
#include <benchmark/benchmark.h>

#include "bench_workspace.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"

namespace {

void BM_GenerateLists(benchmark::State& state) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_lists");
    kv::SchemeScreen scheme;
    kvbench::CalculateSample(ws, scheme, "AirWater_R290.prj");
    kv::WriteCalculationLists(ws, false);
    int rows = 0;
    for (auto _ : state) {
        const kv::ListGeneration g = kv::GenerateLists(ws);
        rows = g.fittingRows + g.unitRows + g.accessoryRows;
        benchmark::DoNotOptimize(g);
    }
    state.counters["rows"] = rows;
}
BENCHMARK(BM_GenerateLists)->Unit(benchmark::kMicrosecond);

void BM_CalculationLists(benchmark::State& state) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_calc_lists");
    kv::SchemeScreen scheme;
    kvbench::CalculateSample(ws, scheme, "AirWater_R290.prj");
    for (auto _ : state) benchmark::DoNotOptimize(kv::WriteCalculationLists(ws, false));
}
BENCHMARK(BM_CalculationLists)->Unit(benchmark::kMicrosecond);

}  // namespace
