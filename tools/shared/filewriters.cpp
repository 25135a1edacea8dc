#include "filewriters.h"

#include <cerrno>
#include <cstdio>
#include <grp.h>
#include <mutex>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace driverfile {

namespace {

constexpr std::size_t kEntrySize = 1 << 16; // names and members of one account or group
constexpr uid_t kOverflow = 65534;

/// The user's name and primary group.
struct Account
{
    std::string name;
    gid_t group = 0;
};

bool findAccount(uid_t user, Account &account)
{
    std::vector<char> space(kEntrySize);
    passwd entry = {}, *found = nullptr;
    if (getpwuid_r(user, &entry, space.data(), space.size(), &found) != 0 || found == nullptr)
        return false;
    account = {entry.pw_name, entry.pw_gid};
    return true;
}

/// Whether it is the primary group of another account than the user's and root's. Such accounts are not among the
/// group's members.
bool isPrimaryOfOthers(gid_t id, uid_t user)
{
    static std::mutex oneAtATime; // the whole process has one place in the list of accounts
    const std::lock_guard<std::mutex> locked(oneAtATime);
    std::vector<char> space(kEntrySize);
    passwd entry = {}, *found = nullptr;
    bool isOfOthers = false;
    int error = 0;
    setpwent();
    while (!isOfOthers && (error = getpwent_r(&entry, space.data(), space.size(), &found)) == 0)
        isOfOthers = entry.pw_gid == id && entry.pw_uid != user && entry.pw_uid != 0;
    endpwent();
    return isOfOthers || error != ENOENT; // any other error is not the list's end: there may be more accounts
}

bool isPrivateGroup(const group &entry, const Account &account)
{
    if (account.group != entry.gr_gid || account.name != entry.gr_name)
        return false;
    for (char **member = entry.gr_mem; *member != nullptr; ++member) {
        if (account.name != *member && std::string(*member) != "root")
            return false;
    }
    return true;
}

std::string nameOfUser(uid_t user)
{
    Account account;
    return findAccount(user, account) ? account.name : "the user " + std::to_string(user);
}

std::string nameOfGroup(gid_t id)
{
    std::vector<char> space(kEntrySize);
    group entry = {}, *found = nullptr;
    const bool isKnown = getgrgid_r(id, &entry, space.data(), space.size(), &found) == 0 && found != nullptr;
    return isKnown ? entry.gr_name : std::to_string(id);
}

/// Whether this process sees an owner from outside its user namespace as the overflow user.
bool hidesOwners()
{
    std::FILE *const map = std::fopen("/proc/self/uid_map", "re");
    if (map == nullptr)
        return false;
    unsigned long inside = 0, outside = 0, count = 0;
    bool isMapped = false;
    while (std::fscanf(map, "%lu %lu %lu", &inside, &outside, &count) == 3)
        isMapped = isMapped || (inside <= kOverflow && kOverflow - inside < count);
    std::fclose(map);
    return !isMapped;
}

} // namespace

Asker Asker::self()
{
    return {geteuid()};
}

bool Asker::trusts(uid_t owner) const
{
    return owner == user || owner == 0 || (owner == kOverflow && hidesOwners());
}

bool Asker::trustsGroup(gid_t id) const
{
    std::vector<char> space(kEntrySize);
    group entry = {}, *found = nullptr;
    if (getgrgid_r(id, &entry, space.data(), space.size(), &found) != 0 || found == nullptr)
        return false;
    for (const uid_t trusted : {user, uid_t{0}}) {
        Account account;
        if (findAccount(trusted, account) && isPrivateGroup(entry, account) && !isPrimaryOfOthers(id, user))
            return true;
    }
    return false;
}

Writers foreignOwner(const Asker &asker, const struct stat &status)
{
    if (asker.trusts(status.st_uid))
        return {};
    return {nameOfUser(status.st_uid), asker.user == 0 ? "chown root" : "copy the driver to a folder of your own, not"};
}

Writers writersByMode(const Asker &asker, const struct stat &status, bool hasAccessList)
{
    if ((status.st_mode & S_IWOTH) != 0)
        return {"everybody", "chmod o-w"};
    if ((status.st_mode & S_IWGRP) == 0)
        return {};
    if (hasAccessList)
        return {"those whom its access list names", "setfacl -b"};
    if (asker.trustsGroup(status.st_gid))
        return {};
    return {"the group " + nameOfGroup(status.st_gid), "chmod g-w"};
}

} // namespace driverfile
