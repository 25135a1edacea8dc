#include "roles.h"

#include "objectdifferences.h"

namespace documents {

std::map<QPDFObjGen, Beside> besidePages(QPDF &pdf)
{
    const std::set<std::string> toPages{"/Pg", "/Obj", "/Stm", "/AF", "/Ref"};
    QPDFObjectHandle root = pdf.getRoot();
    std::map<QPDFObjGen, Beside> beside;
    beside.emplace(pdf.getTrailer().getKey("/Info").getObjGen(), Beside::Information);
    beside.emplace(root.getKey("/Metadata").getObjGen(), Beside::Metadata);
    const std::pair<const char *, Beside> parts[] = {{"/StructTreeRoot", Beside::Tags}, {"/DSS", Beside::Verifying}};
    for (const auto &part : parts) {
        for (const QPDFObjGen &number : reachable(root.getKey(part.first), toPages))
            beside.emplace(number, part.second);
    }
    for (const auto &entry : root.getDictAsMap()) {
        if (entry.first == "/StructTreeRoot" || entry.first == "/DSS" || entry.first == "/Metadata")
            continue;
        for (const QPDFObjGen &seen : reachable(entry.second, {}))
            beside.erase(seen);
    }
    return beside;
}

std::set<QPDFObjGen> shownOn(const std::vector<TreePage> &pages)
{
    QPDFObjectHandle drawn = QPDFObjectHandle::newArray();
    for (const TreePage &page : pages) {
        drawn.appendItem(page.resources);
        for (const char *key : {"/Resources", "/Contents", "/Group"})
            drawn.appendItem(QPDFObjectHandle(page.page).getKey(key));
        QPDFObjectHandle annotations = QPDFObjectHandle(page.page).getKey("/Annots");
        if (!annotations.isArray())
            continue;
        for (QPDFObjectHandle annotation : annotations.getArrayAsVector()) {
            if (annotation.isDictionary())
                drawn.appendItem(annotation.getKey("/AP"));
        }
    }
    return reachable(drawn, {});
}

} // namespace documents
