// Random sessions: PROGRAM SEED COUNT runs those of the seeds from SEED on and prints what each brought out.
#include "scenario.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s SEED COUNT\n", argv[0]);
        return 2;
    }
    const auto first = static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10));
    const auto count = static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10));
    for (unsigned seed = first; seed != first + count; ++seed) {
        for (const std::string &line : Scenario(seed).run())
            std::puts(line.c_str());
    }
    return 0;
}
