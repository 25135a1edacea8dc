/// @file
/// The changes to a document after it was signed: those that PDF allows then, and all others.
#ifndef DOCUMENTS_LATERCHANGES_H
#define DOCUMENTS_LATERCHANGES_H

#include "reader.h"

#include <QStringList>

namespace documents {

struct LaterChanges
{
    QStringList added; ///< allowed: signatures, form fields that were filled in
    QStringList changed; ///< everything else
};

/// Compares the document as it was signed with its present state. An object at the same place of the file is unchanged.
/// Any other object of the signed document must be one that may change, and only its parts that may change may differ.
/// @param end where the signed document ends in the file
/// @param signature the dictionary, as it is in the signed document: its own locks count
LaterChanges changesAfter(const Source &source, qint64 end, Reader &signedOne, Reader &now, QPDFObjectHandle signature);

} // namespace documents

#endif
