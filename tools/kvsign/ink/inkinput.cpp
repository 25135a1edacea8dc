#include "inkinput.h"

#include "../failure.h"
#include "../interruption.h"
#include "../progress.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kPointsPerLook = 1024;
constexpr qint64 kPeeked = 1 << 16;
constexpr qint64 kMostSpooled = qint64{4} << 30; // bytes: a month of writing without a pause

/// Passes points on and updates the progress line.
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
{
    m_format = formatOfNames(formatName, path); // an impossible format is reported before any file is opened
    plainio::Descriptor file;
    if (path != "-")
        file = plainio::openForReading(path);
    const int number = file.isOpen() ? file.number() : STDIN_FILENO;
    struct stat status = {};
    if (fstat(number, &status) != 0)
        plainio::throwErrno(m_name);
    if (S_ISDIR(status.st_mode))
        throw failed(QString("%1: is a directory").arg(m_name));
    if (!file.isOpen() || !S_ISREG(status.st_mode))
        file = spool(number, path != "-");
    if (!m_device.open(file.take(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        throw failed(QString("%1: %2").arg(m_name, m_device.errorString()));
    m_device.seek(0);
    if (m_format == nullptr)
        m_format = &formatOfContent(m_device.peek(kPeeked));
}

/// Copies an input that cannot be read twice, such as a pipe, to a temporary file without a name.
plainio::Descriptor InkInput::spool(int descriptor, bool isNamed) const
{
    QString explanation =
        isNamed ? QString("%1: waiting for a program that writes to this pipe").arg(m_name) : QString();
    plainio::Descriptor file = plainio::unnamedFile();
    qint64 size = 0;
    for (QByteArray piece = plainio::read(descriptor, m_name, explanation); !piece.isEmpty();
         piece = plainio::read(descriptor, m_name, {})) {
        size += piece.size();
        if (size > kMostSpooled)
            throw failed(QString("%1: there is no end to it").arg(m_name));
        plainio::writeAll(file.number(), piece.constData(), piece.size(), "a temporary file");
    }
    return file;
}

/// The format by option or suffix; null when only the content can tell.
const InkFormat *InkInput::formatOfNames(const QString &formatName, const QString &path) const
{
    const InkFormat *const format = formatName.isEmpty() ? formatOfPath(path) : formatOfName(formatName);
    const bool isUnknown = format == nullptr && !formatName.isEmpty();
    if (isUnknown || (format != nullptr && format->read == nullptr))
        throw misused(QString("%1: ink is not read from %2, but from %3")
                          .arg(m_name, isUnknown ? formatName : QString("a ") + format->meaning,
                              readableFormatNames().join(", ")));
    return format;
}

PointSource &InkInput::points(const QString &work)
{
    if (!m_device.seek(0))
        throw failed(QString("%1: %2").arg(m_name, m_device.errorString()));
    m_points = std::make_unique<WatchedSource>(m_format->read(m_device, m_name), m_device, m_name, work, m_progress);
    return *m_points;
}
