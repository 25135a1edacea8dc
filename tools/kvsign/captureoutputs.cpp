#include "captureoutputs.h"

#include "failure.h"
#include "headlesspad.h"
#include "plainio.h"
#include "unwritable.h"
#include "wholepicture.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSet>

#include <sys/stat.h>

namespace {

void writeInk(const QByteArray &record, const InkFormat &format, OutputFile &file)
{
    if (record.isEmpty())
        throw failed(QString("%1: nothing was written on the pad").arg(file.name()));
    QBuffer text;
    text.setData(record);
    text.open(QIODevice::ReadOnly);
    const std::unique_ptr<PointSource> source = formatOfName("ink")->read(text, "the ink record");
    const std::unique_ptr<PointSink> sink = format.write(file.device());
    pour(*source, *sink);
}

QByteArray privateName()
{
    return QFile::encodeName(plainio::temporaryFolder()) + "/kvsign-"
        + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
}

} // namespace

QByteArray inkRecord(const HeadlessPad &pad)
{
    char *text = pad->Base64Encode(pad->type, EBITI_INK);
    const QByteArray record(text);
    pad->Base64EncodeFree(pad->type, text);
    return record;
}

void CaptureOutputs::needDifferent(const QStringList &paths)
{
    QSet<QString> places;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        const QString place = file.exists() ? file.canonicalFilePath() : QDir::cleanPath(file.absoluteFilePath());
        if (places.contains(place))
            throw misused(QString("%1 is there twice").arg(path));
        places.insert(place);
    }
}

CaptureOutputs::CaptureOutputs(const QStringList &paths)
    : m_place(Leftover::Kind::Folder, privateName())
{
    for (const QString &path : paths) {
        const InkFormat *format = formatOfPath(path);
        if (format == nullptr)
            throw misused(QString("%1: the suffix says none of the formats %2").arg(path, formatNames().join(", ")));
        m_outputs.push_back({format, std::make_unique<OutputFile>(path)});
    }
    if (mkdir(m_place.path().constData(), 0700) != 0)
        plainio::throwErrno(QFile::decodeName(m_place.path()));
}

void CaptureOutputs::write(const HeadlessPad &pad, int dpi, const std::function<void()> &tell)
{
    const QByteArray record = inkRecord(pad);
    for (Output &output : m_outputs) {
        if (output.format->imageType != 0)
            writePicture(pad, dpi, output);
        else
            writeInk(record, *output.format, *output.file);
    }
    std::vector<OutputFile *> files;
    for (const Output &output : m_outputs)
        files.push_back(output.file.get());
    OutputFile::commit(files, tell);
}

void CaptureOutputs::writePicture(const HeadlessPad &pad, int dpi, Output &output) const
{
    const QString place = QFile::decodeName(m_place.path()) + "/picture." + output.format->name;
    std::wstring path = place.toStdWString();
    const int level = dpi == 150 ? IDLI_150DPI : IDLI_300DPI;
    const int result = pad->SaveDrawingImage(pad->type, output.format->imageType, path.data(), level);
    if (result == ARI_INK_EMPTY && pad->GetTotalInkPointsNumber(pad->type) <= 0)
        throw failed(QString("%1: nothing was written on the pad").arg(output.file->name()));
    QFile picture(place);
    const bool isThere = result == ARI_SUCCESS && picture.open(QIODevice::ReadOnly);
    const QByteArray content = isThere ? picture.readAll() : QByteArray();
    if (!isWholePicture(output.format->imageType, content))
        throw failed(QString("%1: the picture could not be made whole; is there room in %2?")
                         .arg(output.file->name(), QDir::tempPath()));
    if (output.file->device().write(content) != content.size())
        throw unwritable(output.file->device());
    picture.remove();
}

std::vector<CapturedFile> CaptureOutputs::files() const
{
    std::vector<CapturedFile> files;
    for (const Output &output : m_outputs)
        files.push_back({output.file->name(), output.format, output.file->size()});
    return files;
}
