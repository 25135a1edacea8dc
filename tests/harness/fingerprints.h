/// @file
/// Generated fingerprints, the pictures they should give, and what an open fingerprint pad shows.
#ifndef FINGERPRINTS_H
#define FINGERPRINTS_H

#include "patience.h"
#include "returnedtext.h"

#include <QRectF>

#include <chrono>
#include <thread>
#include <vector>

/// A sensor's image: 208 by 288 grey bytes, rows from top to bottom.
using Grey = std::vector<unsigned char>;
inline constexpr int kGreyWidth = 208;
inline constexpr int kGreyHeight = 288;
inline constexpr int kPictureBytes = 104 * 144 * 2;

Grey evenGrey(int level);

/// Curved ridges, another pattern for each variant.
Grey ridges(int variant);

inline unsigned char &at(Grey &image, int x, int y)
{
    return image[static_cast<size_t>(y) * kGreyWidth + static_cast<size_t>(x)];
}

/// A white layer of this size with the image at its top left, cropped to it: red where darker than the mean, else
/// white.
QImage layerOf(const Grey &image, const QSize &size);

/// The picture's bytes for the pad's screen.
std::vector<unsigned char> padPictureOf(const Grey &image);

/// The layer's sensor area scaled into the target on white paper of the size.
QImage printed(const QImage &layer, const QRectF &target, const QSize &size);

/// The bitwise AND of each pixel of both images, which have the same size.
QImage anded(const QImage &one, const QImage &other);

/// Where the fingerprint is drawn when it was given no place.
QRectF middleOf(const QSize &canvas);

/// Both fingerprint pads.
std::vector<PadCase> fingerprintPads();

/// What an open pad shows, fingerprint included: its BMP text. Null while there is neither ink nor fingerprint.
QImage shown(const OpenPad &pad);

inline Text fingerprintText(const OpenPad &pad, int imageType, bool fingerprintOnly)
{
    return {pad.type(), KVS310X_GetFPImageBase64Data(pad.type(), imageType, fingerprintOnly),
        KVS310X_FreeFPImageBase64Data};
}

/// The image of a text that GetFPImageBase64Data returned; null for a null or empty text.
QImage fingerprintImage(const OpenPad &pad, int imageType = EBITI_BITMAP, bool fingerprintOnly = false);

/// The widget that shows the fingerprint in a window of its own, as a child of the window; null without one.
QWidget *fingerprintWidget(const QWidget &window);

/// What a shown widget paints.
QImage painted(QWidget &widget);

/// Processes events until it happens. Returns false when it does not.
template <class Condition>
bool becomes(Condition condition)
{
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
        settle();
        if (condition())
            return true;
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

/// Expects `look` to return the image within that time. A failure says where the last one differs.
template <class Look>
void expectBecomes(Look look, const QImage &expected)
{
    QImage last;
    const bool same = becomes([&] {
        last = look().convertToFormat(QImage::Format_ARGB32);
        return last == expected;
    });
    if (same)
        return;
    ASSERT_EQ(last.size(), expected.size());
    int different = 0;
    QPoint first(-1, -1);
    for (int y = 0; y < last.height(); ++y)
        for (int x = 0; x < last.width(); ++x)
            if (last.pixel(x, y) != expected.pixel(x, y) && different++ == 0)
                first = {x, y};
    ADD_FAILURE() << different << " pixels differ, the first at " << first.x() << ", " << first.y();
}

/// A pad whose screen shows pictures without delay, for tests of what happens afterwards.
struct FingerprintPad : OpenPad
{
    explicit FingerprintPad(const PadCase &pad, int width = 400, int height = 300, int screenMs = 0);

    QSize size;
    void setScreenDelay(int milliseconds);
    int shownPictures();
    std::vector<unsigned char> lastPicture();
};

#endif
