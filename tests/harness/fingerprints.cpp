#include "fingerprints.h"

#include <QPainter>

#include <algorithm>
#include <numeric>

namespace {

constexpr QRgb kRed = 0xffff0000;
constexpr QRgb kWhite = 0xffffffff;

QImage paper(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(kWhite);
    return image;
}

int meanOf(const Grey &image)
{
    return std::accumulate(image.begin(), image.end(), 0) / (kGreyWidth * kGreyHeight);
}

template <class Function>
Function control(OpenPad &pad, const char *name)
{
    return reinterpret_cast<Function>(pad.driver.control(name));
}

} // namespace

Grey evenGrey(int level)
{
    return Grey(static_cast<size_t>(kGreyWidth) * kGreyHeight, static_cast<unsigned char>(level));
}

Grey ridges(int variant)
{
    Grey image = evenGrey(0);
    for (int y = 0; y < kGreyHeight; ++y)
        for (int x = 0; x < kGreyWidth; ++x) {
            const int fromMiddle = (x - 90 - 5 * variant) * (x - 100) + (y - 130) * (y - 150);
            at(image, x, y) = static_cast<unsigned char>((fromMiddle / (40 + 7 * variant)) % 17 * 12 + 20);
        }
    return image;
}

QImage layerOf(const Grey &image, const QSize &size)
{
    const int mean = meanOf(image);
    QImage layer = paper(size);
    for (int y = 0; y < std::min(size.height(), kGreyHeight); ++y)
        for (int x = 0; x < std::min(size.width(), kGreyWidth); ++x)
            if (image[static_cast<size_t>(y * kGreyWidth + x)] < mean)
                layer.setPixel(x, y, kRed);
    return layer;
}

std::vector<unsigned char> padPictureOf(const Grey &image)
{
    const int mean = meanOf(image);
    std::vector<unsigned char> picture;
    for (int y = 0; y < kGreyHeight; y += 2)
        for (int x = 0; x < kGreyWidth; x += 2) {
            const bool dark = image[static_cast<size_t>(y * kGreyWidth + x)] < mean;
            picture.push_back(dark ? 0xf8 : 0xff);
            picture.push_back(dark ? 0x00 : 0xff);
        }
    return picture;
}

QImage printed(const QImage &layer, const QRectF &target, const QSize &size)
{
    QImage print = paper(size);
    QPainter(&print).drawImage(target, layer, QRectF(0, 0, kGreyWidth, kGreyHeight));
    return print;
}

QImage anded(const QImage &one, const QImage &other)
{
    QImage both = one.convertToFormat(QImage::Format_ARGB32);
    const QImage mask = other.convertToFormat(QImage::Format_ARGB32);
    if (one.size() != other.size()) {
        ADD_FAILURE() << "images of two sizes";
        return both;
    }
    for (int y = 0; y < both.height(); ++y) {
        auto *row = reinterpret_cast<QRgb *>(both.scanLine(y));
        const auto *masks = reinterpret_cast<const QRgb *>(mask.constScanLine(y));
        for (int x = 0; x < both.width(); ++x)
            row[x] &= masks[x];
    }
    return both;
}

QRectF middleOf(const QSize &canvas)
{
    const double height = canvas.height() / 2.0;
    const double width = height * 208 / 288;
    return {(canvas.width() - width) / 2, canvas.height() / 4.0, width, height};
}

std::vector<PadCase> fingerprintPads()
{
    return {{&kS310XFamily, false}, {&kS310XFamily, true}};
}

QImage shown(const OpenPad &pad)
{
    const Text text = textOf(pad, EBITI_BITMAP);
    return text.isNull() ? QImage() : QImage::fromData(text.bytes(), "BMP").convertToFormat(QImage::Format_ARGB32);
}

QImage fingerprintImage(const OpenPad &pad, int imageType, bool fingerprintOnly)
{
    const Text text = fingerprintText(pad, imageType, fingerprintOnly);
    return text.isNull() ? QImage() : QImage::fromData(text.bytes()).convertToFormat(QImage::Format_ARGB32);
}

QWidget *fingerprintWidget(const QWidget &window)
{
    for (QWidget *child : window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (child->inherits("CS310XFPWidget"))
            return child;
    return nullptr;
}

QImage painted(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_ARGB32);
}

FingerprintPad::FingerprintPad(const PadCase &pad, int width, int height, int screenMs)
    : OpenPad(pad, width, height)
    , size(width, height)
{
    setScreenDelay(screenMs);
}

void FingerprintPad::setScreenDelay(int milliseconds)
{
    control<decltype(&KVSIM_SetScreenDelay)>(*this, "KVSIM_SetScreenDelay")(milliseconds);
}

int FingerprintPad::shownPictures()
{
    return control<decltype(&KVSIM_ShownPictures)>(*this, "KVSIM_ShownPictures")();
}

std::vector<unsigned char> FingerprintPad::lastPicture()
{
    const auto ask = control<decltype(&KVSIM_LastPicture)>(*this, "KVSIM_LastPicture");
    std::vector<unsigned char> picture(static_cast<size_t>(ask(nullptr, 0)));
    ask(picture.data(), static_cast<int>(picture.size()));
    return picture;
}
