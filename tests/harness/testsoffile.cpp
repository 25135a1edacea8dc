#include "testsoffile.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <string>

namespace {

std::string namesOfTestsIn(const std::string &file)
{
    const std::string ending = "/" + file;
    std::string names;
    const testing::UnitTest &all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite &suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            const testing::TestInfo &test = *suite.GetTestInfo(j);
            const std::string path = std::string("/") + test.file();
            if (path.size() >= ending.size() && path.compare(path.size() - ending.size(), ending.size(), ending) == 0)
                names += std::string(test.test_suite_name()) + "." + test.name() + ":";
        }
    }
    return names;
}

} // namespace

int runTestsOfFile(int argc, char **argv)
{
    // A script's background jobs ignore these, and so would each program that a test starts and interrupts.
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGQUIT, SIG_DFL);
    const std::string option = "--file=";
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument.compare(0, option.size(), option) != 0)
            continue;
        const std::string file = argument.substr(option.size());
        const std::string names = namesOfTestsIn(file);
        if (names.empty()) {
            std::fprintf(stderr, "%s has no tests of %s\n", argv[0], file.c_str());
            return 1;
        }
        testing::GTEST_FLAG(filter) = names;
    }
    return RUN_ALL_TESTS();
}
