#include "pngrows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kPixel = 4; // bytes
constexpr QRgb kWhite = 0xffffffff;
constexpr QRgb kAlpha = 0xff000000;

enum Filter
{
    None,
    Sub,
    Up,
    Average,
    Paeth
};

unsigned distance(unsigned char value)
{
    return value < 128 ? value : 256U - value;
}

int paethPredictor(int left, int up, int upLeft)
{
    const int toLeft = std::abs(up - upLeft);
    const int toUp = std::abs(left - upLeft);
    const int toUpLeft = std::abs(left + up - 2 * upLeft);
    const int first = toUp < toLeft ? up : left;
    return toUpLeft < std::min(toLeft, toUp) ? upLeft : first;
}

// What is taken off each byte, by its left, upper and upper left neighbour.
template <int filter>
int predictor(int left, int up, int upLeft)
{
    switch (filter) {
    case Sub:
        return left;
    case Up:
        return up;
    case Average:
        return (left + up) / 2;
    case Paeth:
        return paethPredictor(left, up, upLeft);
    default:
        return 0;
    }
}

// Writes the filtered bytes and answers the sum of their distances from 0, by which the filter is chosen.
template <int filter>
unsigned apply(const unsigned char *here, const unsigned char *above, unsigned char *to, int size)
{
    unsigned sum = 0;
    for (int i = 0; i < size; ++i) {
        const int guess = predictor<filter>(here[i - kPixel], above[i], above[i - kPixel]);
        const auto value = static_cast<unsigned char>(here[i] - guess);
        to[i] = value;
        sum += distance(value);
    }
    return sum;
}

} // namespace

PngRows::PngRows(int width)
    : m_width(width)
{
    const size_t size = static_cast<size_t>(width + 1) * kPixel;
    m_above.bytes.resize(size);
    m_here.bytes.resize(size);
    for (int filter = None; filter <= Paeth; ++filter) {
        m_candidates[filter].resize(static_cast<size_t>(width) * kPixel + 1);
        m_candidates[filter][0] = static_cast<unsigned char>(filter);
    }
}

void PngRows::startBelow(const QRgb *above)
{
    if (above != nullptr) {
        take(above, m_above);
    } else {
        std::fill(m_above.bytes.begin(), m_above.bytes.end(), static_cast<unsigned char>(0));
        m_above.ink = {};
    }
}

// False when a pixel is not opaque.
bool PngRows::take(const QRgb *pixels, Row &row) const
{
    QRgb all = kWhite;
    for (int x = 0; x < m_width; ++x)
        all &= pixels[x];
    if ((all & kAlpha) != kAlpha)
        return false;
    std::memset(
        row.bytes.data() + (row.ink.first + 1) * kPixel, 0, static_cast<size_t>(row.ink.end - row.ink.first) * kPixel);
    row.ink = {};
    if (all == kWhite)
        return true;
    const auto isInk = [](QRgb pixel) { return pixel != kWhite; };
    row.ink.first = static_cast<int>(std::find_if(pixels, pixels + m_width, isInk) - pixels);
    row.ink.end = m_width;
    while (!isInk(pixels[row.ink.end - 1]))
        --row.ink.end;
    unsigned char *to = row.bytes.data() + (row.ink.first + 1) * kPixel;
    for (int x = row.ink.first; x < row.ink.end; ++x, to += kPixel) {
        const QRgb pixel = isInk(pixels[x]) ? pixels[x] : 0;
        to[0] = static_cast<unsigned char>(pixel >> 16);
        to[1] = static_cast<unsigned char>(pixel >> 8);
        to[2] = static_cast<unsigned char>(pixel);
        to[3] = static_cast<unsigned char>(pixel >> 24);
    }
    return true;
}

// The union of the ink of both rows, and the pixel right of it, whose left neighbours count.
PngRows::Range PngRows::closelyLookedAt() const
{
    const Range &a = m_above.ink;
    const Range &b = m_here.ink;
    if (a.first == a.end)
        return {b.first, std::min(b.end + 1, m_width)};
    return {std::min(a.first, b.first), std::min(std::max(a.end, b.end) + 1, m_width)};
}

const unsigned char *PngRows::next(const QRgb *pixels)
{
    if (!take(pixels, m_here))
        return nullptr;
    unsigned sums[5] = {};
    int best = None;
    if (m_here.ink.first != m_here.ink.end) { // of a blank row nothing is smaller than its own zeros
        const Range range = closelyLookedAt();
        const unsigned char *here = m_here.bytes.data() + (range.first + 1) * kPixel;
        const unsigned char *above = m_above.bytes.data() + (range.first + 1) * kPixel;
        const int size = (range.end - range.first) * kPixel;
        unsigned char *to[5];
        for (int filter = None; filter <= Paeth; ++filter)
            to[filter] = blankOutside(filter, range);
        sums[None] = apply<None>(here, above, to[None], size);
        sums[Sub] = apply<Sub>(here, above, to[Sub], size);
        sums[Up] = apply<Up>(here, above, to[Up], size);
        sums[Average] = apply<Average>(here, above, to[Average], size);
        sums[Paeth] = apply<Paeth>(here, above, to[Paeth], size);
        best = static_cast<int>(std::min_element(sums, sums + 5) - sums);
    } else {
        blankOutside(None, {});
    }
    std::swap(m_above, m_here);
    return m_candidates[best].data();
}

// Zeroes what an earlier row left in the candidate; answers where the range's bytes go.
unsigned char *PngRows::blankOutside(int filter, const Range &range)
{
    unsigned char *bytes = m_candidates[filter].data() + 1;
    Range &written = m_written[filter];
    std::memset(bytes + written.first * kPixel, 0, static_cast<size_t>(written.end - written.first) * kPixel);
    written = range;
    return bytes + range.first * kPixel;
}
