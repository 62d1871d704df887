#include "ui/refrigerant_dialog.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"
#include "ui/picture_view.h"
#include "ui/qt_interface.h"

namespace kvui {

namespace {

QTableWidget* Grid(const char* name, const QStringList& heads) {
    auto* g = new QTableWidget(0, static_cast<int>(heads.size()));
    g->setObjectName(QLatin1String(name));
    g->setHorizontalHeaderLabels(heads);
    g->setEditTriggers(QAbstractItemView::NoEditTriggers);
    g->setSelectionBehavior(QAbstractItemView::SelectRows);
    g->setSelectionMode(QAbstractItemView::SingleSelection);
    g->verticalHeader()->hide();
    g->verticalHeader()->setDefaultSectionSize(20);
    return g;
}

QTableWidgetItem* Cell(const QString& text, bool number) {
    auto* item = new QTableWidgetItem(text);
    if (number) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QString Figure(double v, int decimals) { return QString::number(v, 'f', decimals); }

}  // namespace

RefrigerantDialog::RefrigerantDialog(kv::Workspace& ws, QWidget* parent)
    : QDialog(parent), ws_(ws), fluids_(kv::RefrigerantWindowFluids()) {
    setObjectName(QStringLiteral("RefrigerantWindow"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::RefrigerantWindowTitle]));

    fluidGrid_ = Grid("Fluids", {Q(c[kv::Cap::Refrigerant]), Q(c[kv::Cap::SafetyGroup]), QStringLiteral("GWP"),
                                 QStringLiteral("tmin [°C]"), QStringLiteral("tmax [°C]"), QStringLiteral("pc/po"),
                                 QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"), QStringLiteral("e")});
    fluidGrid_->setRowCount(static_cast<int>(fluids_.size()));
    for (int r = 0; r < fluidGrid_->rowCount(); ++r) {
        const kv::FluidSummary& f = fluids_[static_cast<std::size_t>(r)];
        const QString cells[10] = {Q(f.name), Q(f.safetyGroup), QString::number(f.gwp),
                                   f.tmin ? QString::number(*f.tmin) : QString(), QString::number(f.tmax),
                                   Figure(f.pressureRatio, 2), Q(kv::NumberText(f.charB)),
                                   Q(kv::NumberText(f.charC)), Q(kv::NumberText(f.charD)),
                                   Q(kv::NumberText(f.charE))};
        for (int col = 0; col < 10; ++col) fluidGrid_->setItem(r, col, Cell(cells[col], col >= 2));
    }
    fluidGrid_->resizeColumnsToContents();
    connect(fluidGrid_, &QTableWidget::currentCellChanged, this, [this](int row) { ChooseFluid(row); });

    satGrid_ = Grid("Saturation", {QStringLiteral("t [°C]"), QStringLiteral("p'' [bar]"), QStringLiteral("p' [bar]"),
                                   QStringLiteral("ρ' [kg/m³]"), QStringLiteral("ρ'' [kg/m³]"),
                                   QStringLiteral("h' [kJ/kg]"), QStringLiteral("h'' [kJ/kg]"),
                                   QStringLiteral("r [kJ/kg]")});
    pressureView_ = new PictureView;
    pressureView_->setObjectName(QStringLiteral("PressureView"));
    domeView_ = new PictureView;
    domeView_->setObjectName(QStringLiteral("DomeView"));
    for (PictureView* v : {pressureView_, domeView_}) v->setMinimumSize(300, 210);

    auto* exportButton = new QPushButton(Q(c[kv::Cap::ExportCsv]));
    exportButton->setObjectName(QStringLiteral("ExportCsv"));
    connect(exportButton, &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getSaveFileName(this, windowTitle(), QString(), QStringLiteral("*.csv"));
        if (!file.isEmpty()) ExportCsv(file);
    });
    auto* close = new QPushButton(Q(c[kv::Cap::Close]));
    close->setObjectName(QStringLiteral("Close"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    auto* right = new QVBoxLayout;
    right->addWidget(new QLabel(Q(c[kv::Cap::SaturationTable])));
    right->addWidget(satGrid_, 1);
    auto* views = new QHBoxLayout;
    views->addWidget(pressureView_);
    views->addWidget(domeView_);
    right->addLayout(views, 1);
    auto* top = new QHBoxLayout;
    top->addWidget(fluidGrid_, 1);
    top->addLayout(right, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(exportButton);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(buttons);
    resize(1280, 700);

    // The project's fluid first, else the first of the list.
    int start = 0;
    for (std::size_t i = 0; i < fluids_.size(); ++i)
        if (fluids_[i].name == ws_.project.KaelteM) start = static_cast<int>(i);
    fluidGrid_->setCurrentCell(start, 0);
    ChooseFluid(start);
}

bool RefrigerantDialog::ChooseFluid(int row) {
    if (row < 0 || row >= static_cast<int>(fluids_.size())) return false;
    const kv::FluidSummary& f = fluids_[static_cast<std::size_t>(row)];
    lines_ = kv::SaturationLines(ws_, f);
    satGrid_->setRowCount(static_cast<int>(lines_.size()));
    for (int r = 0; r < satGrid_->rowCount(); ++r) {
        const kv::SaturationLine& l = lines_[static_cast<std::size_t>(r)];
        const double v[8] = {l.t, l.pDew, l.pBubble, l.rhoLiq, l.rhoVap, l.hLiq, l.hVap, l.latent};
        const int decimals[8] = {1, 3, 3, 1, 2, 1, 1, 1};
        for (int col = 0; col < 8; ++col) satGrid_->setItem(r, col, Cell(Figure(v[col], decimals[col]), true));
    }
    satGrid_->resizeColumnsToContents();
    pressureView_->SetPicture(kv::VapourPressureView(f.name, lines_));
    domeView_->SetPicture(kv::DomeView(f.name, lines_));
    return true;
}

bool RefrigerantDialog::ExportCsv(const QString& file) {
    if (kv::ExportSaturationCsv(lines_, file.toStdString())) return true;
    ws_.ui.Message(ws_.Title(), file.toStdString(), kv::MessageIcon::Error);
    return false;
}

}  // namespace kvui
