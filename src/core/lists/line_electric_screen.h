// The line and electrical data screen: the length and height of every
// refrigerant line (the same cells as the project data screen's line grid),
// the insulation thicknesses, and the wiring list Wire.dat with its cables
// sized for the consumers of the plant under the project's electrical
// standard.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct WiringRow {
    std::string consumer, length, conductor, component, quantity;
};

struct LineElectricScreen {
    std::array<std::string, 9> length{}, height{};  // line sections 1..8
    std::array<std::string, 5> insulation{};        // thicknesses 1..4, mm
    std::string standard;                           // the electrical standard of the plant
    std::vector<WiringRow> wiring;
    std::vector<std::string> messages;              // what Apply refused
};

// A copper cable for a load: the smallest cross-section (mm²) of the
// standard series that carries the current (installation method C, PVC,
// three loaded conductors) and keeps the voltage drop at or below 3 %.
double CableCrossSection(double amps, double lengthM, double volts, bool threePhase);
// Current of a motor load of `kW` at cos phi 0.85.
double LoadCurrent(double kW, double volts, bool threePhase);
// Conductor text of a cable: "5 x 2.5 mm²".
std::string ConductorText(int cores, double mm2);

// The cables of the calculated plant: compressor, condenser and evaporator
// fans, solenoid valve coils and the safety chain, each from the control
// box, its length along the line it follows.
std::vector<WiringRow> ProposeWiring(const Workspace& ws);

// Opens the screen: the project's line cells, RLDaemm.dat and Wire.dat
// (proposed from the plant when the file is empty).
void OpenLineElectric(Workspace& ws, LineElectricScreen& s);
// Checks the numbers and writes the line cells into the project,
// RLDaemm.dat and Wire.dat. False, with the messages, when a value is
// refused; nothing is written then.
bool ApplyLineElectric(Workspace& ws, LineElectricScreen& s);

}  // namespace kv
