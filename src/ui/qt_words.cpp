#include "ui/qt_words.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLibraryInfo>
#include <QTranslator>

#include <string_view>
#include <utility>

#include "shell/bidi_text.h"
#include "shell/captions.h"
#include "shell/workspace.h"
#include "ui/qt_interface.h"

namespace kvui {

namespace {

// The locale name of Qt's translation files for a language of the program.
QString QtLocale(std::string_view code) {
    static constexpr std::pair<std::string_view, const char*> names[] = {
        {"ARA", "ar"}, {"BUL", "bg"}, {"CRO", "hr"}, {"CZH", "cs"}, {"DAN", "da"}, {"ENG", "en"},
        {"ESP", "es"}, {"FRA", "fr"}, {"GER", "de"}, {"GRE", "el"}, {"HUN", "hu"}, {"ITA", "it"},
        {"NDL", "nl"}, {"NOR", "nb"}, {"POL", "pl"}, {"POR", "pt_BR"}, {"ROM", "ro"}, {"RUS", "ru"},
        {"SVK", "sk"}, {"SWE", "sv"}, {"TRK", "tr"}, {"TWA", "zh_TW"}};
    for (const auto& [c, name] : names)
        if (c == code) return QLatin1String(name);
    return QStringLiteral("en");
}

// The standard buttons' words from the caption table; asked before Qt's
// own files, so every language has them.
class CaptionWords : public QTranslator {
public:
    CaptionWords(const kv::Captions& c, QObject* parent)
        : QTranslator(parent), yes_(Q(c[kv::Cap::Yes])), no_(Q(c[kv::Cap::No])), ok_(Q(c[kv::Cap::Ok])),
          cancel_(Q(c[kv::Cap::Cancel])) {}
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override {
        if (qstrcmp(context, "QPlatformTheme") != 0 && qstrcmp(context, "QDialogButtonBox") != 0) return {};
        const QString s = QString::fromLatin1(source).remove(QLatin1Char('&'));
        if (s == QLatin1String("Yes")) return yes_;
        if (s == QLatin1String("No")) return no_;
        if (s == QLatin1String("OK")) return ok_;
        if (s == QLatin1String("Cancel")) return cancel_;
        return {};
    }

private:
    QString yes_, no_, ok_, cancel_;
};

class FigureRule : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if ((event->type() != QEvent::Paint && event->type() != QEvent::Show) ||
            QGuiApplication::layoutDirection() != Qt::RightToLeft)
            return false;
        auto isolate = [](const QString& t) { return Q(kv::IsolateFigures(t.toStdString())); };
        if (auto* label = qobject_cast<QLabel*>(watched)) {
            if (label->textFormat() != Qt::RichText && !label->text().isEmpty()) {
                const QString t = isolate(label->text());
                if (t != label->text()) label->setText(t);
            }
        } else if (auto* button = qobject_cast<QAbstractButton*>(watched)) {
            const QString t = isolate(button->text());
            if (t != button->text()) button->setText(t);
        } else if (auto* group = qobject_cast<QGroupBox*>(watched)) {
            const QString t = isolate(group->title());
            if (t != group->title()) group->setTitle(t);
        } else if (auto* field = qobject_cast<QLineEdit*>(watched)) {
            // A typed "-10" must not show as "10-"; the field keeps its place.
            if (field->layoutDirection() != Qt::LeftToRight) field->setLayoutDirection(Qt::LeftToRight);
        }
        return false;
    }
};

}  // namespace

void InstallFigureRule() {
    if (!qApp || qApp->findChild<FigureRule*>(QStringLiteral("FigureRule"), Qt::FindDirectChildrenOnly)) return;
    auto* rule = new FigureRule(qApp);
    rule->setObjectName(QStringLiteral("FigureRule"));
    qApp->installEventFilter(rule);
}

void TranslateQt(const kv::Workspace& ws) {
    QCoreApplication* app = QCoreApplication::instance();
    if (!app) return;
    for (QTranslator* t : app->findChildren<QTranslator*>(QStringLiteral("KelvarisQtWords"), Qt::FindDirectChildrenOnly)) {
        QCoreApplication::removeTranslator(t);
        delete t;
    }
    auto* qt = new QTranslator(app);
    qt->setObjectName(QStringLiteral("KelvarisQtWords"));
    if (qt->load(QStringLiteral("qtbase_") + QtLocale(ws.settings.Sprache),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(qt);
    auto* words = new CaptionWords(ws.captions, app);
    words->setObjectName(QStringLiteral("KelvarisQtWords"));
    QCoreApplication::installTranslator(words);
}

}  // namespace kvui
