/// @file
/// A file that comes to be at once and whole, or not at all.
#ifndef OUTPUTFILE_H
#define OUTPUTFILE_H

#include <QSaveFile>
#include <QString>
#include <QTemporaryFile>

#include <memory>

class OutputFile
{
public:
    /// "-" is standard output. Throws a Failure when nothing can be written there.
    explicit OutputFile(const QString &path);

    QIODevice &device() { return *m_device; }
    QString name() const { return m_name; }

    /// Writes what is still in memory. Where several files belong together all are finished before one is put in place.
    void finish();

    /// Puts the content in its place. Without it nothing is left behind.
    void commit();

    /// The content's size, once it is in its place.
    qint64 size() const { return m_size; }

private:
    void pass(QFile &target);

    QString m_name;
    QSaveFile m_file;
    QTemporaryFile m_spooled; ///< for what cannot be replaced: pipes, devices, standard output
    QFileDevice *m_device = nullptr;
    qint64 m_size = 0;
};

#endif
