#include "shell/defaults_screen.h"

#include <algorithm>

#include "shell/files.h"
#include "shell/number_checks.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

DefaultsScreen OpenDefaultsScreen(const Workspace& ws) {
    const Settings& s = ws.settings;
    DefaultsScreen d;
    d.DatenVerz = ws.project.DatenVerz;
    d.ProjektVerz = ws.project.ProjektVerz;
    d.Sprache = s.Sprache;
    d.Waehrung = s.Waehrung;
    d.ReportFont = s.ReportFont;
    d.InstallText = s.InstallText;
    d.RohrDatei = ws.project.RohrDatei;
    d.Laufwerk = s.Laufwerk;
    d.DezimalModus = std::to_string(s.DezimalModus);
    d.DatumFormat = s.DatumFormat;
    d.PictureSet = std::to_string(s.PictureSet);
    d.SamplePicture = s.SamplePicture;
    d.CableText = s.CableText;
    d.DefaultCountry = DefaultCountryKey(ws);
    RecordReader in = OpenIn(ws, "energk.dat");
    d.hoursPerDay = "12";
    d.daysPerYear = "365";
    d.energyPrice = "0.3";
    d.loadFactor = "0.5";
    for (std::string* f : {&d.hoursPerDay, &d.daysPerYear, &d.energyPrice, &d.loadFactor}) in.Read(*f);
    d.referenceEtaIs = NumberText(s.ReferenceEtaIs);
    d.version = s.VersionText;
    return d;
}

bool ApplyDefaults(Workspace& ws, const DefaultsScreen& d) {
    // Hours of a day, days of a year, price of a kWh, the mean load share.
    struct Entry {
        Cap caption;
        const std::string* text;
        NumberRange range;
    };
    const Entry entries[] = {{Cap::HoursPerDay, &d.hoursPerDay, {0, 24}},
                             {Cap::DaysPerYear, &d.daysPerYear, {0, 366}},
                             {Cap::EnergyPrice, &d.energyPrice, {0, 1e4}},
                             {Cap::LoadFactor, &d.loadFactor, {0, 1}}};
    std::vector<std::string> messages;
    for (const Entry& e : entries)
        CheckNumberField(ws, messages, ws.captions[e.caption], Trim(*e.text).empty() ? std::string_view("?") : *e.text,
                         e.range);
    if (!Trim(d.DatenVerz).empty() && !UsableDataDirectory(std::string(Trim(d.DatenVerz))))
        messages.push_back(ws.captions[Cap::DataDirectory] + ": " + ws.captions[Cap::DirectoryUnusable]);
    if (!ShowFieldMessages(ws, messages)) return false;
    Settings& s = ws.settings;
    if (!Trim(d.DatenVerz).empty()) ws.project.DatenVerz = std::string(Trim(d.DatenVerz));
    ws.project.ProjektVerz = d.ProjektVerz;
    if (Trim(d.Sprache).size() >= 3) s.Sprache = std::string(Trim(d.Sprache));
    s.Waehrung = d.Waehrung.empty() ? "EUR" : d.Waehrung;
    s.ReportFont = d.ReportFont.size() < 3 ? "Arial" : d.ReportFont;
    s.InstallText = d.InstallText;
    ws.project.RohrDatei = d.RohrDatei;
    s.Laufwerk = d.Laufwerk;
    s.DezimalModus = ToNumber(d.DezimalModus).value != 0 ? 1 : 0;
    s.DatumFormat = d.DatumFormat;
    int picture = s.PictureSet;
    RoundedInteger(ToNumber(d.PictureSet).value, picture);
    s.PictureSet = std::clamp(picture, 0, 5);
    s.SamplePicture = d.SamplePicture;
    s.CableText = d.CableText.empty() ? DefaultCableText() : d.CableText;
    s.ReferenceEtaIs = ValidReferenceEtaIs(ToNumber(d.referenceEtaIs).value);
    bool ok = SaveSettings(ws);
    {
        OutFile out = OpenOut(ws, "energk.dat");
        for (const std::string* f : {&d.hoursPerDay, &d.daysPerYear, &d.energyPrice, &d.loadFactor})
            out.Write().Item(NumberText(ToNumber(*f).value));
        out.Write().EndLine();
        ok = out.Close() && ok;
    }
    if (!Trim(d.DefaultCountry).empty()) {
        OutFile out = OpenOut(ws, "AC_PAR.DAT");
        out.Write().Item(std::string(Trim(d.DefaultCountry))).EndLine();
        ok = out.Close() && ok;
    }
    return ok;
}

}  // namespace kv
