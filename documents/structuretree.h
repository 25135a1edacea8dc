/// @file
/// Keeps a tagged document tagged: what is added gets an element with an alternative text.
#ifndef DOCUMENTS_STRUCTURETREE_H
#define DOCUMENTS_STRUCTURETREE_H

#include "revision.h"

namespace documents {

class StructureTree
{
public:
    explicit StructureTree(Revision &revision);

    bool isTagged() const { return m_isTagged; }

    /// A figure that is a part of the page's content: the number with which the content is to mark it.
    int addFigure(QPDFObjectHandle page, const std::string &alternativeText);

    /// A form field's widget, which must be indirect already.
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
