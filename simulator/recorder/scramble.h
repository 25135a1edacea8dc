/// @file
/// Another shape in place of a signature, so that a recording can be handed on without it.
#ifndef SCRAMBLE_H
#define SCRAMBLE_H

#include "modelrows.h"
#include "recordingevents.h"

#include <vector>

namespace kvsim {

/// Puts the packets of a recording on one fixed curve: the place of a packet follows from how many there were before it
/// and from nothing else. Pressure and status stay.
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

/// The picture in place of every fingerprint: stripes, 208 by 288 grey bytes.
std::vector<unsigned char> scrambledFingerprint();

} // namespace kvsim

#endif
