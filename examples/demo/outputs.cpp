#include "outputs.h"

#include "failure.h"

#include <QFile>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <cmath>

namespace {

struct FileType
{
    const char *name;
    const char *suffix;
    int imageType;
};

constexpr FileType kFileTypes[] = {
    {"BMP", "bmp", ITI_BITMAP},
    {"JPEG", "jpg", ITI_JPEG},
    {"PNG", "png", ITI_PNG},
    {"PDF", "pdf", ITI_PDF},
    {"SVG", "svg", ITI_SVG},
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The page's drawing commands, which a PDF file holds compressed.
QByteArray drawingCommands(const QByteArray &content)
{
    const int filter = content.lastIndexOf("/Filter /FlateDecode");
    const int stream = content.indexOf("stream", filter);
    if (filter < 0 || stream < 0)
        return {};
    const QByteArray unknownSize(4, '\0');
    return qUncompress(unknownSize + content.mid(content.indexOf('\n', stream) + 1));
}

/// The picture inside the page. The page is measured in 72nds of an inch, scaled to the picture's pixels.
void readPdf(const QByteArray &content, WrittenFile &file)
{
    static const QRegularExpression width("/Width (\\d+)"), height("/Height (\\d+)"),
        scale("(0\\.\\d+) 0 0 -0\\.\\d+ ");
    const QString text = QString::fromLatin1(content.constData(), content.size());
    file.pixels = {width.match(text).captured(1).toInt(), height.match(text).captured(1).toInt()};
    const double unitsPerPixel = scale.match(drawingCommands(content)).captured(1).toDouble();
    file.dpi = unitsPerPixel > 0 ? static_cast<int>(std::lround(72 / unitsPerPixel)) : 0;
}

void readSvg(const QByteArray &content, WrittenFile &file)
{
    file.pixels = QSvgRenderer(content).viewBox().size();
    static const QRegularExpression inches("width=\"([0-9.]+)mm\"");
    const double millimetres = inches.match(QString::fromUtf8(content)).captured(1).toDouble();
    file.dpi = millimetres > 0 ? static_cast<int>(std::lround(file.pixels.width() * 25.4 / millimetres)) : 0;
}

void readImage(const QByteArray &content, WrittenFile &file)
{
    const QImage image = QImage::fromData(content);
    file.pixels = image.size();
    file.dpi = file.inkPoints > 0 ? static_cast<int>(std::lround(image.dotsPerMeterX() * 0.0254)) : 0;
}

void readBack(const QByteArray &content, WrittenFile &file)
{
    if (file.type == "PDF")
        readPdf(content, file);
    else if (file.type == "SVG")
        readSvg(content, file);
    else
        readImage(content, file);
}

QString typeOf(const QString &name)
{
    for (const FileType &type : kFileTypes) {
        if (name.endsWith(QString(".") + type.suffix))
            return type.name;
    }
    return {};
}

} // namespace

QStringList WrittenFile::titles()
{
    return {"file", "type", "pixels", "dpi", "bytes", "ink points"};
}

QStringList WrittenFile::row() const
{
    return {name, type, QString("%1 x %2").arg(pixels.width(), 4).arg(pixels.height(), 3),
        dpi > 0 ? QString::number(dpi) : "-", QString::number(bytes), inkPoints > 0 ? QString::number(inkPoints) : "-"};
}

OutputDirectory::OutputDirectory(const QString &path)
    : m_directory(path)
{
    if (!m_directory.mkpath("."))
        throw Failure{QString("The directory %1 cannot be created.").arg(path),
            "See that the place exists and that you may write there."};
}

void OutputDirectory::saveSignature(const OpenedPad &pad, int inkPoints)
{
    for (const FileType &type : kFileTypes) {
        const QString name = QString("%1.%2").arg(QString(pad->model).toLower(), type.suffix);
        QFile::remove(m_directory.filePath(name));
        std::wstring path = m_directory.filePath(name).toStdWString();
        if (pad->SaveDrawingImage(pad->type, type.imageType, path.data(), IDLI_300DPI) != ARI_SUCCESS)
            throw cannotWrite(name);
        add(name, inkPoints);
    }
}

void OutputDirectory::saveText(const QString &name, const char *base64, int inkPoints)
{
    QFile file(m_directory.filePath(name));
    const QByteArray content = QByteArray::fromBase64(base64);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw cannotWrite(name);
    file.close();
    add(name, inkPoints);
}

void OutputDirectory::saveImage(const QString &name, const QImage &image)
{
    if (!image.save(m_directory.filePath(name)))
        throw cannotWrite(name);
    add(name, 0);
}

void OutputDirectory::add(const QString &name, int inkPoints)
{
    const QByteArray content = contentOf(m_directory.filePath(name));
    WrittenFile file;
    file.name = name;
    file.type = typeOf(name);
    file.bytes = content.size();
    file.inkPoints = inkPoints;
    readBack(content, file);
    if (file.pixels.isEmpty())
        throw cannotWrite(name);
    m_files.push_back(file);
}

Failure OutputDirectory::cannotWrite(const QString &name) const
{
    return {QString("%1 could not be written, or cannot be read back.").arg(m_directory.filePath(name)),
        "See that there is space on the disk and that you may write there."};
}
