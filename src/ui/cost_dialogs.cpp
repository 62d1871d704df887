#include "ui/cost_dialogs.h"

#include <QComboBox>
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
#include "shell/workspace.h"
#include "ui/qt_interface.h"
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
    QPushButton* save = NamedButton(Q(c[kv::Cap::Save]), "Save");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(rates, &QPushButton::clicked, this, &CostDataDialog::PricesFromRates);
    connect(save, &QPushButton::clicked, this, &CostDataDialog::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(rates);
    buttons->addStretch(1);
    buttons->addWidget(save);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(modes_);
    layout->addWidget(grid_, 1);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    ShowMode(601);
    resize(900, 560);
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
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {merge, start, book, mail}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid_, 1);
    layout->addWidget(sums_);
    layout->addLayout(form);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    sums_->setVisible(mode == kv::CostingMode::Costing);
    Fill();
    resize(mode == kv::CostingMode::Costing ? 1200 : 900, 600);
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

QString ExportDialog::MailAddress() const { return Q(kv::EnquiryMailUrl(ws_, screen_.grid)); }

}  // namespace kvui
