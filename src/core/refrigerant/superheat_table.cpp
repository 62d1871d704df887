#include "refrigerant/superheat_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>

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

// The interval [j, j+1] holding t, and the stencil of up to four nodes around it.
std::size_t Interval(Span s, double t) {
    std::size_t j = 0;
    while (j + 2 < s.m && s.n[j + 1].t <= t) ++j;
    return j;
}
void Stencil(std::size_t j, std::size_t m, std::size_t& lo, std::size_t& hi) {
    lo = j > 0 ? j - 1 : 0;
    hi = std::min(m, j + 3);
}

// The state on an isobar at temperature t, by a cubic through the nearest nodes.
bool OnIsobar(Span s, double t, VapourState& out) {
    if (s.m < 2 || t < s.n[0].t - kEdge || t > s.n[s.m - 1].t + kEdge) return false;
    std::size_t lo, hi;
    Stencil(Interval(s, t), s.m, lo, hi);
    double x[4]{}, w[4]{};
    for (std::size_t i = lo; i < hi; ++i) x[i - lo] = s.n[i].t;
    Weights(x, hi - lo, t, w);
    out = {t, 0.0, 0.0, 0.0};
    double lnRho = 0.0;
    for (std::size_t i = lo; i < hi; ++i) {
        out.h += w[i - lo] * s.n[i].h;
        out.s += w[i - lo] * s.n[i].s;
        lnRho += w[i - lo] * std::log(s.n[i].rho);
    }
    out.rho = std::exp(lnRho);
    return true;
}

// The temperature on an isobar where h (or s) reaches `target`: the node
// interval by a scan, then a few secant steps on the cubic.
VapourFind FindOnIsobar(Span s, bool fromDew, double target, bool byEntropy, double& t) {
    auto value = [&](const SuperheatNode& n) { return byEntropy ? n.s : n.h; };
    if (s.m < 2) return VapourFind::Outside;
    if (target < value(s.n[0])) return fromDew ? VapourFind::Wet : VapourFind::Outside;
    if (target > value(s.n[s.m - 1])) return VapourFind::Outside;
    std::size_t j = 0;
    while (j + 2 < s.m && value(s.n[j + 1]) < target) ++j;
    auto at = [&](double tq) {
        VapourState v;
        OnIsobar(s, tq, v);
        return (byEntropy ? v.s : v.h) - target;
    };
    double a = s.n[j].t, b = s.n[j + 1].t;
    double fa = value(s.n[j]) - target, fb = value(s.n[j + 1]) - target;
    // Regula falsi with the Illinois step: stays in the interval, converges fast.
    double x = a;
    for (int i = 0; i < 30; ++i) {
        x = fb != fa ? b - fb * (b - a) / (fb - fa) : (a + b) / 2;
        const double fx = at(x);
        if (std::fabs(fx) < 1e-9 || std::fabs(b - a) < 1e-7) break;
        if ((fx < 0) == (fa < 0)) {
            a = x;
            fa = fx;
            fb /= 2;
        } else {
            b = x;
            fb = fx;
            fa /= 2;
        }
    }
    t = x;
    return VapourFind::Found;
}

// The isobars of the segment (below or above the critical pressure) that
// holds p, as [g0, g1). False when p lies in neither.
bool Segment(const SuperheatTable& t, double p, std::size_t& g0, std::size_t& g1) {
    const std::size_t n = t.isobars.size();
    std::size_t sub = 0;
    while (sub < n && t.isobars[sub].fromDew) ++sub;
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

// A quantity across the isobars at p: `eval` gives it on one isobar; a cubic
// in ln p through up to four isobars, the two around p required, an outer
// one left out where it has no value.
template <class Eval>
VapourFind AcrossIsobars(const SuperheatTable& t, double p, Eval eval, double& out) {
    std::size_t g0, g1;
    if (!(p > 0) || !Segment(t, p, g0, g1)) return VapourFind::Outside;
    const double lnP = std::log(p);
    std::size_t k = g0;
    while (k + 2 < g1 && t.isobars[k + 1].lnP <= lnP) ++k;
    const std::size_t lo = k > g0 ? k - 1 : g0, hi = std::min(g1, k + 3);
    double x[4]{}, y[4]{}, w[4]{};
    std::size_t n = 0;
    for (std::size_t i = lo; i < hi; ++i) {
        double v = 0.0;
        const VapourFind r = eval(t.isobars[i], v);
        if (r != VapourFind::Found) {
            if (i == k || i == k + 1) return r;
            continue;
        }
        x[n] = t.isobars[i].lnP;
        y[n] = v;
        ++n;
    }
    Weights(x, n, lnP, w);
    out = 0.0;
    for (std::size_t i = 0; i < n; ++i) out += w[i] * y[i];
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
            const SuperheatNode node{v[1], v[2], v[3], v[4]};
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
    table.isobars = std::move(kept);
    table.nodes = std::move(nodes);
    table.present = table.sat.size() >= 2 && table.isobars.size() >= 2;
    return table;
}

std::string SuperheatFileName(const std::string& saturationFile) {
    return std::filesystem::path(saturationFile).stem().string() + "_SH.DAT";
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
// Vapour at p: each isobar evaluated at its dew point + superheatK, or at tC.
bool VapourAt(const SuperheatTable& table, double p, double x, bool bySuperheat, VapourState& out) {
    std::size_t g0, g1;
    if (!(p > 0) || !Segment(table, p, g0, g1)) return false;
    if (bySuperheat != table.isobars[g0].fromDew) return false;
    // Three passes over the same stencil: h, s, ln rho, and the temperature.
    std::array<double, 4> result{};
    for (int q = 0; q < 4; ++q) {
        const VapourFind r = AcrossIsobars(
            table, p,
            [&](const Isobar& b, double& v) {
                const Span s = NodesOf(table, b);
                const double t = bySuperheat ? s.n[0].t + x : x;
                VapourState st;
                if (!OnIsobar(s, t, st)) return VapourFind::Outside;
                v = q == 0 ? st.h : q == 1 ? st.s : q == 2 ? std::log(st.rho) : t;
                return VapourFind::Found;
            },
            result[static_cast<std::size_t>(q)]);
        if (r != VapourFind::Found) return false;
    }
    out = {result[3], result[0], result[1], std::exp(result[2])};
    return true;
}
}  // namespace

bool VapourAtSuperheat(const SuperheatTable& table, double p, double superheatK, VapourState& out) {
    return superheatK >= -kEdge && VapourAt(table, p, std::max(0.0, superheatK), true, out);
}

bool VapourAtTemperature(const SuperheatTable& table, double p, double tC, VapourState& out) {
    return VapourAt(table, p, tC, false, out);
}

VapourFind VapourEnthalpyAtEntropy(const SuperheatTable& table, double p, double s, double& h) {
    return AcrossIsobars(table, p,
                         [&](const Isobar& b, double& v) {
                             const Span sp = NodesOf(table, b);
                             double t = 0.0;
                             const VapourFind r = FindOnIsobar(sp, b.fromDew, s, true, t);
                             if (r != VapourFind::Found) return r;
                             VapourState st;
                             OnIsobar(sp, t, st);
                             v = st.h;
                             return r;
                         },
                         h);
}

VapourFind VapourTemperatureAtEnthalpy(const SuperheatTable& table, double p, double h, double& tC) {
    return AcrossIsobars(table, p,
                         [&](const Isobar& b, double& v) {
                             return FindOnIsobar(NodesOf(table, b), b.fromDew, h, false, v);
                         },
                         tC);
}

}  // namespace kv
