// The welcome screen of a plain start: one button per language whose caption
// table has content.
#pragma once

#include <QDialog>

namespace kv { struct Workspace; }

namespace kvui {

class WelcomeDialog : public QDialog {
    Q_OBJECT
public:
    WelcomeDialog(kv::Workspace& ws, QWidget* parent = nullptr);

private:
    void Choose(const QString& code);
    kv::Workspace& ws_;
};

}  // namespace kvui
