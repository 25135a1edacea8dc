#include "driverfile.h"

#include "filewriters.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <deque>
#include <sys/xattr.h>
#include <unistd.h>

namespace driverfile {

namespace {

constexpr int kMostLinks = 40; // as many as the kernel follows

/// Quoted for a shell.
std::string quoted(const std::string &path)
{
    if (path.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-+,@%=:")
        == std::string::npos)
        return path;
    std::string text = "'";
    for (const char character : path)
        text += character == '\'' ? std::string("'\\''") : std::string(1, character);
    return text + "'";
}

bool hasAccessList(const std::string &path)
{
    return getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

std::string workingDirectory()
{
    char *const path = getcwd(nullptr, 0);
    const std::string text = path != nullptr ? path : "/";
    std::free(path);
    return text;
}

std::string contentOfLink(const std::string &path)
{
    char target[PATH_MAX];
    const ssize_t size = readlink(path.c_str(), target, sizeof target);
    return {target, size > 0 ? static_cast<std::size_t>(size) : 0};
}

/// Resolves a path name by name, as the kernel does, and checks each folder, link and file on the way.
class Way
{
public:
    explicit Way(const Asker &asker)
        : m_asker(asker)
    {
    }

    std::optional<Weakness> follow(const std::string &path)
    {
        addNames(path);
        enter("/");
        while (!m_found && !m_names.empty() && step()) { }
        return m_found;
    }

private:
    /// Puts the names of a link's target in front of the names that are left.
    void addNames(const std::string &path)
    {
        auto place = m_names.begin();
        std::size_t begin = 0;
        while (begin < path.size()) {
            const std::size_t end = std::min(path.find('/', begin), path.size());
            const std::string name = path.substr(begin, end - begin);
            if (!name.empty() && name != ".")
                place = m_names.insert(place, name) + 1;
            begin = end + 1;
        }
    }

    /// Moves to the next name; false when that does not exist.
    bool step()
    {
        const std::string name = m_names.front();
        m_names.pop_front();
        if (name == "..")
            return enter(m_folder.substr(0, m_folder.find_last_of('/', m_folder.size() - 2) + 1));
        if (m_names.empty())
            judgeFolderOfDriver();
        const std::string path = m_folder + name;
        struct stat status = {};
        if (lstat(path.c_str(), &status) != 0)
            return false;
        if (S_ISLNK(status.st_mode))
            return followLink(path, status);
        if (S_ISDIR(status.st_mode))
            return enter(path + '/');
        judgeFile(path, status);
        return false;
    }

    bool followLink(const std::string &path, const struct stat &status)
    {
        judgeOwnerOfEntry(path, status);
        const std::string target = contentOfLink(path);
        if (++m_links > kMostLinks || target.empty())
            return false;
        addNames(target);
        return target.front() != '/' || enter("/");
    }

    bool enter(const std::string &folder)
    {
        const std::string path = folder == "/" ? folder : folder.substr(0, folder.size() - 1);
        struct stat status = {};
        if (lstat(path.c_str(), &status) != 0)
            return false;
        note(path, foreignOwner(m_asker, status));
        m_writers = writersByMode(m_asker, status, hasAccessList(path));
        if ((status.st_mode & S_ISVTX) == 0)
            note(path, m_writers);
        m_folder = folder;
        return true;
    }

    /// For the driver's own folder: even with the sticky bit others could add libraries there.
    void judgeFolderOfDriver()
    {
        note(m_folder == "/" ? m_folder : m_folder.substr(0, m_folder.size() - 1), m_writers);
    }

    /// For folders above: with the sticky bit only an entry's owner can replace it.
    void judgeOwnerOfEntry(const std::string &path, const struct stat &status)
    {
        if (!m_writers.isNobody())
            note(path, foreignOwner(m_asker, status));
    }

    void judgeFile(const std::string &path, const struct stat &status)
    {
        note(path, foreignOwner(m_asker, status));
        note(path, writersByMode(m_asker, status, hasAccessList(path)));
    }

    void note(const std::string &path, const Writers &writers)
    {
        if (!m_found && !writers.isNobody())
            m_found = Weakness{path, "can be written by " + writers.who, writers.cure + ' ' + quoted(path)};
    }

    const Asker m_asker;
    std::deque<std::string> m_names; ///< still to be followed
    std::string m_folder; ///< where the way is, with a slash at its end
    Writers m_writers; ///< who else may write in it
    int m_links = 0;
    std::optional<Weakness> m_found;
};

} // namespace

std::optional<Weakness> weaknessOf(const std::string &file)
{
    const bool isAbsolute = !file.empty() && file.front() == '/';
    return Way(Asker::self()).follow(isAbsolute ? file : workingDirectory() + '/' + file);
}

std::optional<Weakness> weaknessIn(const std::string &directory)
{
    return weaknessOf((directory.empty() ? std::string(".") : directory) + '/' + kName);
}

} // namespace driverfile
