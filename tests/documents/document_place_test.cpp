// Ink lies where it was asked for, to a tenth of a millimetre, on pages that are turned, cut and scaled.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentPlace : public Documents
{
protected:
    DocumentPlace()
    {
        // An S300's canvas, 2300 by 1300 units: a frame through the middle of its quarters, one pixel thin.
        write("frame.ink",
            kvsign::record({{775, 525, 0, false, 0, 0}, {1925, 525, 0, false, 5, 0}, {1925, 1175, 0, false, 10, 0},
                {775, 1175, 0, false, 15, 0}, {775, 525, 0, false, 20, 0}, {775, 525, 0, true, 25, 0}}));
    }

    /// A field of 92 by 52 mm holds the canvas exactly: the frame is half as large, in its middle.
    void needPlaced(const QString &name, const QStringList &options) const
    {
        SCOPED_TRACE(name.toStdString());
        runWell(QStringList{"sign", "--ink", "frame.ink", "--model", "S300", "--color", "red", "--field", "60,30,92x52"}
            + options + QStringList{given(name), "placed.pdf"});
        needSound("placed.pdf");
        for (const char *program : {"pdftoppm", "mutool"}) {
            SCOPED_TRACE(program);
            // poppler has no user unit: it draws such a page smaller by it.
            const bool isHalf = name.contains("180") && QString(program) == "pdftoppm";
            const QImage image = drawn(program, "placed.pdf", isHalf ? 600 : 300);
            const QRectF box = redBox(image, 300);
            constexpr double kPixel = 92.0 / 800;
            EXPECT_NEAR(image.width() * 25.4 / 300, 200, 0.2);
            EXPECT_NEAR(box.center().x(), 60 + 46, 0.1);
            EXPECT_NEAR(box.center().y(), 30 + 26, 0.1);
            EXPECT_NEAR(box.width(), 46 + kPixel, 0.15);
            EXPECT_NEAR(box.height(), 26 + kPixel, 0.15);
        }
    }
};

TEST_F(DocumentPlace, IsRightOnEveryPage)
{
    for (const char *rotation : {"0", "90", "180", "270"})
        needPlaced(QString("written-rotated-%1.pdf").arg(rotation), {});
}

TEST_F(DocumentPlace, IsRightInASignatureField)
{
    for (const char *rotation : {"0", "90", "180", "270"})
        needPlaced(QString("written-rotated-%1.pdf").arg(rotation),
            {"--certificate", People::get().anna(), "--password-file", People::get().password()});
}

// The first page leaves a scale behind, the second closes more than it opened.
TEST_F(DocumentPlace, DoesNotDependOnWhatThePageLeavesOpen)
{
    for (const char *page : {"1", "2"}) {
        runWell({"sign", "--ink", "frame.ink", "--model", "S300", "--color", "red", "--page", page, "--field",
            "10,50,46x26", given("written-two-pages.pdf"), "placed.pdf"});
        const QRectF box = redBox(drawn("mutool", "placed.pdf", 300, QString(page).toInt()), 300);
        EXPECT_NEAR(box.center().x(), 10 + 23, 0.1) << page;
        EXPECT_NEAR(box.center().y(), 50 + 13, 0.1) << page;
        EXPECT_NEAR(box.width(), 23, 0.3) << page;
    }
}

TEST_F(DocumentPlace, MustLieOnThePage)
{
    for (const char *field : {"150,30,92x52", "60,30,92x200", "10,10,0.2x0.2"}) {
        const CommandResult result =
            run({"sign", "--ink", "a.ink", "--field", field, given("written-rotated-90.pdf"), "b.pdf"});
        EXPECT_EQ(result.exitCode, 2) << field << testing::PrintToString(result);
        const bool isSmall = QByteArray(field).endsWith("0.2");
        EXPECT_TRUE(result.errors.contains(isSmall ? "less than 1 mm is too small" : "200.0 by 100.0 mm"))
            << testing::PrintToString(result);
    }
    EXPECT_FALSE(exists("b.pdf"));
}

} // namespace
