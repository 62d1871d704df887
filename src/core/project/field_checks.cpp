#include "project/field_checks.h"

#include <array>
#include <limits>

#include "project/data_screen.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/settings.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr double kAny = std::numeric_limits<double>::max();

// Temperatures of a refrigeration plant, °C: the refrigerant's own limits
// are checked apart; these keep out what no fluid has.
constexpr NumberRange kTemperature{-200, 250};
constexpr NumberRange kDifference{-100, 100};       // K
// Capacities, kW: above 5 MW the suction gas of a copper series' largest
// tube (108 mm) loses more than the evaporating pressure and no figure of
// the run means anything. Swept volumes, m³/h, to match.
constexpr NumberRange kCapacity{0, 5000};
constexpr NumberRange kSweptVolume{0, 10000};
constexpr NumberRange kPercent{0, 100};
constexpr NumberRange kVolume{0, 1e6};              // dm³
constexpr NumberRange kFrequency{0, 1000};          // Hz
constexpr NumberRange kPressure{0, 300};            // bar
constexpr NumberRange kTextOnly{-kAny, kAny};       // the screen's own rules judge the value
constexpr NumberRange kLength{0, 10000};            // m
constexpr NumberRange kHeight{-1000, 1000};         // m
constexpr NumberRange kZeta{0, 1e5};
constexpr NumberRange kCount{0, 10000};
constexpr NumberRange kVelocity{0, 100, true};      // m/s: the sizing divides by it

struct Field {
    std::string Project::*text;
    Cap caption;
    NumberRange range;
};

const std::array<Field, 19> kFields = {{
    {&Project::Tver, Cap::EvapTemp, kTemperature},
    {&Project::tko, Cap::CondTemp, kTemperature},
    {&Project::doelL, Cap::MediumTempEvap, kTemperature},
    {&Project::dtVerd, Cap::DtEvaporator, kDifference},
    {&Project::DKondL, Cap::MediumTempCond, kTemperature},
    {&Project::dtKond, Cap::DtCondenser, kDifference},
    {&Project::loelL, Cap::MediumInletTempEvap, kTemperature},
    {&Project::dhSL, Cap::DtSuctionLine, kDifference},
    {&Project::HeizL, Cap::HeatingCapacity, kCapacity},
    {&Project::lkondl, Cap::BivalentShare, kPercent},
    {&Project::Leistung, Cap::Capacity, kCapacity},
    {&Project::KompHub, Cap::CompressorSweptVolume, kSweptVolume},
    {&Project::TeilL, Cap::PartLoad, kTextOnly},
    {&Project::InverterMin, Cap::InverterMin, kFrequency},
    {&Project::InverterMax, Cap::InverterMax, kFrequency},
    {&Project::VerdVol, Cap::EvapVolume, kVolume},
    {&Project::KondVol, Cap::CondVolume, kVolume},
    {&Project::P_mittel, Cap::IntermediatePressure, kPressure},
    {&Project::P_gasK, Cap::GasCoolerPressure, kPressure},
}};

// The auxiliary values in the order of SubAct.dat.
struct Auxiliary {
    Cap caption;
    NumberRange range;
};
const std::array<Auxiliary, kAuxiliaryCount> kAuxiliary = {{
    {Cap::SuperheatEvap, kDifference},    {Cap::SuperheatSuctionLine, kDifference},
    {Cap::SubcoolingBase, kDifference},   {Cap::SubcoolingIhx, kDifference},
    {Cap::MaxDropLiquid, kDifference},    {Cap::MaxDropDischarge, kDifference},
    {Cap::MaxDropInjection, kDifference}, {Cap::VelocitySuction, kVelocity},
    {Cap::VelocityDischarge, kVelocity},  {Cap::VelocityLiquid, kVelocity},
    {Cap::VelocityCondensate, kVelocity},
}};

}  // namespace

std::string ArmaturColumnCaption(const Workspace& ws, int col) {
    static constexpr std::array<Cap, 15> kColumns = {
        Cap::ColBallValves,   Cap::ColShutOffValves,  Cap::ColSuctionLiquidHx, Cap::ColCheckValves,
        Cap::ColOilSeparator, Cap::ColSightGlass,     Cap::ColSolenoidValves,  Cap::ColFilterDrier,
        Cap::ColEvaporators,  Cap::ColInjectionLines, Cap::ColSuctionFilter,   Cap::ColVibrationAbsorbers,
        Cap::ColPressureRegulator, Cap::CellCompressors, Cap::CellLiquidInjection};
    return col >= 1 && col <= 15 ? ws.captions[kColumns[static_cast<std::size_t>(col - 1)]] : std::string();
}

std::string LineSectionCaption(const Workspace& ws, int line) {
    static constexpr std::array<Cap, 8> kLines = {Cap::LineInjection, Cap::LineSuction,      Cap::LineDischarge,
                                                  Cap::LineLiquid,    Cap::LineCondensate,   Cap::LineHotGasBypass,
                                                  Cap::LineEcoLiquid, Cap::LineEcoSuction};
    return line >= 1 && line <= 8 ? ws.captions[kLines[static_cast<std::size_t>(line - 1)]] : std::string();
}

void CheckNumberFields(const Workspace& ws, const DataScreen* screen, std::vector<std::string>& messages) {
    const Project& p = ws.project;
    const Captions& c = ws.captions;
    for (const Field& f : kFields) CheckNumberField(ws, messages, c[f.caption], p.*f.text, f.range);

    // The capacity the calculation runs on: Leistung as soon as it holds
    // text, the swept volume otherwise (an empty pair is message 51).
    if (!Trim(p.Leistung).empty() && IsNumberText(p.Leistung) && ToNumber(std::string_view(p.Leistung)).value == 0)
        messages.push_back(NumberFaultMessage(ws, c[Cap::Capacity], NumberFault::Zero, kCapacity));

    const std::vector<std::string> aux = screen ? std::vector<std::string>(screen->Text.begin() + 1, screen->Text.end())
                                                : ReadAuxiliaryValues(ws);
    for (std::size_t i = 0; i < kAuxiliary.size() && i < aux.size(); ++i)
        CheckNumberField(ws, messages, c[kAuxiliary[i].caption], aux[i], kAuxiliary[i].range);

    static constexpr GeometrRow kRows[3] = {GeoLength, GeoHeight, GeoZetaSum};
    const NumberRange rowRange[3] = {kLength, kHeight, kZeta};
    const std::string rowWord[3] = {c[Cap::Length], c[Cap::HeightDifference], c[Cap::ZetaSum]};
    for (int line = 1; line <= kLineSectionCount; ++line)
        for (int k = 0; k < 3; ++k)
            CheckNumberField(ws, messages, LineSectionCaption(ws, line) + ", " + rowWord[k],
                             p.Geometr.Cell(line, kRows[k]), rowRange[k]);

    for (int row = 1; row <= 6; ++row)
        for (int col = 1; col <= 13; ++col)
            if (ArmaturCellEnterable(col, row))
                CheckNumberField(ws, messages, LineSectionCaption(ws, row) + ", " + ArmaturColumnCaption(ws, col),
                                 p.Armatur.Cell(col, row), kCount);
    CheckNumberField(ws, messages, ArmaturColumnCaption(ws, 14), p.Armatur.Cell(14, 2), kCount);
    CheckNumberField(ws, messages, ArmaturColumnCaption(ws, 15), p.Armatur.Cell(15, 1), kCount);
}

}  // namespace kv
