/// @file
/// The files of a captured signature: all of them, or none.
#ifndef CAPTUREOUTPUTS_H
#define CAPTUREOUTPUTS_H

#include "ink/inkformats.h"
#include "outputfile.h"

#include <QStringList>

#include <memory>
#include <vector>

class HeadlessPad;

struct CapturedFile
{
    QString name;
    const InkFormat *format;
    qint64 bytes;
};

/// The library's own text of the ink record.
QByteArray inkRecord(const HeadlessPad &pad);

class CaptureOutputs
{
public:
    /// Throws a Failure when two of the paths are one file.
    static void needDifferent(const QStringList &paths);

    /// Opens every file now, so that a wrong path is noticed before the customer signs. Throws a Failure.
    explicit CaptureOutputs(const QStringList &paths);

    /// Writes all files, checks every byte of each, puts them in place and calls `tell`.
    void write(const HeadlessPad &pad, int dpi, const std::function<void()> &tell);

    std::vector<CapturedFile> files() const;

private:
    struct Output
    {
        const InkFormat *format;
        std::unique_ptr<OutputFile> file;
    };

    void writePicture(const HeadlessPad &pad, int dpi, Output &output) const;

    std::vector<Output> m_outputs;
    Leftover m_place; ///< the folder where the library writes its pictures
};

#endif
