// Qt's own texts (the buttons of message boxes, the file dialogs) in the
// language of the program: Qt's translation files where the system has them,
// and the caption table's Yes, No, OK and Cancel for every language.
#pragma once

namespace kv { struct Workspace; }

namespace kvui {

// Installs the translations of the workspace's language, replacing those of
// the language before.
void TranslateQt(const kv::Workspace& ws);

// Installs, once per application, the rule that figures keep their order in
// right-to-left text: while the layout runs right to left, the figure runs of
// labels, buttons and group titles become left-to-right isolates before they
// are painted, and fields of figures are laid out left to right.
void InstallFigureRule();

}  // namespace kvui
