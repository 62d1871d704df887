// The h,log p diagram of the refrigerant with the plant's cycle over it: the
// window's trim fields, the scales taken from the property table, the drawing
// (Play_DiaG) composed as a drawing list in the window's coordinates, and the
// read-out of the saturation data at a point. One drawing serves the window,
// the printer and the files.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "documents/drawing.h"
#include "refrigerant/property_tables.h"

namespace kv {

struct Workspace;

// The geometry of the window's drawing surface, y growing downward.
namespace diagram {
inline constexpr double kFrameLeft = 40;     // left axis; pressure grid lines start here
inline constexpr double kScaleLeft = 41;     // x of hMin
inline constexpr double kScaleWidth = 484;   // units from hMin to hMax
inline constexpr double kScaleTop = 24;      // y of pUpper
inline constexpr double kScaleHeight = 432;  // units from pUpper to pBottom
inline constexpr double kAxisY = 456;        // bottom axis
inline constexpr double kTickTop = 449;      // tick marks run from the axis up to here
inline constexpr double kLabelRight = 580;   // ticks are labelled strictly between kFrameLeft and here
inline constexpr double kTickRight = 600;    // unlabelled ticks go on to here; right edge of the frame
inline constexpr double kAxisLabelX = 580, kAxisLabelY = 460;  // "h/[kJ/kg]"
inline constexpr double kWidth = 640, kHeight = 520;           // the whole picture
inline constexpr double kPsiPerBar = 14.504;
}  // namespace diagram

// The trim fields, in the order of the window.
enum class TrimField : int {
    Evaporating = 0,       // to_act / to_scroll, °C
    Condensing,            // tc_act / tc_Scroll, °C
    SuperheatEvaporator,   // toh_EV_act / toh_EV_Scroll, K
    SuperheatSuctionLine,  // toh_SL_act / toh_SL_Scroll, K
    Subcooling,            // tu_act / tu_Scroll, K
    SubcoolingIhx,         // tu_WT_act / tu_WT_Scroll, K, by the inner heat exchanger
    GasCoolerPressure,     // p_GC_act / p_GC_Scroll, bar, transcritical CO2
    IntermediatePressure,  // p_Int_act / p_Int_Scroll, bar
};
inline constexpr int kTrimCount = 8;

// A text field with its scrollbar.
struct TrimControl {
    std::string_view field;   // name of the text field, "to_act"
    std::string_view scroll;  // name of the scrollbar, "to_scroll"
    std::string text;         // what the field shows
    int value = 0;            // the scrollbar's position
    int min = 0, max = 0;     // the scrollbar's range
    bool enabled = true;      // gas cooler and intermediate pressure: only for the CO2 modes
};

// The trim values as numbers, read from the texts with ToNumber.
struct TrimValues {
    double t0 = 0, tc = 0;                          // °C
    double superheatEvap = 0, superheatLine = 0;    // K
    double subcooling = 0, subcoolingIhx = 0;       // K
    double pGasCooler = 0, pIntermediate = 0;       // bar
};

// Scales of the drawing, from the first reading of the property table.
struct DiagramScales {
    std::string tableFile;   // after the aliases
    double step = 50;        // tick step of the enthalpy axis, kJ/kg
    double pScale = 1;       // pUpper over the last row's bubble pressure
    int lastGridIndex = 9;   // last index of the pressure grid series
    bool celsiusTable = false;  // temperatures stored in °C (R123)
    int firstRowUsed = 0;    // index of the first row that counts for the scales
    double hMin = 100000, hMax = 0;  // kJ/kg; hMin is a whole number
    double pBottom = 0, pUpper = 0;  // bar
    double decades = 0, hSpan = 0;
    double firstTick = 0;    // kJ/kg; the labelled ticks are firstTick + i step, i = 1..10
    double tickUnits = 0;    // one tick step in drawing units
    bool valid = false;      // a table was read and the ranges are not zero

    double X(double h) const;         // x of an enthalpy
    double Y(double p) const;         // y of a pressure
    double PressureAt(double y) const;  // the pressure at a height, inverse of Y
};

// A corner of the cycle: enthalpy (kJ/kg) and pressure (bar).
struct CyclePoint {
    double h = 0, p = 0;
    bool operator==(const CyclePoint&) const = default;
};

// The cycle at the trim values, as the diagram draws it.
struct DiagramCycle {
    bool valid = false;
    // The corners in order, from the evaporator inlet: evaporator inlet,
    // dew point, evaporator outlet, compressor inlet, discharge, dew point
    // and bubble point in the condenser (one gas cooler outlet when
    // transcritical), subcooled liquid. Points that coincide are given once.
    std::vector<CyclePoint> corners;
    double pEvap = 0, pCond = 0;          // bar
    double tSuctionC = 0, tDischargeC = 0;
    double subcooling = 0;                // K, as the state points left it
    double hInlet = 0, hSuction = 0, hDischarge = 0;  // kJ/kg
    double pIntermediate = 0, tIntermediateC = 0;
    bool intermediateShown = false;       // two-stage plant or an intermediate pressure given
    // With an economizer: the side stream from the condenser outlet through
    // its valve to the intermediate level and on to the dew point there; the
    // corners then run through both stages and the economizer's subcooling.
    std::vector<CyclePoint> sideStream;
    bool transcritical = false;
    double q0 = 0, power = 0, eer = 0;    // kW, kW, EER cut to 0.01
};

// The texts the window shows beside the diagram.
struct DiagramFigures {
    std::string EER_ACT;        // refrigerating capacity over power, cut to 0.01
    std::string pressures;      // "p0 = 2.00 bar a (29.0 psi a)   pc = ..."
    std::string tDischarge;     // "72 °C"
    std::string tSuction;
    std::string intermediate;   // intermediate pressure and its temperature, when shown
};

// The read-out panel StoffDatF at a point.
struct DiagramReadout {
    bool visible = false;
    double panelX = 0, panelY = 0;   // where the panel stands
    bool inTable = false;            // the pressure lies within the table: the properties are filled
    bool glide = false;
    double p = 0;                    // bar
    double t = 0, tBubble = 0, glideK = 0;  // dew and bubble temperature °C, glide K
    double hLiq = 0, hVap = 0, rhoLiq = 0, rhoVap = 0;
    // Labels and values as the panel shows them.
    std::string VerdTemp, p0F, psilabel;  // "p :", the pressure, its unit
    std::string KondTemp, t0F, tG;        // "t :", the temperature, "t´ :" and the bubble temperature
    std::string DruckV, hsF;              // "h´ :", liquid enthalpy
    std::string UeberhVD, hTF;            // "h´´:", vapour enthalpy
    std::string EndSaugG, rhoSF;          // "roh´ :", liquid density
    std::string EnthDiff, rhoTF;          // "roh´´:", vapour density
    std::string tGlide, xDampf;           // "Glide   :" with the glide; xDampf unused here
};

// The window logp_H as a model.
struct DiagramWindow {
    std::array<TrimControl, kTrimCount> trim{};
    bool guard = false;       // set while the window sets the bars itself
    bool co2Mode = false;     // gas cooler and intermediate pressure in use
    bool inchUnits = false;   // psi beside bar
    std::string fluid;        // the refrigerant drawn
    DiagramScales scales;     // of the last drawing
    DiagramCycle cycle;       // of the last drawing
    DiagramFigures figures;
    DiagramReadout readout;
    std::string refusedTable;  // the damaged table the user was told of

    TrimControl& operator[](TrimField t) { return trim[static_cast<std::size_t>(t)]; }
    const TrimControl& operator[](TrimField t) const { return trim[static_cast<std::size_t>(t)]; }
};

// The integer text a scrollbar writes into its field.
std::string ScrollText(int value);

// Opens the window: the temperature bars from the working state (or the
// project's fields before any calculation), superheats and subcooling from
// "SubAct.dat", the pressures of the CO2 modes. `evaporationText` is the kind
// of evaporation chosen for the plant; the partly flooded kind sets the
// superheats to 1 and 4 K, the dry kind of the caption table to 2 and 5 K.
DiagramWindow OpenDiagramWindow(Workspace& ws, std::string_view evaporationText = {});

// A scrollbar moved: the value (kept within the bar's range) goes to the
// field as integer text. False, and nothing changes, while the guard is set;
// the caller redraws on true.
bool ScrollTrim(DiagramWindow& w, TrimField which, int value);
// Sets a bar from code, under the guard.
void SetTrimBar(DiagramWindow& w, TrimField which, int value);

TrimValues ReadTrimValues(const DiagramWindow& w);

// The table file of the diagram for a fluid: the twins' aliases first, then
// the registry's file. Empty for an unknown fluid.
std::string DiagramTableFile(std::string_view fluid);

// Tick step, pScale and last grid index by table file.
struct TickRule {
    double step = 50;
    double pScale = 1;
    int lastGridIndex = 9;
    bool celsius = false;
};
TickRule DiagramTickRule(std::string_view tableFile);

// Whether all rows of the fluid's table count for the scales.
bool AllRowsCount(std::string_view fluid);

// The scales from the rows of a table. rowHint is the fluid's row hint: the
// table is taken to hold that many rows for the drawing, and rows standing
// before them (the cold end of a longer table) are skipped unless
// AllRowsCount. The skipping stops short of keepFromK (K, the evaporating
// temperature; 0 for none): the row at or below keepFromK - 5 still counts,
// so that the cycle never falls off the bottom of the drawing.
DiagramScales ComputeDiagramScales(const SaturationTable& table, std::string_view fluid, std::string_view tableFile,
                                   int rowHint, double keepFromK = 0);

// The pressure grid: the values of the series in bar, or in psi for inch
// units, up to the last index of the tick rule.
std::vector<double> PressureGrid(int lastGridIndex, bool psi);

// Runs the state-point functions at the trim values and builds the cycle.
// Changes ws.cycle; Play_DiaG puts it back. q0 is the refrigerating capacity
// (kW) at which the power is worked out.
DiagramCycle ComputeDiagramCycle(Workspace& ws, const TrimValues& trim, bool co2Mode, double pIntermediateRecord,
                                 double q0);

// Draws the whole diagram at the window's trim values. The working state,
// the refrigerant name and the GWP of the project are as before afterwards.
// The scales, the cycle and the figures of the drawing stay in `w`. A fluid
// without table gives a drawing with nothing on it.
DrawingList Play_DiaG(Workspace& ws, DiagramWindow& w);

// The read-out with the left button held at (x, y) in window coordinates,
// on the scales of the last drawing. The panel is shown at (x + 8, y).
DiagramReadout ReadOutAt(Workspace& ws, const DiagramWindow& w, double x, double y);
// Button released: the panel is hidden.
void HideReadout(DiagramWindow& w);

}  // namespace kv
