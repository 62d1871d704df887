// The project browser over the core's model: the projects of the known
// directories in a grid, a search line, and the buttons that open, copy,
// rename and delete them; the file dialog stays one button away.
#pragma once

#include <QDialog>

#include "project/project_browser.h"

class QLineEdit;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class ProjectBrowserDialog : public QDialog {
    Q_OBJECT
public:
    explicit ProjectBrowserDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::ProjectBrowser& Model() { return browser_; }

    // The buttons' work on the current row; Copy and Rename take the new
    // name the buttons ask for. A project opened closes the browser.
    bool OpenCurrent();
    bool OpenFile(const QString& file);
    bool CopyCurrent(const QString& newName);
    bool RenameCurrent(const QString& newName);
    bool DeleteCurrent();
    void Search(const QString& text);

signals:
    void projectOpened();

private:
    void Fill();
    int CurrentRow() const;
    void AskName(bool copy);

    kv::Workspace& ws_;
    kv::ProjectBrowser browser_;
    QLineEdit* search_ = nullptr;
    QTableWidget* grid_ = nullptr;
};

}  // namespace kvui
