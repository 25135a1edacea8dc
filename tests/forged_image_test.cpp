// Image texts whose headers promise more than there is: nothing comes of them, and no memory is spent on them.
#include "returnedtext.h"

#include <QDir>
#include <QTemporaryDir>

#include <array>
#include <climits>
#include <fstream>
#include <sys/resource.h>

namespace {

QByteArray number(uint32_t value, int size, bool bigEndian)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> 8 * (bigEndian ? size - 1 - i : i) & 0xff);
    return bytes;
}

uint32_t crcOf(const QByteArray &bytes)
{
    uint32_t crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xedb88320 : 0);
    }
    return ~crc;
}

QByteArray chunk(const QByteArray &name, const QByteArray &data)
{
    return number(static_cast<uint32_t>(data.size()), 4, true) + name + data + number(crcOf(name + data), 4, true);
}

QByteArray png(uint32_t width, uint32_t height)
{
    const QByteArray header = number(width, 4, true) + number(height, 4, true) + QByteArray("\x08\x06\0\0\0", 5);
    const QByteArray emptyStream("\x78\x9c\x03\x00\x00\x00\x00\x01", 8);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", emptyStream) + chunk("IEND", {});
}

QByteArray bmp(int width, int height, int bits)
{
    return "BM" + number(54, 4, false) + number(0, 4, false) + number(54, 4, false) + number(40, 4, false)
        + number(static_cast<uint32_t>(width), 4, false) + number(static_cast<uint32_t>(height), 4, false)
        + number(1, 2, false) + number(static_cast<uint32_t>(bits), 2, false) + QByteArray(24, '\0')
        + QByteArray(400, 'x');
}

// A real picture with other numbers in its frame header.
QByteArray jpeg(uint32_t width, uint32_t height)
{
    QByteArray bytes = fileOf(QImage(16, 16, QImage::Format_RGB32), "JPG");
    const int frame = bytes.indexOf("\xff\xc0");
    EXPECT_GT(frame, 0);
    return bytes.replace(frame + 5, 4, number(height, 2, true) + number(width, 2, true));
}

struct Forged
{
    const char *name;
    int type;
    QByteArray bytes;
};

std::vector<Forged> forgedImages()
{
    return {{"png 65535", 3, png(65535, 65535)}, {"png largest", 3, png(0x7fffffff, 0x7fffffff)},
        {"png negative", 3, png(0x80000000, 4)}, {"png wide", 3, png(0x7fffffff, 1)}, {"png none", 3, png(0, 0)},
        {"png 20000", 3, png(20000, 20000)}, {"bmp 65535", 1, bmp(65535, 65535, 32)},
        {"bmp largest", 1, bmp(INT_MAX, INT_MAX, 24)}, {"bmp upside down", 1, bmp(60000, INT_MIN, 32)},
        {"bmp upside down large", 1, bmp(60000, -60000, 32)}, {"bmp negative", 1, bmp(-60000, 60000, 32)},
        {"bmp one bit", 1, bmp(INT_MAX, INT_MAX, 1)}, {"bmp eight bits", 1, bmp(100000, 100000, 8)},
        {"jpeg 65535", 2, jpeg(65535, 65535)}, {"jpeg 30000", 2, jpeg(30000, 30000)}, {"jpeg none", 2, jpeg(0, 0)}};
}

long fromStatus(const std::string &field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(field, 0) == 0)
            return std::stol(line.substr(field.size() + 1));
    }
    return 0;
}

// Kilobytes that the call adds to what the process had in memory at most.
template <class Call>
long memoryOf(Call call)
{
    std::ofstream("/proc/self/clear_refs") << 5; // the high-water mark starts anew
    const long before = fromStatus("VmRSS:");
    call();
    return fromStatus("VmHWM:") - before;
}

class ForgedImage : public testing::Test
{
protected:
    int decode(const Forged &forged)
    {
        std::wstring path = directory.filePath("out").toStdWString();
        return pad->Base64Decode(pad.type(), forged.type, base64::encoded(forged.bytes).constData(), path.data());
    }
    bool leftNothing() const { return QDir(directory.path()).isEmpty(); }

    OpenPad pad{{&kS300Family, true}, 120, 80};
    QTemporaryDir directory;
};

} // namespace

TEST_F(ForgedImage, SpendsNoMemory)
{
    for (const Forged &forged : forgedImages()) {
        const long kilobytes = memoryOf([&] { EXPECT_EQ(decode(forged), ARI_INK_EMPTY) << forged.name; });
        EXPECT_LT(kilobytes, 100 << 10) << forged.name;
        EXPECT_TRUE(leftNothing()) << forged.name;
    }
}

// Sanitizers reserve address space without end, so that a limit means nothing to them.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST_F(ForgedImage, IsRefusedWhereMemoryIsShort)
{
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_AS, &limit), 0);
    const rlim_t size = static_cast<rlim_t>(fromStatus("VmSize:")) << 10;
    const rlimit tight{size + (rlim_t{64} << 20), limit.rlim_max};
    auto images = forgedImages();
    images.push_back({"png just allowed", 3, png(16384, 16384)});
    images.push_back({"bmp just allowed", 1, bmp(16384, 16384, 32)});
    std::vector<int> results;
    ASSERT_EQ(::setrlimit(RLIMIT_AS, &tight), 0);
    for (const Forged &forged : images)
        results.push_back(decode(forged));
    ::setrlimit(RLIMIT_AS, &limit);
    for (size_t i = 0; i < images.size(); ++i)
        EXPECT_EQ(results[i], ARI_INK_EMPTY) << images[i].name;
    EXPECT_TRUE(leftNothing());
}
#endif
