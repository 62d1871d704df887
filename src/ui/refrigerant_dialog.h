// The refrigerant window over the core's model: the fluids in one grid, the
// chosen fluid's saturation table in another, its p(t) and h,log p views
// below, and the CSV export of the table.
#pragma once

#include <QDialog>

#include <vector>

#include "refrigerant/refrigerant_window.h"

class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class PictureView;

class RefrigerantDialog : public QDialog {
    Q_OBJECT
public:
    explicit RefrigerantDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    // Shows the fluid of `row` of the fluid grid; false for no such row.
    bool ChooseFluid(int row);
    bool ExportCsv(const QString& file);
    const std::vector<kv::SaturationLine>& Table() const { return lines_; }

private:
    kv::Workspace& ws_;
    std::vector<kv::FluidSummary> fluids_;
    std::vector<kv::SaturationLine> lines_;
    QTableWidget* fluidGrid_ = nullptr;
    QTableWidget* satGrid_ = nullptr;
    PictureView* pressureView_ = nullptr;
    PictureView* domeView_ = nullptr;
};

}  // namespace kvui
