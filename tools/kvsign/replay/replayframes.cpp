#include "../failure.h"
#include "../outputfile.h"
#include "../pictures/rasterpicture.h"
#include "../unwritable.h"
#include "replay.h"

#include <QDir>
#include <QFile>

namespace {

constexpr int kMostFrames = 100000;

/// The frames so far; they go away unless they are kept.
class Frames
{
public:
    explicit Frames(const QString &directory)
        : m_directory(directory)
        , m_existed(m_directory.exists())
    {
        if (!m_directory.mkpath("."))
            throw failed(QString("%1: the directory cannot be made").arg(directory));
    }

    ~Frames()
    {
        for (const QString &name : m_written)
            QFile::remove(name);
        if (!m_kept && !m_existed)
            m_directory.rmdir(".");
    }

    Frames(const Frames &) = delete;
    Frames &operator=(const Frames &) = delete;

    void write(const QImage &image)
    {
        const QString name = m_directory.filePath(QString("frame-%1.png").arg(m_written.size() + 1, 5, 10, QChar('0')));
        OutputFile file(name);
        if (!image.save(&file.device(), "PNG"))
            throw unwritable(file.device());
        file.commit();
        m_written += name;
    }

    int keep()
    {
        const int count = m_written.size();
        m_written.clear();
        m_kept = true;
        return count;
    }

private:
    QDir m_directory;
    bool m_existed;
    bool m_kept = false;
    QStringList m_written;
};

/// Looks before anything is written, for a broken clock can make a replay of years.
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
