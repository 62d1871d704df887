// The load split screen over its core model.
#pragma once

#include <array>

#include <QDialog>

#include "lines/load_split.h"

class QLabel;
class QLineEdit;
class QSpinBox;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class LoadSplitDialog : public QDialog {
    Q_OBJECT
public:
    LoadSplitDialog(kv::Workspace& ws, bool discharge, QWidget* parent = nullptr);
    kv::LoadSplitScreen& Model() { return screen_; }
    bool Calculate();
    bool Save();

private:
    void Take();
    void Fill();

    kv::Workspace& ws_;
    kv::LoadSplitScreen screen_;
    QSpinBox* branches_ = nullptr;
    std::array<QLineEdit*, kv::kMaxSplitBranches> shares_{};
    QTableWidget* table_ = nullptr;
    QLabel* message_ = nullptr;
};

}  // namespace kvui
