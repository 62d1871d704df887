// Screens that fit a 1366 x 768 laptop: long forms in scroll areas, the first
// size never larger than the screen's working area, and the size and
// splitter positions a user gave a screen remembered between runs.
#pragma once

#include <QScrollArea>
#include <QSize>

class QSplitter;
class QWidget;

namespace kv { struct Workspace; }

namespace kvui {

// `body` in a frameless scroll area that shrinks with the window and
// scrolls where the form no longer fits.
QScrollArea* Scrolled(QWidget* body);

// Gives `screen` the size it had last (or `wanted`), within the working area
// of its screen, and keeps its size and the positions of `splitter` when it
// closes. Sizes are kept beside the settings file, under the object name.
void FitToScreen(const kv::Workspace& ws, QWidget* screen, QSize wanted, QSplitter* splitter = nullptr);

}  // namespace kvui
