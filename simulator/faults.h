/// @file
/// How a faulty pad answers: what the events of a recording asked for so far.
#ifndef FAULTS_H
#define FAULTS_H

#include "recordingevents.h"

#include <map>
#include <optional>
#include <string>

namespace kvsim {

struct Faults
{
    std::map<std::string, int> results{}; ///< by operation
    std::map<std::string, std::optional<std::string>> texts{}; ///< by text query; none: it writes nothing
    int screenMs = -1; ///< negative: as the settings say
    bool gone = false; ///< the pad is not plugged in

    /// Events that do not change answers are passed over.
    void take(const Event &event);
};

} // namespace kvsim

#endif
