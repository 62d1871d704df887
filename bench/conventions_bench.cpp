// Speed of the text and number conventions that every file read goes through.
#include <benchmark/benchmark.h>

#include "shell/numbers.h"
#include "shell/records.h"

static void BM_ToNumberComma(benchmark::State& state) {
    for (auto _ : state) {
        std::string t = "1234,5678";
        benchmark::DoNotOptimize(kv::ToNumber(t));
    }
}
BENCHMARK(BM_ToNumberComma);

static void BM_NumberText(benchmark::State& state) {
    double v = 273.15;
    for (auto _ : state) {
        benchmark::DoNotOptimize(kv::NumberText(v));
        v += 0.001;
    }
}
BENCHMARK(BM_NumberText);

// A saturation-table sized file: 200 rows of seven numbers.
static void BM_ReadDelimitedTable(benchmark::State& state) {
    kv::RecordWriter w;
    for (int r = 0; r < 200; ++r) {
        for (int c = 0; c < 7; ++c) w.Item(-60.0 + r * 0.5 + c * 1.25);
        w.EndLine();
    }
    const std::string text = w.Take();
    for (auto _ : state) {
        kv::RecordReader in(text);
        double d, sum = 0;
        while (in.Read(d)) sum += d;
        benchmark::DoNotOptimize(sum);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_ReadDelimitedTable);
