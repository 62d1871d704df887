#include "ui/file_dialogs.h"

#include <QFileDialog>

#include <filesystem>

#include "project/project_paths.h"
#include "shell/text.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"

namespace kvui {

namespace {

QString ProposedPath(const kv::Workspace& ws, const char* extension) {
    const std::string open = kv::OpenProjectPath(ws);
    std::string stem = open.empty() ? kv::CleanName(0, ws.project.ProjektNam)
                                    : std::filesystem::path(open).stem().string();
    if (stem.empty()) stem = "Project";
    return Q(kv::ProjectFolder(ws)) + QLatin1Char('/') + Q(stem) + QLatin1String(extension);
}

}  // namespace

QString AskProjectOpenPath(const kv::Workspace& ws, QWidget* parent, const QString& title) {
    return QFileDialog::getOpenFileName(parent, title, Q(kv::ProjectFolder(ws)),
                                        QStringLiteral("Kelvaris (*.prj *.PRJ)"));
}

QString AskProjectSavePath(const kv::Workspace& ws, QWidget* parent, const QString& title) {
    const QString file = QFileDialog::getSaveFileName(parent, title, ProposedPath(ws, ".prj"),
                                                      QStringLiteral("Kelvaris (*.prj)"), nullptr,
                                                      QFileDialog::DontConfirmOverwrite);
    return file.isEmpty() ? file : Q(kv::WithProjectExtension(file.toStdString()));
}

QString AskPictureSavePath(const kv::Workspace& ws, QWidget* parent, const QString& title) {
    QString filter = QStringLiteral("PNG (*.png)");
    const QString file = QFileDialog::getSaveFileName(parent, title, ProposedPath(ws, ".png"),
                                                      QStringLiteral("PNG (*.png);;PDF (*.pdf);;SVG (*.svg)"), &filter);
    if (file.isEmpty()) return file;
    const QString format = filter.left(3).toLower();
    return Q(kv::WithPictureExtension(file.toStdString(), format.toStdString()));
}

}  // namespace kvui
