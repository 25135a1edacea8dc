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

} // namespace signdesk

#endif
