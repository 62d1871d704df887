// The rules of the project data screen (Projektdaten) as a plain model. The
// screen's text fields are the project record's own text fields; what only
// the screen holds (the auxiliary values Text1..Text11, the side media, the
// box lists, which fields are enabled, the light on the calculate button)
// stands here. The widgets bind to both and call these functions.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct DataScreen {
    // Text1..Text11: the auxiliary values of SubAct.dat (index 1..11).
    std::array<std::string, 12> Text{};
    std::string Combo2 = "A";  // evaporator-side medium: "A", "B", "W"
    std::string Combo3 = "W";  // condenser-side medium
    std::string RLcombo;       // pipe series box text
    std::string KaelteMBox;    // refrigerant box text; the record takes it when the registry knows it

    // Box contents, in their order.
    std::vector<std::string> kaelteList, combo1List, valenzList, rgList, rlList, exvList, abtauList, mediaList,
        countryList, locationList;

    // Enabled states and labels.
    bool inverterEnabled = false;
    bool lkondlEnabled = false;
    bool kompHubEnabled = true;
    bool leistungEnabled = true;
    bool calculateGreen = false;  // the light on the calculate button
    std::string geometrCol6Head;  // head of Geometr column 6 (defrost kind or bypass)
    int defrostLabels = 1;        // which label pairs of the defrost display show: 1 first, 2 second
    bool ecoCheck = false, hgBypassCheck = false, vierWegeCheck = false, oelKCheck = false, paraLCheck = false;

    // Set while code changes fields, so that change events do nothing.
    bool guard = false;
};

// The side-medium caption of "A", "B" or "W".
std::string MediumCaption(const Workspace& ws, const std::string& letter);

// Fittings cells that take input; all others are grey.
bool ArmaturCellEnterable(int col, int row);

// Fills the box lists from the registry and the captions.
void FillBoxes(Workspace& ws, DataScreen& s);
// The opening steps, each time the screen becomes active.
void OpenDataScreen(Workspace& ws, DataScreen& s);

// A refrigerant chosen or typed in the box: normalised into the record when
// the registry knows it; refused with its message otherwise, and the box
// shows the record's fluid again.
bool ChooseRefrigerant(Workspace& ws, DataScreen& s);

// The check boxes that only flip their flag.
void ToggleEconomizer(Workspace& ws, DataScreen& s);
void ToggleOilCooler(Workspace& ws, DataScreen& s);
void ToggleParallelLines(Workspace& ws, DataScreen& s);

// Defrost display of kind 1, 2 or any other (electric).
void Abtaudarstell(Workspace& ws, DataScreen& s, int kind);
// A defrost kind chosen in the box.
void ChooseDefrost(Workspace& ws, DataScreen& s, const std::string& text);
// The hot-gas bypass and four-way check boxes.
void ToggleHotGasBypass(Workspace& ws, DataScreen& s);
void ToggleFourWay(Workspace& ws, DataScreen& s);

// The two-way temperature links: tko = DKondL + dtKond, Tver = doelL - dtVerd,
// each only when both fields have text.
void LinkCondenserTemperature(Workspace& ws, DataScreen& s);
void LinkEvaporatorTemperature(Workspace& ws, DataScreen& s);

// Leistung from HeizL: the bivalent share lkondl, or the whole for a
// monovalent plant.
void CapacityFromHeat(Workspace& ws, DataScreen& s);
// TeilL from the inverter band, cut to half a percent.
void InverterRech(Workspace& ws);
void InverterCheck(DataScreen& s, bool on);
// A capacity control chosen in the box.
void ChooseCapacityControl(Workspace& ws, DataScreen& s, const std::string& text);

// Zeta sums of the lines from the fittings and lengths. Unless mode is 1 the
// sum of `editedLine` (1..8; 0 for all) goes into Geometr row 3. Returns the
// sums, index 1..8.
std::array<double, 9> SumZeta(Workspace& ws, int mode, int editedLine);

// Green light when the input can be calculated.
bool ValidationMark(Workspace& ws, DataScreen& s);

// The input check: the messages in their order; the caller shows each in a
// box and, above four, the error list.
struct InputCheck {
    std::vector<std::string> messages;
    int Count() const { return static_cast<int>(messages.size()); }
};
// After its own rules it refuses number fields that are not numbers or lie
// outside what a plant can have (field_checks.h); the auxiliary values are
// the screen's when one is given, else those of SubAct.dat.
InputCheck CheckInput(Workspace& ws, const DataScreen* screen = nullptr);
inline constexpr int kErrorListAbove = 4;

// The calculate button: checks, then moves the screen into the record and
// the working files. False (and the messages) when the check failed; the
// caller then shows them and does not open the plant scheme screen.
bool StartCalculation(Workspace& ws, DataScreen& s, InputCheck* check = nullptr);

// The return of the heat-exchanger or air-conditioning module: reads
// KELVData.dat and takes the evaporating temperature, the heating capacity
// and the evaporator difference. True when the file had something to take.
bool TakeOverModuleResult(Workspace& ws, DataScreen& s);

// "Save as standard": the fittings, the compressor kind and the defrost kind
// into ARMSTD.DAT.
bool SaveAsStandard(Workspace& ws);

// What the compressor search returned: a swept volume (positive) goes into
// KompHub and greys Leistung; zero greys KompHub; negative changes nothing.
void CompressorSearchReturn(Workspace& ws, DataScreen& s, double value);

// Locations of the chosen country.
void FillLocations(Workspace& ws, DataScreen& s);
std::string LocationFileOf(const std::string& countryKey);

// "B0/W35": side letters with the fluid temperatures.
std::string BuildPairText(const std::string& combo2, const std::string& doelL, const std::string& combo3,
                          const std::string& dKondL);

}  // namespace kv
