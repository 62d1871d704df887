// The cost data screen and the export screen over their core models.
#pragma once

#include <QDialog>

#include "lists/cost_data_screen.h"
#include "lists/export_screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class CostDataDialog : public QDialog {
    Q_OBJECT
public:
    explicit CostDataDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::CostDataScreen& Model() { return screen_; }
    void ShowMode(int mode);
    bool Save();
    void PricesFromRates();
    // The detail price grid of the current row; nullptr for a table without.
    class DetailPriceDialog* OpenDetail();

private:
    void Fill();
    void Take();

    kv::Workspace& ws_;
    kv::CostDataScreen screen_;
    QComboBox* modes_ = nullptr;
    QTableWidget* grid_ = nullptr;
    QLabel* message_ = nullptr;
};

// The detail price grid of one size: its sum becomes the purchase price.
class DetailPriceDialog : public QDialog {
    Q_OBJECT
public:
    DetailPriceDialog(kv::Workspace& ws, kv::CostDataScreen& screen, const kv::DetailGrid& grid, QWidget* parent);
    bool Apply();
    QTableWidget* Grid() const { return table_; }

signals:
    void applied();

private:
    kv::Workspace& ws_;
    kv::CostDataScreen& screen_;
    kv::DetailGrid grid_;
    QTableWidget* table_ = nullptr;
    QLabel* sum_ = nullptr;
};

class ExportDialog : public QDialog {
    Q_OBJECT
public:
    ExportDialog(kv::Workspace& ws, kv::CostingMode mode, QWidget* parent = nullptr);
    kv::ExportScreen& Model() { return screen_; }
    bool Export();
    void Merge();
    bool Workbook();
    QString MailAddress() const;
    void InsertRow();
    void DeleteRow();
    void CopyRows();
    void PasteRows();

private:
    void Fill();

    kv::Workspace& ws_;
    kv::ExportScreen screen_;
    QTableWidget* grid_ = nullptr;
    QComboBox* target_ = nullptr;
    QLineEdit* directory_ = nullptr;
    QLineEdit* file_ = nullptr;
    QLabel* sums_ = nullptr;
    QLabel* message_ = nullptr;
    bool filling_ = false;
};

}  // namespace kvui
