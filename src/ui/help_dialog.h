// The help screen: the topics of the help table of the current language.
#pragma once

#include <QDialog>

namespace kv { struct Workspace; }

namespace kvui {

class HelpDialog : public QDialog {
    Q_OBJECT
public:
    HelpDialog(const kv::Workspace& ws, const QString& topic, QWidget* parent = nullptr);
};

}  // namespace kvui
