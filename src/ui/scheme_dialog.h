// The plant scheme screen (schemaR): the plant drawn with its figures, the
// entries of the operating point and the eight line groups with their size
// scrollbars, bound to the core's scheme model and kernel.
#pragma once

#include <QDialog>

#include <array>

#include "cycle/scheme_screen.h"
#include "ui/bindings.h"

class QCheckBox;
class QLabel;
class QScrollBar;
class QPushButton;

namespace kv { struct Workspace; }

namespace kvui {

class PictureView;

class SchemeDialog : public QDialog {
    Q_OBJECT
public:
    explicit SchemeDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::SchemeScreen& Model() { return screen_; }

    // The Calculate button.
    bool Calculate();
    // A line scrollbar moved.
    void MoveLine(int section, int row);
    // Writes the model into every widget and redraws the scheme.
    void Refresh();

signals:
    void diagramRequested();

private:
    struct LineRow {
        QLabel* name = nullptr;
        QScrollBar* bar = nullptr;
        QLabel *diameter = nullptr, *loss = nullptr, *lossK = nullptr, *velocity = nullptr, *minLoad = nullptr;
    };
    QWidget* BuildEntries();
    QWidget* BuildLines();

    kv::Workspace& ws_;
    kv::SchemeScreen screen_;
    Bindings bind_;
    PictureView* view_ = nullptr;
    QCheckBox *hub_ = nullptr, *keep_ = nullptr, *eco_ = nullptr;
    QLabel *psi0_ = nullptr, *psic_ = nullptr;
    QLabel* notes_ = nullptr;  // doubts on the figures, in red
    // Heating COP and discharge temperature, empirical and reference.
    QLabel *merit_ = nullptr, *reference_ = nullptr;
    std::array<LineRow, 9> lines_{};
    bool filling_ = false;
};

}  // namespace kvui
