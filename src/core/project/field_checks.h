// The number fields of the project data screen: each field with its caption
// and the values a plant can have. The input check refuses a field that is
// not a number, that lies outside its range, or that holds 0 where the
// calculation divides by it, naming the field.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Workspace;
struct DataScreen;

// Adds a message for every faulty number field of the record, the grids and
// the auxiliary values (the screen's Text1..Text11 when a screen is given,
// else SubAct.dat). The capacity the calculation runs on must not be 0.
void CheckNumberFields(const Workspace& ws, const DataScreen* screen, std::vector<std::string>& messages);

// The caption of a fittings column 1..15 (the kinds of fitting and the two
// single cells).
std::string ArmaturColumnCaption(const Workspace& ws, int col);
// The caption of a line section 1..8.
std::string LineSectionCaption(const Workspace& ws, int line);

}  // namespace kv
