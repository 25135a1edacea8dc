#include "formfields.h"

#include <algorithm>
#include <set>

namespace documents {

namespace {

constexpr int kDeepest = 100; // forms that people make are never so deep

struct Node
{
    QPDFObjectHandle object;
    std::string prefix;
    std::string type;
    int depth;
};

bool isField(QPDFObjectHandle kid)
{
    return kid.isDictionary() && kid.hasKey("/T");
}

std::string typeOf(const Node &node)
{
    QPDFObjectHandle object = node.object;
    QPDFObjectHandle own = object.getKey("/FT");
    return own.isName() ? own.getName() : node.type;
}

std::string nameOf(const Node &node)
{
    QPDFObjectHandle own = QPDFObjectHandle(node.object).getKey("/T");
    if (!own.isString())
        return node.prefix;
    return node.prefix.empty() ? own.getUTF8Value() : node.prefix + "." + own.getUTF8Value();
}

} // namespace

QPDFObjectHandle FormField::signature() const
{
    QPDFObjectHandle value = QPDFObjectHandle(field).getKey("/V");
    return isSignature() && value.isDictionary() ? value : QPDFObjectHandle::newNull();
}

std::vector<FormField> fieldsOf(QPDF &pdf)
{
    std::vector<FormField> fields;
    QPDFObjectHandle form = pdf.getRoot().getKey("/AcroForm");
    QPDFObjectHandle top = form.isDictionary() ? form.getKey("/Fields") : QPDFObjectHandle::newNull();
    if (!top.isArray())
        return fields;
    std::set<QPDFObjGen> seen;
    std::vector<Node> waiting;
    for (const QPDFObjectHandle &object : top.getArrayAsVector())
        waiting.push_back({object, "", "", 0});
    std::reverse(waiting.begin(), waiting.end());
    while (!waiting.empty()) {
        Node node = waiting.back();
        waiting.pop_back();
        if (!node.object.isDictionary() || !node.object.isIndirect() || !seen.insert(node.object.getObjGen()).second)
            continue;
        std::vector<QPDFObjectHandle> kids;
        if (node.object.getKey("/Kids").isArray())
            kids = node.object.getKey("/Kids").getArrayAsVector();
        if (node.depth < kDeepest && std::any_of(kids.begin(), kids.end(), isField)) {
            for (auto kid = kids.rbegin(); kid != kids.rend(); ++kid)
                waiting.push_back({*kid, nameOf(node), typeOf(node), node.depth + 1});
            continue;
        }
        FormField field{nameOf(node), typeOf(node), node.object, kids};
        if (kids.empty())
            field.widgets = {node.object};
        fields.push_back(field);
    }
    return fields;
}

} // namespace documents
