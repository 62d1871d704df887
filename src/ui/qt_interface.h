// The core's user interface callbacks, answered with Qt dialogs.
#pragma once

#include <QString>

#include <string>

#include "shell/user_interface.h"

class QWidget;

namespace kvui {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }

// Message boxes and questions parented to `parent`, programs started with
// QProcess::startDetached.
kv::UserInterface MakeQtInterface(QWidget* parent);

// Liberation Sans stands in for the report font "Arial" where Arial is missing.
void InstallFontSubstitutes();

}  // namespace kvui
