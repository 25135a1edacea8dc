// What a form's author asks of a signature in a field is kept to, or the reason is said why it cannot be.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentSeedValues : public Documents
{
protected:
    void writeForm(const QByteArray &values) const
    {
        writeDocument("form.pdf",
            {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [4 0 R] >> >>"},
                {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
                {3, "<< /Type /Page /Parent 2 0 R /Annots [4 0 R] >>"},
                {4,
                    "<< /Type /Annot /Subtype /Widget /FT /Sig /T (here) /Rect [50 50 250 150] /P 3 0 R /SV << "
                        + values + " >> >>"}});
    }

    CommandResult signForm(const QString &keyFile, const QStringList &options) const
    {
        QFile::remove(file("signed.pdf"));
        return run(QStringList{"sign", "--ink", "a.ink", "--certificate", keyFile, "--password-file",
                       People::get().password(), "--form-field", "here"}
            + options + QStringList{"form.pdf", "signed.pdf"});
    }

    /// @param refusal what is said, or empty where it is signed
    void needAnswer(const QByteArray &values, const QString &refusal, const QStringList &options = {}) const
    {
        SCOPED_TRACE(values.left(80).toStdString());
        writeForm(values);
        const CommandResult result = signForm(People::get().anna(), options);
        EXPECT_EQ(result.exitCode, refusal.isEmpty() ? 0 : 1) << testing::PrintToString(result);
        EXPECT_EQ(exists("signed.pdf"), refusal.isEmpty());
        EXPECT_TRUE(refusal.isEmpty() || result.errors.contains("the field \"here\" " + refusal))
            << testing::PrintToString(result);
    }

    QByteArray hexOf(const QString &certificate) const
    {
        says({"openssl", "x509", "-in", People::get().folder + "/" + certificate, "-outform", "DER", "-out", "c.der"});
        return "<" + read("c.der").toHex() + ">";
    }
};

TEST_F(DocumentSeedValues, AreKeptToOrRefused)
{
    const QByteArray reasons = "/Ff 8 /Reasons [(received) (returned)]";
    needAnswer(reasons, "wants one of these reasons: \"received\", \"returned\"");
    needAnswer(reasons, "wants one of these reasons", {"--reason", "other"});
    needAnswer(reasons, "", {"--reason", "returned"});
    needAnswer("/Ff 8 /Reasons [(.)]", "takes no reason", {"--reason", "returned"});
    needAnswer("/Ff 1 /Filter /Other.Handler", "wants to be signed by Other.Handler");
    needAnswer("/Ff 1 /Filter /Adobe.PPKLite", "");
    needAnswer("/Ff 2 /SubFilter [/adbe.x509.rsa_sha1]", "wants a signature of the kind adbe.x509.rsa_sha1");
    needAnswer("/Ff 4 /V 9", "asks for something that is newer");
    needAnswer("/Ff 64 /DigestMethod [(SHA512)]", "wants the digest SHA512");
    needAnswer("/Ff 64 /DigestMethod [(SHA1) (SHA256)]", "");
    needAnswer("/Ff 32 /AddRevInfo true", "wants a proof");
    needAnswer("/MDP << /P 2 >>", "wants a signature that certifies");
    needAnswer("/MDP << /P 0 >>", "");
    needAnswer("/TimeStamp << /Ff 1 /URL (http://stamps.example/) >>",
        "wants a time stamp, such as by http://stamps.example/");
}

TEST_F(DocumentSeedValues, ThatArePartlyProposedBindNobody)
{
    needAnswer(
        "/Reasons [(received)] /DigestMethod [(SHA512)] /Filter /Other.Handler /TimeStamp << /URL (x) >> /Cert << "
        "/KeyUsage [(00XXXXXXX)] >>",
        "");
}

TEST_F(DocumentSeedValues, ChooseTheKindOfTheMessage)
{
    needAnswer("/Ff 2 /SubFilter [/adbe.pkcs7.detached]", "");
    const QString seen = runProgram({"pdfsig", "-nocert", "signed.pdf"}, file(".")).output;
    EXPECT_TRUE(seen.contains("adbe.pkcs7.detached") && seen.contains("Signature is Valid")) << seen.toStdString();
    trusted("signed.pdf", 0);
}

TEST_F(DocumentSeedValues, ChooseTheCertificate)
{
    needAnswer("/Cert << /Ff 1 /Subject [" + hexOf("ben.pem") + "] >>", "takes certificates of other people only");
    EXPECT_EQ(signForm(People::get().ben(), {}).exitCode, 0);
    EXPECT_FALSE(People::get().expert().isEmpty());
    needAnswer("/Cert << /Ff 2 /Issuer [" + hexOf("expert.pem") + "] >>", "takes certificates of other issuers only");
    needAnswer("/Cert << /Ff 2 /Issuer [" + hexOf("expert.pem") + hexOf("authority.pem") + "] >>", "");
    needAnswer("/Cert << /Ff 32 /KeyUsage [(0XXXXXXXX)] >>", "takes certificates for another use only");
    needAnswer("/Cert << /Ff 32 /KeyUsage [(0XXXXXXXX) (110000000)] >>", "");
    needAnswer("/Cert << /Ff 4 /OID [(1.2.3)] >>", "chooses its certificates by their policy");
}

} // namespace
