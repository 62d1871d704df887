#include "ui/screen_fit.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QWidget>

#include <algorithm>
#include <filesystem>

#include "shell/workspace.h"

namespace kvui {

namespace {

QString SizesFile(const kv::Workspace& ws) {
    return QString::fromStdString((ws.settingsFile.parent_path() / "window_sizes.ini").string());
}

// Writes the size and splitter positions of a screen when it is hidden.
class SizeKeeper : public QObject {
public:
    SizeKeeper(QString file, QWidget* screen, QSplitter* splitter)
        : QObject(screen), file_(std::move(file)), screen_(screen), splitter_(splitter) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == screen_ && (event->type() == QEvent::Hide || event->type() == QEvent::Close) &&
            !screen_->objectName().isEmpty()) {
            QSettings s(file_, QSettings::IniFormat);
            s.beginGroup(screen_->objectName());
            s.setValue(QStringLiteral("size"), screen_->size());
            if (splitter_) s.setValue(QStringLiteral("splitter"), splitter_->saveState());
        }
        return false;
    }

private:
    QString file_;
    QWidget* screen_;
    QSplitter* splitter_;
};

}  // namespace

QScrollArea* Scrolled(QWidget* body) {
    auto* area = new QScrollArea;
    area->setWidget(body);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);  // the form's fields keep the tab order
    return area;
}

void FitToScreen(const kv::Workspace& ws, QWidget* screen, QSize wanted, QSplitter* splitter) {
    const QString file = SizesFile(ws);
    if (!ws.settingsFile.empty() && !screen->objectName().isEmpty()) {
        QSettings s(file, QSettings::IniFormat);
        s.beginGroup(screen->objectName());
        const QSize kept = s.value(QStringLiteral("size")).toSize();
        if (kept.isValid()) wanted = kept;
        if (splitter) splitter->restoreState(s.value(QStringLiteral("splitter")).toByteArray());
        screen->installEventFilter(new SizeKeeper(file, screen, splitter));
    }
    // Room for the frame and title bar of the window manager.
    QSize room(1366, 768 - 40);
    if (QScreen* s = QGuiApplication::primaryScreen()) room = s->availableGeometry().size() - QSize(0, 40);
    screen->resize(wanted.boundedTo(room).expandedTo(QSize(320, 240)));
}

}  // namespace kvui
