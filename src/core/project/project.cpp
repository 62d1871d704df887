#include "project/project.h"

#include "shell/text.h"

namespace kv {

bool IsTwoStagePlant(const std::string& anlagenTyp) {
    const std::string u = UpperAscii(anlagenTyp);
    return u == "2STAGE" || u == "HEATPUMP-2ST";
}

}  // namespace kv
