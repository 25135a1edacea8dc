// Ink on pages whose content is not as it should be: it is seen where it belongs, or refused before anybody signs.
#include "signeddocuments.h"

#include <QJsonArray>

namespace {

using namespace signeddocuments;

class DocumentContent : public Documents
{
protected:
    void writePage(const QByteArray &contents, const Objects &more, const QByteArray &catalogue = {}) const
    {
        writeDocument("page.pdf",
            Objects{{1, "<< /Type /Catalog /Pages 2 0 R " + catalogue + " >>"},
                {2, "<< /Type /Pages /Kids [3 0 R] /Count 1 /MediaBox [0 0 400 500] >>"},
                {3,
                    "<< /Type /Page /Parent 2 0 R " + contents
                        + " /Resources << /Properties << /MC0 9 0 R >> /Font << /F1 8 0 R >> >> >>"},
                {8, "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"}, {9, "<< /Type /OCG /Name (hidden) >>"}}
                + more);
    }

    static QByteArray stream(const QByteArray &content)
    {
        return "<< /Length " + QByteArray::number(content.size()) + " >>\nstream\n" + content + "\nendstream";
    }

    /// The ink must be where it lies on a page without any content, whatever else a program complains of.
    void needInk(const QRectF &expected) const
    {
        signPage("page.pdf", "signed.pdf", {"--field", "20,30,60x40", "--color", "red"});
        for (const QStringList &program : {QStringList{"pdftoppm", "-singlefile", "-r", "100", "signed.pdf", "drawn"},
                 QStringList{"mutool", "draw", "-q", "-r", "100", "-o", "drawn.ppm", "signed.pdf", "1"}}) {
            QFile::remove(file("drawn.ppm"));
            runProgram(program, file("."));
            const QRectF box = redBox(QImage(file("drawn.ppm")), 100);
            for (const double off : {box.left() - expected.left(), box.top() - expected.top(),
                     box.right() - expected.right(), box.bottom() - expected.bottom()})
                EXPECT_NEAR(off, 0, 0.3) << program.first().toStdString();
        }
    }
};

constexpr char kHidden[] = "/OCProperties << /OCGs [9 0 R] /D << /OFF [9 0 R] >> >>";

TEST_F(DocumentContent, IsFollowedByInkWhateverItLeavesOpen)
{
    writePage("", {});
    signPage("page.pdf", "signed.pdf", {"--field", "20,30,60x40", "--color", "red"});
    const QRectF expected = redBox(drawn("mutool", "signed.pdf", 100), 100);
    ASSERT_GT(expected.width(), 20);
    struct Row
    {
        const char *what;
        QByteArray content;
    };
    const Row rows[] = {{"a hidden layer", "/OC /MC0 BDC q 2 0 0 2 0 0 cm"},
        {"two of them in a state", "q /OC /MC0 BDC /OC /MC0 BDC 0 0 9 9 re f EMC"},
        {"a text", "BT /F1 12 Tf 50 50 Td (open) Tj"}, {"a clip", "0 0 1 1 re W n"},
        {"too many ends", "EMC Q Q ET EMC"}, {"a comment", "0 0 9 9 re f % to the end"}, {"a path", "0 0 m 50 50 l"},
        {"a stray bracket", "0 0 9 9 re f ) ]"}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        writePage("/Contents 4 0 R", {{4, stream(row.content)}}, kHidden);
        needInk(expected);
    }
    SCOPED_TRACE("streams that are none");
    writePage("/Contents [4 0 R 99 0 R null 8 0 R 5 0 R]", {{4, stream("q")}, {5, stream("/OC /MC0 BDC")}}, kHidden);
    needInk(expected);
}

TEST_F(DocumentContent, IsRefusedWhenItSwallowsTheInk)
{
    for (const QByteArray &content : {stream("BT /F1 12 Tf (never ends"), stream("[1 2"), stream("/P << /MCID 0"),
             stream("<41"), stream("BI /W 1 /H 1 ID x"), "<< /Filter /FlateDecode " + stream("((((((((").mid(2),
             "<< /Filter /JBIG2Decode " + stream("((((((((").mid(2)}) {
        SCOPED_TRACE(content.toStdString());
        writePage("/Contents [4 0 R]", {{4, content}});
        const CommandResult refused = run({"sign", "--ink", "a.ink", "page.pdf", "b.pdf"});
        EXPECT_EQ(refused.exitCode, 1) << testing::PrintToString(refused);
        EXPECT_TRUE(refused.errors.contains("the content of page 1 is broken")) << testing::PrintToString(refused);
        EXPECT_FALSE(exists("b.pdf"));
    }
    signAs(People::get().anna(), "page.pdf", "signed.pdf"); // beside the content, not behind it
    trusted("signed.pdf", 0);
}

TEST_F(DocumentContent, OfXfaIsNoPage)
{
    const QByteArray form = "/AcroForm << /Fields [] /XFA 10 0 R >> ";
    writePage("/Contents 4 0 R", {{4, stream("")}, {10, stream("<xdp/>")}}, form + "/NeedsRendering true");
    const CommandResult refused = run({"sign", "--ink", "a.ink", "page.pdf", "b.pdf"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.errors.contains("is an XFA form")) << testing::PrintToString(refused);
    writePage("/Contents 4 0 R", {{4, stream("")}, {10, stream("<xdp/>")}}, form);
    EXPECT_TRUE(signPage("page.pdf", "signed.pdf")["notes"].toArray()[0].toString().contains("XFA"));
    EXPECT_EQ(signPage("page.pdf", "signed.pdf", {"--flatten"})["notes"], QJsonValue(QJsonArray()));
}

// What is appended to a document for archives leaves it one, as far as that can be.
TEST_F(DocumentContent, OfAnArchiveStaysAsItMustBe)
{
    const QByteArray catalogue = "/Metadata 10 0 R";
    QImage print(30, 20, QImage::Format_RGB32);
    print.fill(Qt::white);
    print.setPixel(3, 4, qRgb(9, 90, 200));
    print.save(file("print.png"));
    for (const char *part : {"pdfaid:part=\"1\"", "<pdfaid:part>2</pdfaid:part>", "<pdfaid:part>3</pdfaid:part>"}) {
        SCOPED_TRACE(part);
        writePage("/Contents 4 0 R", {{4, stream("")}, {10, "<< /Type /Metadata /Subtype /XML " + stream(part).mid(2)}},
            catalogue);
        const QJsonObject result =
            signAs(People::get().anna(), "page.pdf", "signed.pdf", {"--fingerprint", "print.png"});
        EXPECT_EQ(result["notes"], QJsonValue(QJsonArray()));
        // No transparency, and colours only where there are some.
        const QByteArray added = says({"qpdf", "--qdf", "signed.pdf", "-"}).toUtf8();
        EXPECT_FALSE(added.contains("/SMask") || added.contains("/ca ") || added.contains("/Group")) << added.size();
        EXPECT_TRUE(added.contains("0 G\n") && !added.contains(" RG\n"));
        const QJsonArray notes =
            signAs(People::get().anna(), "page.pdf", "sealed.pdf", {"--seal", People::get().expert() + ".pem"})["notes"]
                .toArray();
        EXPECT_EQ(notes.size(), QByteArray(part).contains('3') ? 0 : 1);
    }
}

} // namespace
