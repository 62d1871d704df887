#include "documents/small_chart.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "shell/numbers.h"

namespace kv {

namespace {

// A tick step of 1, 2 or 5 times a power of ten giving about five ticks.
double TickStep(double span) {
    if (!(span > 0.0)) return 1.0;
    const double raw = span / 5.0;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (double m : {1.0, 2.0, 5.0})
        if (raw <= m * power) return m * power;
    return 10.0 * power;
}

std::string TickText(double v) { return NumberText(std::round(v * 1000.0) / 1000.0); }

}  // namespace

DrawingList SmallChart(const ChartSpec& spec, const std::vector<ChartCurve>& curves) {
    DrawingList d;
    d.width = spec.width;
    d.height = spec.height;
    d.background = kWhite;
    const double left = 52.0, right = spec.width - 12.0, top = 24.0, bottom = spec.height - 36.0;
    const DrawFont small{"Arial", 9.0};
    d.Text(spec.width / 2.0, 16.0, spec.title, DrawFont{"Arial", 11.0, true}, kBlack, HAlign::Centre);
    d.Rect(left, top, right - left, bottom - top);

    double x0 = std::numeric_limits<double>::max(), x1 = -x0, y0 = x0, y1 = -x0;
    for (const ChartCurve& c : curves)
        for (const DrawPoint& p : c.points) {
            if (!std::isfinite(p.x) || !std::isfinite(p.y) || (spec.logY && p.y <= 0.0)) continue;
            const double y = spec.logY ? std::log10(p.y) : p.y;
            x0 = std::min(x0, p.x), x1 = std::max(x1, p.x), y0 = std::min(y0, y), y1 = std::max(y1, y);
        }
    if (x0 > x1) return d;
    if (x1 - x0 < 1e-9) x0 -= 1.0, x1 += 1.0;
    if (y1 - y0 < 1e-9) y0 -= 1.0, y1 += 1.0;
    const auto X = [&](double x) { return left + (x - x0) / (x1 - x0) * (right - left); };
    const auto Y = [&](double y) { return bottom - (y - y0) / (y1 - y0) * (bottom - top); };
    const Pen grid{PaletteColour(7), 0.0, DashStyle::Dot};

    const double sx = TickStep(x1 - x0);
    for (double x = std::ceil(x0 / sx) * sx; x <= x1 + 1e-9; x += sx) {
        d.Line(X(x), top, X(x), bottom, grid);
        d.Text(X(x), bottom + 12.0, TickText(x), small, kBlack, HAlign::Centre);
    }
    if (spec.logY) {
        // Decades and their 2 and 5 marks.
        for (double e = std::floor(y0); e <= y1; e += 1.0)
            for (double m : {1.0, 2.0, 5.0}) {
                const double y = e + std::log10(m);
                if (y < y0 - 1e-9 || y > y1 + 1e-9) continue;
                d.Line(left, Y(y), right, Y(y), grid);
                d.Text(left - 4.0, Y(y), TickText(std::pow(10.0, y)), small, kBlack, HAlign::Right, VAlign::Middle);
            }
    } else {
        const double sy = TickStep(y1 - y0);
        for (double y = std::ceil(y0 / sy) * sy; y <= y1 + 1e-9; y += sy) {
            d.Line(left, Y(y), right, Y(y), grid);
            d.Text(left - 4.0, Y(y), TickText(y), small, kBlack, HAlign::Right, VAlign::Middle);
        }
    }
    d.Text((left + right) / 2.0, spec.height - 6.0, spec.xLabel, small, kBlack, HAlign::Centre);
    d.Text(12.0, (top + bottom) / 2.0, spec.yLabel, small, kBlack, HAlign::Centre, VAlign::Middle).rotation = -90.0;

    for (const ChartCurve& c : curves) {
        std::vector<DrawPoint> pts;
        for (const DrawPoint& p : c.points) {
            if (!std::isfinite(p.x) || !std::isfinite(p.y) || (spec.logY && p.y <= 0.0)) continue;
            pts.push_back({X(p.x), Y(spec.logY ? std::log10(p.y) : p.y)});
        }
        if (pts.size() >= 2) d.Polyline(std::move(pts), Pen{c.colour, 1.5});
    }
    return d;
}

}  // namespace kv
