#include "ui/report_dialog.h"

#include <algorithm>

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QFormLayout>
#include <QScreen>
#include <QSlider>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include "render/render.h"
#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/picture_view.h"
#include "ui/qt_interface.h"
#include "ui/screen_fit.h"

namespace kvui {

PrintSettingsDialog::PrintSettingsDialog(kv::Workspace& ws, kv::PrintSettings& settings, QWidget* parent)
    : QDialog(parent), settings_(settings) {
    setObjectName(QStringLiteral("DruckEInstell"));
    const kv::Captions& c = ws.captions;
    setWindowTitle(Q(c[kv::Cap::PrintSettingsTitle]));
    paper_ = new QComboBox;
    paper_->setObjectName(QStringLiteral("Paper"));
    for (const char* p : kv::kPapers) paper_->addItem(QString::fromLatin1(p));
    paper_->setCurrentText(Q(settings_.paper));
    window_ = new QComboBox;
    window_->setObjectName(QStringLiteral("WindowState"));
    for (const char* w : kv::kWindowStates) window_->addItem(QString::fromLatin1(w));
    window_->setCurrentIndex(settings_.windowState);
    font_ = new QComboBox;
    font_->setObjectName(QStringLiteral("FontSize"));
    for (int f : kv::kFontSizes) font_->addItem(QString::number(f));
    font_->setCurrentText(QString::number(settings_.fontSize));
    scale_ = new QSlider(Qt::Horizontal);
    scale_->setObjectName(QStringLiteral("Scale"));
    scale_->setRange(50, 150);
    scale_->setValue(settings_.scale);
    auto* percent = new QLabel(QString::number(settings_.scale) + QStringLiteral(" %"));
    connect(scale_, &QSlider::valueChanged, percent, [percent](int v) { percent->setText(QString::number(v) + QStringLiteral(" %")); });
    // Printer_I: the printer and its page, with the sizes it reports.
    auto* sizes = new QLabel;
    sizes->setObjectName(QStringLiteral("Sizes"));
    QPushButton* printer = NamedButton(Q(c[kv::Cap::Printer]), "Printer_I");
    connect(printer, &QPushButton::clicked, this, [this, sizes] {
        QPrinter p(QPrinter::HighResolution);
        QPrintDialog dialog(&p, this);
        if (dialog.exec() != QDialog::Accepted) return;
        const QRect screen = this->screen() ? this->screen()->geometry() : QRect();
        sizes->setText(QStringLiteral("Printer Height = %1\nPrinter Width = %2\nScreen Height = %3\nScreen Width = %4")
                           .arg(p.height()).arg(p.width()).arg(screen.height()).arg(screen.width()));
    });
    QPushButton* ok = NamedButton(Q(c[kv::Cap::Ok]), "Ende_druck");
    connect(ok, &QPushButton::clicked, this, [this] {
        Take();
        accept();
    });
    auto* form = new QFormLayout;
    form->addRow(Q(c[kv::Cap::Paper]), paper_);
    form->addRow(Q(c[kv::Cap::DrawingWindow]), window_);
    form->addRow(Q(c[kv::Cap::FontSize]), font_);
    auto* scaleRow = new QHBoxLayout;
    scaleRow->addWidget(scale_, 1);
    scaleRow->addWidget(percent);
    form->addRow(Q(c[kv::Cap::Scale]), scaleRow);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(sizes);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(printer);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    layout->addLayout(buttons);
}

void PrintSettingsDialog::Take() {
    settings_.paper = paper_->currentText().toStdString();
    settings_.windowState = window_->currentIndex();
    settings_.fontSize = font_->currentText().toInt();
    settings_.scale = scale_->value();
}

ReportDialog::ReportDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("ErgebEdit"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::ReportWord]) + QStringLiteral(" - ") + Q(ws_.project.ProjektNam));
    sets_ = kv::PlantReportSets(ws_);
    set_ = new QComboBox;
    set_->setObjectName(QStringLiteral("Sets"));
    for (const kv::ReportSet& s : sets_) set_->addItem(Q(s.title));
    grid_ = new QTableWidget(0, 1);
    grid_->setObjectName(QStringLiteral("DataSpread"));
    grid_->horizontalHeader()->hide();
    grid_->horizontalHeader()->setStretchLastSection(true);
    connect(grid_, &QTableWidget::cellChanged, this, [this] {
        if (filling_) return;
        TakeGrid();
        Relayout();
    });
    preview_ = new PictureView;
    preview_->setObjectName(QStringLiteral("Preview"));
    preview_->setMinimumSize(420, 594);
    page_ = new QSpinBox;
    page_->setObjectName(QStringLiteral("Page"));
    page_->setPrefix(Q(c[kv::Cap::Page]) + QLatin1Char(' '));
    pages_label_ = new QLabel;
    connect(page_, &QSpinBox::valueChanged, this, [this](int p) { ShowPage(p - 1); });
    connect(set_, &QComboBox::currentIndexChanged, this, &ReportDialog::ShowSet);

    QPushButton* insert = NamedButton(Q(c[kv::Cap::InsertRow]), "InsertRow");
    QPushButton* remove = NamedButton(Q(c[kv::Cap::DeleteRow]), "DeleteRow");
    QPushButton* copy = NamedButton(Q(c[kv::Cap::Copy]), "Copy");
    QPushButton* paste = NamedButton(Q(c[kv::Cap::Paste]), "Paste");
    connect(copy, &QPushButton::clicked, this, &ReportDialog::CopyLines);
    connect(paste, &QPushButton::clicked, this, &ReportDialog::PasteLines);
    QPushButton* print = NamedButton(Q(c[kv::Cap::Print]), "Print");
    QPushButton* setup = NamedButton(Q(c[kv::Cap::PrintSettingsTitle]), "PrintSettings");
    connect(setup, &QPushButton::clicked, this, [this] {
        auto* d = new PrintSettingsDialog(ws_, settings_, this);
        d->setAttribute(Qt::WA_DeleteOnClose);
        d->open();
    });
    QPushButton* pdf = NamedButton(QStringLiteral("PDF"), "Pdf");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(insert, &QPushButton::clicked, this, &ReportDialog::InsertLine);
    connect(remove, &QPushButton::clicked, this, &ReportDialog::DeleteLine);
    connect(print, &QPushButton::clicked, this, &ReportDialog::Print);
    connect(pdf, &QPushButton::clicked, this, [this] {
        const QString path = QFileDialog::getSaveFileName(this, windowTitle(), Q(ws_.project.ProjektNam) + QStringLiteral(".pdf"),
                                                          QStringLiteral("PDF (*.pdf)"));
        if (!path.isEmpty()) SavePdf(path);
    });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->addWidget(set_);
    leftLayout->addWidget(grid_, 1);
    auto* edit = new QHBoxLayout;
    for (QPushButton* b : {insert, remove, copy, paste}) edit->addWidget(b);
    edit->addStretch(1);
    leftLayout->addLayout(edit);
    auto* right = new QWidget;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->addWidget(preview_, 1);
    auto* nav = new QHBoxLayout;
    nav->addWidget(page_);
    nav->addWidget(pages_label_);
    nav->addStretch(1);
    rightLayout->addLayout(nav);
    auto* split = new QSplitter;
    split->addWidget(left);
    split->addWidget(right);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(setup);
    buttons->addWidget(print);
    buttons->addWidget(pdf);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(split, 1);
    layout->addLayout(buttons);
    Relayout();
    ShowSet(0);
    FitToScreen(ws_, this, QSize(1200, 700));
}

void ReportDialog::ShowSet(int set) {
    filling_ = true;
    grid_->setRowCount(0);
    if (set >= 0 && set < static_cast<int>(sets_.size())) {
        const auto& lines = sets_[static_cast<std::size_t>(set)].lines;
        grid_->setRowCount(static_cast<int>(lines.size()));
        for (int r = 0; r < static_cast<int>(lines.size()); ++r)
            grid_->setItem(r, 0, new QTableWidgetItem(Q(lines[static_cast<std::size_t>(r)])));
    }
    filling_ = false;
    // The first page of that set.
    int page = 0;
    for (int s = 0; s < set && s < static_cast<int>(sets_.size()); ++s) {
        std::vector<kv::ReportSet> one = {sets_[static_cast<std::size_t>(s)]};
        page += static_cast<int>(kv::LayoutReport(ws_, one).size());
    }
    page_->setValue(page + 1);
    ShowPage(page);
}

void ReportDialog::ShowPage(int page) {
    if (page < 0 || page >= static_cast<int>(pages_.size())) return;
    preview_->SetPicture(pages_[static_cast<std::size_t>(page)]);
}

void ReportDialog::TakeGrid() {
    const int set = set_->currentIndex();
    if (set < 0 || set >= static_cast<int>(sets_.size())) return;
    auto& lines = sets_[static_cast<std::size_t>(set)].lines;
    lines.clear();
    for (int r = 0; r < grid_->rowCount(); ++r) {
        QTableWidgetItem* item = grid_->item(r, 0);
        lines.push_back(item ? item->text().toStdString() : std::string());
    }
}

void ReportDialog::Relayout() {
    pages_ = kv::LayoutReport(ws_, sets_);
    const QSignalBlocker quiet(page_);
    page_->setRange(1, std::max<int>(1, static_cast<int>(pages_.size())));
    pages_label_->setText(QStringLiteral("/ %1").arg(pages_.size()));
    ShowPage(page_->value() - 1);
}

void ReportDialog::InsertLine() {
    const int row = std::max(0, grid_->currentRow());
    filling_ = true;
    grid_->insertRow(row);
    grid_->setItem(row, 0, new QTableWidgetItem);
    filling_ = false;
    TakeGrid();
    Relayout();
}

void ReportDialog::DeleteLine() {
    if (grid_->currentRow() < 0) return;
    grid_->removeRow(grid_->currentRow());
    TakeGrid();
    Relayout();
}

void ReportDialog::CopyLines() {
    int first = grid_->currentRow(), last = first;
    for (const QTableWidgetSelectionRange& r : grid_->selectedRanges()) {
        first = std::min(first, r.topRow());
        last = std::max(last, r.bottomRow());
    }
    QStringList lines;
    for (int r = std::max(0, first); r <= last && r < grid_->rowCount(); ++r)
        lines << (grid_->item(r, 0) ? grid_->item(r, 0)->text() : QString());
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void ReportDialog::PasteLines() {
    const QStringList lines = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'));
    int row = std::max(0, grid_->currentRow());
    filling_ = true;
    for (const QString& line : lines) {
        grid_->insertRow(row);
        grid_->setItem(row++, 0, new QTableWidgetItem(QString(line).remove(QLatin1Char('\r'))));
    }
    filling_ = false;
    TakeGrid();
    Relayout();
}

bool ReportDialog::SavePdf(const QString& path) { return kv::render::WritePdfPages(pages_, path, Q(ws_.project.ProjektNam)); }

bool ReportDialog::Print() {
    QPrinter printer(QPrinter::HighResolution);
    const QPageSize::PageSizeId paper = settings_.paper == "A3"   ? QPageSize::A3
                                        : settings_.paper == "A2" ? QPageSize::A2
                                                                  : QPageSize::A4;
    printer.setPageSize(QPageSize(paper));
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return false;
    QPainter p;
    if (!p.begin(&printer)) return false;
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (i > 0) printer.newPage();
        // The scale of the print settings, about the page's top left corner.
        const double f = settings_.scale / 100.0;
        kv::render::Paint(p, pages_[i], QRectF(0, 0, page.width() * f, page.height() * f));
    }
    p.end();
    return true;
}

}  // namespace kvui
