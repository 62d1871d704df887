// A workspace of the benchmarks on a data directory of its own, filled with
// the factory data, and a factory sample brought to a calculated operating
// point as the desktop brings it.
#pragma once

#include <filesystem>
#include <string>

#include "cycle/kernel.h"
#include "cycle/scheme_screen.h"
#include "project/data_screen.h"
#include "project/project_file.h"
#include "shell/startup.h"
#include "shell/workspace.h"

namespace kvbench {

inline kv::Workspace MakeWorkspace(const char* folder) {
    namespace fs = std::filesystem;
    const fs::path root = fs::temp_directory_path() / folder;
    fs::create_directories(root / "docs");
    kv::Workspace ws;
    ws.settingsFile = root / "kparam.dat";
    ws.documentsDir = root / "docs";
    ws.factoryDir = KELVARIS_FACTORY_DATA;
    kv::PrepareWorkspace(ws);
    return ws;
}

inline void CalculateSample(kv::Workspace& ws, kv::SchemeScreen& s, const std::string& sample) {
    std::string type = "HeatP";
    const std::string dir = (ws.DataDir() / "samples").string() + "/";
    kv::LoadProject(ws, type, dir + sample, dir);
    kv::DataScreen data;
    kv::OpenDataScreen(ws, data);
    ws.project.AnlagenTyp = type;
    kv::StartCalculation(ws, data);
    kv::OpenSchemeScreen(ws, s);
    kv::CalculateCycle(ws, s, kv::Recalculate);
}

}  // namespace kvbench
