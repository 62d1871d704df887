// Whether the open project holds input that is not in its file: the
// fingerprint of what the user types, taken when a project is loaded, saved
// or begun, and the title bar that names the project with a mark.
#pragma once

#include <string>

namespace kv {

struct Project;
struct Workspace;

// The user's input of a project (names, operating point, boxes, flags, the
// two line grids) as one text; two records with equal input give equal texts.
std::string InputFingerprint(const Project& p);

// The open project's input counts as saved from now on.
void MarkProjectSaved(Workspace& ws);

// Input typed since the project was loaded, saved or begun.
bool HasUnsavedInput(const Workspace& ws);

// "Kelvaris 1.0 - Hall3.prj *": the program, the open file (or the project's
// name) and a star for unsaved input.
std::string ProjectTitle(const Workspace& ws);

}  // namespace kv
