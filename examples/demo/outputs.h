/// @file
/// Files that the demo writes, and what can be read back from them.
#ifndef OUTPUTS_H
#define OUTPUTS_H

#include "openedpad.h"

#include <QDir>
#include <QImage>
#include <QStringList>

#include <vector>

struct Failure;

/// A written file, as it was read back from the disk.
struct WrittenFile
{
    QString name;
    QString type;
    QSize pixels;
    int dpi = 0; ///< 0: the file has none
    qint64 bytes = 0;
    int inkPoints = 0; ///< 0: the file is not a signature

    QStringList row() const;
    static QStringList titles();
};

/// Collects the files of a demo run in one directory. Everything throws a Failure.
class OutputDirectory
{
public:
    explicit OutputDirectory(const QString &path);

    /// The signature as BMP, JPEG, PNG, PDF and SVG.
    void saveSignature(const OpenedPad &pad, int inkPoints);
    void saveText(const QString &name, const char *base64, int inkPoints);
    void saveImage(const QString &name, const QImage &image);

    const QDir &directory() const { return m_directory; }
    const std::vector<WrittenFile> &files() const { return m_files; }

private:
    void add(const QString &name, int inkPoints);
    Failure cannotWrite(const QString &name) const;

    QDir m_directory;
    std::vector<WrittenFile> m_files;
};

#endif
