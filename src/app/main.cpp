// kelvaris: the desktop program.
#include <QApplication>
#include <QThread>

#include "shell/data_dir_access.h"
#include "shell/startup.h"
#include "shell/workspace.h"
#include "ui/main_window.h"
#include "ui/qt_interface.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Kelvaris"));
    QApplication::setApplicationVersion(QStringLiteral(KELVARIS_VERSION));
    kvui::InstallFontSubstitutes();

    kv::Workspace ws = kv::MakeDesktopWorkspace(QCoreApplication::applicationDirPath().toStdString());
    kvui::MainWindow window(ws);
    ws.ui = kvui::MakeQtInterface(&window);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    kv::StartSystem(ws);
    // One desktop to a data directory; a second one is asked how to go on.
    kv::OpenDataDirectory(ws);
    QApplication::restoreOverrideCursor();
    window.FillCaptions();
    QObject::connect(&window, &kvui::MainWindow::ended, &app, [] {
        QApplication::closeAllWindows();
        QThread::msleep(50);
        QCoreApplication::quit();
    });
    window.show();
    return app.exec();
}
