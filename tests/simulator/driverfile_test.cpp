// The permission check of the driver's file: which files and folders others could write to, and the cure for it.
#include "driverfile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace driverfile;

std::string workingDirectory()
{
    char *const path = getcwd(nullptr, 0);
    const std::string text = path;
    std::free(path);
    return text;
}

/// A temporary folder with a driver in its subfolder `pad`.
class DriverFile : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string place = testing::TempDir() + "driverfile.XXXXXX";
        ASSERT_NE(mkdtemp(place.data()), nullptr);
        char *const path = realpath(place.c_str(), nullptr);
        m_place = path;
        std::free(path);
        folder("pad");
        file("pad/libkvsignpaddrv.so");
    }

    void TearDown() override { ASSERT_EQ(std::system(("rm -rf " + m_place).c_str()), 0); }

    std::string at(const std::string &name) const { return m_place + '/' + name; }

    void folder(const std::string &name, mode_t mode = 0755) const
    {
        ASSERT_EQ(mkdir(at(name).c_str(), 0700), 0);
        ASSERT_EQ(chmod(at(name).c_str(), mode), 0);
    }

    void file(const std::string &name, mode_t mode = 0755) const
    {
        std::ofstream(at(name)) << "driver";
        ASSERT_EQ(chmod(at(name).c_str(), mode), 0);
    }

    void link(const std::string &target, const std::string &name) const
    {
        ASSERT_EQ(symlink(target.c_str(), at(name).c_str()), 0);
    }

    void mode(const std::string &name, mode_t mode) const { ASSERT_EQ(chmod(at(name).c_str(), mode), 0); }

    /// What the check says about the driver in a folder; empty if it finds nothing.
    std::string found(const std::string &directory) const
    {
        const auto weakness = weaknessIn(directory.front() == '/' ? directory : at(directory));
        return weakness ? weakness->sentence() : "";
    }

    std::string everybody(const std::string &name) const
    {
        return at(name) + " can be written by everybody; cure: chmod o-w " + at(name);
    }

private:
    std::string m_place;
};

TEST_F(DriverFile, IsSafeWhereOnlyItsOwnerWrites)
{
    EXPECT_EQ(found("pad"), "");
    mode("pad", 0700);
    mode("pad/libkvsignpaddrv.so", 0600);
    EXPECT_EQ(found("pad"), "");
}

TEST_F(DriverFile, IsUnsafeWhereEverybodyWritesTheFile)
{
    mode("pad/libkvsignpaddrv.so", 0757);
    EXPECT_EQ(found("pad"), everybody("pad/libkvsignpaddrv.so"));
}

TEST_F(DriverFile, IsUnsafeWhereEverybodyWritesItsFolder)
{
    mode("pad", 0757);
    EXPECT_EQ(found("pad"), everybody("pad"));
    mode("pad", 01777); // others could still add libraries that the driver loads
    EXPECT_EQ(found("pad"), everybody("pad"));
}

TEST_F(DriverFile, IsUnsafeWhereEverybodyWritesAFolderAbove)
{
    folder("above", 0757);
    folder("above/pad");
    file("above/pad/libkvsignpaddrv.so");
    EXPECT_EQ(found("above/pad"), everybody("above"));
    mode("above", 01777); // the sticky bit lets only the owner rename `pad`
    EXPECT_EQ(found("above/pad"), "");
}

TEST_F(DriverFile, IsLookedForWhereLinksLead)
{
    folder("open", 0757);
    file("open/real.so");
    folder("linked");
    link("../open/real.so", "linked/libkvsignpaddrv.so");
    EXPECT_EQ(found("linked"), everybody("open"));
    link(at("linked"), "folderlink");
    EXPECT_EQ(found("folderlink"), everybody("open"));
    mode("open", 0755);
    EXPECT_EQ(found("folderlink"), "");
}

TEST_F(DriverFile, IsUnsafeWhereTheLinkItselfCanBeReplaced)
{
    folder("open", 0757);
    link(at("pad/libkvsignpaddrv.so"), "open/libkvsignpaddrv.so");
    EXPECT_EQ(found("open"), everybody("open"));
    link(at("pad"), "open/way");
    EXPECT_EQ(found("open/way"), everybody("open"));
    mode("open", 01777); // the sticky bit protects the link, which is our own
    EXPECT_EQ(found("open/way"), "");
}

TEST_F(DriverFile, IsFoundFromTheWorkingDirectoryAndThroughDots)
{
    const std::string before = workingDirectory();
    ASSERT_EQ(chdir(at("pad").c_str()), 0);
    EXPECT_FALSE(weaknessIn("."));
    EXPECT_FALSE(weaknessOf("libkvsignpaddrv.so"));
    mode("pad", 0757);
    EXPECT_EQ(weaknessIn(".")->sentence(), everybody("pad"));
    EXPECT_EQ(weaknessIn("../pad/../pad")->sentence(), everybody("pad"));
    EXPECT_EQ(weaknessOf("libkvsignpaddrv.so")->sentence(), everybody("pad"));
    ASSERT_EQ(chdir(before.c_str()), 0);
}

TEST_F(DriverFile, HasNoEndlessWays)
{
    folder("round");
    link("libkvsignpaddrv.so", "round/libkvsignpaddrv.so");
    EXPECT_EQ(found("round"), "");
    EXPECT_EQ(found("none"), "");
    EXPECT_EQ(found("pad/libkvsignpaddrv.so"), "");
    EXPECT_EQ(found("/"), "");
}

TEST_F(DriverFile, QuotesWhatAShellWouldTakeApart)
{
    folder("a pad's");
    file("a pad's/libkvsignpaddrv.so", 0666);
    EXPECT_NE(found("a pad's").find("chmod o-w '" + at("a pad'\\''s/libkvsignpaddrv.so") + "'"), std::string::npos)
        << found("a pad's");
}

} // namespace
