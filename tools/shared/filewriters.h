/// @file
/// Who may write a file or a folder, by its owner, its mode and its access list.
#ifndef FILEWRITERS_H
#define FILEWRITERS_H

#include <string>
#include <sys/stat.h>

namespace driverfile {

/// The user for whom a file is judged.
struct Asker
{
    uid_t user;

    /// The effective user of this process.
    static Asker self();

    /// The user itself, root, and owners that this process's user namespace does not map.
    bool trusts(uid_t owner) const;

    /// Whether nobody but the user or root is in the group: a private group, which has its user's name. Asks for all
    /// accounts, so it may take long where a directory service lists them; accounts that it does not list are not seen.
    bool trustsGroup(gid_t group) const;
};

/// Who else may write it, and the command that prevents it: "everybody" and "chmod o-w". Empty for nobody.
struct Writers
{
    std::string who;
    std::string cure; ///< the command without the path

    bool isNobody() const { return who.empty(); }
};

/// Judges the owner, who can always change the mode and so can write.
Writers foreignOwner(const Asker &asker, const struct stat &status);

/// Judges the mode bits.
/// @param hasAccessList with an access list, the group's bits of the mode are the list's mask
Writers writersByMode(const Asker &asker, const struct stat &status, bool hasAccessList);

} // namespace driverfile

#endif
