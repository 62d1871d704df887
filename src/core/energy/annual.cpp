#include "energy/annual.h"

#include <algorithm>
#include <cmath>

#include "cycle/kernel.h"
#include "cycle/plausibility.h"
#include "cycle/scheme_screen.h"
#include "energy/annual_profile.h"
#include "project/project.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/settings.h"
#include "shell/workspace.h"

namespace kv {
namespace {

double Num(const std::string& text) { return ToNumber(std::string_view(text)).value; }

// The integer part as the classical Int takes it, towards minus infinity. The
// guard keeps binary noise (100 (4.1 - 1) = 309.99999...) from taking a unit
// off a figure that is whole in decimal.
double IntPart(double x) { return std::floor(x + 1e-7); }

// The hour row's figures: hundredths, rounded as the evaporating temperature is.
std::string Hundredths(double value) { return NumberText(RoundHundredths(value)); }

// Everything of the plant scheme that the year changes, to put back after it.
struct DesignPoint {
    CycleState cycle;
    std::string Qh, t0;
    bool hubconstant = false;
    double savedKompHub = 0.0;
    double hourlyEvaporatingTemp = 0.0;

    static DesignPoint Take(const Workspace& ws, const SchemeScreen& s) {
        return {ws.cycle, s.Qh, s.t0, s.Hubconstant, s.savedKompHub, ws.project.HourlyEvaporatingTemp};
    }
    // Entries and state as they stood, then the plant recalculated at the
    // design point on the line sizes it had.
    void Restore(Workspace& ws, SchemeScreen& s) const {
        ws.cycle = cycle;
        s.Qh = Qh;
        s.t0 = t0;
        s.Hubconstant = hubconstant;
        s.savedKompHub = savedKompHub;
        ws.project.HourlyEvaporatingTemp = hourlyEvaporatingTemp;
        s.keepSizesOnce = true;
        CalculateCycle(ws, s, Recalculate);
    }
};

}  // namespace

double DaysOfMonth(int month) { return month == 2 ? kDaysOfFebruary : kDaysOfMonth; }

HourBooking BookHour(SeasonAccumulators& acc, double days, double Q, double QPlant, double cop) {
    HourBooking b;
    if (!(Q > 0)) return b;
    b.power = cop > 0 ? Q / cop : 0.0;
    b.energy = days * b.power;
    acc.energyTotal += b.energy;
    if (!(QPlant > 0)) {
        // A plant that gives no heat at this hour has no COP to weigh: the
        // whole demand falls to the supplementary heater.
        b.extra = Q;
        acc.extraHeat += days * b.extra;
        return b;
    }
    const double load = Q / QPlant;
    if (Q <= QPlant) {
        // Full cover at part load.
        acc.weightedHours += days * load;
    } else {
        // Beyond the capacity: the heat pump runs the whole hour, the heater
        // gives the rest.
        acc.weightedHours += days;
        acc.extraHours += days * (1 - load);
        b.extra = Q - QPlant;
        acc.extraHeat += days * b.extra;
    }
    acc.weightedCop += days * load * cop;
    return b;
}

SeasonalResult SeasonalFigures(const SeasonAccumulators& acc, double energyPrice) {
    SeasonalResult r;
    r.weightedHours = acc.weightedHours;
    r.weightedCop = acc.weightedCop;
    r.extraHours = acc.extraHours;
    r.energyTotal = acc.energyTotal;
    // A year without heating hours has no sCOP: the quotient is left at 0
    // rather than 0 / 0, and the caller says why.
    if (acc.weightedHours != 0.0) r.scop = RoundHundredths(acc.weightedCop / acc.weightedHours);
    r.etaSh = IntPart(1000 * r.scop / kPrimaryEnergyFactor) / 10;
    r.copMinusOne = IntPart(100 * (r.scop - 1)) / 100;
    r.annualCost = std::round(100 * energyPrice * IntPart(acc.energyTotal)) / 100;  // to the cent
    r.co2Tons = IntPart(10 * kCo2PerKWh * acc.energyTotal) / 10000;
    r.extraHeat = IntPart(acc.extraHeat);
    r.extraHeatCost = IntPart(10 * (kExtraHeatPrice * acc.extraHeat + 0.05)) / 10;
    return r;
}

SeasonalResult RechKern(Workspace& ws, SchemeScreen& s, const SeasonProgress& progress) {
    SeasonalResult result;
    Project& p = ws.project;
    CycleState& c = ws.cycle;

    const AnnualProfile profile = ReadAnnualProfile(ws);
    if (!profile.present) {
        ws.ui.Message(ws.Title(), ws.captions.Message(23), MessageIcon::Error);
        return result;
    }
    // The year starts from a calculated design point.
    if (!c.valid && !CalculateCycle(ws, s, Recalculate)) return result;

    // The design point as it stands.
    const DesignPoint design = DesignPoint::Take(ws, s);
    SourceInputs source;
    source.t0Start = Num(s.t0);
    source.toDesign = c.tEvapK - 273.15;
    source.dtVerd = Num(p.dtVerd);
    const SourceKind kind = SourceOf(p.PairText);
    const double energyPrice = Num(ReadEnergyValues(ws)[2]);
    const double tc = Num(s.Tc);

    // The installed compressor: the swept volume kept on the screen, else
    // the one the design point demands. With a free swept volume the kernel
    // would size a new compressor for every hour's demand and the plant
    // would always just cover it.
    if (!(s.Hubconstant && s.savedKompHub > 0)) {
        s.Hubconstant = true;
        s.savedKompHub = c.requiredSweptVolume;
    }

    SeasonAccumulators acc;
    RecordWriter out;
    bool failed = false;
    double copMax = 0.0, copMin = 0.0;
    double hoursAboveCarnot = 0.0;
    bool anyCop = false;
    for (int month = 1; month <= 12 && !failed; ++month) {
        // The month row.
        const MonthProfile& m = profile.months[static_cast<std::size_t>(month - 1)];
        const double days = DaysOfMonth(month);
        out.Item(m.name).Item(m.tHigh).Item(m.tLow).Item(m.tRoomDay).Item(m.tRoomNight).Item(profile.QNorm).EndLine();
        // A profile written under another language keeps its ground
        // cooling by the position of its month.
        const int calendarMonth = MonthOfName(m.name, ws.captions);
        const double groundCooling = AuskuehlF(calendarMonth != 0 ? calendarMonth : month);

        for (int hour = 1; hour <= 24; ++hour) {
            // Outdoor and room temperature, heat demand, evaporating temperature.
            const double t = HourTemperature(m, hour);
            const double room = RoomTemperature(m, hour);
            const double Q = HeatDemand(profile.QNorm, profile.tNorm, room, t);
            source.toCurrent = c.tEvapK - 273.15;
            const double to = RoundHundredths(EvaporatingTemperature(kind, source, t, groundCooling));

            const std::string hourText = "h" + std::to_string(hour);
            if (progress) progress(hourText + "  t = " + NumberText(t) + "  to = " + NumberText(to));
            out.Item(hourText).Item(NumberText(t));
            if (!(Q > 0)) {
                // No heat demand: nothing is calculated.
                out.Item("  -- ").Item("").Item("").Item("").Item("").Item(" -").Item("").EndLine();
                continue;
            }

            // The plant at this hour's evaporating temperature, with the
            // line sizes of the design point. Below the lowest evaporating
            // temperature of the fluid, or without lift to the condensing
            // temperature, the heat pump is off and the heater carries the
            // hour; so it is when the kernel gives no sound figures, and the
            // next hour starts again from the design state.
            double QPlant = 0.0, cop = 0.0;
            if (to > p.tmin && to < tc) {
                p.HourlyEvaporatingTemp = to;
                c.Qh = Q;
                s.keepSizesOnce = true;
                if (!CalculateCycle(ws, s, AnnualHour)) {
                    failed = true;
                    break;
                }
                QPlant = Cut(c.Q0 + c.pShaft, 2);
                cop = c.cop;
                if (!std::isfinite(QPlant) || !std::isfinite(cop) || !(cop > 0) || !(QPlant > 0)) {
                    QPlant = cop = 0.0;
                    c = design.cycle;
                }
            }
            s.Qh = NumberText(QPlant);

            // Power, energy, cover and supplementary heat.
            const HourBooking b = BookHour(acc, days, Q, QPlant, cop);
            result.heatDemand += days * Q;
            result.heatingHours += days;
            if (cop > 0) {
                if (AboveCarnot(c)) hoursAboveCarnot += days;
                copMax = anyCop ? std::max(copMax, cop) : cop;
                copMin = anyCop ? std::min(copMin, cop) : cop;
                anyCop = true;
            }

            // The hour row.
            out.Item(NumberText(to))
                .Item(NumberText(cop))
                .Item(Hundredths(b.power))
                .Item(Hundredths(b.energy))
                .Item(Hundredths(Q))
                .Item(s.Qh)
                .Item(b.extra > 0 ? Hundredths(b.extra) : std::string())
                .EndLine();
        }
    }

    if (failed) {
        design.Restore(ws, s);
        return result;
    }

    // The hour table and the figures of the year.
    OutFile file = OpenOut(ws, kSeasonFile);
    file.Write() = std::move(out);
    const bool written = file.Close();

    const double heatDemand = result.heatDemand, heatingHours = result.heatingHours;
    result = SeasonalFigures(acc, energyPrice);
    result.heatDemand = heatDemand;
    result.heatingHours = heatingHours;
    result.copMax = copMax;
    result.copMin = copMin;
    result.hoursAboveCarnot = hoursAboveCarnot;
    result.ran = written;

    // The design point again, then the seasonal figures in the panel.
    design.Restore(ws, s);
    s.Eta_heiz = NumberText(result.etaSh);
    s.Zuheiz = NumberText(result.extraHeat);
    if (result.heatingHours == 0.0) ws.ui.Message(ws.Title(), ws.captions.Message(24), MessageIcon::Information);
    return result;
}

}  // namespace kv
