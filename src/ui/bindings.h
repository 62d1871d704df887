// Small helpers that bind widgets to the text fields of a core model: the
// widget writes the model on every edit, and Refresh() writes the model back
// into the widgets after a rule has changed fields.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QObject>

#include <functional>
#include <string>
#include <vector>

#include "ui/qt_interface.h"

namespace kvui {

// Removes the default and auto-default role of every push button of a screen.
void TakeDefaultButtons(QWidget* screen);
// Installs, once per application, the rule that our screens' buttons are never
// pressed by Enter in a field (TakeDefaultButtons when a screen shows).
void InstallKeyboardRules();

class Bindings {
public:
    // A line edit over a text field; `afterEdit` runs when the user leaves
    // it with Enter (the rules of the old screens act on Enter).
    QLineEdit* Text(std::string& field, std::function<void()> afterEdit = {}, const char* objectName = nullptr);
    // An editable or fixed box over a text field with its entries.
    QComboBox* Box(std::string& field, const std::vector<std::string>& entries, std::function<void()> afterChoice = {},
                   bool editable = false, const char* objectName = nullptr);
    // A fixed box that shows words for the codes a field holds: each entry is
    // {code, words}; the field takes the code of the chosen entry.
    QComboBox* Choice(std::string& field, const std::vector<std::pair<std::string, std::string>>& entries,
                      const char* objectName = nullptr);
    // Writes every bound field into its widget (without firing the edits).
    void Refresh();

private:
    struct TextBinding {
        QLineEdit* edit;
        std::string* field;
    };
    struct BoxBinding {
        QComboBox* box;
        std::string* field;
    };
    std::vector<TextBinding> texts_;
    std::vector<BoxBinding> boxes_;
    std::vector<BoxBinding> choices_;
};

}  // namespace kvui
