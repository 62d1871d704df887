#include "lists/line_electric_screen.h"

#include <cmath>

#include "catalogue/selection.h"
#include "lines/insulation.h"
#include "lists/list_generation.h"
#include "lists/list_rows.h"
#include "project/field_checks.h"
#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/records.h"
#include "shell/settings.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

struct CableStep {
    double mm2, amps;
};
// Current-carrying capacity of copper conductors with PVC insulation,
// installation method C, three loaded conductors, 30 °C (IEC 60364-5-52,
// table B.52.4).
constexpr CableStep kCables[] = {{1.5, 17.5}, {2.5, 24}, {4, 32},   {6, 41},   {10, 57},  {16, 76},
                                 {25, 101},  {35, 125}, {50, 151}, {70, 192}, {95, 232}, {120, 269}};
constexpr double kCopperResistivity = 0.0225;  // Ω mm²/m at operating temperature
constexpr double kCosPhi = 0.85;
constexpr double kMaxDropPercent = 3.0;

// The standard of the plant: the project's own text, else the line of
// EL_stand.dat for its plant type; the heat pumps take the lines of the
// compression plants they are.
std::string StandardOf(const Workspace& ws) {
    if (!Trim(ws.project.ElStandard).empty()) return ws.project.ElStandard;
    const std::string type = UpperAscii(ws.project.AnlagenTyp);
    std::string text = ElStandardText(ws, ws.project.AnlagenTyp, 1);
    if (text.empty() && type == "HEATP") text = ElStandardText(ws, "KOMP", 1);
    if (text.empty() && type == "HEATPUMP-2ST") text = ElStandardText(ws, "2STAGE", 1);
    return text;
}

bool SinglePhase(const std::string& standard) { return standard.find("1/N/PE") != std::string::npos; }

double LineLength(const Workspace& ws, int section) {
    const double l = ToNumber(ws.project.Geometr.Cell(section, GeoLength));
    return std::isfinite(l) && l > 0 ? l : 0.0;
}

// The designation the units list gives a main unit, behind its kind.
std::string UnitText(const Workspace& ws, const ListFile& units, int kind) {
    const std::string caption = KindListCaption(ws, kind);
    for (const auto& row : units.rows)
        if (row[0] == caption && Trim(row[1]) != Trim(kEmptyArticle)) return caption + " " + row[1];
    return caption;
}

WiringRow Cable(const std::string& consumer, double length, double kW, double volts, bool threePhase,
                const std::string& component, int quantity) {
    const double amps = LoadCurrent(kW, volts, threePhase);
    const double mm2 = CableCrossSection(amps, length, volts, threePhase);
    return {consumer, NumberText(std::ceil(length)), ConductorText(threePhase ? 5 : 3, mm2), component,
            std::to_string(quantity)};
}

}  // namespace

double LoadCurrent(double kW, double volts, bool threePhase) {
    if (!(kW > 0) || !(volts > 0)) return 0.0;
    return kW * 1000 / ((threePhase ? std::sqrt(3.0) : 1.0) * volts * kCosPhi);
}

double CableCrossSection(double amps, double lengthM, double volts, bool threePhase) {
    for (const CableStep& c : kCables) {
        if (amps > c.amps) continue;
        // Voltage drop: √3 I L cos φ ρ / A three-phase, 2 I L cos φ ρ / A single-phase.
        const double drop = (threePhase ? std::sqrt(3.0) : 2.0) * amps * lengthM * kCosPhi * kCopperResistivity / c.mm2;
        if (volts > 0 && 100 * drop / volts <= kMaxDropPercent) return c.mm2;
    }
    return kCables[std::size(kCables) - 1].mm2;
}

std::string ConductorText(int cores, double mm2) { return std::to_string(cores) + " x " + NumberText(mm2) + " mm²"; }

std::vector<WiringRow> ProposeWiring(const Workspace& ws) {
    const CycleState& c = ws.cycle;
    const Captions& cap = ws.captions;
    const std::string standard = StandardOf(ws);
    const bool three = !SinglePhase(standard);
    const double volts = three ? 400 : 230;
    std::vector<WiringRow> rows;
    const ListFile units = ReadListFile(ws, lists::kUnits, lists::kHeader, lists::kUnitRow);
    // The control box stands at the compressor: its cable is short; the fans
    // and valves are reached along the lines to them.
    const double power = std::isfinite(c.pShaft) && c.pShaft > 0 ? c.pShaft : 0.0;
    rows.push_back(Cable(KindListCaption(ws, 12), 5, power, volts, three, UnitText(ws, units, 12), 1));
    // Fan power: about 2 % of the condenser's and 1.5 % of the evaporator's duty.
    const double qc = c.Q0 + power;
    rows.push_back(Cable(KindListCaption(ws, 14), LineLength(ws, Discharge) + 5, 0.02 * qc, volts, three,
                         UnitText(ws, units, 14), 1));
    rows.push_back(Cable(KindListCaption(ws, 13), LineLength(ws, Suction) + 5, 0.015 * c.Q0, volts, three,
                         UnitText(ws, units, 13), 1));
    // Coils and safety chain: control voltage, three cores of 1.5 mm².
    const int solenoids = std::max(1, WholeNumber(ToNumber(ws.project.Armatur.Cell(7, Liquid))));
    rows.push_back({KindListCaption(ws, 5), NumberText(std::ceil(LineLength(ws, Liquid) + 5)), ConductorText(3, 1.5),
                    cap[Cap::KindSolenoidValve], std::to_string(solenoids)});
    return rows;
}

void OpenLineElectric(Workspace& ws, LineElectricScreen& s) {
    s = LineElectricScreen{};
    for (int i = 1; i <= kLineSectionCount; ++i) {
        s.length[static_cast<std::size_t>(i)] = ws.project.Geometr.Cell(i, GeoLength);
        s.height[static_cast<std::size_t>(i)] = ws.project.Geometr.Cell(i, GeoHeight);
    }
    const InsulationThicknesses t = LoadInsulation(ws);
    for (int i = 1; i <= 4; ++i) s.insulation[static_cast<std::size_t>(i)] = t.line[static_cast<std::size_t>(i)];
    s.standard = StandardOf(ws);
    for (const auto& r : ReadListFile(ws, lists::kWiring, lists::kHeader, lists::kPipeRow).rows)
        s.wiring.push_back({r[0], r[1], r[2], r[3], r[4]});
    if (s.wiring.empty()) s.wiring = ProposeWiring(ws);
}

bool ApplyLineElectric(Workspace& ws, LineElectricScreen& s) {
    s.messages.clear();
    auto check = [&](const std::string& what, const std::string& text, double low, double high) {
        CheckNumberField(ws, s.messages, what, text, NumberRange{low, high});
    };
    const Captions& c = ws.captions;
    for (int i = 1; i <= kLineSectionCount; ++i) {
        check(LineSectionCaption(ws, i) + ", " + c[Cap::Length], s.length[static_cast<std::size_t>(i)], 0, 1000);
        check(LineSectionCaption(ws, i) + ", " + c[Cap::HeightDifference], s.height[static_cast<std::size_t>(i)], -200, 200);
    }
    for (int i = 1; i <= 4; ++i) check(c[Cap::InsulationThickness], s.insulation[static_cast<std::size_t>(i)], 0, 200);
    for (const WiringRow& r : s.wiring) check(c[Cap::Cable] + " " + r.consumer + ", " + c[Cap::Length], r.length, 0, 10000);
    if (!s.messages.empty()) return false;

    for (int i = 1; i <= kLineSectionCount; ++i) {
        ws.project.Geometr.Cell(i, GeoLength) = s.length[static_cast<std::size_t>(i)];
        ws.project.Geometr.Cell(i, GeoHeight) = s.height[static_cast<std::size_t>(i)];
    }
    InsulationThicknesses t;
    for (int i = 1; i <= 4; ++i) t.line[static_cast<std::size_t>(i)] = s.insulation[static_cast<std::size_t>(i)];
    bool ok = SaveInsulation(ws, t);
    RecordWriter w;
    for (const std::string& item : ListHeader(ws)) w.Item(item);
    w.EndLine();
    for (const WiringRow& r : s.wiring) {
        if (Trim(r.consumer).empty() && Trim(r.length).empty() && Trim(r.conductor).empty()) break;
        w.Item(r.consumer).Item(r.length).Item(r.conductor).Item(r.component).Item(r.quantity).EndLine();
    }
    ok = WriteListText(ws, lists::kWiring, w.Text()) && ok;
    return ok;
}

}  // namespace kv
