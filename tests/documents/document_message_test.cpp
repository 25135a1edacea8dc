// Messages that openssl makes over a document's bytes, right ones and odd ones: verify says what is odd about them.
#include "signeddocuments.h"

#include <documents/openssl_types.h>

#include <QJsonArray>

#include <openssl/pem.h>

namespace {

using namespace signeddocuments;

class DocumentMessage : public Documents
{
protected:
    DocumentMessage()
    {
        for (const char *person : {"anna", "ben", "authority"}) {
            EXPECT_TRUE(QFile::copy(People::get().folder + "/" + person + ".pem", file(QString(person) + ".pem")));
            EXPECT_TRUE(QFile::copy(People::get().folder + "/" + person + ".key", file(QString(person) + ".key")));
        }
    }

    static constexpr int kRoom = 16384;
    static constexpr char kPage[] = "<< /Type /Page /Parent 2 0 R /Annots [4 0 R 6 0 R] >>";
    static constexpr char kText[] = "<< /Type /Annot /Subtype /Widget /FT /Tx /T (text) /Rect [9 9 90 30] /P 3 0 R >>";

    /// A document with a signature of this kind, whose message is by these people.
    /// @param more entries of the signature's dictionary
    void writeSigned(const QByteArray &kind, const QStringList &options, const QStringList &people,
        const QByteArray &more = {}) const
    {
        writeDocument("signed.pdf",
            {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [4 0 R 6 0 R] >> >>"},
                {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"}, {3, kPage}, {6, kText},
                {4, "<< /Type /Annot /Subtype /Widget /FT /Sig /T (here) /Rect [0 0 0 0] /P 3 0 R /V 5 0 R >>"},
                {5,
                    "<< /Type /Sig /Filter /Adobe.PPKLite /SubFilter /" + kind + more
                        + " /ByteRange [0 1111111 2222222 3333333] "
                          "/Contents <"
                        + QByteArray(kRoom, '0') + "> >>"}});
        QByteArray content = read("signed.pdf");
        const int begin = content.indexOf("/Contents <") + 10, end = begin + kRoom + 2;
        const auto number = [](int value) { return QByteArray::number(value).rightJustified(7, ' '); };
        content.replace("1111111", number(begin));
        content.replace("2222222", number(end));
        content.replace("3333333", number(content.size() - end));
        write("covered", content.left(begin) + content.mid(end));
        QStringList command{
            "openssl", "cms", "-sign", "-binary", "-in", "covered", "-outform", "DER", "-out", "message"};
        const auto by = [](const QString &person) {
            return QStringList{"-signer", person + ".pem", "-inkey", person + ".key"};
        };
        says(command + by(people.first()) + options);
        for (int i = 1; i < people.size(); ++i) {
            const bool isThere = people.indexOf(people[i]) < i;
            says(QStringList{"openssl", "cms", "-resign", "-binary", "-inform", "DER", "-in", "message", "-outform",
                     "DER", "-out", "message"}
                + by(people[i]) + options + (isThere ? QStringList("-nocerts") : QStringList()));
        }
        fillIn(content, begin, read("message"));
    }

    /// rsa.key and rsa.pem, for whom the authority vouches; all others have elliptic curves.
    void certifyRsa() const
    {
        says({"bash", "-c",
            "set -e; cp \"$0\"/expert.key rsa.key; openssl req -new -key rsa.key -subj /CN=Rsa -out rsa.csr; openssl x509 "
            "-req -in rsa.csr -CA authority.pem -CAkey authority.key -days 3 -extfile \"$0\"/usage.cnf -out rsa.pem 2> "
            "/dev/null",
            QFileInfo(People::get().expert()).path()});
    }

    void fillIn(QByteArray content, int begin, const QByteArray &bytes) const
    {
        const QByteArray message = bytes.toHex();
        ASSERT_LE(message.size(), kRoom);
        write("signed.pdf", content.replace(begin + 1, message.size(), message));
    }
};

struct Row
{
    const char *kind;
    QStringList options;
    QStringList people;
    const char *problem; ///< empty: it is valid
};

TEST_F(DocumentMessage, IsReadAsItWasMade)
{
    const char *const cades = "ETSI.CAdES.detached", *const pkcs7 = "adbe.pkcs7.detached";
    certifyRsa();
    QStringList crowd;
    for (int i = 0; i < 9; ++i)
        crowd += "anna";
    const Row rows[] = {{cades, {"-cades"}, {"anna"}, ""}, {pkcs7, {}, {"anna"}, ""},
        {pkcs7, {"-noattr"}, {"anna"}, ""}, {pkcs7, {"-md", "sha512"}, {"ben"}, ""}, {pkcs7, {}, {"anna", "anna"}, ""},
        {pkcs7, {"-stream"}, {"anna"}, ""}, {pkcs7, {"-keyopt", "rsa_padding_mode:pss"}, {"rsa"}, ""},
        {cades, {"-cades", "-keyopt", "rsa_padding_mode:pss"}, {"rsa"}, ""},
        {cades, {"-noattr"}, {"anna"}, "its message signs no attributes, which its kind demands"},
        {cades, {}, {"anna"}, "it does not name the certificate that it was made with"},
        {cades, {"-cades"}, {"anna", "anna"}, "its message is not signed by exactly one"},
        {pkcs7, {}, {"anna", "ben"}, "its message is signed by several people"},
        {pkcs7, {}, crowd, "its message is signed too often"},
        {pkcs7, {"-nocerts"}, {"anna"}, "the signer's certificate is not in it"},
        {"adbe.x509.rsa_sha1", {}, {"anna"}, "signatures of the kind adbe.x509.rsa_sha1 cannot be looked at"}};
    for (const Row &entry : rows) {
        SCOPED_TRACE(std::string(entry.kind) + " " + entry.options.join(' ').toStdString() + " " + entry.problem);
        writeSigned(entry.kind, entry.options, entry.people);
        const bool isRight = QByteArray(entry.problem).isEmpty();
        const QJsonObject found = row(trusted("signed.pdf", isRight ? 0 : 1));
        EXPECT_EQ(found["problem"].toString().toStdString(), entry.problem);
        EXPECT_EQ(found["intact"].toBool(), isRight);
        EXPECT_TRUE(found["coversWholeFile"].toBool());
    }
}

// Each level of a certification, and what came after it.
TEST_F(DocumentMessage, AllowsWhatItsCertificationSays)
{
    const QByteArray page = QByteArray(kPage).replace("6 0 R", "6 0 R 90 0 R"),
                     root = "<< /Type /Catalog /Pages 2 0 R ";
    const Objects filled{{6, QByteArray(kText).replace("/P 3", "/V (1) /P 3")}},
        note{{3, page}, {90, "<< /Type /Annot /Subtype /Square /Rect [0 0 400 500] /IC [1 1 1] >>"}},
        proofs{{1, root + "/AcroForm << /Fields [4 0 R 6 0 R] >> /DSS << /Certs [] >> >>"}};
    struct Case
    {
        const char *level;
        const Objects &objects;
        const char *changed; ///< empty: it is allowed
        const char *added;
    };
    const char *const isFilled = "the form field \"text\" (page 1, 29 by 7 mm) was filled in with \"1\"";
    const Case cases[] = {{"1", filled, "it forbids every change, also those", isFilled}, {"2", filled, "", isFilled},
        {"3", filled, "", isFilled}, {"1", note, "annotations were added to page 1", ""},
        {"2", note, "annotations were added to page 1", ""}, {"3", note, "", "annotations on page 1"},
        {"1", proofs, "", "data that helps to verify"}};
    for (const Case &entry : cases) {
        SCOPED_TRACE(std::string(entry.level) + " " + entry.added);
        writeSigned("adbe.pkcs7.detached", {}, {"anna"},
            " /Reference [ << /Type /SigRef /TransformMethod /DocMDP /TransformParams << /P " + QByteArray(entry.level)
                + " >> >> ]");
        appendRevision("signed.pdf", "later.pdf", entry.objects);
        const bool isAllowed = QByteArray(entry.changed).isEmpty();
        const QJsonObject found = row(trusted("later.pdf", isAllowed ? 0 : 1));
        EXPECT_EQ(found["changedAfter"], QJsonValue(isAllowed ? QJsonArray() : QJsonArray{entry.changed}));
        EXPECT_EQ(found["addedAfter"],
            QJsonValue(QByteArray(entry.added).isEmpty() ? QJsonArray() : QJsonArray{entry.added}));
    }
}

// Two inputs of one digest can be made, so it proves nothing.
TEST_F(DocumentMessage, NeedsAStrongDigest)
{
    certifyRsa();
    for (const char *digest : {"sha1", "md5"}) {
        writeSigned("adbe.pkcs7.detached", {"-md", digest}, {"rsa"});
        const QJsonObject found = row(trusted("signed.pdf", 1));
        EXPECT_TRUE(found["intact"].toBool()) << digest;
        EXPECT_TRUE(found["weakAlgorithm"].toBool()) << digest;
        EXPECT_EQ(found["trust"].toString(), "trusted");
    }
}

// Two certificates of one key: the signed one counts, not the one that was put beside it.
TEST_F(DocumentMessage, IsOfTheCertificateThatItNames)
{
    says({"bash", "-c",
        "set -e; openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout one.key -out one.pem "
        "-days 2 -subj /CN=One 2> /dev/null; openssl req -x509 -key one.key -out two.pem -days 2 -subj /CN=Two; "
        "cp one.key two.key"});
    for (const QStringList &options : {QStringList{"-cades", "-keyid"}, QStringList{"-keyid"}}) {
        const bool isNamed = options.size() == 2;
        writeSigned("adbe.pkcs7.detached", options + QStringList{"-nocerts", "-certfile", "one.pem"}, {"two"});
        const QJsonObject found = row(verified("signed.pdf", isNamed ? 1 : 0, {"--trust", "one.pem"}));
        EXPECT_EQ(found["signer"].toString(), "One");
        EXPECT_EQ(found["problem"].toString().toStdString(),
            isNamed ? "it names another certificate than the one that it was made with" : "");
    }
}

// Attributes without the kind of their content could be a content themselves.
TEST_F(DocumentMessage, SaysWhatKindOfContentItIsFor)
{
    const QByteArray pem = read("anna.pem"), keyPem = read("anna.key");
    const documents::CertificateOwner certificate(
        PEM_read_bio_X509(documents::bioOf(pem).get(), nullptr, nullptr, nullptr));
    const documents::KeyOwner key(PEM_read_bio_PrivateKey(documents::bioOf(keyPem).get(), nullptr, nullptr, nullptr));
    ASSERT_TRUE(certificate != nullptr && key != nullptr);
    for (const bool saysKind : {true, false}) {
        writeSigned("adbe.pkcs7.detached", {}, {"anna"});
        documents::Digest digest;
        const QByteArray covered = read("covered");
        digest.add(covered.constData(), covered.size());
        const QByteArray own = digest.result();
        constexpr unsigned int kFlags = CMS_PARTIAL | CMS_DETACHED | CMS_BINARY | CMS_NOSMIMECAP;
        const documents::CmsOwner message(CMS_sign(nullptr, nullptr, nullptr, nullptr, kFlags));
        CMS_SignerInfo *const signer =
            CMS_add1_signer(message.get(), certificate.get(), key.get(), EVP_sha256(), kFlags);
        QByteArray attributes;
        if (saysKind)
            CMS_signed_add1_attr_by_NID(signer, NID_pkcs9_contentType, V_ASN1_OBJECT, OBJ_nid2obj(NID_pkcs7_data), -1);
        CMS_signed_add1_attr_by_NID(signer, NID_pkcs9_messageDigest, V_ASN1_OCTET_STRING, own.constData(), own.size());
        for (int i = 0; i < CMS_signed_get_attr_count(signer); ++i)
            attributes += documents::derOf(CMS_signed_get_attr(signer, i), i2d_X509_ATTRIBUTE);
        attributes.prepend(static_cast<char>(attributes.size())).prepend('\x31'); // a SET of less than 128 bytes
        const documents::DigestOwner context(EVP_MD_CTX_new());
        std::vector<unsigned char> signature(256);
        size_t size = signature.size();
        const auto *data = reinterpret_cast<const unsigned char *>(attributes.constData());
        ASSERT_EQ(EVP_DigestSignInit(context.get(), nullptr, EVP_sha256(), nullptr, key.get()), 1);
        ASSERT_EQ(
            EVP_DigestSign(context.get(), signature.data(), &size, data, static_cast<size_t>(attributes.size())), 1);
        ASN1_STRING_set(CMS_SignerInfo_get0_signature(signer), signature.data(), static_cast<int>(size));
        const QByteArray content = read("signed.pdf");
        fillIn(QByteArray(content).replace(content.indexOf("/Contents <") + 11, kRoom, QByteArray(kRoom, '0')),
            content.indexOf("/Contents <") + 10, documents::derOf(message.get(), i2d_CMS_ContentInfo));
        EXPECT_EQ(row(trusted("signed.pdf", saysKind ? 0 : 1))["problem"].toString().toStdString(),
            saysKind ? "" : "its message does not say what it signs");
    }
}

// An authority that signs with SHA-1 vouches for nobody: a second certificate of the same digest can be made.
TEST_F(DocumentMessage, NeedsAStrongChain)
{
    const char *const script =
        "set -e; openssl x509 -req -in \"$0/anna.csr\" -CA authority.pem -CAkey authority.key -days 3 -sha1 -out old.pem "
        "2> /dev/null; cp anna.key old.key; openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes "
        "-keyout same.key -out same.pem -days 2 -subj '/CN=Test Authority' 2> /dev/null";
    says({"bash", "-c", script, People::get().folder});
    const QPair<const char *, const char *> rows[] = {{"old", "unknown"}, {"same", "self-signed"}};
    for (const auto &entry : rows) {
        writeSigned("adbe.pkcs7.detached", {}, {entry.first});
        const QJsonObject found = row(trusted("signed.pdf", 1));
        EXPECT_TRUE(found["intact"].toBool()) << entry.first;
        EXPECT_EQ(found["trust"].toString(), entry.second) << found["trustReason"].toString().toStdString();
    }
}

// The message is right, but for other bytes.
TEST_F(DocumentMessage, IsOfTheseBytesAlone)
{
    for (const QStringList &options : {QStringList{}, QStringList{"-noattr"}}) {
        writeSigned("adbe.pkcs7.detached", options, {"anna"});
        write("signed.pdf", read("signed.pdf").replace("[0 0 400 500]", "[0 0 400 501]"));
        EXPECT_EQ(row(trusted("signed.pdf", 1))["problem"].toString(), "the signed bytes were changed");
    }
}

} // namespace
