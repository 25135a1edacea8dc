#include "target.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace fuzz {

void needApplication()
{
    if (QCoreApplication::instance() != nullptr)
        return;
    static int count = 1;
    static char name[] = "fuzz";
    static char *arguments[] = {name, nullptr};
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    new QApplication(count, arguments); // never destroyed: static destructors still use it
}

void promise(bool kept, const char *what)
{
    if (kept)
        return;
    std::fprintf(stderr, "broken promise: %s\n", what);
    std::abort();
}

uint8_t Bytes::byte()
{
    if (m_size == 0)
        return 0;
    --m_size;
    return *m_data++;
}

int Bytes::signedByte()
{
    const int value = byte();
    return value < 128 ? value : value - 256;
}

int16_t Bytes::word()
{
    const unsigned low = byte();
    return static_cast<int16_t>(low | static_cast<unsigned>(byte()) << 8);
}

int32_t Bytes::number()
{
    const auto low = static_cast<uint16_t>(word());
    return static_cast<int32_t>(low | static_cast<uint32_t>(static_cast<uint16_t>(word())) << 16);
}

QByteArray Bytes::take(int count)
{
    const int taken = std::min(count, static_cast<int>(m_size));
    const QByteArray bytes(reinterpret_cast<const char *>(m_data), taken);
    m_data += taken;
    m_size -= static_cast<size_t>(taken);
    return bytes;
}

} // namespace fuzz
