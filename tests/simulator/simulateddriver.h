/// @file
/// For the simulator's own tests: loads the driver from the working directory and keeps what its callbacks receive.
#ifndef SIMULATEDDRIVER_H
#define SIMULATEDDRIVER_H

#include "driverinterface.h"
#include "simulatorcontrol.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <dlfcn.h>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

/// What the callbacks received. There is one for all tests, because callbacks are plain functions.
struct Received
{
    std::mutex mutex;
    std::vector<KVSIM_PACKET> packets;
    std::vector<std::chrono::steady_clock::time_point> times;
    std::vector<int> scores;
    const unsigned char *fingerprint = nullptr;
    int fingerprintLength = 0;
    std::set<std::thread::id> threads;
    std::function<void(const KVSIM_PACKET &)> whenPacketComes;

    std::size_t packetCount()
    {
        const std::lock_guard lock(mutex);
        return packets.size();
    }
};

/// Never destroyed, because a forked child may exit with a copy that the parent's thread was just changing.
inline Received &received = *new Received;

inline void receivePacket(int x, int y, int pressure, int status)
{
    {
        const std::lock_guard lock(received.mutex);
        received.packets.push_back({x, y, pressure, status});
        received.times.push_back(std::chrono::steady_clock::now());
        received.threads.insert(std::this_thread::get_id());
    }
    if (received.whenPacketComes)
        received.whenPacketComes({x, y, pressure, status});
}

inline void receiveFingerprint(unsigned char *data, int length, int score)
{
    const std::lock_guard lock(received.mutex);
    received.fingerprint = data;
    received.fingerprintLength = length;
    received.scores.push_back(score);
    received.threads.insert(std::this_thread::get_id());
}

/// The loaded library, with the driver's operations and the functions that control the simulator.
class LoadedDriver
{
public:
    LoadedDriver()
        : m_library(dlopen((workingDirectory() + "/libkvsignpaddrv.so").c_str(), RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_library)
            throw std::runtime_error(dlerror());
    }
    ~LoadedDriver() { dlclose(m_library); }
    LoadedDriver(const LoadedDriver &) = delete;
    LoadedDriver &operator=(const LoadedDriver &) = delete;

    static std::string workingDirectory()
    {
        char path[4096] = "";
        return getcwd(path, sizeof path) ? path : "";
    }

    template <class Function>
    Function find(const char *name) const
    {
        return reinterpret_cast<Function>(dlsym(m_library, name));
    }

private:
    void *m_library;

public:
#define KV_OPERATION(name) const KVSPDAPI_##name name = find<KVSPDAPI_##name>("KVSPDAPI_" #name)
#define KV_CONTROL(name) decltype(&KVSIM_##name) const name = find<decltype(&KVSIM_##name)>("KVSIM_" #name)
    KV_OPERATION(Initial);
    KV_OPERATION(UnInitial);
    KV_OPERATION(OpenDeviceLCD);
    KV_OPERATION(ClearDeviceContent);
    KV_OPERATION(GetDevicePenID);
    KV_OPERATION(GetDevicePadID);
    KV_OPERATION(GetDeviceSecureID);
    KV_OPERATION(GetDevicePartsVersion);
    KV_OPERATION(ShowVersionInfoOnDevice);
    KV_OPERATION(SetDevicePenStyle);
    KV_OPERATION(ShowFPImageOnDevice);
    KV_CONTROL(SendPackets);
    KV_CONTROL(SendFingerprint);
    KV_CONTROL(SetReadingThreadPackets);
    KV_CONTROL(SetResult);
    KV_CONTROL(SetText);
    KV_CONTROL(SetScreenDelay);
    KV_CONTROL(Calls);
    KV_CONTROL(ForgetCalls);
    KV_CONTROL(ShownPictures);
    KV_CONTROL(LastPicture);
    KV_CONTROL(IsOpen);
    KV_CONTROL(IsScreenOn);
    KV_CONTROL(EndDelay);
    KV_CONTROL(WaitUntilPlayed);
    KV_CONTROL(Reset);
#undef KV_OPERATION
#undef KV_CONTROL
};

/// Starts every test with a driver that plays nothing and with nothing received.
class SimulatorAlone : public testing::Test
{
protected:
    SimulatorAlone()
    {
        for (const char *name : kSettings)
            unsetenv(name);
        setenv("KVSIM_RECORDING", "none", 1);
        setenv("KVSIM_DELAY_MS", "0", 1);
        received.whenPacketComes = nullptr;
        received.packets.clear();
        received.times.clear();
        received.scores.clear();
        received.threads.clear();
    }
    ~SimulatorAlone() override
    {
        for (const char *name : kSettings)
            unsetenv(name);
    }

    int open(int deviceType = KVS300_DEVICE) { return driver.Initial(deviceType, receivePacket, receiveFingerprint); }

    std::string calls() const
    {
        std::string text(static_cast<std::size_t>(driver.Calls(nullptr, 0)) + 1, '\0');
        driver.Calls(text.data(), static_cast<int>(text.size()));
        text.pop_back();
        return text;
    }

    LoadedDriver driver;

private:
    static constexpr const char *kSettings[] = {"KVSIM_RECORDING", "KVSIM_SPEED", "KVSIM_DELAY_MS", "KVSIM_REPEAT",
        "KVSIM_SCREEN_MS", "KVSIM_VERSION", "KVSIM_PICTURES"};
};

#endif
