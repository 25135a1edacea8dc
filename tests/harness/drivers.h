/// @file
/// For tests of loading: drivers from other directories. Each is unloaded before the next is loaded.
#ifndef DRIVERS_H
#define DRIVERS_H

#include "simulatorcontrol.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <stdexcept>
#include <string>
#include <unistd.h>

inline std::string workingDirectory()
{
    char path[4096] = "";
    return getcwd(path, sizeof path) == nullptr ? "" : path;
}

/// Changes the working directory for a scope.
class InDirectory
{
public:
    explicit InDirectory(const std::string &path)
        : m_before(workingDirectory())
    {
        EXPECT_EQ(chdir(path.c_str()), 0) << path;
    }
    ~InDirectory() { EXPECT_EQ(chdir(m_before.c_str()), 0); }
    InDirectory(const InDirectory &) = delete;
    InDirectory &operator=(const InDirectory &) = delete;

private:
    std::string m_before;
};

/// Holds a handle of the driver in the working directory, so that its journal outlives the library's handle.
class HeldDriver
{
public:
    HeldDriver()
    {
        setenv("KVSIM_RECORDING", "none", 1);
        EXPECT_EQ(dlopen("./libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD), nullptr) << "an older driver is still loaded";
        m_library = dlopen((workingDirectory() + "/libkvsignpaddrv.so").c_str(), RTLD_NOW | RTLD_LOCAL);
        if (m_library == nullptr)
            throw std::runtime_error(dlerror());
        control<decltype(&KVSIM_Reset)>("KVSIM_Reset")();
    }
    ~HeldDriver() { dlclose(m_library); }
    HeldDriver(const HeldDriver &) = delete;
    HeldDriver &operator=(const HeldDriver &) = delete;

    template <class Function>
    Function control(const char *name) const
    {
        return reinterpret_cast<Function>(dlsym(m_library, name));
    }

    void setResult(const char *operation, int result) const
    {
        control<decltype(&KVSIM_SetResult)>("KVSIM_SetResult")(operation, result);
    }

    /// The calls since this was last called.
    std::string takeCalls() const
    {
        const auto ask = control<decltype(&KVSIM_Calls)>("KVSIM_Calls");
        std::string text(static_cast<size_t>(ask(nullptr, 0)) + 1, '\0');
        text.resize(static_cast<size_t>(ask(text.data(), static_cast<int>(text.size()))));
        control<decltype(&KVSIM_ForgetCalls)>("KVSIM_ForgetCalls")();
        return text;
    }

    bool isOpen() const { return control<decltype(&KVSIM_IsOpen)>("KVSIM_IsOpen")() == 1; }

private:
    void *m_library = nullptr;
};

#endif
