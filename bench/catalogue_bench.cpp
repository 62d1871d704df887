// Speed of the catalogue reads: one full series of 48 articles, as a
// selection screen reads it, and the whole Matchcode over the factory
// catalogues, as the start and the catalogue editor rebuild it.
#include <benchmark/benchmark.h>

#include "bench_workspace.h"
#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "shell/files.h"

namespace {

kv::Workspace& CatalogueWorkspace() {
    static kv::Workspace ws = [] {
        kv::Workspace w = kvbench::MakeWorkspace("kv_bench_catalogue");
        // A compressor catalogue whose slot 14 series runs to the full 48 rows.
        kv::CreateCatalogue(w, "BENCHKP", 1);
        std::string bytes = kv::ReadWholeFile(kv::ResolveName(w, kv::RecordFileName("BENCHKP")));
        for (int r = 0; r < kv::kSeriesRows; ++r) {
            kv::Article a;
            a.SetField(kv::field::Type, "BKH " + std::to_string(4 + 3 * r));
            a.SetField(kv::field::Size, std::to_string(4 + 3 * r));
            a.SetField(kv::field::OrderNumber, "BK 14-" + std::to_string(1000 + r));
            a.SetField(kv::field::Connection, "22/18");
            a.SetField(kv::field::Rated2, std::to_string(0.19 * (4 + 3 * r)));
            a.SetField(kv::field::Price, std::to_string(1400 + 100 * r));
            bytes.replace(static_cast<std::size_t>(551 + r) * kv::kArticleLength, kv::kArticleLength,
                          kv::EncodeArticle(a));
        }
        kv::WriteFileAtomic(kv::ResolveName(w, kv::RecordFileName("BENCHKP")), bytes);
        return w;
    }();
    return ws;
}

void BM_ReadSeries48(benchmark::State& state) {
    kv::Workspace& ws = CatalogueWorkspace();
    for (auto _ : state) {
        auto rows = kv::ReadSeriesArticles(ws, "BENCHKP", 552);
        if (rows.size() != 48u) state.SkipWithError("series not read whole");
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK(BM_ReadSeries48)->Unit(benchmark::kMicrosecond);

void BM_BuildMatchcode(benchmark::State& state) {
    kv::Workspace& ws = CatalogueWorkspace();
    for (auto _ : state) benchmark::DoNotOptimize(kv::BuildMatchcode(ws));
}
BENCHMARK(BM_BuildMatchcode)->Unit(benchmark::kMillisecond);

}  // namespace
