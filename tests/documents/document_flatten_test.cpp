// Form fields that become a part of their pages, tags and alternative texts.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentParts : public Documents
{
};

TEST_F(DocumentParts, FlattensFieldsAndKeepsWhatTheyShow)
{
    const QJsonObject result =
        signAs(People::get().anna(), given("written-form.pdf"), "flat.pdf", {"--flatten", "--form-field", "driver"});
    EXPECT_EQ(result["flattened"].toInt(), 2);
    needSound("flat.pdf");
    EXPECT_TRUE(read("flat.pdf").startsWith(contentOf(given("written-form.pdf"))));
    const QString form = says({"qpdf", "--json", "--json-key=acroform", "flat.pdf"});
    EXPECT_FALSE(form.contains("remark"));
    EXPECT_TRUE(form.contains("customer") && form.contains("driver"));
    EXPECT_TRUE(says({"pdftotext", "flat.pdf", "-"}).contains("left at the door"));
    trusted("flat.pdf", 0);
    // The upper part of the page, where the two fields are, looks as before.
    const QImage before = drawn("mutool", given("written-form.pdf"), 72), after = drawn("mutool", "flat.pdf", 72);
    const QRect upper(0, 0, 400, 300);
    EXPECT_EQ(kvsign::differingPixels(before.copy(upper), after.copy(upper)), 0);
    const CommandResult again = run({"sign", "--ink", "a.ink", "--flatten", "flat.pdf", "b.pdf"});
    EXPECT_EQ(again.exitCode, 1) << testing::PrintToString(again);
}

TEST_F(DocumentParts, DescribeTheInkInATaggedDocument)
{
    signPage(given("libreoffice.pdf"), "one.pdf", {"--name", "Zoë Müller"});
    const QString one = says({"pdfinfo", "-struct-text", "one.pdf"});
    EXPECT_TRUE(one.contains("Figure")) << one.toStdString();
    EXPECT_TRUE(one.contains("Delivery note")) << one.toStdString();
    const QString objects = says({"qpdf", "--json", "--json-key=qpdf", "one.pdf"});
    EXPECT_TRUE(objects.contains("u:Signature of Zoë Müller, ")) << objects.right(3000).toStdString();
    signAs(People::get().anna(), "one.pdf", "two.pdf", {"--field", "20,20,50x30"});
    needSound("two.pdf");
    EXPECT_TRUE(says({"pdfinfo", "-struct-text", "two.pdf"}).contains("Form"));
    EXPECT_TRUE(says({"qpdf", "--json", "--json-key=qpdf", "two.pdf"}).contains("u:Signature of Anna Example, "));
    trusted("two.pdf", 0);
}

TEST_F(DocumentParts, ShowAFingerprintWhoseWhiteIsTransparent)
{
    QImage print(60, 90, QImage::Format_Grayscale8);
    print.fill(Qt::white);
    for (int y = 0; y < 90; ++y)
        for (int x = 20; x < 40; ++x)
            print.setPixel(x, y, qRgb(90, 90, 90));
    print.save(file("print.png"));
    signPage(given("written-two-pages.pdf"), "plain.pdf", {"--field", "5,5,80x45", "--page", "1"});
    signPage(given("written-two-pages.pdf"), "print.pdf",
        {"--field", "5,5,80x45", "--page", "1", "--fingerprint", "print.png"});
    needSound("print.pdf");
    for (const char *program : {"pdftoppm", "mutool"}) {
        const QImage plain = drawn(program, "plain.pdf", 100), both = drawn(program, "print.pdf", 100);
        // A third of the stripe's own 26.7 by 40 mm picture is grey; nothing else changes.
        const int grey = kvsign::differingPixels(plain, both, 30);
        const double stripe = (80 / 3.0 / 3) * 40 / (25.4 / 100) / (25.4 / 100);
        EXPECT_NEAR(grey, stripe, stripe * 0.12) << program;
    }
}

} // namespace
