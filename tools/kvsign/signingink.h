/// @file
/// The ink that is put into a document: from a file, or from a pad on which somebody signs now.
#ifndef SIGNINGINK_H
#define SIGNINGINK_H

#include "ink/inkinput.h"
#include "pictures/pictures.h"

#include <documents/ink.h>

#include <memory>

/// Captured ink as a nameless file in memory, so that it can be read like any other file.
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

/// The points as InkML, with everything that a record holds.
QByteArray inkml(InkInput &input);

#endif
