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

/// Encodes opaque ARGB32 images, whose white may become transparent. A stream that is kept goes on, for an image of the
/// same size, from where the image differs from the last one: it holds a copy of that image and up to kMarks states of
/// the compressor (about 0.3 MB each). What it makes of the image that it is given is complete each time.
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

    /// The file's bytes; empty for an image that must take Qt's own way: another format, a pixel that is not opaque,
    /// a very small or very long image, or system libraries that make other files than this one.
    QByteArray encoded(const QImage &image);

    /// Gives all memory back.
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
    QImage m_last; ///< what the marks are made of
    std::deque<Mark> m_marks; ///< a compressor's state must not move
    z_stream m_state{};
    bool m_running = false;
    std::vector<unsigned char> m_compressed;
    size_t m_written = 0;
};

#endif
