#include "ui/help_dialog.h"
#include "ui/screen_fit.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "shell/workspace.h"
#include "ui/qt_interface.h"

namespace kvui {

HelpDialog::HelpDialog(const kv::Workspace& ws, const QString& topic, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Help"));
    setWindowTitle(Q(ws.Title()));
    FitToScreen(ws, this, QSize(760, 480));
    auto* list = new QListWidget;
    auto* text = new QTextBrowser;
    list->setMaximumWidth(220);
    const auto& topics = ws.captions.help;
    for (const auto& t : topics) list->addItem(Q(t.title));
    connect(list, &QListWidget::currentRowChanged, this, [text, &topics](int row) {
        if (row < 0 || row >= static_cast<int>(topics.size())) return;
        QString body;
        for (const auto& line : topics[static_cast<std::size_t>(row)].lines) body += Q(line) + QLatin1Char('\n');
        text->setPlainText(body);
    });
    int start = 0;
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->text().compare(topic, Qt::CaseInsensitive) == 0) start = i;
    if (list->count() > 0) list->setCurrentRow(start);
    auto* row = new QHBoxLayout;
    row->addWidget(list);
    row->addWidget(text, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(row);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

void AddHelpKey(const kv::Workspace& ws, QWidget* screen, const std::string& topic) {
    QObject::connect(new QShortcut(QKeySequence(Qt::Key_F1), screen), &QShortcut::activated, screen,
                     [&ws, screen, topic] {
                         auto* help = new HelpDialog(ws, Q(topic), screen);
                         help->setAttribute(Qt::WA_DeleteOnClose);
                         help->open();
                     });
}

}  // namespace kvui
