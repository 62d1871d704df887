// Speed of the component selection: one series of 48 valves and one of 48
// compressors rated whole, as the selection table shows them, and the
// selection of every component of a calculated sample plant in the order of
// the list generation.
#include <benchmark/benchmark.h>

#include "bench_workspace.h"
#include "catalogue/catalogue.h"
#include "catalogue/selection.h"
#include "catalogue/selection_plan.h"
#include "shell/files.h"

namespace {

struct SelectionBench {
    kv::Workspace ws;
    kv::SchemeScreen scheme;
};

// A catalogue with a 48-row series at `position`, row r made by `make`.
template <class Make>
void PutSeries(kv::Workspace& ws, const char* base, int position, Make make) {
    kv::CreateCatalogue(ws, base, 1);
    const auto path = kv::ResolveName(ws, kv::RecordFileName(base));
    std::string bytes = kv::ReadWholeFile(path);
    for (int r = 0; r < kv::kSeriesRows; ++r)
        bytes.replace(static_cast<std::size_t>(position - 1 + r) * kv::kArticleLength, kv::kArticleLength,
                      kv::EncodeArticle(make(r)));
    kv::WriteFileAtomic(path, bytes);
}

SelectionBench& Bench() {
    static SelectionBench b = [] {
        SelectionBench s{kvbench::MakeWorkspace("kv_bench_selection"), {}};
        kvbench::CalculateSample(s.ws, s.scheme, "AirWater_R290.prj");
        PutSeries(s.ws, "BENCHMV", 252, [](int r) {
            kv::Article a;
            a.SetField(kv::field::Type, "BMV " + std::to_string(r));
            a.SetField(kv::field::Size, std::to_string(0.1 + 0.2 * r));
            a.SetField(kv::field::Connection, "22");
            a.SetField(kv::field::Rated1, "1");  // no row holds the drop: all 48 are rated
            a.SetField(kv::field::Rated2, "50");
            return a;
        });
        PutSeries(s.ws, "BENCHKP", 552, [](int r) {
            kv::Article a;
            a.SetField(kv::field::Type, "BKH " + std::to_string(r));
            a.SetField(kv::field::Size, std::to_string(0.1 + 0.01 * r));  // all too small
            a.SetField(kv::field::Connection, "22/18");
            a.SetField(kv::field::Rated2, "1");
            return a;
        });
        return s;
    }();
    return b;
}

void RunSeries(benchmark::State& state, int kind, const char* file, int position, double first, double second) {
    SelectionBench& b = Bench();
    kv::SelectRequest q;
    q.kind = kind;
    q.first = first;
    q.second = second;
    q.lineName = "Suction";
    q.lineSize = "22 x 1";
    q.catalogueFile = file;
    q.position = position;
    q.wholeSeries = true;
    kv::SelectionState st;
    st.mode = kv::SelectRateOnly;
    for (auto _ : state) {
        kv::SelectionResult r = kv::SelectComponent(b.ws, st, q);
        if (r.rows.size() != 48u) state.SkipWithError("series not rated whole");
        benchmark::DoNotOptimize(r);
    }
    state.counters["perRow"] = benchmark::Counter(48, benchmark::Counter::kIsIterationInvariantRate |
                                                          benchmark::Counter::kInvert);
}

void BM_SelectValveSeries48(benchmark::State& state) { RunSeries(state, 5, "BENCHMVN.rdm", 252, 0.03, 20); }
BENCHMARK(BM_SelectValveSeries48)->Unit(benchmark::kMicrosecond);

void BM_SelectCompressorSeries48(benchmark::State& state) { RunSeries(state, 12, "BENCHKPN.rdm", 552, 8, 20); }
BENCHMARK(BM_SelectCompressorSeries48)->Unit(benchmark::kMicrosecond);

void BM_SelectWholePlant(benchmark::State& state) {
    SelectionBench& b = Bench();
    std::size_t rows = 0;
    for (auto _ : state) {
        kv::SelectionState st;
        st.mode = kv::SelectRateOnly;
        const auto results = kv::SelectPlant(b.ws, st);
        rows = 0;
        for (const auto& r : results) rows += r.rows.size();
        benchmark::DoNotOptimize(results);
    }
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["perRow"] = benchmark::Counter(static_cast<double>(rows),
                                                  benchmark::Counter::kIsIterationInvariantRate |
                                                      benchmark::Counter::kInvert);
}
BENCHMARK(BM_SelectWholePlant)->Unit(benchmark::kMicrosecond);

}  // namespace
