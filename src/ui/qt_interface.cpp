#include "ui/qt_interface.h"

#include <QTableWidget>

#include <QPushButton>

#include <QFont>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>

namespace kvui {

kv::UserInterface MakeQtInterface(QWidget* parent) {
    QPointer<QWidget> owner(parent);
    kv::UserInterface ui;
    ui.message = [owner](const std::string& title, const std::string& text, kv::MessageIcon icon) {
        const QMessageBox::Icon i = icon == kv::MessageIcon::Error      ? QMessageBox::Critical
                                    : icon == kv::MessageIcon::Question ? QMessageBox::Question
                                    : icon == kv::MessageIcon::Warning  ? QMessageBox::Warning
                                                                        : QMessageBox::Information;
        QMessageBox box(i, Q(title), Q(text), QMessageBox::Ok, owner.data());
        box.exec();
    };
    ui.askYesNo = [owner](const std::string& title, const std::string& text) {
        QMessageBox box(QMessageBox::Question, Q(title), Q(text), QMessageBox::Yes | QMessageBox::No, owner.data());
        box.setDefaultButton(QMessageBox::No);
        return box.exec() == QMessageBox::Yes;
    };
    ui.startDetached = [](const std::filesystem::path& program, const std::filesystem::path& workDir) {
        return QProcess::startDetached(QString::fromStdString(program.string()), {},
                                       QString::fromStdString(workDir.string()));
    };
    return ui;
}

void InstallFontSubstitutes() {
    QFont::insertSubstitution(QStringLiteral("Arial"), QStringLiteral("Liberation Sans"));
    QFont::insertSubstitution(QStringLiteral("Helvetica"), QStringLiteral("Liberation Sans"));
}

QPushButton* NamedButton(const QString& text, const char* name) {
    auto* b = new QPushButton(text);
    b->setObjectName(QLatin1String(name));
    return b;
}

QTableWidget* ChoiceGrid(const QStringList& heads, const char* name) {
    auto* grid = new QTableWidget(0, static_cast<int>(heads.size()));
    grid->setObjectName(QLatin1String(name));
    grid->setHorizontalHeaderLabels(heads);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    return grid;
}

}  // namespace kvui
