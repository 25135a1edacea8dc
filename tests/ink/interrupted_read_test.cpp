// Reading back a file before it gets its name: a signal, a short read and an early end.
#include "privatefile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <unistd.h>

namespace {

enum class Read
{
    InPieces,
    AfterASignal,
    UpToAnEarlyEnd,
    Never
};

Read reads = Read::InPieces;
int calls = 0;

} // namespace

// In place of the system's function for this program.
extern "C" ssize_t pread(int file, void *to, size_t size, off_t from)
{
    ++calls;
    // The tenth call goes on, so that a reader that asks again and again ends too.
    const bool isOver = reads == Read::UpToAnEarlyEnd && from > 0 && calls < 10;
    if (isOver || reads == Read::Never || (reads == Read::AfterASignal && calls % 2 == 1)) {
        errno = reads == Read::Never ? EIO : EINTR; // also at the end: after 0, errno means nothing
        return isOver ? 0 : -1;
    }
    return ::lseek(file, from, SEEK_SET) == from ? ::read(file, to, std::min(size, size_t{3})) : -1;
}

namespace {

struct Case
{
    const char *name;
    Read reads;
    bool isRead;
    int calls;
};

class InterruptedRead : public testing::TestWithParam<Case>
{
};

TEST_P(InterruptedRead, GoesOnOrFails)
{
    const QTemporaryDir directory;
    PrivateFile file(directory.filePath("file").toUtf8().constData());
    ASSERT_EQ(file.device().write("signature"), 9);
    reads = GetParam().reads;
    calls = 0;
    std::string text(9, '.');
    EXPECT_EQ(file.read(text.data()), GetParam().isRead);
    EXPECT_EQ(calls, GetParam().calls);
    if (GetParam().isRead) {
        EXPECT_EQ(text, "signature");
    }
}

INSTANTIATE_TEST_SUITE_P(Reads, InterruptedRead,
    testing::Values(Case{"InPieces", Read::InPieces, true, 3}, Case{"AfterASignal", Read::AfterASignal, true, 6},
        Case{"UpToAnEarlyEnd", Read::UpToAnEarlyEnd, false, 2}, Case{"Never", Read::Never, false, 1}),
    [](const auto &shown) { return std::string(shown.param.name); });

} // namespace
