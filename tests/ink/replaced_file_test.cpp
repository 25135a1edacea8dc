// Files that replace existing ones: the name, the existing file and its attributes after a complete write and after one
// that failed.
#include "openfiles.h"
#include "replacedfile.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace {

const QByteArray kEarlier(300000, 'e');
const QByteArray kLater(200000, 'l');

class ReplacedFiles : public testing::Test
{
protected:
    ReplacedFiles()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::umask(022);
    }

    void TearDown() override { EXPECT_EQ(openFiles(), m_open); }

    QString path(const char *name = "file") const { return m_directory.filePath(name); }
    std::string name(const char *name = "file") const { return path(name).toStdString(); }

    void makeEarlier(mode_t mode = 0644) const
    {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(kEarlier) == kEarlier.size());
        file.close();
        ASSERT_EQ(::chmod(name().c_str(), mode), 0);
    }

    QByteArray contents(const char *name = "file") const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    struct stat status(const char *name = "file") const
    {
        struct stat found
        {
        };
        EXPECT_EQ(::lstat(this->name(name).c_str(), &found), 0) << name;
        return found;
    }

    size_t files() const
    {
        const std::filesystem::directory_iterator entries(m_directory.path().toStdString());
        return static_cast<size_t>(std::distance(begin(entries), end(entries)));
    }

    bool replace(const char *name = "file", const QByteArray &bytes = kLater) const
    {
        ReplacedFile file(path(name));
        return file.isOpen() && file.write(bytes) == bytes.size() && file.commit();
    }

    /// Runs the call where no file can have more than so many bytes.
    template <class Call>
    static bool onAFullDisk(rlim_t most, Call call)
    {
        rlimit before{};
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{most, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const bool done = call();
        ::setrlimit(RLIMIT_FSIZE, &before);
        return done;
    }

    bool replaceOnAFullDisk(rlim_t most = 1000) const
    {
        return onAFullDisk(most, [this] { return replace(); });
    }

    QTemporaryDir m_directory;

private:
    const std::vector<std::string> m_open = openFiles();
};

TEST_F(ReplacedFiles, HoldAllThatWasWrittenInPiecesOfAnySize)
{
    QByteArray expected;
    ReplacedFile file(path());
    ASSERT_TRUE(file.isOpen());
    for (int i = 0; i < 300; ++i) {
        const QByteArray piece(i * i % 1700 + (i == 200 ? 300000 : 0), static_cast<char>('a' + i % 26));
        ASSERT_EQ(file.write(piece), piece.size());
        expected += piece;
    }
    EXPECT_TRUE(file.commit());
    EXPECT_FALSE(file.isOpen()) << "it takes no more";
    EXPECT_EQ(contents(), expected);
    EXPECT_EQ(files(), 1u);
}

TEST_F(ReplacedFiles, LeaveTheEarlierFileAloneUntilTheyAreWhole)
{
    makeEarlier();
    {
        ReplacedFile file(path());
        ASSERT_EQ(file.write(kLater), kLater.size());
        EXPECT_EQ(contents(), kEarlier);
    }
    EXPECT_EQ(contents(), kEarlier) << "and without a commit for good";
    EXPECT_EQ(files(), 1u);
    EXPECT_TRUE(replace());
    EXPECT_EQ(contents(), kLater);
    EXPECT_EQ(files(), 1u);
}

TEST_F(ReplacedFiles, LeaveNothingBehindOnAFullDisk)
{
    EXPECT_FALSE(replaceOnAFullDisk());
    EXPECT_EQ(files(), 0u);
    makeEarlier();
    for (const rlim_t most : {0u, 1u, 65536u, 199999u}) {
        EXPECT_FALSE(replaceOnAFullDisk(most)) << most;
        EXPECT_EQ(contents(), kEarlier) << most;
        EXPECT_EQ(files(), 1u) << most;
    }
    EXPECT_TRUE(replaceOnAFullDisk(200000));
    EXPECT_EQ(contents(), kLater);
}

TEST_F(ReplacedFiles, KeepThePermissionsOfTheEarlierFileAndGiveNewOnesThoseOfAnyFile)
{
    for (const mode_t mode : {0600u, 0640u, 0666u, 0777u, 0604u}) {
        makeEarlier(mode);
        EXPECT_TRUE(replace());
        EXPECT_EQ(status().st_mode & 07777, mode) << std::oct << mode;
    }
    for (const mode_t mask : {022u, 077u, 0u}) {
        ::umask(mask);
        EXPECT_TRUE(replace("new"));
        EXPECT_EQ(status("new").st_mode & 07777, 0666 & ~mask) << std::oct << mask;
        QFile::remove(path("new"));
    }
}

TEST_F(ReplacedFiles, WriteALinkSpecialFilesAndFilesOfSeveralNamesInPlace)
{
    makeEarlier();
    ASSERT_EQ(::symlink("file", name("link").c_str()), 0);
    const ino_t before = status().st_ino;
    EXPECT_TRUE(replace("link"));
    EXPECT_TRUE(S_ISLNK(status("link").st_mode));
    EXPECT_EQ(contents(), kLater);
    EXPECT_EQ(status().st_ino, before);

    ASSERT_EQ(::symlink("missing", name("dangling").c_str()), 0);
    EXPECT_TRUE(replace("dangling"));
    EXPECT_EQ(contents("missing"), kLater) << "the link's file is made";

    ASSERT_EQ(::link(name().c_str(), name("other").c_str()), 0);
    EXPECT_TRUE(replace("file", "short"));
    EXPECT_EQ(contents("other"), "short") << "both names have the same file";
    EXPECT_EQ(status("other").st_nlink, 2u);

    ASSERT_EQ(::symlink("/dev/full", name("full").c_str()), 0);
    EXPECT_FALSE(replace("full"));
    EXPECT_TRUE(S_ISLNK(status("full").st_mode));
    ASSERT_EQ(::symlink("/dev/null", name("null").c_str()), 0);
    EXPECT_TRUE(replace("null"));
    EXPECT_EQ(files(), 7u);
}

// As where something cleans the folder up, or where the file is mounted by itself into a container.
TEST_F(ReplacedFiles, AreCopiedWhereTheyCannotBeRenamed)
{
    makeEarlier(0640);
    const ino_t before = status().st_ino;
    ReplacedFile file(path());
    ASSERT_EQ(file.write(kLater), kLater.size());
    ASSERT_EQ(file.write("end"), 3);
    for (const auto &entry : std::filesystem::directory_iterator(m_directory.path().toStdString()))
        if (entry.path().filename() != "file")
            std::filesystem::remove(entry.path());
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(contents(), kLater + "end");
    EXPECT_EQ(status().st_ino, before);
    EXPECT_EQ(status().st_mode & 07777u, 0640u);
    EXPECT_EQ(files(), 1u);
}

// A service may have closed its standard input: then the descriptors begin with 0.
TEST_F(ReplacedFiles, AreWrittenWithDescriptorsFromZeroOn)
{
    makeEarlier();
    ASSERT_EQ(::symlink("file", name("link").c_str()), 0);
    const int input = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    const bool beside = replace();
    const size_t left = files();
    const bool inPlace = replace("link", kEarlier + kLater);
    const bool onAFullDisk = replaceOnAFullDisk();
    const bool isClosed = ::fcntl(STDIN_FILENO, F_GETFD) < 0;
    ::dup2(input, STDIN_FILENO);
    ::close(input);
    EXPECT_TRUE(beside && inPlace);
    EXPECT_EQ(left, 2u) << "the file and its link";
    EXPECT_FALSE(onAFullDisk);
    EXPECT_TRUE(isClosed) << "what they opened as 0";
    EXPECT_EQ(contents(), kEarlier + kLater);
    EXPECT_EQ(files(), 2u);
}

/// Runs the call while the process may open so many files more.
template <class Call>
bool withDescriptors(rlim_t count, Call call)
{
    rlimit before{};
    ::getrlimit(RLIMIT_NOFILE, &before);
    std::vector<int> gaps; // below a descriptor that is open
    const int above = ::fcntl(STDERR_FILENO, F_DUPFD, 100);
    for (int number = ::dup(STDERR_FILENO); number < above; number = ::dup(STDERR_FILENO))
        gaps.push_back(number);
    const int lowest = above + 1;
    ::close(lowest);
    const rlimit limit{static_cast<rlim_t>(lowest) + count, before.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &limit);
    const bool done = call();
    ::setrlimit(RLIMIT_NOFILE, &before);
    ::close(above);
    std::for_each(gaps.begin(), gaps.end(), ::close);
    return done;
}

// A new one takes two descriptors, its folder's and its own. In place it would take one, but then the earlier file
// would be lost on a full disk.
TEST_F(ReplacedFiles, StayAsTheyAreWhereDescriptorsAreShort)
{
    makeEarlier();
    const ino_t before = status().st_ino;
    for (const rlim_t count : {rlim_t{0}, rlim_t{1}}) {
        EXPECT_FALSE(withDescriptors(count, [&] { return replaceOnAFullDisk(); })) << count;
        EXPECT_FALSE(withDescriptors(count, [&] { return replace(); })) << count;
        EXPECT_EQ(contents(), kEarlier) << count;
        EXPECT_EQ(status().st_ino, before) << count;
    }
    EXPECT_EQ(files(), 1u);
    EXPECT_TRUE(withDescriptors(1, [&] { return replace("new"); })) << "nothing can be lost there";
    EXPECT_EQ(contents("new"), kLater);
    EXPECT_TRUE(withDescriptors(2, [&] { return replace(); }));
    EXPECT_EQ(contents(), kLater);
}

// The file and the one beside it are both removed in the meantime, so commit() makes a new one, which does not fit.
TEST_F(ReplacedFiles, LeaveNoHalfFileWhereTheyCouldNotBeRenamed)
{
    makeEarlier();
    const int input = ::dup(STDIN_FILENO);
    for (const bool hasInput : {true, false}) {
        ReplacedFile file(path());
        ASSERT_EQ(file.write(kLater), kLater.size());
        for (const auto &entry : std::filesystem::directory_iterator(m_directory.path().toStdString()))
            std::filesystem::remove(entry.path());
        if (!hasInput)
            ::close(STDIN_FILENO); // the new file is descriptor 0 then
        EXPECT_FALSE(onAFullDisk(1000, [&] { return file.commit(); }));
    }
    ::dup2(input, STDIN_FILENO);
    ::close(input);
    EXPECT_EQ(files(), 0u);
}

TEST_F(ReplacedFiles, WriteAFileWithRightsBeyondItsModeInPlace)
{
    makeEarlier();
    const ino_t before = status().st_ino;
    if (::setxattr(name().c_str(), "user.note", "kept", 4, 0) != 0)
        GTEST_FAIL() << "a directory for temporary files without extended attributes";
    EXPECT_TRUE(replace());
    EXPECT_EQ(contents(), kLater);
    EXPECT_EQ(status().st_ino, before);
    char value[8];
    EXPECT_EQ(::getxattr(name().c_str(), "user.note", value, sizeof value), 4);
}

TEST_F(ReplacedFiles, AreNotOpenWhereThereCanBeNone)
{
    ASSERT_TRUE(std::filesystem::create_directory(name("folder")));
    for (const char *bad : {"folder", "missing/file", "folder/", "folder/.", "new/"})
        EXPECT_FALSE(replace(bad)) << bad;
    EXPECT_FALSE(replace(std::string(300, 'n').c_str()));
    EXPECT_FALSE(ReplacedFile(QString()).isOpen());
    EXPECT_EQ(files(), 1u);
    EXPECT_TRUE(std::filesystem::is_empty(name("folder")));
}

/// Runs the call in a child process as an unprivileged user. Returns true when the call does.
template <class Call>
bool asNobody(Call call)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(::setegid(65534) == 0 && ::seteuid(65534) == 0 && call() ? 0 : 1);
    int status = 1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// A folder or file without write permission. Root may write everything, so an unprivileged child tries.
TEST_F(ReplacedFiles, OfOthersAreWrittenInPlaceOrNotAtAll)
{
    if (::geteuid() != 0)
        return; // another user cannot be had; what an own folder refuses is tested below
    makeEarlier(0666);
    const ino_t before = status().st_ino;
    ASSERT_EQ(::chmod(m_directory.path().toStdString().c_str(), 0755), 0);
    EXPECT_TRUE(asNobody([&] { return replace(); })) << "a writable file in a folder that is not";
    EXPECT_EQ(contents(), kLater);
    EXPECT_EQ(status().st_ino, before);
    EXPECT_FALSE(asNobody([&] { return replace("new"); }));
    ASSERT_EQ(::chmod(m_directory.path().toStdString().c_str(), 0777), 0);
    EXPECT_TRUE(asNobody([&] { return replace("file", "short"); })) << "another user's file";
    EXPECT_EQ(contents(), "short");
    EXPECT_EQ(status().st_ino, before);
    makeEarlier(0444);
    EXPECT_FALSE(asNobody([&] { return replace(); })) << "a file that may not be written in a folder that may";
    EXPECT_EQ(contents(), kEarlier);
    ASSERT_EQ(::chown(name().c_str(), 65534, 65534), 0);
    EXPECT_FALSE(asNobody([&] { return replace(); })) << "nor an own one";
    EXPECT_EQ(contents(), kEarlier);
    ASSERT_EQ(::chmod(name().c_str(), 0644), 0);
    EXPECT_TRUE(asNobody([&] { return replace(); }));
    EXPECT_EQ(status().st_uid, 65534u);
    const ino_t own = status().st_ino;
    EXPECT_NE(own, before);
    ASSERT_EQ(::chmod(m_directory.path().toStdString().c_str(), 0755), 0);
    EXPECT_TRUE(asNobody([&] { return replace("file", "short"); })) << "an own file in a folder that takes no new one";
    EXPECT_EQ(contents(), "short");
    EXPECT_EQ(status().st_ino, own);
    EXPECT_EQ(files(), 1u);
}

TEST_F(ReplacedFiles, KeepTheGroupOrAreWrittenInPlace)
{
    if (::geteuid() != 0)
        return; // an own file of another group cannot be had
    makeEarlier(0640);
    ASSERT_EQ(::chown(name().c_str(), static_cast<uid_t>(-1), 12345), 0);
    EXPECT_TRUE(replace());
    EXPECT_EQ(status().st_gid, 12345u);
    EXPECT_EQ(status().st_mode & 07777, 0640u);

    ASSERT_EQ(::chown(name().c_str(), 65534, 12345), 0);
    ASSERT_EQ(::chmod(m_directory.path().toStdString().c_str(), 0777), 0);
    const ino_t before = status().st_ino;
    EXPECT_TRUE(asNobody([&] { return replace("file", "short"); })) << "who is not in that group";
    EXPECT_EQ(status().st_ino, before);
    EXPECT_EQ(status().st_gid, 12345u);
    EXPECT_EQ(contents(), "short");
}

} // namespace
