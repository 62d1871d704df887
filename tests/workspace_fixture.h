// A workspace of its own in a fresh temporary folder: settings file, data
// directory and documents folder all inside it, factory data from the source
// tree, and a scripted user interface that records what it was shown.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "shell/files.h"
#include "shell/workspace.h"

namespace kvtest {

namespace fs = std::filesystem;

struct Shown {
    std::string title, text;
};

class WorkspaceTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::random_device rd;
        root = fs::temp_directory_path() / ("kv_test_" + std::to_string(rd()) + std::to_string(rd()));
        fs::create_directories(root / "docs");
        fs::create_directories(root / "config");
        ws.settingsFile = root / "config" / "kparam.dat";
        ws.documentsDir = root / "docs";
        ws.historyDir = root;
        ws.programDir = root / "bin";
        ws.factoryDir = KELVARIS_FACTORY_DATA;
        ws.project.DatenVerz = (root / "docs" / "Kelvaris").string();
        fs::create_directories(ws.DataDir());
        ws.ui.message = [this](const std::string& t, const std::string& x, kv::MessageIcon) {
            messages.push_back({t, x});
        };
        ws.ui.askYesNo = [this](const std::string& t, const std::string& x) {
            questions.push_back({t, x});
            return answer;
        };
    }
    void TearDown() override {
        std::error_code ec;
        fs::remove_all(root, ec);
    }
    // Writes a file of the data directory byte for byte.
    void Put(const std::string& name, const std::string& content) {
        kv::WriteFileAtomic(ws.DataDir() / name, content);
    }
    std::string Get(const std::string& name) const { return kv::ReadWholeFile(ws.DataDir() / name); }

    fs::path root;
    kv::Workspace ws;
    std::vector<Shown> messages, questions;
    bool answer = true;
};

// Damaged contents that every reader must survive.
inline std::vector<std::string> DamagedContents(const std::string& good) {
    std::string garbage;
    std::mt19937 rng(42);
    for (int i = 0; i < 4096; ++i) garbage += static_cast<char>(rng() & 0xFF);
    std::string longLine(300000, 'x');
    return {"", good.substr(0, good.size() / 2), garbage, longLine, good + good + good,
            std::string("\"unterminated,\r\n\"\",,,\r\n\x1a\0\0", 22)};
}

}  // namespace kvtest
