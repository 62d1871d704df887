#include "refrigerant/superheat_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kv {
namespace {

// The comma-separated fields of one line, the first one (the row kind) as
// text, the rest as numbers. False when a number does not parse.
bool SplitRow(std::string_view line, char& kind, std::array<double, 12>& v, std::size_t& n) {
    n = 0;
    kind = 0;
    std::size_t i = 0;
    bool first = true;
    while (i <= line.size()) {
        std::size_t j = line.find(',', i);
        if (j == std::string_view::npos) j = line.size();
        std::string_view f = line.substr(i, j - i);
        while (!f.empty() && (f.front() == ' ' || f.front() == '\t' || f.front() == '"')) f.remove_prefix(1);
        while (!f.empty() && (f.back() == ' ' || f.back() == '\t' || f.back() == '"' || f.back() == '\r'))
            f.remove_suffix(1);
        if (first) {
            if (f.size() != 1) return false;
            kind = f.front();
            first = false;
        } else {
            if (n >= v.size()) return false;
            double x = 0.0;
            const char* b = f.data();
            const char* e = f.data() + f.size();
            if (b != e && *b == '+') ++b;
            const auto r = std::from_chars(b, e, x);
            if (b == e || r.ec != std::errc() || r.ptr != e || !std::isfinite(x)) return false;
            v[n++] = x;
        }
        i = j + 1;
    }
    return true;
}

// Lagrange weights of the abscissae x[0..n) at xq.
void Weights(const double* x, std::size_t n, double xq, double* w) {
    for (std::size_t i = 0; i < n; ++i) {
        double l = 1.0;
        for (std::size_t j = 0; j < n; ++j)
            if (j != i) l *= (xq - x[j]) / (x[i] - x[j]);
        w[i] = l;
    }
}

constexpr double kEdge = 1e-9;

// The nodes of one isobar.
struct Span {
    const SuperheatNode* n;
    std::size_t m;
};
Span NodesOf(const SuperheatTable& t, const Isobar& b) { return {t.nodes.data() + b.first, b.count}; }

// The cubic through up to four nodes of an isobar, as the Lagrange form with
// its denominators folded into the weights of each node.
struct Cubic {
    std::size_t lo = 0, n = 0;  // nodes lo .. lo+n-1 of the isobar
    double x[4]{};              // their temperatures
    double c[4]{};              // 1 / prod(x_i - x_k)
    // The basis at t: b[i] = c[i] prod_{k != i} (t - x_k).
    void Basis(double t, double* b) const {
        for (std::size_t i = 0; i < n; ++i) {
            double l = c[i];
            for (std::size_t k = 0; k < n; ++k)
                if (k != i) l *= t - x[k];
            b[i] = l;
        }
    }
};

// The cubic of the node interval [j, j+1]: the nodes j-1 .. j+2 where they exist.
Cubic CubicOfInterval(Span s, std::size_t j) {
    Cubic q;
    q.lo = j > 0 ? j - 1 : 0;
    q.n = std::min(s.m, j + 3) - q.lo;
    for (std::size_t i = 0; i < q.n; ++i) q.x[i] = s.n[q.lo + i].t;
    for (std::size_t i = 0; i < q.n; ++i) {
        double d = 1.0;
        for (std::size_t k = 0; k < q.n; ++k)
            if (k != i) d *= q.x[i] - q.x[k];
        q.c[i] = 1.0 / d;
    }
    return q;
}

// The node interval holding t (the first or last one beyond the ends).
std::size_t IntervalOf(Span s, double t) {
    const SuperheatNode* it =
        std::upper_bound(s.n, s.n + s.m, t, [](double v, const SuperheatNode& n) { return v < n.t; });
    const std::size_t j = it == s.n ? 0 : static_cast<std::size_t>(it - s.n) - 1;
    return std::min(j, s.m - 2);
}

// How far below its dew point an isobar's first cubic is carried on: the
// vapour's properties run smoothly into the metastable region, and a state
// between two isobars may lie below the dew point of the higher one.
constexpr double kBelowDewK = 15.0;

// h, s and ln rho on an isobar at temperature t; `below` K below the first
// node allowed.
struct IsobarPoint {
    double h = 0.0, s = 0.0, lnRho = 0.0;
};
bool OnIsobar(Span s, double t, IsobarPoint& out, double below = 0.0) {
    if (s.m < 2 || t < s.n[0].t - below - kEdge || t > s.n[s.m - 1].t + kEdge) return false;
    const Cubic q = CubicOfInterval(s, IntervalOf(s, t));
    double b[4];
    q.Basis(t, b);
    out = {};
    for (std::size_t i = 0; i < q.n; ++i) {
        const SuperheatNode& n = s.n[q.lo + i];
        out.h += b[i] * n.h;
        out.s += b[i] * n.s;
        out.lnRho += b[i] * n.lnRho;
    }
    return true;
}

// The temperature on an isobar where h (or s) reaches `target`: the node
// interval by a scan, then Newton steps on its cubic. `h` gets the enthalpy there.
VapourFind FindOnIsobar(Span s, bool fromDew, double target, bool byEntropy, double& t, double& h) {
    auto value = [&](const SuperheatNode& n) { return byEntropy ? n.s : n.h; };
    if (s.m < 2) return VapourFind::Outside;
    if (target > value(s.n[s.m - 1])) return VapourFind::Outside;
    std::size_t j = 0;
    while (j + 2 < s.m && value(s.n[j + 1]) < target) ++j;
    // The cubic of the interval in Newton form, for Newton steps with its slope.
    const Cubic q = CubicOfInterval(s, j);
    double d[4];
    for (std::size_t i = 0; i < q.n; ++i) d[i] = value(s.n[q.lo + i]);
    for (std::size_t k = 1; k < q.n; ++k)
        for (std::size_t i = q.n - 1; i >= k; --i) d[i] = (d[i] - d[i - 1]) / (q.x[i] - q.x[i - k]);
    auto at = [&](double tq, double& slope) {
        double v = d[q.n - 1], dv = 0.0;
        for (std::size_t i = q.n - 1; i-- > 0;) {
            dv = dv * (tq - q.x[i]) + v;
            v = v * (tq - q.x[i]) + d[i];
        }
        slope = dv;
        return v - target;
    };
    double a = s.n[j].t, b = s.n[j + 1].t, slope = 0.0;
    if (value(s.n[j]) > target) {
        // Below the first node: the first cubic carried under the dew point.
        if (!fromDew) return VapourFind::Outside;
        b = a;
        a = s.n[0].t - kBelowDewK;
        if (at(a, slope) > 0) return VapourFind::Wet;
    }
    // Newton steps from the chord, kept inside the interval by bisection.
    const double fa0 = at(a, slope), fb0 = at(b, slope);
    double x = fb0 != fa0 ? a - fa0 * (b - a) / (fb0 - fa0) : (a + b) / 2;
    for (int i = 0; i < 30; ++i) {
        const double fx = at(x, slope);
        if (fx < 0) a = x;
        else b = x;
        double next = slope > 0 ? x - fx / slope : (a + b) / 2;
        if (!(next > a && next < b)) next = (a + b) / 2;
        const bool done = std::fabs(next - x) < 1e-7;
        x = next;
        if (done || b - a < 1e-7) break;
    }
    t = x;
    if (byEntropy) {
        double w[4];
        q.Basis(x, w);
        h = 0.0;
        for (std::size_t i = 0; i < q.n; ++i) h += w[i] * s.n[q.lo + i].h;
    } else {
        h = target;
    }
    return VapourFind::Found;
}

// The isobars of the segment (below or above the critical pressure) that
// holds p, as [g0, g1). False when p lies in neither.
bool Segment(const SuperheatTable& t, double p, std::size_t& g0, std::size_t& g1) {
    const std::size_t n = t.isobars.size();
    const std::size_t sub = t.subcritical;
    const double tol = 1e-6;
    if (sub >= 2 && p >= t.isobars[0].p * (1 - tol) && p <= t.isobars[sub - 1].p * (1 + tol)) {
        g0 = 0;
        g1 = sub;
        return true;
    }
    if (n - sub >= 2 && p >= t.isobars[sub].p * (1 - tol) && p <= t.isobars[n - 1].p * (1 + tol)) {
        g0 = sub;
        g1 = n;
        return true;
    }
    return false;
}

// Quantities across the isobars at p: `eval` gives them on one isobar; a
// cubic in ln p through up to four isobars, the two around p required, an
// outer one left out where it has no value.
template <std::size_t N, class Eval>
VapourFind AcrossIsobars(const SuperheatTable& t, double p, Eval eval, std::array<double, N>& out) {
    std::size_t g0, g1;
    if (!(p > 0) || !Segment(t, p, g0, g1)) return VapourFind::Outside;
    const double lnP = std::log(p);
    std::size_t k = g0;
    while (k + 2 < g1 && t.isobars[k + 1].lnP <= lnP) ++k;
    const std::size_t lo = k > g0 ? k - 1 : g0, hi = std::min(g1, k + 3);
    double x[4]{}, w[4]{};
    std::array<double, N> y[4]{};
    std::size_t n = 0;
    for (std::size_t i = lo; i < hi; ++i) {
        const VapourFind r = eval(t.isobars[i], y[n]);
        if (r != VapourFind::Found) {
            if (i == k || i == k + 1) return r;
            continue;
        }
        x[n++] = t.isobars[i].lnP;
    }
    Weights(x, n, lnP, w);
    out.fill(0.0);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t q = 0; q < N; ++q) out[q] += w[i] * y[i][q];
    return VapourFind::Found;
}

}  // namespace

SuperheatTable ParseSuperheatTable(std::string_view text) {
    SuperheatTable table;
    std::array<double, 12> v{};
    std::size_t n = 0;
    char kind = 0;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view line = text.substr(pos, end - pos);
        pos = end + 1;
        if (line.empty() || line.front() == '#' || !SplitRow(line, kind, v, n)) continue;
        if ((kind == 'S' || kind == 's') && n >= 9) {
            const SuperheatSatRow r{v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]};
            if (!(r.p > 0) || !(r.hVap > r.hLiq)) continue;
            if (!table.sat.empty() && !(r.tm > table.sat.back().tm && r.p > table.sat.back().p)) continue;
            table.sat.push_back(r);
        } else if ((kind == 'V' || kind == 'v') && n >= 5) {
            const double p = v[0];
            const SuperheatNode node{v[1], v[2], v[3], v[4], std::log(v[4] > 0 ? v[4] : 1.0)};
            if (!(p > 0) || !(node.rho > 0)) continue;
            if (table.isobars.empty() || table.isobars.back().p != p) {
                // A new isobar; one whose pressure does not rise is left out.
                if (!table.isobars.empty() && p < table.isobars.back().p) continue;
                table.isobars.push_back({p, std::log(p), table.nodes.size(), 0, false});
            }
            Isobar& b = table.isobars.back();
            // Nodes must rise in t, h and s along the isobar.
            if (b.count > 0) {
                const SuperheatNode& last = table.nodes.back();
                if (!(node.t > last.t && node.h > last.h && node.s > last.s)) continue;
            }
            table.nodes.push_back(node);
            ++b.count;
        }
    }
    // Isobars of fewer than two nodes carry nothing to interpolate.
    std::vector<Isobar> kept;
    std::vector<SuperheatNode> nodes;
    const double pSatMax = table.sat.empty() ? 0.0 : table.sat.back().p;
    for (const Isobar& b : table.isobars) {
        if (b.count < 2) continue;
        Isobar c = b;
        c.first = nodes.size();
        c.fromDew = b.p <= pSatMax * (1 + 1e-6);
        nodes.insert(nodes.end(), table.nodes.begin() + static_cast<std::ptrdiff_t>(b.first),
                     table.nodes.begin() + static_cast<std::ptrdiff_t>(b.first + b.count));
        kept.push_back(c);
    }
    table.subcritical = 0;
    while (table.subcritical < kept.size() && kept[table.subcritical].fromDew) ++table.subcritical;
    table.isobars = std::move(kept);
    table.nodes = std::move(nodes);
    table.present = table.sat.size() >= 2 && table.isobars.size() >= 2;
    return table;
}

std::string SuperheatFileName(const std::string& saturationFile) {
    const std::size_t dot = saturationFile.rfind('.');
    return saturationFile.substr(0, dot) + "_SH.DAT";
}

bool SaturationAtMean(const SuperheatTable& table, double tmC, SuperheatSatRow& out) {
    const auto& r = table.sat;
    if (r.size() < 2 || !(tmC >= r.front().tm - kEdge) || !(tmC <= r.back().tm + kEdge)) return false;
    // 1 K rows: the index follows from the temperature; a scan corrects a gap.
    std::size_t j = static_cast<std::size_t>(std::max(0.0, std::floor(tmC - r.front().tm)));
    j = std::min(j, r.size() - 2);
    while (j > 0 && r[j].tm > tmC) --j;
    while (j + 2 < r.size() && r[j + 1].tm < tmC) ++j;
    const SuperheatSatRow& a = r[j];
    const SuperheatSatRow& b = r[j + 1];
    const double f = (tmC - a.tm) / (b.tm - a.tm);
    auto lin = [f](double x, double y) { return x + f * (y - x); };
    out = {tmC,
           std::exp(lin(std::log(a.p), std::log(b.p))),
           lin(a.tBubble, b.tBubble),
           lin(a.tDew, b.tDew),
           lin(a.hLiq, b.hLiq),
           lin(a.hVap, b.hVap),
           lin(a.sLiq, b.sLiq),
           lin(a.sVap, b.sVap),
           lin(a.cpLiq, b.cpLiq)};
    return true;
}

namespace {
// Vapour at p: each isobar evaluated at its dew point + x (below the critical
// pressure), or at t = x (above it).
bool VapourAt(const SuperheatTable& table, double p, double x, bool bySuperheat, VapourState& out) {
    std::size_t g0, g1;
    if (!(p > 0) || !Segment(table, p, g0, g1)) return false;
    if (bySuperheat != table.isobars[g0].fromDew) return false;
    std::array<double, 4> v{};  // h, s, ln rho, t
    const VapourFind r = AcrossIsobars(
        table, p,
        [&](const Isobar& b, std::array<double, 4>& y) {
            const Span s = NodesOf(table, b);
            const double t = bySuperheat ? s.n[0].t + x : x;
            IsobarPoint pt;
            if (!OnIsobar(s, t, pt)) return VapourFind::Outside;
            y = {pt.h, pt.s, pt.lnRho, t};
            return VapourFind::Found;
        },
        v);
    if (r != VapourFind::Found) return false;
    out = {v[3], v[0], v[1], std::exp(v[2])};
    return true;
}
}  // namespace

bool VapourAtSuperheat(const SuperheatTable& table, double p, double superheatK, VapourState& out) {
    return superheatK >= -kEdge && VapourAt(table, p, std::max(0.0, superheatK), true, out);
}

bool VapourAtTemperature(const SuperheatTable& table, double p, double tC, VapourState& out) {
    return VapourAt(table, p, tC, false, out);
}

namespace {
bool FromDew(const SuperheatTable& table, double p) {
    std::size_t g0, g1;
    return Segment(table, p, g0, g1) && table.isobars[g0].fromDew;
}

// The vapour at p whose h (or s) is `target`, across the isobars: its
// temperature and enthalpy. Below the critical pressure the isobars meet at
// equal superheat; a negative one is wet vapour.
VapourFind VapourWhere(const SuperheatTable& table, double p, double target, bool byEntropy, double& t,
                       double& h) {
    std::array<double, 3> v{};  // superheat (or t), t, h
    const VapourFind r = AcrossIsobars(table, p,
                                       [&](const Isobar& b, std::array<double, 3>& y) {
                                           const Span sp = NodesOf(table, b);
                                           double tf = 0.0, hf = 0.0;
                                           const VapourFind f =
                                               FindOnIsobar(sp, b.fromDew, target, byEntropy, tf, hf);
                                           y = {b.fromDew ? tf - sp.n[0].t : tf, tf, hf};
                                           return f;
                                       },
                                       v);
    if (r != VapourFind::Found) return r;
    if (FromDew(table, p) && v[0] < -kEdge) return VapourFind::Wet;
    t = v[1];
    h = v[2];
    return VapourFind::Found;
}
}  // namespace

VapourFind VapourEnthalpyAtEntropy(const SuperheatTable& table, double p, double s, double& h) {
    double t = 0.0;
    return VapourWhere(table, p, s, true, t, h);
}

VapourFind VapourTemperatureAtEnthalpy(const SuperheatTable& table, double p, double h, double& tC) {
    double hFound = 0.0;
    return VapourWhere(table, p, h, false, tC, hFound);
}

}  // namespace kv
