// Ink without a certificate: the document's bytes stay the first ones, its text stays, and other programs find it
// sound.
#include "signeddocuments.h"

#include <QJsonArray>

namespace {

using namespace signeddocuments;

class DocumentAppend : public Documents
{
};

struct Row
{
    const char *name;
    const char *rewriteReason; ///< empty: it is appended to
    const char *password;
};

const Row kRows[] = {{"written-two-pages.pdf", "", ""}, {"written-form.pdf", "", ""}, {"pdftex.pdf", "", ""},
    {"chromium.pdf", "", ""}, {"libreoffice.pdf", "", ""}, {"cairo.pdf", "", ""}, {"ghostscript.pdf", "", ""},
    {"qpdf-object-streams.pdf", "", ""}, {"qpdf-uncompressed.pdf", "", ""}, {"qpdf-linearized.pdf", "", ""},
    {"encrypted-256.pdf", "it is encrypted", "reader"}, {"encrypted-128.pdf", "it is encrypted", ""},
    {"encrypted-40.pdf", "it is encrypted", "reader"}, {"written-damaged.pdf", "it is damaged", ""},
    {"written-hybrid.pdf", "its cross-references are in two forms at once", ""}};

TEST_F(DocumentAppend, KeepsEveryByteAndWord)
{
    for (const Row &row : kRows) {
        SCOPED_TRACE(row.name);
        const QString password = row.password;
        write("password", password.toUtf8() + "\n");
        const QByteArray before = contentOf(given(row.name));
        const QJsonObject result = signPage(given(row.name), "signed.pdf", {"--document-password-file", "password"});
        const QByteArray after = read("signed.pdf");
        EXPECT_EQ(result["rewriteReason"].toString().toStdString(), row.rewriteReason);
        EXPECT_EQ(after.startsWith(before), QByteArray(row.rewriteReason).isEmpty());
        EXPECT_EQ(result["bytes"].toInt(), after.size());
        if (QByteArray(row.rewriteReason).isEmpty()) {
            EXPECT_LT(after.size() - before.size(), 3000);
        }
        needSound("signed.pdf", {"--password=" + password});
        const QStringList text{"pdftotext", "-layout", "-upw", password};
        EXPECT_EQ(says(text + QStringList{"signed.pdf", "-"}), says(text + QStringList{given(row.name), "-"}));
        EXPECT_EQ(says({"qpdf", "--password=" + password, "--warning-exit-0", "--show-npages", "signed.pdf"}),
            says({"qpdf", "--password=" + password, "--warning-exit-0", "--show-npages", given(row.name)}));
        const QImage plain = drawn("pdftoppm", given(row.name), 60, 1, password);
        const int pages =
            says({"qpdf", "--password=" + password, "--warning-exit-0", "--show-npages", "signed.pdf"}).toInt();
        EXPECT_EQ(kvsign::differingPixels(plain, drawn("pdftoppm", "signed.pdf", 60, 1, password)) > 20, pages == 1);
    }
}

TEST_F(DocumentAppend, AddsAgainAndAgain)
{
    QString name = given("qpdf-object-streams.pdf");
    for (int i = 1; i <= 4; ++i) {
        const QByteArray before = contentOf(i == 1 ? name : file(name));
        const QString next = QString("signed-%1.pdf").arg(i);
        signPage(name, next, {"--field", QString("%1,20,30x15").arg(5 + 15 * i), "--page", "1", "--color", "red"});
        EXPECT_TRUE(read(next).startsWith(before));
        needSound(next);
        name = next;
    }
    const QRectF box = redBox(drawn("mutool", name, 300), 300);
    EXPECT_NEAR(box.left(), redBox(drawn("mutool", "signed-1.pdf", 300), 300).left(), 0.1);
    EXPECT_NEAR(box.right() - redBox(drawn("mutool", "signed-1.pdf", 300), 300).right(), 45, 0.1);
}

TEST_F(DocumentAppend, RefusesWhatWouldHarm)
{
    signAs(People::get().anna(), given("cairo.pdf"), "signed.pdf");
    write("signed-damaged.pdf", read("signed.pdf").replace("%PDF-1.", "%moved\n%PDF-1."));
    const CommandResult damaged = run({"sign", "--ink", "a.ink", "signed-damaged.pdf", "b.pdf"});
    EXPECT_EQ(damaged.exitCode, 1) << testing::PrintToString(damaged);
    EXPECT_TRUE(damaged.errors.contains("breaks its signatures")) << testing::PrintToString(damaged);
    const CommandResult same = run({"sign", "--ink", "a.ink", "signed.pdf", "./signed.pdf"});
    EXPECT_EQ(same.exitCode, 2) << testing::PrintToString(same);
    EXPECT_FALSE(exists("b.pdf"));
    const QJsonObject onSigned = signPage("signed.pdf", "b.pdf");
    EXPECT_EQ(onSigned["notes"].toArray().size(), 1);
}

} // namespace
