#include "crashstack.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <initializer_list>

namespace {

constexpr int kMostFrames = 120;

const char *nameOf(const char *path)
{
    const char *slash = path == nullptr ? nullptr : std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}

/// Where a function that is to return to an address lies.
struct Place
{
    const char *module = nullptr; ///< null: in none
    const char *function = "";
    unsigned long offset = 0;

    explicit Place(void *address)
    {
        Dl_info info{};
        if (dladdr(static_cast<char *>(address) - 1, &info) == 0 || info.dli_fname == nullptr)
            return;
        module = nameOf(info.dli_fname);
        function = info.dli_sname == nullptr ? "" : info.dli_sname;
        offset = static_cast<unsigned long>(static_cast<char *>(address) - static_cast<char *>(info.dli_fbase));
    }
};

bool isRunTime(const Place &place)
{
    for (const char *name : {"libc.so", "libstdc++.so", "libgcc_s.so", "libpthread", "linux-vdso", "ld-linux"}) {
        if (std::strncmp(place.module, name, std::strlen(name)) == 0)
            return true;
    }
    return false;
}

bool isOfTheTest(const Place &place)
{
    static const char *const self = Place(reinterpret_cast<char *>(&isOfTheTest) + 1).module;
    return std::strcmp(place.module, self) == 0;
}

/// Those that a test puts before malloc, for all libraries.
bool isAllocation(const Place &place)
{
    return isOfTheTest(place) && place.function[0] != '_' && std::strstr(place.function, "alloc") != nullptr;
}

bool isUnderTest(const Place &place)
{
    return isOfTheTest(place) || std::strncmp(place.module, "libkvsignpadsdk", 15) == 0;
}

/// The functions from the innermost on.
class Notes
{
public:
    explicit Notes(CrashStack &stack)
        : m_stack(stack)
    {
    }

    void add(void *address)
    {
        const Place place(address);
        if (place.module == nullptr)
            return;
        const size_t length = std::strlen(m_stack.where);
        std::snprintf(m_stack.where + length, sizeof m_stack.where - length, "%s:%s+%lx\n", place.module,
            place.function, place.offset);
        if (isRunTime(place) || isAllocation(place))
            return;
        if (m_stack.module[0] == '\0')
            std::snprintf(m_stack.module, sizeof m_stack.module, "%s", place.module);
        if (m_stack.entry[0] == '\0' && isUnderTest(place))
            std::snprintf(m_stack.entry, sizeof m_stack.entry, "%s", m_last);
        if (place.function[0] != '\0')
            m_last = place.function;
    }

private:
    CrashStack &m_stack;
    const char *m_last = "none"; ///< that has a name
};

/// Of a program's memory; the processor knows none beyond it.
bool isAddress(greg_t value)
{
    return value > 0 && value >> 47 == 0;
}

} // namespace

void noteStack(CrashStack &stack, int without)
{
    void *frames[kMostFrames];
    const int count = backtrace(frames, kMostFrames);
    Notes notes(stack);
    for (int i = without + 1; i < count; ++i)
        notes.add(frames[i]);
}

void noteCrashAt(CrashStack &stack, const ucontext_t &crashed, int without)
{
    const greg_t *registers = crashed.uc_mcontext.gregs;
    if (isAddress(registers[REG_RSP])) {
        noteStack(stack, without + 1);
        return;
    }
    Notes(stack).add(reinterpret_cast<void *>(registers[REG_RIP] + 1));
    std::snprintf(stack.entry, sizeof stack.entry, "a jump to nowhere");
}

void blame(CrashStack &stack, void *address)
{
    if (const Place place(address); place.module != nullptr)
        std::snprintf(stack.module, sizeof stack.module, "%s", place.module);
}

void takeSimpleName(CrashStack &stack)
{
    int status = 0;
    char *const full = abi::__cxa_demangle(stack.entry, nullptr, nullptr, &status);
    if (full != nullptr) {
        full[std::strcspn(full, "(")] = '\0';
        std::snprintf(stack.entry, sizeof stack.entry, "%s", full);
    }
    std::free(full);
}
