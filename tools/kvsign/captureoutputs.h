/// @file
/// The files of a captured signature: all of them, or none.
#ifndef CAPTUREOUTPUTS_H
#define CAPTUREOUTPUTS_H

#include "ink/inkformats.h"
#include "outputfile.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <vector>

class OpenPad;

struct CapturedFile
{
    QString name;
    const InkFormat *format;
    qint64 bytes;
};

class CaptureOutputs
{
public:
    /// Opens every file already, so that nobody signs in vain. Throws a Failure.
    explicit CaptureOutputs(const QStringList &paths);

    void write(const OpenPad &pad, int dpi);

    std::vector<CapturedFile> files() const;

private:
    struct Output
    {
        const InkFormat *format;
        std::unique_ptr<OutputFile> file;
    };

    void writePicture(const OpenPad &pad, int dpi, Output &output);

    std::vector<Output> m_outputs;
    QTemporaryDir m_place; ///< where the library writes its pictures
};

#endif
