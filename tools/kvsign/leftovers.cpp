#include "leftovers.h"

#include "copiedbytes.h"
#include "failure.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr int kSlots = 4096;

std::array<std::atomic<const Leftover *>, kSlots> g_leftovers;

/// A directory entry as getdents64 returns it.
struct DirectoryEntry
{
    std::uint64_t inode;
    std::int64_t next;
    unsigned short size;
    unsigned char type;
    char name[1];
};

/// Goes once through a folder and removes its files. Returns whether there were any.
bool removeEntries(int folder)
{
    alignas(DirectoryEntry) char entries[4096];
    bool removed = false;
    for (long size = 0; (size = syscall(SYS_getdents64, folder, entries, sizeof entries)) > 0;) {
        for (long place = 0; place < size;) {
            const auto *entry = reinterpret_cast<const DirectoryEntry *>(entries + place);
            const bool isItself = std::strcmp(entry->name, ".") == 0 || std::strcmp(entry->name, "..") == 0;
            removed = (!isItself && unlinkat(folder, entry->name, 0) == 0) || removed;
            place += entry->size;
        }
    }
    return removed;
}

/// Runs in signal handlers, so it cannot use readdir(), which allocates.
void removeFolder(const char *path)
{
    const int folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    while (removeEntries(folder))
        lseek(folder, 0, SEEK_SET); // some file systems skip entries while others are being removed
    close(folder);
    rmdir(path);
}

} // namespace

Leftover::Leftover(Kind kind, const QByteArray &path, const QByteArray &to)
    : m_kind(kind)
    , m_path(path)
    , m_to(to)
    , m_name(m_path.constData())
    , m_target(m_to.constData())
{
    enter();
}

Leftover::Leftover(int earlier, int file)
    : m_kind(Kind::Content)
    , m_name(nullptr)
    , m_target(nullptr)
    , m_earlier(earlier)
    , m_file(file)
{
    enter();
}

void Leftover::enter()
{
    for (int slot = 0; slot < kSlots && m_slot < 0; ++slot) {
        const Leftover *free = nullptr;
        if (g_leftovers[static_cast<size_t>(slot)].compare_exchange_strong(free, this))
            m_slot = slot;
    }
    if (m_slot < 0)
        throw failed("there are too many files at once");
}

Leftover::~Leftover()
{
    clean();
}

void Leftover::clean()
{
    if (m_slot < 0)
        return;
    cleanName();
    release();
}

void Leftover::release()
{
    if (m_slot >= 0)
        g_leftovers[static_cast<size_t>(m_slot)].store(nullptr);
    m_slot = -1;
}

void Leftover::cleanAll()
{
    for (const std::atomic<const Leftover *> &slot : g_leftovers) {
        if (const Leftover *leftover = slot.load())
            leftover->cleanName();
    }
}

void Leftover::cleanName() const
{
    switch (m_kind) {
    case Kind::File:
        unlink(m_name);
        return;
    case Kind::Folder:
        removeFolder(m_name);
        return;
    case Kind::Earlier:
        rename(m_name, m_target);
        unlink(m_name); // rename() does nothing when both names are links to one file
        return;
    case Kind::Content:
        copiedbytes::copy(m_earlier, m_file);
        return;
    }
}
