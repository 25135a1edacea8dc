// The files of fingerprints: binary PGM with one byte a pixel.
#include "greyimage.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace kvsim;

TEST(GreyImage, SurvivesWritingAndReading)
{
    const GreyImage image{3, 2, {0, 10, 35, 255, 13, 128}};
    std::stringstream file;
    writePgm(file, image);
    EXPECT_EQ(file.str(), std::string("P5\n3 2\n255\n\x00\x0a\x23\xff\x0d\x80", 17));
    EXPECT_EQ(readPgm(file, "a.pgm").pixels, image.pixels);
}

TEST(GreyImage, HeaderMayHaveComments)
{
    std::istringstream file("P5 # made by hand\n#\n 2\n# high:\n1 255\nab");
    EXPECT_EQ(readPgm(file, "a.pgm").pixels, (std::vector<unsigned char>{'a', 'b'}));
}

TEST(GreyImage, OthersAreRefused)
{
    for (const char *text : {"", "P2\n1 1\n255\na", "P5\n1 1\n65535\naa", "P5\n2 2\n255\nabc", "P5\n-1 1\n255\na",
             "P5\n99999999999 1\n255\na", "P5\n0 1\n255\na"}) {
        std::istringstream file(text);
        EXPECT_THROW(readPgm(file, "a.pgm"), std::runtime_error) << text;
    }
}

} // namespace
