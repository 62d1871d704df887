#include "ui/list_dialogs.h"

#include <algorithm>

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include "project/field_checks.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/cost_dialogs.h"
#include "ui/ped_dialog.h"
#include "ui/qt_interface.h"
#include "ui/screen_fit.h"

namespace kvui {

namespace {

// Columns the screen shows: the change items of a parts or units row stay
// in the model, out of sight.
int Visible(std::string_view file) { return std::min(9, kv::GridColumns(file)); }

// The costing check box of a tab; the PED list has none.
int CostingIndex(std::string_view file) {
    for (std::size_t i = 0; i < kv::kCostingLists.size(); ++i)
        if (kv::kCostingLists[i] == file) return static_cast<int>(i);
    return -1;
}

}  // namespace

ListDialog::ListDialog(kv::Workspace& ws, const QString& file, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("PartsListScreen"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::MenuGroupLists]) + QStringLiteral(" - ") + Q(ws_.project.ProjektNam));
    tabs_ = new QTabWidget;
    tabs_->setObjectName(QStringLiteral("Lists"));
    const std::array<bool, 5> choice = kv::ReadCostingChoice(ws_);
    for (std::size_t t = 0; t < kv::kScreenLists.size(); ++t) {
        const std::string_view name = kv::kScreenLists[t];
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        auto* grid = new QTableWidget(0, Visible(name));
        grid->setObjectName(Q(std::string(name)));
        QStringList heads;
        for (const std::string& h : kv::ColumnCaptions(ws_, name)) heads << Q(h);
        grid->setHorizontalHeaderLabels(heads);
        grid->setSelectionBehavior(QAbstractItemView::SelectRows);
        grid->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
        grid->horizontalHeader()->setStretchLastSection(true);
        connect(grid, &QTableWidget::cellChanged, this, [this, t](int row, int column) {
            Edited(static_cast<int>(t), row, column);
        });
        layout->addWidget(grid);
        if (const int k = CostingIndex(name); k >= 0) {
            auto* box = new QCheckBox(Q(c[kv::Cap::BtnCosting]));
            box->setObjectName(QStringLiteral("Costing"));
            box->setChecked(choice[static_cast<std::size_t>(k)]);
            connect(box, &QCheckBox::toggled, this, [this] {
                std::array<bool, 5> on{};
                for (std::size_t i = 0; i < kv::kScreenLists.size(); ++i)
                    if (const int j = CostingIndex(kv::kScreenLists[i]); j >= 0 && costing_[i])
                        on[static_cast<std::size_t>(j)] = costing_[i]->isChecked();
                kv::WriteCostingChoice(ws_, on);
            });
            costing_[t] = box;
            layout->addWidget(box);
        }
        grids_[t] = grid;
        tabs_->addTab(page, Q(kv::ListTitle(ws_, name)));
        kv::OpenList(ws_, models_[t], name);
        Fill(static_cast<int>(t));
    }

    QPushButton* insert = NamedButton(Q(c[kv::Cap::InsertRow]), "InsertRow");
    QPushButton* remove = NamedButton(Q(c[kv::Cap::DeleteRow]), "DeleteRow");
    QPushButton* copy = NamedButton(Q(c[kv::Cap::Copy]), "Copy");
    QPushButton* paste = NamedButton(Q(c[kv::Cap::Paste]), "Paste");
    QPushButton* reselect = NamedButton(Q(c[kv::Cap::BtnReselect]), "Reselect");
    QPushButton* ped = NamedButton(Q(c[kv::Cap::PedList]), "RebuildPed");
    QPushButton* protocol = NamedButton(Q(c[kv::PedWord::Protocol]) + QStringLiteral(" PED"), "PedProtocol");
    // The lists of the stored project, copied item by item in and out.
    const QString stored = Q(ws_.project.ProjektDatei);
    QPushButton* fromProject = NamedButton(Q(c[kv::Cap::Load]) + QStringLiteral(" ← ") + stored, "ListsFromProject");
    QPushButton* toProject = NamedButton(Q(c[kv::Cap::Save]) + QStringLiteral(" → ") + stored, "ListsToProject");
    fromProject->setEnabled(!stored.isEmpty());
    toProject->setEnabled(!stored.isEmpty());
    connect(fromProject, &QPushButton::clicked, this, [this] {
        kv::CopyListsItemwise(ws_, ws_.project.ProjektDatei, ws_.project.ProjektVerz, false);
        for (std::size_t t = 0; t < kv::kScreenLists.size(); ++t) {
            kv::OpenList(ws_, models_[t], kv::kScreenLists[t]);
            Fill(static_cast<int>(t));
        }
    });
    connect(toProject, &QPushButton::clicked, this,
            [this] { kv::CopyListsItemwise(ws_, ws_.project.ProjektDatei, ws_.project.ProjektVerz, true); });
    QPushButton* orders = NamedButton(Q(c[kv::Cap::OrderNumbersTitle]), "BestellN");
    QPushButton* costing = NamedButton(Q(c[kv::Cap::BtnCosting]), "CalcAnfang");
    QPushButton* exporting = NamedButton(Q(c[kv::Cap::BtnExport]), "ExportStart");
    QPushButton* costData = NamedButton(Q(c[kv::Cap::CostDataTitle]), "CostData");
    auto open = [this](QDialog* d) {
        d->setAttribute(Qt::WA_DeleteOnClose);
        d->setWindowModality(Qt::WindowModal);
        d->open();
    };
    connect(costing, &QPushButton::clicked, this, [this, open] { open(new ExportDialog(ws_, kv::CostingMode::Costing, this)); });
    connect(exporting, &QPushButton::clicked, this, [this, open] { open(new ExportDialog(ws_, kv::CostingMode::Export, this)); });
    connect(costData, &QPushButton::clicked, this, [this, open] { open(new CostDataDialog(ws_, this)); });
    QPushButton* save = NamedButton(Q(c[kv::Cap::Save]), "Save");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(orders, &QPushButton::clicked, this, [this] {
        auto* d = new OrderNumbersDialog(ws_, this);
        d->setAttribute(Qt::WA_DeleteOnClose);
        d->setWindowModality(Qt::WindowModal);
        d->open();
    });
    connect(protocol, &QPushButton::clicked, this, [this] {
        auto* d = new PedDialog(ws_, this);
        d->setAttribute(Qt::WA_DeleteOnClose);
        d->setWindowModality(Qt::WindowModal);
        d->open();
    });
    connect(insert, &QPushButton::clicked, this, &ListDialog::InsertRow);
    connect(remove, &QPushButton::clicked, this, &ListDialog::DeleteRows);
    connect(copy, &QPushButton::clicked, this, &ListDialog::CopyRows);
    connect(paste, &QPushButton::clicked, this, &ListDialog::PasteRows);
    connect(reselect, &QPushButton::clicked, this, &ListDialog::Reselect);
    connect(ped, &QPushButton::clicked, this, &ListDialog::RebuildPed);
    connect(save, &QPushButton::clicked, this, &ListDialog::Save);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Message"));
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {insert, remove, copy, paste, reselect, ped}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(save);
    buttons->addWidget(close);
    // The work on the whole set of lists: protocols, orders, costs, export.
    auto* further = new QHBoxLayout;
    for (QPushButton* b : {protocol, orders, costing, exporting, costData}) further->addWidget(b);
    further->addStretch(1);
    further->addWidget(fromProject);
    further->addWidget(toProject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_, 1);
    layout->addWidget(message_);
    layout->addLayout(further);
    layout->addLayout(buttons);
    for (std::size_t t = 0; t < kv::kScreenLists.size(); ++t)
        if (file.toStdString() == kv::kScreenLists[t]) tabs_->setCurrentIndex(static_cast<int>(t));
    FitToScreen(ws_, this, QSize(1100, 560));
}

void ListDialog::ShowList(int tab) { tabs_->setCurrentIndex(tab); }
int ListDialog::CurrentTab() const { return tabs_->currentIndex(); }

void ListDialog::Fill(int tab) {
    filling_ = true;
    const kv::ListScreen& m = models_[static_cast<std::size_t>(tab)];
    QTableWidget* g = grids_[static_cast<std::size_t>(tab)];
    const int columns = g->columnCount();
    g->setRowCount(static_cast<int>(m.grid.size()));
    for (int r = 0; r < static_cast<int>(m.grid.size()); ++r)
        for (int col = 0; col < columns; ++col) {
            const auto& row = m.grid[static_cast<std::size_t>(r)];
            const QString text = static_cast<std::size_t>(col) < row.size() ? Q(row[static_cast<std::size_t>(col)]) : QString();
            auto* item = new QTableWidgetItem(text);
            // Quantities, sizes and prices read best right-aligned.
            bool number = false;
            text.trimmed().toDouble(&number);
            if (number) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            g->setItem(r, col, item);
        }
    g->resizeColumnsToContents();
    filling_ = false;
}

void ListDialog::Edited(int tab, int row, int column) {
    if (filling_) return;
    QTableWidgetItem* item = grids_[static_cast<std::size_t>(tab)]->item(row, column);
    kv::SetCell(models_[static_cast<std::size_t>(tab)], row, column, item ? item->text().toStdString() : std::string());
}

std::pair<int, int> ListDialog::SelectedRows() const {
    QTableWidget* g = grids_[static_cast<std::size_t>(CurrentTab())];
    int first = -1, last = -1;
    for (const QTableWidgetSelectionRange& r : g->selectedRanges()) {
        first = first < 0 ? r.topRow() : std::min(first, r.topRow());
        last = std::max(last, r.bottomRow());
    }
    if (first < 0) first = last = g->currentRow();
    return {first, first < 0 ? 0 : last - first + 1};
}

bool ListDialog::Save() {
    const int t = CurrentTab();
    const bool ok = kv::SaveList(ws_, models_[static_cast<std::size_t>(t)]);
    message_->setText(ok ? Q(kv::ListTitle(ws_, kv::kScreenLists[static_cast<std::size_t>(t)])) + QStringLiteral(" ✓")
                         : Q(ws_.captions[kv::Cap::Save]) + QStringLiteral(" ✗"));
    // What the file now holds: a write ends at the list's end row.
    kv::OpenList(ws_, models_[static_cast<std::size_t>(t)], kv::kScreenLists[static_cast<std::size_t>(t)]);
    Fill(t);
    return ok;
}

void ListDialog::InsertRow() {
    const int t = CurrentTab();
    const int at = std::max(0, grids_[static_cast<std::size_t>(t)]->currentRow());
    kv::InsertRow(models_[static_cast<std::size_t>(t)], at);
    Fill(t);
    grids_[static_cast<std::size_t>(t)]->setCurrentCell(at, 0);
}

void ListDialog::DeleteRows() {
    const auto [first, count] = SelectedRows();
    kv::DeleteRows(models_[static_cast<std::size_t>(CurrentTab())], first, count);
    Fill(CurrentTab());
}

void ListDialog::CopyRows() {
    const auto [first, count] = SelectedRows();
    clipboard_ = kv::CopyRows(models_[static_cast<std::size_t>(CurrentTab())], first, count);
}

void ListDialog::PasteRows() {
    const int t = CurrentTab();
    const int at = std::max(0, grids_[static_cast<std::size_t>(t)]->currentRow());
    kv::PasteRows(models_[static_cast<std::size_t>(t)], at, clipboard_);
    Fill(t);
}

bool ListDialog::Reselect() {
    const int t = CurrentTab();
    const int row = grids_[static_cast<std::size_t>(t)]->currentRow();
    kv::ListScreen& m = models_[static_cast<std::size_t>(t)];
    m.message.clear();
    const bool ok = kv::ReselectRow(ws_, m, row);
    message_->setText(Q(m.message));
    Fill(t);
    return ok;
}

bool ListDialog::RebuildPed() {
    const bool ok = kv::RebuildPedList(ws_);
    const int t = static_cast<int>(kv::kScreenLists.size()) - 1;
    kv::OpenList(ws_, models_[static_cast<std::size_t>(t)], kv::kScreenLists[static_cast<std::size_t>(t)]);
    Fill(t);
    tabs_->setCurrentIndex(t);
    return ok;
}

LineElectricDialog::LineElectricDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("LineElectricScreen"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::LineDataTitle]));
    kv::OpenLineElectric(ws_, screen_);

    lines_ = new QTableWidget(kv::kLineSectionCount, 2);
    lines_->setObjectName(QStringLiteral("Lines"));
    lines_->setHorizontalHeaderLabels({Q(c[kv::Cap::Length]) + QStringLiteral(" /[m]"),
                                       Q(c[kv::Cap::HeightDifference]) + QStringLiteral(" /[m]")});
    QStringList rows;
    for (int i = 1; i <= kv::kLineSectionCount; ++i) rows << Q(kv::LineSectionCaption(ws_, i));
    lines_->setVerticalHeaderLabels(rows);
    lines_->horizontalHeader()->setStretchLastSection(true);
    lines_->setMinimumHeight(lines_->horizontalHeader()->sizeHint().height() +
                             kv::kLineSectionCount * lines_->verticalHeader()->defaultSectionSize() + 4);

    auto* thickness = new QFormLayout;
    const kv::Cap words[4] = {kv::Cap::LineSuction, kv::Cap::LineSuction, kv::Cap::LineSuction, kv::Cap::LineLiquid};
    const char* ranges[4] = {" (t0 ≥ 0 °C)", " (0 > t0 ≥ -15 °C)", " (t0 < -15 °C)", ""};
    for (int i = 1; i <= 4; ++i) {
        insulation_[static_cast<std::size_t>(i)] = new QLineEdit;
        insulation_[static_cast<std::size_t>(i)]->setObjectName(QStringLiteral("Insulation%1").arg(i));
        thickness->addRow(Q(c[kv::Cap::InsulationThickness]) + QStringLiteral(" /[mm], ") + Q(c[words[i - 1]]) +
                              QString::fromUtf8(ranges[i - 1]),
                          insulation_[static_cast<std::size_t>(i)]);
    }

    auto* standard = new QLabel(Q(c[kv::Cap::ElectricalStandard]) + QStringLiteral(": ") + Q(screen_.standard));
    standard->setObjectName(QStringLiteral("Standard"));
    wiring_ = new QTableWidget(0, 5);
    wiring_->setObjectName(QStringLiteral("Wiring"));
    wiring_->setHorizontalHeaderLabels({Q(c[kv::Cap::Consumer]), Q(c[kv::Cap::Length]) + QStringLiteral(" /[m]"),
                                        Q(c[kv::Cap::CrossSection]), Q(c[kv::Cap::ColComponent]),
                                        Q(c[kv::Cap::ColQuantity])});
    wiring_->horizontalHeader()->setSectionResizeMode(3, QHeaderView::Stretch);

    QPushButton* insert = NamedButton(Q(c[kv::Cap::InsertRow]), "InsertRow");
    QPushButton* remove = NamedButton(Q(c[kv::Cap::DeleteRow]), "DeleteRow");
    QPushButton* propose = NamedButton(Q(c[kv::Cap::ResetDefaults]), "Propose");
    QPushButton* apply = NamedButton(Q(c[kv::Cap::Apply]), "Apply");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(insert, &QPushButton::clicked, this, [this] {
        Take();
        const int at = std::clamp(wiring_->currentRow() + 1, 0, static_cast<int>(screen_.wiring.size()));
        screen_.wiring.insert(screen_.wiring.begin() + at, kv::WiringRow{});
        Fill();
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        Take();
        const int row = wiring_->currentRow();
        if (row >= 0 && row < static_cast<int>(screen_.wiring.size())) screen_.wiring.erase(screen_.wiring.begin() + row);
        Fill();
    });
    connect(propose, &QPushButton::clicked, this, &LineElectricDialog::Propose);
    connect(apply, &QPushButton::clicked, this, [this] {
        if (Apply()) accept();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Message"));
    message_->setWordWrap(true);
    auto* top = new QHBoxLayout;
    top->addWidget(lines_, 1);
    top->addLayout(thickness);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {insert, remove, propose}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(apply);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(standard);
    layout->addWidget(wiring_, 1);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    Fill();
    FitToScreen(ws_, this, QSize(980, 620));
}

void LineElectricDialog::Fill() {
    for (int i = 1; i <= kv::kLineSectionCount; ++i) {
        lines_->setItem(i - 1, 0, new QTableWidgetItem(Q(screen_.length[static_cast<std::size_t>(i)])));
        lines_->setItem(i - 1, 1, new QTableWidgetItem(Q(screen_.height[static_cast<std::size_t>(i)])));
    }
    for (int i = 1; i <= 4; ++i) insulation_[static_cast<std::size_t>(i)]->setText(Q(screen_.insulation[static_cast<std::size_t>(i)]));
    wiring_->setRowCount(static_cast<int>(screen_.wiring.size()));
    for (int r = 0; r < static_cast<int>(screen_.wiring.size()); ++r) {
        const kv::WiringRow& w = screen_.wiring[static_cast<std::size_t>(r)];
        const std::string* cells[5] = {&w.consumer, &w.length, &w.conductor, &w.component, &w.quantity};
        for (int col = 0; col < 5; ++col) wiring_->setItem(r, col, new QTableWidgetItem(Q(*cells[col])));
    }
    wiring_->resizeColumnsToContents();
}

void LineElectricDialog::Take() {
    auto text = [](QTableWidget* g, int r, int col) {
        QTableWidgetItem* item = g->item(r, col);
        return item ? item->text().toStdString() : std::string();
    };
    for (int i = 1; i <= kv::kLineSectionCount; ++i) {
        screen_.length[static_cast<std::size_t>(i)] = text(lines_, i - 1, 0);
        screen_.height[static_cast<std::size_t>(i)] = text(lines_, i - 1, 1);
    }
    for (int i = 1; i <= 4; ++i) screen_.insulation[static_cast<std::size_t>(i)] = insulation_[static_cast<std::size_t>(i)]->text().toStdString();
    screen_.wiring.resize(static_cast<std::size_t>(wiring_->rowCount()));
    for (int r = 0; r < wiring_->rowCount(); ++r) {
        kv::WiringRow& w = screen_.wiring[static_cast<std::size_t>(r)];
        w = {text(wiring_, r, 0), text(wiring_, r, 1), text(wiring_, r, 2), text(wiring_, r, 3), text(wiring_, r, 4)};
    }
}

bool LineElectricDialog::Apply() {
    Take();
    const bool ok = kv::ApplyLineElectric(ws_, screen_);
    QString text;
    for (const std::string& m : screen_.messages) text += Q(m) + QLatin1Char('\n');
    message_->setText(text.trimmed());
    return ok;
}

void LineElectricDialog::Propose() {
    Take();
    screen_.wiring = kv::ProposeWiring(ws_);
    Fill();
}

OrderNumbersDialog::OrderNumbersDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("BestellN"));
    const kv::Captions& c = ws.captions;
    setWindowTitle(Q(c[kv::Cap::OrderNumbersTitle]));
    kv::OpenOrderNumbers(ws, screen_);
    auto* makers = makers_ = new QComboBox;
    makers->setObjectName(QStringLiteral("Makers"));
    makers->addItem(QStringLiteral("*"));
    for (const std::string& m : screen_.makers) makers->addItem(Q(m));
    connect(makers, &QComboBox::currentIndexChanged, this, [this](int i) { ChooseMaker(i - 1); });
    grid_ = ChoiceGrid({Q(c[kv::Cap::ColQuantity]), Q(c[kv::Cap::ColOrderNo]), Q(c[kv::Cap::TypeDesignation]),
                        Q(c[kv::Cap::ColComponent]), Q(c[kv::Cap::Manufacturer])},
                       "Orders");
    QPushButton* copy = NamedButton(Q(c[kv::Cap::Copy]), "Copy");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(copy, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(Q(kv::OrderText(screen_))); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* top = new QFormLayout;
    top->addRow(Q(c[kv::Cap::Manufacturer]), makers);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(copy);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(grid_, 1);
    layout->addLayout(buttons);
    Fill();
    FitToScreen(ws, this, QSize(820, 480));
}

void OrderNumbersDialog::ChooseMaker(int maker) {
    kv::ChooseOrderMaker(screen_, maker);
    const QSignalBlocker quiet(makers_);
    makers_->setCurrentIndex(screen_.maker + 1);
    Fill();
}

void OrderNumbersDialog::Fill() {
    grid_->setRowCount(static_cast<int>(screen_.shown.size()));
    for (int r = 0; r < static_cast<int>(screen_.shown.size()); ++r) {
        const kv::OrderLine& l = screen_.shown[static_cast<std::size_t>(r)];
        const QString cells[5] = {QString::number(l.quantity), Q(l.orderNumber), Q(l.designation), Q(l.kind),
                                  Q(l.maker)};
        for (int col = 0; col < 5; ++col) grid_->setItem(r, col, new QTableWidgetItem(cells[col]));
    }
    grid_->resizeColumnsToContents();
}

}  // namespace kvui
