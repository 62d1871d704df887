#include "ui/project_browser_dialog.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/file_dialogs.h"
#include "ui/qt_interface.h"

namespace kvui {

ProjectBrowserDialog::ProjectBrowserDialog(kv::Workspace& ws, QWidget* parent)
    : QDialog(parent), ws_(ws), browser_(ws) {
    setObjectName(QStringLiteral("ProjectBrowser"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::ProjectBrowserTitle]));

    search_ = new QLineEdit;
    search_->setObjectName(QStringLiteral("Search"));
    search_->setPlaceholderText(Q(c[kv::Cap::Search]));
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::textChanged, this, &ProjectBrowserDialog::Search);

    grid_ = new QTableWidget(0, 7);
    grid_->setObjectName(QStringLiteral("Projects"));
    grid_->setHorizontalHeaderLabels({Q(c[kv::Cap::ProjectWord]), Q(c[kv::Cap::Description]),
                                      Q(c[kv::Cap::PlantType]), Q(c[kv::Cap::Refrigerant]), Q(c[kv::Cap::Date]),
                                      Q(c[kv::Cap::BrowserCompanions]), Q(c[kv::Cap::Directory])});
    grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid_->setSelectionMode(QAbstractItemView::SingleSelection);
    grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid_->verticalHeader()->hide();
    grid_->horizontalHeader()->setStretchLastSection(true);
    connect(grid_, &QTableWidget::cellDoubleClicked, this, [this] { OpenCurrent(); });

    QPushButton* open = NamedButton(Q(c[kv::Cap::Open]), "Open");
    QPushButton* copy = NamedButton(Q(c[kv::Cap::Copy]), "Copy");
    QPushButton* rename = NamedButton(Q(c[kv::Cap::BrowserRename]), "Rename");
    QPushButton* remove = NamedButton(Q(c[kv::Cap::Delete]), "Delete");
    QPushButton* other = NamedButton(Q(c[kv::Cap::BrowserOtherFile]), "OtherFile");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    open->setDefault(true);
    connect(open, &QPushButton::clicked, this, [this] { OpenCurrent(); });
    connect(copy, &QPushButton::clicked, this, [this] { AskName(true); });
    connect(rename, &QPushButton::clicked, this, [this] { AskName(false); });
    connect(remove, &QPushButton::clicked, this, [this] { DeleteCurrent(); });
    connect(other, &QPushButton::clicked, this, [this] {
        const QString file = AskProjectOpenPath(ws_, this, windowTitle());
        if (!file.isEmpty()) OpenFile(file);
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {open, copy, rename, remove, other}) buttons->addWidget(b);
    buttons->addStretch();
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(search_);
    layout->addWidget(grid_);
    layout->addLayout(buttons);
    resize(1080, 520);

    browser_.Scan();
    Fill();
}

void ProjectBrowserDialog::Fill() {
    const auto& shown = browser_.Shown();
    grid_->setRowCount(static_cast<int>(shown.size()));
    for (int r = 0; r < grid_->rowCount(); ++r) {
        const kv::BrowsedProject& b = shown[static_cast<std::size_t>(r)];
        std::string companions;
        for (const std::string& e : b.companions) companions += (companions.empty() ? "" : " ") + e;
        const QString cells[7] = {QString::fromStdString(b.file.filename().string()) + QStringLiteral("  ") +
                                      Q(b.name),
                                  Q(b.description), Q(b.plantType), Q(b.refrigerant), Q(b.date), Q(companions),
                                  QString::fromStdString(b.file.parent_path().string())};
        for (int col = 0; col < 7; ++col) grid_->setItem(r, col, new QTableWidgetItem(cells[col]));
    }
    grid_->resizeColumnsToContents();
    // Long names and descriptions are cut so that the short columns stay in view.
    for (int col : {0, 1}) grid_->setColumnWidth(col, std::min(grid_->columnWidth(col), 280));
    if (grid_->rowCount() > 0) grid_->selectRow(0);
}

int ProjectBrowserDialog::CurrentRow() const { return grid_->currentRow(); }

void ProjectBrowserDialog::Search(const QString& text) {
    browser_.Search(text.toStdString());
    Fill();
}

bool ProjectBrowserDialog::OpenCurrent() {
    if (CurrentRow() < 0 || !browser_.Open(static_cast<std::size_t>(CurrentRow()))) return false;
    emit projectOpened();
    accept();
    return true;
}

bool ProjectBrowserDialog::OpenFile(const QString& file) {
    if (!browser_.OpenFile(file.toStdString())) return false;
    emit projectOpened();
    accept();
    return true;
}

bool ProjectBrowserDialog::CopyCurrent(const QString& newName) {
    const bool ok = CurrentRow() >= 0 && browser_.Copy(static_cast<std::size_t>(CurrentRow()), newName.toStdString());
    Fill();
    return ok;
}

bool ProjectBrowserDialog::RenameCurrent(const QString& newName) {
    const bool ok =
        CurrentRow() >= 0 && browser_.Rename(static_cast<std::size_t>(CurrentRow()), newName.toStdString());
    Fill();
    return ok;
}

bool ProjectBrowserDialog::DeleteCurrent() {
    const bool ok = CurrentRow() >= 0 && browser_.Delete(static_cast<std::size_t>(CurrentRow()));
    Fill();
    return ok;
}

void ProjectBrowserDialog::AskName(bool copy) {
    if (CurrentRow() < 0) return;
    const auto& b = browser_.Shown()[static_cast<std::size_t>(CurrentRow())];
    bool ok = false;
    const QString name = QInputDialog::getText(this, windowTitle(), Q(ws_.captions[kv::Cap::BrowserNewName]),
                                               QLineEdit::Normal, QString::fromStdString(b.file.filename().string()),
                                               &ok);
    if (!ok) return;
    if (copy) CopyCurrent(name);
    else RenameCurrent(name);
}

}  // namespace kvui
