#include "ui/ped_dialog.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"
#include "ui/screen_fit.h"

namespace kvui {

PedDialog::PedDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("PedScreen"));
    const kv::Captions& c = ws_.captions;
    setWindowTitle(Q(c[kv::PedWord::Title]));

    auto* choice = new QGroupBox(Q(c[kv::PedWord::HighSideChoice]));
    auto* choiceLayout = new QVBoxLayout(choice);
    const kv::PedWord words[3] = {kv::PedWord::Choice43, kv::PedWord::Choice55, kv::PedWord::Choice63};
    for (int i = 0; i < 3; ++i) {
        high_[static_cast<std::size_t>(i)] = new QRadioButton(Q(c[words[i]]));
        high_[static_cast<std::size_t>(i)]->setObjectName(QStringLiteral("High%1").arg(i + 1));
        choiceLayout->addWidget(high_[static_cast<std::size_t>(i)]);
        connect(high_[static_cast<std::size_t>(i)], &QRadioButton::clicked, this, [this, i] { ChooseHigh(i + 1); });
    }

    ps1_ = new QLineEdit;
    ps1_->setObjectName(QStringLiteral("PS1"));
    ps2_ = new QLineEdit;
    ps2_->setObjectName(QStringLiteral("PS2"));
    ps2x11_ = new QLabel;
    ps2x11_->setObjectName(QStringLiteral("PS2x11"));
    sizes_ = new QLabel;
    auto* fields = new QFormLayout;
    fields->addRow(Q(c[kv::PedWord::LowSide]) + QStringLiteral(": PS1 /[bar g]"),
                   ps1_);
    fields->addRow(Q(c[kv::PedWord::HighSide]) + QStringLiteral(": PS2 /[bar g]"),
                   ps2_);
    fields->addRow(Q(c[kv::PedWord::SafetyDevicePressure]) + QStringLiteral(" /[bar g]"), ps2x11_);
    fields->addRow(Q(c[kv::PedWord::NominalSize]) + QStringLiteral(" DN1 / DN2 /[mm]"), sizes_);
    connect(ps1_, &QLineEdit::editingFinished, this, &PedDialog::Classify);
    connect(ps2_, &QLineEdit::editingFinished, this, &PedDialog::Classify);

    table_ = new QTableWidget(5, 5);
    table_->setObjectName(QStringLiteral("PedTable"));
    table_->setHorizontalHeaderLabels({Q(c[kv::PedWord::Component]) + QStringLiteral(" - V/DN"),
                                       Q(c[kv::PedWord::Basis]), Q(c[kv::PedWord::Size]), Q(c[kv::PedWord::Product]),
                                       Q(c[kv::PedWord::CategoryColumn])});
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setStretchLastSection(true);
    // The column widths of the screen, in the proportions 400 : 800 : 1000 : 1300 : 2800.
    const int widths[5] = {160, 90, 80, 90, 0};
    for (int i = 0; i < 4; ++i) table_->setColumnWidth(i, widths[i]);

    assembly_ = new QLabel;
    assembly_->setObjectName(QStringLiteral("Assembly"));
    plant_ = new QLabel;
    plant_->setObjectName(QStringLiteral("Plant"));
    QFont bold = plant_->font();
    bold.setBold(true);
    plant_->setFont(bold);
    note_ = new QLabel(Q(c[kv::PedWord::Note]) + QStringLiteral(": ") + Q(c[kv::PedWord::NoteArticle]));
    note_->setObjectName(QStringLiteral("Note"));
    note_->setWordWrap(true);
    message_ = new QLabel;
    message_->setObjectName(QStringLiteral("Message"));

    QPushButton* protocol = NamedButton(Q(c[kv::PedWord::Protocol]), "Protocol");
    QPushButton* eco = NamedButton(Q(c[kv::PedWord::EcoTitle]), "Eco");
    QPushButton* close = NamedButton(Q(c[kv::Cap::Close]), "Close");
    connect(protocol, &QPushButton::clicked, this, &PedDialog::WriteProtocol);
    connect(eco, &QPushButton::clicked, this, &PedDialog::WriteEco);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);

    auto* top = new QHBoxLayout;
    top->addWidget(choice);
    top->addLayout(fields, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(protocol);
    buttons->addWidget(eco);
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(table_, 1);
    layout->addWidget(assembly_);
    layout->addWidget(plant_);
    layout->addWidget(note_);
    layout->addWidget(message_);
    layout->addLayout(buttons);

    kv::OpenPedScreen(ws_, screen_, 1);
    Fill();
    FitToScreen(ws_, this, QSize(960, 520));
}

void PedDialog::Fill() {
    const kv::Captions& c = ws_.captions;
    high_[static_cast<std::size_t>(screen_.high - 1)]->setChecked(true);
    ps1_->setText(Q(screen_.ps1));
    ps2_->setText(Q(screen_.ps2));
    ps2x11_->setText(Q(screen_.ps2x11));
    sizes_->setText(Q(kv::NumberText(screen_.dn1)) + QStringLiteral(" / ") + Q(kv::NumberText(screen_.dn2)) +
                    QStringLiteral("   PS * DN = ") + Q(kv::NumberText(screen_.psdn)));
    for (int r = 0; r < 5; ++r) {
        const kv::PedRow& row = screen_.rows[static_cast<std::size_t>(r)];
        const std::string* cells[5] = {&row.component, &row.basis, &row.size, &row.product, &row.text};
        for (int col = 0; col < 5; ++col) table_->setItem(r, col, new QTableWidgetItem(Q(*cells[col])));
    }
    assembly_->setText(Q(c[kv::PedWord::AssemblyCategory]) + QStringLiteral(": ") + Q(screen_.assemblyText) +
                       QStringLiteral("   (") + Q(c[kv::PedWord::FluidGroup]) + QStringLiteral(": ") +
                       Q(screen_.group1Assembly ? c[kv::PedWord::Group1] : c[kv::PedWord::Group2]) + QLatin1Char(')'));
    plant_->setText(Q(screen_.plantText));
    note_->setVisible(screen_.noteShown || screen_.plantIndex == 0);
}

void PedDialog::ChooseHigh(int high) {
    kv::ChooseHighSide(ws_, screen_, high);
    Fill();
}

void PedDialog::Classify() {
    screen_.ps1 = ps1_->text().toStdString();
    screen_.ps2 = ps2_->text().toStdString();
    kv::ClassifyPlant(ws_, screen_);
    Fill();
}

bool PedDialog::WriteProtocol() {
    Classify();
    const bool ok = kv::WritePedProtocol(ws_, screen_);
    message_->setText(ok ? QStringLiteral("PEDpar.DAT ✓") : QStringLiteral("PEDpar.DAT ✗"));
    return ok;
}

bool PedDialog::WriteEco() {
    const bool ok = kv::WriteEcoProtocol(ws_);
    message_->setText(ok ? QStringLiteral("ECOpar.DAT ✓") : QStringLiteral("ECOpar.DAT ✗"));
    return ok;
}

}  // namespace kvui
