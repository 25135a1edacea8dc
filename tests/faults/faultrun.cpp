#include "faultrun.h"

#include "greyimage.h"

#include <QDir>

#include <dlfcn.h>
#include <fstream>
#include <unistd.h>

namespace {

const QString &simulatorDirectory()
{
    static const QString directory = QDir::currentPath();
    return directory;
}

/// Plays the script on the driver that the library has loaded. The library may take its time to make ready.
int play()
{
    void *driver = dlopen("./libkvsignpaddrv.so", RTLD_NOW | RTLD_NOLOAD);
    if (driver == nullptr)
        return -1;
    reinterpret_cast<decltype(&KVSIM_EndDelay)>(dlsym(driver, "KVSIM_EndDelay"))();
    const auto wait = reinterpret_cast<decltype(&KVSIM_WaitUntilPlayed)>(dlsym(driver, "KVSIM_WaitUntilPlayed"));
    const int played = wait(30000);
    dlclose(driver);
    return played;
}

} // namespace

FaultRun::FaultRun(const PadCase &pad, const Setup &setup)
    : type(pad.family->type)
    , m_pad(pad)
{
    simulatorDirectory();
    m_window.resize(420, 220);
    m_window.show();
    std::ofstream finger(m_directory.filePath("finger.pgm").toStdString(), std::ios::binary);
    std::vector<unsigned char> grey(59904, 200);
    std::fill(grey.begin(), grey.begin() + 30000, static_cast<unsigned char>(50));
    kvsim::writePgm(finger, {208, 288, grey});
    finger.close();
    if (setup.events != nullptr) {
        EXPECT_TRUE(open(setup));
    }
}

FaultRun::~FaultRun()
{
    close();
    QDir::setCurrent(simulatorDirectory());
}

bool FaultRun::open(const Setup &setup)
{
    const std::string script = m_directory.filePath("script.kvrec").toStdString();
    std::ofstream(script) << "version: 2\nmodel: S300\n" << setup.events;
    setenv("KVSIM_RECORDING", script.c_str(), 1);
    setenv("KVSIM_SPEED", "max", 1);
    setenv("KVSIM_DELAY_MS", "3600000", 1);
    setenv("KVSIM_SCREEN_MS", "0", 1);
    EXPECT_TRUE(QDir::setCurrent(simulatorDirectory() + "/" + setup.directory));
    m_open = m_pad.family->InitialDevice(type, window(), 10, 10, 400, 200);
    settle(); // a widget learns its size
    if (m_open) {
        EXPECT_EQ(play(), 1);
    }
    settle();
    return m_open;
}

void FaultRun::close()
{
    if (m_open) {
        EXPECT_EQ(m_pad.family->UnInitialDevice(type), 0);
    }
    m_open = false;
    settle();
}

std::wstring FaultRun::path(const char *name) const
{
    return m_directory.filePath(name).toStdWString();
}

bool isOneOf(const PadCase &pad, Pads pads)
{
    const bool isS210 = pad.family->type == KVS210_DEVICE;
    const bool isS310X = pad.family->type == KVS310X_DEVICE;
    switch (pads) {
    case Pads::All:
        return true;
    case Pads::Screen:
        return pad.family->hasScreen;
    case Pads::S210:
        return isS210;
    case Pads::S210Widget:
        return isS210 && !pad.headless;
    case Pads::S210Headless:
        return isS210 && pad.headless;
    case Pads::S310X:
        return isS310X;
    case Pads::S310XWidget:
        return isS310X && !pad.headless;
    case Pads::S310XHeadless:
        return isS310X && pad.headless;
    }
    return false;
}
