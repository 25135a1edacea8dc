/// @file
/// What stands in the bytes behind a signed revision, as a program sees it that repairs a file instead of following its
/// cross-references.
#ifndef DOCUMENTS_APPENDEDBYTES_H
#define DOCUMENTS_APPENDEDBYTES_H

#include "source.h"

#include <qpdf/QPDF.hh>

namespace documents {

/// Whether there is something behind `begin` that belongs to none of the revisions: objects that the cross-references
/// do not name, though a number of theirs is in use, or bytes behind the end of the last revision.
/// @param dangling numbers that the signed revision refers to without having them
bool hasStrayBytes(const Source &source, qint64 begin, QPDF &now, const std::set<int> &dangling);

/// Whether nothing but blanks follows.
bool hasOnlyBlanks(const Source &source, qint64 begin);

} // namespace documents

#endif
