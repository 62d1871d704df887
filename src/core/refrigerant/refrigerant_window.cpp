#include "refrigerant/refrigerant_window.h"

#include <cmath>
#include <utility>

#include "documents/small_chart.h"
#include "refrigerant/property_tables.h"
#include "refrigerant/registry.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

std::string SafetyGroup(std::string_view name) {
    // ISO 817 / ASHRAE 34 classes: letter for toxicity, figure for flammability.
    static const std::pair<const char*, const char*> groups[] = {
        {"R11", "A1"},      {"R12", "A1"},       {"R13", "A1"},        {"R13B1", "A1"},     {"R14", "A1"},
        {"R22", "A1"},      {"R23", "A1"},       {"R32", "A2L"},       {"R50", "A3"},       {"METHAN", "A3"},
        {"R123", "B1"},     {"R124", "A1"},      {"R125", "A1"},       {"R134A", "A1"},     {"R143A", "A2L"},
        {"R152A", "A2"},    {"R170", "A3"},      {"ETHAN", "A3"},      {"R227", "A1"},      {"R290", "A3"},
        {"PROPAN", "A3"},   {"R290_600", "A3"},  {"R401A", "A1"},      {"R401B", "A1"},     {"R402A", "A1"},
        {"R402B", "A1"},    {"R403B", "A1"},     {"R404A", "A1"},     {"R407A", "A1"},      {"R407C", "A1"},     {"R407F", "A1"},
        {"R407H", "A1"},    {"R408A", "A1"},     {"R409A", "A1"},      {"R410A", "A1"},     {"R413A", "A2"},
        {"R417A", "A1"},    {"R422D", "A1"},     {"R427A", "A1"},      {"R432B", "A3"},     {"R437A", "A1"},
        {"R438A", "A1"},    {"R443A", "A3"},     {"R448A", "A1"},      {"R449A", "A1"},     {"R452A", "A1"},
        {"R454A", "A2L"},   {"R454B", "A2L"},    {"R454C", "A2L"},     {"R455A", "A2L"},    {"R471A", "A1"},
        {"R502", "A1"},     {"R507A", "A1"},     {"R507", "A1"},       {"R508A", "A1"},     {"R508B", "A1"},
        {"R513A", "A1"},    {"R600", "A3"},      {"R600A", "A3"},      {"R717", "B2L"},     {"AMMONIAK", "B2L"},
        {"R723", "B2"},     {"R744", "A1"},      {"CO2", "A1"},        {"R1150", "A3"},     {"ETHYLEN", "A3"},
        {"R1270", "A3"},    {"PROPYLEN", "A3"},  {"HFO1234YF", "A2L"}, {"R1234YF", "A2L"},  {"HFO1234ZE", "A2L"},
        {"R1234ZE", "A2L"}, {"R1233ZD", "A1"},   {"R1336MZZ", "A1"},   {"R718", "A1"}};
    const std::string key = UpperAscii(Trim(name));
    for (const auto& [n, g] : groups)
        if (key == n) return g;
    return {};
}

std::vector<FluidSummary> RefrigerantWindowFluids() {
    std::vector<FluidSummary> out;
    for (const std::string& name : RefrigerantListFull()) {
        FluidSummary f;
        f.name = name;
        f.safetyGroup = SafetyGroup(name);
        if (const std::optional<RefrigerantEntry> e = FindRefrigerant(name)) {
            f.tableFile = e->tableFile;
            f.gwp = e->gwp;
            f.tmin = e->tmin;
            f.tmax = e->tmax;
            f.pressureRatio = e->designPressureRatio;
            f.charB = e->charB;
            f.charC = e->charC;
            f.charD = e->charD;
            f.charE = e->charE;
        }
        out.push_back(std::move(f));
    }
    return out;
}

std::vector<SaturationLine> SaturationLines(Workspace& ws, const FluidSummary& fluid) {
    std::vector<SaturationLine> out;
    if (fluid.tableFile.empty()) return out;
    const SaturationTable& table = ws.properties.Saturation(ws.DataDir(), fluid.tableFile);
    for (const SatRow& r : table.rows) {
        SaturationLine l;
        l.t = r.t - 273.15;
        l.pDew = r.pDew;
        l.pBubble = r.pBubble;
        l.rhoLiq = r.rhoLiq;
        l.rhoVap = r.rhoVap;
        l.hLiq = r.hLiq;
        l.hVap = r.hVap;
        l.latent = r.hVap - r.hLiq;
        out.push_back(l);
    }
    return out;
}

std::string SaturationCsv(const std::vector<SaturationLine>& lines) {
    // Three places are more than the tables carry; the rounding only takes
    // the binary noise of the Kelvin conversion out of the text.
    const auto n = [](double v) { return NumberText(std::round(v * 1000.0) / 1000.0); };
    std::string csv = "t [C],p dew [bar],p bubble [bar],rho liquid [kg/m3],rho vapour [kg/m3],"
                      "h liquid [kJ/kg],h vapour [kJ/kg],r [kJ/kg]\r\n";
    for (const SaturationLine& l : lines)
        csv += n(l.t) + ',' + n(l.pDew) + ',' + n(l.pBubble) + ',' + n(l.rhoLiq) + ',' + n(l.rhoVap) + ',' +
               n(l.hLiq) + ',' + n(l.hVap) + ',' + n(l.latent) + "\r\n";
    return csv;
}

bool ExportSaturationCsv(const std::vector<SaturationLine>& lines, const std::filesystem::path& file) {
    return WriteFileAtomic(file, SaturationCsv(lines));
}

DrawingList VapourPressureView(const std::string& fluid, const std::vector<SaturationLine>& lines) {
    ChartCurve dew{{}, PaletteColour(1)}, bubble{{}, PaletteColour(4)};
    for (const SaturationLine& l : lines) {
        dew.points.push_back({l.t, l.pDew});
        bubble.points.push_back({l.t, l.pBubble});
    }
    return SmallChart({fluid + "  p(t)", "t [°C]", "p [bar]", true}, {bubble, dew});
}

DrawingList DomeView(const std::string& fluid, const std::vector<SaturationLine>& lines) {
    // Liquid line up, vapour line down: one closed-looking dome.
    ChartCurve dome{{}, PaletteColour(1)};
    for (const SaturationLine& l : lines) dome.points.push_back({l.hLiq, l.pBubble});
    for (auto it = lines.rbegin(); it != lines.rend(); ++it) dome.points.push_back({it->hVap, it->pDew});
    return SmallChart({fluid + "  h,log p", "h [kJ/kg]", "p [bar]", true}, {dome});
}

}  // namespace kv
