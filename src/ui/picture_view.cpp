#include "ui/picture_view.h"

#include <QMouseEvent>
#include <QPainter>

#include "render/render.h"

namespace kvui {

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setMinimumSize(400, 260);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureView::SetPicture(kv::DrawingList picture) {
    picture_ = std::move(picture);
    update();
}

kv::DrawPoint PictureView::ToPicture(const QPointF& p) const {
    const QRectF r = kv::render::FitRect(picture_, QRectF(rect()));
    if (r.isEmpty()) return {};
    return {(p.x() - r.left()) * picture_.width / r.width(), (p.y() - r.top()) * picture_.height / r.height()};
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    kv::render::Paint(painter, picture_, QRectF(rect()));
}

void PictureView::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return;
    const kv::DrawPoint p = ToPicture(e->position());
    emit pressedAt(p.x, p.y);
}

void PictureView::mouseMoveEvent(QMouseEvent* e) {
    if (!(e->buttons() & Qt::LeftButton)) return;
    const kv::DrawPoint p = ToPicture(e->position());
    emit pressedAt(p.x, p.y);
}

void PictureView::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() == Qt::LeftButton) emit released();
}

}  // namespace kvui
