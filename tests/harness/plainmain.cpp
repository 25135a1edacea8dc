// Entry of the tests that need no QApplication, or must have none.
#include "testsoffile.h"

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    return runTestsOfFile(argc, argv);
}
