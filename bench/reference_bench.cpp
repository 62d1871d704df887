// Speed of the reference check that every calculation makes beside the
// empirical figures: the reference cycle on a table in memory, and the whole
// check as the kernel calls it (table from the workspace cache, figures onto
// the scheme screen). It must stay well below 2 microseconds.
#include <benchmark/benchmark.h>

#include "bench_workspace.h"
#include "cycle/reference_cycle.h"
#include "refrigerant/registry.h"
#include "refrigerant/superheat_table.h"
#include "shell/numbers.h"

namespace {

void ReferenceCycle(benchmark::State& state, const char* sample) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_reference");
    kv::SchemeScreen s;
    kvbench::CalculateSample(ws, s, sample);
    std::string file;
    kv::ResolveRefrigerantTable(ws.project, file);
    const kv::SuperheatTable& table = ws.properties.Superheat(ws.project.DatenVerz, kv::SuperheatFileName(file));
    kv::ReferenceInput in;
    in.t0C = kv::ToNumber(s.t0).value;
    in.tcC = kv::ToNumber(s.Tc).value;
    in.superheatK = 7;
    in.subcoolingK = 2;
    if (kv::IsCo2(ws.project.KaelteM) && ws.cycle.tCondK >= 304.15) {
        in.transcritical = true;
        in.pGasCooler = ws.cycle.pCond;
        in.tGasCoolerC = ws.cycle.tCondK - 273.15;
    }
    for (auto _ : state) {
        const kv::ReferenceCycle r = kv::ComputeReferenceCycle(table, in);
        benchmark::DoNotOptimize(r.copHeating);
    }
    const kv::ReferenceCycle r = kv::ComputeReferenceCycle(table, in);
    state.counters["copHeating"] = r.valid ? r.copHeating : 0.0;
}
BENCHMARK_CAPTURE(ReferenceCycle, R410A, "Brine_R410A.prj");
BENCHMARK_CAPTURE(ReferenceCycle, R717, "Chiller_NH3.prj");
BENCHMARK_CAPTURE(ReferenceCycle, CO2_transcritical, "Transcritical_CO2.prj");

void ReferenceCheckOfRun(benchmark::State& state) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_reference");
    kv::SchemeScreen s;
    kvbench::CalculateSample(ws, s, "Brine_R410A.prj");
    const double t0 = kv::ToNumber(s.t0).value, tc = kv::ToNumber(s.Tc).value;
    for (auto _ : state) {
        kv::ShowReferenceCheck(ws, s, t0, tc, 7, 2);
        // A const copy: the writable form of DoNotOptimize may clobber a double in place.
        const double cop = ws.cycle.reference.copHeating;
        benchmark::DoNotOptimize(cop);
    }
    state.counters["copHeating"] = ws.cycle.reference.copHeating;
}
BENCHMARK(ReferenceCheckOfRun);

}  // namespace
