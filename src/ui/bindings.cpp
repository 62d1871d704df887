#include "ui/bindings.h"

#include <QSignalBlocker>

namespace kvui {

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
    QObject::connect(box, &QComboBox::currentTextChanged, box, [f, afterChoice](const QString& t) {
        *f = t.toStdString();
        if (afterChoice) afterChoice();
    });
    boxes_.push_back({box, f});
    return box;
}

void Bindings::Refresh() {
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
        if (i >= 0) b.box->setCurrentIndex(i);
        else if (b.box->isEditable()) b.box->setEditText(t);
        else b.box->setCurrentIndex(-1);  // the box shows what the field holds, or nothing
    }
}

}  // namespace kvui
