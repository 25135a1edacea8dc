#include "appearance.h"

#include "pageplace.h"

#include <algorithm>
#include <string>

namespace documents {

namespace {

constexpr int kDecimals = 2; // hundredths of a pixel
constexpr double kThinnest = 0.1; // pixels; a width of 0 would mean the thinnest line that a device has

std::string pair(const QPointF &point)
{
    return numberText(point.x(), kDecimals) + " " + numberText(point.y(), kDecimals);
}

/// Grey as such: a document for archives may allow it without allowing red, green and blue.
std::string colourOperator(const QColor &colour)
{
    if (colour.red() == colour.green() && colour.green() == colour.blue())
        return numberText(colour.redF()) + " G\n";
    return numberText(colour.redF()) + " " + numberText(colour.greenF()) + " " + numberText(colour.blueF()) + " RG\n";
}

/// As on a canvas: a pen thinner than a pixel leaves a pale line, but one without a width a line of one pixel.
double widthOf(const InkLine &line)
{
    return line.width > 0 ? std::max(line.width, kThinnest) : 1;
}

/// Joins lines of one width that follow each other into one path.
std::string linesOf(const std::vector<InkLine> &lines)
{
    std::string text, width;
    const InkLine *last = nullptr;
    for (const InkLine &line : lines) {
        const std::string own = numberText(widthOf(line), kDecimals);
        const bool continues = last != nullptr && own == width && last->to == line.from;
        if (!continues && last != nullptr)
            text += "S\n";
        if (own != width)
            text += own + " w\n";
        if (!continues)
            text += pair(line.from) + " m\n";
        text += pair(line.to) + " l\n";
        width = own;
        last = &line;
    }
    return last == nullptr ? text : text + "S\n";
}

std::string bytesOf(const QImage &image, int bytesPerPixel)
{
    std::string bytes;
    for (int y = 0; y < image.height(); ++y)
        bytes.append(
            reinterpret_cast<const char *>(image.constScanLine(y)), static_cast<size_t>(image.width() * bytesPerPixel));
    return bytes;
}

QPDFObjectHandle imageStream(Revision &revision, const QImage &image, const char *space, int bytesPerPixel)
{
    QPDFObjectHandle dictionary = QPDFObjectHandle::parse("<< /Type /XObject /Subtype /Image /BitsPerComponent 8 >>");
    dictionary.replaceKey("/ColorSpace", QPDFObjectHandle::newName(space));
    dictionary.replaceKey("/Width", QPDFObjectHandle::newInteger(image.width()));
    dictionary.replaceKey("/Height", QPDFObjectHandle::newInteger(image.height()));
    return revision.addStream(dictionary, bytesOf(image, bytesPerPixel));
}

/// Opaque where the picture is not white.
int opacityOf(QRgb pixel)
{
    return (pixel & RGB_MASK) == RGB_MASK ? 0 : qAlpha(pixel);
}

/// The opacity of each pixel.
QImage maskOf(const QImage &picture, bool &isBinary)
{
    QImage mask(picture.size(), QImage::Format_Grayscale8);
    isBinary = true;
    for (int y = 0; y < picture.height(); ++y) {
        const QRgb *pixels = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        uchar *row = mask.scanLine(y);
        for (int x = 0; x < picture.width(); ++x) {
            row[x] = static_cast<uchar>(opacityOf(pixels[x]));
            isBinary = isBinary && (row[x] == 0 || row[x] == 255);
        }
    }
    return mask;
}

/// A bit for each pixel, 1 where nothing is painted; rows begin at whole bytes. PDF/A-1 allows it, unlike shades of
/// opacity.
QPDFObjectHandle stencil(Revision &revision, const QImage &mask)
{
    std::string bits;
    for (int y = 0; y < mask.height(); ++y) {
        const uchar *const row = mask.constScanLine(y);
        for (int x = 0; x < mask.width(); ++x) {
            if (x % 8 == 0)
                bits += '\0';
            if (row[x] == 0)
                bits.back() = static_cast<char>(bits.back() | (0x80 >> x % 8));
        }
    }
    QPDFObjectHandle dictionary =
        QPDFObjectHandle::parse("<< /Type /XObject /Subtype /Image /ImageMask true /BitsPerComponent 1 >>");
    dictionary.replaceKey("/Width", QPDFObjectHandle::newInteger(mask.width()));
    dictionary.replaceKey("/Height", QPDFObjectHandle::newInteger(mask.height()));
    return revision.addStream(dictionary, bits);
}

QPDFObjectHandle pictureOf(Revision &revision, const QImage &picture)
{
    const QImage pixels = picture.convertToFormat(QImage::Format_ARGB32);
    const bool isGrey = pixels.isGrayscale();
    const QImage shades = pixels.convertToFormat(isGrey ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    bool isBinary = false;
    const QImage mask = maskOf(pixels, isBinary);
    QPDFObjectHandle dictionary = QPDFObjectHandle::parse("<< /Type /XObject /Subtype /Image /BitsPerComponent 8 >>");
    dictionary.replaceKey("/ColorSpace", QPDFObjectHandle::newName(isGrey ? "/DeviceGray" : "/DeviceRGB"));
    dictionary.replaceKey("/Width", QPDFObjectHandle::newInteger(shades.width()));
    dictionary.replaceKey("/Height", QPDFObjectHandle::newInteger(shades.height()));
    if (isBinary)
        dictionary.replaceKey("/Mask", stencil(revision, mask));
    else
        dictionary.replaceKey("/SMask", imageStream(revision, mask, "/DeviceGray", 1));
    return revision.addStream(dictionary, bytesOf(shades, isGrey ? 1 : 3));
}

/// Turns the ink against the page's rotation, so that it stands upright when the page is shown.
const char *matrixOf(int rotation)
{
    switch (rotation) {
    case 90:
        return "[0 1 -1 0 0 0]";
    case 180:
        return "[-1 0 0 -1 0 0]";
    case 270:
        return "[0 -1 1 0 0 0]";
    default:
        return "[1 0 0 1 0 0]";
    }
}

std::string contentOf(const Ink &ink, const QSizeF &box)
{
    const QPointF corner((box.width() - ink.canvas.width()) / 2, (box.height() - ink.canvas.height()) / 2);
    std::string text = "1 0 0 -1 " + pair({corner.x(), box.height() - corner.y()}) + " cm\n";
    if (!ink.picture.isNull()) {
        const QRectF &place = ink.picturePlace;
        text += "q " + numberText(place.width()) + " 0 0 " + numberText(-place.height()) + " "
            + pair(place.bottomLeft()) + " cm /Picture Do Q\n";
    }
    return text + "1 J 1 j\n" + colourOperator(ink.colour) + linesOf(ink.lines);
}

} // namespace

Appearance makeAppearance(
    Revision &revision, const Ink &ink, const QSizeF &place, int rotation, const QPDFObjectHandle &sealed)
{
    const double scale = std::min(place.width() / ink.canvas.width(), place.height() / ink.canvas.height());
    Appearance appearance;
    appearance.box = place / scale;
    QPDFObjectHandle dictionary = QPDFObjectHandle::parse("<< /Type /XObject /Subtype /Form >>");
    dictionary.replaceKey("/BBox", arrayOf(QRectF(QPointF(0, 0), appearance.box)));
    dictionary.replaceKey("/Matrix", QPDFObjectHandle::parse(matrixOf(rotation)));
    QPDFObjectHandle resources = QPDFObjectHandle::newDictionary();
    if (!ink.picture.isNull()) {
        QPDFObjectHandle objects = QPDFObjectHandle::newDictionary();
        objects.replaceKey("/Picture", pictureOf(revision, ink.picture));
        resources.replaceKey("/XObject", objects);
    }
    dictionary.replaceKey("/Resources", resources);
    if (!QPDFObjectHandle(sealed).isNull()) {
        QPDFObjectHandle files = QPDFObjectHandle::newArray();
        files.appendItem(sealed);
        dictionary.replaceKey("/AF", files);
    }
    appearance.form = revision.addStream(dictionary, contentOf(ink, appearance.box));
    return appearance;
}

} // namespace documents
