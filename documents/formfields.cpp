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

// A field may have its flags from its parents.
bool FormField::isPushButton() const
{
    constexpr long long kPushButton = 1 << 16;
    QPDFObjectHandle node = field, flags = node.getKey("/Ff");
    for (int i = 0; i < kDeepest && flags.isNull() && node.getKey("/Parent").isDictionary(); ++i) {
        node = node.getKey("/Parent");
        flags = node.getKey("/Ff");
    }
    return type == "/Btn" && flags.isInteger() && (flags.getIntValue() & kPushButton) != 0;
}

QPDFObjectHandle FormField::signature() const
{
    QPDFObjectHandle value = QPDFObjectHandle(field).getKey("/V");
    return isSignature() && value.isDictionary() ? value : QPDFObjectHandle::newNull();
}

QString shownValue(QPDFObjectHandle value)
{
    constexpr int kMost = 60; // letters
    QString text;
    if (value.isString())
        text = QString::fromStdString(value.getUTF8Value());
    else if (value.isName())
        text = QString::fromStdString(value.getName()).mid(1);
    else if (!value.isNull())
        text = "...";
    return "\"" + (text.size() > kMost ? text.left(kMost) + "..." : text) + "\"";
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
