// Puts a drawing list on a QPainter: the window, the printer, a PDF, an SVG
// or a PNG. The picture is scaled into the target rectangle with its aspect
// kept and centred in it, so every target shows the same drawing.
#pragma once

#include <vector>

#include <QImage>
#include <QRectF>
#include <QString>

#include "documents/drawing.h"

class QPainter;

namespace kv::render {

// Registers the font substitutes of the report fonts ("Arial" by Liberation
// Sans, and its kin), once per process. Call it after the QGuiApplication
// exists and before the first painting.
void InitRender();

// Where the picture lands inside `target`: the largest rectangle of the
// picture's aspect, centred. Empty for a picture without size.
QRectF FitRect(const DrawingList& d, const QRectF& target);

// Paints the list into `target` (in the painter's current coordinates).
// Items are clipped to the picture; items with coordinates that are not
// finite are left out. The painter's state is as before afterwards.
void Paint(QPainter& painter, const DrawingList& d, const QRectF& target);

// The picture as an image `widthPx` wide (16 to 20000), its height by the
// aspect, on the picture's background (white when it has none).
QImage ToImage(const DrawingList& d, int widthPx);

// Files. False with a reason in `error` when the file cannot be written.
inline constexpr int kDefaultPngWidth = 1280;
bool WritePng(const DrawingList& d, const QString& path, int widthPx = kDefaultPngWidth, QString* error = nullptr);
// One A4 page, landscape for a wide picture, 10 mm margins.
bool WritePdf(const DrawingList& d, const QString& path, const QString& title = {}, QString* error = nullptr);
// The picture's logical size as the SVG's view box.
// Pages of a report, one A4 page each, with no margin of its own: the pages
// carry their margins in their drawing.
bool WritePdfPages(const std::vector<DrawingList>& pages, const QString& path, const QString& title = {},
                   QString* error = nullptr);
bool WriteSvg(const DrawingList& d, const QString& path, const QString& title = {}, QString* error = nullptr);
// By the suffix of `path`: ".png", ".pdf" or ".svg", in any case.
bool WritePicture(const DrawingList& d, const QString& path, const QString& title = {}, QString* error = nullptr);

}  // namespace kv::render
