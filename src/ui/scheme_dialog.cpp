#include "ui/scheme_dialog.h"

#include <QCheckBox>
#include <QShortcut>
#include <QSplitter>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "cycle/kernel.h"
#include "cycle/scheme_picture.h"
#include "refrigerant/registry.h"
#include "shell/captions.h"
#include "shell/workspace.h"
#include "lines/pipe_series.h"
#include "ui/help_dialog.h"
#include "ui/picture_view.h"
#include "ui/load_split_dialog.h"
#include "ui/report_dialog.h"
#include "ui/selection_dialogs.h"
#include "documents/report_layout.h"
#include "lists/calc_lists.h"
#include "ui/screen_fit.h"

namespace kvui {
namespace {

QString Label(const kv::Workspace& ws, kv::Cap word, const char* unit = "") {
    return Q(kv::FieldLabel(ws.captions[word], unit));
}

void SetRed(QLabel* label, const std::string& text, bool red) {
    label->setText(Q(text));
    label->setStyleSheet(red ? QStringLiteral("color: #d01010; font-weight: bold;") : QString());
}

}  // namespace

SchemeDialog::SchemeDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("schemaR"));
    setWindowTitle(Q(ws.captions[kv::Cap::SchemeTitle]) + QStringLiteral(" - ") + Q(ws.Title()));
    kv::OpenSchemeScreen(ws_, screen_);

    view_ = new PictureView;
    view_->setObjectName(QStringLiteral("SchemePicture"));
    // The picture, the entries and the line panel share the window through
    // splitters; the entries and the lines scroll where the screen is small.
    auto* top = new QSplitter(Qt::Horizontal);
    top->addWidget(view_);
    top->addWidget(Scrolled(BuildEntries()));
    top->setStretchFactor(0, 1);
    top->setChildrenCollapsible(false);
    auto* split = new QSplitter(Qt::Vertical);
    split->setObjectName(QStringLiteral("SchemeSplit"));
    split->addWidget(top);
    split->addWidget(Scrolled(BuildLines()));
    split->setStretchFactor(0, 1);
    split->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(split, 1);
    notes_ = new QLabel;
    notes_->setObjectName(QStringLiteral("notes"));
    notes_->setStyleSheet(QStringLiteral("color: red"));
    notes_->setWordWrap(true);
    layout->addWidget(notes_);
    FitToScreen(ws_, this, QSize(1280, 860), split);
    Refresh();
}

QWidget* SchemeDialog::BuildEntries() {
    kv::SchemeScreen& s = screen_;
    auto* box = new QGroupBox(Q(ws_.captions.Message(50)));
    box->setMinimumWidth(380);
    box->setMaximumWidth(420);
    auto* form = new QFormLayout(box);

    auto refresh = [this] { Refresh(); };
    form->addRow(Label(ws_, kv::Cap::Refrigerant),
                 bind_.Box(s.KaelteMBox, kv::RefrigerantListForProject(), [this, refresh] {
                     if (filling_) return;
                     kv::ChangeRefrigerant(ws_, screen_);
                     refresh();
                 }, false, "KaelteM"));
    const std::vector<std::string> pipes = kv::PipeSeriesList(ws_);
    form->addRow(Label(ws_, kv::Cap::PipeSeries), bind_.Box(s.RLcombo, pipes, [this, refresh] {
        if (filling_) return;
        kv::ChangePipeStandard(ws_, screen_, screen_.RLcombo);
        refresh();
    }, false, "RLcombo"));
    form->addRow(Label(ws_, kv::Cap::EvapTemp, "\u00b0C"), bind_.Text(s.t0, [this, refresh] {
        kv::EnterEvaporatingTemperature(ws_, screen_);
        refresh();
    }, "t0"));
    form->addRow(Label(ws_, kv::Cap::CondTemp, "\u00b0C"), bind_.Text(s.Tc, [this, refresh] {
        kv::EnterCondensingTemperature(ws_, screen_);
        refresh();
    }, "Tc"));
    psi0_ = new QLabel;
    psic_ = new QLabel;
    auto* po = bind_.Text(s.po, [this, refresh] {
        kv::EnterEvaporatingPressure(ws_, screen_);
        kv::EnterEvaporatingTemperature(ws_, screen_);
        refresh();
    }, "po");
    auto* pc = bind_.Text(s.pc, [this, refresh] {
        kv::EnterCondensingPressure(ws_, screen_);
        kv::EnterCondensingTemperature(ws_, screen_);
        refresh();
    }, "pc");
    auto* poRow = new QHBoxLayout;
    poRow->addWidget(po);
    poRow->addWidget(psi0_);
    auto* pcRow = new QHBoxLayout;
    pcRow->addWidget(pc);
    pcRow->addWidget(psic_);
    form->addRow(Label(ws_, kv::Cap::EvapPressure, "bar"), poRow);
    form->addRow(Label(ws_, kv::Cap::CondPressure, "bar"), pcRow);
    form->addRow(Label(ws_, kv::Cap::HeatingCapacity, "kW"), bind_.Text(s.Qh, {}, "Qh"));
    form->addRow(Label(ws_, kv::Cap::RefrigCapacity, "kW"), bind_.Text(s.Q0, {}, "Q0"));

    hub_ = new QCheckBox(Q(ws_.captions[kv::Cap::KeepSweptVolume]));
    hub_->setObjectName(QStringLiteral("Hubconstant"));
    keep_ = new QCheckBox(Q(ws_.captions[kv::Cap::KeepLineDiameters]));
    keep_->setObjectName(QStringLiteral("cConstant"));
    eco_ = new QCheckBox(Q(ws_.captions[kv::Cap::Economizer]));
    eco_->setObjectName(QStringLiteral("EcoCheck"));
    connect(hub_, &QCheckBox::toggled, this, [this](bool on) {
        if (filling_) return;
        kv::SetHubconstant(ws_, screen_, on);
        Refresh();
    });
    connect(keep_, &QCheckBox::toggled, this, [this](bool on) { screen_.cConstant = on; });
    connect(eco_, &QCheckBox::toggled, this, [this](bool on) {
        if (filling_) return;
        kv::SetEcoCheck(ws_, screen_, on);
        Refresh();
    });
    merit_ = new QLabel;
    merit_->setObjectName(QStringLiteral("MeritFigures"));
    reference_ = new QLabel;
    reference_->setObjectName(QStringLiteral("ReferenceFigures"));
    form->addRow(QStringLiteral("COP, t2 :"), merit_);
    form->addRow(Label(ws_, kv::Cap::ReferenceCheck), reference_);
    form->addRow(hub_);
    form->addRow(keep_);
    form->addRow(eco_);

    auto* calc = new QPushButton(Q(ws_.captions[kv::Cap::BtnCalculate]));
    calc->setObjectName(QStringLiteral("rechbutt"));
    auto* diagram = new QPushButton(Q(ws_.captions[kv::Cap::HLogPTitle]));
    diagram->setObjectName(QStringLiteral("Diagram"));
    auto* close = new QPushButton(Q(ws_.captions[kv::Cap::Close]));
    close->setObjectName(QStringLiteral("Abbrechen"));
    connect(calc, &QPushButton::clicked, this, [this] { Calculate(); });
    connect(new QShortcut(QKeySequence(Qt::Key_F5), this), &QShortcut::activated, this, [this] { Calculate(); });
    AddHelpKey(ws_, this, ws_.captions[kv::Cap::SchemeTitle]);
    connect(diagram, &QPushButton::clicked, this, &SchemeDialog::diagramRequested);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* select = new QPushButton(Q(ws_.captions[kv::Cap::AccessorySelectionTitle]));
    select->setObjectName(QStringLiteral("ArmSelek"));
    connect(select, &QPushButton::clicked, this, [this] {  // components are chosen for a calculated plant
        if (ws_.project.CalcState == 1 || Calculate()) (new AccessorySelectionDialog(ws_, this))->open();
    });
    // The report of the calculated plant: results, lines, components.
    auto* report = new QPushButton(Q(ws_.captions[kv::Cap::ReportWord]));
    report->setObjectName(QStringLiteral("Report"));
    connect(report, &QPushButton::clicked, this, [this] {
        if (ws_.project.CalcState != 1 && !Calculate()) return;
        kv::WriteCalculationLists(ws_, false);
        kv::WritePlantResults(ws_);
        kv::WriteHeatExchangerSheet(ws_);
        auto* d = new ReportDialog(ws_, this);
        d->setAttribute(Qt::WA_DeleteOnClose);
        d->open();
    });
    // The load split of the suction and of the discharge line.
    auto* splitSuction = new QPushButton(Q(ws_.captions[kv::Cap::LoadSplitSuction]));
    splitSuction->setObjectName(QStringLiteral("slpitSL"));
    auto* splitDischarge = new QPushButton(Q(ws_.captions[kv::Cap::LoadSplitDischarge]));
    splitDischarge->setObjectName(QStringLiteral("SplitDL"));
    for (auto [button, discharge] : {std::pair{splitSuction, false}, std::pair{splitDischarge, true}})
        connect(button, &QPushButton::clicked, this, [this, discharge] {
            if (ws_.project.CalcState != 1 && !Calculate()) return;
            auto* d = new LoadSplitDialog(ws_, discharge, this);
            d->setAttribute(Qt::WA_DeleteOnClose);
            d->open();
        });
    form->addRow(calc);
    form->addRow(diagram);
    form->addRow(select);
    form->addRow(report);
    form->addRow(splitSuction);
    form->addRow(splitDischarge);
    form->addRow(close);
    return box;
}

QWidget* SchemeDialog::BuildLines() {
    const kv::Captions& c = ws_.captions;
    auto* box = new QGroupBox(Q(c[kv::Cap::LinesGrid]));
    auto* grid = new QGridLayout(box);
    const kv::Cap names[9] = {kv::Cap::LinesGrid,      kv::Cap::LineInjection,    kv::Cap::LineSuction,
                              kv::Cap::LineDischarge,  kv::Cap::LineLiquid,       kv::Cap::LineCondensate,
                              kv::Cap::LineHotGasBypass, kv::Cap::LineEcoLiquid,  kv::Cap::LineEcoSuction};
    const char* bars[9] = {"", "EinspScroll", "SaugScroll2", "DruckScroll3", "FluessScroll4",
                           "KondScroll", "HGbyPScroll", "SCR_ECO_FL", "SCR_ECO_SL"};
    const QStringList heads = {QString(), Q(c[kv::Cap::PipeSize]), Q(c[kv::Cap::Diameter]),
                               QStringLiteral("mbar"), QStringLiteral("K"), QStringLiteral("m/s"),
                               Q(c[kv::Cap::MinimumLoad])};
    for (int i = 0; i < heads.size(); ++i) grid->addWidget(new QLabel(QStringLiteral("<b>") + heads[i] + QStringLiteral("</b>")), 0, i);
    for (int i = 1; i <= 8; ++i) {
        LineRow& r = lines_[static_cast<std::size_t>(i)];
        r.name = new QLabel(Q(c[names[i]]));
        r.bar = new QScrollBar(Qt::Horizontal);
        r.bar->setObjectName(QLatin1String(bars[i]));
        r.bar->setMinimumWidth(220);
        r.bar->setPageStep(1);
        r.diameter = new QLabel;
        r.loss = new QLabel;
        r.lossK = new QLabel;
        r.velocity = new QLabel;
        r.minLoad = new QLabel;
        grid->addWidget(r.name, i, 0);
        grid->addWidget(r.bar, i, 1);
        grid->addWidget(r.diameter, i, 2);
        grid->addWidget(r.loss, i, 3);
        grid->addWidget(r.lossK, i, 4);
        grid->addWidget(r.velocity, i, 5);
        grid->addWidget(r.minLoad, i, 6);
        connect(r.bar, &QScrollBar::valueChanged, this, [this, i](int value) {
            if (!filling_) MoveLine(i, value);
        });
    }
    grid->setColumnStretch(1, 2);
    for (int col = 2; col <= 6; ++col) grid->setColumnMinimumWidth(col, col == 2 ? 150 : 70);
    return box;
}

bool SchemeDialog::Calculate() {
    const bool ok = kv::CalculateButton(ws_, screen_);
    Refresh();
    return ok;
}

void SchemeDialog::MoveLine(int section, int row) {
    kv::MoveLineScrollbar(ws_, screen_, section, row);
    Refresh();
}

void SchemeDialog::Refresh() {
    filling_ = true;
    bind_.Refresh();
    psi0_->setText(Q(screen_.p0psi));
    psic_->setText(Q(screen_.pcpsi));
    QStringList notes;
    for (const std::string& n : screen_.notes) notes << Q(n);
    if (const std::string hx = kv::ChosenHeatExchanger(ws_); !hx.empty()) notes << Q(hx);  // from hx_prj1.dat
    notes_->setText(notes.join(QStringLiteral("\n")));
    for (auto [box, on] : {std::pair{hub_, screen_.Hubconstant}, {keep_, screen_.cConstant}, {eco_, screen_.EcoCheck}}) {
        const QSignalBlocker block(box);
        box->setChecked(on);
    }
    const bool eco = ws_.project.EcoFlag == 1;
    for (int i = 1; i <= 8; ++i) {
        const kv::LineGroup& g = screen_.lines[static_cast<std::size_t>(i)];
        LineRow& r = lines_[static_cast<std::size_t>(i)];
        const bool shown = (i < kv::EconomizerLiquid || eco) && (i != kv::HotGasBypass || ws_.project.HGBypass == 1);
        for (QWidget* w : {static_cast<QWidget*>(r.name), static_cast<QWidget*>(r.bar), static_cast<QWidget*>(r.diameter),
                           static_cast<QWidget*>(r.loss), static_cast<QWidget*>(r.lossK),
                           static_cast<QWidget*>(r.velocity), static_cast<QWidget*>(r.minLoad)})
            w->setVisible(shown);
        const QSignalBlocker block(r.bar);
        r.bar->setRange(g.maxRow > 0 ? 1 : 0, std::max(g.maxRow, 0));
        r.bar->setValue(g.row);
        SetRed(r.diameter, g.diameter, g.diameterRed);
        SetRed(r.loss, g.lossMbar, g.lossRed);
        SetRed(r.lossK, g.lossK, g.lossRed);
        SetRed(r.velocity, g.velocity, g.velocityRed);
        SetRed(r.minLoad, g.minLoad, g.minLoadRed);
    }
    auto pair = [](const std::string& cop, const std::string& t2) {
        return cop.empty() ? std::string() : cop + "   " + t2;
    };
    merit_->setText(Q(pair(screen_.COP_Heiz, screen_.tEnd)));
    SetRed(reference_, pair(screen_.RefCOP, screen_.RefTEnd), screen_.RefRed);
    reference_->setToolTip(Q(screen_.RefTip));
    view_->SetPicture(kv::ComposeSchemePicture(ws_, screen_));
    filling_ = false;
}

}  // namespace kvui
