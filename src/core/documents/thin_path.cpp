#include "documents/thin_path.h"

#include <algorithm>
#include <cmath>

namespace kv {

std::vector<DrawPoint> OnePointPerColumn(const std::vector<DrawPoint>& points) {
    std::vector<DrawPoint> out;
    if (points.empty()) return out;
    out.reserve(std::min<std::size_t>(points.size(), 1024));
    double column = std::floor(points.front().x);
    out.push_back(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double c = std::floor(points[i].x);
        if (c == column) continue;
        column = c;
        out.push_back(points[i]);
    }
    if (!(out.back() == points.back())) out.push_back(points.back());
    return out;
}

}  // namespace kv
