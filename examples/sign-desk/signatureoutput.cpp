#include "signatureoutput.h"

#include "safefile.h"
#include "trouble.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

namespace signdesk {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(signdesk::SignatureOutput)
};

constexpr int kMarginAroundInk = 6; ///< canvas pixels

/// The library's own file, taken from a place where it can always be written. Empty when there is none.
QByteArray fileOf(const PadSession &session, const SignatureFormat &format, const OutputOptions &options)
{
    const QTemporaryDir directory;
    const PadModel &pad = session.model();
    const QString path = directory.filePath(QStringLiteral("signature.") + QLatin1String(format.suffix));
    std::wstring widePath = path.toStdWString();
    pad.SetSaveClipImageMargin(pad.type, options.cutsToInk, kMarginAroundInk, kMarginAroundInk);
    const int result =
        pad.SaveDrawingImage(pad.type, format.imageType, widePath.data(), options.isFine ? IDLI_300DPI : IDLI_150DPI);
    pad.SetSaveClipImageMargin(pad.type, false, 0, 0);
    QFile file(path);
    return result == ARI_SUCCESS && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
        throw Trouble{Words::tr("%1: a signature is not written in this format.").arg(QFileInfo(path).fileName()),
            Words::tr("Let the name end with .png, .svg, .pdf, .jpg or .bmp.")};
    const QByteArray content = session.isOpen() ? fileOf(session, *format, options) : QByteArray();
    if (content.isEmpty())
        throw Trouble{Words::tr("There is no picture of the signature."),
            Words::tr("See that something is written in the field, and that there is space for temporary files.")};
    writeFile(path, [&](QIODevice &file) { return file.write(content) == content.size(); });
}

FieldContent contentOf(const PadSession &session)
{
    if (!session.isOpen())
        return {};
    // A fingerprint stands in the file in a place of its own choice; the page has another for it.
    static const QRegularExpression picture(QStringLiteral("<image[^>]*/>"));
    QString svg = QString::fromUtf8(fileOf(session, *formatOf(QStringLiteral("x.svg")), {false, true}));
    FieldContent content;
    content.hasFingerprint = svg.contains(picture);
    if (session.points() > 0)
        content.strokes = svg.remove(picture).toUtf8();
    return content;
}

} // namespace signdesk
