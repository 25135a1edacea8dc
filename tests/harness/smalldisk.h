/// @file
/// A nearly full disk.
#ifndef SMALLDISK_H
#define SMALLDISK_H

#include <csignal>
#include <sys/resource.h>

/// For a scope, files cannot grow beyond this many bytes, as on a full disk.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes)
    {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

#endif
