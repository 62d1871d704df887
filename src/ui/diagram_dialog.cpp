#include "ui/diagram_dialog.h"

#include <QFileDialog>
#include <algorithm>
#include <climits>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "render/render.h"
#include "shell/captions.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/workspace.h"
#include "ui/help_dialog.h"
#include "ui/picture_view.h"
#include "ui/screen_fit.h"
#include "ui/file_dialogs.h"
#include "ui/qt_interface.h"

namespace kvui {

DiagramDialog::DiagramDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("logp_H"));
    setWindowTitle(Q(ws.captions[kv::Cap::HLogPTitle]) + QStringLiteral(" - ") + Q(ws.project.KaelteM) +
                   QStringLiteral(" - ") + Q(ws.Title()));
    window_ = kv::OpenDiagramWindow(ws_);

    view_ = new PictureView;
    view_->setObjectName(QStringLiteral("Diagram"));
    view_->setMinimumSize(400, 300);
    connect(view_, &PictureView::pressedAt, this, [this](double x, double y) { ReadOut(x, y, true); });
    connect(view_, &PictureView::released, this, [this] { ReadOut(0, 0, false); });

    readout_ = new QFrame(view_);
    readout_->setFrameShape(QFrame::Box);
    readout_->setStyleSheet(QStringLiteral("QFrame { background: #fffbe6; }"));
    readoutText_ = new QLabel(readout_);
    readoutText_->setObjectName(QStringLiteral("Readout"));
    readoutText_->setFont(QFont(QStringLiteral("Liberation Mono")));
    auto* rl = new QVBoxLayout(readout_);
    rl->addWidget(readoutText_);
    readout_->hide();

    auto* trims = new QGroupBox;
    auto* form = new QFormLayout(trims);
    const kv::Cap words[kv::kTrimCount] = {kv::Cap::EvapTemp,       kv::Cap::CondTemp,  kv::Cap::SuperheatEvap,
                                           kv::Cap::SuperheatSuctionLine, kv::Cap::SubcoolingBase,
                                           kv::Cap::SubcoolingIhx,  kv::Cap::GasCoolerPressure,
                                           kv::Cap::IntermediatePressure};
    const char* units[kv::kTrimCount] = {"\u00b0C", "\u00b0C", "K", "K", "K", "K", "bar", "bar"};
    for (int i = 0; i < kv::kTrimCount; ++i) {
        const auto which = static_cast<kv::TrimField>(i);
        kv::TrimControl& t = window_[which];
        auto* field = new QLineEdit;
        field->setObjectName(QString::fromUtf8(t.field.data(), static_cast<int>(t.field.size())));
        field->setMaximumWidth(70);
        auto* bar = new QScrollBar(Qt::Horizontal);
        bar->setObjectName(QString::fromUtf8(t.scroll.data(), static_cast<int>(t.scroll.size())));
        bar->setMinimumWidth(140);
        fields_[static_cast<std::size_t>(i)] = field;
        bars_[static_cast<std::size_t>(i)] = bar;
        connect(bar, &QScrollBar::valueChanged, this, [this, which](int v) {
            if (kv::ScrollTrim(window_, which, v)) Redraw();
        });
        connect(field, &QLineEdit::returnPressed, this, [this, which, field] {
            window_[which].text = field->text().toStdString();
            long long value = 0;
            kv::IntegerPart(kv::ToNumber(window_[which].text).value, value);
            kv::SetTrimBar(window_, which, static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX)));
            Redraw();
        });
        auto* row = new QHBoxLayout;
        row->addWidget(field);
        row->addWidget(bar, 1);
        form->addRow(Q(kv::FieldLabel(ws_.captions[words[i]], units[i])), row);
    }
    auto* print = new QPushButton(Q(ws_.captions[kv::Cap::Print]));
    auto* save = new QPushButton(Q(ws_.captions[kv::Cap::SaveAs]));
    auto* close = new QPushButton(Q(ws_.captions[kv::Cap::Close]));
    connect(print, &QPushButton::clicked, this, &DiagramDialog::Print);
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+P")), this), &QShortcut::activated, this, &DiagramDialog::Print);
    AddHelpKey(ws_, this, ws_.captions[kv::Cap::HLogPTitle]);
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+S")), this), &QShortcut::activated, save, &QPushButton::click);
    connect(save, &QPushButton::clicked, this, [this] {
        const QString file = AskPictureSavePath(ws_, this, Q(ws_.captions[kv::Cap::SaveAs]));
        if (!file.isEmpty()) SaveAs(file);
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    form->addRow(print);
    form->addRow(save);
    form->addRow(close);

    // The diagram and the trims share the window through a splitter.
    auto* split = new QSplitter(Qt::Horizontal);
    split->addWidget(view_);
    split->addWidget(Scrolled(trims));
    split->setStretchFactor(0, 1);
    split->setChildrenCollapsible(false);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(split);
    FitToScreen(ws_, this, QSize(1180, 720), split);
    Redraw();
}

void DiagramDialog::Redraw() {
    view_->SetPicture(kv::Play_DiaG(ws_, window_));
    for (int i = 0; i < kv::kTrimCount; ++i) {
        const kv::TrimControl& t = window_.trim[static_cast<std::size_t>(i)];
        QScrollBar* bar = bars_[static_cast<std::size_t>(i)];
        const QSignalBlocker block(bar);
        bar->setRange(t.min, t.max);
        bar->setValue(t.value);
        bar->setEnabled(t.enabled);
        fields_[static_cast<std::size_t>(i)]->setText(Q(t.text));
        fields_[static_cast<std::size_t>(i)]->setEnabled(t.enabled);
    }
}

void DiagramDialog::ReadOut(double x, double y, bool show) {
    if (!show) {
        kv::HideReadout(window_);
        readout_->hide();
        return;
    }
    const kv::DiagramReadout r = kv::ReadOutAt(ws_, window_, x, y);
    if (!r.visible) {
        readout_->hide();
        return;
    }
    QString text = Q(r.VerdTemp + " " + r.p0F + " " + r.psilabel) + QLatin1Char('\n') +
                   Q(r.KondTemp + " " + r.t0F);
    if (r.glide) text += QStringLiteral("   ") + Q(r.tG);
    if (r.inTable) {
        text += QLatin1Char('\n') + Q(r.DruckV + " " + r.hsF) + QLatin1Char('\n') + Q(r.UeberhVD + " " + r.hTF) +
                QLatin1Char('\n') + Q(r.EndSaugG + " " + r.rhoSF) + QLatin1Char('\n') + Q(r.EnthDiff + " " + r.rhoTF);
        if (r.glide) text += QLatin1Char('\n') + Q(r.tGlide);
    }
    readoutText_->setText(text);
    readout_->adjustSize();
    // The panel follows the pointer, kept inside the picture.
    const QRectF fit = kv::render::FitRect(view_->Picture(), QRectF(view_->rect()));
    const double sx = fit.width() / std::max(1.0, view_->Picture().width);
    QPoint at(static_cast<int>(fit.left() + x * sx) + 16, static_cast<int>(fit.top() + y * sx) + 16);
    at.setX(std::min(at.x(), view_->width() - readout_->width()));
    at.setY(std::min(at.y(), view_->height() - readout_->height()));
    readout_->move(at);
    readout_->show();
    readout_->raise();
}

bool DiagramDialog::SaveAs(const QString& path) {
    QString error;
    if (kv::render::WritePicture(view_->Picture(), path, windowTitle(), &error)) return true;
    // A failed save says so, with the file and the reason.
    ws_.ui.Message(ws_.Title(), "The picture was not saved: " + path.toStdString() + ws_.lineEnd + error.toStdString(),
                   kv::MessageIcon::Error);
    return false;
}

void DiagramDialog::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    QPainter painter(&printer);
    kv::render::Paint(painter, view_->Picture(), QRectF(printer.pageLayout().paintRectPixels(printer.resolution())));
}

}  // namespace kvui
