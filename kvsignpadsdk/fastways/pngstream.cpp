#include "pngstream.h"

#include "opaquepixels.h"
#include "plainways.h"

#include <QBuffer>

#include <algorithm>
#include <cstring>

namespace {

// libpng writes an IDAT chunk whenever its buffer (PNG_ZBUF_SIZE) is full.
constexpr size_t kChunk = 8192;
// Up to this size of the filtered image libpng gives zlib a smaller window (png_deflate_claim).
constexpr qint64 kSmall = 16384;

void put32(QByteArray &file, quint32 value)
{
    for (const int shift : {24, 16, 8, 0})
        file += static_cast<char>(value >> shift);
}

void putChunk(QByteArray &file, const char *type, const void *bytes, size_t size)
{
    put32(file, static_cast<quint32>(size));
    const int start = file.size();
    file.append(type, 4);
    file.append(static_cast<const char *>(bytes), static_cast<int>(size));
    const auto *from = reinterpret_cast<const Bytef *>(file.constData() + start);
    put32(file, static_cast<quint32>(crc32(0, from, static_cast<uInt>(size + 4))));
}

QByteArray imageHeader(const QImage &image)
{
    QByteArray header;
    put32(header, static_cast<quint32>(image.width()));
    put32(header, static_cast<quint32>(image.height()));
    return header.append("\x08\x06\0\0\0", 5); // 8 bits of red, green, blue and alpha each
}

QByteArray resolution(const QImage &image)
{
    QByteArray header;
    put32(header, static_cast<quint32>(image.dotsPerMeterX()));
    put32(header, static_cast<quint32>(image.dotsPerMeterY()));
    return header.append('\x01'); // dots a metre
}

const QRgb *row(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

// Ink in many directions and greys: every filter gets chosen, and zlib's 32 kB window is left behind before the last
// mark.
QImage probe()
{
    QImage image(160, 96, QImage::Format_ARGB32);
    image.fill(Qt::white);
    unsigned random = 12345;
    for (int i = 0; i < 1500; ++i) {
        random = random * 1103515245U + 12345U;
        const int x = static_cast<int>(random >> 8) % 160;
        const int y = 8 + static_cast<int>(random >> 17) % 80;
        const unsigned grey = i % 3 == 0 ? 0 : random >> 24;
        image.setPixel(x, y, 0xff000000U | grey << 16 | grey << 8 | grey);
        image.setPixel((x + 1) % 160, y, 0xff000000U | grey << 8);
    }
    return image;
}

QByteArray byQt(QImage image, WhiteIs white)
{
    if (white == WhiteIs::Transparent)
        opaquepixels::maskWhiteByQt(image);
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return file;
}

} // namespace

bool pngStreamAgreesWithQt(WhiteIs white)
{
    const QImage image = probe();
    QImage changed = image;
    changed.setPixel(80, 75, 0xff123456);
    const QByteArray first = byQt(image, white);
    const QByteArray second = byQt(changed, white);
    PngStream kept(PngStream::Memory::BetweenImages, white);
    return !first.isEmpty() && kept.encodedUnchecked(image) == first && !second.isEmpty()
        && kept.encodedUnchecked(changed) == second; // resumed from the last mark
}

namespace {

// The comparison costs milliseconds, so it is made once a process.
bool agreesWithQt(WhiteIs white)
{
    if (white == WhiteIs::Transparent) {
        static const bool agrees = pngStreamAgreesWithQt(WhiteIs::Transparent);
        return agrees;
    }
    static const bool agrees = pngStreamAgreesWithQt(WhiteIs::Opaque);
    return agrees;
}

} // namespace

PngStream::PngStream(Memory memory, WhiteIs white)
    : m_memory(memory)
    , m_white(white)
{
}

PngStream::~PngStream()
{
    forget();
}

void PngStream::forget()
{
    for (Mark &mark : m_marks)
        deflateEnd(&mark.state);
    m_marks.clear();
    if (m_running)
        deflateEnd(&m_state);
    m_running = false;
    m_last = QImage();
    std::vector<unsigned char>().swap(m_compressed);
    m_written = 0;
}

QByteArray PngStream::encoded(const QImage &image)
{
    return !plainways::only && agreesWithQt(m_white) ? encodedUnchecked(image) : QByteArray();
}

// Not for one row or column: libpng leaves filters out there. Not with text or an offset: Qt writes further chunks.
QByteArray PngStream::encodedUnchecked(const QImage &image)
{
    const bool plain = image.format() != QImage::Format_ARGB32 || image.width() < 2 || image.height() < 2
        || (qint64{image.width()} * 4 + 1) * image.height() <= kSmall || image.dotsPerMeterX() <= 0
        || image.dotsPerMeterY() <= 0 || !opaquepixels::isPaintedWhole(image) || !image.textKeys().isEmpty()
        || !image.offset().isNull();
    const int firstRow = plain ? 0 : resume(firstChangedRow(image));
    if (plain || !compressRows(image, firstRow)) {
        forget();
        return {};
    }
    const QByteArray result = file(image);
    if (m_memory == Memory::None)
        forget();
    return result;
}

// Returns the height when nothing changed, 0 for an image of another size.
int PngStream::firstChangedRow(const QImage &image) const
{
    if (m_last.size() != image.size())
        return 0;
    const size_t size = static_cast<size_t>(image.width()) * sizeof(QRgb);
    int y = 0;
    while (y < image.height() && std::memcmp(row(m_last, y), row(image, y), size) == 0)
        ++y;
    return y;
}

// Restores the last compressor state saved above the changed row, and returns the row to go on with. zlib's output
// depends only on the input so far, so resuming gives the bytes of a fresh start.
int PngStream::resume(int changedRow)
{
    if (m_running)
        deflateEnd(&m_state);
    m_running = false;
    while (!m_marks.empty() && m_marks.back().row > changedRow) {
        deflateEnd(&m_marks.back().state);
        m_marks.pop_back();
    }
    if (m_marks.empty()) {
        start();
        return 0;
    }
    m_running = deflateCopy(&m_state, &m_marks.back().state) == Z_OK;
    m_written = m_marks.back().written;
    return m_marks.back().row;
}

// The parameters that libpng uses for filtered images: its default level, window and memory, and Z_FILTERED.
void PngStream::start()
{
    m_state = {};
    m_running = deflateInit2(&m_state, Z_DEFAULT_COMPRESSION, Z_DEFLATED, 15, 8, Z_FILTERED) == Z_OK;
    m_written = 0;
}

// Returns false when Qt must encode the image instead.
bool PngStream::compressRows(const QImage &image, int firstRow)
{
    const bool keeps = m_memory == Memory::BetweenImages;
    const int step = std::max(32, (image.height() + kMarks - 1) / kMarks);
    if (keeps && m_last.size() != image.size())
        m_last = QImage(image.size(), image.format());
    if (!m_running || (keeps && m_last.isNull()))
        return false;
    PngRows rows(image.width(), m_white);
    rows.startBelow(firstRow == 0 ? nullptr : row(image, firstRow - 1));
    const size_t size = static_cast<size_t>(image.width()) * sizeof(QRgb);
    for (int y = firstRow; y < image.height(); ++y) {
        if (keeps && y > 0 && y % step == 0)
            mark(y);
        const unsigned char *filtered = rows.next(row(image, y));
        if (filtered == nullptr || !deflateBytes(filtered, size + 1, Z_NO_FLUSH))
            return false;
        if (keeps)
            std::memcpy(m_last.scanLine(y), row(image, y), size);
    }
    return deflateBytes(nullptr, 0, Z_FINISH);
}

void PngStream::mark(int row)
{
    if (!m_marks.empty() && m_marks.back().row >= row)
        return;
    m_marks.push_back({row, m_written, {}});
    if (deflateCopy(&m_marks.back().state, &m_state) != Z_OK)
        m_marks.pop_back();
}

bool PngStream::deflateBytes(const unsigned char *bytes, size_t size, int flush)
{
    m_state.next_in = const_cast<Bytef *>(bytes);
    m_state.avail_in = static_cast<uInt>(size);
    int result = Z_OK;
    do {
        if (m_compressed.size() - m_written < kChunk)
            m_compressed.resize(2 * m_compressed.size() + 2 * kChunk);
        const size_t room = m_compressed.size() - m_written;
        m_state.next_out = m_compressed.data() + m_written;
        m_state.avail_out = static_cast<uInt>(room);
        result = deflate(&m_state, flush);
        m_written += room - m_state.avail_out;
    } while (result == Z_OK && (m_state.avail_in > 0 || flush == Z_FINISH));
    return result == (flush == Z_FINISH ? Z_STREAM_END : Z_OK);
}

QByteArray PngStream::file(const QImage &image) const
{
    QByteArray file("\x89PNG\r\n\x1a\n", 8);
    const QByteArray header = imageHeader(image);
    putChunk(file, "IHDR", header.constData(), static_cast<size_t>(header.size()));
    const QByteArray dots = resolution(image);
    putChunk(file, "pHYs", dots.constData(), static_cast<size_t>(dots.size()));
    for (size_t done = 0; done < m_written; done += kChunk)
        putChunk(file, "IDAT", m_compressed.data() + done, std::min(kChunk, m_written - done));
    putChunk(file, "IEND", nullptr, 0);
    return file;
}
