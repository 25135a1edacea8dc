#include "signaturefield.h"

#include <algorithm>
#include <set>

namespace documents {

namespace {

constexpr int kPrinted = 4;
constexpr int kLockedInPlace = 128;
constexpr int kSignaturesExist = 1;
constexpr int kAppendOnly = 2;

std::string dateOf(const QDateTime &time)
{
    const QDateTime local = time.toLocalTime();
    const int minutes = local.offsetFromUtc() / 60;
    const std::string date = "D:" + local.toString("yyyyMMddHHmmss").toStdString();
    if (minutes == 0)
        return date + "Z";
    char zone[24];
    std::snprintf(
        zone, sizeof zone, "%c%02d'%02d'", minutes < 0 ? '-' : '+', std::abs(minutes) / 60, std::abs(minutes) % 60);
    return date + zone;
}

QPDFObjectHandle textOf(const QString &text)
{
    return QPDFObjectHandle::newUnicodeString(text.toStdString());
}

/// Makes the lock that an empty field asks for a part of its signature.
QPDFObjectHandle lockReference(QPDFObjectHandle lock)
{
    QPDFObjectHandle parameters = lock.shallowCopy();
    parameters.replaceKey("/Type", QPDFObjectHandle::newName("/TransformParams"));
    parameters.replaceKey("/V", QPDFObjectHandle::newName("/1.2"));
    QPDFObjectHandle reference = QPDFObjectHandle::parse("<< /Type /SigRef /TransformMethod /FieldMDP >>");
    reference.replaceKey("/TransformParams", parameters);
    QPDFObjectHandle references = QPDFObjectHandle::newArray();
    references.appendItem(reference);
    return references;
}

} // namespace

QPDFObjectHandle signatureDictionary(const SignatureWords &words, const std::string &mark, int room)
{
    QPDFObjectHandle signature = QPDFObjectHandle::parse("<< /Type /Sig /Filter /Adobe.PPKLite"
                                                         " /ByteRange [0 9999999999 9999999999 9999999999] >>");
    signature.replaceKey("/SubFilter", QPDFObjectHandle::newName(std::string("/") + words.subFilter));
    std::string contents = mark;
    contents.resize(static_cast<size_t>(room), '\0');
    signature.replaceKey("/Contents", QPDFObjectHandle::newString(contents));
    signature.replaceKey("/M", QPDFObjectHandle::newString(dateOf(words.time)));
    const std::pair<const char *, const QString *> rows[] = {
        {"/Name", &words.name}, {"/Reason", &words.reason}, {"/Location", &words.location}};
    for (const auto &row : rows) {
        if (!row.second->isEmpty())
            signature.replaceKey(row.first, textOf(*row.second));
    }
    return signature;
}

QString freeFieldName(const std::vector<FormField> &fields)
{
    std::set<std::string> names;
    for (const FormField &field : fields)
        names.insert(field.name.substr(0, field.name.find('.')));
    for (int number = 1;; ++number) {
        const std::string name = "Signature" + std::to_string(number);
        if (names.count(name) == 0)
            return QString::fromStdString(name);
    }
}

SignatureField::SignatureField(Revision &revision, const TreePage &page)
    : m_revision(revision)
    , m_page(page)
{
}

void SignatureField::setFlags()
{
    QPDFObjectHandle form = m_revision.dictionaryIn(m_revision.pdf().getRoot(), "/AcroForm");
    QPDFObjectHandle flags = form.getKey("/SigFlags");
    const long long earlier = flags.isInteger() ? flags.getIntValue() : 0;
    form.replaceKey("/SigFlags", QPDFObjectHandle::newInteger(earlier | kSignaturesExist | kAppendOnly));
}

void SignatureField::create(const QString &name, const QRectF &place, const QPDFObjectHandle &form,
    const std::string &text, const QPDFObjectHandle &signature)
{
    const PagePlace pagePlace(m_page);
    QPDFObjectHandle widget = QPDFObjectHandle::parse("<< /Type /Annot /Subtype /Widget /FT /Sig >>");
    widget.replaceKey("/T", textOf(name));
    widget.replaceKey("/TU", QPDFObjectHandle::newUnicodeString(text));
    widget.replaceKey("/F", QPDFObjectHandle::newInteger(kPrinted | kLockedInPlace));
    widget.replaceKey("/Rect", arrayOf(pagePlace.toPage().mapRect(place)));
    widget.replaceKey("/P", m_page.page);
    QPDFObjectHandle shown = QPDFObjectHandle::newDictionary();
    shown.replaceKey("/N", form);
    widget.replaceKey("/AP", shown);
    widget.replaceKey("/V", m_revision.add(signature));
    QPDFObjectHandle added = m_revision.add(widget);
    QPDFObjectHandle root = m_revision.pdf().getRoot();
    // A form of its own object, because other programs that sign later do not write one in the catalogue again.
    if (!root.getKey("/AcroForm").isDictionary()) {
        root.replaceKey("/AcroForm", m_revision.add(QPDFObjectHandle::newDictionary()));
        m_revision.touch(root);
    }
    QPDFObjectHandle acroForm = m_revision.dictionaryIn(root, "/AcroForm");
    m_revision.arrayIn(acroForm, "/Fields").appendItem(added);
    if (!acroForm.isIndirect())
        m_revision.touch(root);
    m_revision.arrayIn(m_page.page, "/Annots").appendItem(added);
    setFlags();
    StructureTree structure(m_revision);
    if (structure.isTagged())
        structure.addWidget(m_page.page, added, text);
}

void SignatureField::fill(
    const FormField &field, const QPDFObjectHandle &form, const std::string &text, const QPDFObjectHandle &signature)
{
    QPDFObjectHandle own = field.field, widget = field.widgets.front();
    QPDFObjectHandle value = signature;
    QPDFObjectHandle lock = own.getKey("/Lock");
    if (lock.isDictionary())
        value.replaceKey("/Reference", lockReference(lock));
    own.replaceKey("/V", m_revision.add(value));
    if (!own.hasKey("/TU"))
        own.replaceKey("/TU", QPDFObjectHandle::newUnicodeString(text));
    QPDFObjectHandle shown = QPDFObjectHandle::newDictionary();
    shown.replaceKey("/N", form);
    widget.replaceKey("/AP", shown);
    QPDFObjectHandle flags = widget.getKey("/F");
    const long long earlier = flags.isInteger() ? flags.getIntValue() : 0;
    widget.replaceKey("/F", QPDFObjectHandle::newInteger(earlier | kPrinted));
    m_revision.touch(own);
    m_revision.touch(widget);
    setFlags();
}

} // namespace documents
