// Speed of the refrigerant model: table look-ups, correlations, state points.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "refrigerant/correlations.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "refrigerant/state_points.h"
#include "shell/files.h"
#include "bench_workspace.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace {

namespace fs = std::filesystem;

// A workspace on a data directory of its own, filled with the factory data.
kv::Workspace& BenchWorkspace() {
    static kv::Workspace ws = [] {
        kv::Workspace w = kvbench::MakeWorkspace("kv_bench_data");
        w.project.VerdArt = 2;
        w.project.KondArt = 1;
        return w;
    }();
    return ws;
}

void SatLookup(benchmark::State& state) {
    kv::Workspace& ws = BenchWorkspace();
    ws.project.KaelteM = "R134a";
    int rows = 0;
    double key = 260.0;
    for (auto _ : state) {
        kv::ReadSaturationRows(ws, key, rows, kv::ByTemperature);
        benchmark::DoNotOptimize(kv::InterpolateRows(ws.cycle, 2, key));
        key = key > 320 ? 260.0 : key + 0.37;
    }
}
BENCHMARK(SatLookup);

// The look-up proper on the table a calculation holds: the row from the 5 K
// grid and the interpolation, without resolving the refrigerant's table.
void SatLookupHeld(benchmark::State& state) {
    kv::Workspace& ws = BenchWorkspace();
    ws.project.KaelteM = "R134a";
    const kv::SaturationTable* table = kv::ProjectSaturationTable(ws);
    if (!table) {
        state.SkipWithError("no R134a table");
        return;
    }
    double key = 260.0;
    for (auto _ : state) {
        ws.cycle.highFound = false;
        kv::ScanSaturationRows(*table, key, kv::ByTemperature, ws.cycle);
        benchmark::DoNotOptimize(kv::InterpolateRows(ws.cycle, 2, key));
        key = key > 320 ? 260.0 : key + 0.37;
    }
}
BENCHMARK(SatLookupHeld);

// The same look-up reading and parsing the table file anew each time.
void SatLookupFromFile(benchmark::State& state) {
    kv::Workspace& ws = BenchWorkspace();
    const fs::path path = kv::ResolveName(ws, "R134A.DAT");
    double key = 260.0;
    for (auto _ : state) {
        const kv::SaturationTable t = kv::ParseSaturationTable(kv::ReadWholeFile(path), "R134A.DAT");
        kv::ScanSaturationRows(t, key, kv::ByTemperature, ws.cycle);
        benchmark::DoNotOptimize(kv::InterpolateRows(ws.cycle, 2, key));
        key = key > 320 ? 260.0 : key + 0.37;
    }
}
BENCHMARK(SatLookupFromFile);

void Correlations(benchmark::State& state) {
    kv::CycleState cs;
    cs.tEvapK = 263.15;
    cs.pCond = 11.6;
    for (auto _ : state) {
        kv::EvaluateCorrelations(cs, "R134a", 318.15, 340.0, 340.0, 0.0);
        benchmark::DoNotOptimize(cs.kappa);
    }
}
BENCHMARK(Correlations);

void StatePoints(benchmark::State& state, const char* fluid, double t0, double tc) {
    kv::Workspace& ws = BenchWorkspace();
    ws.project.KaelteM = fluid;
    kv::NormalizeRefrigerantName(ws.project);
    for (auto _ : state) {
        double sc = 3;
        ws.cycle.pTranscritical = 0;
        kv::CycleStatePoints(ws, t0, tc, t0 + 10, sc);
        benchmark::DoNotOptimize(ws.cycle.kappa);
    }
}
BENCHMARK_CAPTURE(StatePoints, R134a, "R134a", -10.0, 45.0);
BENCHMARK_CAPTURE(StatePoints, R407C, "R407C", -10.0, 45.0);
BENCHMARK_CAPTURE(StatePoints, R744_transcritical, "R744", -10.0, 35.0);

}  // namespace
