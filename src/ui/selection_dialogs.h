// The accessory selection (ArmSelek) and the component selection table
// (VentZeig), the compressor search and the heat-exchanger selection, thin
// over the core's screen models.
#pragma once

#include <QDialog>

#include "catalogue/component_search.h"
#include "catalogue/selection_screen.h"
#include "catalogue/selection_table.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QSpinBox;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class AccessorySelectionDialog : public QDialog {
    Q_OBJECT
public:
    explicit AccessorySelectionDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::AccessorySelectionScreen& Model() { return screen_; }
    void ChooseKind(int slot);
    void ChooseSeries(int row);
    // Opens the selection table for the chosen series of a main unit.
    void ShowTable();

protected:
    void done(int result) override;

private:
    void FillLists();
    void FillKinds();

    kv::Workspace& ws_;
    kv::AccessorySelectionScreen screen_;
    QListWidget* makers_ = nullptr;
    QListWidget* series_ = nullptr;
    QListWidget* articles_ = nullptr;
    QTableWidget* chosen_ = nullptr;
    QLabel* message_ = nullptr;
    bool filling_ = false;
};

class ComponentSelectionDialog : public QDialog {
    Q_OBJECT
public:
    // `catalogPosition` is the group code + 2; the series of the group are
    // listed from the Matchcode, the first one (or `base` and `position`) shown.
    ComponentSelectionDialog(kv::Workspace& ws, int catalogPosition, const std::string& base, int position,
                             QWidget* parent = nullptr);
    const kv::SelectionTable& Table() const { return table_; }
    void ShowSeries(int row);
    // VentUeberNehm: adopts a grid row and closes.
    bool Adopt(int row);
    // Compressor series: the rows at an inverter frequency, Hz.
    void SetFrequency(int hz);

private:
    void FillGrid();

    kv::Workspace& ws_;
    int catalogPosition_;
    std::vector<kv::SeriesEntry> series_;
    kv::SelectionTable table_;
    QListWidget* seriesList_ = nullptr;
    QTableWidget* grid_ = nullptr;
    QLabel* message_ = nullptr;
    QSpinBox* frequency_ = nullptr;
};

}  // namespace kvui

namespace kvui {

// The compressor search of the project data screen: the compressors of all
// catalogues in a capacity range at the project's temperatures.
class CompressorSearchDialog : public QDialog {
    Q_OBJECT
public:
    explicit CompressorSearchDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    void Search(double qMin, double qMax, int principle);
    const std::vector<kv::CompressorCandidate>& Rows() const { return rows_; }
    // The swept volume of the chosen row; -1 when none was chosen.
    double Result() const { return result_; }
    void Choose(int row);

private:
    kv::Workspace& ws_;
    std::vector<kv::CompressorCandidate> rows_;
    QTableWidget* grid_ = nullptr;
    QLineEdit* qMin_ = nullptr;
    QLineEdit* qMax_ = nullptr;
    double result_ = -1;
};

// The heat-exchanger selection: air coolers or condensers of all catalogues
// at the project's duty; the chosen one goes to hx_prj1.dat.
class HeatExchangerSelectionDialog : public QDialog {
    Q_OBJECT
public:
    HeatExchangerSelectionDialog(kv::Workspace& ws, int groupCode, QWidget* parent = nullptr);
    void ShowGroup(int groupCode);
    const std::vector<kv::HeatExchangerCandidate>& Rows() const { return rows_; }
    bool Choose(int row);

private:
    kv::Workspace& ws_;
    int group_ = 600;
    std::vector<kv::HeatExchangerCandidate> rows_;
    QTableWidget* grid_ = nullptr;
};

}  // namespace kvui
