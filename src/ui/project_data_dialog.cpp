#include "ui/project_data_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include <filesystem>

#include "project/project_file.h"
#include "project/project_io.h"
#include "project/project_paths.h"
#include "refrigerant/registry.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/selection_dialogs.h"
#include "ui/file_dialogs.h"
#include "ui/help_dialog.h"
#include "ui/screen_fit.h"

namespace kvui {
namespace {

QString Label(const kv::Workspace& ws, kv::Cap word, const char* unit = "") {
    return Q(kv::FieldLabel(ws.captions[word], unit));
}

constexpr int kArmaturRows = 6;
constexpr int kArmaturCols = 15;
constexpr int kGeometrRows = 3;
constexpr int kGeometrCols = 8;

}  // namespace

ProjectDataDialog::ProjectDataDialog(kv::Workspace& ws, QWidget* parent)
    : QDialog(parent), ws_(ws), before_(ws.project) {
    setObjectName(QStringLiteral("Projektdaten"));
    setWindowTitle(Q(ws.captions[kv::Cap::ProjectDataTitle]) + QStringLiteral(" - ") + Q(ws.Title()));
    kv::OpenDataScreen(ws_, screen_);

    auto* top = new QHBoxLayout;
    top->addWidget(BuildOperatingFrame(), 3);
    top->addWidget(BuildPlantFrame(), 3);
    top->addWidget(BuildDesignFrame(), 2);

    auto* buttons = new QHBoxLayout;
    calculate_ = new QPushButton(Q(ws.captions[kv::Cap::BtnCalculate]));
    calculate_->setObjectName(QStringLiteral("Calculate"));
    calculate_->setMinimumHeight(34);
    auto* save = new QPushButton(Q(ws.captions[kv::Cap::Save]));
    auto* saveAs = new QPushButton(Q(ws.captions[kv::Cap::SaveAs]));
    auto* load = new QPushButton(Q(ws.captions[kv::Cap::Load]));
    auto* standard = new QPushButton(Q(ws.captions[kv::Cap::BtnSaveAsStandard]));
    auto* ok = new QPushButton(Q(ws.captions[kv::Cap::Ok]));
    ok->setObjectName(QStringLiteral("OK"));
    auto* cancel = new QPushButton(Q(ws.captions[kv::Cap::Cancel]));
    cancel->setObjectName(QStringLiteral("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &ProjectDataDialog::reject);
    for (QPushButton* b : {save, saveAs, load, standard}) buttons->addWidget(b);
    buttons->addStretch(1);
    buttons->addWidget(calculate_);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    connect(calculate_, &QPushButton::clicked, this, [this] { Calculate(); });
    connect(save, &QPushButton::clicked, this, &ProjectDataDialog::Save);
    connect(saveAs, &QPushButton::clicked, this, &ProjectDataDialog::SaveAs);
    connect(load, &QPushButton::clicked, this, &ProjectDataDialog::Load);
    connect(standard, &QPushButton::clicked, this, [this] { kv::SaveAsStandard(ws_); });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* search = new QPushButton(Q(ws.captions[kv::Cap::CompressorSearchTitle]));
    search->setObjectName(QStringLiteral("KompSuche"));
    auto* hx = new QPushButton(Q(ws.captions[kv::Cap::CatKindEvaporators]) + QStringLiteral(" / ") +
                               Q(ws.captions[kv::Cap::CatKindCondensers]));
    hx->setObjectName(QStringLiteral("HxSelect"));
    buttons->insertWidget(4, search);
    buttons->insertWidget(5, hx);
    connect(search, &QPushButton::clicked, this, [this] { SearchCompressor(); });
    connect(hx, &QPushButton::clicked, this, [this] {
        if (kv::OperatingPointForSearch(ws_, screen_)) HeatExchangerSelectionDialog(ws_, 600, this).exec();
    });
    // The standard keys: F5 calculates, Ctrl+S saves, Ctrl+Shift+S saves as, Ctrl+O loads.
    connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, this, [this] { Calculate(); });
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+S")), this), &QShortcut::activated, this, &ProjectDataDialog::Save);
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")), this), &QShortcut::activated, this,
            &ProjectDataDialog::SaveAs);
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+O")), this), &QShortcut::activated, this, &ProjectDataDialog::Load);
    AddHelpKey(ws_, this, ws_.captions[kv::Cap::ProjectDataTitle]);

    // The form scrolls where the screen is too small; the buttons stay in view.
    auto* body = new QWidget;
    auto* form = new QVBoxLayout(body);
    form->setContentsMargins(0, 0, 0, 0);
    form->addWidget(BuildProjectFrame());
    form->addLayout(top);
    form->addWidget(BuildGrids(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Scrolled(body), 1);
    layout->addLayout(buttons);
    FitToScreen(ws_, this, QSize(1360, 1000));
    Refresh();
}

void ProjectDataDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Each time the screen becomes active its opening rules run again.
    kv::OpenDataScreen(ws_, screen_);
    Refresh();
}

QWidget* ProjectDataDialog::BuildProjectFrame() {
    kv::Project& p = ws_.project;
    auto* box = new QGroupBox(Q(ws_.captions[kv::Cap::FrameProject]));
    auto* grid = new QGridLayout(box);
    grid->addWidget(new QLabel(Label(ws_, kv::Cap::ProjectName)), 0, 0);
    grid->addWidget(bind_.Text(p.ProjektNam, {}, "ProjektNam"), 0, 1);
    grid->addWidget(new QLabel(Label(ws_, kv::Cap::OrderNumber)), 0, 2);
    grid->addWidget(bind_.Text(p.AuftrGNo, {}, "AuftrGNo"), 0, 3);
    grid->addWidget(new QLabel(Label(ws_, kv::Cap::ProjectDescription)), 1, 0);
    grid->addWidget(bind_.Text(p.ProBeschr, {}, "ProBeschr"), 1, 1, 1, 3);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 1);
    return box;
}

QWidget* ProjectDataDialog::BuildOperatingFrame() {
    kv::Project& p = ws_.project;
    kv::DataScreen& s = screen_;
    auto* box = new QGroupBox(Q(ws_.captions.Message(50)));
    auto* form = new QFormLayout(box);
    auto valid = [this] {
        kv::ValidationMark(ws_, screen_);
        UpdateLight();
    };
    form->addRow(Label(ws_, kv::Cap::Refrigerant), bind_.Box(s.KaelteMBox, s.kaelteList, [this] {
        if (filling_) return;
        kv::ChooseRefrigerant(ws_, screen_);
        Refresh();
    }, true, "KaelteM"));
    auto evapLink = [this] {
        kv::LinkEvaporatorTemperature(ws_, screen_);
        Refresh();
    };
    auto condLink = [this] {
        kv::LinkCondenserTemperature(ws_, screen_);
        Refresh();
    };
    form->addRow(Label(ws_, kv::Cap::EvapTemp, "\u00b0C"), bind_.Text(p.Tver, valid, "Tver"));
    form->addRow(Label(ws_, kv::Cap::CondTemp, "\u00b0C"), bind_.Text(p.tko, valid, "tko"));

    auto* evapRow = new QHBoxLayout;
    evapRow->addWidget(bind_.Box(s.Combo2, s.mediaList, [this] { Refresh(); }, false, "Combo2"));
    evapRow->addWidget(bind_.Text(p.doelL, evapLink, "doelL"), 1);
    evapMedium_ = new QLabel;
    evapRow->addWidget(evapMedium_);
    form->addRow(Label(ws_, kv::Cap::MediumTempEvap, "\u00b0C"), evapRow);
    form->addRow(Label(ws_, kv::Cap::DtEvaporator, "K"), bind_.Text(p.dtVerd, evapLink, "dtVerd"));
    auto* condRow = new QHBoxLayout;
    condRow->addWidget(bind_.Box(s.Combo3, s.mediaList, [this] { Refresh(); }, false, "Combo3"));
    condRow->addWidget(bind_.Text(p.DKondL, condLink, "DKondL"), 1);
    condMedium_ = new QLabel;
    condRow->addWidget(condMedium_);
    form->addRow(Label(ws_, kv::Cap::MediumTempCond, "\u00b0C"), condRow);
    form->addRow(Label(ws_, kv::Cap::DtCondenser, "K"), bind_.Text(p.dtKond, condLink, "dtKond"));
    form->addRow(Label(ws_, kv::Cap::MediumInletTempEvap, "\u00b0C"), bind_.Text(p.loelL, valid, "loelL"));
    form->addRow(Label(ws_, kv::Cap::DtSuctionLine, "K"), bind_.Text(p.dhSL, valid, "dhSL"));

    auto capacity = [this] {
        kv::CapacityFromHeat(ws_, screen_);
        Refresh();
    };
    form->addRow(Label(ws_, kv::Cap::OperatingMode), bind_.Box(p.ValenzCombo, s.valenzList, capacity, false, "Valenz_combo"));
    form->addRow(Label(ws_, kv::Cap::HeatingCapacity, "kW"), bind_.Text(p.HeizL, capacity, "HeizL"));
    lkondl_ = bind_.Text(p.lkondl, capacity, "lkondl");
    form->addRow(Label(ws_, kv::Cap::BivalentShare, "%"), lkondl_);
    leistung_ = bind_.Text(p.Leistung, valid, "Leistung");
    form->addRow(Label(ws_, kv::Cap::Capacity, "kW"), leistung_);
    kompHub_ = bind_.Text(p.KompHub, valid, "KompHub");
    form->addRow(Label(ws_, kv::Cap::CompressorSweptVolume, "m\u00b3/h"), kompHub_);
    form->addRow(Label(ws_, kv::Cap::PartLoad, "%"), bind_.Text(p.TeilL, valid, "TeilL"));
    return box;
}

QWidget* ProjectDataDialog::BuildPlantFrame() {
    kv::Project& p = ws_.project;
    kv::DataScreen& s = screen_;
    auto* box = new QGroupBox(Q(ws_.captions[kv::Cap::FrameCompressor]) + QStringLiteral(" / ") +
                              Q(ws_.captions[kv::Cap::FrameValves]));
    auto* form = new QFormLayout(box);
    form->addRow(Label(ws_, kv::Cap::CompressorType), bind_.Box(p.Combo1, s.combo1List, {}, true, "Combo1"));
    form->addRow(Label(ws_, kv::Cap::CapacityControl), bind_.Box(p.RGCombo, s.rgList, [this] {
        if (filling_) return;
        kv::ChooseCapacityControl(ws_, screen_, ws_.project.RGCombo);
        Refresh();
    }, false, "RGCombo"));
    auto inverter = [this] {
        kv::InverterRech(ws_);
        Refresh();
    };
    inverterMin_ = bind_.Text(p.InverterMin, inverter, "InverterMin");
    inverterMax_ = bind_.Text(p.InverterMax, inverter, "InverterMax");
    form->addRow(Label(ws_, kv::Cap::InverterMin, "Hz"), inverterMin_);
    form->addRow(Label(ws_, kv::Cap::InverterMax, "Hz"), inverterMax_);
    form->addRow(Label(ws_, kv::Cap::KindExpansionValve), bind_.Box(p.ExVCombo, s.exvList, {}, false, "ExV_Combo"));
    form->addRow(Label(ws_, kv::Cap::DefrostKind), bind_.Box(p.AbtauCombo, s.abtauList, [this] {
        if (filling_) return;
        kv::ChooseDefrost(ws_, screen_, ws_.project.AbtauCombo);
        Refresh();
    }, false, "Abtau_Combo"));
    form->addRow(Label(ws_, kv::Cap::PipeSeries), bind_.Box(s.RLcombo, s.rlList, [this] {
        if (!filling_) kv::ChoosePipeSeries(ws_, screen_.RLcombo);
    }, false, "RLcombo"));
    form->addRow(Label(ws_, kv::Cap::EvapVolume, "dm\u00b3"), bind_.Text(p.VerdVol, {}, "VerdVol"));
    form->addRow(Label(ws_, kv::Cap::CondVolume, "dm\u00b3"), bind_.Text(p.KondVol, {}, "KondVol"));
    form->addRow(Label(ws_, kv::Cap::IntermediatePressure, "bar"), bind_.Text(p.P_mittel, {}, "P_mittel"));
    form->addRow(Label(ws_, kv::Cap::GasCoolerPressure, "bar"), bind_.Text(p.P_gasK, {}, "P_gasK"));

    auto check = [this](kv::Cap word, const char* name, std::function<void()> toggle) {
        auto* c = new QCheckBox(Q(ws_.captions[word]));
        c->setObjectName(QLatin1String(name));
        connect(c, &QCheckBox::clicked, this, [this, toggle] {
            if (!filling_) toggle();
            Refresh();
        });
        return c;
    };
    eco_ = check(kv::Cap::Economizer, "EcoCheck", [this] { kv::ToggleEconomizer(ws_, screen_); });
    bypass_ = check(kv::Cap::HotGasBypass, "HGBypassCheck", [this] { kv::ToggleHotGasBypass(ws_, screen_); });
    fourWay_ = check(kv::Cap::FourWayValve, "Vier_Wege_Check", [this] { kv::ToggleFourWay(ws_, screen_); });
    oil_ = check(kv::Cap::OilCooling, "OelK_Check", [this] { kv::ToggleOilCooler(ws_, screen_); });
    parallel_ = check(kv::Cap::ParallelLines, "ParaL_Check", [this] { kv::ToggleParallelLines(ws_, screen_); });
    auto* checks = new QGridLayout;
    checks->addWidget(eco_, 0, 0);
    checks->addWidget(bypass_, 0, 1);
    checks->addWidget(fourWay_, 1, 0);
    checks->addWidget(oil_, 1, 1);
    checks->addWidget(parallel_, 2, 0);
    form->addRow(checks);

    form->addRow(Label(ws_, kv::Cap::Country), bind_.Box(p.CountryKey, s.countryList, [this] {
        if (filling_) return;
        kv::FillLocations(ws_, screen_);
        const QSignalBlocker block(location_);
        location_->clear();
        for (const std::string& l : screen_.locationList) location_->addItem(Q(l));
    }, false, "Combo4"));
    location_ = bind_.Box(p.Location, s.locationList, {}, false, "Combo5");
    form->addRow(Label(ws_, kv::Cap::Location), location_);
    form->addRow(Label(ws_, kv::Cap::Description), bind_.Text(p.Text12, {}, "Text12"));
    return box;
}

QWidget* ProjectDataDialog::BuildDesignFrame() {
    auto* box = new QGroupBox(Q(ws_.captions[kv::Cap::FrameDesignValues]));
    auto* form = new QFormLayout(box);
    struct Row { kv::Cap word; const char* unit; };
    static constexpr Row rows[11] = {
        {kv::Cap::SuperheatEvap, "K"},      {kv::Cap::SuperheatSuctionLine, "K"}, {kv::Cap::SubcoolingBase, "K"},
        {kv::Cap::SubcoolingIhx, "K"},      {kv::Cap::MaxDropLiquid, "K"},        {kv::Cap::MaxDropDischarge, "K"},
        {kv::Cap::MaxDropInjection, "K"},   {kv::Cap::VelocitySuction, "m/s"},    {kv::Cap::VelocityDischarge, "m/s"},
        {kv::Cap::VelocityLiquid, "m/s"},   {kv::Cap::VelocityCondensate, "m/s"}};
    for (int i = 1; i <= 11; ++i) {
        const std::string name = "Text" + std::to_string(i);
        QLineEdit* e = bind_.Text(screen_.Text[static_cast<std::size_t>(i)]);
        e->setObjectName(QString::fromStdString(name));
        e->setMaximumWidth(80);
        form->addRow(Label(ws_, rows[i - 1].word, rows[i - 1].unit), e);
    }
    return box;
}

QWidget* ProjectDataDialog::BuildGrids() {
    const kv::Captions& c = ws_.captions;
    armatur_ = new QTableWidget(kArmaturRows, kArmaturCols);
    armatur_->setObjectName(QStringLiteral("Armatur"));
    const kv::Cap heads[kArmaturCols] = {
        kv::Cap::ColBallValves,   kv::Cap::ColShutOffValves,  kv::Cap::ColSuctionLiquidHx, kv::Cap::ColCheckValves,
        kv::Cap::ColOilSeparator, kv::Cap::ColSightGlass,     kv::Cap::ColSolenoidValves,  kv::Cap::ColFilterDrier,
        kv::Cap::ColEvaporators,  kv::Cap::ColInjectionLines, kv::Cap::ColSuctionFilter,   kv::Cap::ColVibrationAbsorbers,
        kv::Cap::ColPressureRegulator, kv::Cap::CellCompressors, kv::Cap::CellLiquidInjection};
    QStringList colHeads;
    for (kv::Cap h : heads) colHeads << Q(c[h]);
    armatur_->setHorizontalHeaderLabels(colHeads);
    const kv::Cap lines[8] = {kv::Cap::LineInjection, kv::Cap::LineSuction,     kv::Cap::LineDischarge,
                              kv::Cap::LineLiquid,    kv::Cap::LineCondensate,  kv::Cap::LineHotGasBypass,
                              kv::Cap::LineEcoLiquid, kv::Cap::LineEcoSuction};
    QStringList rowHeads;
    for (int i = 0; i < kArmaturRows; ++i) rowHeads << Q(c[lines[i]]);
    armatur_->setVerticalHeaderLabels(rowHeads);
    armatur_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    armatur_->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);

    geometr_ = new QTableWidget(kGeometrRows, kGeometrCols);
    geometr_->setObjectName(QStringLiteral("Geometr"));
    geometr_->setVerticalHeaderLabels({Q(c[kv::Cap::Length]) + QStringLiteral(" /[m]"), QStringLiteral("dh/[m]"),
                                       QStringLiteral("Zeta/[-]")});
    geometr_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);

    for (QTableWidget* t : {armatur_, geometr_}) {
        t->verticalHeader()->setDefaultSectionSize(24);
        t->horizontalHeader()->setMinimumHeight(26);
    }
    armatur_->setMinimumHeight(26 + 6 * 24 + 20);
    geometr_->setMinimumHeight(26 + 3 * 24 + 6);
    connect(armatur_, &QTableWidget::cellChanged, this, &ProjectDataDialog::ArmaturEdited);
    connect(geometr_, &QTableWidget::cellChanged, this, &ProjectDataDialog::GeometrEdited);

    auto* box = new QGroupBox(Q(c[kv::Cap::FittingsGrid]) + QStringLiteral(" / ") + Q(c[kv::Cap::LinesGrid]));
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(armatur_, 3);
    layout->addWidget(geometr_, 2);
    return box;
}

void ProjectDataDialog::FillGrids() {
    const kv::Project& p = ws_.project;
    const kv::Captions& c = ws_.captions;
    const QBrush grey(QColor(0xd8, 0xd8, 0xd8));
    const QSignalBlocker a(armatur_), g(geometr_);
    for (int row = 1; row <= kArmaturRows; ++row)
        for (int col = 1; col <= kArmaturCols; ++col) {
            auto* item = new QTableWidgetItem(Q(p.Armatur.Cell(col, row)));
            item->setTextAlignment(Qt::AlignCenter);
            const bool single = (col == 14 && row == 2) || (col == 15 && row == 1);
            if (!kv::ArmaturCellEnterable(col, row) && !single) {
                item->setFlags(item->flags() & ~Qt::ItemIsEditable);
                item->setBackground(grey);
            }
            armatur_->setItem(row - 1, col - 1, item);
        }
    const kv::Cap lines[8] = {kv::Cap::LineInjection, kv::Cap::LineSuction,     kv::Cap::LineDischarge,
                              kv::Cap::LineLiquid,    kv::Cap::LineCondensate,  kv::Cap::LineHotGasBypass,
                              kv::Cap::LineEcoLiquid, kv::Cap::LineEcoSuction};
    QStringList heads;
    for (int i = 0; i < kGeometrCols; ++i) heads << Q(c[lines[i]]);
    heads[5] = Q(screen_.geometrCol6Head);
    heads[6] = QStringLiteral("Econ.-") + Q(c[kv::Cap::EcoSideLiquid]);
    heads[7] = QStringLiteral("Econ.-") + Q(c[kv::Cap::EcoSideSuction]);
    geometr_->setHorizontalHeaderLabels(heads);
    for (int row = 1; row <= kGeometrRows; ++row)
        for (int col = 1; col <= kGeometrCols; ++col) {
            auto* item = new QTableWidgetItem(Q(p.Geometr.Cell(col, row)));
            item->setTextAlignment(Qt::AlignCenter);
            geometr_->setItem(row - 1, col - 1, item);
        }
}

void ProjectDataDialog::ArmaturEdited(int row, int column) {
    ws_.project.Armatur.Cell(column + 1, row + 1) = armatur_->item(row, column)->text().toStdString();
    kv::SumZeta(ws_, 0, row + 1);
    kv::ValidationMark(ws_, screen_);
    Refresh();
}

void ProjectDataDialog::GeometrEdited(int row, int column) {
    ws_.project.Geometr.Cell(column + 1, row + 1) = geometr_->item(row, column)->text().toStdString();
    if (row + 1 != kv::GeoZetaSum) kv::SumZeta(ws_, 0, column + 1);
    kv::ValidationMark(ws_, screen_);
    Refresh();
}

void ProjectDataDialog::UpdateLight() {
    calculate_->setStyleSheet(screen_.calculateGreen ? QStringLiteral("QPushButton { color: #0a7d28; font-weight: bold; }")
                                                     : QString());
}

void ProjectDataDialog::Refresh() {
    filling_ = true;
    kv::SyncPipeSeries(ws_, screen_.RLcombo, screen_.rlList);
    bind_.Refresh();
    FillGrids();
    const kv::Project& p = ws_.project;
    evapMedium_->setText(Q(kv::MediumCaption(ws_, screen_.Combo2)));
    condMedium_->setText(Q(kv::MediumCaption(ws_, screen_.Combo3)));
    for (auto [box, on] : {std::pair{eco_, p.EcoFlag == 1}, {bypass_, p.HGBypass == 1}, {fourWay_, p.VierWege == 1},
                           {oil_, p.OelKuehler == 1}, {parallel_, p.ParalLeit == 1}}) {
        const QSignalBlocker block(box);
        box->setChecked(on);
    }
    inverterMin_->setEnabled(screen_.inverterEnabled);
    inverterMax_->setEnabled(screen_.inverterEnabled);
    lkondl_->setEnabled(screen_.lkondlEnabled);
    kompHub_->setEnabled(screen_.kompHubEnabled);
    leistung_->setEnabled(screen_.leistungEnabled);
    UpdateLight();
    filling_ = false;
}

void ProjectDataDialog::ShowMessages(const kv::InputCheck& check) {
    for (const std::string& m : check.messages) ws_.ui.Message(ws_.productName + " " + ws_.settings.VersionText, m,
                                                               kv::MessageIcon::Error);
    if (check.Count() <= kv::kErrorListAbove) return;
    // FehlerBOX: all errors in one list.
    auto* box = new QDialog(this);
    box->setObjectName(QStringLiteral("FehlerBOX"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(Q(ws_.captions[kv::Cap::InputErrorsTitle]));
    auto* list = new QListWidget;
    for (const std::string& m : check.messages) list->addItem(Q(m));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, box, &QDialog::reject);
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(list);
    layout->addWidget(buttons);
    box->open();
}

void ProjectDataDialog::SearchCompressor() {
    if (!kv::OperatingPointForSearch(ws_, screen_)) return;
    CompressorSearchDialog search(ws_, this);
    search.exec();
    kv::CompressorSearchReturn(ws_, screen_, search.Result());
    Refresh();
}

bool ProjectDataDialog::Calculate() {
    kv::InputCheck check;
    if (!kv::StartCalculation(ws_, screen_, &check)) {
        ShowMessages(check);
        return false;
    }
    Refresh();
    emit calculationStarted();
    return true;
}

void ProjectDataDialog::Save() {
    if (const auto saved = kv::SaveToOpenFile(ws_); !saved) SaveAs();
    else if (*saved == kv::SaveResult::Saved) before_ = ws_.project;
}

void ProjectDataDialog::SaveAs() {
    const QString file = AskProjectSavePath(ws_, this, Q(ws_.captions[kv::Cap::SaveAs]));
    if (!file.isEmpty() && kv::SaveProjectToPath(ws_, file.toStdString()) == kv::SaveResult::Saved)
        before_ = ws_.project;
}

void ProjectDataDialog::reject() {
    ws_.project = before_;
    QDialog::reject();
}

void ProjectDataDialog::Load() {
    const QString file = AskProjectOpenPath(ws_, this, Q(ws_.captions[kv::Cap::Load]));
    if (file.isEmpty()) return;
    if (kv::OpenProjectFromPath(ws_, file.toStdString())) before_ = ws_.project;
    kv::OpenDataScreen(ws_, screen_);
    Refresh();
}

}  // namespace kvui
