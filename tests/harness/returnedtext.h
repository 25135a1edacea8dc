/// @file
/// The texts that the library returns, and the image files that they should contain, made with Qt's own writer.
#ifndef RETURNEDTEXT_H
#define RETURNEDTEXT_H

#include "base64.h"
#include "inkpicture.h"

#include <QBuffer>

/// A returned text. The destructor frees it with the matching function.
class Text
{
public:
    using Free = void (*)(int, char *);
    Text(int type, char *text, Free free)
        : m_type(type)
        , m_text(text)
        , m_free(free)
    {
    }
    ~Text() { m_free(m_type, m_text); }
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;

    bool isNull() const { return m_text == nullptr; }
    const char *pointer() const { return m_text; }
    QByteArray text() const { return {m_text}; }

    /// The decoded bytes. Fails the test when the text is not strict Base64.
    QByteArray bytes() const
    {
        const auto bytes = base64::decoded(text());
        EXPECT_TRUE(bytes.has_value());
        return bytes.value_or(QByteArray());
    }

private:
    int m_type;
    char *m_text;
    Free m_free;
};

inline Text textOf(const OpenPad &pad, int type)
{
    return {pad.type(), pad->Base64Encode(pad.type(), type), pad->Base64EncodeFree};
}

inline Text exTextOf(const OpenPad &pad, int type, bool transparent)
{
    return {pad.type(), pad->Base64EncodeEx(pad.type(), type, transparent), pad->Base64EncodeExFree};
}

inline Text svgTextOf(const OpenPad &pad)
{
    return {pad.type(), pad->GetSVGImageBase64Data(pad.type()), pad->FreeSVGImageBase64Data};
}

inline QByteArray fileOf(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, format));
    return bytes;
}

/// Pure white fully transparent, everything else fully opaque.
inline QImage whiteMadeTransparent(QImage image)
{
    image.setAlphaChannel(image.createMaskFromColor(QColor(Qt::white).rgb(), Qt::MaskOutColor));
    return image;
}

/// The smallest rectangle that holds all that is not white.
inline QRect inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xffffff) != 0xffffff)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Two strokes that leave most of the canvas white.
inline std::vector<KVSIM_PACKET> twoStrokes(int deviceType)
{
    auto packets = stroke(deviceType, {{0.3, 0.3, 0.2}, {0.4, 0.5, 0.4}, {0.45, 0.35, 0.6}, {0.5, 0.6, 0.3}});
    const auto second = stroke(deviceType, {{0.6, 0.4, 0.1}, {0.7, 0.45, 0.15}, {0.62, 0.62, 0.25}});
    packets.insert(packets.end(), second.begin(), second.end());
    return packets;
}

inline QImage drawn(const PadCase &pad, const std::vector<KVSIM_PACKET> &packets, int width, int height)
{
    InkPicture picture(pad, width, height);
    picture.play(packets);
    return picture.image;
}

#endif
