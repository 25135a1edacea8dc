/// @file
/// The pages of a document in their order, with what they inherit. Loops and hostile depths end the walk, not us.
#ifndef DOCUMENTS_PAGETREE_H
#define DOCUMENTS_PAGETREE_H

#include <qpdf/QPDF.hh>

#include <vector>

namespace documents {

/// A page and what its parents give it where it has none of its own; null objects where nobody does.
struct TreePage
{
    QPDFObjectHandle page;
    QPDFObjectHandle resources;
    QPDFObjectHandle mediaBox;
    QPDFObjectHandle cropBox;
    QPDFObjectHandle rotate;
};

/// Pages that are no indirect objects are left out: nothing can be added to them.
std::vector<TreePage> pagesOf(QPDF &pdf);

} // namespace documents

#endif
