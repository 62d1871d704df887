#include "ui/viewer_dialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include "documents/scheme_generator.h"
#include "render/render.h"
#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/picture_view.h"
#include "ui/qt_interface.h"
#include "ui/screen_fit.h"

namespace kvui {

ViewerDialog::ViewerDialog(kv::Workspace& ws, const QString& file, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("Viewer"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::ViewerTitle]) + QStringLiteral(" - ") + file);
    scheme_ = kv::ReadSchemeFile(ws_, file.toStdString());
    view_ = new PictureView;
    view_->setObjectName(QStringLiteral("Drawing"));
    scroll_ = new QScrollArea;
    scroll_->setWidget(view_);
    scroll_->setAlignment(Qt::AlignCenter);
    connect(view_, &PictureView::pressedAt, this, [this](double x, double y) {
        if (moving_ < 0) Press(x, y);
        else Drag(x, y);
    });
    connect(view_, &PictureView::released, this, &ViewerDialog::Release);
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Message"));
    QPushButton* in = NamedButton(QStringLiteral("+"), "ZoomIn");
    QPushButton* out = NamedButton(QStringLiteral("-"), "ZoomOut");
    QPushButton* fit = NamedButton(QStringLiteral("[ ]"), "Fit");
    QPushButton* save = NamedButton(Q(c[kv::Cap::Save]), "Save");
    QPushButton* saveAs = NamedButton(Q(c[kv::Cap::SaveAs]), "SaveAs");
    QPushButton* print = NamedButton(Q(c[kv::Cap::Print]), "Print");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(in, &QPushButton::clicked, this, [this] { Zoom(1.25); });
    connect(out, &QPushButton::clicked, this, [this] { Zoom(0.8); });
    connect(fit, &QPushButton::clicked, this, &ViewerDialog::Fit);
    connect(save, &QPushButton::clicked, this, &ViewerDialog::SaveDrawing);
    connect(saveAs, &QPushButton::clicked, this, [this] {
        const QString path = QFileDialog::getSaveFileName(this, windowTitle(), Q(ws_.project.ProjektNam),
                                                          QStringLiteral("PDF (*.pdf);;SVG (*.svg);;PNG (*.png)"));
        if (!path.isEmpty()) SaveAs(path);
    });
    connect(print, &QPushButton::clicked, this, [this] {
        QPrinter printer(QPrinter::HighResolution);
        printer.setPageOrientation(QPageLayout::Landscape);
        QPrintDialog dialog(&printer, this);
        if (dialog.exec() != QDialog::Accepted) return;
        QPainter p(&printer);
        const kv::DrawingList d = kv::DrawScheme(scheme_);
        kv::render::Paint(p, d, kv::render::FitRect(d, QRectF(0, 0, printer.width(), printer.height())));
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {in, out, fit}) buttons->addWidget(b);
    buttons->addWidget(message_, 1);
    for (QPushButton* b : {save, saveAs, print, close}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(scroll_, 1);
    layout->addLayout(buttons);
    FitToScreen(ws_, this, QSize(1200, 700));
    Fit();
}

void ViewerDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!fitted_) Fit();
    fitted_ = true;
}

void ViewerDialog::Redraw() {
    view_->SetPicture(kv::DrawScheme(scheme_));
    view_->resize(static_cast<int>(kv::kSheetWidth / 10 * scale_), static_cast<int>(kv::kSheetHeight / 10 * scale_));
}

void ViewerDialog::Zoom(double factor) {
    scale_ = std::clamp(scale_ * factor, 0.2, 8.0);
    Redraw();
}

void ViewerDialog::Fit() {
    const QSize room = scroll_->viewport()->size();
    scale_ = std::clamp(std::min(room.width() * 10.0 / kv::kSheetWidth, room.height() * 10.0 / kv::kSheetHeight), 0.2, 8.0);
    Redraw();
}

void ViewerDialog::Press(double x, double y) {
    moving_ = kv::HitElement(scheme_, x, y);
    lastX_ = x;
    lastY_ = y;
}

void ViewerDialog::Drag(double x, double y) {
    if (moving_ < 0) return;
    kv::MoveElement(scheme_, moving_, x - lastX_, y - lastY_);
    lastX_ = x;
    lastY_ = y;
    Redraw();
}

void ViewerDialog::Release() {
    if (moving_ >= 0) message_->setText(QStringLiteral("Aktdraw.dat *"));
    moving_ = -1;
}

bool ViewerDialog::SaveDrawing() {
    const bool ok = kv::WriteSchemeFile(ws_, "Aktdraw.dat", scheme_);
    message_->setText(ok ? QStringLiteral("Aktdraw.dat ✓") : QStringLiteral("Aktdraw.dat ✗"));
    return ok;
}

bool ViewerDialog::SaveAs(const QString& path) {
    QString error;
    const bool ok = kv::render::WritePicture(kv::DrawScheme(scheme_), path, Q(ws_.project.ProjektNam), &error);
    message_->setText(ok ? path : error);
    return ok;
}

}  // namespace kvui
