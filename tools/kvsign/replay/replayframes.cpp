#include "../checkeddevice.h"
#include "../failure.h"
#include "../leftovers.h"
#include "../pictures/rasterpicture.h"
#include "../signalpause.h"
#include "../unwritable.h"
#include "replay.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kMostFrames = 100000;

/// Collects the pictures in a temporary folder. When all are there they are moved to their places, all or none.
class Frames
{
public:
    explicit Frames(const QString &directory)
        : m_directory(directory)
        , m_existed(m_directory.exists())
        , m_staging(Leftover::Kind::Folder, nameIn(m_directory))
    {
        if (!m_directory.mkpath("."))
            throw failed(QString("%1: the directory cannot be made").arg(directory));
        if (mkdir(m_staging.path().constData(), 0700) != 0)
            plainio::throwErrno(directory);
    }

    ~Frames()
    {
        m_staging.clean();
        if (!m_kept && !m_existed)
            m_directory.rmdir(".");
    }

    Frames(const Frames &) = delete;
    Frames &operator=(const Frames &) = delete;

    void write(const QImage &image)
    {
        const QString name = m_directory.filePath(QString::fromLatin1(nameOf(++m_count)));
        CheckedDevice device;
        device.setObjectName(name);
        device.setFile(
            plainio::Descriptor(open(staged(m_count).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)));
        if (device.descriptor() < 0)
            plainio::throwErrno(name);
        if (!image.save(&device, "PNG") || !device.flush())
            throw unwritable(device);
    }

    int keep()
    {
        const SignalPause pause;
        for (int number = 1; number <= m_count; ++number) {
            if (exchange(number))
                continue;
            const int why = errno;
            for (int undone = number - 1; undone > 0; --undone)
                takeBack(undone);
            errno = why;
            plainio::throwErrno(m_directory.filePath(QString::fromLatin1(nameOf(number))));
        }
        m_kept = true;
        return m_count;
    }

private:
    static QByteArray nameIn(const QDir &directory)
    {
        return QFile::encodeName(directory.absolutePath()) + "/.kvsign-"
            + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
    }

    static QByteArray nameOf(int number)
    {
        return "frame-" + QByteArray::number(number).rightJustified(5, '0') + ".png";
    }
    QByteArray staged(int number) const { return m_staging.path() + '/' + nameOf(number); }
    QByteArray earlier(int number) const { return m_staging.path() + "/earlier-" + nameOf(number); }
    QByteArray target(int number) const { return QFile::encodeName(m_directory.absolutePath()) + '/' + nameOf(number); }

    /// Exchanges names with an earlier picture, which is kept until all are in place.
    bool exchange(int number) const
    {
        struct stat status = {};
        const bool isThere = lstat(target(number).constData(), &status) == 0;
        errno = EISDIR;
        if (isThere
            && (S_ISDIR(status.st_mode) || rename(target(number).constData(), earlier(number).constData()) != 0))
            return false;
        if (rename(staged(number).constData(), target(number).constData()) == 0)
            return true;
        rename(earlier(number).constData(), target(number).constData());
        return false;
    }

    void takeBack(int number) const
    {
        if (rename(earlier(number).constData(), target(number).constData()) != 0)
            unlink(target(number).constData());
    }

    QDir m_directory;
    bool m_existed;
    Leftover m_staging;
    int m_count = 0;
    bool m_kept = false;
};

/// Counts the pictures before writing any, because a broken clock in the record can make a replay last years.
void checkNumber(InkInput &input, double speed, double step)
{
    ReplayTimes times(speed);
    PointSource &points = input.points("counting frames");
    POINTDATA point;
    double end = 0;
    while (points.next(point))
        end = times.dueAt(point);
    if (end / step >= kMostFrames)
        throw failed(
            QString("there would be more than %1 pictures; --speed and --fps make them fewer").arg(kMostFrames));
}

} // namespace

int replayAsFrames(
    InkInput &input, const PictureSettings &settings, double speed, double framesPerSecond, const QString &directory)
{
    const double step = 1000 / framesPerSecond;
    checkNumber(input, speed, step);
    Frames frames(directory);
    RasterPicture picture(settings, false);
    ReplayTimes times(speed);
    double nextFrame = 0;
    PointSource &points = input.points("writing frames");
    POINTDATA point;
    while (points.next(point)) {
        for (const double due = times.dueAt(point); due > nextFrame; nextFrame += step)
            frames.write(picture.image());
        picture.put(point);
    }
    frames.write(picture.image());
    return frames.keep();
}
