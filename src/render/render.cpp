#include "render/render.h"

#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>

#include "shell/bidi_text.h"
#include <QPdfWriter>
#include <QPolygonF>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <mutex>
#include <variant>

namespace kv::render {
namespace {

// Text is laid out at this many times its size and scaled back, so that
// glyph metrics do not depend on the target's resolution.
constexpr double kTextScale = 16.0;

bool Finite(double v) { return std::isfinite(v); }
bool Finite(const DrawPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); }

QColor ToQColor(const Rgb& c) { return QColor(c.r, c.g, c.b); }

QPen ToQPen(const Pen& pen) {
    QPen q(ToQColor(pen.colour));
    q.setWidthF(Finite(pen.width) && pen.width > 0 ? pen.width : 0.0);
    q.setCosmetic(!(pen.width > 0));
    switch (pen.dash) {
        case DashStyle::Solid: q.setStyle(Qt::SolidLine); break;
        case DashStyle::Dash: q.setStyle(Qt::DashLine); break;
        case DashStyle::Dot: q.setStyle(Qt::DotLine); break;
        case DashStyle::DashDot: q.setStyle(Qt::DashDotLine); break;
    }
    q.setCapStyle(pen.dash == DashStyle::Solid ? Qt::RoundCap : Qt::FlatCap);
    q.setJoinStyle(Qt::RoundJoin);
    return q;
}

void SetOutline(QPainter& p, const Pen& pen, bool outline) {
    if (outline) p.setPen(ToQPen(pen));
    else p.setPen(Qt::NoPen);
}

void SetFill(QPainter& p, const std::optional<Rgb>& fill) {
    if (fill) p.setBrush(ToQColor(*fill));
    else p.setBrush(Qt::NoBrush);
}

void PaintText(QPainter& p, const DrawText& t) {
    if (t.text.empty() || !Finite(t.at) || !Finite(t.rotation) || !(t.font.size > 0) || !Finite(t.font.size)) return;
    QFont font(QString::fromStdString(t.font.family));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(std::min(t.font.size, 10000.0) * kTextScale))));
    font.setBold(t.font.bold);
    font.setItalic(t.font.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(true);
    // Figures and units keep their order on a right-to-left picture.
    const std::string isolated = IsolateFigures(t.text);
    const QString text = QString::fromUtf8(isolated.data(), static_cast<qsizetype>(isolated.size()));
    const QFontMetricsF fm(font);
    const double w = fm.horizontalAdvance(text);
    double x = 0;
    if (t.halign == HAlign::Centre) x = -w / 2;
    else if (t.halign == HAlign::Right) x = -w;
    double y = 0;
    switch (t.valign) {
        case VAlign::Top: y = fm.ascent(); break;
        case VAlign::Middle: y = (fm.ascent() - fm.descent()) / 2; break;
        case VAlign::Baseline: y = 0; break;
        case VAlign::Bottom: y = -fm.descent(); break;
    }
    p.save();
    p.translate(t.at.x, t.at.y);
    if (t.rotation != 0.0) p.rotate(t.rotation);
    p.scale(1 / kTextScale, 1 / kTextScale);
    p.setFont(font);
    p.setPen(ToQColor(t.colour));
    p.drawText(QPointF(x, y), text);
    p.restore();
}

struct ItemPainter {
    QPainter& p;

    void operator()(const DrawLine& l) const {
        if (!Finite(l.from) || !Finite(l.to)) return;
        p.setPen(ToQPen(l.pen));
        p.drawLine(QPointF(l.from.x, l.from.y), QPointF(l.to.x, l.to.y));
    }
    void operator()(const DrawPolyline& l) const {
        if (l.points.size() < 2) return;
        QPolygonF poly;
        poly.reserve(static_cast<qsizetype>(l.points.size()));
        for (const DrawPoint& pt : l.points) {
            if (!Finite(pt)) return;
            poly << QPointF(pt.x, pt.y);
        }
        p.setPen(ToQPen(l.pen));
        p.setBrush(Qt::NoBrush);
        if (l.closed) p.drawPolygon(poly);
        else p.drawPolyline(poly);
    }
    void operator()(const DrawRect& r) const {
        if (!Finite(r.x) || !Finite(r.y) || !Finite(r.width) || !Finite(r.height)) return;
        SetOutline(p, r.pen, r.outline);
        SetFill(p, r.fill);
        p.drawRect(QRectF(r.x, r.y, r.width, r.height));
    }
    void operator()(const DrawEllipse& e) const {
        if (!Finite(e.centre) || !Finite(e.rx) || !Finite(e.ry)) return;
        SetOutline(p, e.pen, e.outline);
        SetFill(p, e.fill);
        p.drawEllipse(QPointF(e.centre.x, e.centre.y), e.rx, e.ry);
    }
    void operator()(const DrawText& t) const { PaintText(p, t); }
};

}  // namespace

void InitRender() {
    static std::once_flag once;
    std::call_once(once, [] {
        QFont::insertSubstitutions(QStringLiteral("Arial"), {QStringLiteral("Liberation Sans")});
        QFont::insertSubstitutions(QStringLiteral("Helvetica"), {QStringLiteral("Liberation Sans")});
        QFont::insertSubstitutions(QStringLiteral("Arial Narrow"), {QStringLiteral("Liberation Sans Narrow")});
        QFont::insertSubstitutions(QStringLiteral("Times New Roman"), {QStringLiteral("Liberation Serif")});
        QFont::insertSubstitutions(QStringLiteral("Courier New"), {QStringLiteral("Liberation Mono")});
    });
}

QRectF FitRect(const DrawingList& d, const QRectF& target) {
    if (!(d.width > 0) || !(d.height > 0) || !Finite(d.width) || !Finite(d.height) || target.isEmpty()) return {};
    const double scale = std::min(target.width() / d.width, target.height() / d.height);
    const double w = d.width * scale, h = d.height * scale;
    return QRectF(target.x() + (target.width() - w) / 2, target.y() + (target.height() - h) / 2, w, h);
}

void Paint(QPainter& painter, const DrawingList& d, const QRectF& target) {
    const QRectF r = FitRect(d, target);
    if (r.isEmpty()) return;
    InitRender();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    painter.translate(r.topLeft());
    painter.scale(r.width() / d.width, r.height() / d.height);
    const QRectF picture(0, 0, d.width, d.height);
    painter.setClipRect(picture, Qt::IntersectClip);
    if (d.background) painter.fillRect(picture, ToQColor(*d.background));
    const ItemPainter paint{painter};
    for (const DrawItem& item : d.items) std::visit(paint, item);
    painter.restore();
}

QImage ToImage(const DrawingList& d, int widthPx) {
    widthPx = std::clamp(widthPx, 16, 20000);
    if (!(d.width > 0) || !(d.height > 0) || !Finite(d.width) || !Finite(d.height)) return {};
    const int heightPx = std::clamp(static_cast<int>(std::lround(widthPx * d.height / d.width)), 1, 20000);
    QImage image(widthPx, heightPx, QImage::Format_RGB32);
    image.fill(d.background ? ToQColor(*d.background) : QColor(Qt::white));
    QPainter p(&image);
    Paint(p, d, QRectF(0, 0, widthPx, heightPx));
    p.end();
    return image;
}

bool WritePng(const DrawingList& d, const QString& path, int widthPx, QString* error) {
    const QImage image = ToImage(d, widthPx);
    if (image.isNull()) {
        if (error) *error = QStringLiteral("the picture has no size");
        return false;
    }
    if (!image.save(path, "PNG")) {
        if (error) *error = QStringLiteral("cannot write ") + path;
        return false;
    }
    return true;
}

bool WritePdf(const DrawingList& d, const QString& path, const QString& title, QString* error) {
    if (!(d.width > 0) || !(d.height > 0)) {
        if (error) *error = QStringLiteral("the picture has no size");
        return false;
    }
    QPdfWriter writer(path);
    writer.setCreator(QStringLiteral("Kelvaris"));
    if (!title.isEmpty()) writer.setTitle(title);
    writer.setResolution(600);
    const QPageLayout layout(QPageSize(QPageSize::A4),
                             d.width > d.height ? QPageLayout::Landscape : QPageLayout::Portrait,
                             QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    writer.setPageLayout(layout);
    QPainter p;
    if (!p.begin(&writer)) {
        if (error) *error = QStringLiteral("cannot write ") + path;
        return false;
    }
    Paint(p, d, QRectF(0, 0, writer.width(), writer.height()));
    p.end();
    return true;
}

bool WritePdfPages(const std::vector<DrawingList>& pages, const QString& path, const QString& title, QString* error) {
    if (pages.empty()) {
        if (error) *error = QStringLiteral("no pages");
        return false;
    }
    QPdfWriter writer(path);
    writer.setCreator(QStringLiteral("Kelvaris"));
    if (!title.isEmpty()) writer.setTitle(title);
    writer.setResolution(600);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0),
                                     QPageLayout::Millimeter));
    QPainter p;
    if (!p.begin(&writer)) {
        if (error) *error = QStringLiteral("cannot write ") + path;
        return false;
    }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (i > 0) writer.newPage();
        Paint(p, pages[i], QRectF(0, 0, writer.width(), writer.height()));
    }
    p.end();
    return true;
}

bool WriteSvg(const DrawingList& d, const QString& path, const QString& title, QString* error) {
    if (!(d.width > 0) || !(d.height > 0) || !Finite(d.width) || !Finite(d.height)) {
        if (error) *error = QStringLiteral("the picture has no size");
        return false;
    }
    QSvgGenerator gen;
    gen.setFileName(path);
    gen.setSize(QSize(static_cast<int>(std::ceil(d.width)), static_cast<int>(std::ceil(d.height))));
    gen.setViewBox(QRectF(0, 0, d.width, d.height));
    gen.setTitle(title.isEmpty() ? QStringLiteral("Kelvaris") : title);
    gen.setDescription(QStringLiteral("Kelvaris"));
    QPainter p;
    if (!p.begin(&gen)) {
        if (error) *error = QStringLiteral("cannot write ") + path;
        return false;
    }
    Paint(p, d, QRectF(0, 0, d.width, d.height));
    p.end();
    const QFileInfo written(path);
    if (!written.exists() || written.size() == 0) {
        if (error) *error = QStringLiteral("cannot write ") + path;
        return false;
    }
    return true;
}

bool WritePicture(const DrawingList& d, const QString& path, const QString& title, QString* error) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("png")) return WritePng(d, path, kDefaultPngWidth, error);
    if (suffix == QLatin1String("pdf")) return WritePdf(d, path, title, error);
    if (suffix == QLatin1String("svg")) return WriteSvg(d, path, title, error);
    if (error) *error = QStringLiteral("unknown picture type (.png, .pdf or .svg): ") + path;
    return false;
}

}  // namespace kv::render
