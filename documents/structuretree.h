/// @file
/// Keeps a tagged document tagged: everything that is added gets an element with an alternative text.
#ifndef DOCUMENTS_STRUCTURETREE_H
#define DOCUMENTS_STRUCTURETREE_H

#include "revision.h"

namespace documents {

class StructureTree
{
public:
    explicit StructureTree(Revision &revision);

    bool isTagged() const { return m_isTagged; }

    /// Adds a figure of the page's content, and returns the number with which the content must mark it.
    int addFigure(QPDFObjectHandle page, const std::string &alternativeText);

    /// Adds a form field's widget, which must be an indirect object already.
    void addWidget(QPDFObjectHandle page, QPDFObjectHandle widget, const std::string &alternativeText);

private:
    QPDFObjectHandle addElement(
        const char *type, const QPDFObjectHandle &page, const QPDFObjectHandle &kid, const std::string &text);
    void enter(long long key, const QPDFObjectHandle &value);
    long long takeKey();
    QPDFObjectHandle elementsOfPage(QPDFObjectHandle page);

    Revision &m_revision;
    QPDFObjectHandle m_root;
    bool m_isTagged;
};

} // namespace documents

#endif
