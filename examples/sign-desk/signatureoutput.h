/// @file
/// Files of the signature alone, as the library makes them.
#ifndef SIGNATUREOUTPUT_H
#define SIGNATUREOUTPUT_H

#include "padsession.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace signdesk {

struct OutputOptions
{
    bool cutsToInk = true;
    bool isFine = true; ///< 300 dots to the inch, else 150
};

/// A format that the library writes.
struct SignatureFormat
{
    int imageType; ///< IMAGE_TYPE_ID
    const char *suffix;
    const char *name;
};

const std::vector<SignatureFormat> &signatureFormats();

/// Null for an unknown suffix.
const SignatureFormat *formatOf(const QString &path);

/// Writes in the format of the path's suffix. Throws a Trouble rather than write a file that lacks ink.
void saveSignature(const PadSession &session, const QString &path, const OutputOptions &options);

/// What is on the canvas, for a page.
struct FieldContent
{
    QByteArray strokes; ///< an SVG picture of the whole field with all the ink, empty without ink
    bool hasFingerprint = false;
};

/// Throws a Trouble when some of it is missing.
FieldContent contentOf(const PadSession &session);

} // namespace signdesk

#endif
