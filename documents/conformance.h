/// @file
/// What a document says that it is besides a PDF, where that says something about signatures.
#ifndef DOCUMENTS_CONFORMANCE_H
#define DOCUMENTS_CONFORMANCE_H

#include <qpdf/QPDF.hh>

namespace documents {

/// The part of PDF/A that the document's metadata claims, such as 2; 0 for none.
int archivePart(QPDF &pdf);

/// How far the form is one of XFA, which some programs show instead of the pages.
enum class Xfa
{
    None,
    Beside, ///< the pages are the same form
    Instead ///< the pages are made from it when it is shown; those in the file only say so
};

Xfa xfaOf(QPDF &pdf);

} // namespace documents

#endif
