/// @file
/// For the recorder's own tests: they load the recorder as the driver, with the simulator behind it as the real driver.
#ifndef RECORDEDDRIVER_H
#define RECORDEDDRIVER_H

#include "greyimage.h"
#include "recording.h"
#include "simulateddriver.h"

#include <cstring>
#include <filesystem>
#include <fstream>

/// The test's own access to the simulator that the recorder uses as the real driver.
struct RealDriverFace
{
    explicit RealDriverFace(const std::string &path)
        : library(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL))
    {
    }
    ~RealDriverFace() { dlclose(library); }
    RealDriverFace(const RealDriverFace &) = delete;
    RealDriverFace &operator=(const RealDriverFace &) = delete;

    void *const library;
#define KV_FACE(type, name) const type name = reinterpret_cast<type>(dlsym(library, #name))
#define KV_CONTROL(name)                                                                                               \
    const decltype(&KVSIM_##name) name = reinterpret_cast<decltype(&KVSIM_##name)>(dlsym(library, "KVSIM_" #name))
    KV_CONTROL(SendPackets);
    KV_CONTROL(SendFingerprint);
    KV_CONTROL(SetResult);
    KV_CONTROL(SetText);
    KV_CONTROL(SetScreenDelay);
    KV_CONTROL(Calls);
    KV_CONTROL(ForgetCalls);
    KV_CONTROL(IsOpen);
    KV_CONTROL(Reset);
#undef KV_CONTROL
#undef KV_FACE
    const KVSPDAPI_Initial Initial = reinterpret_cast<KVSPDAPI_Initial>(dlsym(library, "KVSPDAPI_Initial"));
    const KVSPDAPI_UnInitial UnInitial = reinterpret_cast<KVSPDAPI_UnInitial>(dlsym(library, "KVSPDAPI_UnInitial"));
};

/// Makes the recorder's directory the working directory for as long as this object exists.
class InRecorderDirectory
{
protected:
    InRecorderDirectory()
        : m_simulator(std::filesystem::current_path())
    {
        std::filesystem::current_path(m_simulator / "recorder");
    }
    ~InRecorderDirectory() { std::filesystem::current_path(m_simulator); }

    const std::filesystem::path m_simulator;
};

/// Each test loads the recorder anew and records to pen.kvrec in a directory of its own.
class RecorderAlone : public InRecorderDirectory, public SimulatorAlone
{
protected:
    RecorderAlone()
        : real((m_simulator / "libkvsignpaddrv.so").string())
    {
        char name[] = "/tmp/kvrec-test-XXXXXX";
        m_directory = mkdtemp(name);
        setenv("KVREC_FILE", path("pen.kvrec").c_str(), 1);
        setenv("KVREC_TRUST", "1", 1); // a build directory may be writable for others
        useRealDriver("libkvsignpaddrv.so");
        real.SetScreenDelay(0);
    }
    ~RecorderAlone() override
    {
        std::filesystem::remove_all(m_directory);
        for (const char *variable : {"KVREC_FILE", "KVREC_DRIVER", "KVREC_SCRAMBLE", "KVREC_TRUST"})
            unsetenv(variable);
    }

    void useRealDriver(const std::string &file) { setenv("KVREC_DRIVER", (m_simulator / file).c_str(), 1); }
    std::string path(const std::string &name) const { return m_directory + "/" + name; }

    kvsim::Recording recorded(const std::string &name = "pen.kvrec") const
    {
        std::ifstream in(path(name));
        return kvsim::readRecording(in, path(name));
    }
    std::vector<unsigned char> image(const std::string &name) const
    {
        std::ifstream in(path(name), std::ios::binary);
        return kvsim::readPgm(in, name).pixels;
    }
    std::string wholeFile(const std::string &name) const
    {
        std::ifstream in(path(name));
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    unsigned modeOf(const std::string &name) const
    {
        return static_cast<unsigned>(std::filesystem::status(path(name)).permissions());
    }
    std::string realCalls() const
    {
        std::string calls(static_cast<std::size_t>(real.Calls(nullptr, 0)) + 1, '\0');
        real.Calls(calls.data(), static_cast<int>(calls.size()));
        calls.pop_back();
        return calls;
    }

    const RealDriverFace real;

private:
    std::string m_directory;
};

#endif
