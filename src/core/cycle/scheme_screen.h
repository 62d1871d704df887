// The plant scheme screen (schemaR) as a plain model: every figure it shows,
// as the text it shows and whether it is red, and the rules of its entries,
// check boxes and line scrollbars. The cycle kernel writes its results here;
// the widgets only show them.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

// One line group: the size scrollbar and the figures beside it.
struct LineGroup {
    int row = 0;     // scrollbar value: row of the pipe table, from 1
    int maxRow = 0;  // number of sizes of the table
    std::string diameter, length, lossMbar, lossK, velocity, minLoad;
    bool lossRed = false, velocityRed = false, minLoadRed = false;
    bool diameterRed = false;  // the size is rated below the plant's pressure on its side
};

struct SchemeScreen {
    // Entries.
    std::string t0, Tc;   // evaporating, condensing temperature, °C
    std::string po, pc;   // their pressures, bar
    std::string p0psi, pcpsi;
    std::string Qh, Q0;   // heating and refrigerating capacity, kW
    std::string RLcombo;  // pipe standard
    std::string KaelteMBox;  // refrigerant box text; the record takes it when the registry knows it
    bool Hubconstant = false;  // keep the swept volume, capacity follows
    bool cConstant = false;    // keep the line diameters
    bool EcoCheck = false;

    // Labels.
    std::string TsLeit, tEnd;       // suction and discharge temperature
    std::string MstrLab;            // mass flow, kg/s
    std::string xDampf;             // vapour quality at the evaporator inlet
    std::string ElLeistVD_l;        // "Qel=" power " kW"
    std::string PN50_l;             // swept volume and compressor principle
    std::string LeistZ, COP_Heiz, Eta_heiz, BetrKo, CO2consum, Zuheiz;
    std::string ECOWTPN;            // heat of the economizer, kW
    std::string tIntermediate, pIntermediate;
    std::vector<std::string> notes;  // doubts on the figures (cycle/plausibility.h), shown in red
    // The reference check beside the empirical figures: its heating COP and
    // discharge temperature (empty without a reference table), red with the
    // tooltip when the empirical COP strays too far from it.
    std::string RefCOP, RefTEnd, RefTip;
    bool RefRed = false;

    // Line groups by line section 1..8 (injection .. economizer suction).
    std::array<LineGroup, 9> lines{};

    double savedKompHub = 0.0;  // m³/h, the swept volume kept by Hubconstant
    bool keepSizesOnce = false; // the next run keeps every line's size (a scrollbar moved)
    bool sizingOffered = false; // the stored line sizes were offered in this opening
    bool guard = false;         // set while code writes fields
};

// A figure cut to `decimals` places (kv::Cut) as text.
std::string CutText(double value, int decimals);
// The " °C" suffix of the temperature labels.
inline constexpr const char* kDegreeSuffix = " \u00b0C";

// Fills the entries from the project and the lists of the screen on opening.
void OpenSchemeScreen(Workspace& ws, SchemeScreen& s);

// Enter in t0 or Tc: the limit checks (message 54 with "tmin = " or
// "tmax = "), then CalculateCycle(0). False when a check refused the value.
bool EnterEvaporatingTemperature(Workspace& ws, SchemeScreen& s);
bool EnterCondensingTemperature(Workspace& ws, SchemeScreen& s);
// The Calculate button: both checks, then CalculateCycle(1).
bool CalculateButton(Workspace& ws, SchemeScreen& s);

// A pressure typed into po or pc: the psi label and the temperature field
// (5 K table step; the mean of both pressure columns for a fluid with glide).
void EnterEvaporatingPressure(Workspace& ws, SchemeScreen& s);
void EnterCondensingPressure(Workspace& ws, SchemeScreen& s);
// The temperature of a saturation pressure, as the pressure entries take it.
double TemperatureOfPressure(Workspace& ws, double pBar);

// The refrigerant box (KaelteMBox): false, and the box set back to the
// record's fluid, when refused.
bool ChangeRefrigerant(Workspace& ws, SchemeScreen& s);
// The pipe standard box.
void ChangePipeStandard(Workspace& ws, SchemeScreen& s, const std::string& text);
// The check boxes.
void SetHubconstant(Workspace& ws, SchemeScreen& s, bool on);
void SetEcoCheck(Workspace& ws, SchemeScreen& s, bool on);

// A line scrollbar moved to `row`: recalculates the line and what follows
// from it, only after a completed calculation. False when nothing ran.
bool MoveLineScrollbar(Workspace& ws, SchemeScreen& s, int section, int row);

}  // namespace kv
