// A picture as a list of drawing primitives in the picture's own coordinates:
// x to the right, y downward, lengths in picture units. The h,log p diagram,
// the report pages and the piping scheme are composed as such lists; one
// painter puts a list on the screen, the printer or a file, so that every
// target shows the same drawing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kv {

struct Rgb {
    std::uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Rgb&) const = default;
};

inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kWhite{255, 255, 255};

// The sixteen colours of the classical colour numbers: 0 black, 1 blue,
// 2 green, 3 cyan, 4 red, 5 magenta, 6 brown, 7 light grey, 8 grey, 9 light
// blue, 10 light green, 11 light cyan, 12 light red, 13 light magenta,
// 14 yellow, 15 white. Any other number is black.
Rgb PaletteColour(int number);

enum class DashStyle : std::uint8_t { Solid, Dash, Dot, DashDot };

struct Pen {
    Rgb colour = kBlack;
    double width = 1.0;  // picture units; 0 is the thinnest line the target draws
    DashStyle dash = DashStyle::Solid;
};

struct DrawPoint {
    double x = 0.0, y = 0.0;
    bool operator==(const DrawPoint&) const = default;
};

struct DrawLine {
    DrawPoint from, to;
    Pen pen;
};

struct DrawPolyline {
    std::vector<DrawPoint> points;
    Pen pen;
    bool closed = false;
};

// A rectangle by its top left corner and its size; filled when `fill` holds a
// colour, outlined unless `outline` is false.
struct DrawRect {
    double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
    Pen pen;
    std::optional<Rgb> fill;
    bool outline = true;
};

// An ellipse by its centre and its two radii.
struct DrawEllipse {
    DrawPoint centre;
    double rx = 0.0, ry = 0.0;
    Pen pen;
    std::optional<Rgb> fill;
    bool outline = true;
};

struct DrawFont {
    std::string family = "Arial";
    double size = 10.0;  // height of the em in picture units
    bool bold = false;
    bool italic = false;
};

enum class HAlign : std::uint8_t { Left, Centre, Right };
enum class VAlign : std::uint8_t { Top, Middle, Baseline, Bottom };

// One line of text, placed by its anchor: the alignments tell which point of
// the text's box stands at `at`. `rotation` in degrees turns the text about
// its anchor, clockwise on the page (-90 reads upward).
struct DrawText {
    DrawPoint at;
    std::string text;  // UTF-8
    DrawFont font;
    Rgb colour = kBlack;
    HAlign halign = HAlign::Left;
    VAlign valign = VAlign::Baseline;
    double rotation = 0.0;
};

using DrawItem = std::variant<DrawLine, DrawPolyline, DrawRect, DrawEllipse, DrawText>;

struct DrawingList {
    double width = 0.0, height = 0.0;  // the picture's logical size
    std::optional<Rgb> background;    // filled behind everything when set
    std::vector<DrawItem> items;       // painted in order

    DrawLine& Line(double x1, double y1, double x2, double y2, const Pen& pen = {});
    DrawPolyline& Polyline(std::vector<DrawPoint> points, const Pen& pen = {}, bool closed = false);
    DrawRect& Rect(double x, double y, double w, double h, const Pen& pen = {}, std::optional<Rgb> fill = {});
    DrawEllipse& Ellipse(double cx, double cy, double rx, double ry, const Pen& pen = {},
                         std::optional<Rgb> fill = {});
    DrawText& Text(double x, double y, std::string text, const DrawFont& font = {}, Rgb colour = kBlack,
                   HAlign h = HAlign::Left, VAlign v = VAlign::Baseline);

    bool Empty() const { return items.empty(); }
    // Every item of `other`, scaled by `scale` about its origin and moved by
    // (dx, dy): a picture placed on a page. Pen widths and font sizes scale too.
    void Append(const DrawingList& other, double dx = 0.0, double dy = 0.0, double scale = 1.0);
};

// An axis-parallel rectangle for clipping.
struct ClipBox {
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
    bool Contains(const DrawPoint& p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
};

// Cuts the segment a-b to the box (Liang-Barsky). False when nothing of it
// lies inside or a coordinate is not finite; a and b are then unchanged.
bool ClipSegment(DrawPoint& a, DrawPoint& b, const ClipBox& box);

// Adds the part of the open path `points` that lies inside `box` to `list`:
// runs of visible segments become polylines, single visible pieces lines.
void AddClippedPath(DrawingList& list, const std::vector<DrawPoint>& points, const ClipBox& box, const Pen& pen);

}  // namespace kv
