/// @file
/// For tests of loading: drivers of other directories, each really unloaded before the next is looked for.
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

/// The working directory while it lives.
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

/// The driver of the working directory, held from here on. Its journal thus outlives the library's own handle.
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

    /// The calls since the last time that they were asked for.
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
