#include "captureoutputs.h"

#include "failure.h"
#include "openpad.h"
#include "unwritable.h"

#include <QBuffer>
#include <QFile>

namespace {

/// The library's own text of the ink record.
QByteArray inkRecord(const OpenPad &pad)
{
    char *text = pad->Base64Encode(pad->type, EBITI_INK);
    const QByteArray record(text);
    pad->Base64EncodeFree(pad->type, text);
    return record;
}

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

} // namespace

CaptureOutputs::CaptureOutputs(const QStringList &paths)
{
    for (const QString &path : paths) {
        const InkFormat *format = formatOfPath(path);
        if (format == nullptr)
            throw misused(QString("%1: the suffix says none of the formats %2").arg(path, formatNames().join(", ")));
        m_outputs.push_back({format, std::make_unique<OutputFile>(path)});
    }
    if (!m_place.isValid())
        throw failed(QString("%1: %2").arg(m_place.path(), m_place.errorString()));
}

void CaptureOutputs::write(const OpenPad &pad, int dpi)
{
    const QByteArray record = inkRecord(pad);
    for (Output &output : m_outputs) {
        if (output.format->imageType != 0)
            writePicture(pad, dpi, output);
        else
            writeInk(record, *output.format, *output.file);
    }
    for (Output &output : m_outputs)
        output.file->finish();
    for (Output &output : m_outputs)
        output.file->commit();
}

void CaptureOutputs::writePicture(const OpenPad &pad, int dpi, Output &output)
{
    const QString place = m_place.filePath(QString("picture.") + output.format->name);
    std::wstring path = place.toStdWString();
    const int level = dpi == 150 ? IDLI_150DPI : IDLI_300DPI;
    const int result = pad->SaveDrawingImage(pad->type, output.format->imageType, path.data(), level);
    if (result == ARI_INK_EMPTY && pad->GetTotalInkPointsNumber(pad->type) <= 0)
        throw failed(QString("%1: nothing was written on the pad").arg(output.file->name()));
    QFile picture(place);
    if (result != ARI_SUCCESS || !picture.open(QIODevice::ReadOnly) || picture.size() == 0)
        throw failed(QString("%1: the picture could not be made").arg(output.file->name()));
    const QByteArray content = picture.readAll();
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
