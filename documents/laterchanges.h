/// @file
/// What became of a document after a signature: what PDF allows then, and what it does not.
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

/// Compares the document as it was signed with what it is now. Objects that the file has at the same place are the
/// same; each other one that was there must be one that may change, and only in what may change of it.
/// @param signature the dictionary, as it is in the signed document: its own locks count
LaterChanges changesAfter(Reader &signedOne, Reader &now, QPDFObjectHandle signature);

} // namespace documents

#endif
