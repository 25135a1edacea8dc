#include "greyimage.h"

#include <cctype>
#include <istream>
#include <limits>
#include <ostream>
#include <stdexcept>

namespace kvsim {

namespace {

constexpr int kLargestSide = 10000;

/// The next number of a PGM header, or -1. A comment runs from # to the end of its line.
int headerNumber(std::istream &in)
{
    int c = in.get();
    while (std::isspace(c) || c == '#') {
        if (c == '#')
            in.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
        c = in.get();
    }
    if (!std::isdigit(c))
        return -1;
    int value = 0;
    for (; std::isdigit(c) && value <= kLargestSide; c = in.get())
        value = value * 10 + (c - '0');
    return value <= kLargestSide ? value : -1; // the one blank after the number is read too
}

} // namespace

GreyImage readPgm(std::istream &in, const std::string &name)
{
    if (in.get() != 'P' || in.get() != '5')
        throw std::runtime_error(name + ": not a binary PGM file");
    GreyImage image;
    image.width = headerNumber(in);
    image.height = headerNumber(in);
    if (image.width < 1 || image.height < 1 || headerNumber(in) != 255)
        throw std::runtime_error(name + ": not a PGM header with 255 grey levels");
    std::vector<char> row(static_cast<std::size_t>(image.width));
    for (int y = 0; y < image.height; ++y) { // row by row, so that a wrong header cannot ask for endless memory
        if (!in.read(row.data(), image.width))
            throw std::runtime_error(name + ": shorter than its header says");
        image.pixels.insert(image.pixels.end(), row.begin(), row.end());
    }
    return image;
}

void writePgm(std::ostream &out, const GreyImage &image)
{
    out << "P5\n" << std::to_string(image.width) << ' ' << std::to_string(image.height) << "\n255\n";
    out.write(reinterpret_cast<const char *>(image.pixels.data()), static_cast<std::streamsize>(image.pixels.size()));
}

} // namespace kvsim
