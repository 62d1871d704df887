#include "ui/tables_dialogs.h"
#include "ui/screen_fit.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

#include "lines/pipe_files.h"
#include "lines/pipe_table.h"
#include "shell/captions.h"
#include "shell/text.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"

namespace kvui {

namespace {
// The series buttons of the editor: caption and file.
struct Series {
    kv::Cap word;
    const char* file;
};
constexpr Series kSeries[] = {{kv::Cap::SeriesCopperSi, "RohrDM.DAT"},   {kv::Cap::SeriesCopperInch, "RohrIN.DAT"},
                              {kv::Cap::SeriesSteel, "RohrDS.DAT"},      {kv::Cap::SeriesK65, "RohrK65.DAT"},
                              {kv::Cap::PipeSeriesOne, "ROHRPI.DAT"},    {kv::Cap::PipeSeriesTwo, "ROHRPII.DAT"},
                              {kv::Cap::SeriesUser, "RohrUSER.DAT"}};
constexpr int kShownColumns = 6;  // name, da, di, price, p zul, minutes
}  // namespace

PipeTableDialog::PipeTableDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("RohrDurchM"));
    grid_ = new QTableWidget(kv::kEditorRows, kShownColumns);
    grid_->setObjectName(QStringLiteral("PipeGrid"));
    grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(grid_, &QTableWidget::cellChanged, this, [this](int row, int col) {
        if (filling_) return;
        editor_.grid.Cell(col + 1, row + 1) = grid_->item(row, col)->text().toStdString();
    });

    auto* series = new QHBoxLayout;
    for (const Series& s : kSeries) {
        auto* b = new QPushButton(Q(ws_.captions[s.word]));
        b->setObjectName(QLatin1String(s.file));
        const std::string file = s.file;
        connect(b, &QPushButton::clicked, this, [this, file] { ShowSeries(file); });
        series->addWidget(b);
    }
    auto* actions = new QHBoxLayout;
    const std::pair<kv::Cap, std::function<void()>> acts[] = {
        {kv::Cap::InsertRow, [this] { kv::InsertEditorRow(editor_, CurrentRow()); Fill(); }},
        {kv::Cap::DeleteRow, [this] { kv::DeleteEditorRow(editor_, CurrentRow()); Fill(); }},
        {kv::Cap::Copy, [this] { kv::CopyEditorRow(editor_, CurrentRow()); }},
        {kv::Cap::Paste, [this] { kv::PasteEditorRow(editor_, CurrentRow()); Fill(); }},
        {kv::Cap::Sort, [this] {
             if (!Save()) return;  // a refused cell stays on screen to be mended
             kv::SortPipeFile(ws_, editor_.file);
             ShowSeries(editor_.file);
         }},
        {kv::Cap::RestoreFactory, [this] { kv::RestorePipeTable(ws_, editor_); Fill(); }},
        {kv::Cap::Save, [this] { Save(); }},
    };
    for (const auto& [word, act] : acts) {
        auto* b = new QPushButton(Q(ws_.captions[word]));
        if (word == kv::Cap::Save) b->setObjectName(QStringLiteral("PipeSave"));
        auto f = act;
        connect(b, &QPushButton::clicked, this, [f] { f(); });
        actions->addWidget(b);
    }
    auto* close = new QPushButton(Q(ws_.captions[kv::Cap::Close]));
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    actions->addStretch(1);
    actions->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(series);
    layout->addWidget(grid_, 1);
    layout->addLayout(actions);
    FitToScreen(ws_, this, QSize(900, 720));
    ShowSeries(ws_.project.RohrDatei.empty() ? "RohrDM.DAT" : ws_.project.RohrDatei);
}

int PipeTableDialog::CurrentRow() const { return std::max(1, grid_->currentRow() + 1); }

void PipeTableDialog::ShowSeries(const std::string& file) {
    editor_ = kv::LoadPipeEditor(ws_, file);
    setWindowTitle(Q(kv::EditorTitle(ws_, file)) + QStringLiteral(" - ") + Q(ws_.Title()));
    Fill();
}

void PipeTableDialog::Fill() {
    filling_ = true;
    const QSignalBlocker block(grid_);
    QStringList heads;
    for (int c = 1; c <= kShownColumns; ++c) heads << Q(kv::EditorHeading(ws_, c));
    grid_->setHorizontalHeaderLabels(heads);
    for (int r = 1; r <= kv::kEditorRows; ++r)
        for (int c = 1; c <= kShownColumns; ++c) grid_->setItem(r - 1, c - 1, new QTableWidgetItem(Q(editor_.grid.Cell(c, r))));
    filling_ = false;
}

bool PipeTableDialog::Save() {
    const bool ok = kv::SavePipeEditor(ws_, editor_);
    if (ok && kv::EqualsNoCase(editor_.file, ws_.project.RohrDatei)) kv::LoadPipeTable(ws_, ws_.project.RohrDatei);
    return ok;
}

ZetaDialog::ZetaDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("KSIwert"));
    setWindowTitle(QStringLiteral("ZETA-") + Q(ws.captions[kv::Cap::ZetaTitleWord]) + QStringLiteral(" - ") +
                   Q(ws.Title()));
    screen_ = kv::OpenZetaScreen(ws_);
    grid_ = new QTableWidget(kv::kZetaWritten, 1);
    grid_->setObjectName(QStringLiteral("ZetaGrid"));
    grid_->setHorizontalHeaderLabels({QStringLiteral("ZETA")});
    grid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    connect(grid_, &QTableWidget::cellChanged, this, [this](int row, int) {
        if (!filling_) screen_.cell[static_cast<std::size_t>(row + 1)] = grid_->item(row, 0)->text().toStdString();
    });
    auto* factory = new QPushButton(Q(ws_.captions[kv::Cap::ZetaFactoryValues]));
    connect(factory, &QPushButton::clicked, this, [this] {
        kv::zeta_mach(ws_, screen_);
        Fill();
    });
    auto* save = new QPushButton(Q(ws_.captions[kv::Cap::Save]));
    save->setObjectName(QStringLiteral("ZetaSave"));
    connect(save, &QPushButton::clicked, this, [this] {
        if (Save()) accept();
    });
    auto* close = new QPushButton(Q(ws_.captions[kv::Cap::Close]));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(factory);
    buttons->addStretch(1);
    buttons->addWidget(save);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid_, 1);
    layout->addWidget(new QLabel(Q(ws_.captions[kv::Cap::ZetaStraightPipe]) + QStringLiteral(" /10 m :")));
    layout->addLayout(buttons);
    FitToScreen(ws_, this, QSize(460, 420));
    Fill();
}

void ZetaDialog::Fill() {
    filling_ = true;
    const QSignalBlocker block(grid_);
    QStringList rows;
    for (int i = 1; i <= kv::kZetaWritten; ++i) {
        rows << Q(kv::ZetaRowCaption(ws_, i));
        grid_->setItem(i - 1, 0, new QTableWidgetItem(Q(screen_.cell[static_cast<std::size_t>(i)])));
    }
    grid_->setVerticalHeaderLabels(rows);
    filling_ = false;
}

bool ZetaDialog::Save() { return kv::zeta_speich(ws_, screen_); }

}  // namespace kvui
