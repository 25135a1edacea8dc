#include "laterchanges.h"

#include "appendedbytes.h"
#include "formfields.h"
#include "objectdifferences.h"
#include "pageplace.h"
#include "permissions.h"
#include "roles.h"

#include <algorithm>
#include <map>
#include <optional>

namespace documents {

namespace {

using Keys = std::set<std::string>;

const Keys kOfCatalogue{"/AcroForm", "/DSS", "/Extensions", "/Metadata", "/Version"};
const Keys kOfForm{"/Fields", "/SigFlags", "/DR", "/DA"};
const Keys kOfPage{"/Annots", "/LastModified", "/StructParents", "/Tabs"};
const Keys kOfFilledField{"/AP", "/AS", "/I", "/M", "/MK", "/RV", "/V"};
const Keys kOfSignedField{"/AP", "/F", "/M", "/StructParent", "/TU", "/V"};
const Keys kOfTags{"/IDTree", "/K", "/Kids", "/Limits", "/Nums", "/ParentTree", "/ParentTreeNextKey"};

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
    Comparison(const Source &source, qint64 end, Reader &signedOne, Reader &now, const QPDFObjectHandle &signature)
        : m_source(source)
        , m_end(end)
        , m_earlier(signedOne)
        , m_now(now)
        , m_signature(signature)
        , m_differences(differencesOf(signedOne.pdf, now.pdf))
        , m_earlierFields(fieldsOf(signedOne.pdf))
        , m_nowFields(fieldsOf(now.pdf))
        , m_earlierPages(pagesOf(signedOne.pdf))
        , m_nowPages(pagesOf(now.pdf))
        , m_certification(certificationOf(signedOne.pdf, m_earlierFields))
        , m_allowsAnnotations(m_certification == Certification::Annotations
              && certificationBySignatures(m_earlierFields) == Certification::Annotations)
    {
    }

    LaterChanges run()
    {
        lookAtFile();
        lookAtFields();
        lookAtPages();
        lookAtForm();
        for (const QPDFObjGen &number : m_differences.replaced)
            lookAt(number);
        for (const int number : m_differences.doubled)
            change(QString("something that it covers (object %1)").arg(number));
        if (m_certification == Certification::NoChanges && !m_found.added.isEmpty())
            change("it forbids every change, also those");
        m_found.added += m_harmless;
        m_found.added.removeDuplicates();
        return m_found;
    }

private:
    void lookAtFile()
    {
        QPDFObjectHandle before = m_earlier.pdf.getTrailer(), after = m_now.pdf.getTrailer();
        if (m_now.rewrite == Rewrite::Damaged)
            change("what follows it is damaged");
        else if (hasStrayBytes(m_source, m_end, m_now.pdf, m_differences.dangling))
            change("bytes that belong to none of its revisions");
        if (m_now.rewrite == Rewrite::Hybrid && m_now.last.place >= m_end)
            change("cross-references in two forms at once");
        if (m_earlier.pdf.getRoot().getObjGen() != m_now.pdf.getRoot().getObjGen())
            change("the document has another catalogue");
        if (before.getKey("/Encrypt").unparse() != after.getKey("/Encrypt").unparse())
            change("the document was encrypted, or is no longer, or otherwise");
        if (!m_differences.removed.empty() || m_differences.areFilled)
            change("objects of the document were taken away or filled in behind it");
        if (before.getKey("/Info").unparse() != after.getKey("/Info").unparse())
            add("the document information (title, author and so on)");
    }

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
        if (!QPDFObjectHandle(field.field).hasKey("/Subtype"))
            m_ofSignatures.insert(field.field.getObjGen());
        for (QPDFObjectHandle widget : field.widgets) {
            if (widget.isDictionary() && widget.getKey("/Subtype").isNameAndEquals("/Widget"))
                m_ofSignatures.insert(widget.getObjGen());
        }
    }

    /// " (page 1, 70 by 40 mm)" for each widget that shows something.
    QString placesOf(const FormField &field)
    {
        if (m_pageOf.empty()) {
            for (size_t i = 0; i < m_nowPages.size(); ++i) {
                for (const QPDFObjectHandle &item : itemsOf(m_nowPages[i].page.getKey("/Annots")))
                    m_pageOf.emplace(item.getObjGen(), i);
            }
        }
        QStringList places;
        for (QPDFObjectHandle widget : field.widgets) {
            const auto page = m_pageOf.find(widget.getObjGen());
            const QRectF own = widget.isDictionary() ? rectangleOf(widget.getKey("/Rect")) : QRectF();
            if (page == m_pageOf.end() || !widget.isIndirect() || own.isEmpty())
                continue;
            const QSizeF size = PagePlace(m_nowPages[page->second]).shown(own).size();
            places += QString("page %1, %2 by %3 mm")
                          .arg(page->second + 1)
                          .arg(size.width(), 0, 'f', 0)
                          .arg(size.height(), 0, 'f', 0);
        }
        return places.isEmpty() ? QString() : " (" + places.join("; ") + ")";
    }

    /// A time stamp of the whole document is not counted as a change even where none is allowed.
    void addSignature(const FormField &field)
    {
        const QString text =
            QString("a signature in the field \"%1\"%2").arg(QString::fromStdString(field.name), placesOf(field));
        const bool isStamp = field.signature().getKey("/SubFilter").isNameAndEquals("/ETSI.RFC3161");
        if (isStamp)
            m_harmless += text;
        else
            add(text);
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
            if (!field.signature().isNull() && (before == nullptr || before->signature().isNull()))
                addSignature(field);
            if (before == nullptr)
                continue;
            lookAtValue(*before, field);
            m_places[before->field.getObjGen()] = before;
            for (const QPDFObjectHandle &widget : before->widgets)
                m_places[widget.getObjGen()] = before;
        }
    }

    void lookAtValue(const FormField &earlier, const FormField &field)
    {
        QPDFObjectHandle before = QPDFObjectHandle(earlier.field).getKey("/V"),
                         after = QPDFObjectHandle(field.field).getKey("/V");
        if (field.isSignature() || before.unparseResolved() == after.unparseResolved())
            return;
        const QString name = QString::fromStdString(field.name) + "\"" + placesOf(field);
        m_filled.insert(field.name);
        add(before.isNull() ? QString("the form field \"%1 was filled in with %2").arg(name, shownValue(after))
                            : QString("the form field \"%1 was changed from %2 to %3")
                                  .arg(name, shownValue(before), shownValue(after)));
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
            if (m_allowsAnnotations && what == "annotations")
                add(QString("annotations on %1").arg(place));
            else
                change(QString("%1 were added to %2").arg(what, place));
        }
        if (!std::includes(kept.begin(), kept.end(), old.begin(), old.end()))
            change(QString("%1 were taken from %2").arg(what, place));
    }

    void lookAtPages()
    {
        const std::vector<TreePage> &before = m_earlierPages, &after = m_nowPages;
        if (before.size() != after.size())
            change("pages were added or taken away");
        for (size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
            QPDFObjectHandle old = before[i].page, now = after[i].page;
            if (old.getObjGen() != now.getObjGen())
                change("pages were exchanged");
            m_pages[old.getObjGen()] = static_cast<int>(i) + 1;
            QPDFObjectHandle oldList = old.getKey("/Annots"), nowList = now.getKey("/Annots");
            if (oldList.isIndirect())
                m_lists.insert(oldList.getObjGen());
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
        const bool isOldText = before.hasKey("/DA") && before.getKey("/DA").unparse() != after.getKey("/DA").unparse();
        if (!areAmong(differingKeys(before, after), kOfForm) || isOldText
            || !keepsEntries(before.getKey("/DR"), after.getKey("/DR")))
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
        if (m_differences.holders.count(number) > 0 || isShown(number)) {
            change(QString("something that it covers (object %1)").arg(number.getObj()));
            return;
        }
        if (m_lists.count(number) > 0)
            return;
        const auto page = m_pages.find(number);
        const auto place = m_places.find(number);
        if (number == m_earlier.pdf.getRoot().getObjGen())
            lookAtCatalogue(before, after);
        else if (page != m_pages.end())
            lookAtKeys(before, after, kOfPage, QString("page %1").arg(page->second));
        else if (place != m_places.end())
            lookAtField(*place->second, before, after);
        else
            lookBesidePages(number, before, after);
    }

    void lookAtCatalogue(QPDFObjectHandle before, QPDFObjectHandle after)
    {
        lookAtKeys(before, after, kOfCatalogue, "the document's catalogue");
        const Keys keys = before.isDictionary() && after.isDictionary() ? differingKeys(before, after) : Keys();
        if (keys.count("/Metadata") > 0)
            add("the metadata");
        if (keys.count("/DSS") > 0)
            m_harmless += "data that helps to verify";
        if (keys.count("/Version") > 0 || keys.count("/Extensions") > 0)
            add("the version of PDF");
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
        if (!areAmong(keys, kOfFilledField) || field.isPushButton())
            change(QString("the form field \"%1\"").arg(name));
        else if (isLockedBy(m_signature, field.name))
            change(QString("the form field \"%1\", which it locks").arg(name));
        else if (m_filled.count(field.name) == 0)
            add(QString("the form field \"%1\"%2 shows something else").arg(name, placesOf(field)));
    }

    /// Whether a page draws with the object: then it must stay, whatever else it is.
    bool isShown(const QPDFObjGen &number)
    {
        if (!m_shown.has_value())
            m_shown = shownOn(m_earlierPages);
        return m_shown->count(number) > 0;
    }

    /// Document information, structure for screen readers, data that helps to verify.
    void lookBesidePages(const QPDFObjGen &number, QPDFObjectHandle before, QPDFObjectHandle after)
    {
        if (!m_beside.has_value())
            m_beside = besidePages(m_earlier.pdf);
        const auto found = m_beside->find(number);
        if (found == m_beside->end())
            change(QString("something that it covers (object %1)").arg(number.getObj()));
        else if (found->second == Beside::Tags)
            lookAtTags(before, after);
        else if (found->second == Beside::Verifying)
            m_harmless += "data that helps to verify";
        else
            add(found->second == Beside::Metadata ? QString("the metadata")
                                                  : QString("the document information (title, author and so on)"));
    }

    /// Tags may be added, for what is added to the pages.
    void lookAtTags(QPDFObjectHandle before, QPDFObjectHandle after)
    {
        bool isKept = before.isArray() && after.isArray() && keepsItems(before, after);
        if (before.isDictionary() && after.isDictionary()) {
            const Keys keys = differingKeys(before, after);
            isKept = areAmong(keys, kOfTags);
            for (const char *list : {"/K", "/Kids", "/Nums"})
                isKept = isKept && (keys.count(list) == 0 || keepsItems(before.getKey(list), after.getKey(list)));
        }
        if (isKept)
            add("tags that are read aloud");
        else
            change("the tags that are read aloud");
    }

    const Source &m_source;
    const qint64 m_end;
    Reader &m_earlier;
    Reader &m_now;
    const QPDFObjectHandle m_signature;
    const ObjectDifferences m_differences;
    const std::vector<FormField> m_earlierFields;
    const std::vector<FormField> m_nowFields;
    const std::vector<TreePage> m_earlierPages;
    std::vector<TreePage> m_nowPages;
    const Certification m_certification;
    const bool m_allowsAnnotations;
    std::map<QPDFObjGen, int> m_pages; ///< numbers from 1
    std::map<QPDFObjGen, const FormField *> m_places; ///< fields and their widgets, as they were
    std::set<QPDFObjGen> m_ofSignatures; ///< their fields and widgets, as they are now
    std::set<QPDFObjGen> m_lists; ///< judged by what is in them
    std::map<QPDFObjGen, size_t> m_pageOf; ///< annotations, as they are now
    std::set<std::string> m_filled; ///< fields with another value
    std::optional<std::map<QPDFObjGen, Beside>> m_beside;
    std::optional<std::set<QPDFObjGen>> m_shown;
    QStringList m_harmless; ///< allowed even where every change is forbidden
    LaterChanges m_found;
};

} // namespace

LaterChanges changesAfter(const Source &source, qint64 end, Reader &signedOne, Reader &now, QPDFObjectHandle signature)
{
    return Comparison(source, end, signedOne, now, signature).run();
}

} // namespace documents
