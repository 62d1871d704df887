// Drives the delimited record reader with arbitrary bytes.
#include <cstddef>
#include <cstdint>
#include <string>

#include "shell/numbers.h"
#include "shell/records.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    kv::RecordReader items(text);
    std::string s;
    double d;
    int i;
    for (int n = 0;; ++n) {
        const bool ok = (n % 3 == 0) ? items.Read(s) : (n % 3 == 1) ? items.Read(d) : items.Read(i);
        if (!ok) break;
    }
    kv::RecordReader lines(text);
    while (lines.ReadLine(s)) {
        std::string t = s;
        (void)kv::ToNumber(t);
    }
    kv::RecordReader head(text);
    (void)kv::ReadHeadFields(head, 2);
    return 0;
}
