#include "inkinput.h"

#include "../failure.h"
#include "../interruption.h"
#include "../progress.h"

#include <QFileInfo>

#include <cstdio>

namespace {

constexpr int kPointsPerLook = 1024;
constexpr qint64 kPiece = 1 << 16;

/// Passes points on, and tells how far it is.
class WatchedSource : public PointSource
{
public:
    WatchedSource(std::unique_ptr<PointSource> source, QFile &device, const QString &name, const QString &work,
        Progress &progress)
        : m_source(std::move(source))
        , m_device(device)
        , m_name(name)
        , m_work(work)
        , m_progress(progress)
    {
    }

    bool next(POINTDATA &point) override
    {
        if (m_points % kPointsPerLook == 0) {
            throwIfInterrupted();
            m_progress.show(m_work, m_device.pos(), m_device.size());
        }
        if (m_source->next(point)) {
            ++m_points;
            return true;
        }
        if (m_device.error() != QFile::NoError)
            throw failed(QString("%1: %2").arg(m_name, m_device.errorString()));
        if (m_points == 0)
            throw failed(QString("%1: there is no ink point in it").arg(m_name));
        return false;
    }

private:
    std::unique_ptr<PointSource> m_source;
    QFile &m_device;
    QString m_name;
    QString m_work;
    Progress &m_progress;
    qint64 m_points = 0;
};

} // namespace

InkInput::InkInput(const QString &path, const QString &formatName, Progress &progress)
    : m_name(path == "-" ? QString("standard input") : path)
    , m_progress(progress)
    , m_file(path)
{
    const bool isOpen = path == "-" ? m_file.open(stdin, QIODevice::ReadOnly) : m_file.open(QIODevice::ReadOnly);
    if (!isOpen || QFileInfo(path).isDir())
        throw failed(QString("%1: %2").arg(m_name, isOpen ? QString("is a directory") : m_file.errorString()));
    if (path == "-" || m_file.isSequential())
        spool(m_file);
    m_format = &formatFor(formatName, path);
}

void InkInput::spool(QIODevice &device)
{
    if (!m_spooled.open())
        throw failed(QString("a temporary file: %1").arg(m_spooled.errorString()));
    for (QByteArray piece = device.read(kPiece); !piece.isEmpty(); piece = device.read(kPiece)) {
        throwIfInterrupted();
        if (m_spooled.write(piece) != piece.size())
            throw failed(QString("a temporary file: %1").arg(m_spooled.errorString()));
    }
    m_spooled.flush();
    m_device = &m_spooled;
}

const InkFormat &InkInput::formatFor(const QString &formatName, const QString &path)
{
    const InkFormat *format = formatName.isEmpty() ? formatOfPath(path) : formatOfName(formatName);
    if (format == nullptr && formatName.isEmpty()) {
        m_device->seek(0);
        format = &formatOfContent(m_device->peek(kPiece));
    }
    if (format == nullptr || format->read == nullptr)
        throw misused(QString("%1: ink is not read from %2, but from %3")
                          .arg(m_name, format == nullptr ? formatName : QString("a ") + format->meaning,
                              readableFormatNames().join(", ")));
    return *format;
}

PointSource &InkInput::points(const QString &work)
{
    if (!m_device->seek(0))
        throw failed(QString("%1: %2").arg(m_name, m_device->errorString()));
    m_points = std::make_unique<WatchedSource>(m_format->read(*m_device, m_name), *m_device, m_name, work, m_progress);
    return *m_points;
}
