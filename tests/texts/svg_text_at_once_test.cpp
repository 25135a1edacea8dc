// Several processes asking for the SVG text at the same time: each gets its own, though they share the file's name.
#include "returnedtext.h"
#include "svgfiles.h"

#include <atomic>
#include <filesystem>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

std::vector<PadCase> onePadOfEachHost()
{
    return {{&kS300Family, true}, {&kS310XFamily, false}};
}

class SvgTextsAtOnce : public testing::TestWithParam<PadCase>
{
};

// Asks for the text in an own process, whose pad has signed `moves` moves. Its exit code says whether all went well.
[[noreturn]] void askInProcess(int moves)
{
    OpenPad pad({&kR800Family, true}, 200, 100);
    pad.driver.send(scribble(pad.type(), 7, moves));
    QByteArray first;
    bool same = true;
    for (int i = 0; i < 60; ++i) {
        const QByteArray bytes = svgTextOf(pad).bytes();
        if (i == 0)
            first = bytes;
        same = same && !bytes.isEmpty() && bytes == first && bytes.count("<polyline") >= moves - 1;
    }
    ::_exit(same && !testing::Test::HasFailure() ? 0 : 1);
}

} // namespace

TEST_P(SvgTextsAtOnce, ThreadsEachGetAWholeText)
{
    OpenPad pad(GetParam(), 200, 100);
    pad.driver.send(twoStrokes(pad.type()));
    const QByteArray expected = svgTextOf(pad).bytes();
    ASSERT_FALSE(expected.isEmpty());
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            for (int n = 0; n < 40; ++n) {
                if (svgTextOf(pad).bytes() != expected)
                    ++wrong;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

// Started before any pad of this process: a child has only the thread that forked.
TEST(SvgTextsOfProcesses, EachGetsTheirOwn)
{
    std::set<std::string> before = svgFiles();
    std::vector<pid_t> children;
    for (const int moves : {20, 55, 90}) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            askInProcess(moves);
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
    before.insert("KVeSign.svg");
    EXPECT_EQ(svgFiles(), before);
    std::filesystem::remove("/tmp/KVeSign.svg");
}

INSTANTIATE_TEST_SUITE_P(BothHosts, SvgTextsAtOnce, testing::ValuesIn(onePadOfEachHost()), padCaseName);
