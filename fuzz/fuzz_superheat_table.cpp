// Drives the superheated-vapour table reader and the reference cycle on it
// with arbitrary bytes: whatever the file holds, no state is read past an
// isobar's end and every figure that comes out is finite.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "cycle/reference_cycle.h"
#include "refrigerant/superheat_table.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const kv::SuperheatTable table = kv::ParseSuperheatTable(text);
    for (const kv::Isobar& b : table.isobars)
        if (b.first + b.count > table.nodes.size() || b.count < 2) __builtin_trap();
    for (bool transcritical : {false, true}) {
        kv::ReferenceInput in;
        in.t0C = -10;
        in.tcC = 40;
        in.superheatK = 7;
        in.subcoolingK = 2;
        in.transcritical = transcritical;
        in.pGasCooler = 90;
        const kv::ReferenceCycle r = kv::ComputeReferenceCycle(table, in);
        if (r.valid && !(std::isfinite(r.copHeating) && std::isfinite(r.t2C))) __builtin_trap();
    }
    return 0;
}
