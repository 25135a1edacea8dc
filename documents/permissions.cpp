#include "permissions.h"

#include <algorithm>

namespace documents {

namespace {

/// The parameters of a signature's references that have this transform.
std::vector<QPDFObjectHandle> parametersOf(QPDFObjectHandle signature, const char *transform)
{
    std::vector<QPDFObjectHandle> found;
    QPDFObjectHandle references = signature.isDictionary() ? signature.getKey("/Reference") : signature;
    if (!references.isArray())
        return found;
    for (QPDFObjectHandle reference : references.getArrayAsVector()) {
        if (!reference.isDictionary() || !reference.getKey("/TransformMethod").isNameAndEquals(transform))
            continue;
        QPDFObjectHandle parameters = reference.getKey("/TransformParams");
        found.push_back(parameters.isDictionary() ? parameters : QPDFObjectHandle::newDictionary());
    }
    return found;
}

Certification certificationBy(QPDFObjectHandle signature)
{
    Certification strictest = Certification::None;
    for (QPDFObjectHandle parameters : parametersOf(signature, "/DocMDP")) {
        QPDFObjectHandle level = parameters.getKey("/P");
        const bool isLevel = level.isInteger() && level.getIntValue() >= 1 && level.getIntValue() <= 3;
        const Certification own =
            isLevel ? static_cast<Certification>(level.getIntValue()) : Certification::Forms; // the standard's default
        if (strictest == Certification::None || own < strictest)
            strictest = own;
    }
    return strictest;
}

Certification strictestOf(const std::vector<QPDFObjectHandle> &signatures)
{
    Certification strictest = Certification::None;
    for (const QPDFObjectHandle &signature : signatures) {
        const Certification own = certificationBy(signature);
        if (own != Certification::None && (strictest == Certification::None || own < strictest))
            strictest = own;
    }
    return strictest;
}

/// Whether a list of field names contains this field or one of its parents.
bool isNamed(QPDFObjectHandle list, const std::string &name)
{
    if (!list.isArray())
        return false;
    const std::vector<QPDFObjectHandle> names = list.getArrayAsVector();
    return std::any_of(names.begin(), names.end(), [&](QPDFObjectHandle entry) {
        const std::string own = entry.isString() ? entry.getUTF8Value() : std::string();
        return !own.empty() && (name == own || name.compare(0, own.size() + 1, own + ".") == 0);
    });
}

bool isAllowed(QPDF &pdf, OwnersRight right)
{
    switch (right) {
    case OwnersRight::ChangePages:
        return pdf.allowModifyOther();
    case OwnersRight::AddFields:
        return pdf.allowModifyOther() && pdf.allowModifyAnnotation();
    case OwnersRight::FillFields:
        break;
    }
    return pdf.allowModifyForm() || pdf.allowModifyAnnotation();
}

} // namespace

QString forbiddenByOwner(QPDF &pdf, OwnersRight right)
{
    if (!pdf.isEncrypted() || pdf.ownerPasswordMatched() || isAllowed(pdf, right))
        return {};
    const char *const what = right == OwnersRight::ChangePages ? "changes of its pages"
        : right == OwnersRight::AddFields                      ? "new signature fields"
                                                               : "signatures";
    return QString("its owner forbids %1; with the owner's password it can be done").arg(what);
}

Certification certificationBySignatures(const std::vector<FormField> &fields)
{
    std::vector<QPDFObjectHandle> signatures;
    signatures.reserve(fields.size());
    for (const FormField &field : fields)
        signatures.push_back(field.signature());
    return strictestOf(signatures);
}

Certification certificationOf(QPDF &pdf, const std::vector<FormField> &fields)
{
    const Certification own = certificationBySignatures(fields);
    QPDFObjectHandle permissions = pdf.getRoot().getKey("/Perms");
    const Certification claimed =
        permissions.isDictionary() ? strictestOf({permissions.getKey("/DocMDP")}) : Certification::None;
    return own == Certification::None || (claimed != Certification::None && claimed < own) ? claimed : own;
}

bool isLockedBy(QPDFObjectHandle signature, const std::string &name)
{
    for (QPDFObjectHandle parameters : parametersOf(signature, "/FieldMDP")) {
        QPDFObjectHandle action = parameters.getKey("/Action"), list = parameters.getKey("/Fields");
        const bool listed = isNamed(list, name);
        if (action.isNameAndEquals("/All") || (action.isNameAndEquals("/Include") && listed)
            || (action.isNameAndEquals("/Exclude") && !listed))
            return true;
    }
    return false;
}

bool isLocked(const std::vector<FormField> &fields, const std::string &name)
{
    return std::any_of(
        fields.begin(), fields.end(), [&](const FormField &field) { return isLockedBy(field.signature(), name); });
}

} // namespace documents
