#include "quietpad.h"

#include <dlfcn.h>

namespace {

constexpr int kWidth = 90, kHeight = 60;
constexpr int kSensorBytes = 208 * 288;

template <class Function>
Function asked(const char *name)
{
    static void *const handle = dlopen("./libkvsignpaddrv.so", RTLD_NOW);
    return reinterpret_cast<Function (*)()>(dlsym(handle, name))();
}

} // namespace

QuietPad::QuietPad(const PadCase &pad)
    : m_pad(pad)
{
    if (!pad.headless) {
        m_window = std::make_unique<QWidget>();
        m_window->resize(kWidth + 20, kHeight + 20);
        m_window->show();
    }
}

bool QuietPad::open()
{
    const bool opened = m_pad.family->InitialDevice(type(), window(), 10, 10, kWidth, kHeight);
    settle();
    return opened;
}

void QuietPad::close()
{
    m_pad.family->UnInitialDevice(type());
    settle();
}

void QuietPad::packet(int x, int y, int pressure, int status)
{
    asked<NOTIFY_HWSIGNDATA>("KVBENCH_PenPacket")(x, y, pressure, status);
}

void QuietPad::fingerprint(int score)
{
    static std::vector<unsigned char> image = [] {
        std::vector<unsigned char> ridges(kSensorBytes);
        for (size_t i = 0; i < ridges.size(); ++i)
            ridges[i] = i / 5 % 2 == 0 ? 0 : 255;
        return ridges;
    }();
    asked<NOTIFY_FPDATA>("KVBENCH_Fingerprint")(image.data(), kSensorBytes, score);
}

void QuietPad::signAnew()
{
    const Family &family = *m_pad.family;
    family.Clear(type());
    family.SetPenStyle(type(), true);
    family.SetPenWidth(type(), 3);
    family.SetPenColor(type(), 0, 0, 0);
    family.SetSaveClipImageMargin(type(), false, 0, 0);
    family.SignPadEventCallback(type(), nullptr);
    const RawArea area = rawArea(type());
    for (int i = 0; i <= 40; ++i)
        packet(area.offsetX + area.spanX * (10 + i) / 60, area.offsetY + area.spanY * (10 + i % 7 * 5) / 60,
            200 + i * 10,
            i == 0       ? KVSPDARI_PS_PEN_DOWN
                : i < 40 ? KVSPDARI_PS_PEN_MOVE
                         : KVSPDARI_PS_PEN_UP);
    settle();
}

std::string QuietPad::picture() const
{
    char *text = m_pad.family->Base64EncodeEx(type(), EBITI_BITMAP, false);
    const std::string picture = text == nullptr ? "" : text;
    m_pad.family->Base64EncodeExFree(type(), text);
    return picture;
}
