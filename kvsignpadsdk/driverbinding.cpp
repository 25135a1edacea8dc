#include "driverbinding.h"

#include <cstring>

namespace driverbinding {

int maxPressureOf(const ModelRow &model, const char *version)
{
    for (const VersionPrefix &prefix : model.versions) {
        if (prefix.text == nullptr)
            break;
        if (std::strncmp(version, prefix.text, std::strlen(prefix.text)) == 0)
            return prefix.maxPressure;
    }
    return 0;
}

} // namespace driverbinding
