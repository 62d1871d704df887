// The PED and eco protocol screen (PEDprot) over its core model.
#pragma once

#include <array>

#include <QDialog>

#include "compliance/ped.h"

class QLabel;
class QLineEdit;
class QRadioButton;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class PedDialog : public QDialog {
    Q_OBJECT
public:
    explicit PedDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::PedScreen& Model() { return screen_; }
    void ChooseHigh(int high);
    void Classify();
    bool WriteProtocol();
    bool WriteEco();

private:
    void Fill();

    kv::Workspace& ws_;
    kv::PedScreen screen_;
    std::array<QRadioButton*, 3> high_{};
    QLineEdit* ps1_ = nullptr;
    QLineEdit* ps2_ = nullptr;
    QLabel* ps2x11_ = nullptr;
    QLabel* sizes_ = nullptr;
    QTableWidget* table_ = nullptr;
    QLabel* assembly_ = nullptr;
    QLabel* plant_ = nullptr;
    QLabel* note_ = nullptr;
    QLabel* message_ = nullptr;
};

}  // namespace kvui
