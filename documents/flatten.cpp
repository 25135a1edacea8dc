#include "flatten.h"

#include "pagecontent.h"

#include <qpdf/QPDFAcroFormDocumentHelper.hh>
#include <qpdf/QPDFAnnotationObjectHelper.hh>

#include <algorithm>
#include <set>

namespace documents {

namespace {

constexpr int kHidden = 2 | 32; // the annotation flags Hidden and NoView

using Widgets = std::set<QPDFObjGen>;

QPDFObjectHandle without(QPDFObjectHandle array, const Widgets &widgets)
{
    QPDFObjectHandle kept = QPDFObjectHandle::newArray();
    for (const QPDFObjectHandle &item : array.getArrayAsVector()) {
        if (widgets.count(item.getObjGen()) == 0)
            kept.appendItem(item);
    }
    return kept;
}

/// Draws what the page's widgets show as page content, and removes the widgets.
void flattenPage(Revision &revision, TreePage page, const Widgets &widgets)
{
    QPDFObjectHandle annotations = page.page.getKey("/Annots");
    if (!annotations.isArray())
        return;
    std::vector<QPDFObjectHandle> here;
    for (const QPDFObjectHandle &annotation : annotations.getArrayAsVector()) {
        if (annotation.isIndirect() && widgets.count(annotation.getObjGen()) > 0)
            here.push_back(annotation);
    }
    if (here.empty())
        return;
    PageContent content(revision, page);
    const int rotation = page.rotate.isInteger() ? static_cast<int>(page.rotate.getIntValue()) : 0;
    std::string operators;
    for (const QPDFObjectHandle &widget : here) {
        QPDFAnnotationObjectHelper annotation(widget);
        const QPDFObjectHandle shown = annotation.getAppearanceStream("/N");
        if (QPDFObjectHandle(shown).isStream())
            operators += annotation.getPageContentForAppearance(content.nameFor(shown), rotation, 0, kHidden);
    }
    content.append(operators);
    page.page.replaceKey("/Annots", without(annotations, widgets));
}

/// The uppermost parents of the signature fields, each once.
QPDFObjectHandle signatureFieldsOf(const std::vector<FormField> &fields)
{
    constexpr int kDeepest = 100;
    QPDFObjectHandle kept = QPDFObjectHandle::newArray();
    std::set<QPDFObjGen> seen;
    for (const FormField &field : fields) {
        QPDFObjectHandle top = field.field;
        for (int i = 0; i < kDeepest && top.getKey("/Parent").isDictionary(); ++i)
            top = top.getKey("/Parent");
        if (field.isSignature() && seen.insert(top.getObjGen()).second)
            kept.appendItem(top);
    }
    return kept;
}

} // namespace

int flattenFields(Revision &revision, const std::vector<FormField> &fields, const std::vector<TreePage> &pages)
{
    QPDFAcroFormDocumentHelper(revision.pdf()).generateAppearancesIfNeeded();
    revision.skipNumbersOfOthers();
    Widgets widgets;
    int count = 0;
    bool keepsFields = false;
    for (const FormField &field : fields) {
        if (field.isSignature()) {
            keepsFields = true;
            continue;
        }
        ++count;
        widgets.insert(field.field.getObjGen());
        for (const QPDFObjectHandle &widget : field.widgets)
            widgets.insert(widget.getObjGen());
    }
    if (count == 0)
        return 0;
    for (const TreePage &page : pages)
        flattenPage(revision, page, widgets);
    QPDFObjectHandle root = revision.pdf().getRoot();
    QPDFObjectHandle form = revision.dictionaryIn(root, "/AcroForm");
    if (form.isIndirect())
        revision.touch(form);
    form.replaceKey("/Fields", signatureFieldsOf(fields));
    form.removeKey("/NeedAppearances");
    form.removeKey("/XFA");
    if (!keepsFields) {
        root.removeKey("/AcroForm");
        revision.touch(root);
    }
    return count;
}

} // namespace documents
