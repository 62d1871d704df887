#include "ui/welcome_dialog.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"

namespace kvui {

WelcomeDialog::WelcomeDialog(kv::Workspace& ws, QWidget* parent) : QDialog(parent), ws_(ws) {
    setObjectName(QStringLiteral("Begruess"));
    setWindowTitle(Q(ws.Title()));
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(Q(ws.captions[kv::Cap::WelcomeTitle].empty() ? ws.productName
                                                                           : ws.captions[kv::Cap::WelcomeTitle]));
    QFont f = title->font();
    f.setPointSizeF(f.pointSizeF() * 1.8);
    f.setBold(true);
    title->setFont(f);
    layout->addWidget(title);
    auto* text = new QLabel(Q(ws.captions[kv::Cap::WelcomeText]));
    text->setWordWrap(true);
    layout->addWidget(text);

    auto* grid = new QGridLayout;
    int n = 0;
    for (std::string_view code : kv::kLanguages) {
        if (!kv::LanguageAvailable(ws, code)) continue;
        const QString c = QString::fromUtf8(code.data(), static_cast<int>(code.size()));
        const std::string_view name = kv::LanguageName(code);
        auto* b = new QPushButton(QString::fromUtf8(name.data(), static_cast<int>(name.size())));
        b->setObjectName(QStringLiteral("lang_") + c);
        b->setMinimumWidth(140);
        if (c == Q(ws.settings.Sprache)) b->setDefault(true);
        connect(b, &QPushButton::clicked, this, [this, c] { Choose(c); });
        grid->addWidget(b, n / 3, n % 3);
        ++n;
    }
    layout->addLayout(grid);
}

void WelcomeDialog::Choose(const QString& code) {
    kv::ChangeLanguage(ws_, code.toStdString());
    accept();
}

}  // namespace kvui
