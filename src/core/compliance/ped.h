// Classification of a calculated plant under the Pressure Equipment
// Directive 2014/68/EU: the maximum allowable pressures of the low and high
// side from the refrigerant's saturation table, the category of the piping
// by PS x DN, of the receiver by PS x V, of the heat exchangers by their
// connections, the category of the assembly, and the protocol pages.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kv {

struct Workspace;

// Group 1 (dangerous fluids) for a single part; the assembly lists add
// ethane, ethylene and methane, which count as group 2 in a part.
bool IsGroup1Part(std::string_view refrigerant);
// 0: group 2; 1, 2, 3: the assembly list that names the fluid.
int AssemblyGroup1List(std::string_view refrigerant);

// Design temperatures of the high side behind the three choices, °C.
inline constexpr std::array<double, 3> kHighSideChoice = {43, 55, 63};
inline constexpr double kLowSideKelvin = 305.13;
inline constexpr double kHighSideBaseKelvin = 273.13;

struct PedPressures {
    double p1 = 0.0, p2 = 0.0;  // absolute, bar
    std::string ps1, ps2, ps2x11;  // gauge, cut to two decimals, as the fields show them
};
// `high` 1..3 picks the design temperature of the high side. Dew and bubble
// pressure come from the table rows around the temperature; a glide moves
// the low side by 0.3 and the high side by half of it.
PedPressures DerivePressures(Workspace& ws, int high);

// Category of a part: mode 1 a vessel by PS x V, mode 2 piping by PS x DN
// with the part's DN and, for group 1, the gate on the plant's DN1 and DN2.
int ClassifyPart(int mode, double product, double dn, double dn1, double dn2, bool group1);
// Category of the assembly by PSDN and the larger DN.
int ClassifyAssembly(double psdn, double dn1, double dn2, bool group1);
// "<category> II, Module A1,D1,E1" and the like; index 0 the article form,
// ", Art. 4.3" for the assembly and ", Art. 3.3" for a part.
std::string CategoryText(const Workspace& ws, int index, bool assembly);
// The same without the modules ("Category II").
std::string CategoryWord(const Workspace& ws, int index);

struct PedRow {
    std::string component, basis, size, product, text;
    int index = -1;  // -1: not classified
};

// The PEDprot screen.
struct PedScreen {
    int high = 1;                   // choice of the high-side temperature, 1..3
    std::string ps1, ps2, ps2x11;   // editable pressure fields, bar g
    double dn1 = 0.0, dn2 = 0.0;    // largest inner diameter of low and high side, mm
    double dnc = 0.0;               // DN of the side that gives PSDN
    double psdn = 0.0;
    double volume = 0.0;            // receiver volume, dm³
    bool group1Part = false;
    bool group1Assembly = false;
    int assemblyIndex = 0;
    std::string assemblyText;
    std::array<PedRow, 5> rows;     // the line, compressor, evaporator, condenser, receiver
    int plantIndex = 0;
    std::string plantText;          // category of the plant, without modules
    bool noteShown = false;         // the note and picture of an index outside 0..4
};

// Opens the screen: pressures, diameters, assembly and table.
void OpenPedScreen(Workspace& ws, PedScreen& s, int high = 1);
// A new choice of the high side: the pressures anew, then classified.
void ChooseHighSide(Workspace& ws, PedScreen& s, int high);
// Reads the pressure fields back (comma or point) and classifies again.
void ClassifyPlant(Workspace& ws, PedScreen& s);

// The protocol pages PEDpar.DAT and PEDpar2.DAT in the line grammar of the
// result sets.
bool WritePedProtocol(Workspace& ws, const PedScreen& s);
// The eco protocol ECOpar.DAT: efficiency, refrigerant, charge, CO2
// equivalent and the leak check interval; with the year of a heat pump its
// sCOP, ETAs,h and energy per year.
struct SeasonalResult;
bool WriteEcoProtocol(Workspace& ws, const SeasonalResult* year = nullptr);
// Months between leak checks under regulation (EU) 2024/573 for a charge of
// `tonnesCo2e`; 0 below the 5 t threshold. A leak detection system doubles it.
int LeakCheckMonths(double tonnesCo2e, bool leakDetection);

}  // namespace kv
