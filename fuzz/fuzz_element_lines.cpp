// Drives the element-line reader and the scheme drawing with arbitrary
// bytes: any field count, any marks, any numbers.
#include <cstddef>
#include <cstdint>
#include <string>

#include "documents/element_lines.h"
#include "documents/report_layout.h"
#include "documents/scheme_generator.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    kv::SchemeFile f = kv::ParseSchemeText(text);
    (void)kv::DrawScheme(f);
    const int hit = kv::HitElement(f, 5000, 5000);
    kv::MoveElement(f, hit, 10, 10);
    (void)kv::SchemeText(f);
    (void)kv::ParseElement(text);
    return 0;
}
