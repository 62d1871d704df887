// Speed of one composition of the h,log p diagram: the window redraws the
// whole diagram at every step of a trim scrollbar.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "cycle/diagram.h"
#include "bench_workspace.h"
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

}  // namespace
