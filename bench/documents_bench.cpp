// Laying out the report of a sample plant and composing its piping scheme
// (the element lines and their drawing).
#include <benchmark/benchmark.h>

#include "bench_workspace.h"
#include "documents/report_layout.h"
#include "documents/scheme_generator.h"
#include "lists/calc_lists.h"
#include "lists/list_generation.h"

namespace {

kv::Workspace& Plant() {
    static kv::Workspace ws = [] {
        kv::Workspace w = kvbench::MakeWorkspace("kv_bench_documents");
        kv::SchemeScreen scheme;
        kvbench::CalculateSample(w, scheme, "AirWater_R290.prj");
        kv::WriteCalculationLists(w, false);
        kv::GenerateLists(w);
        kv::WritePlantResults(w);
        return w;
    }();
    return ws;
}

void BM_LayoutReport(benchmark::State& state) {
    kv::Workspace& ws = Plant();
    const std::vector<kv::ReportSet> sets = kv::PlantReportSets(ws);
    std::size_t pages = 0;
    for (auto _ : state) {
        const auto laid = kv::LayoutReport(ws, sets);
        pages = laid.size();
        benchmark::DoNotOptimize(laid);
    }
    state.counters["pages"] = static_cast<double>(pages);
}
BENCHMARK(BM_LayoutReport)->Unit(benchmark::kMicrosecond);

void BM_ComposeScheme(benchmark::State& state) {
    kv::Workspace& ws = Plant();
    for (auto _ : state) {
        const kv::SchemeFile f = kv::ComposeScheme(ws, 32);
        benchmark::DoNotOptimize(kv::DrawScheme(f));
    }
}
BENCHMARK(BM_ComposeScheme)->Unit(benchmark::kMicrosecond);

}  // namespace
