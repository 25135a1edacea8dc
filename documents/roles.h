/// @file
/// What the objects of a document are for: what its pages show, and what lies beside them.
#ifndef DOCUMENTS_ROLES_H
#define DOCUMENTS_ROLES_H

#include "pagetree.h"

#include <qpdf/QPDF.hh>

#include <map>
#include <set>

namespace documents {

/// What no page shows.
enum class Beside
{
    Information, ///< title, author and so on
    Metadata,
    Verifying, ///< certificates and lists of revoked ones
    Tags ///< the structure that is read aloud
};

/// The objects beside the pages; without those that something else in the document refers to as well.
std::map<QPDFObjGen, Beside> besidePages(QPDF &pdf);

/// What the pages and their annotations draw, with all that belongs to it.
std::set<QPDFObjGen> shownOn(const std::vector<TreePage> &pages);

} // namespace documents

#endif
