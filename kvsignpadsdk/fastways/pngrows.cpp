#include "pngrows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace {

constexpr int kPixel = 4; // bytes
constexpr QRgb kWhite = 0xffffffff;
constexpr QRgb kAlpha = 0xff000000;

// PNG's filter types, with their numbers in the file.
enum Filter
{
    None,
    Sub,
    Up,
    Average,
    Paeth
};

// libpng weighs a filtered byte by its distance from 0 as a signed byte, and takes the filter with the smallest sum.
unsigned distance(unsigned char value)
{
    return value < 128 ? value : 256U - value;
}

// The neighbour nearest to left + up - upLeft; on a tie left, then up, as the PNG standard demands.
int paethPredictor(int left, int up, int upLeft)
{
    const int toLeft = std::abs(up - upLeft);
    const int toUp = std::abs(left - upLeft);
    const int toUpLeft = std::abs(left + up - 2 * upLeft);
    const int first = toUp < toLeft ? up : left;
    return toUpLeft < std::min(toLeft, toUp) ? upLeft : first;
}

// The value that a filter subtracts from a byte, given its left, upper and upper left neighbours.
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

// Writes the filtered bytes and returns the sum of their distances. Every filter computes its whole sum, where libpng
// gives up on one that is already worse: the winner is the same, and the loop vectorises.
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

PngRows::PngRows(int width, WhiteIs white)
    : m_width(width)
    , m_blank(white == WhiteIs::Opaque ? kWhite : 0)
{
    const auto blankByte = static_cast<unsigned char>(m_blank);
    for (Row *row : {&m_above, &m_here}) {
        row->bytes.resize(kPixel);
        row->bytes.resize(static_cast<size_t>(width + 1) * kPixel, blankByte);
    }
    for (int filter = None; filter <= Paeth; ++filter) {
        m_candidates[filter].push_back(static_cast<unsigned char>(filter));
        m_candidates[filter].resize(static_cast<size_t>(width) * kPixel + 1, filter == None ? blankByte : 0);
    }
}

void PngRows::startBelow(const QRgb *above)
{
    if (above != nullptr) {
        take(above, m_above);
    } else { // libpng filters the first row against zeros, which look blank only if white becomes transparent
        std::fill(m_above.bytes.begin(), m_above.bytes.end(), static_cast<unsigned char>(0));
        m_above.ink = {0, m_blank == 0 ? 0 : m_width};
    }
}

// Converts a row to RGBA bytes. Returns false when a pixel is not opaque.
bool PngRows::take(const QRgb *pixels, Row &row) const
{
    QRgb all = kWhite;
    for (int x = 0; x < m_width; ++x)
        all &= pixels[x];
    if ((all & kAlpha) != kAlpha)
        return false;
    std::memset(row.bytes.data() + (row.ink.first + 1) * kPixel, static_cast<int>(m_blank & 0xff),
        static_cast<size_t>(row.ink.end - row.ink.first) * kPixel);
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
        const QRgb pixel = isInk(pixels[x]) ? pixels[x] : m_blank;
        to[0] = static_cast<unsigned char>(pixel >> 16);
        to[1] = static_cast<unsigned char>(pixel >> 8);
        to[2] = static_cast<unsigned char>(pixel);
        to[3] = static_cast<unsigned char>(pixel >> 24);
    }
    return true;
}

// The pixels whose filtered bytes depend on ink: the ink of both rows, and one pixel more on the right, because Sub,
// Average and Paeth look at the left neighbour.
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
    const bool blank = m_here.ink.first == m_here.ink.end;
    const bool belowBlank = m_above.ink.first == m_above.ink.end;
    // A transparent row is all zeros. None leaves it so with sum 0, and libpng takes the first filter with the smallest
    // sum, so the row above does not matter.
    const int best = blank && (belowBlank || m_blank == 0) ? blankOnBlank() : bestOf(closelyLookedAt());
    std::swap(m_above, m_here);
    return m_candidates[best].data();
}

// The first filter with sum 0. Opaque white bytes are 255: None leaves them, Sub leaves the leftmost pixel, Up gives
// zeros only.
int PngRows::blankOnBlank()
{
    const int filter = m_blank == 0 ? None : Up;
    blankOutside(filter, {});
    return filter;
}

// min_element returns the first of equal sums, as libpng does: a later filter must be strictly better.
int PngRows::bestOf(const Range &range)
{
    const unsigned sums[] = {filtered<None>(range), filtered<Sub>(range), filtered<Up>(range), filtered<Average>(range),
        filtered<Paeth>(range)};
    return static_cast<int>(std::min_element(std::begin(sums), std::end(sums)) - sums);
}

// Fills the filter's candidate and returns its sum.
template <int filter>
unsigned PngRows::filtered(const Range &range)
{
    blankOutside(filter, range);
    const auto applyTo = [this](int first, int end) {
        const unsigned char *here = m_here.bytes.data() + (first + 1) * kPixel;
        const unsigned char *above = m_above.bytes.data() + (first + 1) * kPixel;
        return apply<filter>(here, above, m_candidates[filter].data() + 1 + first * kPixel, (end - first) * kPixel);
    };
    unsigned sum = applyTo(range.first, range.end);
    if (m_blank == 0)
        return sum;
    const int edge = range.first == 0 ? 0 : 1;
    sum += applyTo(0, edge);
    if (filter == None) // an unfiltered white byte is 255, one away from 0
        sum += static_cast<unsigned>(m_width - (range.end - range.first) - edge) * kPixel;
    return sum;
}

// Resets what an earlier row wrote to the candidate; `range` is about to be written.
void PngRows::blankOutside(int filter, const Range &range)
{
    Range &written = m_written[filter];
    std::memset(m_candidates[filter].data() + 1 + written.first * kPixel,
        filter == None ? static_cast<int>(m_blank & 0xff) : 0,
        static_cast<size_t>(written.end - written.first) * kPixel);
    written = range;
}
