// The core's user interface callbacks, answered with Qt dialogs.
#pragma once

#include <QString>
#include <QStringList>

#include <string>

#include "shell/user_interface.h"

class QPushButton;
class QTableWidget;
class QWidget;

namespace kvui {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }

// Message boxes and questions parented to `parent`, programs started with
// QProcess::startDetached.
kv::UserInterface MakeQtInterface(QWidget* parent);

// A push button with the object name the offscreen tests find it by.
QPushButton* NamedButton(const QString& text, const char* name);
// A grid of whole rows to choose from: its heads, not editable in place.
QTableWidget* ChoiceGrid(const QStringList& heads, const char* name);

// Liberation Sans stands in for the report font "Arial" where Arial is missing.
void InstallFontSubstitutes();

}  // namespace kvui
