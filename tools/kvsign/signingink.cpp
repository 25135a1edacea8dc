#include "signingink.h"

#include "failure.h"
#include "pictures/segments.h"

#include <QBuffer>

#include <sys/mman.h>

CapturedInk::CapturedInk(const QByteArray &record)
    : m_file(memfd_create("kvsign-ink", MFD_CLOEXEC))
{
    if (!m_file.isOpen())
        plainio::throwErrno("memory for the ink");
    plainio::writeAll(m_file.number(), record.constData(), record.size(), "memory for the ink");
}

QString CapturedInk::path() const
{
    return QString("/proc/self/fd/%1").arg(m_file.number());
}

documents::Ink inkLines(InkInput &input, const PictureSettings &settings)
{
    documents::Ink ink;
    ink.canvas = settings.part.size();
    ink.colour = settings.colour;
    Segments segments(settings);
    PointSource &points = input.points("reading the ink");
    POINTDATA point;
    while (points.next(point)) {
        const std::optional<Segment> segment = segments.take(point);
        if (segment.has_value())
            ink.lines.push_back({segment->line.p1(), segment->line.p2(), segment->width});
    }
    if (ink.lines.empty())
        throw failed(QString("%1: there is no line in it to sign with").arg(input.name()));
    return ink;
}

QByteArray inkml(InkInput &input)
{
    QBuffer document;
    document.open(QIODevice::WriteOnly);
    pour(input.points("sealing the pen data"), *formatOfName("inkml")->write(document));
    return document.data();
}
