// The file dialogs of the project and of pictures: they start in the open
// project's folder and propose the file's name and extension.
#pragma once

#include <QString>

class QWidget;

namespace kv { struct Workspace; }

namespace kvui {

// A project file to open (or delete); empty when cancelled.
QString AskProjectOpenPath(const kv::Workspace& ws, QWidget* parent, const QString& title);
// A project file to save to, proposing the open file or the project's name
// with ".prj"; the overwrite question is the save's own. Empty when cancelled.
QString AskProjectSavePath(const kv::Workspace& ws, QWidget* parent, const QString& title);
// A picture file, with the chosen format's extension added when it has none.
QString AskPictureSavePath(const kv::Workspace& ws, QWidget* parent, const QString& title);

}  // namespace kvui
