#include "refrigerant/saturation.h"

#include <utility>

#include "refrigerant/registry.h"
#include "shell/workspace.h"

namespace kv {

const SaturationTable* ProjectSaturationTable(Workspace& ws, int* rowHint) {
    std::string file;
    const int hint = ResolveRefrigerantTable(ws.project, file);
    if (rowHint) *rowHint = hint;
    if (hint == 0) return nullptr;
    const SaturationTable& t = ws.properties.Saturation(ws.DataDir(), file);
    return t.present && !t.rows.empty() ? &t : nullptr;
}

void ScanSaturationRows(const SaturationTable& table, double key, int mode, CycleState& cs) {
    for (SatRow row : table.rows) {
        if (mode == ByDewPressure) std::swap(row.t, row.pDew);
        else if (mode == ByBubblePressure) std::swap(row.t, row.pBubble);
        if (cs.highFound) continue;  // read on to the end without change
        if (row.t < key) {
            cs.lowRow = row;
        } else {
            cs.highRow = row;
            cs.highFound = true;
        }
    }
    // A table that ends at its terminator row leaves the flags as the scan
    // set them; one read to its physical end clears them.
    if (!table.terminated) {
        cs.rowsFound = 0;
        cs.highFound = false;
    }
}

bool ReadSaturationRows(Workspace& ws, double key, int& rowCount, int mode) {
    CycleState& cs = ws.cycle;
    cs.rowsFound = 0;
    cs.highFound = false;
    std::string file;
    rowCount = ResolveRefrigerantTable(ws.project, file);
    if (rowCount == 0) return false;
    if (mode == ResolveOnly) {
        cs.rowsFound = rowCount;
        return true;
    }
    const SaturationTable& t = ws.properties.Saturation(ws.DataDir(), file);
    if (!t.present || t.rows.empty()) return false;
    ScanSaturationRows(t, key, mode, cs);
    return true;
}

double RowFraction(const CycleState& cs, double key) {
    const double span = cs.highRow.t - cs.lowRow.t;
    // Two rows of one key would divide by zero; the tables hold none, and a
    // stale pair must not poison the cycle with NaN.
    return span != 0.0 ? (key - cs.lowRow.t) / span : 0.0;
}

double InterpolateRows(const CycleState& cs, int column, double key) {
    const double f = RowFraction(cs, key);
    const double low = cs.lowRow.Column(column);
    return low + f * (cs.highRow.Column(column) - low);
}

}  // namespace kv
