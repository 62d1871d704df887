// The piping scheme of a calculated plant as element lines (RIFliess.dat):
// the closed loop of a compression plant or heat pump with its evaporator
// group, heat exchangers chosen by ACT_WT.dat, receiver, the accessories
// the line sheet counts on each line, the compressor block, control box,
// indicator bubbles and flow arrows; and the drawing of any element file
// with a symbol for every code.
#pragma once

#include <string>

#include "documents/drawing.h"
#include "documents/element_lines.h"

namespace kv {

struct Workspace;

// The sheet of the drawing program: plant elements lie within it.
inline constexpr double kSheetWidth = 13200.0;
inline constexpr double kSheetHeight = 10800.0;

// The heat exchanger element of an ACT_WT.dat number: condenser and
// evaporator numbers map to their symbols; an unmapped number stays.
int CondenserElement(int number);
int EvaporatorElement(int number);

// The options of the line texts: the length, and the pressure drop with
// the velocity, behind the size.
struct SchemeOptions {
    bool length = false;
    bool speed = false;
};

// Mode 0 a plain scheme, 32 the component names of the generated lists,
// 132 those of the PED list; 32 and 132 fall back to 0 with an empty units list.
SchemeFile ComposeScheme(const Workspace& ws, int mode, const SchemeOptions& options = {});
// Composes and writes RIFliess.dat.
bool WriteScheme(Workspace& ws, int mode, const SchemeOptions& options = {});

// The drawing of an element file: lines in the colour of their circuit,
// symbols by code, texts at their places; an unknown code is a labelled box
// and elements outside the sheet are left out.
DrawingList DrawScheme(const SchemeFile& f);

}  // namespace kv
