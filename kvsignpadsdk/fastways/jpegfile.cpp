#include "jpegfile.h"

#include "plainways.h"

#include <QBuffer>
#include <QColorSpace>

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>

#include <jpeglib.h>

namespace jpegfile {

namespace {

constexpr int kQuality = 75; // Qt's default
constexpr int kUnitAt = 13; // offset of the JFIF density unit; x and y follow, two bytes each

struct Compressor
{
    Compressor() = default;
    ~Compressor() { jpeg_destroy_compress(&state); }
    Compressor(const Compressor &) = delete;
    Compressor &operator=(const Compressor &) = delete;

    jpeg_compress_struct state{};
    jpeg_error_mgr errors{};
    std::jmp_buf onError{};
    unsigned char *bytes = nullptr;
    unsigned long size = 0;
};

// libjpeg's default error_exit() calls exit().
[[noreturn]] void giveUp(j_common_ptr state)
{
    std::longjmp(static_cast<Compressor *>(state->client_data)->onError, 1);
}

void beSilent(j_common_ptr) { }

void start(Compressor &compressor, const QImage &image, const QByteArray &resolution)
{
    jpeg_compress_struct &state = compressor.state;
    jpeg_create_compress(&state);
    jpeg_mem_dest(&state, &compressor.bytes, &compressor.size);
    state.image_width = static_cast<JDIMENSION>(image.width());
    state.image_height = static_cast<JDIMENSION>(image.height());
    state.input_components = 4;
    // libjpeg-turbo reads QImage's 32-bit pixels as they are; Qt copies each row to RGB bytes first.
    state.in_color_space = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;
    jpeg_set_defaults(&state);
    const auto byte = [&resolution](int at) { return static_cast<unsigned char>(resolution[at]); };
    state.density_unit = byte(0);
    state.X_density = static_cast<UINT16>(byte(1) << 8 | byte(2));
    state.Y_density = static_cast<UINT16>(byte(3) << 8 | byte(4));
    jpeg_set_quality(&state, kQuality, TRUE);
    jpeg_start_compress(&state, TRUE);
}

// No objects with destructors in here: an error leaves by longjmp().
bool compress(Compressor &compressor, const QImage &image, const QByteArray &resolution)
{
    compressor.state.err = jpeg_std_error(&compressor.errors);
    compressor.errors.error_exit = giveUp;
    compressor.errors.output_message = beSilent;
    compressor.state.client_data = &compressor;
    if (setjmp(compressor.onError) != 0)
        return false;
    start(compressor, image, resolution);
    while (compressor.state.next_scanline < compressor.state.image_height) {
        JSAMPROW row = const_cast<JSAMPROW>(image.constScanLine(static_cast<int>(compressor.state.next_scanline)));
        jpeg_write_scanlines(&compressor.state, &row, 1);
    }
    jpeg_finish_compress(&compressor.state);
    return true;
}

QByteArray written(const QImage &image, const QByteArray &resolution)
{
    Compressor compressor;
    if (!compress(compressor, image, resolution))
        return {};
    // libjpeg stores the final buffer in `bytes` only in jpeg_finish_compress(). After an error it may point to one
    // that libjpeg has outgrown and freed, so free it only here.
    const std::unique_ptr<unsigned char, decltype(&std::free)> bytes(compressor.bytes, &std::free);
    return {reinterpret_cast<const char *>(bytes.get()), static_cast<int>(compressor.size)};
}

QByteArray byQt(const QImage &image)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG");
    return file;
}

// Scattered pixels beside blank blocks: in colour, some translucent, as Qt drops the alpha; or grey only, as Qt might
// choose a greyscale file for that.
QImage probe(bool coloured)
{
    QImage image(90, 61, QImage::Format_ARGB32);
    image.fill(Qt::white);
    unsigned random = 2463534242U;
    for (int i = 0; i < 600; ++i) {
        random = random * 1103515245U + 12345U;
        const unsigned grey = random >> 24;
        const int x = static_cast<int>(random >> 8) % 70;
        image.setPixel(x, static_cast<int>(random >> 17) % 50, coloured ? random : 0xff000000U | grey * 0x010101U);
    }
    return image;
}

QByteArray resolutionIn(const QByteArray &file)
{
    return file.mid(kUnitAt, 5);
}

bool agreesWithQt()
{
    for (const bool coloured : {true, false}) {
        const QImage image = probe(coloured);
        const QByteArray file = byQt(image);
        if (resolutionIn(file).size() < 5 || written(image, resolutionIn(file)) != file)
            return false;
    }
    return true;
}

/// Qt rounds the resolution in its own way, so its bytes are taken from a one-pixel file of Qt's, for the last
/// resolution asked for. It may change: canvases get the screen's, which Qt does not know before the QApplication.
class Resolution
{
public:
    QByteArray of(const QImage &image)
    {
        const std::lock_guard<std::mutex> locked(m_lock);
        if (m_bytes.isEmpty() || m_x != image.dotsPerMeterX() || m_y != image.dotsPerMeterY()) {
            m_x = image.dotsPerMeterX();
            m_y = image.dotsPerMeterY();
            QImage pixel(1, 1, QImage::Format_ARGB32);
            pixel.fill(Qt::white);
            pixel.setDotsPerMeterX(m_x);
            pixel.setDotsPerMeterY(m_y);
            m_bytes = resolutionIn(byQt(pixel));
        }
        return m_bytes;
    }

private:
    std::mutex m_lock;
    int m_x = 0;
    int m_y = 0;
    QByteArray m_bytes;
};

bool isPlainCanvas(const QImage &image)
{
    return !image.isNull() && image.width() <= JPEG_MAX_DIMENSION && image.height() <= JPEG_MAX_DIMENSION
        && image.format() == QImage::Format_ARGB32 && image.textKeys().isEmpty() && !image.colorSpace().isValid();
}

} // namespace

QByteArray encoded(const QImage &image)
{
    static const bool agrees = !plainways::only && agreesWithQt();
    static Resolution resolution;
    if (!agrees || !isPlainCanvas(image))
        return {};
    const QByteArray bytes = resolution.of(image);
    return bytes.size() == 5 ? written(image, bytes) : QByteArray();
}

} // namespace jpegfile
