#include "signatureoutput.h"

#include "memoryfile.h"
#include "safefile.h"
#include "trouble.h"
#include "wholefiles.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>

#include <algorithm>

namespace signdesk {

namespace {

struct OutputWords
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::SignatureOutput)
};

constexpr int kMarginAroundInk = 6; ///< canvas pixels

/// While this object lives, the library cuts its pictures to the ink, if that is wanted.
class CutToInk
{
public:
    CutToInk(const PadFamily &pad, bool isWanted)
        : m_pad(pad)
    {
        m_pad.SetSaveClipImageMargin(m_pad.type, isWanted, kMarginAroundInk, kMarginAroundInk);
    }
    ~CutToInk() { m_pad.SetSaveClipImageMargin(m_pad.type, false, 0, 0); }
    CutToInk(const CutToInk &) = delete;
    CutToInk &operator=(const CutToInk &) = delete;

private:
    const PadFamily &m_pad;
};

/// The canvas as the library encodes it in memory, with the resolution set that its files have.
QByteArray pictureFile(const PadFamily &pad, const SignatureFormat &format, int dotsPerInch)
{
    const bool isTransparent = format.imageType == ITI_PNG;
    char *const text = pad.Base64Encode(pad.type, isTransparent ? EBITI_PNG : EBITI_BITMAP);
    QImage picture = QImage::fromData(QByteArray::fromBase64(text));
    pad.Base64EncodeFree(pad.type, text);
    const int dotsPerMetre = static_cast<int>(dotsPerInch / 0.0254);
    picture.setDotsPerMeterX(dotsPerMetre);
    picture.setDotsPerMeterY(dotsPerMetre);
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, format.suffix) ? content : QByteArray();
}

/// Lets the library write the file. It does not report when only a part could be written.
QByteArray drawnFile(const PadSession &session, const SignatureFormat &format, bool isFine)
{
    const PadFamily &pad = session.model();
    const int lines = session.lines();
    MemoryFile file;
    std::wstring path = file.path().toStdWString();
    if (pad.SaveDrawingImage(pad.type, format.imageType, path.data(), isFine ? IDLI_300DPI : IDLI_150DPI)
        != ARI_SUCCESS)
        return {};
    const QByteArray content = file.content();
    const bool isWhole = format.imageType == ITI_PDF ? isWholePdf(content) : linesOfSvg(content) >= lines;
    return isWhole ? content : QByteArray();
}

/// The complete file, which never goes through a disk: that may be full. Throws a Trouble.
QByteArray fileOf(const PadSession &session, const SignatureFormat &format, const OutputOptions &options)
{
    QByteArray content;
    if (session.isOpen()) {
        const CutToInk cut(session.model(), options.cutsToInk);
        const bool isDrawn = format.imageType == ITI_PDF || format.imageType == ITI_SVG;
        content = isDrawn ? drawnFile(session, format, options.isFine)
                          : pictureFile(session.model(), format, options.isFine ? 300 : 150);
    }
    if (content.isEmpty())
        throw Trouble{OutputWords::tr("There is no whole picture of the signature."),
            OutputWords::tr("See that something is written in the field, and that the computer has memory to spare. "
                            "Nothing was written; the signature is still here.")};
    return content;
}

} // namespace

const std::vector<SignatureFormat> &signatureFormats()
{
    static const std::vector<SignatureFormat> formats{
        {ITI_PNG, "png", "PNG"},
        {ITI_SVG, "svg", "SVG"},
        {ITI_PDF, "pdf", "PDF"},
        {ITI_JPEG, "jpg", "JPEG"},
        {ITI_BITMAP, "bmp", "BMP"},
    };
    return formats;
}

const SignatureFormat *formatOf(const QString &path)
{
    const auto &formats = signatureFormats();
    const QString suffix = QFileInfo(path).suffix().toLower();
    const auto found = std::find_if(formats.begin(), formats.end(),
        [&](const SignatureFormat &format) { return suffix == QLatin1String(format.suffix); });
    return found == formats.end() ? nullptr : &*found;
}

void saveSignature(const PadSession &session, const QString &path, const OutputOptions &options)
{
    const SignatureFormat *format = formatOf(path);
    if (format == nullptr)
        throw Trouble{OutputWords::tr("%1: a signature is not written in this format.").arg(QFileInfo(path).fileName()),
            OutputWords::tr("Let the name end with .png, .svg, .pdf, .jpg or .bmp.")};
    writeFile(path, fileOf(session, *format, options));
}

} // namespace signdesk
