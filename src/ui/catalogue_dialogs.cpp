#include "ui/catalogue_dialogs.h"
#include "ui/screen_fit.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"

namespace kvui {

CatalogueEditorDialog::CatalogueEditorDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("KatEdit"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::CatalogueEditorTitle]));
    catalogues_ = new QComboBox;
    catalogues_->setObjectName(QStringLiteral("Catalogues"));
    groups_ = new QComboBox;
    groups_->setObjectName(QStringLiteral("Groups"));
    series_ = new QLineEdit;
    series_->setObjectName(QStringLiteral("SeriesName"));
    series_->setMaxLength(kv::kCatalogueTextLength);
    kind_ = new QLabel;
    grid_ = new QTableWidget(0, kv::kCatalogueColumns);
    grid_->setObjectName(QStringLiteral("ArticleGrid"));

    connect(catalogues_, &QComboBox::activated, this, [this](int i) {
        ShowCatalogue(catalogues_->itemData(i).toString().toStdString());
    });
    connect(groups_, &QComboBox::activated, this, [this](int i) { ShowGroup(i + 1); });
    connect(series_, &QLineEdit::textEdited, this,
            [this](const QString& t) { kv::SetSeriesName(editor_, t.toStdString()); });
    connect(grid_, &QTableWidget::cellChanged, this, [this](int row, int col) {
        if (filling_) return;
        kv::SetEditorCell(editor_, row, col + 1, grid_->item(row, col)->text().toStdString());
        filling_ = true;
        grid_->item(row, col)->setText(Q(kv::EditorCell(editor_, row, col + 1)));  // as the record holds it
        filling_ = false;
    });

    auto* head = new QFormLayout;
    head->addRow(Q(c[kv::Cap::CatalogueTitle]), catalogues_);
    head->addRow(QString(), kind_);
    head->addRow(Q(c[kv::Cap::Articles]), groups_);
    head->addRow(Q(c[kv::Cap::Series]), series_);

    auto* actions = new QHBoxLayout;
    auto* insert = NamedButton(Q(c[kv::Cap::InsertRow]), "InsertRow");
    auto* remove = NamedButton(Q(c[kv::Cap::DeleteRow]), "DeleteRow");
    auto* save = NamedButton(Q(c[kv::Cap::Save]), "Save");
    auto* blank = NamedButton(Q(c[kv::Cap::NewCatalogue]), "NewCatalogue");
    auto* copy = NamedButton(Q(c[kv::Cap::CopyCatalogue]), "CopyCatalogue");
    auto* hide = NamedButton(Q(c[kv::Cap::HideProducts]), "HideProducts");
    auto* index = NamedButton(Q(c[kv::Cap::RebuildIndex]), "RebuildIndex");
    auto* manage = NamedButton(QStringLiteral("katalg.lst"), "Manager");
    auto* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(insert, &QPushButton::clicked, this, [this] {
        const int row = grid_->currentRow() < 0 ? static_cast<int>(editor_.rows.size()) : grid_->currentRow();
        if (kv::AddArticle(editor_, row)) FillGrid();
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        kv::DeleteArticle(editor_, grid_->currentRow());
        FillGrid();
    });
    connect(save, &QPushButton::clicked, this, [this] { Save(); });
    connect(blank, &QPushButton::clicked, this, [this] {
        std::string base, title;
        if (AskBaseAndTitle(base, title)) CreateBlank(base, title);
    });
    connect(copy, &QPushButton::clicked, this, [this] {
        std::string base, title;
        if (AskBaseAndTitle(base, title)) Copy(base, title);
    });
    connect(hide, &QPushButton::clicked, this, [this] { kv::HideSeries(ws_, editor_); });
    connect(index, &QPushButton::clicked, this, &CatalogueEditorDialog::RebuildIndex);
    connect(manage, &QPushButton::clicked, this, [this] {
        SaveIfChanged();
        CatalogueManagerDialog manager(ws_, this);
        manager.exec();
        const std::string base = editor_.base;
        const int slot = editor_.slot;
        kv::OpenCatalogueEditor(ws_, editor_);
        if (!base.empty() && kv::SelectCatalogue(ws_, editor_, base)) kv::SelectGroup(ws_, editor_, slot);
        FillAll();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    for (QPushButton* b : {insert, remove, save, blank, copy, hide, index, manage}) actions->addWidget(b);
    actions->addStretch(1);
    actions->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(grid_, 1);
    layout->addLayout(actions);
    FitToScreen(ws_, this, QSize(1100, 700));

    kv::OpenCatalogueEditor(ws_, editor_);
    FillAll();
}

void CatalogueEditorDialog::FillAll() {
    FillCatalogues();
    FillGroups();
    FillGrid();
}

void CatalogueEditorDialog::FillCatalogues() {
    catalogues_->clear();
    for (const kv::InstalledCatalogue& cat : editor_.catalogues)
        catalogues_->addItem(Q(cat.title + "  (" + cat.base + ")"), Q(cat.base));
    catalogues_->setCurrentIndex(catalogues_->findData(Q(editor_.base)));
    kind_->setText(Q(ws_.captions[kv::KindCaption(editor_.kind)]));
}

void CatalogueEditorDialog::FillGroups() {
    groups_->clear();
    for (int slot = 1; slot <= kv::kSlotCount; ++slot) {
        const int code = kv::SlotCode(slot);
        const std::string& name = editor_.seriesNames[static_cast<std::size_t>(slot - 1)];
        groups_->addItem(Q(std::to_string(code) + "  " + ws_.captions[kv::GroupCaption(code)] +
                           (name.empty() ? std::string() : "  -  " + name)));
    }
    groups_->setCurrentIndex(editor_.slot - 1);
}

void CatalogueEditorDialog::FillGrid() {
    filling_ = true;
    grid_->clear();
    grid_->setRowCount(static_cast<int>(editor_.rows.size()));
    QStringList headings;
    for (const std::string& h : editor_.headings) headings << Q(h);
    grid_->setHorizontalHeaderLabels(headings);
    for (int r = 0; r < grid_->rowCount(); ++r)
        for (int col = 0; col < kv::kCatalogueColumns; ++col)
            grid_->setItem(r, col, new QTableWidgetItem(Q(kv::EditorCell(editor_, r, col + 1))));
    series_->setText(editor_.slot > 0 ? Q(editor_.seriesNames[static_cast<std::size_t>(editor_.slot - 1)]) : QString());
    filling_ = false;
}

void CatalogueEditorDialog::SaveIfChanged() {
    if (editor_.changed) Save();
}

void CatalogueEditorDialog::ShowCatalogue(const std::string& base) {
    SaveIfChanged();
    const int slot = editor_.slot > 0 ? editor_.slot : 1;
    if (kv::SelectCatalogue(ws_, editor_, base)) kv::SelectGroup(ws_, editor_, slot);
    FillAll();
}

void CatalogueEditorDialog::ShowGroup(int slot) {
    SaveIfChanged();
    if (editor_.base.empty()) return;
    kv::SelectGroup(ws_, editor_, slot);
    groups_->setCurrentIndex(editor_.slot - 1);
    FillGrid();
}

bool CatalogueEditorDialog::Save() {
    const bool ok = kv::SaveGroup(ws_, editor_);
    if (ok) {
        const int slot = editor_.slot;
        FillGroups();
        groups_->setCurrentIndex(slot - 1);
    }
    return ok;
}

bool CatalogueEditorDialog::Copy(const std::string& base, const std::string& title) {
    SaveIfChanged();
    const bool ok = kv::CopyCatalogue(ws_, editor_, base, title);
    FillAll();
    return ok;
}

bool CatalogueEditorDialog::CreateBlank(const std::string& base, const std::string& title) {
    SaveIfChanged();
    const bool ok = kv::NewCatalogue(ws_, editor_, base, title);
    FillAll();
    return ok;
}

void CatalogueEditorDialog::RebuildIndex() {
    SaveIfChanged();
    QProgressDialog bar(QStringLiteral("Matchcode"), QString(), 0, 100, this);
    bar.setWindowTitle(QStringLiteral("Matchcode"));
    bar.setMinimumDuration(0);
    kv::BuildMatchcode(ws_, [&bar](int percent) { bar.setValue(percent); });
}

bool CatalogueEditorDialog::AskBaseAndTitle(std::string& base, std::string& title) {
    bool ok = false;
    const QString b = QInputDialog::getText(this, windowTitle(), QStringLiteral("Base (7)"), QLineEdit::Normal,
                                            QString(), &ok);
    if (!ok || b.trimmed().size() != 7) return false;
    const QString t = QInputDialog::getText(this, windowTitle(), Q(ws_.captions[kv::Cap::CatalogueTitle]),
                                            QLineEdit::Normal, QString(), &ok);
    if (!ok) return false;
    base = b.trimmed().toStdString();
    title = t.toStdString();
    return true;
}

void CatalogueEditorDialog::done(int result) {
    SaveIfChanged();
    QDialog::done(result);
}

CatalogueManagerDialog::CatalogueManagerDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("KatManager"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(QStringLiteral("katalg.lst"));
    installed_ = new QTableWidget(0, 3);
    installed_->setObjectName(QStringLiteral("Installed"));
    installed_->setHorizontalHeaderLabels({QStringLiteral("Base"), Q(c[kv::Cap::CatalogueTitle]), QString()});
    installed_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    installed_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    candidates_ = new QComboBox;
    candidates_->setObjectName(QStringLiteral("Candidates"));
    title_ = new QLineEdit;
    title_->setObjectName(QStringLiteral("Title"));
    auto* install = NamedButton(QStringLiteral("+"), "Install");
    auto* remove = NamedButton(QStringLiteral("-"), "Remove");
    auto* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(install, &QPushButton::clicked, this, [this] {
        Install(candidates_->currentText().toStdString(), title_->text().toStdString());
    });
    connect(remove, &QPushButton::clicked, this, [this] {
        const int row = installed_->currentRow();
        if (row >= 0) Remove(installed_->item(row, 0)->text().toStdString());
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    auto* add = new QHBoxLayout;
    add->addWidget(candidates_);
    add->addWidget(title_, 1);
    add->addWidget(install);
    add->addWidget(remove);
    add->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(installed_, 1);
    layout->addLayout(add);
    FitToScreen(ws_, this, QSize(800, 480));
    Fill();
}

void CatalogueManagerDialog::Fill() {
    const auto rows = kv::ListInstalled(ws_);
    installed_->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < installed_->rowCount(); ++r) {
        const kv::ManagedCatalogue& m = rows[static_cast<std::size_t>(r)];
        installed_->setItem(r, 0, new QTableWidgetItem(Q(m.base)));
        installed_->setItem(r, 1, new QTableWidgetItem(Q(m.title)));
        installed_->setItem(r, 2, new QTableWidgetItem(m.present ? Q(ws_.captions[kv::KindCaption(m.kind)])
                                                                 : QStringLiteral("-")));
    }
    candidates_->clear();
    for (const std::string& b : kv::InstallableBases(ws_)) candidates_->addItem(Q(b));
}

bool CatalogueManagerDialog::Install(const std::string& base, const std::string& title) {
    const bool ok = kv::InstallCatalogue(ws_, base, title);
    Fill();
    return ok;
}

bool CatalogueManagerDialog::Remove(const std::string& base) {
    const bool ok = kv::RemoveCatalogue(ws_, base);
    Fill();
    return ok;
}

}  // namespace kvui
