/// @file
/// PNG files of a signature, byte by byte as Qt's writer makes them, at less cost.
#ifndef PNGSTREAM_H
#define PNGSTREAM_H

#include "pngrows.h"

#include <QByteArray>
#include <QImage>

#include <deque>
#include <vector>
#include <zlib.h>

/// Encodes opaque ARGB32 images, whose white may become transparent. With Memory::BetweenImages it keeps the last image
/// and up to kMarks compressor states (about 0.3 MB each); an image of the same size is then compressed only from the
/// last state above the first row that differs. The result is a complete file each time.
class PngStream
{
public:
    enum class Memory
    {
        None,
        BetweenImages
    };

    explicit PngStream(Memory memory, WhiteIs white = WhiteIs::Transparent);
    ~PngStream();
    PngStream(const PngStream &) = delete;
    PngStream &operator=(const PngStream &) = delete;

    /// The file's bytes. Empty when Qt must encode the image: another format, a pixel that is not opaque, a very small
    /// or very long image, or a Qt, libpng or zlib whose files differ from ours.
    QByteArray encoded(const QImage &image);

    /// Frees all memory.
    void forget();

private:
    friend bool pngStreamAgreesWithQt(WhiteIs white);

    static constexpr int kMarks = 24;

    /// The compressor before a row, and how much it had written.
    struct Mark
    {
        int row;
        size_t written;
        z_stream state;
    };

    QByteArray encodedUnchecked(const QImage &image);
    int firstChangedRow(const QImage &image) const;
    int resume(int row);
    void start();
    bool compressRows(const QImage &image, int firstRow);
    void mark(int row);
    bool deflateBytes(const unsigned char *bytes, size_t size, int flush);
    QByteArray file(const QImage &image) const;

    const Memory m_memory;
    const WhiteIs m_white;
    QImage m_last; ///< the image that the marks belong to
    std::deque<Mark> m_marks; ///< not a vector: a z_stream must not move, zlib's state points back to it
    z_stream m_state{};
    bool m_running = false;
    std::vector<unsigned char> m_compressed;
    size_t m_written = 0;
};

#endif
