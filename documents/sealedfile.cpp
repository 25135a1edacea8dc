// Where sealed bytes are in a document: a file associated with the form XObject that shows the ink.
#include "sealedfile.h"

#include "documentinside.h"
#include "seal.h"
#include "streambytes.h"

#include <set>

namespace documents {

namespace {

constexpr char kName[] = "pen-data.inkml.p7m";
constexpr qint64 kMostSealed = 64 << 20; // bytes; an hour of signing has less
constexpr char kKind[] = "/application/pkcs7-mime";

/// Finds the sealed files of forms, each once.
class SealedForms
{
public:
    void look(QPDFObjectHandle form)
    {
        if (!form.isStream() || !m_seen.insert(form.getObjGen()).second)
            return;
        QPDFObjectHandle files = form.getDict().getKey("/AF");
        if (!files.isArray())
            return;
        for (QPDFObjectHandle file : files.getArrayAsVector()) {
            QPDFObjectHandle embedded = file.isDictionary() ? file.getKey("/EF") : QPDFObjectHandle::newNull();
            QPDFObjectHandle stream = embedded.isDictionary() ? embedded.getKey("/F") : QPDFObjectHandle::newNull();
            if (stream.isStream() && stream.getDict().getKey("/Subtype").isNameAndEquals(kKind))
                take(stream);
        }
    }

    std::vector<QByteArray> found;

private:
    void take(QPDFObjectHandle stream) { found.push_back(streamBytes(stream, kMostSealed)); }

    std::set<QPDFObjGen> m_seen;
};

void lookAtPage(SealedForms &forms, TreePage &page)
{
    QPDFObjectHandle objects =
        page.resources.isDictionary() ? page.resources.getKey("/XObject") : QPDFObjectHandle::newNull();
    if (objects.isDictionary()) {
        for (const auto &entry : objects.getDictAsMap())
            forms.look(entry.second);
    }
    QPDFObjectHandle annotations = page.page.getKey("/Annots");
    if (!annotations.isArray())
        return;
    for (QPDFObjectHandle annotation : annotations.getArrayAsVector()) {
        QPDFObjectHandle shown = annotation.isDictionary() ? annotation.getKey("/AP") : QPDFObjectHandle::newNull();
        if (shown.isDictionary())
            forms.look(shown.getKey("/N"));
    }
}

} // namespace

QPDFObjectHandle sealedFile(Revision &revision, const QByteArray &sealed)
{
    QPDFObjectHandle stream = QPDFObjectHandle::parse("<< /Type /EmbeddedFile >>");
    stream.replaceKey("/Subtype", QPDFObjectHandle::newName(kKind));
    QPDFObjectHandle parameters = QPDFObjectHandle::newDictionary();
    parameters.replaceKey("/Size", QPDFObjectHandle::newInteger(sealed.size()));
    stream.replaceKey("/Params", parameters);
    QPDFObjectHandle files = QPDFObjectHandle::newDictionary();
    files.replaceKey("/F", revision.addStream(stream, sealed.toStdString()));
    QPDFObjectHandle file = QPDFObjectHandle::parse("<< /Type /Filespec /AFRelationship /Data >>");
    file.replaceKey("/F", QPDFObjectHandle::newString(kName));
    file.replaceKey("/UF", QPDFObjectHandle::newUnicodeString(kName));
    file.replaceKey("/Desc", QPDFObjectHandle::newUnicodeString("Pen data of the signature, encrypted"));
    file.replaceKey("/EF", files);
    return revision.add(file);
}

std::vector<QByteArray> sealedIn(const Document &document)
{
    SealedForms forms;
    try {
        for (TreePage &page : document.inside().pages)
            lookAtPage(forms, page);
    } catch (...) {
        rethrowAsProblem(document.inside().source.name());
    }
    return forms.found;
}

} // namespace documents
