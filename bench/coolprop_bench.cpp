// The state points of one cycle from the model's tables against the same
// points from CoolProp's reference equation of state (HEOS), measured in one
// run. Built only when CMake is given a CoolProp build (KELVARIS_COOLPROP_DIR).
#include <benchmark/benchmark.h>

#include <CoolProp/CoolPropLib.h>

#include "bench_workspace.h"
#include "refrigerant/state_points.h"

namespace {

// The operating point of the plain R410A sample: -5 °C evaporating, 45 °C
// condensing, 10 K suction superheat, 3 K subcooling.
constexpr double kT0 = 268.15, kTc = 318.15, kTSuction = 278.15, kSubcooling = 3.0;

void ModelStatePoints(benchmark::State& state) {
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_coolprop");
    ws.project.KaelteM = "R410A";
    ws.project.VerdArt = 2;
    ws.project.KondArt = 1;
    for (auto _ : state) {
        double sc = kSubcooling;
        kv::CycleStatePoints(ws, kT0 - 273.15, kTc - 273.15, kTSuction - 273.15, sc);
        benchmark::DoNotOptimize(ws.cycle.hVapEvap);
    }
}
BENCHMARK(ModelStatePoints);

void HeosStatePoints(benchmark::State& state) {
    long err = 0;
    char msg[256];
    const long h = AbstractState_factory("HEOS", "R410A", &err, msg, sizeof msg);
    if (err) {
        state.SkipWithError(msg);
        return;
    }
    const long QT = get_input_pair_index("QT_INPUTS"), PT = get_input_pair_index("PT_INPUTS"),
               PS = get_input_pair_index("PSmass_INPUTS");
    const long P = get_param_index("P"), H = get_param_index("Hmass"), S = get_param_index("Smass"),
               D = get_param_index("Dmass");
    auto out = [&](long key) { return AbstractState_keyed_output(h, key, &err, msg, sizeof msg); };
    for (auto _ : state) {
        AbstractState_update(h, QT, 1, kT0, &err, msg, sizeof msg);
        const double p0 = out(P), hVap = out(H), rhoVap = out(D);
        AbstractState_update(h, QT, 0, kT0, &err, msg, sizeof msg);
        const double hLiq = out(H);
        AbstractState_update(h, QT, 1, kTc, &err, msg, sizeof msg);
        const double pc = out(P);
        AbstractState_update(h, PT, p0, kTSuction, &err, msg, sizeof msg);
        const double h1 = out(H), s1 = out(S), rho1 = out(D);
        AbstractState_update(h, PS, pc, s1, &err, msg, sizeof msg);
        const double h2s = out(H);
        AbstractState_update(h, PT, pc, kTc - kSubcooling, &err, msg, sizeof msg);
        const double h3 = out(H);
        benchmark::DoNotOptimize(hVap + rhoVap + hLiq + h1 + rho1 + h2s + h3);
    }
    AbstractState_free(h, &err, msg, sizeof msg);
}
BENCHMARK(HeosStatePoints);

}  // namespace
