#include "crashingchild.h"

#include "failingmemory.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <exception>
#include <execinfo.h>
#include <filesystem>
#include <fstream>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kCrashed = 77;
constexpr int kAsleepForGood = 25; ///< looks, 20 ms apart
ChildReport *report = nullptr;

const char *nameOf(const char *path)
{
    const char *slash = path == nullptr ? nullptr : std::strrchr(path, '/');
    return slash == nullptr ? path : slash + 1;
}

bool isRunTime(const char *module)
{
    for (const char *name : {"libc.so", "libstdc++.so", "libgcc_s.so", "libpthread", "linux-vdso", "ld-linux"}) {
        if (std::strncmp(module, name, std::strlen(name)) == 0)
            return true;
    }
    return false;
}

void noteFrame(void *address)
{
    Dl_info info{};
    if (dladdr(address, &info) == 0 || info.dli_fname == nullptr)
        return;
    const char *module = nameOf(info.dli_fname);
    static const char *const self = [] {
        Dl_info own{};
        dladdr(reinterpret_cast<void *>(&noteFrame), &own);
        return nameOf(own.dli_fname);
    }();
    if (report->module[0] == '\0' && !isRunTime(module) && std::strcmp(module, self) != 0)
        std::snprintf(report->module, sizeof report->module, "%s", module);
    const size_t length = std::strlen(report->where);
    std::snprintf(report->where + length, sizeof report->where - length, "%s:%s+%lx\n", module,
        info.dli_sname == nullptr ? "" : info.dli_sname,
        static_cast<unsigned long>(static_cast<char *>(address) - static_cast<char *>(info.dli_fbase)));
}

// The crash is at hand and the process ends: what a signal handler may not call does no more harm than not to know.
void noteCrash(int)
{
    failingmemory::stop();
    void *frames[60];
    const int count = backtrace(frames, 60);
    for (int i = 2; i < count; ++i) // behind this function and the signal's frame
        noteFrame(frames[i]);
    report->crashed = true;
    _exit(kCrashed);
}

[[noreturn]] void noteTermination()
{
    failingmemory::stop();
    report->isTerminated = true;
    std::abort();
}

void watch()
{
    static char stack[64 * 1024];
    stack_t own{};
    own.ss_sp = stack;
    own.ss_size = sizeof stack;
    sigaltstack(&own, nullptr);
    struct sigaction action
    {
    };
    action.sa_handler = noteCrash;
    action.sa_flags = SA_ONSTACK | SA_RESETHAND;
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL})
        sigaction(signal, &action, nullptr);
    std::set_terminate(noteTermination);
    void *frame = nullptr;
    backtrace(&frame, 1); // loads what it needs now
}

/// Whether no thread of the process runs or wants to. A busy machine makes nobody sleep.
bool isAsleep(pid_t process)
{
    const std::filesystem::path tasks = "/proc/" + std::to_string(process) + "/task";
    std::error_code gone;
    for (const auto &task : std::filesystem::directory_iterator(tasks, gone)) {
        std::ifstream file(task.path() / "stat");
        std::string line;
        std::getline(file, line);
        const size_t name = line.rfind(") ");
        if (name == std::string::npos || line.compare(name + 2, 1, "S") != 0)
            return false;
    }
    return true;
}

/// Waits for the end; a child that sleeps on and on waits for itself, and is told to say where.
int ended(pid_t child)
{
    int status = 0, asleep = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(asleep == 0 ? 1 : 20));
        asleep = isAsleep(child) ? asleep + 1 : 0;
        if (asleep == kAsleepForGood) {
            report->isHung = true;
            kill(child, SIGABRT);
            asleep = 1;
        }
    }
    return status;
}

} // namespace

ChildReport inChild(const std::function<void(ChildReport &)> &work)
{
    static auto *const shared = static_cast<ChildReport *>(
        mmap(nullptr, sizeof(ChildReport), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    *shared = {};
    report = shared;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        watch();
        try {
            work(*shared);
        } catch (const std::exception &exception) {
            failingmemory::stop();
            std::snprintf(shared->failure, sizeof shared->failure, "an exception came out: %s", exception.what());
        }
        _exit(0);
    }
    const int status = ended(child);
    ChildReport told = *shared;
    if (!told.crashed && (!WIFEXITED(status) || WEXITSTATUS(status) != 0))
        std::snprintf(told.failure, sizeof told.failure, "the child ended with status %d", status);
    return told;
}
