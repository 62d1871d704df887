#include "ui/selection_dialogs.h"

#include <QBrush>
#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include "catalogue/matchcode.h"
#include "shell/captions.h"
#include "shell/text.h"
#include "shell/numbers.h"
#include "shell/workspace.h"
#include "ui/list_dialogs.h"
#include "ui/qt_interface.h"

namespace kvui {

namespace {

QColor BandColor(kv::CapacityBand band) {
    switch (band) {
    case kv::CapacityBand::Near: return QColor(0x80, 0xff, 0x80);
    case kv::CapacityBand::Usable: return QColor(0xff, 0xff, 0x80);
    default: return QColor(0xff, 0x80, 0x80);
    }
}

QString Figure(double v) { return Q(kv::NumberText(kv::Cut(v, 2))); }

}  // namespace

AccessorySelectionDialog::AccessorySelectionDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("ArmSelek"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::AccessorySelectionTitle]));
    kv::OpenAccessorySelection(ws_, screen_);

    auto* kinds = new QGridLayout;
    for (int slot = 1; slot <= kv::kSlotCount; ++slot) {
        const std::string name = "bt" + std::to_string(slot);
        auto* b = NamedButton(QString(), name.c_str());
        connect(b, &QPushButton::clicked, this, [this, slot] { ChooseKind(slot); });
        kinds->addWidget(b, (slot - 1) / 6, (slot - 1) % 6);
    }
    makers_ = new QListWidget;
    makers_->setObjectName(QStringLiteral("Herstellerlist"));
    series_ = new QListWidget;
    series_->setObjectName(QStringLiteral("ReiheList"));
    articles_ = new QListWidget;
    articles_->setObjectName(QStringLiteral("BTList"));
    chosen_ = new QTableWidget(kv::kSlotCount, 3);
    chosen_->setObjectName(QStringLiteral("aktBTsp"));
    chosen_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    chosen_->setHorizontalHeaderLabels({Q(c[kv::Cap::ColComponent]), Q(c[kv::Cap::CatalogueTitle]),
                                        Q(c[kv::Cap::Series])});
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Meldung"));
    connect(makers_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (filling_) return;
        kv::ChooseMaker(screen_, row);
        FillLists();
    });
    connect(series_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!filling_) ChooseSeries(row);
    });

    auto* use = NamedButton(Q(c[kv::Cap::UseSeries]), "einfuegbutt");
    auto* clear = NamedButton(Q(c[kv::Cap::ClearPreselection]), "delVerd");
    auto* adopt = NamedButton(Q(c[kv::Cap::PreselectUnit]), "ueberN");
    auto* table = NamedButton(Q(c[kv::Cap::ComponentSelectionTitle]), "VentZeig");
    auto* start = NamedButton(Q(c[kv::Cap::StartDesign]), "AuslegStart");
    auto* orders = NamedButton(Q(c[kv::Cap::OrderNumbersTitle]), "BestellN");
    connect(orders, &QPushButton::clicked, this, [this] {
        auto* d = new OrderNumbersDialog(ws_, this);
        d->setAttribute(Qt::WA_DeleteOnClose);
        d->setWindowModality(Qt::WindowModal);
        d->open();
    });
    auto* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    auto* quick = new QRadioButton(Q(c[kv::Cap::QuickSelection]));
    quick->setObjectName(QStringLiteral("SchnellAW"));
    auto* single = new QRadioButton(Q(c[kv::Cap::SingleSelection]));
    single->setObjectName(QStringLiteral("EinzelAW"));
    quick->setChecked(screen_.quick);
    single->setChecked(!screen_.quick);
    connect(quick, &QRadioButton::toggled, this, [this](bool on) { screen_.quick = on; });
    connect(use, &QPushButton::clicked, this, [this] {
        if (kv::UseChosenSeries(screen_)) FillKinds();
    });
    connect(clear, &QPushButton::clicked, this, [this] { kv::ClearPreselection(ws_); });
    connect(adopt, &QPushButton::clicked, this, [this] { kv::AdoptMainUnit(ws_, screen_, articles_->currentRow()); });
    connect(table, &QPushButton::clicked, this, [this] { ShowTable(); });
    connect(start, &QPushButton::clicked, this, [this] {
        kv::StartListGeneration(ws_, screen_);
        message_->setText(Q(screen_.message));
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* lists = new QHBoxLayout;
    lists->addWidget(makers_);
    lists->addWidget(series_);
    lists->addWidget(articles_);
    auto* actions = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(use), static_cast<QWidget*>(adopt), static_cast<QWidget*>(table),
                       static_cast<QWidget*>(clear), static_cast<QWidget*>(quick), static_cast<QWidget*>(single),
                       static_cast<QWidget*>(start), static_cast<QWidget*>(orders), static_cast<QWidget*>(close)})
        actions->addWidget(w);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(kinds);
    layout->addLayout(lists);
    layout->addWidget(chosen_);
    layout->addWidget(message_);
    layout->addLayout(actions);
    FillKinds();
    ChooseKind(1);
}

void AccessorySelectionDialog::FillKinds() {
    for (int slot = 1; slot <= kv::kSlotCount; ++slot) {
        const kv::SeriesChoice& row = screen_.aktBTsp[static_cast<std::size_t>(slot - 1)];
        const QString caption = row.caption.empty() ? QString::number(slot) : Q(row.caption);
        if (auto* b = findChild<QPushButton*>(QStringLiteral("bt%1").arg(slot))) b->setText(caption);
        chosen_->setItem(slot - 1, 0, new QTableWidgetItem(caption));
        chosen_->setItem(slot - 1, 1, new QTableWidgetItem(Q(row.file)));
        chosen_->setItem(slot - 1, 2, new QTableWidgetItem(QString::number(row.position)));
    }
}

void AccessorySelectionDialog::FillLists() {
    filling_ = true;
    if (makers_->count() != static_cast<int>(screen_.makers.size())) {
        makers_->clear();
        for (const std::string& m : screen_.makers) makers_->addItem(Q(m));
    }
    series_->clear();
    for (int i : screen_.shownSeries) {
        series_->addItem(Q(screen_.series[static_cast<std::size_t>(i)].series));
        if (i == screen_.seriesIndex) series_->setCurrentRow(series_->count() - 1);
    }
    articles_->clear();
    for (const kv::SeriesArticle& a : screen_.articles)
        articles_->addItem(Q(a.article.Field(kv::field::Type) + "  " + a.article.Field(kv::field::OrderNumber)));
    filling_ = false;
}

void AccessorySelectionDialog::ChooseKind(int slot) {
    kv::ChooseKind(ws_, screen_, slot);
    makers_->clear();
    FillLists();
}

void AccessorySelectionDialog::ChooseSeries(int row) {
    kv::ChooseSeries(ws_, screen_, row);
    FillLists();
}

void AccessorySelectionDialog::ShowTable() {
    std::string base;
    int position = 0;
    if (screen_.seriesIndex >= 0) {
        base = screen_.series[static_cast<std::size_t>(screen_.seriesIndex)].base;
        position = screen_.series[static_cast<std::size_t>(screen_.seriesIndex)].position;
    }
    auto* dialog = new ComponentSelectionDialog(ws_, kv::SeriesPosition(kv::SlotCode(screen_.slot)), base, position, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void AccessorySelectionDialog::done(int result) {
    kv::LeaveAccessorySelection(ws_, screen_);
    QDialog::done(result);
}

ComponentSelectionDialog::ComponentSelectionDialog(kv::Workspace& ws, int catalogPosition, const std::string& base,
                                                   int position, QWidget* parent)
    : QDialog(parent), ws_(ws), catalogPosition_(catalogPosition) {
    setObjectName(QStringLiteral("VentZeig"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::ComponentSelectionTitle]));
    const bool brine = kv::UpperAscii(kv::Trim(ws_.project.AnlagenTyp)) == "SOLE";
    kv::EnsureMatchcode(ws_);
    series_ = kv::LookupSeries(ws_, catalogPosition - 2, brine ? 'C' : 'I');
    seriesList_ = new QListWidget;
    seriesList_->setObjectName(QStringLiteral("SeriesList"));
    for (const kv::SeriesEntry& e : series_) seriesList_->addItem(Q(e.title + " - " + e.series));
    grid_ = new QTableWidget(0, 6);
    grid_->setObjectName(QStringLiteral("venttab"));
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    const std::vector<std::string> head = kv::KopfZeile("kW");
    grid_->setHorizontalHeaderLabels({Q(c[kv::Cap::TypeDesignation]), Q(c[kv::Cap::Articles]),
                                      Q(c[kv::Cap::CapacityAtDuty]) + Q(head[1]), Q(c[kv::Cap::EnergyClass]),
                                      Q(c[kv::Cap::Manufacturer]), QStringLiteral("da")});
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Meldung"));
    auto* adopt = NamedButton(Q(c[kv::Cap::Select]), "VentUeberNehm");
    auto* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(seriesList_, &QListWidget::currentRowChanged, this, [this](int row) { ShowSeries(row); });
    connect(grid_, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { Adopt(row); });
    connect(adopt, &QPushButton::clicked, this, [this] { Adopt(grid_->currentRow()); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* body = new QHBoxLayout;
    body->addWidget(seriesList_, 1);
    body->addWidget(grid_, 4);
    auto* actions = new QHBoxLayout;
    // A compressor series is rated at the inverter frequency of the plant.
    if (catalogPosition_ - 2 == 550) {
        frequency_ = new QSpinBox;
        frequency_->setObjectName(QStringLiteral("Frequency"));
        const int low = static_cast<int>(kv::ToNumber(ws_.project.InverterMin)), high = static_cast<int>(kv::ToNumber(ws_.project.InverterMax));
        frequency_->setRange(std::min(low > 0 ? low : 30, 50), std::max(high > 0 ? high : 70, 50));
        frequency_->setSuffix(QStringLiteral(" Hz"));
        const int run = static_cast<int>(kv::ToNumber(ws_.project.Frequency));
        frequency_->setValue(run > 0 ? run : 50);
        connect(frequency_, &QSpinBox::valueChanged, this, &ComponentSelectionDialog::SetFrequency);
        actions->addWidget(new QLabel(Q(c[kv::Cap::FrequencyWord])));
        actions->addWidget(frequency_);
        actions->addStretch(1);
    }
    actions->addWidget(adopt);
    actions->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body);
    layout->addWidget(message_);
    layout->addLayout(actions);
    int first = series_.empty() ? -1 : 0;
    for (std::size_t i = 0; i < series_.size(); ++i)
        if (series_[i].base == base && series_[i].position == position) first = static_cast<int>(i);
    if (first >= 0) seriesList_->setCurrentRow(first);
    else FillGrid();
}

void ComponentSelectionDialog::ShowSeries(int row) {
    if (row < 0 || row >= static_cast<int>(series_.size())) return;
    const kv::SeriesEntry& e = series_[static_cast<std::size_t>(row)];
    kv::TableDuty duty;
    duty.qDuty = ws_.cycle.Q0;
    duty.qCond = catalogPosition_ - 2 == 650 ? (ws_.cycle.Qh > 0 ? ws_.cycle.Qh : ws_.cycle.Q0 + ws_.cycle.pShaft)
                                             : ws_.cycle.Q0;
    table_ = kv::BuildSelectionTable(ws_, catalogPosition_, e.base, e.position, duty);
    if (frequency_ && frequency_->value() != 50) kv::RateAtFrequency(ws_, table_, frequency_->value());
    FillGrid();
}

void ComponentSelectionDialog::SetFrequency(int hz) {
    if (frequency_ && frequency_->value() != hz) frequency_->setValue(hz);  // comes back here
    ShowSeries(seriesList_->currentRow());
    // The frequency goes with the project, as the report names it.
    ws_.project.Frequency = std::to_string(hz);
}

void ComponentSelectionDialog::FillGrid() {
    grid_->setRowCount(static_cast<int>(table_.rows.size()));
    for (int i = 0; i < static_cast<int>(table_.rows.size()); ++i) {
        const kv::SelectionTableRow& r = table_.rows[static_cast<std::size_t>(i)];
        const QString cells[6] = {Q(r.type), Q(r.orderNumber), Figure(r.rated), Q(r.energyClass), Q(r.description),
                                  Q(r.connection)};
        for (int col = 0; col < 6; ++col) {
            auto* item = new QTableWidgetItem(cells[col]);
            if (col == 2) item->setBackground(QBrush(BandColor(r.band)));
            grid_->setItem(i, col, item);
        }
    }
    if (table_.marked >= 0) grid_->selectRow(table_.marked);
    message_->setText(table_.rows.empty() ? QString() : Q(table_.messageLine));
}

bool ComponentSelectionDialog::Adopt(int row) {
    if (!kv::AdoptTableRow(ws_, table_, row)) return false;
    accept();
    return true;
}

}  // namespace kvui

namespace kvui {

namespace {
void FillRows(QTableWidget* grid, const std::vector<std::vector<QString>>& rows) {
    grid->setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < static_cast<int>(rows.size()); ++i)
        for (int col = 0; col < static_cast<int>(rows[static_cast<std::size_t>(i)].size()); ++col)
            grid->setItem(i, col, new QTableWidgetItem(rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(col)]));
}

}  // namespace

CompressorSearchDialog::CompressorSearchDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("KompSuche"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::CompressorSearchTitle]));
    grid_ = ChoiceGrid({Q(c[kv::Cap::TypeDesignation]), Q(c[kv::Cap::Manufacturer]), Q(c[kv::Cap::Series]),
                  QStringLiteral("Qo /[kW]"), QStringLiteral("Pel /[kW]"), QStringLiteral("COP"),
                  QStringLiteral("Vh /[m³/h]")},
                 "Compressors");
    qMin_ = new QLineEdit(QStringLiteral("0"));
    qMin_->setObjectName(QStringLiteral("QoMin"));
    qMax_ = new QLineEdit(QStringLiteral("0"));
    qMax_->setObjectName(QStringLiteral("QoMax"));
    auto* search = NamedButton(Q(c[kv::Cap::CompressorSearchTitle]), "Search");
    auto* take = NamedButton(Q(c[kv::Cap::Select]), "Take");
    auto* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(search, &QPushButton::clicked, this, [this] {
        Search(kv::ToNumber(qMin_->text().toStdString()), kv::ToNumber(qMax_->text().toStdString()),
               ws_.project.KondArt);
    });
    connect(take, &QPushButton::clicked, this, [this] { Choose(grid_->currentRow()); });
    connect(grid_, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { Choose(row); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* range = new QHBoxLayout;
    range->addWidget(new QLabel(QStringLiteral("Qo min")));
    range->addWidget(qMin_);
    range->addWidget(new QLabel(QStringLiteral("Qo max")));
    range->addWidget(qMax_);
    range->addWidget(search);
    auto* actions = new QHBoxLayout;
    actions->addWidget(take);
    actions->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(range);
    layout->addWidget(grid_);
    layout->addLayout(actions);
    Search(0, 0, ws_.project.KondArt);
}

void CompressorSearchDialog::Search(double qMin, double qMax, int principle) {
    rows_ = kv::SearchCompressors(ws_, qMin, qMax, principle);
    std::vector<std::vector<QString>> cells;
    for (const kv::CompressorCandidate& r : rows_)
        cells.push_back({Q(r.type), Q(r.title), Q(r.series), Figure(r.capacity), Figure(r.power), Figure(r.cop),
                         Figure(r.sweptVolume)});
    FillRows(grid_, cells);
}

void CompressorSearchDialog::Choose(int row) {
    result_ = kv::CompressorSearchResult(rows_, row);
    if (result_ >= 0) accept();
}

HeatExchangerSelectionDialog::HeatExchangerSelectionDialog(kv::Workspace& ws, int groupCode, QWidget* parent)
    : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("HxSelect"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::CatKindEvaporators]) + QStringLiteral(" / ") + Q(c[kv::Cap::CatKindCondensers]));
    grid_ = ChoiceGrid({Q(c[kv::Cap::TypeDesignation]), Q(c[kv::Cap::Manufacturer]), Q(c[kv::Cap::Series]),
                  Q(c[kv::Cap::CapacityAtDuty]), QStringLiteral("V /[dm³]"), Q(c[kv::Cap::EnergyClass])},
                 "HeatExchangers");
    auto* kind = new QComboBox;
    kind->setObjectName(QStringLiteral("Kind"));
    kind->addItem(Q(c[kv::Cap::CatKindEvaporators]), 600);
    kind->addItem(Q(c[kv::Cap::CatKindCondensers]), 650);
    kind->setCurrentIndex(groupCode == 650 ? 1 : 0);
    auto* take = NamedButton(Q(c[kv::Cap::Select]), "Take");
    auto* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(kind, &QComboBox::activated, this, [this, kind](int i) { ShowGroup(kind->itemData(i).toInt()); });
    connect(take, &QPushButton::clicked, this, [this] { Choose(grid_->currentRow()); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* actions = new QHBoxLayout;
    actions->addWidget(take);
    actions->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(kind);
    layout->addWidget(grid_);
    layout->addLayout(actions);
    ShowGroup(groupCode);
}

void HeatExchangerSelectionDialog::ShowGroup(int groupCode) {
    group_ = groupCode == 650 ? 650 : 600;
    const kv::CycleState& c = ws_.cycle;
    const double duty = group_ == 650 ? (c.Qh > 0 ? c.Qh : c.Q0 + c.pShaft) : c.Q0;
    rows_ = kv::SearchHeatExchangers(ws_, group_, duty);
    std::vector<std::vector<QString>> cells;
    for (const kv::HeatExchangerCandidate& r : rows_)
        cells.push_back({Q(r.type), Q(r.title), Q(r.series), Figure(r.capacity), Figure(r.volume), Q(r.energyClass)});
    FillRows(grid_, cells);
}

bool HeatExchangerSelectionDialog::Choose(int row) {
    if (row < 0 || row >= static_cast<int>(rows_.size())) return false;
    if (!kv::WriteChosenHeatExchanger(ws_, group_, rows_[static_cast<std::size_t>(row)])) return false;
    accept();
    return true;
}

}  // namespace kvui
