#include "benchpad.h"

#include "modelrules.h"
#include "recording.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <stdexcept>

namespace {

constexpr int kWidthLevel = 3; // the pen width that a pad starts with

// The recordings were made for this model; for other models their positions are converted.
constexpr const ModelRow &kRecordedFor = kS310X;

Packet mapped(const KVSIM_PACKET &packet, const ModelRow &model)
{
    const ModelRow &from = kRecordedFor;
    const auto map = [](int value, int offset, int span, int toOffset, int toSpan) {
        return toOffset + static_cast<int>(std::lround((value - offset) * (1.0 * toSpan / span)));
    };
    return {map(packet.x, from.rawOffsetX, from.rawSpanX, model.rawOffsetX, model.rawSpanX),
        map(packet.y, from.rawOffsetY, from.rawSpanY, model.rawOffsetY, model.rawSpanY),
        map(packet.pressure, 0, from.maxPressure, 0, model.maxPressure), packet.status};
}

std::vector<Packet> signature(const ModelRow &model)
{
    const std::string path = std::string(KV_RECORDINGS) + "/long-signature.kvrec";
    std::ifstream file(path);
    const kvsim::Recording recording = kvsim::readRecording(file, path);
    if (recording.model != kRecordedFor.name)
        throw std::runtime_error(path + " is recorded for another model");
    std::vector<Packet> packets;
    for (const kvsim::Event &event : recording.events) {
        if (event.kind == kvsim::Event::Kind::Pen && event.packet.status <= KVSPDARI_PS_PEN_UP)
            packets.push_back(mapped(event.packet, model));
    }
    return packets;
}

std::vector<plain::Segment> segmentsOf(const std::vector<Packet> &packets, const ModelRow &model, const QSize &size)
{
    std::vector<plain::Segment> segments;
    QPointF last;
    for (const Packet &packet : packets) {
        const QPointF here(
            std::clamp(packet.x - model.rawOffsetX, 0, model.rawSpanX - 1) * (1.0 * size.width() / model.rawSpanX),
            std::clamp(packet.y - model.rawOffsetY, 0, model.rawSpanY - 1) * (1.0 * size.height() / model.rawSpanY));
        if (packet.status == KVSPDARI_PS_PEN_MOVE)
            segments.push_back({last, here, packet.pressure * pressureRatio(model, kWidthLevel, model.maxPressure)});
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

BenchPad::BenchPad(const PadFamily &family, const QSize &size, bool inWidget)
    : m_family(family)
    , m_packets(signature(family.row))
    , m_segments(segmentsOf(m_packets, family.row, size))
{
    if (inWidget) {
        m_window = std::make_unique<QWidget>();
        m_window->resize(size);
        m_window->show();
    }
    if (!family.InitialDevice(family.type, m_window.get(), 0, 0, size.width(), size.height()))
        throw std::runtime_error(std::string("the pad does not open: ") + family.model);
    m_penPacket = fromDriver<NOTIFY_HWSIGNDATA (*)()>("KVBENCH_PenPacket")();
    m_fingerprint = fromDriver<NOTIFY_FPDATA (*)()>("KVBENCH_Fingerprint")();
    if (inWidget)
        QApplication::processEvents();
}

BenchPad::~BenchPad()
{
    m_family.UnInitialDevice(m_family.type);
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
    for (int y = 0; y < kFingerprintHeight; ++y) {
        for (int x = 0; x < kFingerprintWidth; ++x)
            image.push_back(static_cast<unsigned char>(128 + 100 * std::sin(std::hypot(x - 100, y - 150) * 0.7)));
    }
    return image;
}
