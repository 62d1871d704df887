#include "project/project_state.h"

#include <type_traits>

#include "project/project.h"
#include "shell/numbers.h"
#include "shell/workspace.h"

namespace kv {

std::string InputFingerprint(const Project& p) {
    std::string out;
    auto add = [&out](const auto& v) {
        if constexpr (std::is_same_v<std::decay_t<decltype(v)>, std::string>) out += v;
        else out += std::to_string(v);
        out += '\x1f';  // unit separator: "1","23" never equals "12","3"
    };
    for (const std::string* f :
         {&p.AnlagenTyp, &p.ProjektNam, &p.ProBeschr, &p.AuftrGNo, &p.KaelteM, &p.RohrDatei, &p.Combo1, &p.TeilL,
          &p.Leistung, &p.Tver, &p.tko, &p.dhSL, &p.dtVerd, &p.dtKond, &p.KompHub, &p.VerdVol, &p.KondVol, &p.lkondl,
          &p.DKondL, &p.loelL, &p.doelL, &p.CountryKey, &p.Location, &p.HeizL, &p.RGCombo, &p.InverterMin,
          &p.InverterMax, &p.ExVCombo, &p.P_mittel, &p.P_gasK, &p.Text12, &p.ValenzCombo, &p.AbtauCombo})
        add(*f);
    for (int v : {p.EcoFlag, p.HGBypass, p.VierWege, p.OelKuehler, p.ParalLeit, p.AbtauArt}) add(v);
    for (int col = 1; col <= 15; ++col)
        for (int row = 1; row <= 8; ++row) add(p.Armatur.Cell(col, row));
    for (int col = 1; col <= 9; ++col)
        for (int row = 1; row <= 4; ++row) add(p.Geometr.Cell(col, row));
    return out;
}

void MarkProjectSaved(Workspace& ws) { ws.savedInput = InputFingerprint(ws.project); }

bool HasUnsavedInput(const Workspace& ws) { return InputFingerprint(ws.project) != ws.savedInput; }

std::string ProjectTitle(const Workspace& ws) {
    const Project& p = ws.project;
    std::string name(Trim(p.ProjektDatei));
    if (name.empty()) name = std::string(Trim(p.ProjektNam));
    std::string title = ws.Title();
    if (!name.empty()) title += " - " + name;
    if (HasUnsavedInput(ws)) title += " *";
    return title;
}

}  // namespace kv
