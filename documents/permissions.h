/// @file
/// What a document's certification and the locks of its signatures allow.
#ifndef DOCUMENTS_PERMISSIONS_H
#define DOCUMENTS_PERMISSIONS_H

#include "formfields.h"

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

/// The strictest of all signatures.
Certification certificationOf(QPDF &pdf, const std::vector<FormField> &fields);

/// Whether a signature forbids that this field changes.
bool isLocked(const std::vector<FormField> &fields, const std::string &name);

/// Whether one signature forbids that this field changes.
bool isLockedBy(QPDFObjectHandle signature, const std::string &name);

} // namespace documents

#endif
