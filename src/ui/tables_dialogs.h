// The two table screens of the main menu: the pipe diameter tables
// (RohrDurchM) and the zeta values (KSIwert), bound to their core models.
#pragma once

#include <QDialog>

#include "lines/pipe_editor.h"
#include "lines/zeta.h"

class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class PipeTableDialog : public QDialog {
    Q_OBJECT
public:
    explicit PipeTableDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::PipeEditor& Model() { return editor_; }
    // Shows the series of `file` (RohrDM.DAT, RohrIN.DAT, ...).
    void ShowSeries(const std::string& file);
    bool Save();

private:
    void Fill();
    int CurrentRow() const;

    kv::Workspace& ws_;
    kv::PipeEditor editor_;
    QTableWidget* grid_ = nullptr;
    bool filling_ = false;
};

class ZetaDialog : public QDialog {
    Q_OBJECT
public:
    explicit ZetaDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::ZetaScreen& Model() { return screen_; }
    bool Save();

private:
    void Fill();

    kv::Workspace& ws_;
    kv::ZetaScreen screen_;
    QTableWidget* grid_ = nullptr;
    bool filling_ = false;
};

}  // namespace kvui
