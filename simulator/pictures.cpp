#include "pictures.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace kvsim {

namespace {

std::uint32_t crc32(const std::string &bytes)
{
    std::uint32_t crc = 0xffffffffu;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1u) ? 0xedb88320u : 0u);
    }
    return ~crc;
}

std::uint32_t adler32(const std::string &bytes)
{
    std::uint32_t a = 1, b = 0;
    for (const char byte : bytes) {
        a = (a + static_cast<unsigned char>(byte)) % 65521u;
        b = (b + a) % 65521u;
    }
    return (b << 16) | a;
}

std::string bigEndian(std::uint32_t value)
{
    std::string bytes;
    for (const int shift : {24, 16, 8, 0})
        bytes += static_cast<char>((value >> shift) & 0xffu);
    return bytes;
}

std::string chunk(const std::string &type, const std::string &data)
{
    const std::string body = type + data;
    return bigEndian(static_cast<std::uint32_t>(data.size())) + body + bigEndian(crc32(body));
}

/// A zlib stream of stored blocks.
std::string zlibStored(const std::string &bytes)
{
    constexpr std::size_t kLargestBlock = 65535;
    std::string stream = "\x78\x01";
    for (std::size_t at = 0; at < bytes.size(); at += kLargestBlock) {
        const std::size_t length = std::min(kLargestBlock, bytes.size() - at);
        stream += at + length == bytes.size() ? '\1' : '\0';
        for (const std::size_t value : {length, ~length})
            for (const int shift : {0, 8})
                stream += static_cast<char>((value >> shift) & 0xffu);
        stream.append(bytes, at, length);
    }
    return stream + bigEndian(adler32(bytes));
}

} // namespace

std::string pngOf(const std::vector<unsigned char> &rgb, int width, int height)
{
    const std::size_t rowBytes = static_cast<std::size_t>(width) * 3;
    std::string rows;
    for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
        rows += '\0'; // no filter
        rows.append(reinterpret_cast<const char *>(rgb.data()) + y * rowBytes, rowBytes);
    }
    const std::string header = bigEndian(static_cast<std::uint32_t>(width))
        + bigEndian(static_cast<std::uint32_t>(height)) + std::string("\x08\x02\x00\x00\x00", 5); // 8 bits, RGB
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + chunk("IDAT", zlibStored(rows)) + chunk("IEND", "");
}

std::vector<unsigned char> rgbOfPadPicture(const unsigned char *image, int width, int height)
{
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    std::vector<unsigned char> rgb;
    rgb.reserve(pixels * 3);
    for (std::size_t i = 0; i < pixels; ++i) {
        const unsigned colour = (unsigned{image[2 * i]} << 8) | image[2 * i + 1];
        rgb.push_back(static_cast<unsigned char>((colour >> 11) * 255 / 31));
        rgb.push_back(static_cast<unsigned char>(((colour >> 5) & 63u) * 255 / 63));
        rgb.push_back(static_cast<unsigned char>((colour & 31u) * 255 / 31));
    }
    return rgb;
}

bool storePicture(const std::string &directory, int number, const unsigned char *image, int width, int height)
{
    char name[32];
    std::snprintf(name, sizeof name, "/picture-%04d.png", number);
    std::ofstream file(directory + name, std::ios::binary);
    file << pngOf(rgbOfPadPicture(image, width, height), width, height);
    file.close();
    if (!file)
        std::fprintf(stderr, "kvsignpaddrv: %s%s: %s\n", directory.c_str(), name, std::strerror(errno));
    return static_cast<bool>(file);
}

} // namespace kvsim
