/// @file
/// Adds something to what a page shows.
#ifndef DOCUMENTS_PAGECONTENT_H
#define DOCUMENTS_PAGECONTENT_H

#include "pagetree.h"
#include "revision.h"

#include <QTransform>

namespace documents {

class PageContent
{
public:
    PageContent(Revision &revision, const TreePage &page);

    /// The name under which the page's content may use this object from now on.
    std::string nameFor(const QPDFObjectHandle &object);

    /// Adds operators behind everything that the page shows now; the graphics state is as at its begin for them.
    void append(const std::string &operators);

private:
    Revision &m_revision;
    TreePage m_page;
    QPDFObjectHandle m_objects; ///< the page's own /XObject
    int m_names = 0;
};

/// `a b c d e f cm`
std::string matrixOperator(const QTransform &matrix);

} // namespace documents

#endif
