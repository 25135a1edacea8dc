/// @file
/// The ink that is put into a document: from a file, or from a pad on which somebody signs now.
#ifndef SIGNINGINK_H
#define SIGNINGINK_H

#include "ink/inkinput.h"
#include "pictures/pictures.h"

#include <documents/ink.h>

#include <memory>

/// Ink that was captured, as a file without a name in memory that is read as any other.
class CapturedInk
{
public:
    explicit CapturedInk(const QByteArray &record);

    QString path() const;

private:
    plainio::Descriptor m_file;
};

/// The lines that the library draws of the points, in pixels of its canvas.
documents::Ink inkLines(InkInput &input, const PictureSettings &settings);

/// The points with everything that a record holds.
QByteArray inkml(InkInput &input);

#endif
