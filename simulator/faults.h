/// @file
/// How a faulty pad answers, as the events of the recording have asked for so far.
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
    std::map<std::string, std::optional<std::string>> texts{}; ///< by text query; nullopt: it writes nothing
    int screenMs = -1; ///< negative: the setting's value
    bool gone = false; ///< the pad is not plugged in

    /// Events that do not change answers are ignored.
    void take(const Event &event);
};

} // namespace kvsim

#endif
