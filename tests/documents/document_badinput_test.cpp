// Broken and hostile documents: one clear sentence, nothing half written, no hang.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentBadInput : public Documents
{
protected:
    /// Must fail with one sentence, and leave an earlier output as it was.
    void needRefused(const QString &name, const QStringList &options = {}, const QString &words = {}) const
    {
        SCOPED_TRACE(name.toStdString());
        write("out.pdf", "as it was");
        const CommandResult result =
            run(QStringList{"sign", "--ink", "a.ink"} + options + QStringList{name, "out.pdf"});
        EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
        EXPECT_EQ(result.errors.count('\n'), 1) << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains(words)) << testing::PrintToString(result);
        EXPECT_EQ(read("out.pdf"), "as it was");
        const CommandResult looked = run({"verify", name});
        EXPECT_EQ(looked.exitCode, 1) << testing::PrintToString(looked);
    }

    /// A document of these objects, whose table qpdf finds by itself.
    void writeObjects(const QString &name, const QByteArray &objects) const
    {
        write(name, "%PDF-1.7\n" + objects + "trailer\n<< /Root 1 0 R >>\nstartxref\n0\n%%EOF\n");
    }
};

TEST_F(DocumentBadInput, SaysWhatIsWrong)
{
    write("empty.pdf", "");
    needRefused("empty.pdf", {}, "is no PDF");
    write("other.pdf", QByteArray(5000, 'x'));
    needRefused("other.pdf");
    write("zeros.pdf", QByteArray(300000, '\0'));
    needRefused("zeros.pdf");
    needRefused("none.pdf", {}, "No such file");
    needRefused(".", {}, "no regular file");
    runProgram({"mkfifo", "pipe.pdf"}, file("."));
    needRefused("pipe.pdf", {}, "no regular file");
    write("wrong", "another\n");
    needRefused(given("encrypted-256.pdf"), {"--document-password-file", "wrong"}, "its password is another one");
    const QByteArray whole = contentOf(given("qpdf-object-streams.pdf"));
    write("cut.pdf", whole.left(whole.size() / 3));
    needRefused("cut.pdf");
}

TEST_F(DocumentBadInput, EndsWithLoopsAndDepths)
{
    writeObjects("loop.pdf",
        "1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n2 0 obj\n<< /Type /Pages /Kids [2 0 R 2 0 R] >>\nendobj\n");
    needRefused("loop.pdf", {}, "no pages");
    QByteArray deep = "1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n";
    for (int i = 2; i < 30000; ++i)
        deep += QByteArray::number(i) + " 0 obj\n<< /Type /Pages /Kids [" + QByteArray::number(i + 1)
            + " 0 R] >>\nendobj\n";
    writeObjects("deep.pdf", deep + "30000 0 obj\n<< /Type /Page >>\nendobj\n");
    const QJsonObject result = signPage("deep.pdf", "signed.pdf", {"--field", "10,10,50x30"});
    EXPECT_EQ(result["rewritten"].toBool(), true);
    writeObjects("nested.pdf", "1 0 obj\n" + QByteArray(100000, '[') + "\nendobj\n");
    needRefused("nested.pdf");
}

TEST_F(DocumentBadInput, TakesPagesOfNoSize)
{
    for (const char *box :
        {"", "/MediaBox [0 0 0 0]", "/MediaBox [0 0 1e30 1e30]", "/MediaBox [0 0 (a) 7]", "/MediaBox 5 0 R"}) {
        writeObjects("box.pdf",
            "1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n2 0 obj\n<< /Type /Pages /Kids [3 0 R] /Count 1 >>\n"
            "endobj\n3 0 obj\n<< /Type /Page /Parent 2 0 R "
                + QByteArray(box) + " >>\nendobj\n");
        const QJsonObject place = signPage("box.pdf", "signed.pdf")["place"].toObject();
        EXPECT_NEAR(place["x"].toDouble(), 612 * 25.4 / 72 - 15 - 70, 0.01) << box;
    }
}

// A disk that is too small is a limit on the size of files.
TEST_F(DocumentBadInput, LeavesNothingOnAFullDisk)
{
    write("out.pdf", "as it was");
    const QStringList before = files();
    const CommandResult result =
        runProgram({"bash", "-c", "trap '' XFSZ; ulimit -f 1; \"$0\" sign --ink a.ink \"$1\" out.pdf", KV_KVSIGN,
                       given("chromium.pdf")},
            file("."));
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("out.pdf: ")) << testing::PrintToString(result);
    EXPECT_EQ(read("out.pdf"), "as it was");
    EXPECT_EQ(files(), before);
}

} // namespace
