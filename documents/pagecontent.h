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

    /// Adds the object to the page's resources and returns its name there.
    std::string nameFor(const QPDFObjectHandle &object);

    /// Adds operators after the page's content. They start with the graphics state of the beginning of a page.
    void append(const std::string &operators);

private:
    Revision &m_revision;
    TreePage m_page;
    QPDFObjectHandle m_objects; ///< the page's own /XObject
    int m_names = 0;
};

/// Whether the page's content cannot be decoded, or ends within a text, a list or a picture: nobody would see what is
/// drawn behind it.
bool endsBrokenOff(const TreePage &page);

/// `a b c d e f cm`
std::string matrixOperator(const QTransform &matrix);

} // namespace documents

#endif
