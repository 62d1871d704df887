// The h,log p window (logp_H): the diagram drawn by the shared renderer, the
// trim fields with their scrollbars, the read-out while the left button is
// held, printing and saving as PDF or PNG.
#pragma once

#include <QDialog>

#include <array>

#include "cycle/diagram.h"

class QLabel;
class QLineEdit;
class QScrollBar;
class QFrame;

namespace kv { struct Workspace; }

namespace kvui {

class PictureView;

class DiagramDialog : public QDialog {
    Q_OBJECT
public:
    explicit DiagramDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::DiagramWindow& Model() { return window_; }
    // Recomposes the picture from the trim values.
    void Redraw();
    // Shows the read-out at a point of the picture; hides it with `show` false.
    void ReadOut(double x, double y, bool show);
    bool SaveAs(const QString& path);
    void Print();

private:
    kv::Workspace& ws_;
    kv::DiagramWindow window_;
    PictureView* view_ = nullptr;
    std::array<QLineEdit*, kv::kTrimCount> fields_{};
    std::array<QScrollBar*, kv::kTrimCount> bars_{};
    QFrame* readout_ = nullptr;
    QLabel* readoutText_ = nullptr;
};

}  // namespace kvui
