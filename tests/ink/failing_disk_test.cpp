// A disk that fails late: when a file is closed, or when one that cannot be renamed is read again for its copy. The
// save fails, and the earlier file stays.
#include "replacedfile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool isReadable = true;
bool closesWell = true;

} // namespace

// In place of the system's functions for this program.

// Some disks report only here that there was no room.
extern "C" int close(int file)
{
    const auto result = static_cast<int>(::syscall(SYS_close, file));
    if (closesWell)
        return result;
    closesWell = true;
    errno = EIO;
    return -1;
}

extern "C" ssize_t pread(int file, void *to, size_t size, off_t from)
{
    if (!isReadable || ::lseek(file, from, SEEK_SET) != from) {
        errno = EIO;
        return -1;
    }
    return ::read(file, to, size);
}

namespace {

class FailingDisk : public testing::TestWithParam<bool>
{
protected:
    FailingDisk()
    {
        QFile earlier(m_path);
        EXPECT_TRUE(earlier.open(QIODevice::WriteOnly) && earlier.write("earlier") == 7);
    }

    QByteArray contents() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    QTemporaryDir m_directory;
    const QString m_path = m_directory.filePath("file");
};

TEST_P(FailingDisk, AtAReadKeepsTheEarlierFile)
{
    ReplacedFile file(m_path);
    ASSERT_EQ(file.write("later"), 5);
    for (const auto &entry : std::filesystem::directory_iterator(m_directory.path().toStdString()))
        if (entry.path().filename() != "file")
            std::filesystem::remove(entry.path()); // so that it cannot be renamed
    isReadable = GetParam();
    EXPECT_EQ(file.commit(), GetParam());
    isReadable = true;
    EXPECT_EQ(contents(), GetParam() ? "later" : "earlier");
}

TEST_P(FailingDisk, AtACloseKeepsTheEarlierFile)
{
    {
        ReplacedFile file(m_path);
        ASSERT_EQ(file.write("later"), 5);
        closesWell = GetParam();
        EXPECT_EQ(file.commit(), GetParam());
        closesWell = true;
    }
    EXPECT_EQ(contents(), GetParam() ? "later" : "earlier");
    EXPECT_EQ(QDir(m_directory.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Calls, FailingDisk, testing::Bool(),
    [](const auto &shown) { return std::string(shown.param ? "Succeed" : "Fail"); });

} // namespace
