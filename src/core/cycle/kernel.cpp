#include "cycle/kernel.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "cycle/plausibility.h"
#include "cycle/run_checks.h"
#include "cycle/reference_cycle.h"
#include "cycle/scheme_screen.h"
#include "lines/line_data.h"
#include "lines/line_sizing.h"
#include "lines/pipe_series.h"
#include "lines/pipe_table.h"
#include "lines/pressure_drop.h"
#include "project/project.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "refrigerant/state_points.h"
#include "shell/file_memory.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/settings.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace {

double Num(const std::string& text) { return ToNumber(std::string_view(text)).value; }

// A vapour viscosity is some 1e-5 Pa s. A few of the fluid sets deliver their
// vapour viscosity in mPa s; anything above 1e-3 is read that way, so that
// the line losses see Pa s whatever the set.
double VapourViscosityPaS(double eta) { return eta > 1e-3 ? eta * 1e-3 : eta; }

// The four values of enerACT.dat: hours a day, days a year, price, load share.
struct EnergyValues {
    double runFactorA = 12, runFactorD = 365, energyPrice = 0.3, runFactorC = 0.5;
};
EnergyValues ReadEnergy(const Workspace& ws) {
    const auto v = ReadEnergyValues(ws);
    return {Num(v[0]), Num(v[1]), Num(v[2]), Num(v[3])};
}

// The figures of one line group from a sizing result.
void ShowLine(const Workspace& ws, SchemeScreen& s, int section, const LineResult& r, double length, bool withK,
              bool withVelocity) {
    LineGroup& g = s.lines[static_cast<std::size_t>(section)];
    g.diameter = LineSizeText(ws.pipes, r, length);
    g.length = NumberText(length);
    if (!r.sized) {
        g.lossMbar = g.lossK = g.velocity = g.minLoad = "";
        return;
    }
    g.row = r.row;
    g.lossMbar = CutText(r.lossMbar, 0);
    if (withK) g.lossK = CutText(r.lossK, 2);
    if (withVelocity) g.velocity = CutText(r.velocity, 2);
}

// A run that cannot go on: the record is no longer busy, and nothing of it
// counts as calculated.
bool StopRun(Workspace& ws) {
    ws.project.CalcState = 1;
    ws.cycle.diametersFixed = false;
    ws.cycle.valid = false;
    return false;
}

}  // namespace

std::string CutText(double value, int decimals) { return NumberText(Cut(value, decimals)); }

namespace {
void AnnualFiguresWith(Workspace& ws, SchemeScreen& screen, double P, const EnergyValues& e) {
    CycleState& c = ws.cycle;
    c.annualCost = P * e.runFactorA * e.runFactorC * e.energyPrice * e.runFactorD;
    screen.BetrKo = CutText(c.annualCost, 0);
    // 0.7 kg CO2 for each kWh of electricity.
    c.co2Tons = Cut(P * e.runFactorA * e.runFactorC * 0.7 * e.runFactorD / 1000, 1);
    screen.CO2consum = NumberText(c.co2Tons);
    c.eer = P != 0.0 ? c.Q0 / P : 0.0;
    screen.LeistZ = CutText(c.eer, 2);
    c.cop = std::floor(100 * (c.eer + 1 + 0.005)) / 100;
    screen.COP_Heiz = NumberText(c.cop);
}
}  // namespace

void AnnualFigures(Workspace& ws, SchemeScreen& screen, double P) { AnnualFiguresWith(ws, screen, P, ReadEnergy(ws)); }

bool CalculateCycle(Workspace& ws, SchemeScreen& s, int mode) {
    Project& p = ws.project;
    CycleState& c = ws.cycle;
    const Captions& cap = ws.captions;
    const CalculationRound round(ws);  // a file changed since the last run is read anew

    // The stored sizes are offered on the first calculation of a
    // screen opening only; a size moved by hand keeps all sizes for this run.
    if (s.keepSizesOnce) {
        c.diametersFixed = true;
        s.keepSizesOnce = false;
    } else {
        c.lineRow.fill(0);
        if (mode == FirstCalculation && !s.sizingOffered) {
            s.sizingOffered = true;
            OfferStoredSizing(ws);
        }
    }

    // The swept volume and the diameters kept by the check boxes.
    double kompHub = 0.0;
    if (s.cConstant) c.diametersFixed = true;
    if (s.Hubconstant) kompHub = s.savedKompHub;

    // The working files of the run; the inputs.
    for (const char* f : {"SP_TempD.dat", "SP_TempS.dat"})
        if (FileLength(ws, f) > 0) OpenOut(ws, f).Close();
    p.CalcState = 77;
    double Qh = mode == AnnualHour ? c.Qh : Num(s.Qh);
    double t0 = Num(s.t0);
    if (mode == AnnualHour) {
        t0 = p.HourlyEvaporatingTemp;
        s.t0 = NumberText(t0);
    }
    const double tc = Num(s.Tc);
    // A missing auxiliary file is written with its defaults first.
    if (OpenIn(ws, "SubAct.dat").Length() == 0) ResetAuxiliaryData(ws, 1);
    if (OpenIn(ws, "enerACT.dat").Length() == 0) ResetAuxiliaryData(ws, 2);
    const auto aux = ReadAuxiliaryValues(ws);
    const EnergyValues energy = ReadEnergy(ws);
    const double superheatEvap = Num(aux[0]), superheatLine = Num(aux[1]), subcoolingBase = Num(aux[2]),
                 ihxStep = Num(aux[3]);
    const LineData lines = ReadLineData(ws, aux);
    const LineLimits& lim = lines.limits;

    // Superheat, subcooling, the real-gas factor of the drive.
    p.SuperheatEvap = superheatEvap;
    c.superheatEvap = superheatEvap;
    double tSuction = t0 + superheatEvap + superheatLine;
    double subcooling = subcoolingBase;
    if (p.VerdArt == 0) p.VerdArt = 2;
    // Above its critical point CO2 has no condensate: only the enthalpies of
    // the supercritical table give a sound compression power, so a CO2 plant
    // without a mode of its own takes the transcritical rules.
    if (IsCo2(p.KaelteM) && p.Co2Mode == 0) p.Co2Mode = 1;
    c.realGasFactor = p.VerdArt == 2 ? 1.28 : p.VerdArt == 3 ? 1.4 : 1.14;
    const bool ihx = ihxStep > 0;  // an inner heat exchanger is present when it has a step
    const bool eco = p.EcoFlag == 1;
    if (ihx && !eco) subcooling += ihxStep;

    // The pipe table of the project.
    if (!EqualsNoCase(ws.pipes.file, p.RohrDatei) || ws.pipes.PipeRowCount == 0) LoadPipeTable(ws, p.RohrDatei);
    for (int i = 1; i <= 8; ++i) s.lines[static_cast<std::size_t>(i)].maxRow = ws.pipes.PipeRowCount;
    if (!PipeTableUsable(ws)) return StopRun(ws);

    // The gas cooler pressure of a transcritical CO2 plant, where the
    // project gives one; else the state points take 95 bar.
    if (const double pGas = Num(p.P_gasK); pGas > 0) c.pTranscritical = pGas;

    // The state points.
    if (!CycleStatePoints(ws, t0, tc, tSuction, subcooling)) {
        std::string file;
        ResolveRefrigerantTable(p, file);
        // A damaged table is refused with its own reason.
        std::string text = cap[Cap::PropertyTableMissing] + " " + (file.empty() ? p.KaelteM : file);
        if (!file.empty() && !ws.properties.Saturation(ws.DataDir(), file).refusal.empty())
            text = ws.properties.Saturation(ws.DataDir(), file).refusal;
        ws.ui.Message(ws.Title(), text, MessageIcon::Error);
        p.CalcState = 1;
        c.diametersFixed = false;
        return false;
    }

    // The inner heat exchanger warms the suction gas.
    if (ihx) {
        const double tOld = tSuction;
        tSuction = t0 + superheatEvap + superheatLine + (c.cpLiquid / c.cpVapEvap) * ihxStep;
        c.rhoSuction = c.rhoSuction * (273.15 + tOld) / (273.15 + tSuction);
    }
    c.tSuctionC = tSuction;

    // The pressures with their psi.
    s.po = CutText(c.pEvap, 2);
    s.pc = CutText(c.pCond, 2);
    s.p0psi = "(" + CutText(c.pEvap * 14.504, 1) + "psi a)";
    s.pcpsi = "(" + CutText(c.pCond * 14.504, 1) + "psi a)";

    // Suction density at the compressor.
    c.rhoSuction *= 1 - (tSuction - t0) / 1500;
    c.rhoAfterDrop = c.rhoSuction * (c.pEvap - c.dpdtEvap) / c.pEvap;

    // A first estimate of the capacities.
    c.Q0 = 0.75 * Qh;
    c.massFlow = MassFlow(ws, c.massFlow, c.Q0);
    double P = CompressionPower(ws, {.pLow = c.pEvap, .pHigh = c.pCond, .tLowK = c.tEvapK, .tHighK = c.tCondK,
                                     .massFlow = c.massFlow, .tSuctionC = tSuction, .hHighVap = c.hVapCond,
                                     .hLowVap = c.hVapEvap});
    AnnualFiguresWith(ws, s, P, energy);
    c.Q0 = RefrigeratingCapacity(Qh, P != 0.0 ? c.Q0 / P : 0.0);
    s.Q0 = CutText(c.Q0, 2);

    // The passes.
    c.dpSuction = c.dpDischarge = c.dpLiquid = 0.0;
    const SizingRules rules = MakeSizingRules(ws);
    const auto& run = lines.run;
    double tLow = 0.0;  // low-stage discharge temperature of the economizer path, °C
    double h4 = 0.0, h1 = 0.0;
    bool firstVolume = true;
    const SaturationTable* satTable = nullptr;  // fetched once for the intermediate level
    for (int pass = 0; pass < 11; ++pass) {
        // The economizer's share starts afresh; mass flow and the enthalpies
        // at evaporator outlet and expansion valve inlet follow the capacity.
        c.ecoHeat = c.ecoMass = 0.0;
        c.ecoFactor = 1.0;
        c.massFlow = MassFlow(ws, c.massFlow, c.Q0);
        h1 = c.hVapEvap + superheatEvap * c.cpVapEvap;
        h4 = c.hLiqCond - c.cpLiquid * (eco ? c.ecoSubcooling : subcooling);

        // A kept swept volume sets the capacity.
        if (kompHub > 0) {
            const double pi = (c.pCond + c.dpDischarge / 1000) / (c.pEvap - c.dpSuction / 1000);
            const double V = kompHub;
            double volume = V;
            double lambda = VolumetricEfficiency(ws, c.pCond, c.dpDischarge, c.pEvap, c.dpSuction, V);
            if (firstVolume) {
                // No volume flow yet: the estimate stands for swept volume
                // times delivery in the first pass.
                volume = V * (1 + ((4.85 - pi) / 4.85) / 14) * 0.8 * (1 - 1 / (1.2 * 0.8 * V + 10));
                lambda = 1.0;
                firstVolume = false;
            }
            const double f = p.InverterMode == 1 ? Num(p.Frequency) : 50.0;
            const double base = p.BaseFrequency > 0 ? p.BaseFrequency : 50.0;
            const double massPerHour = c.ecoFactor * (f / base) * volume * c.rhoAfterDrop * lambda;
            c.Q0 = std::floor(100 * (massPerHour / 3600) * (h1 - h4)) / 100;
            const double withEco = MassFlow(ws, c.massFlow, c.Q0);
            const double ratio = withEco != 0.0 ? (massPerHour / 3600) / withEco : 1.0;
            c.massFlow = withEco;
            c.Q0 = Cut(c.Q0 * (eco ? ratio : 1.0), c.Q0 > 100 ? 1 : 2);
            Qh = c.Q0 + c.pShaft;
            s.Q0 = NumberText(c.Q0);
            if (mode != AnnualHour) s.Qh = CutText(Qh, 2);
        }

        // Vapour quality at the evaporator inlet and the mass flow shown.
        c.qualityInlet = std::fabs((c.hLiqEvap - h4) / (c.hLiqEvap - c.hVapEvap));
        s.MstrLab = CutText(c.massFlow, 3);

        // Vapour viscosities corrected for density; the correction
        // compounds over the passes.
        c.etaVapEvap *= 1 + 0.00183 * (c.rhoVapEvap - 6);
        c.etaVapSuction *= 1 + 0.00183 * (c.rhoSuction - 6);
        c.etaVapDischarge *= 1 + 0.00183 * (c.rhoDischarge - 6);

        // Discharge temperature, one stage or two around the intermediate level.
        double t2C;
        if (eco) {
            c.pIntermediate = std::pow(c.pCond * c.pEvap, 0.45);
            if (!satTable) satTable = ProjectSaturationTable(ws);
            if (satTable) ScanSaturationRows(*satTable, c.pIntermediate, ByDewPressure, c);
            c.tIntermediate = InterpolateRows(c, 2, c.pIntermediate) - 273.15;
            tLow = DischargeTemperature(ws, 10, c.pEvap, c.pIntermediate, tSuction + 273.15, c.kappa) - 273.15;
            t2C = DischargeTemperature(ws, 10, c.pIntermediate, c.pCond, c.tIntermediate + 273.15 + superheatEvap,
                                       c.kappa * 1.028) -
                  273.15;
        } else {
            t2C = DischargeTemperature(ws, 10, c.pEvap, c.pCond, tSuction + 273.15, c.kappa) - 273.15;
        }
        c.tDischargeC = t2C;
        s.TsLeit = CutText(tSuction, 1) + kDegreeSuffix;
        s.tEnd = CutText(t2C, 0) + kDegreeSuffix;

        // Injection line, per branch.
        const TwoPhaseFlow injection{c.massFlow, c.rhoLiqEvap, c.rhoVapEvap, VapourViscosityPaS(c.etaVapEvap),
                                     c.etaLiqEvap, c.qualityInlet};
        const LineResult inj = SizeInjectionLine(rules, injection, p.ParallelInjection, run[Injection],
                                                 lim.maxDtInjection, c.dpdtEvap);
        StoreLineResult(c, Injection, inj);
        ShowLine(ws, s, Injection, inj, run[Injection].length, true, false);
        s.lines[Injection].lossK = inj.sized ? CutText(inj.lossK, 2) + " x" + std::to_string(p.ParallelInjection) : "";

        // Suction line.
        const SingleFlow suction{c.massFlow, c.rhoSuction, VapourViscosityPaS(c.etaVapSuction)};
        const LineResult suc = SizeSuctionLine(rules, suction, run[Suction], lim.wSuction, lim.maxDtSuction,
                                               c.dpdtEvap, c.pEvap);
        StoreLineResult(c, Suction, suc);
        ShowLine(ws, s, Suction, suc, run[Suction].length, true, true);
        // An hour of the year without sound figures goes to the heater (the
        // annual run checks them); any other run stops here.
        if (mode != AnnualHour && !SuctionLossBearable(ws, suc.sized ? suc.lossMbar : 0.0)) return StopRun(ws);
        if (suc.sized) {
            c.dpSuction = suc.lossMbar;
            c.rhoAfterDrop = suc.rhoAfterDrop > 0 ? suc.rhoAfterDrop
                                                  : c.rhoSuction * (c.pEvap - c.dpSuction / 1000) / c.pEvap;
        }

        // Discharge line.
        const SingleFlow discharge{c.massFlow, c.rhoDischarge, VapourViscosityPaS(c.etaVapDischarge)};
        const LineResult dis = SizeDischargeLine(rules, discharge, run[Discharge], lim.wDischarge,
                                                 lim.maxDtDischarge, c.dpdtEvap, c.dpdtRatio);
        StoreLineResult(c, Discharge, dis);
        ShowLine(ws, s, Discharge, dis, run[Discharge].length, true, true);
        if (dis.sized) c.dpDischarge = dis.lossMbar;

        // The red checks of suction and discharge line.
        MarkLineLimits(c, lim);

        // The swept volume the plant demands.
        if (c.rhoAfterDrop > 0) {
            const double V = 3600 * c.massFlow / c.rhoAfterDrop;
            const double lambda = VolumetricEfficiency(ws, c.pCond, c.dpDischarge, c.pEvap, c.dpSuction, V);
            c.requiredSweptVolume = lambda != 0.0 ? V / lambda : 0.0;
        }
        // The compressor label.
        if (mode != Silent) {
            const std::string principle = p.KondArt == 1   ? cap[Cap::CompressorKindFirst]
                                          : p.KondArt == 2 ? cap[Cap::CompressorKindSecond]
                                                           : std::string("Scroll");
            s.PN50_l = CutText(c.requiredSweptVolume, 2) + " m\u00b3/h : " + principle;
        }
        // A kept swept volume ends the passes once it is met.
        if (std::fabs(c.requiredSweptVolume - kompHub) <= 0.02) break;
    }

    // Liquid line with the side stream of the economizer.
    const SingleFlow liquid{c.massFlow + (eco ? c.ecoMass : 0.0), c.rhoLiqCond, c.etaLiqCond};
    const LineResult liq = SizeLiquidLine(rules, liquid, run[Liquid], lim.wLiquid, lim.maxDtLiquid, c.dpdtEvap,
                                          c.dpdtRatio);
    StoreLineResult(c, Liquid, liq);
    ShowLine(ws, s, Liquid, liq, run[Liquid].length, true, true);
    c.dpLiquid = liq.sized ? liq.lossMbar : 0.0;

    // Condensate line, condenser to receiver.
    const double rhoCondensate = CondenserLineDensity(p.FlashText, lim.wCondensate, c.rhoLiqCond, c.rhoVapCond,
                                                      p.FloodedCondenser == 1, cap[Cap::AutoWord]);
    const SingleFlow condensate{c.massFlow, rhoCondensate, c.etaLiqCond};
    const LineResult con = SizeCondenserLine(rules, condensate, run[Condensate], lim.wCondensate, c.dpdtEvap,
                                             c.dpdtRatio);
    StoreLineResult(c, Condensate, con);
    ShowLine(ws, s, Condensate, con, run[Condensate].length, true, true);
    if (con.sized) c.dpLiquid += con.lossMbar;

    // Hot-gas bypass.
    c.bypassMass = 0.0;
    if (run[HotGasBypass].length > 0) {
        const HotGasBypassFlow bypass{c.massFlow, lines.bypassKind, p.PartLoadPercent, c.rhoDischarge,
                                      c.rhoVapCond, VapourViscosityPaS(c.etaVapDischarge)};
        const LineResult hg = SizeHotGasBypass(rules, bypass, run[HotGasBypass], lim.wDischarge, c.dpdtEvap,
                                               c.dpdtRatio);
        StoreLineResult(c, HotGasBypass, hg);
        ShowLine(ws, s, HotGasBypass, hg, run[HotGasBypass].length, false, true);
        const double share = (lines.bypassKind == 1 || lines.bypassKind == 2) ? 0.0 : p.PartLoadPercent;
        c.bypassMass = ((100 - share) / 100) * c.massFlow;
    }

    // Economizer lines.
    if (eco) {
        s.ECOWTPN = CutText(c.ecoHeat, 2);
        const SingleFlow ecoLiquid{c.ecoMass, c.rhoLiqCond, c.etaLiqCond};
        const LineResult el = SizeEconomizerLiquid(rules, ecoLiquid, run[EconomizerLiquid].length, lim.wLiquid,
                                                   MbarPerKelvinHigh(c.dpdtEvap, c.dpdtRatio));
        StoreLineResult(c, EconomizerLiquid, el);
        ShowLine(ws, s, EconomizerLiquid, el, run[EconomizerLiquid].length, false, true);
        const SingleFlow ecoSuction{
            c.ecoMass, c.ecoDensity,
            EconomizerVapourViscosity(VapourViscosityPaS(c.etaVapSuction), VapourViscosityPaS(c.etaVapDischarge))};
        const LineResult es = SizeEconomizerSuction(rules, ecoSuction, run[EconomizerSuction].length, lim.wSuction,
                                                    MbarPerKelvinLow(c.dpdtEvap));
        StoreLineResult(c, EconomizerSuction, es);
        ShowLine(ws, s, EconomizerSuction, es, run[EconomizerSuction].length, false, true);
        s.tIntermediate = CutText(c.tIntermediate, 1) + kDegreeSuffix;
        s.pIntermediate = CutText(c.pIntermediate, 2);
    } else {
        s.ECOWTPN.clear();
    }
    MarkLineLimits(c, lim);

    // The inlet quality shown.
    s.xDampf = CutText(c.qualityInlet, 2);

    // The final power, with the line losses.
    const double pLow = c.pEvap - c.dpSuction / 1000, pHigh = c.pCond + c.dpDischarge / 1000;
    if (eco) {
        // Two stages around the intermediate level; the state of the main
        // cycle is put back afterwards.
        const double savedP = c.pEvap, savedT = c.tEvapK, savedRho = c.rhoSuction;
        const CycleState saved = c;
        double sc = subcooling;
        CycleStatePoints(ws, t0, c.tIntermediate, tSuction, sc);
        const double p1 = CompressionPower(
            ws, {.pLow = pLow, .pHigh = c.pIntermediate, .tLowK = c.tEvapK, .tHighK = c.tIntermediate + 273.15,
                 .massFlow = c.massFlow, .tSuctionC = tSuction, .hHighVap = c.hVapCond, .hLowVap = c.hVapEvap,
                 .tDischargeC = tLow});
        const double e1 = c.etaIsRatio;
        const double mix = (c.massFlow + saved.ecoMass) != 0.0
                               ? (7 * saved.ecoMass + c.massFlow * (tLow - saved.tIntermediate)) /
                                     (c.massFlow + saved.ecoMass)
                               : 0.0;
        const double tMid = saved.tIntermediate;
        CycleStatePoints(ws, tMid, tc, tMid + mix, sc);
        const double p2 = CompressionPower(
            ws, {.pLow = saved.pIntermediate, .pHigh = pHigh, .tLowK = tMid + 273.15, .tHighK = c.tCondK,
                 .massFlow = saved.massFlow + saved.ecoMass, .tSuctionC = tMid + mix, .hHighVap = c.hVapCond,
                 .hLowVap = c.hVapEvap});
        const double e2 = c.etaIsRatio;
        c = saved;
        c.pEvap = savedP;
        c.tEvapK = savedT;
        c.rhoSuction = savedRho;
        c.pShaft = p1 + p2;
        c.etaIsRatio = (1.1 * e1 + 0.9 * e2) / 2;
        // The discharge temperature shown mixes with the evaporator superheat.
        const double mixShown = (c.massFlow + c.ecoMass) != 0.0
                                    ? (superheatEvap * c.ecoMass + c.massFlow * (tLow - c.tIntermediate)) /
                                          (c.massFlow + c.ecoMass)
                                    : 0.0;
        c.tDischargeC = DischargeTemperature(ws, 10, c.pIntermediate, pHigh,
                                             c.tIntermediate + mixShown + 273.15, c.kappa * 1.028) -
                        273.15;
    } else {
        CompressionPower(ws, {.pLow = pLow, .pHigh = pHigh, .tLowK = c.tEvapK, .tHighK = c.tCondK,
                              .massFlow = c.massFlow + c.bypassMass, .tSuctionC = tSuction, .hHighVap = c.hVapCond,
                              .hLowVap = c.hVapEvap});
        // The discharge temperature shown.
        double tIn = tSuction + 273.15;
        double kappa = c.kappa;
        if (p.SecondCycle == 1) {
            tIn = t0 + 5 + 273.15;
            kappa = p.KappaSecond;
        }
        c.tDischargeC = DischargeTemperature(ws, 10, pLow, pHigh, tIn, kappa) - 273.15;
    }
    s.tEnd = CutText(c.tDischargeC, 0) + kDegreeSuffix;

    // Figures of merit and the power.
    c.Qh = mode == AnnualHour ? c.Qh : Qh;
    AnnualFiguresWith(ws, s, c.pShaft, energy);
    if (mode != AnnualHour && !ResultsFinite(ws)) return StopRun(ws);
    const int shaftDecimals = c.pShaft > 1000 ? 0 : c.pShaft > 100 ? 1 : 2;
    s.ElLeistVD_l = "Qel=" + CutText(c.pShaft, shaftDecimals) + " kW";
    const int decimals = (c.Q0 + c.pShaft) > 1000 ? 0 : (c.Q0 + c.pShaft) > 100 ? 1 : 2;
    s.Q0 = CutText(c.Q0, decimals);

    const std::vector<int> belowPressure = MarkPipePressure(ws, mode == FirstCalculation);
    for (int i = 1; i <= 8; ++i) {
        LineGroup& g = s.lines[static_cast<std::size_t>(i)];
        g.diameterRed = std::find(belowPressure.begin(), belowPressure.end(), i) != belowPressure.end();
        g.lossRed = c.lineLossRed[static_cast<std::size_t>(i)];
        g.velocityRed = c.lineVelocityRed[static_cast<std::size_t>(i)];
        g.minLoadRed = c.lineOilRed[static_cast<std::size_t>(i)];
        // The oil return figure belongs to the gas lines that carry oil up.
        if ((i == Suction || i == Discharge) && c.lineOilCarry[static_cast<std::size_t>(i)] > 0)
            g.minLoad = NumberText(OilCarryShown(c.lineOilCarry[static_cast<std::size_t>(i)])) + " %";
    }

    // The same cycle from the reference equation of state, beside the figures.
    ShowReferenceCheck(ws, s, t0, tc, superheatEvap + superheatLine, subcooling);

    // The run is done: the record is no longer busy, the figures count.
    p.CalcState = 1;
    c.diametersFixed = false;
    c.valid = true;
    s.notes = PlausibilityNotes(ws);
    return true;
}

}  // namespace kv
