// Brings a factory sample project to the plant scheme screen as the desktop
// does: load, open the data screen, start the calculation, open the scheme.
#pragma once

#include <filesystem>
#include <string>

#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/workspace.h"

namespace kvtest {

inline bool OpenSampleScheme(kv::Workspace& ws, kv::SchemeScreen& scheme, const std::string& name) {
    std::string type = "HeatP";
    const std::string dir = (ws.DataDir() / "samples").string() + "/";
    if (!kv::LoadProject(ws, type, dir + name, dir)) return false;
    kv::DataScreen data;
    kv::OpenDataScreen(ws, data);
    ws.project.AnlagenTyp = type;  // the data screen opens as a heat pump; the sample keeps its own type
    if (!kv::StartCalculation(ws, data)) return false;
    kv::OpenSchemeScreen(ws, scheme);
    return true;
}

}  // namespace kvtest
