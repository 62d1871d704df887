// A polyline with at most one point per pixel column: a line through
// thousands of points costs the painter as much as the few it shows.
#pragma once

#include <vector>

#include "documents/drawing.h"

namespace kv {

// Keeps the first point of each run of points in one pixel column (x cut to
// the whole pixel) and the last point of the line.
std::vector<DrawPoint> OnePointPerColumn(const std::vector<DrawPoint>& points);

}  // namespace kv
