// The log writes only to a regular file of its own, not to anything that others may have planted.
#include "LogFileUtil.h"
#include "logfile.h"
#include "openfiles.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const std::string kLine = "[key()]:value, ";

struct Log
{
    const char *name;
    const char *file;
    void (*write)();
};

void PrintTo(const Log &log, std::ostream *out)
{
    *out << log.name;
}

const Log kLogs[] = {
    {"Main", kLogFile, [] { MyDebug("key()", "value", "\n"); }},
    {"MainWide", kLogFile, [] { MyDebug(L"key()", L"value", L"\n"); }},
    {"InThread", kInThreadLogFile, [] { MyDebug_InsideThread("key()", "value", "\n"); }},
};

/// Starts and ends without a file of the log's name. An existing one is moved aside meanwhile.
class LogFile : public testing::TestWithParam<Log>
{
protected:
    LogFile()
        : m_wasThere(std::rename(file, aside.c_str()) == 0)
    {
    }
    ~LogFile() override
    {
        std::remove(file);
        std::remove(other.c_str());
        umask(m_umask);
        if (m_wasThere)
            std::rename(aside.c_str(), file);
    }

    void TearDown() override { EXPECT_EQ(openFiles(), m_open) << "whether or not a line was written"; }

    void write() const { GetParam().write(); }
    void make(const std::string &path, const std::string &content, mode_t mode = 0600) const
    {
        std::ofstream(path) << content;
        ASSERT_EQ(chmod(path.c_str(), mode), 0);
    }
    static std::string content(const std::string &path)
    {
        std::ifstream in(path);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    struct stat status() const
    {
        struct stat found = {};
        EXPECT_EQ(lstat(file, &found), 0);
        return found;
    }

    const char *const file = GetParam().file;
    const std::string aside = std::string(file) + ".aside";
    const std::string other = std::string(file) + ".other";
    const mode_t m_umask = umask(0);

private:
    const bool m_wasThere;
    const std::vector<std::string> m_open = openFiles();
};

} // namespace

TEST_P(LogFile, IsMadeForItsOwnerAlone)
{
    write();
    write();
    EXPECT_EQ(content(file), kLine + "\n" + kLine + "\n");
    EXPECT_EQ(status().st_mode, static_cast<mode_t>(S_IFREG | 0600)) << "whatever the umask";
}

TEST_P(LogFile, KeepsItsContentAndItsMode)
{
    make(file, "before\n", 0644);
    write();
    EXPECT_EQ(content(file), "before\n" + kLine + "\n");
    EXPECT_EQ(status().st_mode & 07777, 0644u);
}

TEST_P(LogFile, IsNotALink)
{
    make(other, "mine\n");
    for (const bool dangling : {false, true}) {
        if (dangling)
            std::remove(other.c_str());
        ASSERT_EQ(symlink(other.c_str(), file), 0);
        write();
        EXPECT_EQ(content(other), dangling ? "" : "mine\n");
        EXPECT_EQ(access(other.c_str(), F_OK) == 0, !dangling);
        std::remove(file);
    }
}

TEST_P(LogFile, HasNoOtherName)
{
    make(other, "mine\n");
    ASSERT_EQ(link(other.c_str(), file), 0);
    write();
    EXPECT_EQ(content(other), "mine\n");
}

TEST_P(LogFile, IsNoDirectory)
{
    ASSERT_EQ(mkdir(file, 0700), 0);
    write();
    EXPECT_TRUE(S_ISDIR(status().st_mode));
}

// A pipe: opening it must not block, and nothing is written to it.
TEST_P(LogFile, IsNoPipe)
{
    ASSERT_EQ(mkfifo(file, 0600), 0);
    alarm(60);
    write();
    const int reader = open(file, O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    write();
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);
    close(reader);
    alarm(0);
}

// Needs two users: root can be another one for a while.
TEST_P(LogFile, IsNotAnotherUsers)
{
    constexpr uid_t kOther = 54321;
    make(file, "theirs\n", 0666);
    if (geteuid() == 0) {
        ASSERT_EQ(seteuid(kOther), 0);
        write();
        ASSERT_EQ(seteuid(0), 0);
        EXPECT_EQ(content(file), "theirs\n");
        ASSERT_EQ(chown(file, kOther, kOther), 0);
        write();
        EXPECT_EQ(content(file), "theirs\n");
    }
}

INSTANTIATE_TEST_SUITE_P(
    BothFiles, LogFile, testing::ValuesIn(kLogs), [](const auto &row) { return std::string(row.param.name); });
