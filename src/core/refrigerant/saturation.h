// Look-ups in the saturation table of the project's refrigerant.
#pragma once

#include "cycle/cycle_state.h"
#include "refrigerant/property_tables.h"

namespace kv {

struct Workspace;

// Look-up modes: by temperature in K (field 1), by dew pressure (field 2 and
// field 1 change places in each row), by bubble pressure (field 3 likewise),
// or only resolving the table and reporting its row hint.
enum SatMode : int { ByTemperature = 0, ByDewPressure = 1, ByBubblePressure = 2, ResolveOnly = 33 };

// Fills cs.lowRow and cs.highRow around `key` from the table of
// ws.project.KaelteM. rowCount receives the table's row hint; with 0 nothing
// is read. The last row below the key becomes lowRow, the first at or above
// it highRow; a key outside the table leaves the other row as the previous
// look-up left it. Returns false when the fluid has no table or its file is
// missing or empty.
bool ReadSaturationRows(Workspace& ws, double key, int& rowCount, int mode);

// The same scan over a table already at hand.
void ScanSaturationRows(const SaturationTable& table, double key, int mode, CycleState& cs);

// Where `key` lies between cs.lowRow and cs.highRow (0 at low, 1 at high).
double RowFraction(const CycleState& cs, double key);
// Value of `column` (1..7) at `key`, linear between the two rows.
double InterpolateRows(const CycleState& cs, int column, double key);

// The table of the project's refrigerant from the cache; nullptr when the
// fluid has none or the file is missing.
const SaturationTable* ProjectSaturationTable(Workspace& ws, int* rowHint = nullptr);

}  // namespace kv
