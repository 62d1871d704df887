// Drives the result-set reading and the report layout with arbitrary bytes:
// lines of any length, any marks, prefixes and pictures.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "documents/report_layout.h"
#include "shell/records.h"
#include "shell/workspace.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const kv::Workspace ws;
    kv::RecordReader in(std::string(reinterpret_cast<const char*>(data), size));
    std::vector<std::string> lines;
    std::string line;
    while (lines.size() < 2000 && !in.AtEnd() && in.Read(line)) lines.push_back(line);
    (void)kv::LayoutReport(ws, {{"T", lines, true, static_cast<int>(size % 6)}});
    return 0;
}
