// The workspace of the catalogue fuzz targets: a data directory of its own
// per process, in which each input is written as catalogue files.
#pragma once

#include <filesystem>
#include <string>
#include <unistd.h>

#include "shell/workspace.h"

inline kv::Workspace& FuzzCatalogueWorkspace(const char* tag) {
    namespace fs = std::filesystem;
    static kv::Workspace ws = [tag] {
        kv::Workspace w;
        const fs::path dir = fs::temp_directory_path() / (std::string(tag) + std::to_string(getpid()));
        fs::create_directories(dir);
        w.project.DatenVerz = dir.string();
        return w;
    }();
    return ws;
}
