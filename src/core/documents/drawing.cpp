#include "documents/drawing.h"

#include <array>
#include <cmath>
#include <utility>

namespace kv {

Rgb PaletteColour(int number) {
    static constexpr std::array<Rgb, 16> palette = {{
        {0, 0, 0},       {0, 0, 128},     {0, 128, 0},     {0, 128, 128},
        {128, 0, 0},     {128, 0, 128},   {128, 128, 0},   {192, 192, 192},
        {128, 128, 128}, {0, 0, 255},     {0, 255, 0},     {0, 255, 255},
        {255, 0, 0},     {255, 0, 255},   {255, 255, 0},   {255, 255, 255},
    }};
    if (number < 0 || number >= static_cast<int>(palette.size())) return kBlack;
    return palette[static_cast<std::size_t>(number)];
}

DrawLine& DrawingList::Line(double x1, double y1, double x2, double y2, const Pen& pen) {
    return std::get<DrawLine>(items.emplace_back(DrawLine{{x1, y1}, {x2, y2}, pen}));
}

DrawPolyline& DrawingList::Polyline(std::vector<DrawPoint> points, const Pen& pen, bool closed) {
    return std::get<DrawPolyline>(items.emplace_back(DrawPolyline{std::move(points), pen, closed}));
}

DrawRect& DrawingList::Rect(double x, double y, double w, double h, const Pen& pen, std::optional<Rgb> fill) {
    return std::get<DrawRect>(items.emplace_back(DrawRect{x, y, w, h, pen, fill, true}));
}

DrawEllipse& DrawingList::Ellipse(double cx, double cy, double rx, double ry, const Pen& pen,
                                  std::optional<Rgb> fill) {
    return std::get<DrawEllipse>(items.emplace_back(DrawEllipse{{cx, cy}, rx, ry, pen, fill, true}));
}

DrawText& DrawingList::Text(double x, double y, std::string text, const DrawFont& font, Rgb colour, HAlign h,
                            VAlign v) {
    return std::get<DrawText>(items.emplace_back(DrawText{{x, y}, std::move(text), font, colour, h, v, 0.0}));
}

void DrawingList::Append(const DrawingList& other, double dx, double dy, double scale) {
    const auto at = [&](DrawPoint p) { return DrawPoint{dx + scale * p.x, dy + scale * p.y}; };
    const auto pen = [&](Pen p) {
        p.width *= scale;
        return p;
    };
    items.reserve(items.size() + other.items.size());
    for (const DrawItem& item : other.items) {
        if (const auto* l = std::get_if<DrawLine>(&item)) {
            items.emplace_back(DrawLine{at(l->from), at(l->to), pen(l->pen)});
        } else if (const auto* p = std::get_if<DrawPolyline>(&item)) {
            DrawPolyline q{{}, pen(p->pen), p->closed};
            q.points.reserve(p->points.size());
            for (const DrawPoint& pt : p->points) q.points.push_back(at(pt));
            items.emplace_back(std::move(q));
        } else if (const auto* r = std::get_if<DrawRect>(&item)) {
            const DrawPoint c = at({r->x, r->y});
            items.emplace_back(DrawRect{c.x, c.y, r->width * scale, r->height * scale, pen(r->pen), r->fill, r->outline});
        } else if (const auto* e = std::get_if<DrawEllipse>(&item)) {
            items.emplace_back(DrawEllipse{at(e->centre), e->rx * scale, e->ry * scale, pen(e->pen), e->fill, e->outline});
        } else if (const auto* t = std::get_if<DrawText>(&item)) {
            DrawText u = *t;
            u.at = at(t->at);
            u.font.size *= scale;
            items.emplace_back(std::move(u));
        }
    }
}

bool ClipSegment(DrawPoint& a, DrawPoint& b, const ClipBox& box) {
    if (!std::isfinite(a.x) || !std::isfinite(a.y) || !std::isfinite(b.x) || !std::isfinite(b.y)) return false;
    const double dx = b.x - a.x, dy = b.y - a.y;
    double t0 = 0.0, t1 = 1.0;
    // Each edge as p t <= q.
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.x - box.left, box.right - a.x, a.y - box.top, box.bottom - a.y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;  // parallel to the edge and outside it
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0) {
            if (t > t1) return false;
            if (t > t0) t0 = t;
        } else {
            if (t < t0) return false;
            if (t < t1) t1 = t;
        }
    }
    const DrawPoint a0 = a;
    if (t1 < 1.0) b = {a0.x + t1 * dx, a0.y + t1 * dy};
    if (t0 > 0.0) a = {a0.x + t0 * dx, a0.y + t0 * dy};
    return true;
}

void AddClippedPath(DrawingList& list, const std::vector<DrawPoint>& points, const ClipBox& box, const Pen& pen) {
    std::vector<DrawPoint> run;
    const auto flush = [&] {
        if (run.size() == 2) list.Line(run[0].x, run[0].y, run[1].x, run[1].y, pen);
        else if (run.size() > 2) list.Polyline(run, pen);
        run.clear();
    };
    for (std::size_t i = 1; i < points.size(); ++i) {
        DrawPoint a = points[i - 1], b = points[i];
        if (!ClipSegment(a, b, box)) {
            flush();
            continue;
        }
        if (run.empty() || !(run.back() == a)) {
            flush();
            run.push_back(a);
        }
        run.push_back(b);
        // A segment that left the box ends the run.
        if (!(b == points[i])) flush();
    }
    flush();
}

}  // namespace kv
