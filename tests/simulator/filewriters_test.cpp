// Who may write a file, by its owner, its mode and the accounts of the system, which are made up here.
#include "filewriters.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <grp.h>
#include <iterator>
#include <pwd.h>
#include <string>

namespace {

struct AccountRow
{
    const char *name;
    uid_t user;
    gid_t group;
};

const AccountRow kAccounts[] = {{"root", 0, 0}, {"anna", 101, 101}, {"bert", 102, 102}, {"carl", 103, 102},
    {"dora", 104, 104}, {"emil", 105, 105}, {"super", 0, 101}, {"anna2", 101, 101}, {"fritz", 106, 200}};

struct GroupRow
{
    const char *name;
    gid_t group;
    const char *member;
};

const GroupRow kGroups[] = {{"root", 0, nullptr}, {"anna", 101, "root"}, {"bert", 102, nullptr}, {"dora", 104, "bert"},
    {"emil", 105, "emil"}, {"clerks", 200, nullptr}};

const AccountRow *nextAccount = kAccounts;
int endOfAccounts = ENOENT;

passwd entryOf(const AccountRow &row)
{
    passwd entry = {};
    entry.pw_name = const_cast<char *>(row.name);
    entry.pw_uid = row.user;
    entry.pw_gid = row.group;
    return entry;
}

} // namespace

// In place of the system's own.

extern "C" int getpwuid_r(uid_t user, passwd *entry, char *, size_t, passwd **found)
{
    *found = nullptr;
    for (const AccountRow &row : kAccounts) {
        if (row.user == user) {
            *entry = entryOf(row);
            *found = entry;
            break;
        }
    }
    return 0;
}

extern "C" void setpwent()
{
    nextAccount = kAccounts;
}

extern "C" void endpwent() { }

extern "C" int getpwent_r(passwd *entry, char *, size_t, passwd **found)
{
    *found = nullptr;
    if (nextAccount == std::end(kAccounts))
        return endOfAccounts;
    *entry = entryOf(*nextAccount++);
    *found = entry;
    return 0;
}

extern "C" int getgrgid_r(gid_t id, group *entry, char *space, size_t, group **found)
{
    *found = nullptr;
    for (const GroupRow &row : kGroups) {
        if (row.group == id) {
            char **const members = reinterpret_cast<char **>(space);
            members[0] = const_cast<char *>(row.member);
            members[1] = nullptr;
            entry->gr_name = const_cast<char *>(row.name);
            entry->gr_gid = id;
            entry->gr_mem = members;
            *found = entry;
        }
    }
    return 0;
}

namespace {

using namespace driverfile;

struct stat ownedBy(uid_t owner, gid_t group, mode_t mode)
{
    struct stat status = {};
    status.st_uid = owner;
    status.st_gid = group;
    status.st_mode = mode;
    return status;
}

std::string writersInGroup(uid_t user, gid_t group)
{
    return writersByMode(Asker{user}, ownedBy(user, group, 0664), false).who;
}

TEST(FileWriters, AreItsOwnerWhenThatIsNeitherTheUserNorRoot)
{
    const Asker asker{101};
    EXPECT_TRUE(foreignOwner(asker, ownedBy(101, 1, 0644)).isNobody());
    EXPECT_TRUE(foreignOwner(asker, ownedBy(0, 1, 0644)).isNobody());
    EXPECT_EQ(foreignOwner(asker, ownedBy(4712, 1, 0644)).who, "the user 4712");
    EXPECT_EQ(foreignOwner(asker, ownedBy(102, 1, 0644)).who, "bert");
    EXPECT_EQ(foreignOwner(Asker{0}, ownedBy(101, 1, 0644)).cure, "chown root");
}

TEST(FileWriters, AreEverybodyOrNobodyByTheMode)
{
    EXPECT_EQ(writersByMode(Asker{101}, ownedBy(101, 101, 0646), false).who, "everybody");
    EXPECT_TRUE(writersByMode(Asker{101}, ownedBy(101, 4711, 0644), false).isNobody());
}

TEST(FileWriters, AreAGroupUnlessItIsThePrivateOneOfTheUserOrOfRoot)
{
    EXPECT_EQ(writersInGroup(101, 101), ""); // its members: anna under two names, and root under two
    EXPECT_EQ(writersInGroup(101, 0), "");
    EXPECT_EQ(writersInGroup(105, 105), ""); // emil is named among the members too
    EXPECT_EQ(writersInGroup(101, 105), "the group emil");
    EXPECT_EQ(writersInGroup(104, 104), "the group dora"); // bert is a member
    EXPECT_EQ(writersInGroup(106, 200), "the group clerks"); // fritz is alone in it today, but it is not his
    EXPECT_EQ(writersInGroup(101, 4711), "the group 4711");
    EXPECT_EQ(writersByMode(Asker{101}, ownedBy(101, 4711, 0664), false).cure, "chmod g-w");
}

TEST(FileWriters, AreAGroupThatAnotherAccountHasAsItsPrimaryOne)
{
    EXPECT_EQ(writersInGroup(102, 102), "the group bert"); // carl's too, who is not among its members
}

TEST(FileWriters, AreAGroupWhereNotAllAccountsCanBeAskedFor)
{
    endOfAccounts = EIO;
    EXPECT_EQ(writersInGroup(101, 101), "the group anna");
    endOfAccounts = ENOENT;
    EXPECT_EQ(writersInGroup(101, 101), "");
}

TEST(FileWriters, AreThoseOfAnAccessList)
{
    EXPECT_EQ(writersByMode(Asker{101}, ownedBy(101, 101, 0664), true).cure, "setfacl -b");
    EXPECT_TRUE(writersByMode(Asker{101}, ownedBy(101, 101, 0644), true).isNobody());
}

} // namespace
