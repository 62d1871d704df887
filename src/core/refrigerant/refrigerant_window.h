// The refrigerant window: the registry's fluids with safety group, GWP,
// application limits and characteristic numbers, and the saturation table
// of the chosen one as the property file holds it, with its CSV export.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "documents/drawing.h"

namespace kv {

struct Workspace;

struct FluidSummary {
    std::string name, safetyGroup, tableFile;
    int gwp = 0;
    std::optional<int> tmin;  // °C
    int tmax = 65;            // °C
    double pressureRatio = 0.0, charB = 0.0, charC = 0.0, charD = 0.0, charE = 0.0;
};

// Safety group after ISO 817 of the fluids a user meets; empty when not known.
std::string SafetyGroup(std::string_view name);

// Every fluid of the full list, in its order.
std::vector<FluidSummary> RefrigerantWindowFluids();

struct SaturationLine {
    double t = 0.0;                   // °C
    double pDew = 0.0, pBubble = 0.0; // bar
    double rhoLiq = 0.0, rhoVap = 0.0;
    double hLiq = 0.0, hVap = 0.0, latent = 0.0;  // kJ/kg
};

// The fluid's saturation table from the data directory; empty when the file
// is missing or refused.
std::vector<SaturationLine> SaturationLines(Workspace& ws, const FluidSummary& fluid);

// The table as CSV: a header line, then one line a row, comma-separated with
// a decimal point, CR LF. Written through a temporary file.
std::string SaturationCsv(const std::vector<SaturationLine>& lines);
bool ExportSaturationCsv(const std::vector<SaturationLine>& lines, const std::filesystem::path& file);

// The two small views: the vapour pressure over t, and the two-phase dome
// in the h,log p plane.
DrawingList VapourPressureView(const std::string& fluid, const std::vector<SaturationLine>& lines);
DrawingList DomeView(const std::string& fluid, const std::vector<SaturationLine>& lines);

}  // namespace kv
