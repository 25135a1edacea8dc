// A file that can neither be renamed nor read again for its copy: the save fails, and the earlier file stays.
#include "replacedfile.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace {

bool isReadable = true;

} // namespace

// In place of the system's function for this program. A disk may fail a read.
extern "C" ssize_t pread(int file, void *to, size_t size, off_t from)
{
    if (!isReadable || ::lseek(file, from, SEEK_SET) != from) {
        errno = EIO;
        return -1;
    }
    return ::read(file, to, size);
}

namespace {

class UnreadableCopy : public testing::TestWithParam<bool>
{
};

TEST_P(UnreadableCopy, FailsTheSaveAndKeepsTheEarlierFile)
{
    const QTemporaryDir directory;
    const QString path = directory.filePath("file");
    QFile earlier(path);
    ASSERT_TRUE(earlier.open(QIODevice::WriteOnly) && earlier.write("earlier") == 7);
    earlier.close();
    ReplacedFile file(path);
    ASSERT_EQ(file.write("later"), 5);
    for (const auto &entry : std::filesystem::directory_iterator(directory.path().toStdString()))
        if (entry.path().filename() != "file")
            std::filesystem::remove(entry.path()); // so that it cannot be renamed
    isReadable = GetParam();
    EXPECT_EQ(file.commit(), GetParam());
    isReadable = true;
    ASSERT_TRUE(earlier.open(QIODevice::ReadOnly));
    EXPECT_EQ(earlier.readAll(), GetParam() ? "later" : "earlier");
}

INSTANTIATE_TEST_SUITE_P(Reads, UnreadableCopy, testing::Bool(),
    [](const auto &shown) { return std::string(shown.param ? "Succeed" : "Fail"); });

} // namespace
