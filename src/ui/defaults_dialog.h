// The defaults screen: the stored settings and the energy values of new
// projects, bound to the core's defaults model.
#pragma once

#include <QDialog>

#include "shell/defaults_screen.h"
#include "ui/bindings.h"

namespace kv { struct Workspace; }

namespace kvui {

class DefaultsDialog : public QDialog {
    Q_OBJECT
public:
    explicit DefaultsDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::DefaultsScreen& Model() { return screen_; }
    bool Apply();

private:
    kv::Workspace& ws_;
    kv::DefaultsScreen screen_;
    Bindings bind_;
};

}  // namespace kvui
