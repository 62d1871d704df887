// Qt's own texts (the buttons of message boxes, the file dialogs) in the
// language of the program: Qt's translation files where the system has them,
// and the caption table's Yes, No, OK and Cancel for every language.
#pragma once

namespace kv { struct Workspace; }

namespace kvui {

// Installs the translations of the workspace's language, replacing those of
// the language before.
void TranslateQt(const kv::Workspace& ws);

}  // namespace kvui
