// A small x,y chart as a drawing list: frame, a few labelled ticks on each
// axis, the curves in their colours; y may be logarithmic (pressures).
#pragma once

#include <string>
#include <vector>

#include "documents/drawing.h"

namespace kv {

struct ChartCurve {
    std::vector<DrawPoint> points;  // in the data's own units
    Rgb colour = kBlack;
};

struct ChartSpec {
    std::string title, xLabel, yLabel;
    bool logY = false;  // points with y <= 0 are left out then
    double width = 400.0, height = 280.0;
};

// An empty frame with the title when no curve has a point to draw.
DrawingList SmallChart(const ChartSpec& spec, const std::vector<ChartCurve>& curves);

}  // namespace kv
