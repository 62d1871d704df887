// Speed of the line sizing: the two loss functions and a suction line walk,
// which the cycle kernel runs in each of its passes.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "lines/line_sizing.h"
#include "lines/pipe_table.h"
#include "lines/pressure_drop.h"
#include "shell/files.h"
#include "shell/records.h"

namespace {

const kv::PipeTable& CopperTable() {
    static const kv::PipeTable table = [] {
        kv::PipeTable t;
        kv::RecordReader in = kv::OpenIn(std::filesystem::path(KELVARIS_FACTORY_DATA) / "RohrDM.DAT");
        kv::ReadPipeTable(in, t);
        return t;
    }();
    return table;
}

void BM_LineDropSingle(benchmark::State& state) {
    const kv::LossRules rules;
    double m = 0.06;
    for (auto _ : state) {
        double zeta = 4.5;
        benchmark::DoNotOptimize(m);
        benchmark::DoNotOptimize(kv::LineDropSingle(rules, m, 10.0, 32.0, 25.0, 1.1e-5, zeta, 2.0));
    }
}
BENCHMARK(BM_LineDropSingle);

void BM_LineDropTwoPhase(benchmark::State& state) {
    const kv::LossRules rules;
    double m = 0.03;
    for (auto _ : state) {
        double zeta = 2.0;
        benchmark::DoNotOptimize(m);
        benchmark::DoNotOptimize(kv::LineDropTwoPhase(rules, m, 1200, 15, 1.1e-5, 2.5e-4, 10, 5, 0.25, zeta));
    }
}
BENCHMARK(BM_LineDropTwoPhase);

// A long suction line that is raised over several sizes.
void BM_SuctionLineWalk(benchmark::State& state) {
    kv::SizingRules rules;
    rules.pipes = &CopperTable();
    const kv::SingleFlow flow{0.06, 10.0, 1.1e-5};
    const kv::LineRun run{80.0, 4.0, 12.0};
    for (auto _ : state) {
        const kv::LineResult r = kv::SizeSuctionLine(rules, flow, run, 12.0, 0.1, 0.25, 2.0);
        benchmark::DoNotOptimize(r.lossMbar);
    }
}
BENCHMARK(BM_SuctionLineWalk);

}  // namespace
