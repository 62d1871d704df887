#include "ui/load_split_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include "project/field_checks.h"
#include "project/project.h"
#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"
#include "ui/screen_fit.h"

namespace kvui {

LoadSplitDialog::LoadSplitDialog(kv::Workspace& ws, bool discharge, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("LoadSplit"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::Cap::LoadSplitTitle]) + QStringLiteral(" - ") +
                   Q(kv::LineSectionCaption(ws_, discharge ? kv::Discharge : kv::Suction)));
    kv::OpenLoadSplit(ws_, screen_, discharge);
    branches_ = new QSpinBox;
    branches_->setObjectName(QStringLiteral("Branches"));
    branches_->setRange(2, kv::kMaxSplitBranches);
    branches_->setValue(screen_.branches);
    auto* form = new QFormLayout;
    form->addRow(Q(c[kv::Cap::Branches]), branches_);
    for (int i = 0; i < kv::kMaxSplitBranches; ++i) {
        auto* edit = new QLineEdit(Q(screen_.share[static_cast<std::size_t>(i)]));
        edit->setObjectName(QStringLiteral("Share%1").arg(i + 1));
        shares_[static_cast<std::size_t>(i)] = edit;
        form->addRow(Q(c[kv::Cap::Branch]) + QStringLiteral(" %1, ").arg(i + 1) + Q(c[kv::Cap::Share]) +
                         QStringLiteral(" /[%]"),
                     edit);
    }
    auto enable = [this](int n) {
        for (int i = 0; i < kv::kMaxSplitBranches; ++i) shares_[static_cast<std::size_t>(i)]->setEnabled(i < n);
    };
    connect(branches_, &QSpinBox::valueChanged, this, enable);
    enable(screen_.branches);
    table_ = new QTableWidget(0, 6);
    table_->setObjectName(QStringLiteral("Result"));
    table_->setHorizontalHeaderLabels({Q(c[kv::Cap::Branch]), QStringLiteral("kW"), Q(c[kv::Cap::PipeSize]),
                                       QStringLiteral("mbar"), QStringLiteral("K"), QStringLiteral("m/s")});
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Message"));
    message_->setWordWrap(true);
    QPushButton* calc = NamedButton(Q(c[kv::Cap::BtnCalculate]), "Calculate");
    QPushButton* ok = NamedButton(Q(c[kv::Cap::Ok]), "Ok");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(calc, &QPushButton::clicked, this, &LoadSplitDialog::Calculate);
    connect(ok, &QPushButton::clicked, this, [this] {
        if (Calculate() && Save()) accept();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(calc);
    buttons->addStretch(1);
    buttons->addWidget(ok);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(table_, 1);
    layout->addWidget(message_);
    layout->addLayout(buttons);
    FitToScreen(ws_, this, QSize(640, 480));
}

void LoadSplitDialog::Take() {
    screen_.branches = branches_->value();
    for (int i = 0; i < kv::kMaxSplitBranches; ++i)
        screen_.share[static_cast<std::size_t>(i)] = shares_[static_cast<std::size_t>(i)]->text().toStdString();
}

void LoadSplitDialog::Fill() {
    table_->setRowCount(static_cast<int>(screen_.rows.size()));
    for (int r = 0; r < static_cast<int>(screen_.rows.size()); ++r) {
        const kv::SplitBranch& b = screen_.rows[static_cast<std::size_t>(r)];
        const QString cells[6] = {QString::number(b.branch), Q(kv::NumberText(b.capacity)), Q(b.size),
                                  Q(kv::NumberText(kv::Cut(b.lossMbar, 1))), Q(kv::NumberText(kv::Cut(b.lossK, 2))),
                                  Q(kv::NumberText(kv::Cut(b.velocity, 2)))};
        for (int col = 0; col < 6; ++col) {
            auto* item = new QTableWidgetItem(cells[col]);
            if (!b.limitMet && col == 4) item->setForeground(Qt::red);
            table_->setItem(r, col, item);
        }
    }
    QString text;
    for (const std::string& m : screen_.messages) text += Q(m) + QLatin1Char('\n');
    message_->setText(text.trimmed());
}

bool LoadSplitDialog::Calculate() {
    Take();
    const bool ok = kv::CalculateLoadSplit(ws_, screen_);
    Fill();
    return ok;
}

bool LoadSplitDialog::Save() { return kv::SaveLoadSplit(ws_, screen_); }

}  // namespace kvui
