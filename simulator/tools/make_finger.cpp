/// @file
/// kv-make-finger: writes a synthetic fingerprint as PGM to the standard output.
#include "finger.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <iostream>

namespace {

bool readNumber(const char *text, int &value)
{
    const char *const end = text + std::strlen(text);
    const auto [last, error] = std::from_chars(text, end, value);
    return error == std::errc() && last == end && value >= 0;
}

} // namespace

int main(int argc, char **argv)
{
    int seed = 0, quality = 0;
    if (argc != 3 || !readNumber(argv[1], seed) || !readNumber(argv[2], quality) || quality > 100) {
        std::fputs("usage: kv-make-finger SEED QUALITY\nThe quality goes from 0 to 100.\n", stderr);
        return 2;
    }
    writePgm(std::cout, kvsim::makeFinger(static_cast<unsigned>(seed), kvsim::contactOfQuality(quality)));
    return std::cout.flush() ? 0 : 1;
}
