#include "pagetree.h"

#include <algorithm>
#include <set>

namespace documents {

namespace {

/// A node's children that are still to be visited.
struct Level
{
    TreePage inherited;
    std::vector<QPDFObjectHandle> kids;
    size_t next = 0;
};

void inherit(TreePage &inherited, QPDFObjectHandle node)
{
    const std::pair<const char *, QPDFObjectHandle *> rows[] = {{"/Resources", &inherited.resources},
        {"/MediaBox", &inherited.mediaBox}, {"/CropBox", &inherited.cropBox}, {"/Rotate", &inherited.rotate}};
    for (const auto &row : rows) {
        QPDFObjectHandle own = node.getKey(row.first);
        if (!own.isNull())
            *row.second = own;
    }
}

} // namespace

std::vector<TreePage> pagesOf(QPDF &pdf)
{
    std::vector<TreePage> pages;
    std::set<QPDFObjGen> seen;
    const QPDFObjectHandle none = QPDFObjectHandle::newNull();
    std::vector<Level> levels;
    levels.push_back({{none, none, none, none, none}, {pdf.getRoot().getKey("/Pages")}});
    while (!levels.empty()) {
        Level &level = levels.back();
        if (level.next == level.kids.size()) {
            levels.pop_back();
            continue;
        }
        QPDFObjectHandle node = level.kids[level.next++];
        if (!node.isDictionary() || !node.isIndirect() || !seen.insert(node.getObjGen()).second)
            continue;
        TreePage inherited = level.inherited;
        inherit(inherited, node);
        if (node.getKey("/Kids").isArray()) {
            levels.push_back({inherited, node.getKey("/Kids").getArrayAsVector()});
        } else {
            inherited.page = node;
            pages.push_back(inherited);
        }
    }
    return pages;
}

} // namespace documents
