// The defaults screen as a model: the stored fields of the settings file as
// the screen holds them, and the energy values that new projects start from.
#pragma once

#include <string>

#include "shell/settings.h"

namespace kv {

struct Workspace;

struct DefaultsScreen {
    std::string DatenVerz, ProjektVerz, Sprache, Waehrung, ReportFont, InstallText, RohrDatei, Laufwerk;
    std::string DezimalModus;  // "0" comma to point, "1" point to comma
    std::string DatumFormat;   // "1" to "4"
    std::string PictureSet;    // "0" to "5"
    std::string SamplePicture, CableText, DefaultCountry;
    // The four values of energk.dat: hours a day, days a year, price, load share.
    std::string hoursPerDay, daysPerYear, energyPrice, loadFactor;
    // Isentropic efficiency of the reference check, 0.3 to 1 (else 0.7).
    std::string referenceEtaIs;
    std::string version;  // shown, not edited
};

// Fills the screen from the settings in force and the default files.
DefaultsScreen OpenDefaultsScreen(const Workspace& ws);
// Takes the screen into the settings, writes kparam.dat, energk.dat and the
// default country; numbers are read with the program's number rule and
// written in the file form. A number field that is not a number or not
// plausible is refused with a message and nothing is written. False then,
// or when a file could not be written.
bool ApplyDefaults(Workspace& ws, const DefaultsScreen& screen);

}  // namespace kv
