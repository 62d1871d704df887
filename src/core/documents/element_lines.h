// The element-line files of the piping scheme (RIFliess.dat, Aktdraw.dat,
// Schaltp.dat): a header of ten one-item records, then one record per
// drawing element whose fields end in "§$", numbers with the leading blank
// of a positive number. A reader trims every field and takes what a line
// holds: missing fields read empty, further fields are kept.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Workspace;

struct SchemeElement {
    int code = 0;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // line: start and end; symbol: top left, width, height
    std::string text;
    std::vector<std::string> rest;          // fields 7 onward, as they stand
    int labelPlace = 0;                     // field 9
};

struct SchemeFile {
    std::array<std::string, 10> header{};
    std::vector<SchemeElement> elements;
};

// Codes drawn as lines between two points; every other code is a symbol.
bool IsLineElement(int code);

// " 400", "-3", " 0": a number as the drawing program writes it.
std::string ElementNumber(double v);
std::string FormatElement(const SchemeElement& e);
SchemeElement ParseElement(std::string_view line);

SchemeFile ParseSchemeText(const std::string& text);
std::string SchemeText(const SchemeFile& f);
SchemeFile ReadSchemeFile(const Workspace& ws, std::string_view name);
bool WriteSchemeFile(const Workspace& ws, std::string_view name, const SchemeFile& f);

// The element under a point of the sheet: the last drawn symbol whose box
// holds it, else the line nearest within `tolerance`; -1 for none.
int HitElement(const SchemeFile& f, double x, double y, double tolerance = 120);
// Moves an element by (dx, dy): a symbol by its corner, a line by both ends.
void MoveElement(SchemeFile& f, int index, double dx, double dy);

}  // namespace kv
