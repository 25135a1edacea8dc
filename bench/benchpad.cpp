#include "benchpad.h"

#include "recording.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <stdexcept>

namespace {

// The recordings are made for this model; the others get them mapped.
const BenchFamily &recordedFor()
{
    return benchFamily("S310X");
}

Packet mapped(const KVSIM_PACKET &packet, const BenchFamily &family)
{
    const BenchFamily &from = recordedFor();
    const auto map = [](int value, int offset, int span, int toOffset, int toSpan) {
        return toOffset + static_cast<int>(std::lround((value - offset) * (1.0 * toSpan / span)));
    };
    return {map(packet.x, from.offsetX, from.spanX, family.offsetX, family.spanX),
        map(packet.y, from.offsetY, from.spanY, family.offsetY, family.spanY),
        map(packet.pressure, 0, from.maxPressure, 0, family.maxPressure), packet.status};
}

std::vector<Packet> signature(const BenchFamily &family)
{
    const std::string path = std::string(KV_RECORDINGS) + "/long-signature.kvrec";
    std::ifstream file(path);
    const kvsim::Recording recording = kvsim::readRecording(file, path);
    if (recording.model != recordedFor().name)
        throw std::runtime_error(path + " is recorded for another model");
    std::vector<Packet> packets;
    for (const kvsim::Event &event : recording.events) {
        if (event.kind == kvsim::Event::Kind::Pen && event.packet.status <= KVSPDARI_PS_PEN_UP)
            packets.push_back(mapped(event.packet, family));
    }
    return packets;
}

std::vector<plain::Segment> segmentsOf(const std::vector<Packet> &packets, const BenchFamily &family, const QSize &size)
{
    std::vector<plain::Segment> segments;
    QPointF last;
    for (const Packet &packet : packets) {
        const QPointF here(
            std::clamp(packet.x - family.offsetX, 0, family.spanX - 1) * (1.0 * size.width() / family.spanX),
            std::clamp(packet.y - family.offsetY, 0, family.spanY - 1) * (1.0 * size.height() / family.spanY));
        if (packet.status == KVSPDARI_PS_PEN_MOVE)
            segments.push_back({last, here, packet.pressure * family.pressureRatio});
        if (packet.status != KVSPDARI_PS_PEN_UP)
            last = here;
    }
    return segments;
}

template <class Function>
Function fromDriver(const char *name)
{
    void *driver = dlopen("./libkvsignpaddrv.so", RTLD_NOW);
    if (driver == nullptr)
        throw std::runtime_error(dlerror());
    auto function = reinterpret_cast<Function>(dlsym(driver, name));
    dlclose(driver);
    return function;
}

} // namespace

const std::vector<BenchFamily> &benchFamilies()
{
    static const std::vector<BenchFamily> families{
        {"S210", KVS210_DEVICE, 160, 220, 2360, 1430, 2048, 3 / 306.0, KVS210_InitialDevice, KVS210_UnInitialDevice,
            KVS210_Clear},
        {"S300", KVS300_DEVICE, 200, 200, 2300, 1300, 2048, 3 / 306.0, KVS300_InitialDevice, KVS300_UnInitialDevice,
            KVS300_Clear},
        {"S310X", KVS310X_DEVICE, 2050, 1750, 21170, 11490, 2048, 3 / 306.0, KVS310X_InitialDevice,
            KVS310X_UnInitialDevice, KVS310X_Clear},
        {"R800", KVR800_DEVICE, 550, 180, 29870, 20120, 8192, 9 / 8192.0, KVR800_InitialDevice, KVR800_UnInitialDevice,
            KVR800_Clear},
        {"M450", KVM450_DEVICE, 550, 180, 29870, 20120, 8192, 9 / 8192.0, KVM450_InitialDevice, KVM450_UnInitialDevice,
            KVM450_Clear},
    };
    return families;
}

const BenchFamily &benchFamily(const char *name)
{
    for (const BenchFamily &family : benchFamilies()) {
        if (std::string(family.name) == name)
            return family;
    }
    throw std::runtime_error(std::string("no such model: ") + name);
}

BenchPad::BenchPad(const BenchFamily &family, const QSize &size, bool inWidget)
    : m_family(family)
    , m_packets(signature(family))
    , m_segments(segmentsOf(m_packets, family, size))
{
    if (inWidget) {
        m_window = std::make_unique<QWidget>();
        m_window->resize(size);
        m_window->show();
    }
    if (!family.open(family.type, m_window.get(), 0, 0, size.width(), size.height()))
        throw std::runtime_error(std::string("the pad does not open: ") + family.name);
    m_penPacket = fromDriver<NOTIFY_HWSIGNDATA (*)()>("KVBENCH_PenPacket")();
    m_fingerprint = fromDriver<NOTIFY_FPDATA (*)()>("KVBENCH_Fingerprint")();
    if (inWidget)
        QApplication::processEvents();
}

BenchPad::~BenchPad()
{
    m_family.close(m_family.type);
    if (m_window != nullptr) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
}

void BenchPad::sign() const
{
    for (const Packet &packet : m_packets)
        send(packet);
}

void BenchPad::takeFingerprint(int score) const
{
    std::vector<unsigned char> image = ridges();
    m_fingerprint(image.data(), static_cast<int>(image.size()), score);
}

QWidget *BenchPad::widget() const
{
    return m_window->findChild<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}

const std::vector<QSize> &benchSizes()
{
    static const std::vector<QSize> sizes{{400, 200}, {800, 600}, {1920, 1080}};
    return sizes;
}

std::string sizeName(const QSize &size)
{
    return std::to_string(size.width()) + "x" + std::to_string(size.height());
}

std::vector<unsigned char> ridges()
{
    std::vector<unsigned char> image;
    for (int y = 0; y < 288; ++y) {
        for (int x = 0; x < 208; ++x)
            image.push_back(static_cast<unsigned char>(128 + 100 * std::sin(std::hypot(x - 100, y - 150) * 0.7)));
    }
    return image;
}
