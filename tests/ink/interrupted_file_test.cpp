// Writing a file, and reading it back before it gets its name: signals, short pieces, and an end before the end.
#include "privatefile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

enum class Read
{
    InPieces,
    AfterASignal,
    UpToAnEarlyEnd,
    Never
};

enum class Write
{
    AtOnce,
    InPieces,
    AfterASignal,
    NotAtAll,
    Never
};

Read reads = Read::InPieces;
Write writes = Write::AtOnce;
int calls = 0;

} // namespace

// In place of the system's functions for this program.
extern "C" ssize_t write(int file, const void *from, size_t size)
{
    ++calls;
    const bool isEndless = calls > 100;
    if (writes == Write::Never || isEndless || (writes == Write::AfterASignal && calls % 2 == 1)) {
        errno = writes == Write::Never || isEndless ? EIO : EINTR;
        return -1;
    }
    errno = EINTR; // after 0 it means nothing
    const size_t most = writes == Write::AtOnce ? size : writes == Write::NotAtAll && calls < 10 ? 0 : 4;
    return ::syscall(SYS_write, file, from, std::min(size, most));
}

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

struct WriteCase
{
    const char *name;
    Write writes;
    bool isWritten;
    int calls;
};

class InterruptedWrite : public testing::TestWithParam<WriteCase>
{
};

TEST_P(InterruptedWrite, GoesOnOrFails)
{
    const QTemporaryDir directory;
    PrivateFile file(directory.filePath("file").toUtf8().constData());
    writes = GetParam().writes;
    calls = 0;
    const qint64 written = file.device().write("signature");
    const int made = calls;
    writes = Write::AtOnce;
    EXPECT_EQ(written, GetParam().isWritten ? 9 : -1);
    EXPECT_EQ(made, GetParam().calls);
    std::string text(9, '.');
    if (GetParam().isWritten) {
        EXPECT_TRUE(file.read(text.data()));
        EXPECT_EQ(text, "signature");
    }
}

INSTANTIATE_TEST_SUITE_P(Writes, InterruptedWrite,
    testing::Values(WriteCase{"InPieces", Write::InPieces, true, 3},
        WriteCase{"AfterASignal", Write::AfterASignal, true, 6}, WriteCase{"NotAtAll", Write::NotAtAll, false, 1},
        WriteCase{"Never", Write::Never, false, 1}),
    [](const auto &shown) { return std::string(shown.param.name); });

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
