// Drives the pressure fields of the PED screen and the connection texts of
// the units list through the classification with arbitrary bytes.
#include <cstddef>
#include <cstdint>
#include <string>

#include "compliance/ped.h"
#include "shell/numbers.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const double v = kv::ToNumber(std::string_view(text));
    for (int mode : {1, 2})
        for (bool group1 : {false, true}) {
            const int i = kv::ClassifyPart(mode, v, v, v / 2, v, group1);
            if (i < 0 || i > 4) __builtin_trap();
        }
    const int a = kv::ClassifyAssembly(v, v, v, true);
    if (a < 0 || a > 4) __builtin_trap();
    (void)kv::IsGroup1Part(text);
    (void)kv::AssemblyGroup1List(text);
    return 0;
}
