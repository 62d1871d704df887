// The picture of the plant scheme screen: the plant as a scheme of its
// components and lines with the figures of the last run placed on it.
#pragma once

#include "documents/drawing.h"

namespace kv {

struct Workspace;
struct SchemeScreen;

// Logical size of the picture.
inline constexpr double kSchemeWidth = 1000.0;
inline constexpr double kSchemeHeight = 640.0;

// Compressor, condenser, receiver, expansion valve and evaporator, with the
// economizer and the hot-gas bypass when the plant has them; each line
// labelled with its size, loss and velocity, red where a figure is.
DrawingList ComposeSchemePicture(const Workspace& ws, const SchemeScreen& screen);

}  // namespace kv
