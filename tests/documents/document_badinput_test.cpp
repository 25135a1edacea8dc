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

// Opening a named pipe waits for a writer, and nobody may ever come.
TEST_F(DocumentBadInput, RefusesPipesBesideTheDocument)
{
    runProgram({"mkfifo", "pipe"}, file("."));
    write("page.pdf", contentOf(given("cairo.pdf")));
    const QString module = "pkcs11:token=Desk?module-path=" + file("pipe");
    const QList<QStringList> commands{{"sign", "--fingerprint", "pipe"}, {"sign", "--certificate", "pipe"},
        {"sign", "--certificate", module}, {"sign", "--seal", "pipe"}, {"verify", "--trust", "pipe"},
        {"verify", "--crl", "pipe"}};
    for (const QStringList &command : commands) {
        const bool signs = command.first() == "sign";
        const CommandResult result =
            run(command + (signs ? QStringList{"--ink", "a.ink", "page.pdf", "out.pdf"} : QStringList{"page.pdf"}));
        EXPECT_EQ(result.exitCode, 1) << command.join(' ').toStdString() << testing::PrintToString(result);
        EXPECT_TRUE(result.errors.contains("pipe: is no regular file")) << testing::PrintToString(result);
    }
    EXPECT_FALSE(exists("out.pdf"));
}

// With this recording nobody ever signs.
TEST_F(DocumentBadInput, RefusesAFingerprintBeforeAnybodySigns)
{
    write("page.pdf", contentOf(given("cairo.pdf")));
    write("print.png", "no picture");
    const CommandResult result =
        run({"sign", "--capture", "S300", "--timeout", "0", "--fingerprint", "print.png", "page.pdf", "out.pdf"},
            {{"KVSIM_RECORDING", "none"}});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("print.png: Unsupported image format")) << testing::PrintToString(result);
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

TEST_F(DocumentBadInput, EndsWithFieldsInLoops)
{
    const auto form = [&](const QByteArray &fields, const Objects &more) {
        Objects objects{{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields " + fields + " >> >>"},
            {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
            {3, "<< /Type /Page /Parent 2 0 R >>"}};
        writeDocument("form.pdf", objects + more);
        const QJsonObject result = signAs(People::get().anna(), "form.pdf", "signed.pdf", {"--field", "10,10,50x30"});
        EXPECT_EQ(result["field"].toString(), "Signature1");
        trusted("signed.pdf", 0);
    };
    form("[4 0 R]", {{4, "<< /T (a) /Kids [4 0 R] >>"}});
    form("[4 0 R]", {{4, "<< /T (a) /Kids [5 0 R] /Parent 5 0 R >>"}, {5, "<< /T (b) /Kids [4 0 R] /Parent 4 0 R >>"}});
    Objects chain;
    for (int i = 4; i < 5000; ++i)
        chain.append({i, "<< /T (a) /FT /Tx /Kids [" + QByteArray::number(i + 1) + " 0 R] >>"});
    form("[4 0 R]", chain);
    form("[4 0 R 4 0 R 99 0 R null (x) [ ] << /T (y) >>]", {{4, "[4 0 R]"}});
    // Flattening walks upwards too.
    writeDocument("form.pdf",
        {{1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [4 0 R 6 0 R] >> >>"},
            {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
            {3, "<< /Type /Page /Parent 2 0 R /Annots [4 0 R 6 0 R 3 0 R] >>"},
            {4, "<< /T (a) /FT /Sig /Parent 5 0 R >>"}, {5, "<< /Parent 4 0 R >>"},
            {6, "<< /T (b) /FT /Tx /Subtype /Widget /Rect [0 0 9 9] /AP << /N 6 0 R >> >>"}});
    EXPECT_EQ(signPage("form.pdf", "signed.pdf", {"--flatten", "--page", "1"})["flattened"].toInt(), 1);
}

// A few thousand bytes that become a quarter of a gigabyte: the content twice.
TEST_F(DocumentBadInput, TakesNoContentWithoutEnd)
{
    const QString bomb = "import sys, zlib\n"
                         "data = zlib.compress(zlib.compress(bytes(1 << 27), 1), 9)\n"
                         "open(sys.argv[1], 'wb').write(data)\n";
    kvsign::python(bomb, {file("bomb")});
    const QByteArray data = read("bomb");
    EXPECT_LT(data.size(), 20000);
    writeDocument("bomb.pdf",
        {{1, "<< /Type /Catalog /Pages 2 0 R >>"},
            {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
            {3, "<< /Type /Page /Parent 2 0 R /Contents [4 0 R 4 0 R] >>"},
            {4,
                "<< /Filter [/FlateDecode /FlateDecode] /Length " + QByteArray::number(data.size()) + " >>\nstream\n"
                    + data + "\nendstream"}});
    needRefused("bomb.pdf", {}, "cannot be read as a PDF");
}

#ifndef KV_SANITIZED // each byte is looked at by itself, which takes minutes with the sanitizers
// A file of many gigabytes that takes no place on the disk. Searching it to its end would take minutes.
TEST_F(DocumentBadInput, SearchesNoFileWithoutEnd)
{
    write("endless.pdf", "%PDF-1.7\n1 0 obj\n<< /Type /Catalog >>\nendobj\n");
    QFile endless(file("endless.pdf"));
    EXPECT_TRUE(endless.resize(qint64{1} << 40));
    const CommandResult result = run({"verify", "endless.pdf"});
    EXPECT_EQ(result.exitCode, 1) << testing::PrintToString(result);
    EXPECT_TRUE(result.errors.contains("too large to be searched")) << testing::PrintToString(result);
}
#endif

// Almost ten gigabytes, of which the disk has a few hundred bytes: in a larger file places would have eleven digits.
TEST_F(DocumentBadInput, AppendsToNoFileOfTenGigabytes)
{
    constexpr qint64 kEnd = 9'900'000'000;
    writeDocument("large.pdf",
        {{1, "<< /Type /Catalog /Pages 2 0 R >>"},
            {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
            {3, "<< /Type /Page /Parent 2 0 R >>"}});
    const int previous = numberBehind(read("large.pdf"), "startxref");
    QFile large(file("large.pdf"));
    ASSERT_TRUE(large.open(QIODevice::ReadWrite) && large.resize(kEnd) && large.seek(kEnd));
    large.write("xref\n0 0\ntrailer\n<< /Size 4 /Root 1 0 R /Prev " + QByteArray::number(previous)
        + " >>\nstartxref\n9900000000\n%%EOF\n");
    large.close();
    needRefused("large.pdf", {}, "is too large: places in a PDF have ten digits");
}

TEST_F(DocumentBadInput, LooksAtSoManySignaturesOnly)
{
    QByteArray fields;
    Objects objects{{2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
        {3, "<< /Type /Page /Parent 2 0 R >>"}};
    for (int i = 4; i < 1004; ++i) {
        fields += QByteArray::number(i) + " 0 R ";
        objects.append({i,
            "<< /FT /Sig /T (f" + QByteArray::number(i)
                + ") /V << /Type /Sig /ByteRange [0 100 110 100] /Contents <00> >> >>"});
    }
    objects.append({1, "<< /Type /Catalog /Pages 2 0 R /AcroForm << /Fields [" + fields + "] >> >>"});
    writeDocument("many.pdf", objects);
    const CommandResult result = run({"verify", "many.pdf"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors.toStdString(), "kvsign: many.pdf: has 1000 signatures; more than 500 are not looked at\n");
}

} // namespace
