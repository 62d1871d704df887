#include "ui/cost_dialogs.h"

#include <algorithm>

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QDesktopServices>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"
#include "ui/screen_fit.h"
#include "workbook/workbook.h"

namespace kvui {

CostDataDialog::CostDataDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("CalcList"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::CostDataTitle]));
    modes_ = new QComboBox;
    modes_->setObjectName(QStringLiteral("Tables"));
    for (int mode : kv::CostDataModes()) modes_->addItem(Q(kv::CostDataTitle(ws_, mode)), mode);
    connect(modes_, &QComboBox::currentIndexChanged, this, [this](int i) { ShowMode(modes_->itemData(i).toInt()); });
    grid_ = new QTableWidget;
    grid_->setObjectName(QStringLiteral("CostGrid"));
    grid_->horizontalHeader()->setStretchLastSection(true);
    message_ = new QLabel;
    QPushButton* rates = NamedButton(Q(c[kv::Cap::SellingPrice]) + QStringLiteral(" = f(") + Q(c[kv::Cap::LabourRate]) +
                                         QLatin1Char(')'),
                                     "PricesFromRates");
    QPushButton* detail = NamedButton(Q(c[kv::Cap::FixingMaterial]) + QStringLiteral(" ..."), "Detail");
    QPushButton* save = NamedButton(Q(c[kv::Cap::Save]), "Save");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(detail, &QPushButton::clicked, this, [this] {
        if (auto* d = OpenDetail()) d->open();
    });
    connect(rates, &QPushButton::clicked, this, &CostDataDialog::PricesFromRates);
    connect(save, &QPushButton::clicked, this, &CostDataDialog::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(rates);
    buttons->addWidget(detail);
    buttons->addStretch(1);
    buttons->addWidget(save);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(modes_);
    layout->addWidget(grid_, 1);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    ShowMode(601);
    FitToScreen(ws_, this, QSize(900, 560));
}

void CostDataDialog::ShowMode(int mode) {
    kv::OpenCostData(ws_, screen_, mode);
    Fill();
}

void CostDataDialog::Fill() {
    grid_->clear();
    grid_->setColumnCount(static_cast<int>(screen_.heads.size()));
    QStringList heads;
    for (const std::string& h : screen_.heads) heads << Q(h);
    grid_->setHorizontalHeaderLabels(heads);
    grid_->setRowCount(static_cast<int>(screen_.grid.size()));
    QStringList labels;
    for (const std::string& l : screen_.rowLabels) labels << Q(l);
    if (!labels.isEmpty()) grid_->setVerticalHeaderLabels(labels);
    for (int r = 0; r < static_cast<int>(screen_.grid.size()); ++r)
        for (int col = 0; col < static_cast<int>(screen_.grid[static_cast<std::size_t>(r)].size()); ++col)
            grid_->setItem(r, col, new QTableWidgetItem(Q(screen_.grid[static_cast<std::size_t>(r)][static_cast<std::size_t>(col)])));
    grid_->resizeColumnsToContents();
}

void CostDataDialog::Take() {
    for (int r = 0; r < grid_->rowCount() && r < static_cast<int>(screen_.grid.size()); ++r)
        for (int col = 0; col < grid_->columnCount(); ++col) {
            auto& row = screen_.grid[static_cast<std::size_t>(r)];
            if (col >= static_cast<int>(row.size())) continue;
            QTableWidgetItem* item = grid_->item(r, col);
            row[static_cast<std::size_t>(col)] = item ? item->text().toStdString() : std::string();
        }
}

bool CostDataDialog::Save() {
    Take();
    const bool ok = kv::SaveCostData(ws_, screen_);
    message_->setText(Q(screen_.file) + (ok ? QStringLiteral(" ✓") : QStringLiteral(" ✗")));
    return ok;
}

DetailPriceDialog* CostDataDialog::OpenDetail() {
    Take();
    kv::DetailGrid grid;
    if (!kv::OpenDetailGrid(ws_, screen_, grid_->currentRow(), grid)) return nullptr;
    auto* d = new DetailPriceDialog(ws_, screen_, grid, this);
    d->setAttribute(Qt::WA_DeleteOnClose);
    d->setWindowModality(Qt::WindowModal);
    connect(d, &DetailPriceDialog::applied, this, &CostDataDialog::Fill);
    return d;
}

DetailPriceDialog::DetailPriceDialog(kv::Workspace& ws, kv::CostDataScreen& screen, const kv::DetailGrid& grid,
                                     QWidget* parent)
    : QDialog(parent), ws_(ws), screen_(screen), grid_(grid) {
    setObjectName(QStringLiteral("DetailPrices"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::FixingMaterial]) + QStringLiteral(" - ") + Q(grid_.file));
    table_ = new QTableWidget(kv::kDetailRows, 6);
    table_->setObjectName(QStringLiteral("DetailGrid"));
    table_->setHorizontalHeaderLabels({QString(), Q(c[kv::Cap::ColQuantity]), Q(c[kv::Cap::Unit]),
                                       Q(c[kv::Cap::TypeDesignation]), QString(), Q(c[kv::Cap::Price])});
    // The widths of the grid in the proportions 400 : 800 : 800 : 1500 : 1200 : 1200.
    const int widths[6] = {160, 70, 60, 200, 80, 90};
    for (int col = 0; col < 6; ++col) table_->setColumnWidth(col, widths[col]);
    for (int r = 0; r < kv::kDetailRows; ++r)
        for (int col = 0; col < 6; ++col)
            table_->setItem(r, col, new QTableWidgetItem(Q(grid_.rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(col)])));
    sum_ = new QLabel;
    connect(table_, &QTableWidget::cellChanged, this, [this] {
        for (int r = 0; r < kv::kDetailRows; ++r)
            for (int col = 0; col < 6; ++col)
                if (QTableWidgetItem* item = table_->item(r, col))
                    grid_.rows[static_cast<std::size_t>(r)][static_cast<std::size_t>(col)] = item->text().toStdString();
        sum_->setText(Q(kv::NumberText(kv::DetailPurchase(grid_))));
    });
    sum_->setText(Q(kv::NumberText(kv::DetailPurchase(grid_))));
    QPushButton* ok = NamedButton(Q(c[kv::Cap::Apply]), "Apply");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(ok, &QPushButton::clicked, this, [this] {
        if (Apply()) accept();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QLabel(Q(c[kv::Cap::PurchasePrice]) + QLatin1Char(':')));
    buttons->addWidget(sum_);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(table_, 1);
    layout->addLayout(buttons);
    FitToScreen(ws_, this, QSize(720, 520));
}

bool DetailPriceDialog::Apply() {
    const bool ok = kv::ApplyDetailGrid(ws_, screen_, grid_);
    emit applied();
    return ok;
}

void CostDataDialog::PricesFromRates() {
    Take();
    kv::PricesFromRates(ws_, screen_);
    Fill();
}

ExportDialog::ExportDialog(kv::Workspace& ws, kv::CostingMode mode, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("KVexport"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[mode == kv::CostingMode::Costing ? kv::Cap::BtnCosting : kv::Cap::BtnExport]));
    kv::OpenExportScreen(ws_, screen_, mode);
    grid_ = new QTableWidget(0, kv::ExportColumns(mode));
    grid_->setObjectName(QStringLiteral("ExSpread"));
    QStringList heads;
    for (const std::string& h : kv::ExportHeads(ws_, mode)) heads << Q(h);
    grid_->setHorizontalHeaderLabels(heads);
    connect(grid_, &QTableWidget::cellChanged, this, [this](int row, int column) {
        if (filling_) return;
        QTableWidgetItem* item = grid_->item(row, column);
        kv::EditExportCell(ws_, screen_, row, column, item ? item->text().toStdString() : std::string());
        Fill();
    });
    target_ = new QComboBox;
    target_->setObjectName(QStringLiteral("Target"));
    for (std::string_view t : kv::kExportTargets) target_->addItem(Q(std::string(t)));
    target_->addItem(QStringLiteral("Workbook (*.xlsx)"));  // the fourth target: a real workbook
    target_->setCurrentText(Q(screen_.target));
    directory_ = new QLineEdit(Q(screen_.directory));
    directory_->setObjectName(QStringLiteral("Directory"));
    file_ = new QLineEdit(Q(screen_.fileName));
    file_->setObjectName(QStringLiteral("FileName"));
    sums_ = new QLabel;
    sums_->setObjectName(QStringLiteral("Sums"));
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Message"));
    auto* form = new QFormLayout;
    form->addRow(Q(c[kv::Cap::ExportTarget]), target_);
    form->addRow(Q(c[kv::Cap::PathWord]), directory_);
    form->addRow(Q(c[kv::Cap::FileName]), file_);

    QPushButton* insert = NamedButton(Q(c[kv::Cap::InsertRow]), "InsertRow");
    QPushButton* remove = NamedButton(Q(c[kv::Cap::DeleteRow]), "DeleteRow");
    QPushButton* copy = NamedButton(Q(c[kv::Cap::Copy]), "Copy");
    QPushButton* paste = NamedButton(Q(c[kv::Cap::Paste]), "Paste");
    connect(insert, &QPushButton::clicked, this, &ExportDialog::InsertRow);
    connect(remove, &QPushButton::clicked, this, &ExportDialog::DeleteRow);
    connect(copy, &QPushButton::clicked, this, &ExportDialog::CopyRows);
    connect(paste, &QPushButton::clicked, this, &ExportDialog::PasteRows);
    QPushButton* merge = NamedButton(Q(c[kv::Cap::MergeRows]), "StK_add");
    QPushButton* start = NamedButton(Q(c[kv::Cap::StartExport]), "Export");
    QPushButton* book = NamedButton(Q(c[kv::Cap::EnquiryWorkbook]), "Workbook");
    QPushButton* mail = NamedButton(Q(c[kv::Cap::EnquiryMail]), "Mail");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(merge, &QPushButton::clicked, this, &ExportDialog::Merge);
    connect(start, &QPushButton::clicked, this, &ExportDialog::Export);
    connect(book, &QPushButton::clicked, this, [this] {
        if (Workbook()) QDesktopServices::openUrl(QUrl::fromLocalFile(Q(kv::WorkbookPath(ws_))));
    });
    connect(mail, &QPushButton::clicked, this, [this] { QDesktopServices::openUrl(QUrl(MailAddress())); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* edit = new QHBoxLayout;
    for (QPushButton* b : {insert, remove, copy, paste}) edit->addWidget(b);
    edit->addStretch(1);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {merge, start, book, mail}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid_, 1);
    layout->addLayout(edit);
    layout->addWidget(sums_);
    layout->addLayout(form);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    sums_->setVisible(mode == kv::CostingMode::Costing);
    Fill();
    FitToScreen(ws_, this, QSize(mode == kv::CostingMode::Costing ? 1200 : 900, 600));
}

void ExportDialog::Fill() {
    filling_ = true;
    const int columns = grid_->columnCount();
    grid_->setRowCount(static_cast<int>(screen_.grid.size()) + 16);
    for (int r = 0; r < grid_->rowCount(); ++r)
        for (int col = 0; col < columns; ++col) {
            const QString text = r < static_cast<int>(screen_.grid.size())
                                     ? Q(screen_.grid[static_cast<std::size_t>(r)][static_cast<std::size_t>(col)])
                                     : QString();
            auto* item = new QTableWidgetItem(text);
            if (col == 0 || col >= 7) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            grid_->setItem(r, col, item);
        }
    grid_->resizeColumnsToContents();
    QString sums;
    for (const std::string& line : kv::SumLines(ws_, screen_)) sums += Q(line) + QStringLiteral("     ");
    sums_->setText(sums);
    filling_ = false;
}

bool ExportDialog::Export() {
    screen_.target = target_->currentText().toStdString();
    screen_.directory = directory_->text().toStdString();
    screen_.fileName = file_->text().toStdString();
    if (target_->currentIndex() == static_cast<int>(kv::kExportTargets.size())) {
        if (screen_.fileName.empty()) screen_.fileName = ws_.project.ProjektNam + "_01.xlsx";
        std::string error;
        const std::string path = (screen_.directory.empty() ? std::string(".") : screen_.directory) + "/" + screen_.fileName;
        const bool ok = kvbook::WriteWorkbook(path, kv::EnquiryWorkbook(ws_, screen_.grid), ws_.project.ProjektNam, error);
        message_->setText(ok ? Q(path) : Q(error));
        return ok;
    }
    const bool ok = kv::RunExport(ws_, screen_);
    message_->setText(Q(screen_.message));
    return ok;
}

void ExportDialog::Merge() {
    kv::MergeExportRows(ws_, screen_);
    Fill();
}

bool ExportDialog::Workbook() {
    std::string error;
    const bool ok = kvbook::WriteWorkbook(kv::WorkbookPath(ws_), kv::EnquiryWorkbook(ws_, screen_.grid),
                                          ws_.project.ProjektNam, error);
    message_->setText(ok ? Q(kv::WorkbookPath(ws_)) : Q(error));
    return ok;
}

void ExportDialog::InsertRow() {
    kv::InsertExportRow(ws_, screen_, std::max(0, grid_->currentRow()));
    Fill();
}

void ExportDialog::DeleteRow() {
    kv::DeleteExportRow(ws_, screen_, grid_->currentRow());
    Fill();
}

void ExportDialog::CopyRows() {
    int first = grid_->currentRow(), last = first;
    for (const QTableWidgetSelectionRange& r : grid_->selectedRanges()) {
        first = std::min(first, r.topRow());
        last = std::max(last, r.bottomRow());
    }
    QGuiApplication::clipboard()->setText(Q(kv::CopyExportRows(screen_, first, last - first + 1)));
}

void ExportDialog::PasteRows() {
    kv::PasteExportText(ws_, screen_, std::max(0, grid_->currentRow()), std::max(0, grid_->currentColumn()),
                        QGuiApplication::clipboard()->text().toStdString());
    Fill();
}

QString ExportDialog::MailAddress() const { return Q(kv::EnquiryMailUrl(ws_, screen_.grid)); }

}  // namespace kvui
