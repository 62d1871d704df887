// The help screen: the topics of the help table of the current language.
#pragma once

#include <QDialog>

#include <string>

namespace kv { struct Workspace; }

namespace kvui {

class HelpDialog : public QDialog {
    Q_OBJECT
public:
    HelpDialog(const kv::Workspace& ws, const QString& topic, QWidget* parent = nullptr);
};

// F1 on `screen` opens the help at `topic`, the screen's own word.
void AddHelpKey(const kv::Workspace& ws, QWidget* screen, const std::string& topic);

}  // namespace kvui
