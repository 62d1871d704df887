#include "cycle/cycle_state.h"

namespace kv {

double SatRow::Column(int column) const {
    switch (column) {
        case 1: return t;
        case 2: return pDew;
        case 3: return pBubble;
        case 4: return hLiq;
        case 5: return hVap;
        case 6: return rhoLiq;
        case 7: return rhoVap;
        default: return 0.0;
    }
}

}  // namespace kv
