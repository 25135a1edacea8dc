/// @file
/// A recording made ready for one pad: mapped to its raw units, with its fingerprints loaded.
#ifndef SCRIPT_H
#define SCRIPT_H

#include "padtable.h"
#include "recording.h"

#include <string>
#include <vector>

namespace kvsim {

/// One callback to come.
struct Delivery
{
    std::int64_t timeUs = 0;
    Packet packet{};
    int fingerprint = -1; ///< index into Script::fingerprints; -1: a pen packet
    int score = 0;
};

struct Script
{
    std::vector<Delivery> deliveries{};
    std::vector<std::vector<unsigned char>> fingerprints{};
};

/// A packet of one pad as another would have sent it: the same place in the writing area, the same share of pressure.
Packet mapPacket(const Packet &packet, const PadModel &from, const PadModel &to, int maxPressure);

/// Loads a bundled recording or a file ("none": nothing). Throws std::runtime_error with file, line and reason.
Script loadScript(const std::string &recording, const PadModel &pad, int maxPressure);

} // namespace kvsim

#endif
