#include "cycle/reference_cycle.h"

#include <cmath>
#include <string>

#include "cycle/scheme_screen.h"
#include "refrigerant/registry.h"
#include "refrigerant/superheat_table.h"
#include "shell/workspace.h"

namespace kv {
namespace {
// The kernel's critical point of CO2: from here on the high side is a gas cooler.
constexpr double kCo2TranscriticalK = 304.15;
}  // namespace

ReferenceCycle ComputeReferenceCycle(const SuperheatTable& table, const ReferenceInput& in) {
    ReferenceCycle r;
    r.etaIs = in.etaIs;
    if (!table.present || !(in.etaIs > 0.05 && in.etaIs <= 1.0)) return r;

    // Suction, the superheat counted from the dew point at p0.
    SuperheatSatRow low, high;
    if (!SaturationAtMean(table, in.t0C, low)) return r;
    r.p0 = low.p;
    VapourState suction;
    if (!VapourAtSuperheat(table, r.p0, in.superheatK, suction)) return r;
    r.t1C = suction.t;
    r.h1 = suction.h;
    r.s1 = suction.s;
    r.rho1 = suction.rho;

    // Condenser outlet, liquid subcooled below the bubble point; gas
    // cooler outlet of transcritical CO2.
    if (in.transcritical) {
        r.pc = in.pGasCooler;
        VapourState out;
        if (!VapourAtTemperature(table, r.pc, in.tGasCoolerC, out)) return r;
        r.h3 = out.h;
    } else {
        if (!SaturationAtMean(table, in.tcC, high)) return r;
        r.pc = high.p;
        r.h3 = high.hLiq - high.cpLiq * in.subcoolingK;
    }
    if (!(r.pc > r.p0)) return r;

    // 2s, 2: isentropic and real discharge. A compression that ends below the
    // dew line (fluids whose vapour line leans over) ends in wet vapour.
    const VapourFind isentropic = VapourEnthalpyAtEntropy(table, r.pc, r.s1, r.h2s);
    if (isentropic == VapourFind::Wet && !in.transcritical && high.sVap > high.sLiq) {
        const double x = (r.s1 - high.sLiq) / (high.sVap - high.sLiq);
        r.h2s = high.hLiq + x * (high.hVap - high.hLiq);
    } else if (isentropic != VapourFind::Found) {
        return r;
    }
    r.h2 = r.h1 + (r.h2s - r.h1) / in.etaIs;
    const VapourFind discharge = VapourTemperatureAtEnthalpy(table, r.pc, r.h2, r.t2C);
    if (discharge == VapourFind::Wet && !in.transcritical) r.t2C = high.tDew;
    else if (discharge != VapourFind::Found) return r;

    r.q0 = r.h1 - r.h3;
    r.w = r.h2 - r.h1;
    if (!(r.w > 0) || !(r.q0 > 0)) return r;
    r.copCooling = r.q0 / r.w;
    r.copHeating = (r.h2 - r.h3) / r.w;
    r.valid = std::isfinite(r.copHeating) && std::isfinite(r.t2C);
    return r;
}

ReferenceCycle ReferenceOfRun(Workspace& ws, double t0C, double tcC, double superheatK, double subcoolingK) {
    ReferenceInput in;
    in.t0C = t0C;
    in.tcC = tcC;
    in.superheatK = superheatK;
    in.subcoolingK = subcoolingK;
    in.etaIs = ws.settings.ReferenceEtaIs;
    const CycleState& c = ws.cycle;
    // Transcritical CO2 as the run took it: the high side at the gas cooler
    // pressure and the exit temperature the kernel raised to the critical point.
    if (IsCo2(ws.project.KaelteM) && c.tCondK >= kCo2TranscriticalK) {
        in.transcritical = true;
        in.pGasCooler = c.pCond;
        in.tGasCoolerC = c.tCondK - 273.15;
    }
    std::string file;
    if (ResolveRefrigerantTable(ws.project, file) == 0) {
        ReferenceCycle none;
        none.etaIs = in.etaIs;
        return none;
    }
    const SuperheatTable& table = ws.properties.Superheat(ws.project.DatenVerz, SuperheatFileName(file));
    return ComputeReferenceCycle(table, in);
}

double ReferenceDeviationPercent(double copHeatingEmpirical, const ReferenceCycle& ref) {
    if (!ref.valid || !(ref.copHeating > 0)) return 0.0;
    return (copHeatingEmpirical / ref.copHeating - 1) * 100;
}

void ShowReferenceCheck(Workspace& ws, SchemeScreen& s, double t0C, double tcC, double superheatK,
                        double subcoolingK) {
    CycleState& c = ws.cycle;
    c.reference = ReferenceOfRun(ws, t0C, tcC, superheatK, subcoolingK);
    c.referenceDeviation = ReferenceDeviationPercent(c.eer + 1, c.reference);
    s.RefCOP.clear();
    s.RefTEnd.clear();
    s.RefTip.clear();
    s.RefRed = false;
    if (!c.reference.valid) return;
    s.RefCOP = CutText(c.reference.copHeating, 2);
    s.RefTEnd = CutText(c.reference.t2C, 0) + kDegreeSuffix;
    s.RefRed = std::fabs(c.referenceDeviation) > kReferenceDeviationLimit;
    if (s.RefRed) s.RefTip = ws.captions[Cap::ReferenceStrays];
}

}  // namespace kv
