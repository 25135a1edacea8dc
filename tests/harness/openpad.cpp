#include "openpad.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

void *driverHandle()
{
    static void *handle = [] {
        setenv("KVSIM_RECORDING", "none", 1);
        void *opened = dlopen("./libkvsignpaddrv.so", RTLD_NOW);
        if (opened == nullptr)
            throw std::runtime_error(dlerror());
        return opened;
    }();
    return handle;
}

template <class Function>
Function face(const char *name)
{
    void *symbol = dlsym(driverHandle(), name);
    if (symbol == nullptr)
        throw std::runtime_error(std::string("the simulated driver has no ") + name);
    return reinterpret_cast<Function>(symbol);
}

#define KV_FACE(name) face<decltype(&name)>(#name)

} // namespace

#ifndef KV_SANITIZED
/// Qt calls it in each new thread to name it. The S310X's display threads, the only plain QThreads, poll without a
/// pause while a pad is open. In tests they give way to what else the machine has to do.
extern "C" int prctl(int option, ...)
{
    va_list list;
    va_start(list, option);
    unsigned long arguments[4];
    for (unsigned long &argument : arguments)
        argument = va_arg(list, unsigned long);
    va_end(list);
    if (option == PR_SET_NAME && std::strcmp(reinterpret_cast<const char *>(arguments[0]), "QThread") == 0)
        setpriority(PRIO_PROCESS, 0, 10);
    return static_cast<int>(syscall(SYS_prctl, option, arguments[0], arguments[1], arguments[2], arguments[3]));
}
#endif

SimulatedDriver::SimulatedDriver()
{
    KV_FACE(KVSIM_Reset)();
}

void SimulatedDriver::send(const std::vector<KVSIM_PACKET> &packets)
{
    const int count = static_cast<int>(packets.size());
    EXPECT_EQ(KV_FACE(KVSIM_SendPackets)(packets.data(), count), count);
}

void SimulatedDriver::sendFingerprint(const std::vector<unsigned char> &image, int score)
{
    const unsigned char *data = image.empty() ? nullptr : image.data();
    EXPECT_EQ(KV_FACE(KVSIM_SendFingerprint)(data, static_cast<int>(image.size()), score), 1);
}

void SimulatedDriver::setResult(const char *operation, int result)
{
    KV_FACE(KVSIM_SetResult)(operation, result);
}

void SimulatedDriver::setText(const char *operation, const char *text)
{
    KV_FACE(KVSIM_SetText)(operation, text);
}

std::string SimulatedDriver::calls()
{
    const auto ask = KV_FACE(KVSIM_Calls);
    std::string text(static_cast<size_t>(ask(nullptr, 0)) + 1, '\0');
    text.resize(static_cast<size_t>(ask(text.data(), static_cast<int>(text.size()))));
    return text;
}

void SimulatedDriver::forgetCalls()
{
    KV_FACE(KVSIM_ForgetCalls)();
}

bool SimulatedDriver::isOpen()
{
    return KV_FACE(KVSIM_IsOpen)() == 1;
}

void *SimulatedDriver::control(const char *name)
{
    return face<void *>(name);
}

void PrintTo(const PadCase &pad, std::ostream *out)
{
    *out << pad.className();
}

std::string padCaseName(const testing::TestParamInfo<PadCase> &info)
{
    return info.param.className();
}

std::vector<PadCase> allPads()
{
    std::vector<PadCase> pads;
    for (const Family &family : kFamilies) {
        pads.push_back({&family, false});
        pads.push_back({&family, true});
    }
    return pads;
}

OpenPad::OpenPad(const PadCase &pad, int width, int height)
    : m_pad(pad)
{
    if (!pad.headless) {
        m_window = std::make_unique<QWidget>();
        m_window->resize(std::clamp(width, 0, 4000) + 20, std::clamp(height, 0, 4000) + 20);
        m_window->show();
    }
    m_open = pad.family->InitialDevice(type(), m_window.get(), 10, 10, width, height);
    settle();
}

OpenPad::~OpenPad()
{
    m_pad.family->UnInitialDevice(type());
    settle();
}

QWidget *OpenPad::widget() const
{
    return m_window == nullptr ? nullptr : m_window->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}

QImage OpenPad::canvas() const
{
    char *text = m_pad.family->Base64EncodeEx(type(), EBITI_BITMAP, false);
    if (text == nullptr)
        return {};
    const QImage image = QImage::fromData(QByteArray::fromBase64(text), "BMP").convertToFormat(QImage::Format_ARGB32);
    m_pad.family->Base64EncodeExFree(type(), text);
    return image;
}

RawArea rawArea(int deviceType)
{
    switch (deviceType) {
    case KVS210_DEVICE:
        return {160, 220, 2360, 1430, 2048};
    case KVS300_DEVICE:
        return {200, 200, 2300, 1300, 2048};
    case KVS310X_DEVICE:
        return {2050, 1750, 21170, 11490, 2048};
    default:
        return {550, 180, 29870, 20120, 8192};
    }
}

std::vector<KVSIM_PACKET> stroke(int deviceType, const std::vector<Share> &shares)
{
    const RawArea area = rawArea(deviceType);
    std::vector<KVSIM_PACKET> packets;
    for (const Share &share : shares) {
        packets.push_back({area.offsetX + static_cast<int>(std::lround(share.x * area.spanX)),
            area.offsetY + static_cast<int>(std::lround(share.y * area.spanY)),
            static_cast<int>(std::lround(share.pressure * area.maxPressure)),
            packets.empty() ? KVSPDARI_PS_PEN_DOWN : KVSPDARI_PS_PEN_MOVE});
    }
    if (!packets.empty()) {
        packets.push_back(packets.back());
        packets.back().status = KVSPDARI_PS_PEN_UP;
    }
    return packets;
}

void settle()
{
    if (QCoreApplication::instance() == nullptr)
        return;
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}
