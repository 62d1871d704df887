// The viewer of element-line files (RIFliess.dat, Aktdraw.dat, Schaltp.dat):
// the scheme drawn by circuit colour and symbol, zoomed, fitted, printed,
// saved as PDF, SVG or PNG; an element moved with the mouse is saved back
// into Aktdraw.dat.
#pragma once

#include <QDialog>

#include "documents/element_lines.h"

class QLabel;
class QScrollArea;

namespace kv { struct Workspace; }

namespace kvui {

class PictureView;

class ViewerDialog : public QDialog {
    Q_OBJECT
public:
    ViewerDialog(kv::Workspace& ws, const QString& file, QWidget* parent = nullptr);
    kv::SchemeFile& Scheme() { return scheme_; }
    void Zoom(double factor);
    void Fit();
    double Scale() const { return scale_; }
    // Moving an element: pressed at a sheet point, dragged, released.
    void Press(double x, double y);
    void Drag(double x, double y);
    void Release();
    bool SaveDrawing();  // Aktdraw.dat
    bool SaveAs(const QString& path);

protected:
    // The first showing fits the sheet into the window's real size.
    void showEvent(QShowEvent* event) override;

private:
    void Redraw();

    kv::Workspace& ws_;
    kv::SchemeFile scheme_;
    PictureView* view_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    QLabel* message_ = nullptr;
    double scale_ = 1.0;
    int moving_ = -1;
    double lastX_ = 0, lastY_ = 0;
    bool fitted_ = false;
};

}  // namespace kvui
