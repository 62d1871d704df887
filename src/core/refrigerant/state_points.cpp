#include "refrigerant/state_points.h"

#include <cmath>

#include "refrigerant/correlations.h"
#include "refrigerant/registry.h"
#include "refrigerant/saturation.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {
namespace {

constexpr double kCriticalCo2K = 304.15;  // the model's critical point of CO2, K
constexpr const char* kSupercriticalFile = "CO2_sh01.dat";

// A look-up and its interpolation fraction, kept together because callers
// take several columns at one key.
struct Lookup {
    const SaturationTable& table;
    CycleState& cs;

    double At(double key, int mode = ByTemperature) {
        ScanSaturationRows(table, key, mode, cs);
        return RowFraction(cs, key);
    }
    double Col(int column, double f) const {
        const double low = cs.lowRow.Column(column);
        return low + f * (cs.highRow.Column(column) - low);
    }
};

// Compressor factor by principle (KondArt).
double PrincipleFactor(int kondArt) {
    switch (kondArt) {
        case 1: return 1 / 0.9;
        case 2: return 1 / 0.91;
        case 3: return 1 / 0.905;
        case 4: return 1 / 0.925;
        case 5: return 1 / 0.902;
        default: return 1 / 0.9;
    }
}

}  // namespace

// The scan over a table at hand; CycleStatePoints fetches the table once.
static bool ScanSupercritical(const SupercriticalTable& table, CycleState& cs, double tK, double pTarget, int selector) {
    const double tC = tK - 273.15;
    const auto& rows = table.rows;
    std::size_t start = 0;
    if (table.sortedByT) {
        // Rows below the temperature cannot qualify: start at its block.
        const double from = selector == 3 ? tC - 1 : tC;
        std::size_t lo = 0, hi = rows.size();
        while (lo < hi) {
            const std::size_t mid = (lo + hi) / 2;
            if (rows[mid].t < from) lo = mid + 1;
            else hi = mid;
        }
        start = lo;
    }
    double previousH = 0.0;
    for (std::size_t i = start; i < rows.size(); ++i) {
        const SupercriticalRow& r = rows[i];
        if (selector == 3) {
            if (r.t + 1 < tC) continue;
            if (r.h <= cs.hLiqCond) {
                const double d = 1 + (r.h - cs.hLiqCond) / (r.h - previousH);
                cs.dpdtRatio = cs.dpdtEvap != 0.0 ? d / cs.dpdtEvap : 0.0;
                return true;
            }
            previousH = r.h;
            continue;
        }
        if (r.p < pTarget || r.t < tC) continue;
        if (selector == 1) {
            cs.rhoLiqCond = cs.rhoVapCond = r.rho;
            cs.hLiqCond = cs.hVapCond = r.h;
            cs.pCond = pTarget;
            cs.cpLiquid = r.cp;
            cs.etaLiqCond = r.eta;
        } else if (selector == 2) {
            cs.hTranscritical = r.h;
            cs.rhoDischarge = r.rho;
            cs.etaVapDischarge = r.eta;
        }
        return true;
    }
    return false;
}

bool SupercriticalScan(Workspace& ws, double tK, double pTarget, int selector) {
    return ScanSupercritical(ws.properties.Supercritical(ws.DataDir(), kSupercriticalFile), ws.cycle, tK, pTarget,
                             selector);
}

bool CycleStatePoints(Workspace& ws, double tEvapC, double tCondC, double tSuctionC, double& subcooling) {
    CycleState& cs = ws.cycle;
    int hint = 0;
    const SaturationTable* table = ProjectSaturationTable(ws, &hint);
    cs.rowsFound = 0;
    cs.highFound = false;
    if (!table) return false;
    Lookup L{*table, cs};
    const std::string& fluid = ws.project.KaelteM;
    const bool co2 = IsCo2(fluid);
    const SupercriticalTable* super = nullptr;
    auto scan = [&](double tK, double pTarget, int selector) {
        if (!super) super = &ws.properties.Supercritical(ws.DataDir(), kSupercriticalFile);
        ScanSupercritical(*super, cs, tK, pTarget, selector);
    };

    // The evaporating level.
    cs.tEvapK = tEvapC + 273.15;
    cs.tCondK = tCondC + 273.15;
    double f = L.At(cs.tEvapK);
    cs.pEvap = L.Col(2, f);
    cs.pEvapBubble = L.Col(3, f);
    cs.hLiqEvap = L.Col(4, f);
    cs.hVapEvap = L.Col(5, f);
    cs.rhoVapEvap = L.Col(7, f);
    cs.rhoLiqEvap = L.Col(6, f);
    cs.rhoSuction = cs.rhoVapEvap * cs.tEvapK / (tSuctionC + 273.15);

    // CO2 close to and above its critical point is transcritical.
    bool transcritical = false;
    if (co2) {
        if (cs.tCondK > 303.15 && cs.tCondK < kCriticalCo2K) cs.tCondK = kCriticalCo2K;
        if (cs.tCondK >= kCriticalCo2K) {
            if (cs.pTranscritical == 0.0) cs.pTranscritical = 95;
            scan(cs.tCondK, cs.pTranscritical, 1);
            transcritical = true;
        }
    }

    double tPlus1 = cs.tEvapK + 1;
    double pCondBefore = cs.pCond;
    if (!transcritical) {
        // 5 K below the condensing level, for the liquid's specific heat.
        f = L.At(cs.tCondK - 5);
        double hLiq5 = L.Col(4, f);
        const double p1 = L.Col(2, f);
        const double p2 = L.Col(3, f);
        // The condensing level.
        f = L.At(cs.tCondK);
        cs.pCond = L.Col(2, f);
        const double p2c = L.Col(3, f);
        cs.hLiqCond = L.Col(4, f);
        cs.hVapCond = L.Col(5, f);
        cs.rhoVapCond = L.Col(7, f);
        cs.rhoLiqCond = L.Col(6, f);
        // Half the vapour-free share at the evaporator inlet.
        const double x = ((cs.hVapEvap - cs.hLiqCond) / (cs.hVapEvap - cs.hLiqEvap)) / 2;
        pCondBefore = cs.pCond;
        // Glide correction of blends.
        if (cs.pEvap != cs.pEvapBubble) {
            const double pm = p1 + std::fabs(p1 - p2) / 2;
            f = L.At(pm, ByBubblePressure);
            hLiq5 = L.Col(4, f);
            cs.pEvap = cs.pEvap + x * std::fabs(cs.pEvap - cs.pEvapBubble);
            cs.pCond = cs.pCond + std::fabs(cs.pCond - p2c) / 2;
            f = L.At(cs.pCond, ByBubblePressure);
            cs.hLiqCond = L.Col(4, f);
            cs.rhoVapCond = L.Col(7, f);
            f = L.At(cs.pEvap, ByDewPressure);
            cs.rhoVapEvap = L.Col(7, f);
            cs.hVapEvap = L.Col(5, f);
            tPlus1 = L.Col(2, f) + 1;  // the temperature stands in the swapped column
        }
        // Liquid specific heat over the last 5 K of condensation.
        cs.cpLiquid = std::fabs(cs.hLiqCond - hLiq5) / 5;
    }

    // 9 to 11: suction density and the pressure per Kelvin at both levels.
    cs.rhoSuction = cs.rhoVapEvap * cs.tEvapK / (tSuctionC + 273.15);
    f = L.At(tPlus1);
    cs.dpdtEvap = L.Col(2, f) - cs.pEvap;
    f = L.At(cs.tCondK + 1);
    cs.dpdtRatio = cs.dpdtEvap != 0.0 ? (L.Col(2, f) - pCondBefore) / cs.dpdtEvap : 0.0;

    // 12 to 14: the correlations, first with the suction temperature in the
    // place of the discharge temperature, then again at the discharge.
    EvaluateCorrelations(cs, fluid, cs.tCondK, tSuctionC, tSuctionC, tSuctionC);
    const double kappaFirst = cs.kappa;
    const double t2 = DischargeTemperature(ws, 10, cs.pEvap, cs.pCond, tSuctionC + 273.15, cs.kappa);
    EvaluateCorrelations(cs, fluid, cs.tCondK, t2, t2, tSuctionC);
    cs.tDischargeC = t2 - 273.15;
    // Discharge gas density.
    cs.rhoDischarge = cs.rhoVapCond * cs.tCondK / (t2 * cs.realGasFactor);

    // The high side of CO2.
    if (co2) {
        if (cs.tCondK >= kCriticalCo2K) {
            scan(t2, cs.pTranscritical, 2);
            scan(cs.tCondK, 0, 3);
            subcooling = 0;
            cs.pCond = cs.pTranscritical;
        } else {
            EvaluateCorrelations(cs, fluid, cs.tCondK, t2, t2, tSuctionC);
            cs.kappa = kappaFirst;
            subcooling = 3;
        }
    }
    cs.subcooling = subcooling;
    return true;
}

double MotorLossFactor(int verdArt, double p) {
    double m;
    switch (verdArt) {
        case 0:
        case 2: m = 1 / (0.905 - 1 / (48 * p)); break;
        case 1: m = 1 / (0.935 - 1 / (45 * p)); break;
        case 3: m = 1 / (0.885 - 1 / (45 * p)); break;
        default: m = 1 / (0.905 - 1 / (17 * p)); break;
    }
    // A tiny power drives the denominator to zero or below: the cap holds.
    if (!(m <= 1.52) || m <= 0) m = 1.52;
    return m;
}

double MotorLossFactor(const Workspace& ws, double powerKw) { return MotorLossFactor(ws.project.VerdArt, powerKw); }

double DischargeTemperature(Workspace& ws, double powerKw, double pLow, double pHigh, double tSuctionK,
                            double kappa) {
    CycleState& cs = ws.cycle;
    const double pi = pHigh / pLow;
    const double pd = RefrigerantCharacteristic(ws.project.KaelteM, 1);
    const double g = pi <= pd ? std::pow(pi / pd, 0.387) : std::pow(pd / pi, 0.165);
    const double s = ws.project.Co2Mode != 0 ? std::pow((pHigh - pLow) / 16.3, 0.25)
                                             : std::pow((pHigh - pLow) / 13.7, 0.27);
    double r = 0.373 * (318 - cs.tCondK);
    if (r < 0) r = 0;
    const double e = g / s;
    const double t2s = tSuctionK * std::pow(pi, (kappa - 1) / kappa);
    const double t2alt = tSuctionK * std::pow(pi, (cs.kappaAlt - 1) / cs.kappaAlt);
    const double c = PrincipleFactor(ws.project.KondArt);
    double m = MotorLossFactor(ws, powerKw);
    if (ws.project.VerdArt == 1) m *= 0.98;
    else if (ws.project.VerdArt == 3) m *= 1.02;
    const double dT = m * c * (t2s - cs.tCondK);
    const double t2a = dT + cs.tCondK;
    const double y = (1 - e) * dT - r;
    cs.tDischargeAlt = t2alt - y;
    return t2a - y;
}

double CompressionPower(Workspace& ws, const CompressionInput& in) {
    const auto [pLow, pHigh, tLowK, tHighK, massFlow, tSuctionC, hHighVap, hLowVap, tDischargeC, mode] = in;
    CycleState& cs = ws.cycle;
    double pk = UpperAscii(ws.project.AnlagenTyp) == "DIAG" ? ToNumber(ws.project.DiagPower).value : 0.0;
    const bool twoPass = pk == 0.0;
    if (twoPass) pk = 5;
    double t2C = 0.0, hs = 0.0, w = 0.0;
    for (int pass = 0; pass < 2; ++pass) {
        // The discharge temperature at the assumed power.
        if (mode == 0) t2C = DischargeTemperature(ws, pk, pLow, pHigh, tSuctionC + 273.15, cs.kappa) - 273.15;
        else t2C = tDischargeC;
        // 3 to 5: suction and discharge enthalpies, shaft and reference power.
        hs = hLowVap + cs.cpVapEvap * (tSuctionC - (tLowK - 273.15));
        const double hd = hHighVap + cs.cpVapDischarge * (t2C - (tHighK - 273.15));
        cs.pShaft = massFlow * (hd - hs);
        w = massFlow * ((hHighVap + cs.cpVapDischarge * (cs.tDischargeAlt - tHighK)) - hs);
        // Transcritical CO2 takes the enthalpy of the supercritical table.
        if ((ws.project.Co2Mode == 1 || ws.project.Co2Mode == 2) && IsCo2(ws.project.KaelteM) &&
            cs.tCondK >= kCriticalCo2K) {
            SupercriticalScan(ws, t2C + 273.15, cs.pCond, 2);
            cs.pShaft = massFlow * (cs.hTranscritical - hs);
            const double span = t2C + 273.15 - cs.tCondK;
            w = span != 0.0 ? cs.pShaft * (cs.tDischargeAlt - cs.tCondK) / span : cs.pShaft;
        }
        // A second pass at the power found.
        if (!twoPass || pass == 1) break;
        if (cs.pShaft <= 0) cs.pShaft = 10;
        pk = cs.pShaft;
    }
    cs.qDesuperheat = cs.cpVapDischarge * (t2C - (tHighK - 273.15)) * massFlow;
    if (mode == 0 && pk < 2) cs.pShaft *= 1 + (2 - pk) * 5.5 / 100;
    cs.etaIsRatio = cs.pShaft != 0.0 ? w / cs.pShaft : 0.0;
    if (mode == 0) return cs.pShaft;
    const double b = ws.project.InverterMode == 1 ? 1.03 : ws.project.InverterMode == 2 ? 1.04 : 1.0;
    return cs.pShaft * 0.93 * b * MotorLossFactor(ws, pk) * PrincipleFactor(ws.project.KondArt);
}

double VolumetricEfficiency(const Workspace& ws, double pCond, double dpDischargeMbar, double pEvap,
                            double dpSuctionMbar, double V) {
    const double pi = (pCond + dpDischargeMbar / 1000) / (pEvap - dpSuctionMbar / 1000);
    const int principle = ws.project.KondArt;
    const std::string fluid = UpperAscii(Trim(ws.project.KaelteM));
    double lambda;
    if (principle == 0 || principle == 1) {
        const double w = pi > 4.85 ? 6.5 : 10;
        lambda = (1 + ((4.85 - pi) / 4.85) / w) * 0.796 * (1 - 1 / (1.2 * std::pow(V, 0.92) + 10));
    } else {
        double b = 0.855;
        if (principle == 3 && fluid != "R22" && fluid != "R407C") b = 0.835;
        const double w = pi > 4.85 ? 85 : 30;
        const double a = pi > 4.85 ? b : b + (4.85 - pi) / 50;
        lambda = (1 + ((4.85 - pi) / 4.85) / w) * a * (1 - 1 / (7 * V + 10));
    }
    if (ws.project.VerdArt == 1) lambda *= 1.03;
    else if (ws.project.VerdArt == 3) lambda *= 0.982;
    else lambda *= 1.02;
    if (fluid == "CO2" || fluid == "R744") lambda *= 0.88;
    else if (fluid == "R23") lambda *= 0.83;
    if (V <= 6) lambda *= 1 - 1.8 * (6 - V) / 100;
    return lambda;
}

double MassFlow(Workspace& ws, double fallback, double q0) {
    CycleState& cs = ws.cycle;
    const double h1 = cs.hVapEvap + cs.superheatEvap * cs.cpVapEvap;
    double m = 0.0;
    if (ws.project.EcoFlag == 1) {
        // The side stream subcools the liquid by s and joins the main flow at
        // the intermediate level; the main flow carries the capacity less
        // the part the economizer takes over.
        cs.Q0 = q0;
        const double s = (cs.hLiqCond - cs.hLiqEvap) / (2 * cs.cpLiquid) - 8;
        const double h4 = cs.hLiqCond - cs.cpLiquid * s;
        m = h1 != h4 ? q0 / (h1 - h4) : 0.0;
        cs.ecoHeat = cs.cpLiquid * s * m;
        cs.ecoMass = h1 != h4 ? cs.ecoHeat / (h1 - h4) : 0.0;
        cs.ecoDensity = std::sqrt(cs.rhoSuction * cs.rhoVapCond);
        const double r = cs.ecoDensity != 0.0 ? cs.rhoSuction / cs.ecoDensity : 0.0;
        cs.ecoFactor = q0 != 0.0 ? (q0 - r * cs.ecoHeat) / q0 : 1.0;
        if (cs.ecoFactor != 0.0) m /= cs.ecoFactor;
        cs.ecoSubcooling = std::floor(10 * s) / 10;
    } else {
        const double dh = h1 - (cs.hLiqCond - cs.cpLiquid * cs.subcooling);
        m = dh != 0.0 ? q0 / dh : 0.0;
    }
    if (m == 0.0 || !std::isfinite(m)) m = fallback;
    return m;
}

}  // namespace kv
