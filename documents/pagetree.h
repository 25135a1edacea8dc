/// @file
/// The pages of a document in their order, with what they inherit. Loops and hostile depths end the search.
#ifndef DOCUMENTS_PAGETREE_H
#define DOCUMENTS_PAGETREE_H

#include <qpdf/QPDF.hh>

#include <vector>

namespace documents {

/// A page with its attributes, its own or inherited ones; null objects where it has neither.
struct TreePage
{
    QPDFObjectHandle page;
    QPDFObjectHandle resources;
    QPDFObjectHandle mediaBox;
    QPDFObjectHandle cropBox;
    QPDFObjectHandle rotate;
};

/// Leaves out pages that are direct objects, because nothing can be added to them.
std::vector<TreePage> pagesOf(QPDF &pdf);

} // namespace documents

#endif
