#include "lines/pipe_readout.h"

#include <cmath>

#include "lines/pipe_table.h"
#include "lines/pressure_drop.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

PipeReadout MakePipeReadout(const Workspace& ws, const PipeTable& t, int row, double lengthM, double metalDensity) {
    PipeReadout r;
    if (t.HasRow(row)) {
        const std::size_t i = static_cast<std::size_t>(row);
        r.name = t.PipeName[i];
        r.cost = Cut(ToNumber(std::string_view(t.PipePriceText[i])).value * lengthM, 2);
        r.minutes = ToNumber(std::string_view(t.PipeTimeText[i])).value * lengthM;
        const double da = t.PipeDa[i], di = t.PipeDi[i];
        r.weightKg = Cut(metalDensity * kPi * (da * da - di * di) / 4000000.0 * lengthM, 2);
    }
    if (long long whole = 0; std::fabs(r.minutes) < 1e15 && IntegerPart(r.minutes, whole)) {
        r.hours = whole / 60;
        r.restMinutes = whole % 60;
    }
    const std::string& unit = ws.captions[Cap::UnitMetre];
    r.sizeLine = ws.captions[Cap::PipeSize] + ": " + r.name;
    r.lengthLine = ws.captions[Cap::Length] + ": " + NumberText(lengthM) + " " + (unit.empty() ? "m" : unit);
    r.costLine = ws.captions[Cap::Cost] + ": " + NumberText(r.cost) + " " + ws.settings.Waehrung;
    r.timeLine = ws.captions[Cap::Time] + ": " + std::to_string(r.hours) + "h " + std::to_string(r.restMinutes) + "'";
    r.weightLine = ws.captions[Cap::Weight] + ": " + NumberText(r.weightKg) + " kg";
    return r;
}

}  // namespace kv
