// A widget that shows a drawing list of the core, scaled to its size.
#pragma once

#include <QWidget>

#include <functional>

#include "documents/drawing.h"

namespace kvui {

class PictureView : public QWidget {
    Q_OBJECT
public:
    explicit PictureView(QWidget* parent = nullptr);
    void SetPicture(kv::DrawingList picture);
    const kv::DrawingList& Picture() const { return picture_; }
    // A point of the widget in the picture's own coordinates.
    kv::DrawPoint ToPicture(const QPointF& widgetPoint) const;

signals:
    // Left button pressed or moved while held, released; picture coordinates.
    void pressedAt(double x, double y);
    void released();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    kv::DrawingList picture_;
};

}  // namespace kvui
