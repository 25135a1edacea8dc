#include "scramble.h"

#include "greyimage.h"

#include <cmath>

namespace kvsim {

Packet Scrambler::next(const Packet &packet)
{
    constexpr double kPerPacket = 0.01;
    const double t = m_count++ * kPerPacket;
    const auto at = [](int offset, int span, double share) {
        return offset + static_cast<int>(std::lround(span * (0.5 + 0.4 * share)));
    };
    Packet scrambled = packet;
    scrambled.x = at(m_pad.rawOffsetX, m_pad.rawSpanX, std::sin(3 * t));
    scrambled.y = at(m_pad.rawOffsetY, m_pad.rawSpanY, std::sin(4.1 * t + 1));
    return scrambled;
}

std::vector<unsigned char> scrambledFingerprint()
{
    constexpr int kStripe = 8;
    std::vector<unsigned char> pixels;
    for (int y = 0; y < kFingerprintHeight; ++y)
        pixels.insert(pixels.end(), kFingerprintWidth, static_cast<unsigned char>(y / kStripe % 2 == 0 ? 60 : 220));
    return pixels;
}

} // namespace kvsim
