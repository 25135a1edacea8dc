#include "structuretree.h"

#include <algorithm>
#include <set>

namespace documents {

namespace {

/// Every leaf of a number tree. Loops end the search.
std::vector<QPDFObjectHandle> leavesOf(QPDFObjectHandle tree)
{
    std::vector<QPDFObjectHandle> leaves, waiting{tree};
    std::set<QPDFObjGen> seen;
    while (!waiting.empty()) {
        QPDFObjectHandle node = waiting.back();
        waiting.pop_back();
        if (!node.isDictionary() || (node.isIndirect() && !seen.insert(node.getObjGen()).second))
            continue;
        if (node.getKey("/Nums").isArray())
            leaves.push_back(node);
        if (node.getKey("/Kids").isArray()) {
            for (const QPDFObjectHandle &kid : node.getKey("/Kids").getArrayAsVector())
                waiting.push_back(kid);
        }
    }
    return leaves;
}

constexpr long long kMostKey = 1 << 30;

} // namespace

StructureTree::StructureTree(Revision &revision)
    : m_revision(revision)
    , m_root(revision.pdf().getRoot().getKey("/StructTreeRoot"))
    , m_isTagged(m_root.isDictionary() && m_root.isIndirect())
{
}

/// Takes the next free key of the parent tree.
long long StructureTree::takeKey()
{
    QPDFObjectHandle next = m_root.getKey("/ParentTreeNextKey");
    long long key = next.isInteger() ? std::clamp(next.getIntValue(), 0LL, kMostKey) : 0;
    for (QPDFObjectHandle leaf : leavesOf(m_root.getKey("/ParentTree"))) {
        QPDFObjectHandle pairs = leaf.getKey("/Nums");
        for (int i = 0; i + 1 < pairs.getArrayNItems(); i += 2) {
            if (pairs.getArrayItem(i).isInteger())
                key = std::max(key, std::min(pairs.getArrayItem(i).getIntValue(), kMostKey) + 1);
        }
    }
    m_root.replaceKey("/ParentTreeNextKey", QPDFObjectHandle::newInteger(key + 1));
    m_revision.touch(m_root);
    return key;
}

/// Adds an entry at the end, because its key is larger than all others.
void StructureTree::enter(long long key, const QPDFObjectHandle &value)
{
    QPDFObjectHandle tree = m_revision.dictionaryIn(m_root, "/ParentTree");
    if (!tree.hasKey("/Kids")) {
        QPDFObjectHandle pairs = m_revision.arrayIn(tree, "/Nums");
        pairs.appendItem(QPDFObjectHandle::newInteger(key));
        pairs.appendItem(value);
        return;
    }
    QPDFObjectHandle leaf = QPDFObjectHandle::newDictionary(), limits = QPDFObjectHandle::newArray();
    limits.appendItem(QPDFObjectHandle::newInteger(key));
    limits.appendItem(QPDFObjectHandle::newInteger(key));
    leaf.replaceKey("/Limits", limits);
    QPDFObjectHandle pairs = QPDFObjectHandle::newArray();
    pairs.appendItem(QPDFObjectHandle::newInteger(key));
    pairs.appendItem(value);
    leaf.replaceKey("/Nums", pairs);
    m_revision.arrayIn(tree, "/Kids").appendItem(m_revision.add(leaf));
}

QPDFObjectHandle StructureTree::addElement(
    const char *type, const QPDFObjectHandle &page, const QPDFObjectHandle &kid, const std::string &text)
{
    QPDFObjectHandle parent = m_root, kids = m_root.getKey("/K");
    QPDFObjectHandle first = kids.isArray() && kids.getArrayNItems() == 1 ? kids.getArrayItem(0) : kids;
    if (first.isDictionary() && first.isIndirect() && first.hasKey("/S"))
        parent = first; // the element of the whole document
    QPDFObjectHandle element = QPDFObjectHandle::parse("<< /Type /StructElem >>");
    element.replaceKey("/S", QPDFObjectHandle::newName(type));
    element.replaceKey("/P", parent);
    element.replaceKey("/Pg", page);
    element.replaceKey("/K", kid);
    element.replaceKey("/Alt", QPDFObjectHandle::newUnicodeString(text));
    const QPDFObjectHandle added = m_revision.add(element);
    kids = parent.getKey("/K");
    if (!kids.isArray() && !kids.isNull()) {
        QPDFObjectHandle one = QPDFObjectHandle::newArray();
        one.appendItem(kids);
        parent.replaceKey("/K", one);
    }
    m_revision.arrayIn(parent, "/K").appendItem(added);
    return added;
}

/// The parent tree's array for a page's content, with an element for each of its numbers. Makes it if there is none.
QPDFObjectHandle StructureTree::elementsOfPage(QPDFObjectHandle page)
{
    QPDFObjectHandle key = page.getKey("/StructParents");
    for (QPDFObjectHandle leaf : leavesOf(m_root.getKey("/ParentTree"))) {
        QPDFObjectHandle pairs = leaf.getKey("/Nums");
        for (int i = 0; key.isInteger() && i + 1 < pairs.getArrayNItems(); i += 2) {
            QPDFObjectHandle number = pairs.getArrayItem(i), elements = pairs.getArrayItem(i + 1);
            if (!number.isInteger() || number.getIntValue() != key.getIntValue() || !elements.isArray())
                continue;
            // Write the innermost indirect object again.
            const QPDFObjectHandle tree = m_root.getKey("/ParentTree");
            const QPDFObjectHandle owners[] = {elements, pairs, leaf, tree, m_root};
            m_revision.touch(*std::find_if(std::begin(owners), std::end(owners),
                [](const QPDFObjectHandle &owner) { return QPDFObjectHandle(owner).isIndirect(); }));
            return elements;
        }
    }
    const long long added = takeKey();
    page.replaceKey("/StructParents", QPDFObjectHandle::newInteger(added));
    m_revision.touch(page);
    QPDFObjectHandle elements = m_revision.add(QPDFObjectHandle::newArray());
    enter(added, elements);
    return elements;
}

int StructureTree::addFigure(QPDFObjectHandle page, const std::string &alternativeText)
{
    QPDFObjectHandle elements = elementsOfPage(page);
    const int number = elements.getArrayNItems();
    elements.appendItem(addElement("/Figure", page, QPDFObjectHandle::newInteger(number), alternativeText));
    return number;
}

void StructureTree::addWidget(QPDFObjectHandle page, QPDFObjectHandle widget, const std::string &alternativeText)
{
    QPDFObjectHandle kid = QPDFObjectHandle::parse("<< /Type /OBJR >>");
    kid.replaceKey("/Obj", widget);
    kid.replaceKey("/Pg", page);
    const long long key = takeKey();
    enter(key, addElement("/Form", page, kid, alternativeText));
    widget.replaceKey("/StructParent", QPDFObjectHandle::newInteger(key));
    m_revision.touch(widget);
}

} // namespace documents
