// Entry of the tests that show widgets.
#include "testsoffile.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return runTestsOfFile(argc, argv);
}
