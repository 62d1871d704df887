// The parts list screen and the line and electrical data screen over their
// core models.
#pragma once

#include <array>
#include <vector>

#include <QDialog>

#include "lists/line_electric_screen.h"
#include "lists/list_screen.h"
#include "lists/order_numbers.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTabWidget;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

// One tab per list; the tab of `file` is shown first.
class ListDialog : public QDialog {
    Q_OBJECT
public:
    ListDialog(kv::Workspace& ws, const QString& file, QWidget* parent = nullptr);

    // The work of the buttons on the current tab; rows from 0.
    void ShowList(int tab);
    int CurrentTab() const;
    QTableWidget* Grid(int tab) const { return grids_[static_cast<std::size_t>(tab)]; }
    kv::ListScreen& Model(int tab) { return models_[static_cast<std::size_t>(tab)]; }
    bool Save();
    void InsertRow();
    void DeleteRows();
    void CopyRows();
    void PasteRows();
    bool Reselect();
    bool RebuildPed();

private:
    void Fill(int tab);
    void Edited(int tab, int row, int column);
    std::pair<int, int> SelectedRows() const;

    kv::Workspace& ws_;
    QTabWidget* tabs_ = nullptr;
    std::array<QTableWidget*, 6> grids_{};
    std::array<kv::ListScreen, 6> models_{};
    std::array<QCheckBox*, 6> costing_{};
    QLabel* message_ = nullptr;
    std::vector<kv::GridRow> clipboard_;
    bool filling_ = false;
};

class LineElectricDialog : public QDialog {
    Q_OBJECT
public:
    explicit LineElectricDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::LineElectricScreen& Model() { return screen_; }
    bool Apply();
    void Propose();

private:
    void Fill();
    void Take();

    kv::Workspace& ws_;
    kv::LineElectricScreen screen_;
    QTableWidget* lines_ = nullptr;
    QTableWidget* wiring_ = nullptr;
    std::array<QLineEdit*, 5> insulation_{};
    QLabel* message_ = nullptr;
};

// The order number screen: the articles of the lists by maker.
class OrderNumbersDialog : public QDialog {
    Q_OBJECT
public:
    explicit OrderNumbersDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::OrderNumbersScreen& Model() { return screen_; }
    void ChooseMaker(int maker);  // -1 all

private:
    void Fill();
    kv::OrderNumbersScreen screen_;
    QTableWidget* grid_ = nullptr;
    QComboBox* makers_ = nullptr;
};

}  // namespace kvui
