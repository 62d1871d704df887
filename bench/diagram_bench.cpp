// Speed of one composition of the h,log p diagram: the window redraws the
// whole diagram at every step of a trim scrollbar.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "cycle/diagram.h"
#include "bench_workspace.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace {

namespace fs = std::filesystem;

kv::Workspace& DiagramWorkspace() {
    static kv::Workspace ws = [] {
        kv::Workspace w = kvbench::MakeWorkspace("kv_bench_diagram");
        w.project.VerdArt = 2;
        w.project.KondArt = 1;
        w.project.Tver = "-10";
        w.project.tko = "45";
        return w;
    }();
    return ws;
}

void ComposeDiagram(benchmark::State& state, const char* fluid) {
    kv::Workspace& ws = DiagramWorkspace();
    ws.project.KaelteM = fluid;
    kv::DiagramWindow w = kv::OpenDiagramWindow(ws);
    int tc = 35;
    for (auto _ : state) {
        // A condensing temperature bar moving back and forth.
        kv::ScrollTrim(w, kv::TrimField::Condensing, tc);
        tc = tc >= 55 ? 35 : tc + 1;
        kv::DrawingList d = kv::Play_DiaG(ws, w);
        benchmark::DoNotOptimize(d.items.data());
    }
}
BENCHMARK_CAPTURE(ComposeDiagram, R134a, "R134a");
BENCHMARK_CAPTURE(ComposeDiagram, R407C, "R407C");
BENCHMARK_CAPTURE(ComposeDiagram, CO2, "CO2");

// The diagram of a table at the row limit: 2,000 rows, the lines thinned to
// one point a pixel column.
void ComposeDiagramLongTable(benchmark::State& state) {
    static kv::Workspace ws = [] {
        kv::Workspace w = kvbench::MakeWorkspace("kv_bench_diagram_long");
        w.project.VerdArt = 2;
        w.project.KondArt = 1;
        w.project.Tver = "-10";
        w.project.tko = "45";
        const std::vector<kv::SatRow> rows = w.properties.Saturation(w.DataDir(), "R134A.DAT").rows;
        std::string text;
        const std::size_t perGap = kv::kMaxSaturationRows / (rows.size() - 1);
        for (std::size_t i = 0; i + 1 < rows.size(); ++i)
            for (std::size_t k = 0; k < perGap; ++k)
                for (int c = 1; c <= 7; ++c) {
                    const double f = static_cast<double>(k) / static_cast<double>(perGap);
                    text += kv::NumberText(rows[i].Column(c) + f * (rows[i + 1].Column(c) - rows[i].Column(c)));
                    text += c < 7 ? "," : "\r\n";
                }
        kv::WriteFileAtomic(w.DataDir() / "R134A.DAT", text);
        w.properties.Clear();
        return w;
    }();
    ws.project.KaelteM = "R134a";
    kv::DiagramWindow w = kv::OpenDiagramWindow(ws);
    for (auto _ : state) {
        kv::DrawingList d = kv::Play_DiaG(ws, w);
        benchmark::DoNotOptimize(d.items.data());
    }
}
BENCHMARK(ComposeDiagramLongTable);

}  // namespace
