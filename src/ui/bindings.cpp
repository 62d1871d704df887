#include "ui/bindings.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPushButton>
#include <QSignalBlocker>

#include <memory>

namespace kvui {

namespace {

// Takes the default role from every button of our own screens when they
// show: Enter in a field confirms the field (its links run) and presses no
// button. Qt's own message boxes and file dialogs keep their default button.
class EnterRule : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType() &&
            QLatin1String(watched->metaObject()->className()).startsWith(QLatin1String("kvui::")))
            if (auto* dialog = qobject_cast<QDialog*>(watched)) TakeDefaultButtons(dialog);
        return false;
    }
};

}  // namespace

void TakeDefaultButtons(QWidget* screen) {
    for (QPushButton* b : screen->findChildren<QPushButton*>()) {
        b->setAutoDefault(false);
        b->setDefault(false);
    }
}

void InstallKeyboardRules() {
    if (!qApp || qApp->findChild<EnterRule*>(QStringLiteral("EnterRule"), Qt::FindDirectChildrenOnly)) return;
    auto* rule = new EnterRule(qApp);
    rule->setObjectName(QStringLiteral("EnterRule"));
    qApp->installEventFilter(rule);
}

QLineEdit* Bindings::Text(std::string& field, std::function<void()> afterEdit, const char* objectName) {
    auto* edit = new QLineEdit(Q(field));
    if (objectName) edit->setObjectName(QLatin1String(objectName));
    std::string* f = &field;
    QObject::connect(edit, &QLineEdit::textEdited, edit, [f](const QString& t) { *f = t.toStdString(); });
    if (afterEdit) QObject::connect(edit, &QLineEdit::returnPressed, edit, [afterEdit] { afterEdit(); });
    texts_.push_back({edit, f});
    return edit;
}

QComboBox* Bindings::Box(std::string& field, const std::vector<std::string>& entries, std::function<void()> afterChoice,
                         bool editable, const char* objectName) {
    auto* box = new QComboBox;
    if (objectName) box->setObjectName(QLatin1String(objectName));
    box->setEditable(editable);
    for (const std::string& e : entries) box->addItem(Q(e));
    std::string* f = &field;
    if (!editable) {
        QObject::connect(box, &QComboBox::currentTextChanged, box, [f, afterChoice](const QString& t) {
            *f = t.toStdString();
            if (afterChoice) afterChoice();
        });
    } else {
        // A typed name is checked when the editing ends (Enter, a choice from
        // the list, leaving the box), never after each keystroke.
        QObject::connect(box, &QComboBox::editTextChanged, box, [f](const QString& t) { *f = t.toStdString(); });
        auto acted = std::make_shared<QString>(box->currentText());
        auto finish = [box, f, afterChoice, acted] {
            const QString t = box->currentText();
            *f = t.toStdString();
            if (t == *acted) return;
            *acted = t;
            if (afterChoice) afterChoice();
        };
        QObject::connect(box, &QComboBox::activated, box, finish);
        QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, box, finish);
    }
    boxes_.push_back({box, f});
    return box;
}

QComboBox* Bindings::Choice(std::string& field, const std::vector<std::pair<std::string, std::string>>& entries,
                            const char* objectName) {
    auto* box = new QComboBox;
    if (objectName) box->setObjectName(QLatin1String(objectName));
    for (const auto& [code, words] : entries) box->addItem(Q(words), Q(code));
    std::string* f = &field;
    QObject::connect(box, &QComboBox::currentIndexChanged, box, [box, f](int i) {
        if (i >= 0) *f = box->itemData(i).toString().toStdString();
    });
    choices_.push_back({box, f});
    return box;
}

void Bindings::Refresh() {
    for (const BoxBinding& b : choices_) {
        const QSignalBlocker block(b.box);
        const QString code = Q(*b.field).trimmed();
        int i = b.box->findData(code);
        if (i < 0 && !code.isEmpty()) {
            b.box->addItem(code, code);  // a code the list does not know stays visible
            i = b.box->count() - 1;
        }
        b.box->setCurrentIndex(i);
    }
    for (const TextBinding& b : texts_) {
        const QString t = Q(*b.field);
        if (b.edit->text() != t) {
            const QSignalBlocker block(b.edit);
            b.edit->setText(t);
        }
    }
    for (const BoxBinding& b : boxes_) {
        const QString t = Q(*b.field);
        if (b.box->currentText() == t) continue;
        const QSignalBlocker block(b.box);
        const int i = b.box->findText(t);
        if (i >= 0) {
            b.box->setCurrentIndex(i);
        } else if (b.box->isEditable()) {
            b.box->setEditText(t);
        } else if (!t.isEmpty()) {
            // A value outside the list (a fluid of another plant type, the
            // project's own pipe file) is added, never replaced by the first entry.
            b.box->addItem(t);
            b.box->setCurrentIndex(b.box->count() - 1);
        } else {
            b.box->setCurrentIndex(-1);
        }
    }
}

}  // namespace kvui
