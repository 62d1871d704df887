// The meaning of the texts a project keeps from its boxes. The compressor box
// (Combo1) and the expansion-valve box hold words of the language the project
// was saved in; the calculation must read the same compressor and valve
// whatever language the program speaks now. A stored text is therefore
// matched through the caption tables of all languages and brought into the
// words of the current one.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Captions;
struct Workspace;

// The entries of the compressor box in the words of `c`: drive " - "
// principle for the seven combinations, then rolling piston and turbo.
std::vector<std::string> CompressorBoxList(const Captions& c);
// The entries of the expansion-valve box: thermostatic, thermostatic with
// MOP, electronic pulse, electronic stepper.
std::vector<std::string> ValveBoxList(const Captions& c);

enum class BoxKind { Compressor, Valve };

// Position of `text` in the box of `kind`, found in the current language or
// else in any of the 22 languages; -1 when no language has it. A compressor
// text that names only the principle ("Reciprocating", "Screw", as old files
// hold it) is the semihermetic machine of that principle.
int BoxEntryOf(const Workspace& ws, BoxKind kind, const std::string& text);

// `text` in the words of the current language, or `text` unchanged when no
// language knows it.
std::string BoxTextInCurrentLanguage(const Workspace& ws, BoxKind kind, const std::string& text);

}  // namespace kv
