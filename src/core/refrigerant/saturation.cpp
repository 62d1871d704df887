#include "refrigerant/saturation.h"

#include <algorithm>
#include <cmath>
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

namespace {

// The first row at or above `key` in temperature (rows.size() when none).
// The factory tables step 5 K: the index is computed from the first row and
// the step, then moved to the exact row; another table is searched by halves.
std::size_t FirstRowAtOrAbove(const SaturationTable& table, double key) {
    const std::vector<SatRow>& rows = table.rows;
    const std::size_t n = rows.size();
    if (n == 0 || !(key > rows.front().t)) return 0;
    if (!(key <= rows.back().t)) return n;  // also a key that is not a number
    std::size_t i;
    if (table.gridStep > 0) {
        const double guess = std::ceil((key - rows.front().t) / table.gridStep);
        i = guess <= 0 ? 0 : guess >= static_cast<double>(n) ? n - 1 : static_cast<std::size_t>(guess);
    } else {
        i = static_cast<std::size_t>(
            std::partition_point(rows.begin(), rows.end(), [key](const SatRow& r) { return r.t < key; }) -
            rows.begin());
    }
    while (i > 0 && rows[i - 1].t >= key) --i;
    while (i < n && rows[i].t < key) ++i;
    return i;
}

}  // namespace

void ScanSaturationRows(const SaturationTable& table, double key, int mode, CycleState& cs) {
    if (!cs.highFound && mode == ByTemperature) {
        // The rows rise in temperature (a table that does not is refused):
        // the last row below the key and the first at or above it.
        const std::size_t i = FirstRowAtOrAbove(table, key);
        if (i > 0) cs.lowRow = table.rows[i - 1];
        if (i < table.rows.size()) {
            cs.highRow = table.rows[i];
            cs.highFound = true;
        }
    } else if (!cs.highFound) {
        for (SatRow row : table.rows) {
            if (mode == ByDewPressure) std::swap(row.t, row.pDew);
            else if (mode == ByBubblePressure) std::swap(row.t, row.pBubble);
            if (row.t < key) {
                cs.lowRow = row;
            } else {
                cs.highRow = row;
                cs.highFound = true;
                break;
            }
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
