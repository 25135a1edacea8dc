// Messages that openssl makes over a document's bytes, right ones and odd ones: verify says what is odd about them.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentMessage : public Documents
{
protected:
    DocumentMessage()
    {
        for (const char *person : {"anna", "ben"}) {
            EXPECT_TRUE(QFile::copy(People::get().folder + "/" + person + ".pem", file(QString(person) + ".pem")));
            EXPECT_TRUE(QFile::copy(People::get().folder + "/" + person + ".key", file(QString(person) + ".key")));
        }
    }

    /// A document with a signature of this kind, whose message is by these people.
    void writeSigned(const QByteArray &kind, const QStringList &options, const QStringList &people) const
    {
        constexpr int kRoom = 16384;
        writeDocument("signed.pdf",
            {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [4 0 R] >> >>"},
                {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
                {3, "<< /Type /Page /Parent 2 0 R /Annots [4 0 R] >>"},
                {4, "<< /Type /Annot /Subtype /Widget /FT /Sig /T (here) /Rect [0 0 0 0] /P 3 0 R /V 5 0 R >>"},
                {5,
                    "<< /Type /Sig /Filter /Adobe.PPKLite /SubFilter /" + kind
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
        const QByteArray message = read("message").toHex();
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
    QStringList crowd;
    for (int i = 0; i < 9; ++i)
        crowd += "anna";
    const Row rows[] = {{cades, {"-cades"}, {"anna"}, ""}, {pkcs7, {}, {"anna"}, ""},
        {pkcs7, {"-noattr"}, {"anna"}, ""}, {pkcs7, {"-md", "sha512"}, {"ben"}, ""}, {pkcs7, {}, {"anna", "anna"}, ""},
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
