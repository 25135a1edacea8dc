/// @file
/// Makes the driver that misbehaves on request (unruly_driver.cpp) the one in the working directory.
#ifndef UNRULYDRIVER_H
#define UNRULYDRIVER_H

#include "drivers.h"
#include "logmessages.h"
#include "openpad.h"

#include <algorithm>
#include <dlfcn.h>
#include <memory>
#include <thread>
#include <vector>

/// The working directory, with `variable` naming the operation.
class UnrulyDriver
{
public:
    UnrulyDriver(const char *variable, const char *operation)
        : m_variable(variable)
    {
        setenv(variable, operation, 1);
    }
    ~UnrulyDriver() { obey(); }
    UnrulyDriver(const UnrulyDriver &) = delete;
    UnrulyDriver &operator=(const UnrulyDriver &) = delete;

    void obey() const { unsetenv(m_variable); }

    /// For a pad that another thread opens.
    void waitUntilLoaded() const
    {
        void *driver = nullptr;
        while ((driver = dlopen("./libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD)) == nullptr)
            std::this_thread::yield();
        dlclose(driver);
    }

    /// Of the driver that a pad has open.
    template <class Result>
    Result control(const char *name) const
    {
        void *driver = dlopen("./libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD);
        EXPECT_NE(driver, nullptr);
        const auto function = reinterpret_cast<Result (*)()>(dlsym(driver, name));
        dlclose(driver);
        return function();
    }

private:
    const InDirectory m_directory{"unruly"};
    const char *m_variable;
};

/// A pad that is opened on that driver. The library is closed in the end, whatever happened.
class UnrulyPad : public testing::TestWithParam<PadCase>
{
protected:
    bool open() { return family.InitialDevice(type, GetParam().headless ? nullptr : m_window.get(), 5, 5, 90, 60); }
    int close() { return family.UnInitialDevice(type); }
    void destroyWindow() { m_window.reset(); }
    Lines linesOf(const LogTail &log, const char *function) const
    {
        return messagesOf(log, std::string(family.prefix) + function);
    }
    void expectClosedAndUsable()
    {
        EXPECT_EQ(family.GetTotalInkPointsNumber(type), ARI_INK_EMPTY);
        EXPECT_EQ(family.SetPenWidth(type, 3), ARI_FAIL);
        EXPECT_EQ(close(), ARI_SUCCESS);
        m_window = std::make_unique<QWidget>();
        EXPECT_TRUE(open());
        EXPECT_EQ(family.SetPenWidth(type, 3), ARI_SUCCESS);
        EXPECT_EQ(close(), ARI_SUCCESS);
        settle();
    }
    ~UnrulyPad() override { close(); }

    const Family &family = *GetParam().family;
    const int type = family.type;

private:
    std::unique_ptr<QWidget> m_window = std::make_unique<QWidget>();
};

/// The pads of one host.
inline std::vector<PadCase> padsOf(bool headless)
{
    std::vector<PadCase> pads = allPads();
    pads.erase(std::remove_if(pads.begin(), pads.end(), [=](const PadCase &pad) { return pad.headless != headless; }),
        pads.end());
    return pads;
}

#endif
