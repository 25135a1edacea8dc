// kvsign verify in words: who is trusted, what was changed behind a signature, and how.
#include "signeddocuments.h"

#include <QJsonArray>

namespace {

using namespace signeddocuments;

class DocumentVerify : public Documents
{
};

TEST_F(DocumentVerify, SaysWhoIsTrusted)
{
    signAs(People::get().anna(), given("cairo.pdf"), "signed.pdf");
    EXPECT_EQ(row(trusted("signed.pdf", 0))["trust"].toString(), "trusted");
    const QJsonObject unknown = row(verified("signed.pdf", 1));
    EXPECT_EQ(unknown["trust"].toString(), "self-signed"); // the authority came with the signature
    EXPECT_TRUE(unknown["intact"].toBool());
    const CommandResult words = run({"verify", "signed.pdf", "--trust", People::get().authority()});
    for (const char *line : {"Signature 1 of 1: field \"Signature1\" on page 1", "  signer         Anna Example",
             "  covers         the whole file", "  intact         yes", "  certificate    trusted",
             "issued by Test Authority", "  algorithm      EC 256, SHA-256", "  verdict        valid"})
        EXPECT_TRUE(words.output.contains(line)) << line << '\n' << words.output.toStdString();
    const CommandResult none = run({"verify", given("cairo.pdf")});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_TRUE(none.errors.contains("there is no digital signature")) << testing::PrintToString(none);
}

TEST_F(DocumentVerify, KnowsSelfSignedAndExpired)
{
    const CommandResult made =
        runProgram({"bash", "-c",
                       "set -e; openssl req -x509 -newkey rsa:2048 -nodes -keyout s.key -out s.pem "
                       "-days 1 -subj '/CN=Only Me' 2>/dev/null; openssl pkcs12 -export -inkey "
                       "s.key -in s.pem -out s.p12 -passout pass:"},
            file("."));
    ASSERT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    signPage(given("cairo.pdf"), "signed.pdf", {"--certificate", "s.p12"});
    EXPECT_EQ(row(verified("signed.pdf", 1))["trust"].toString(), "self-signed");
    EXPECT_EQ(row(verified("signed.pdf", 0, {"--trust", "s.pem"}))["trust"].toString(), "trusted");
    const CommandResult expired =
        runProgram({"bash", "-c",
                       "set -e; openssl x509 -req -in <(openssl req -new -key s.key -subj "
                       "'/CN=Only Me') -signkey s.key -days -1 -out e.pem 2>/dev/null; openssl "
                       "pkcs12 -export -inkey s.key -in e.pem -out e.p12 -passout pass:"},
            file("."));
    ASSERT_EQ(expired.exitCode, 0) << testing::PrintToString(expired);
    const CommandResult refused =
        run({"sign", "--ink", "a.ink", "--certificate", "e.p12", given("cairo.pdf"), "b.pdf"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.errors.contains("expired on")) << testing::PrintToString(refused);
}

TEST_F(DocumentVerify, FindsInkThatCameBehindASignature)
{
    signAs(People::get().anna(), given("written-form.pdf"), "signed.pdf");
    signPage("signed.pdf", "drawn.pdf", {"--field", "10,10,40x20"});
    const QJsonObject result = row(trusted("drawn.pdf", 1));
    EXPECT_TRUE(result["intact"].toBool());
    EXPECT_FALSE(result["valid"].toBool());
    EXPECT_EQ(result["changedAfter"], QJsonValue(QJsonArray{"page 1"}));
    // pdfsig sees only that the signature itself is right.
    EXPECT_TRUE(runProgram({"pdfsig", "-nocert", "drawn.pdf"}, file(".")).output.contains("Signature is Valid"));
}

TEST_F(DocumentVerify, JudgesWhatARevisionChanges)
{
    signAs(People::get().anna(), given("written-form.pdf"), "signed.pdf", {"--form-field", "driver"});
    const QByteArray remark =
        "<< /Type /Annot /Subtype /Widget /FT /Tx /T (remark) /V (paid) /DA (/Helv 12 Tf 0 g) /Rect "
        "[50 300 300 330] /P 3 0 R /AP << /N 10 0 R >> >>";
    struct Row
    {
        const char *what;
        QList<QPair<int, QByteArray>> objects;
        const char *changed; ///< empty: allowed
    };
    const Row rows[] = {
        {"a content", {{4, "<< /Length 7 >>\nstream\n0 0 m n\nendstream"}}, "something that it covers (object 4)"},
        {"a font", {{5, "<< /Type /Font /Subtype /Type1 /BaseFont /Courier >>"}},
            "something that it covers (object 5)"},
        {"a locked field", {{8, remark}}, "the form field \"remark\", which it locks"},
        {"a field that is not locked",
            {{9,
                "<< /Type /Annot /Subtype /Widget /FT /Btn /T (paid) /V /Off /AS /Off /Rect [50 250 70 270] /P 3 0 R /AP "
                "<< /N << /Yes 11 0 R /Off 12 0 R >> >> >>"}},
            ""},
        {"a field that is moved",
            {{9,
                "<< /Type /Annot /Subtype /Widget /FT /Btn /T (paid) /V /Yes /AS /Yes /Rect [0 0 400 500] /P 3 0 R /AP << "
                "/N << /Yes 11 0 R /Off 12 0 R >> >> >>"}},
            "the form field \"paid\""},
        {"pages", {{2, "<< /Type /Pages /Kids [3 0 R 50 0 R] /Count 2 >>"}, {50, "<< /Type /Page /Parent 2 0 R >>"}},
            "pages were added or taken away"},
        {"an annotation that covers",
            {{3,
                 "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 400 500] /Contents 4 0 R /Annots [6 0 R 7 0 R 8 0 R 9 0 R 50 0 "
                 "R] /Resources << /Font << /F1 5 0 R >> >> >>"},
                {50, "<< /Type /Annot /Subtype /Square /Rect [0 0 400 500] /IC [1 1 1] >>"}},
            "annotations were added to page 1"},
        {"nothing", {{5, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"}}, ""},
    };
    for (const Row &entry : rows) {
        SCOPED_TRACE(entry.what);
        appendRevision("signed.pdf", "changed.pdf", entry.objects);
        const bool isAllowed = QByteArray(entry.changed).isEmpty();
        const QJsonObject result = row(trusted("changed.pdf", isAllowed ? 0 : 1));
        EXPECT_TRUE(result["intact"].toBool()) << result["problem"].toString().toStdString();
        const QJsonArray changed = result["changedAfter"].toArray();
        EXPECT_EQ(changed.isEmpty(), isAllowed);
        EXPECT_TRUE(isAllowed || changed.contains(entry.changed)) << changed[0].toString().toStdString();
    }
}

// A reference to nothing, prepared before the signature and filled in after it.
TEST_F(DocumentVerify, FindsWhatFillsInAReferenceToNothing)
{
    QByteArray prepared = contentOf(given("written-form.pdf"));
    prepared.replace(
        "/Contents 4 0 R /Annots [6 0 R 7 0 R 8 0 R 9 0 R]", "/Contents[4 0 R 90 0 R]/Annots[6 0 R 7 0 R 8 0 R]");
    write("prepared.pdf", prepared);
    signAs(People::get().anna(), "prepared.pdf", "signed.pdf", {"--form-field", "customer"});
    trusted("signed.pdf", 0);
    appendRevision("signed.pdf", "changed.pdf", {{90, "<< /Length 15 >>\nstream\n0 0 400 500 re f\nendstream"}});
    EXPECT_FALSE(row(trusted("changed.pdf", 1))["changedAfter"].toArray().isEmpty());
}

// An empty signature field shows what nobody signed.
TEST_F(DocumentVerify, FindsWhatAnEmptyFieldShowsLater)
{
    signAs(People::get().anna(), given("written-form.pdf"), "signed.pdf", {"--field", "10,10,40x20", "--page", "1"});
    const QByteArray form = contentOf(given("written-form.pdf"));
    const int begin = form.indexOf("\n6 0 obj\n") + 9;
    QByteArray field = form.mid(begin, form.indexOf("\nendobj", begin) - begin);
    ASSERT_TRUE(field.contains("/T (customer)")) << field.toStdString();
    field.chop(2);
    appendRevision("signed.pdf", "changed.pdf",
        {{6, field + " /AP << /N 60 0 R >> >>"},
            {60, "<< /Subtype /Form /BBox [0 0 100 50] /Length 26 >>\nstream\n0 0 m 100 50 l 5 w S      \nendstream"}});
    EXPECT_EQ(row(trusted("changed.pdf", 1))["changedAfter"].toArray(), QJsonArray{"the signature field \"customer\""});
}

// What the tags of a document refer to may be written again, but not when the page shows it as well.
TEST_F(DocumentVerify, FindsContentThatIsDisguisedAsTags)
{
    for (const char *disguise : {"/StructTreeRoot << /K 4 0 R >>", "/DSS << /VRI 4 0 R >>", "/Metadata 4 0 R"}) {
        SCOPED_TRACE(disguise);
        writeDocument("prepared.pdf",
            {{1, "<< /Type /Catalog /Pages 2 0 R " + QByteArray(disguise) + " >>"},
                {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
                {3, "<< /Type /Page /Parent 2 0 R /Contents 4 0 R >>"},
                {4, "<< /Length 7 >>\nstream\n0 0 m n\nendstream"}});
        signAs(People::get().anna(), "prepared.pdf", "signed.pdf");
        trusted("signed.pdf", 0);
        appendRevision("signed.pdf", "changed.pdf", {{4, "<< /Length 15 >>\nstream\n0 0 400 500 re f\nendstream"}});
        EXPECT_EQ(row(trusted("changed.pdf", 1))["changedAfter"].toArray(),
            QJsonArray{"something that it covers (object 4)"});
    }
}

TEST_F(DocumentVerify, TrustsNoCertificateOfAWebServer)
{
    const CommandResult made = runProgram(
        {"bash", "-c",
            "set -e; for use in serverAuth emailProtection 1.3.6.1.5.5.7.3.36; do "
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout s.key -out $use.pem -days 1 "
            "-subj '/CN=www.example' -addext extendedKeyUsage=$use 2> /dev/null; "
            "openssl pkcs12 -export -inkey s.key -in $use.pem -out $use.p12 -passout pass:; done; "
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes -keyout s.key -out plain.pem "
            "-days 1 -subj /CN=x 2> /dev/null"},
        file("."));
    ASSERT_EQ(made.exitCode, 0) << testing::PrintToString(made);
    for (const QString &use : {QString("emailProtection"), QString("1.3.6.1.5.5.7.3.36")}) {
        signPage(given("cairo.pdf"), "signed.pdf", {"--certificate", use + ".p12"});
        verified("signed.pdf", 0, {"--trust", use + ".pem"});
    }
    const CommandResult refused =
        run({"sign", "--ink", "a.ink", "--certificate", "serverAuth.p12", given("cairo.pdf"), "b.pdf"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.errors.contains("not meant for signatures")) << testing::PrintToString(refused);
}

} // namespace
