/// @file
/// Another shape in place of a signature, so that a recording can be handed on without it.
#ifndef SCRAMBLE_H
#define SCRAMBLE_H

#include "modelrows.h"
#include "recordingevents.h"

#include <vector>

namespace kvsim {

/// Moves the packets of a recording onto one fixed curve. A packet's place depends only on how many packets came before
/// it. Pressure and status stay.
class Scrambler
{
public:
    explicit Scrambler(const ModelRow &pad)
        : m_pad(pad)
    {
    }

    Packet next(const Packet &packet);

private:
    const ModelRow &m_pad;
    unsigned m_count = 0;
};

/// The picture that replaces every fingerprint: stripes, as grey bytes of the sensor's size.
std::vector<unsigned char> scrambledFingerprint();

} // namespace kvsim

#endif
