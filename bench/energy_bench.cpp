// Speed of the seasonal performance: one typical year of the air-to-water
// heat pump, with every one of the 288 hours calculated (a cold profile) and
// with the factory profile, whose summer hours need no calculation.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "bench_workspace.h"
#include "energy/annual.h"
#include "energy/annual_profile.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace {

namespace fs = std::filesystem;

void Year(benchmark::State& state, bool everyHour) {
    const fs::path root = fs::temp_directory_path() / "kv_bench_energy";
    fs::remove_all(root);
    kv::Workspace ws = kvbench::MakeWorkspace("kv_bench_energy");
    kv::SchemeScreen s;
    kvbench::CalculateSample(ws, s, "AirWater_R290.prj");
    if (everyHour) {
        kv::AnnualProfile p = kv::ReadAnnualProfile(ws);
        for (auto& m : p.months) m.tHigh = m.tLow + 1;  // below the heating limit all day
        kv::WriteAnnualProfile(ws, p, "bench");
    }
    for (auto _ : state) {
        const kv::SeasonalResult r = kv::RechKern(ws, s);
        benchmark::DoNotOptimize(r.scop);
    }
    fs::remove_all(root);
}
BENCHMARK_CAPTURE(Year, every_hour_R290, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Year, factory_profile_R290, false)->Unit(benchmark::kMillisecond);

}  // namespace
