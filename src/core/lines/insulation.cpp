#include "lines/insulation.h"

#include <vector>

#include "shell/files.h"
#include "shell/settings.h"
#include "shell/workspace.h"

namespace kv {

namespace {
constexpr std::array<const char*, 5> kDefaults = {"", "13", "19", "32", "13"};
}  // namespace

InsulationThicknesses LoadInsulation(Workspace& ws) {
    const std::vector<std::string> lines = ReadInsulationFile(ws);  // trimmed
    InsulationThicknesses t;
    for (std::size_t i = 1; i <= 4; ++i) {
        const std::string value = i - 1 < lines.size() ? lines[i - 1] : std::string();
        t.line[i] = value.empty() ? kDefaults[i] : value;
    }
    SaveInsulation(ws, t);
    return t;
}

bool SaveInsulation(Workspace& ws, const InsulationThicknesses& t) {
    OutFile out = OpenOut(ws, "RLDaemm.dat");
    for (std::size_t i = 1; i <= 4; ++i) out.Line(t.line[i]);
    return out.Close();
}

const std::string& SuctionInsulation(const InsulationThicknesses& t, double t0C) {
    std::size_t line = 1;
    if (t0C < 0) line = 2;
    if (t0C < -15) line = 3;
    return t.line[line];
}

}  // namespace kv
