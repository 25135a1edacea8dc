/// @file
/// What a document's certification and the locks of its signatures allow.
#ifndef DOCUMENTS_PERMISSIONS_H
#define DOCUMENTS_PERMISSIONS_H

#include "formfields.h"

#include <QString>

#include <string>
#include <vector>

namespace documents {

enum class Certification
{
    None = 0,
    NoChanges = 1,
    Forms = 2, ///< forms may be filled and signed
    Annotations = 3 ///< and annotations added
};

/// What the owner of an encrypted document may keep from whoever has only the password for reading.
enum class OwnersRight
{
    ChangePages,
    AddFields,
    FillFields ///< and sign them
};

/// Why an encrypted document may not be changed so, as a sentence that follows its name; empty where it may, or where
/// it was opened with its owner's password.
QString forbiddenByOwner(QPDF &pdf, OwnersRight right);

/// The strictest certification of all signatures of fields.
Certification certificationBySignatures(const std::vector<FormField> &fields);

/// The same with the one that the catalogue claims, which may be nobody's signature: it can forbid something, but
/// allows nothing.
Certification certificationOf(QPDF &pdf, const std::vector<FormField> &fields);

/// Whether a signature forbids that this field changes.
bool isLocked(const std::vector<FormField> &fields, const std::string &name);

/// Whether one signature forbids that this field changes.
bool isLockedBy(QPDFObjectHandle signature, const std::string &name);

} // namespace documents

#endif
