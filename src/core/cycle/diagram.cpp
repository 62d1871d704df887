#include "cycle/diagram.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "documents/thin_path.h"
#include "project/project.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "refrigerant/state_points.h"
#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/settings.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

using namespace diagram;

namespace {

constexpr double kKelvin = 273.15;
constexpr double kCriticalCo2K = 304.15;
constexpr const char* kDegC = " \u00b0C";
constexpr const char* kAcute = "\u00b4";

// The colours of the drawing by their classical numbers.
const Rgb kTickColour = PaletteColour(8);
const Rgb kLiquidColour = PaletteColour(3);
const Rgb kVapourColour = PaletteColour(4);
const Rgb kCycleColour = PaletteColour(9);
const Rgb kGridColour = PaletteColour(7);

// The integer part of a figure; binary noise just below a whole number
// (4.9999999999) counts as that number.
int IntPart(double v) {
    if (!std::isfinite(v)) return 0;
    const double r = std::round(v);
    if (std::fabs(v - r) < 1e-9) v = r;
    v = std::trunc(v);
    return static_cast<int>(std::clamp(v, -1e9, 1e9));
}

// A figure cut to `decimals` places and written with exactly that many,
// whatever the desktop's locale.
std::string CutFixed(double v, int decimals) {
    if (!std::isfinite(v)) return "0";
    const double f = std::pow(10.0, decimals);
    double scaled = v * f;
    const double r = std::round(scaled);
    scaled = std::fabs(scaled - r) < 1e-6 ? r : std::trunc(scaled);
    double cut = scaled / f;
    if (cut == 0.0) cut = 0.0;  // no "-0.00"
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, cut, std::chars_format::fixed, decimals);
    return res.ec == std::errc() ? std::string(buf, res.ptr) : std::string("0");
}

std::string Upper(std::string_view s) { return UpperAscii(Trim(s)); }

// A caption word, or the given word when the tables are not loaded.
std::string Word(const Workspace& ws, Cap cap, const char* fallback) {
    const std::string& w = ws.captions[cap];
    return w.empty() ? std::string(fallback) : w;
}

double BubbleOf(const SatRow& r) { return r.pBubble != 0.0 ? r.pBubble : r.pDew; }

// The working state and the two project fields that the table resolution
// rewrites, put back when the drawing is done.
class KeepState {
public:
    explicit KeepState(Workspace& ws)
        : ws_(ws), cycle_(ws.cycle), name_(ws.project.KaelteM), gwp_(ws.project.Gwp) {}
    ~KeepState() {
        ws_.cycle = cycle_;
        ws_.project.KaelteM = name_;
        ws_.project.Gwp = gwp_;
    }
    const CycleState& Saved() const { return cycle_; }
    KeepState(const KeepState&) = delete;
    KeepState& operator=(const KeepState&) = delete;

private:
    Workspace& ws_;
    CycleState cycle_;
    std::string name_;
    int gwp_;
};

struct TrimName {
    std::string_view field, scroll;
};
constexpr std::array<TrimName, kTrimCount> kTrimNames = {{
    {"to_act", "to_scroll"},
    {"tc_act", "tc_Scroll"},
    {"toh_EV_act", "toh_EV_Scroll"},
    {"toh_SL_act", "toh_SL_Scroll"},
    {"tu_act", "tu_Scroll"},
    {"tu_WT_act", "tu_WT_Scroll"},
    {"p_GC_act", "p_GC_Scroll"},
    {"p_Int_act", "p_Int_Scroll"},
}};

// Sets field and bar of a trim control, the range widened to hold the value.
void Fill(TrimControl& c, const std::string& text, int min, int max) {
    c.text = text;
    c.value = IntPart(ToNumber(text).value);
    c.min = std::min(min, c.value);
    c.max = std::max(max, c.value);
}

}  // namespace

// ---------------------------------------------------------------- scales

double DiagramScales::X(double h) const { return kScaleLeft + kScaleWidth * (h - hMin) / hSpan; }

double DiagramScales::Y(double p) const {
    return kScaleTop + kScaleHeight * (std::log10(pUpper) - std::log10(p)) / decades;
}

double DiagramScales::PressureAt(double y) const {
    const double f = (y - kScaleTop) / kScaleHeight;
    return std::exp(std::log(pUpper) - f * decades * std::log(10.0));
}

std::string DiagramTableFile(std::string_view fluid) {
    // Twins share one table.
    static constexpr std::pair<std::string_view, std::string_view> aliases[] = {
        {"ISC_49", "R413A.DAT"},   {"R403B", "ISC_69L.DAT"},  {"R417A", "ISC_59.DAT"},
        {"R422A", "ISC_79.DAT"},   {"R422D", "ISC_29.DAT"},   {"R290", "PROPAN.DAT"},
        {"R1270", "PROPYLEN.DAT"}, {"R744", "CO2.DAT"},       {"R717", "AMMONIAK.DAT"},
        {"ETHYLEN", "R1150.DAT"},  {"ETHAN", "R170.DAT"},     {"METHAN", "R50.dat"},
    };
    const std::string name = Upper(fluid);
    for (const auto& [alias, file] : aliases)
        if (name == alias) return std::string(file);
    const auto info = LookupRefrigerantTable(name);
    return info ? info->file : std::string();
}

TickRule DiagramTickRule(std::string_view tableFile) {
    const std::string f = Upper(tableFile);
    if (f == "R723.DAT" || f == "AMMONIAK.DAT") return {200, 1, 9, false};
    if (f == "R290_600.DAT" || f == "PROPAN.DAT" || f == "PROPYLEN.DAT") return {100, 1, 9, false};
    if (f == "CO2.DAT") return {100, 1.5, 11, false};
    if (f == "R123.DAT") return {50, 1, 9, true};
    return {50, 1, 9, false};
}

bool AllRowsCount(std::string_view fluid) {
    static constexpr std::string_view all[] = {"R744",    "CO2",   "R409A", "R407A", "R408A", "R407C",
                                               "ETHYLEN", "R1150", "ETHAN", "R170",  "R50",   "METHAN"};
    const std::string name = Upper(fluid);
    return std::find(std::begin(all), std::end(all), name) != std::end(all);
}

DiagramScales ComputeDiagramScales(const SaturationTable& table, std::string_view fluid, std::string_view tableFile,
                                   int rowHint, double keepFromK) {
    DiagramScales s;
    const TickRule rule = DiagramTickRule(tableFile);
    s.tableFile = std::string(tableFile);
    s.step = rule.step;
    s.pScale = rule.pScale;
    s.lastGridIndex = rule.lastGridIndex;
    s.celsiusTable = rule.celsius;
    const std::vector<SatRow>& rows = table.rows;
    if (rows.empty()) return s;

    // The drawing takes the table to hold rowHint rows; rows standing before
    // them (the cold end of a longer table) do not set the scales.
    std::size_t first = 0;
    if (!AllRowsCount(fluid) && rowHint > 0 && rows.size() > static_cast<std::size_t>(rowHint))
        first = rows.size() - static_cast<std::size_t>(rowHint);
    // The evaporating level stays on the drawing, with a row below it.
    if (keepFromK > 0) {
        while (first > 0 && rows[first].t > keepFromK - 5) --first;
    }
    s.firstRowUsed = static_cast<int>(first);
    for (std::size_t i = first; i < rows.size(); ++i) {
        const double hLiq = std::floor(rows[i].hLiq);
        if (hLiq < s.hMin) s.hMin = hLiq;
        if (rows[i].hVap > s.hMax) s.hMax = rows[i].hVap;
    }
    s.pBottom = rows[first].pDew;
    s.pUpper = s.pScale * BubbleOf(rows.back());

    s.decades = std::log10(s.pUpper) - std::log10(s.pBottom);
    s.hSpan = std::fabs(s.hMax - s.hMin);
    s.firstTick = s.hMin - std::fmod(s.hMin, s.step) + s.step;
    s.tickUnits = kScaleWidth * s.step / s.hSpan;
    // A range of zero would put everything at infinity: such a table draws nothing.
    s.valid = std::isfinite(s.decades) && s.decades > 0 && std::isfinite(s.hSpan) && s.hSpan > 0 &&
              std::isfinite(s.tickUnits);
    return s;
}

std::vector<double> PressureGrid(int lastGridIndex, bool psi) {
    static constexpr double bar[] = {0.2, 0.5, 1, 2, 5, 10, 15, 20, 30, 50, 100, 150};
    static constexpr double psia[] = {5, 10, 20, 30, 50, 100, 150, 200, 300, 400, 500};
    const double* series = psi ? psia : bar;
    const int count = psi ? static_cast<int>(std::size(psia)) : static_cast<int>(std::size(bar));
    std::vector<double> out;
    for (int i = 0; i <= lastGridIndex && i < count; ++i) out.push_back(series[i]);
    return out;
}

// ---------------------------------------------------------------- window

std::string ScrollText(int value) { return std::to_string(value); }

DiagramWindow OpenDiagramWindow(Workspace& ws, std::string_view evaporationText) {
    DiagramWindow w;
    for (int i = 0; i < kTrimCount; ++i) {
        w.trim[static_cast<std::size_t>(i)].field = kTrimNames[static_cast<std::size_t>(i)].field;
        w.trim[static_cast<std::size_t>(i)].scroll = kTrimNames[static_cast<std::size_t>(i)].scroll;
    }
    w.fluid = std::string(Trim(ws.project.KaelteM));
    w.co2Mode = ws.project.Co2Mode != 0;
    w.inchUnits = EqualsNoCase(Trim(ws.project.RohrDatei), "RohrIN.DAT");
    const NormalizedName limits = NormalizeName(w.fluid);
    const int tmin = limits.tmin.value_or(-60);
    const int tmax = limits.tmax;

    w.guard = true;
    // The temperatures from the working state, or from the project's
    // fields before a calculation has set it.
    const CycleState& cs = ws.cycle;
    const int t0 = cs.tEvapK > 0 ? IntPart(cs.tEvapK - kKelvin) : IntPart(ToNumber(ws.project.Tver).value);
    const int tc = cs.tCondK > 0 ? IntPart(cs.tCondK - kKelvin) : IntPart(ToNumber(ws.project.tko).value);
    Fill(w[TrimField::Evaporating], ScrollText(t0), tmin, std::max(tmin + 1, std::min(tmax - 5, 30)));
    Fill(w[TrimField::Condensing], ScrollText(tc), tmin + 5, tmax);

    // Superheats and subcooling from "SubAct.dat"; line 4, the step of the
    // inner heat exchanger, fills its field.
    const std::vector<std::string> aux = ReadAuxiliaryValues(ws);
    std::string shEvap = aux[0], shLine = aux[1];
    const std::string dryWord = ws.captions[Cap::EvapKindDry];
    if (evaporationText == "Teil\u00fcberflutete Verdampfung") {
        shEvap = "1";
        shLine = "4";
    } else if (!evaporationText.empty() && !dryWord.empty() && evaporationText == dryWord) {
        shEvap = "2";
        shLine = "5";
    }
    Fill(w[TrimField::SuperheatEvaporator], shEvap, 0, 30);
    Fill(w[TrimField::SuperheatSuctionLine], shLine, 0, 30);
    Fill(w[TrimField::Subcooling], aux[2], 0, 30);
    Fill(w[TrimField::SubcoolingIhx], aux[3], 0, 30);

    // The high side and the intermediate pressure of the CO2 modes.
    const double pGc = cs.pTranscritical > 0 ? cs.pTranscritical : 95.0;
    Fill(w[TrimField::GasCoolerPressure], NumberText(pGc), 74, 150);
    Fill(w[TrimField::IntermediatePressure], NumberText(cs.pIntermediate), 1, 100);
    w[TrimField::GasCoolerPressure].enabled = w.co2Mode;
    w[TrimField::IntermediatePressure].enabled = w.co2Mode;
    w.guard = false;
    return w;
}

bool ScrollTrim(DiagramWindow& w, TrimField which, int value) {
    if (w.guard) return false;
    TrimControl& c = w[which];
    if (!c.enabled) return false;
    c.value = std::clamp(value, c.min, c.max);
    c.text = ScrollText(c.value);
    return true;
}

void SetTrimBar(DiagramWindow& w, TrimField which, int value) {
    w.guard = true;
    TrimControl& c = w[which];
    c.value = std::clamp(value, c.min, c.max);
    w.guard = false;
}

TrimValues ReadTrimValues(const DiagramWindow& w) {
    const auto v = [&](TrimField t) { return ToNumber(std::string_view(w[t].text)).value; };
    TrimValues t;
    t.t0 = v(TrimField::Evaporating);
    t.tc = v(TrimField::Condensing);
    t.superheatEvap = v(TrimField::SuperheatEvaporator);
    t.superheatLine = v(TrimField::SuperheatSuctionLine);
    t.subcooling = v(TrimField::Subcooling);
    t.subcoolingIhx = v(TrimField::SubcoolingIhx);
    t.pGasCooler = v(TrimField::GasCoolerPressure);
    t.pIntermediate = v(TrimField::IntermediatePressure);
    return t;
}

// ---------------------------------------------------------------- cycle

namespace {

// The enthalpies of the single-stage cycle that the economizer path keeps.
struct EconomizerLevels {
    double hInlet, hEvapOut, hSuction, hVapCond;  // kJ/kg
    double superheat;                             // K
};

// The economizer plant of the kernel on the diagram: the low stage from
// suction to the intermediate level, the side stream's vapour mixed in there,
// the high stage to the condensing pressure; the liquid subcooled by the
// economizer before the main valve, the side stream throttled from the
// condenser outlet to the intermediate level.
void DrawEconomizerCycle(Workspace& ws, DiagramCycle& c, const EconomizerLevels& e) {
    CycleState& cs = ws.cycle;
    const double pm = c.pIntermediate, tm = c.tIntermediateC;
    const double hLiqCond = cs.hLiqCond, cpLiquid = cs.cpLiquid, kappa = cs.kappa, cpVap = cs.cpVapDischarge;
    const double tCondC = cs.tCondK - kKelvin;
    const double m = MassFlow(ws, 0.01, c.q0);  // sets the side stream and the economizer's subcooling
    const double mEco = cs.ecoMass, hMain = hLiqCond - cpLiquid * cs.ecoSubcooling;
    int hint = 22;
    if (!ReadSaturationRows(ws, pm, hint, ByDewPressure)) return;
    const double hVapMid = InterpolateRows(cs, 5, pm);
    const double tLow = DischargeTemperature(ws, 10, c.pEvap, pm, c.tSuctionC + kKelvin, kappa) - kKelvin;
    const double hLowEnd = hVapMid + cpVap * (tLow - tm);
    const double hMix = (m + mEco) > 0 ? (m * hLowEnd + mEco * hVapMid) / (m + mEco) : hLowEnd;
    const double t2 = DischargeTemperature(ws, 10, pm, c.pCond, tm + e.superheat + kKelvin, kappa * 1.028);
    c.tDischargeC = t2 - kKelvin;
    c.hDischarge = e.hVapCond + cpVap * (c.tDischargeC - tCondC);
    c.hInlet = hMain;
    const CyclePoint corners[] = {{hMain, c.pEvap},   {cs.hVapEvap, c.pEvap}, {e.hEvapOut, c.pEvap},
                                  {e.hSuction, c.pEvap}, {hLowEnd, pm},         {hMix, pm},
                                  {c.hDischarge, c.pCond}, {e.hVapCond, c.pCond}, {hLiqCond, c.pCond},
                                  {e.hInlet, c.pCond}, {hMain, c.pCond}};
    c.corners.clear();
    for (const CyclePoint& p : corners)
        if (c.corners.empty() || std::fabs(c.corners.back().h - p.h) > 1e-9 || c.corners.back().p != p.p)
            c.corners.push_back(p);
    c.sideStream = {{e.hInlet, c.pCond}, {e.hInlet, pm}, {hVapMid, pm}};
}

}  // namespace

DiagramCycle ComputeDiagramCycle(Workspace& ws, const TrimValues& tr, bool co2Mode, double pIntermediateRecord,
                                 double q0) {
    DiagramCycle c;
    CycleState& cs = ws.cycle;
    const bool co2 = IsCo2(ws.project.KaelteM);

    // The state from the trim fields: superheat, subcooling, and the inner
    // heat exchanger that warms the suction gas and subcools the liquid.
    double tSuction = tr.t0 + tr.superheatEvap + tr.superheatLine;
    double subcooling = tr.subcooling;
    if (tr.subcoolingIhx > 0) {
        tSuction += tr.subcoolingIhx;
        subcooling += tr.subcoolingIhx;
    }
    cs.superheatEvap = tr.superheatEvap;
    const int drive = ws.project.VerdArt == 0 ? 2 : ws.project.VerdArt;
    cs.realGasFactor = drive == 2 ? 1.28 : drive == 3 ? 1.4 : 1.14;
    if (co2Mode && co2 && tr.pGasCooler > 0) cs.pTranscritical = tr.pGasCooler;

    if (!CycleStatePoints(ws, tr.t0, tr.tc, tSuction, subcooling)) return c;
    if (co2 && ws.project.Co2Mode == 1 && tr.tc < 31) subcooling = 3;
    cs.subcooling = subcooling;
    c.transcritical = co2 && cs.tCondK >= kCriticalCo2K;

    // Discharge state.
    const double t2 = DischargeTemperature(ws, 10, cs.pEvap, cs.pCond, tSuction + kKelvin, cs.kappa);
    c.tDischargeC = t2 - kKelvin;
    c.tSuctionC = tSuction;
    c.subcooling = subcooling;
    c.pEvap = cs.pEvap;
    c.pCond = cs.pCond;
    const double tCondC = cs.tCondK - kKelvin;
    const double hInlet = cs.hLiqCond - cs.cpLiquid * subcooling;
    const double hEvapOut = cs.hVapEvap + cs.cpVapEvap * tr.superheatEvap;
    const double hSuction = cs.hVapEvap + cs.cpVapEvap * (tSuction - tr.t0);
    double hDischarge = cs.hVapCond + cs.cpVapDischarge * (c.tDischargeC - tCondC);
    if (c.transcritical && SupercriticalScan(ws, t2, cs.pCond, 2)) hDischarge = cs.hTranscritical;
    c.hInlet = hInlet;
    c.hSuction = hSuction;
    c.hDischarge = hDischarge;

    const CyclePoint all[] = {
        {hInlet, cs.pEvap},     {cs.hVapEvap, cs.pEvap}, {hEvapOut, cs.pEvap},  {hSuction, cs.pEvap},
        {hDischarge, cs.pCond}, {cs.hVapCond, cs.pCond}, {cs.hLiqCond, cs.pCond}, {hInlet, cs.pCond},
    };
    for (std::size_t i = 0; i < std::size(all); ++i) {
        if (c.transcritical && i == 5) continue;  // no dew point above the critical point
        if (!c.corners.empty() && std::fabs(c.corners.back().h - all[i].h) < 1e-9 &&
            std::fabs(c.corners.back().p - all[i].p) < 1e-12)
            continue;
        c.corners.push_back(all[i]);
    }

    // Power and EER at the capacity.
    const double pEvap = cs.pEvap, pCond = cs.pCond, tEvapK = cs.tEvapK, tCondK = cs.tCondK;
    const double hVapCond = cs.hVapCond, hVapEvap = cs.hVapEvap;
    c.q0 = q0;
    const double m = MassFlow(ws, 0.01, q0);
    c.power = CompressionPower(ws, {.pLow = pEvap, .pHigh = pCond, .tLowK = tEvapK, .tHighK = tCondK, .massFlow = m,
                                    .tSuctionC = tSuction, .hHighVap = hVapCond, .hLowVap = hVapEvap,
                                    .tDischargeC = c.tDischargeC});
    c.eer = c.power > 0 && std::isfinite(c.power) ? std::trunc(q0 / c.power * 100 + 1e-9) / 100 : 0.0;

    // The intermediate level: the two-stage plants take it from the
    // pressures, the others from the record; its temperature by a look-up
    // by pressure.
    c.pIntermediate = IsTwoStagePlant(ws.project.AnlagenTyp) ? std::pow(pCond * pEvap, 0.45) : pIntermediateRecord;
    if (c.pIntermediate > 0) {
        int hint = 22;
        if (ReadSaturationRows(ws, c.pIntermediate, hint, ByDewPressure))
            c.tIntermediateC = InterpolateRows(ws.cycle, 2, c.pIntermediate) - kKelvin;
        c.intermediateShown = c.pIntermediate > pEvap && c.pIntermediate < pCond;
    }
    if (ws.project.EcoFlag == 1 && c.intermediateShown) {
        const EconomizerLevels e{hInlet, hEvapOut, hSuction, hVapCond, tr.superheatEvap};
        DrawEconomizerCycle(ws, c, e);
    }
    c.valid = std::isfinite(pEvap) && std::isfinite(pCond) && pEvap > 0 && pCond > 0;
    return c;
}

// ---------------------------------------------------------------- drawing

namespace {

DrawFont Font(const Workspace& ws, double size, bool bold = false) {
    DrawFont f;
    if (!Trim(ws.settings.ReportFont).empty()) f.family = std::string(Trim(ws.settings.ReportFont));
    f.size = size;
    f.bold = bold;
    return f;
}

const ClipBox kFrame{kFrameLeft, kScaleTop, kTickRight, kAxisY};

void DrawAxes(DrawingList& d, const Workspace& ws, const DiagramScales& s, bool psi) {
    const DrawFont small = Font(ws, 9);
    // Pressure grid, labelled on the left.
    for (const double value : PressureGrid(s.lastGridIndex, psi)) {
        const double pBar = psi ? value / kPsiPerBar : value;
        const double y = s.Y(pBar);
        if (!(y >= kScaleTop && y <= kAxisY)) continue;  // outside the frame
        d.Line(kFrameLeft, y, kTickRight, y, {kGridColour, 0.6});
        d.Text(kFrameLeft - 3, y, NumberText(value), small, kBlack, HAlign::Right, VAlign::Middle);
    }
    d.Text(4, 15, psi ? "[psi a]" : "[bar a]", small, kBlack, HAlign::Left, VAlign::Baseline);

    // Enthalpy ticks: labelled between the left axis and the axis label,
    // marks on to the right edge.
    for (int i = 1; i <= 10; ++i) {
        const double value = s.firstTick + i * s.step;
        const double x = s.X(value);
        if (!(x > kFrameLeft && x <= kTickRight)) continue;
        d.Line(x, kScaleTop, x, kTickTop, {kGridColour, 0.5, DashStyle::Dot});
        d.Line(x, kAxisY, x, kTickTop, {kTickColour, 1});
        if (x < kLabelRight) d.Text(x, kAxisY + 4, NumberText(value), small, kBlack, HAlign::Centre, VAlign::Top);
    }
    d.Text(kAxisLabelX, kAxisLabelY, "h/[kJ/kg]", small, kBlack, HAlign::Left, VAlign::Top);

    // Frame and axes.
    d.Rect(kFrameLeft, kScaleTop, kTickRight - kFrameLeft, kAxisY - kScaleTop, {kBlack, 1});
}

void DrawSaturation(DrawingList& d, const Workspace& ws, const DiagramScales& s, const std::vector<SatRow>& rows) {
    std::vector<DrawPoint> liquid, vapour;
    liquid.reserve(rows.size());
    vapour.reserve(rows.size());
    for (const SatRow& r : rows) {
        liquid.push_back({s.X(r.hLiq), s.Y(BubbleOf(r))});
        vapour.push_back({s.X(r.hVap), s.Y(r.pDew)});
    }
    const Pen liquidPen{kLiquidColour, 1.5};
    const Pen vapourPen{kVapourColour, 1.5};
    if (!liquid.empty()) {
        // The first row: a short stroke upward at the liquid point.
        DrawPoint a = liquid.front(), b{a.x, a.y - 10};
        if (ClipSegment(a, b, kFrame)) d.Line(a.x, a.y, b.x, b.y, liquidPen);
    }
    AddClippedPath(d, OnePointPerColumn(liquid), kFrame, liquidPen);
    AddClippedPath(d, OnePointPerColumn(vapour), kFrame, vapourPen);

    // Temperatures at the boiling line, one wherever the line has climbed a
    // sixteenth of the pressure scale since the last one, so that no two
    // labels overlap. Whole tens of degrees are labelled; a table off that
    // grid has each row as a candidate.
    const DrawFont font = Font(ws, 8);
    const double minRise = kScaleHeight / 16;
    const auto label = [&](bool tensOnly) {
        int count = 0;
        double lastY = 1e9;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const DrawPoint at = liquid[i];
            if (!(at.y >= kScaleTop + 4 && at.y <= kAxisY - 4)) continue;
            if (lastY - at.y < minRise) continue;
            double tC = std::round((rows[i].t - kKelvin) * 10) / 10;
            if (tC == 0.0) tC = 0.0;  // no "-0"
            if (tensOnly && std::fmod(tC, 10.0) != 0.0) continue;
            const std::string text = NumberText(tC);
            const double x = at.x - (text.size() > 2 ? 28 : 16);
            if (x < kFrameLeft + 1) continue;
            d.Text(x, at.y, text, font, kVapourColour, HAlign::Left, VAlign::Middle);
            lastY = at.y;
            ++count;
        }
        return count;
    };
    if (label(true) == 0) label(false);
}

void DrawCycle(DrawingList& d, const Workspace& ws, const DiagramScales& s, const DiagramCycle& c) {
    if (!c.valid || c.corners.size() < 2) return;
    std::vector<DrawPoint> path;
    path.reserve(c.corners.size() + 1);
    for (const CyclePoint& p : c.corners) path.push_back({s.X(p.h), s.Y(p.p)});
    path.push_back(path.front());
    const Pen pen{kCycleColour, 2};
    AddClippedPath(d, path, kFrame, pen);
    for (std::size_t i = 0; i + 1 < path.size(); ++i)
        if (kFrame.Contains(path[i])) d.Ellipse(path[i].x, path[i].y, 2.5, 2.5, {kCycleColour, 1}, kCycleColour);
    if (c.sideStream.size() >= 2) {
        std::vector<DrawPoint> side;
        for (const CyclePoint& p : c.sideStream) side.push_back({s.X(p.h), s.Y(p.p)});
        AddClippedPath(d, side, kFrame, {kCycleColour, 1});
    }
    if (c.intermediateShown) {
        DrawPoint a{s.X(c.hInlet), s.Y(c.pIntermediate)}, b{s.X(c.hDischarge), a.y};
        if (ClipSegment(a, b, kFrame)) {
            d.Line(a.x, a.y, b.x, b.y, {kCycleColour, 1, DashStyle::Dash});
            d.Text(b.x + 3, b.y, "pm", Font(ws, 8), kCycleColour, HAlign::Left, VAlign::Middle);
        }
    }
}

std::string BarPsi(double pBar) {
    return CutFixed(pBar, 2) + " bar a (" + CutFixed(pBar * kPsiPerBar, 1) + " psi a)";
}

}  // namespace

DrawingList Play_DiaG(Workspace& ws, DiagramWindow& w) {
    DrawingList d;
    d.width = kWidth;
    d.height = kHeight;
    d.background = kWhite;
    KeepState keep(ws);
    const CycleState& saved = keep.Saved();
    w.scales = {};
    w.cycle = {};
    w.figures = {};
    w.readout.visible = false;

    // The trim values. 2: the table file.
    const TrimValues trim = ReadTrimValues(w);
    const std::string fluid(Trim(ws.project.KaelteM));
    w.fluid = fluid;
    const std::string file = DiagramTableFile(fluid);
    if (file.empty()) return d;
    const auto info = LookupRefrigerantTable(fluid);
    const int rowHint = info ? info->rowHint : 0;
    // A copy: the cycle below reads the table again through the cache.
    const SaturationTable table = ws.properties.Saturation(ws.DataDir(), file);
    if (!table.refusal.empty() && w.refusedTable != file) {
        ws.ui.Message(ws.Title(), table.refusal, MessageIcon::Error);
        w.refusedTable = file;  // told once, not at every move of a bar
    }
    if (!table.present || table.rows.empty()) return d;

    // 3 to 5: scales.
    w.scales = ComputeDiagramScales(table, fluid, file, rowHint, trim.t0 + kKelvin);
    const DiagramScales& s = w.scales;
    if (!s.valid) return d;

    // Title above the frame.
    std::string title = fluid + "   " + Word(ws, Cap::HLogPTitle, "h,log p diagram");
    if (!Trim(ws.project.ProjektNam).empty()) title += "   " + std::string(Trim(ws.project.ProjektNam));
    d.Text(kWidth / 2, 15, title, Font(ws, 11, true), kBlack, HAlign::Centre, VAlign::Baseline);

    // Axes, grid and the saturation lines.
    DrawAxes(d, ws, s, w.inchUnits);
    DrawSaturation(d, ws, s, table.rows);

    // The cycle at the trim values, in blue.
    double q0 = saved.Q0;
    if (!(q0 > 0)) q0 = ToNumber(ws.project.Leistung).value;
    if (!(q0 > 0)) q0 = 0.75 * ToNumber(ws.project.HeizL).value;  // the kernel's first estimate
    if (!(q0 > 0)) q0 = 10;
    const double pIntRecord = w.co2Mode ? trim.pIntermediate : saved.pIntermediate;
    w.cycle = ComputeDiagramCycle(ws, trim, w.co2Mode, pIntRecord, q0);
    const DiagramCycle& c = w.cycle;
    DrawCycle(d, ws, s, c);

    // The figures, except for the diagnostics use.
    if (c.valid && Upper(ws.project.AnlagenTyp) != "DIAG") {
        DiagramFigures& f = w.figures;
        f.EER_ACT = CutFixed(c.eer, 2);
        f.pressures = "p0 = " + BarPsi(c.pEvap) + "   pc = " + BarPsi(c.pCond);
        f.tDischarge = std::to_string(IntPart(c.tDischargeC)) + kDegC;
        f.tSuction = CutFixed(c.tSuctionC, 1) + kDegC;
        if (c.pIntermediate > 0)
            f.intermediate = "pm = " + BarPsi(c.pIntermediate) + "   tm = " + CutFixed(c.tIntermediateC, 1) + kDegC;

        const DrawFont font = Font(ws, 10);
        const double y1 = 490, y2 = 506;
        d.Text(kFrameLeft, y1,
               "t0 = " + NumberText(trim.t0) + kDegC + "   tc = " + NumberText(trim.tc) + kDegC + "   " + f.pressures,
               font);
        std::string line2 = Word(ws, Cap::Superheat, "Superheat") + " " + NumberText(trim.superheatEvap) + " + " +
                            NumberText(trim.superheatLine) + " K   " + Word(ws, Cap::Subcooling, "Subcooling") + " " +
                            NumberText(c.subcooling) + " K   t2 = " + f.tDischarge + "   EER = " + f.EER_ACT;
        if (c.intermediateShown) line2 += "   " + f.intermediate;
        d.Text(kFrameLeft, y2, line2, font);
    }
    return d;
}

// ---------------------------------------------------------------- read-out

DiagramReadout ReadOutAt(Workspace& ws, const DiagramWindow& w, double x, double y) {
    DiagramReadout r;
    r.visible = true;
    r.panelX = x + 8;
    r.panelY = y;
    const DiagramScales& s = w.scales;
    if (!s.valid) {
        r.visible = false;
        return r;
    }
    r.p = s.PressureAt(y);
    r.VerdTemp = "p :";
    r.p0F = CutFixed(r.p, 2);
    r.psilabel = "bar a";
    if (w.inchUnits) r.psilabel += " / " + CutFixed(r.p * kPsiPerBar, 1) + " psi a";
    r.KondTemp = "t :";
    r.DruckV = std::string("h") + kAcute + " :";
    r.UeberhVD = std::string("h") + kAcute + kAcute + ":";
    r.EndSaugG = std::string("roh") + kAcute + " :";
    r.EnthDiff = std::string("roh") + kAcute + kAcute + ":";

    const SaturationTable& table = ws.properties.Saturation(ws.DataDir(), s.tableFile);
    const std::vector<SatRow>& rows = table.rows;
    if (rows.size() < 2) return r;
    // The edges of the scale meet the table's end rows up to rounding.
    const auto within = [&](double lo, double hi) { return r.p >= lo * (1 - 1e-9) && r.p <= hi * (1 + 1e-9); };
    if (!within(rows.front().pDew, rows.back().pDew)) return r;
    r.inTable = true;
    const double key = std::clamp(r.p, rows.front().pDew, rows.back().pDew);

    // By the dew pressure: the temperature stands in the swapped column; the
    // table step is 5 K. The first row stands ready as the lower one, for a
    // key on the first row itself.
    CycleState scratch;
    scratch.lowRow = rows.front();
    std::swap(scratch.lowRow.t, scratch.lowRow.pDew);
    ScanSaturationRows(table, key, ByDewPressure, scratch);
    const double k = RowFraction(scratch, key);
    const auto col = [&](int column) {
        const double low = scratch.lowRow.Column(column);
        return low + k * (scratch.highRow.Column(column) - low);
    };
    r.t = scratch.lowRow.pDew - kKelvin + k * 5;
    r.hLiq = col(4);
    r.hVap = col(5);
    r.rhoLiq = col(6);
    r.rhoVap = col(7);
    r.t0F = CutFixed(r.t, 1) + kDegC;
    r.hsF = CutFixed(r.hLiq, 1) + " kJ/kg";
    r.hTF = CutFixed(r.hVap, 1) + " kJ/kg";
    r.rhoSF = CutFixed(r.rhoLiq, 2) + " kg/m\u00b3";
    r.rhoTF = CutFixed(r.rhoVap, 2) + " kg/m\u00b3";

    // A blend: the bubble temperature at the same pressure and the glide.
    r.glide = scratch.lowRow.t != scratch.lowRow.pBubble;
    if (r.glide && within(rows.front().pBubble, rows.back().pBubble)) {
        const double keyB = std::clamp(r.p, rows.front().pBubble, rows.back().pBubble);
        CycleState bubble;
        bubble.lowRow = rows.front();
        std::swap(bubble.lowRow.t, bubble.lowRow.pBubble);
        ScanSaturationRows(table, keyB, ByBubblePressure, bubble);
        const double kb = RowFraction(bubble, keyB);
        r.tBubble = bubble.lowRow.pBubble - kKelvin + kb * 5;
        r.glideK = r.t - r.tBubble;
        r.tG = std::string("t") + kAcute + " : " + CutFixed(r.tBubble, 1) + kDegC;
        r.tGlide = "Glide   : " + CutFixed(r.glideK, 1) + " K";
    } else {
        r.glide = false;
    }
    return r;
}

void HideReadout(DiagramWindow& w) { w.readout.visible = false; }

}  // namespace kv
