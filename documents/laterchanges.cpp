#include "laterchanges.h"

#include "formfields.h"
#include "objectdifferences.h"
#include "pagetree.h"
#include "permissions.h"

#include <algorithm>
#include <map>
#include <optional>

namespace documents {

namespace {

using Keys = std::set<std::string>;

const Keys kOfCatalogue{"/AcroForm", "/DSS", "/Extensions", "/Metadata", "/StructTreeRoot", "/Version"};
const Keys kOfForm{"/Fields", "/SigFlags", "/DR", "/DA"};
const Keys kOfPage{"/Annots", "/LastModified", "/StructParents", "/Tabs"};
const Keys kOfFilledField{"/AP", "/AS", "/I", "/M", "/MK", "/RV", "/V"};
const Keys kOfSignedField{"/AP", "/F", "/M", "/StructParent", "/TU", "/V"};

/// A signature with a lock may make the fields read-only that it locks: nobody sees a difference.
bool isMadeReadOnly(QPDFObjectHandle before, QPDFObjectHandle after)
{
    constexpr long long kReadOnly = 1;
    QPDFObjectHandle old = before.getKey("/Ff"), now = after.getKey("/Ff");
    const long long flags = old.isInteger() ? old.getIntValue() : 0;
    return (old.isNull() || old.isInteger()) && now.isInteger() && now.getIntValue() == (flags | kReadOnly);
}

bool areAmong(const Keys &keys, const Keys &allowed)
{
    return std::includes(allowed.begin(), allowed.end(), keys.begin(), keys.end());
}

std::vector<QPDFObjectHandle> itemsOf(QPDFObjectHandle array)
{
    return array.isArray() ? array.getArrayAsVector() : std::vector<QPDFObjectHandle>();
}

/// One comparison of a document with what it was.
class Comparison
{
public:
    Comparison(Reader &signedOne, Reader &now, const QPDFObjectHandle &signature)
        : m_earlier(signedOne)
        , m_now(now)
        , m_signature(signature)
        , m_differences(differencesOf(signedOne.pdf, now.pdf))
        , m_earlierFields(fieldsOf(signedOne.pdf))
        , m_nowFields(fieldsOf(now.pdf))
        , m_certification(certificationOf(signedOne.pdf, m_earlierFields))
    {
    }

    LaterChanges run()
    {
        if (m_now.rewrite == Rewrite::Damaged)
            change("what follows it is damaged");
        if (m_earlier.pdf.getRoot().getObjGen() != m_now.pdf.getRoot().getObjGen())
            change("the document has another catalogue");
        if (m_earlier.pdf.isEncrypted() != m_now.pdf.isEncrypted())
            change("the document was encrypted, or is no longer");
        if (!m_differences.removed.empty() || !m_differences.filled.empty())
            change("objects of the document were taken away or filled in behind it");
        lookAtFields();
        lookAtPages();
        lookAtForm();
        for (const QPDFObjGen &number : m_differences.replaced)
            lookAt(number);
        if (m_certification == Certification::NoChanges && !m_found.added.isEmpty())
            change("it forbids every change, also those");
        return m_found;
    }

private:
    void change(const QString &what)
    {
        if (!m_found.changed.contains(what))
            m_found.changed += what;
    }
    void add(const QString &what)
    {
        if (!m_found.added.contains(what))
            m_found.added += what;
    }

    /// Whether a new field or widget is that of a signature, which is judged by itself.
    bool isNewSignature(const QPDFObjectHandle &object) const { return m_ofSignatures.count(object.getObjGen()) > 0; }

    void noteSignature(const FormField &field)
    {
        QPDFObjectHandle signature = field.signature();
        if (!signature.isDictionary() || !signature.hasKey("/ByteRange"))
            return;
        m_ofSignatures.insert(field.field.getObjGen());
        for (const QPDFObjectHandle &widget : field.widgets)
            m_ofSignatures.insert(widget.getObjGen());
    }

    void lookAtFields()
    {
        std::map<std::string, const FormField *> earlier;
        for (const FormField &field : m_earlierFields)
            earlier.emplace(field.name, &field);
        for (const FormField &field : m_nowFields) {
            noteSignature(field);
            const auto same = earlier.find(field.name);
            const FormField *const before = same == earlier.end() ? nullptr : same->second;
            const QString name = QString::fromStdString(field.name);
            if (!field.signature().isNull() && (before == nullptr || before->signature().isNull()))
                add(QString("a signature in the field \"%1\"").arg(name));
            if (before == nullptr)
                continue;
            m_places[before->field.getObjGen()] = before;
            for (const QPDFObjectHandle &widget : before->widgets)
                m_places[widget.getObjGen()] = before;
        }
    }

    /// Every entry of the earlier list must still be there, and every new entry must be a signature.
    void lookAtList(QPDFObjectHandle before, QPDFObjectHandle after, const QString &place, const QString &what)
    {
        std::set<QPDFObjGen> old, kept;
        for (const QPDFObjectHandle &item : itemsOf(before))
            old.insert(item.getObjGen());
        for (const QPDFObjectHandle &item : itemsOf(after)) {
            kept.insert(item.getObjGen());
            if (item.isIndirect() && (old.count(item.getObjGen()) > 0 || isNewSignature(item)))
                continue;
            if (!item.isIndirect() && old.count(item.getObjGen()) > 0
                && before.unparseResolved() == after.unparseResolved())
                continue;
            if (m_certification == Certification::Annotations && what == "annotations")
                add(QString("annotations on %1").arg(place));
            else
                change(QString("%1 were added to %2").arg(what, place));
        }
        if (!std::includes(kept.begin(), kept.end(), old.begin(), old.end()))
            change(QString("%1 were taken from %2").arg(what, place));
    }

    void lookAtPages()
    {
        const std::vector<TreePage> before = pagesOf(m_earlier.pdf), after = pagesOf(m_now.pdf);
        if (before.size() != after.size())
            change("pages were added or taken away");
        for (size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
            QPDFObjectHandle old = before[i].page, now = after[i].page;
            if (old.getObjGen() != now.getObjGen())
                change("pages were exchanged");
            m_pages[old.getObjGen()] = static_cast<int>(i) + 1;
            QPDFObjectHandle oldList = old.getKey("/Annots"), nowList = now.getKey("/Annots");
            for (const QPDFObjectHandle &list : {oldList, nowList}) {
                if (list.isIndirect())
                    m_lists.insert(list.getObjGen());
            }
            const bool isTouched = m_differences.replaced.count(old.getObjGen()) > 0
                || m_differences.replaced.count(oldList.getObjGen()) > 0;
            if (isTouched)
                lookAtList(oldList, nowList, QString("page %1").arg(i + 1), "annotations");
        }
    }

    void lookAtForm()
    {
        QPDFObjectHandle before = m_earlier.pdf.getRoot().getKey("/AcroForm"),
                         after = m_now.pdf.getRoot().getKey("/AcroForm");
        if (!before.isDictionary())
            before = QPDFObjectHandle::newDictionary();
        if (!after.isDictionary())
            after = QPDFObjectHandle::newDictionary();
        if (!areAmong(differingKeys(before, after), kOfForm))
            change("the form was changed");
        lookAtList(before.getKey("/Fields"), after.getKey("/Fields"), "the form", "fields");
        for (const QPDFObjectHandle &part : {before, before.getKey("/Fields")}) {
            if (part.isIndirect())
                m_lists.insert(part.getObjGen());
        }
    }

    void lookAt(const QPDFObjGen &number)
    {
        QPDFObjectHandle before = m_earlier.pdf.getObject(number), after = m_now.pdf.getObject(number);
        if (before.unparseResolved() == after.unparseResolved() && !before.isStream())
            return; // written again without a change
        if (m_lists.count(number) > 0)
            return;
        const auto page = m_pages.find(number);
        const auto place = m_places.find(number);
        if (number == m_earlier.pdf.getRoot().getObjGen())
            lookAtKeys(before, after, kOfCatalogue, "the document's catalogue");
        else if (page != m_pages.end())
            lookAtKeys(before, after, kOfPage, QString("page %1").arg(page->second));
        else if (place != m_places.end())
            lookAtField(*place->second, before, after);
        else if (!isBeside(number))
            change(QString("something that it covers (object %1)").arg(number.getObj()));
    }

    void lookAtKeys(QPDFObjectHandle before, QPDFObjectHandle after, const Keys &allowed, const QString &what)
    {
        if (!before.isDictionary() || !after.isDictionary() || !areAmong(differingKeys(before, after), allowed))
            change(what);
    }

    void lookAtField(const FormField &field, QPDFObjectHandle before, QPDFObjectHandle after)
    {
        const QString name = QString::fromStdString(field.name);
        const bool isDictionary = before.isDictionary() && after.isDictionary();
        Keys keys = isDictionary ? differingKeys(before, after) : Keys{"all"};
        if (isDictionary && isMadeReadOnly(before, after) && keys.erase("/Ff") > 0 && keys.empty()) {
            add(QString("the form field \"%1\" was made read-only").arg(name));
            return;
        }
        if (field.isSignature()) {
            // What an empty field shows is a part of the page: only a signature may change it.
            if (!field.signature().isNull() || !areAmong(keys, kOfSignedField) || !isNewSignature(before))
                change(QString("the signature field \"%1\"").arg(name));
            else if (isLockedBy(m_signature, field.name))
                change(QString("the signature field \"%1\", which it locks").arg(name));
            return;
        }
        if (!areAmong(keys, kOfFilledField))
            change(QString("the form field \"%1\"").arg(name));
        else if (isLockedBy(m_signature, field.name))
            change(QString("the form field \"%1\", which it locks").arg(name));
        else
            add(QString("the form field \"%1\" was filled in").arg(name));
    }

    /// Whether no page shows the object: document information, structure for screen readers, data that helps to verify.
    /// Not for an object that something else in the document refers to as well.
    bool isBeside(const QPDFObjGen &number)
    {
        if (!m_beside.has_value()) {
            m_beside.emplace();
            QPDFObjectHandle root = m_earlier.pdf.getRoot();
            m_beside->insert(m_earlier.pdf.getTrailer().getKey("/Info").getObjGen());
            m_beside->insert(root.getKey("/Metadata").getObjGen());
            for (const char *key : {"/StructTreeRoot", "/DSS"}) {
                const std::set<QPDFObjGen> part = reachable(root.getKey(key), {"/Pg", "/Obj", "/Stm", "/AF", "/Ref"});
                m_beside->insert(part.begin(), part.end());
            }
            for (const auto &entry : root.getDictAsMap()) {
                if (Keys{"/StructTreeRoot", "/DSS", "/Metadata"}.count(entry.first) > 0)
                    continue;
                for (const QPDFObjGen &seen : reachable(entry.second, {}))
                    m_beside->erase(seen);
            }
        }
        return m_beside->count(number) > 0;
    }

    Reader &m_earlier;
    Reader &m_now;
    const QPDFObjectHandle m_signature;
    const ObjectDifferences m_differences;
    const std::vector<FormField> m_earlierFields;
    const std::vector<FormField> m_nowFields;
    const Certification m_certification;
    std::map<QPDFObjGen, int> m_pages; ///< numbers from 1
    std::map<QPDFObjGen, const FormField *> m_places; ///< fields and their widgets, as they were
    std::set<QPDFObjGen> m_ofSignatures; ///< their fields and widgets, as they are now
    std::set<QPDFObjGen> m_lists; ///< judged by what is in them
    std::optional<std::set<QPDFObjGen>> m_beside;
    LaterChanges m_found;
};

} // namespace

LaterChanges changesAfter(Reader &signedOne, Reader &now, QPDFObjectHandle signature)
{
    return Comparison(signedOne, now, signature).run();
}

} // namespace documents
