/// @file
/// A file of ink points, or standard input, that can be read from the start several times.
#ifndef INKINPUT_H
#define INKINPUT_H

#include "../commandline.h"
#include "../plainio.h"
#include "inkformats.h"

#include <QFile>

#include <memory>

class Progress;

inline constexpr Option kFromOption{"from f", "FORMAT",
    "Format of the input: ink, csv, json or inkml. Without it the suffix or the content says it.", nullptr,
    "ink csv json inkml"};

class InkInput
{
public:
    /// "-" is standard input. Without a format's name the suffix or the content says which one it is.
    InkInput(const QString &path, const QString &formatName, Progress &progress);

    /// Starts reading at the first point; `work` is shown in the progress line. next() throws at the end when there was
    /// no point, and when the user interrupts. Valid until the next call.
    PointSource &points(const QString &work);

    QString name() const { return m_name; }
    const InkFormat &format() const { return *m_format; }

private:
    plainio::Descriptor spool(int descriptor, bool isNamed) const;
    const InkFormat *formatOfNames(const QString &formatName, const QString &path) const;

    QString m_name;
    Progress &m_progress;
    QFile m_device;
    const InkFormat *m_format = nullptr;
    std::unique_ptr<PointSource> m_points;
};

#endif
