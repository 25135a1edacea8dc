// The ink on a page looks as on the canvas: what poppler and mupdf draw, beside the library's own picture.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentPixels : public Documents
{
};

constexpr int kDpi = 300;
constexpr int kWidth = 800, kHeight = 452; // pixels of an S300's canvas

TEST_F(DocumentPixels, AreThoseOfTheCanvas)
{
    for (const char *recording : {"signature", "initials", "dots-and-dashes"}) {
        SCOPED_TRACE(recording);
        capture(recording, "S300", {"canvas.png", "b.ink"});
        const QImage canvas = kvsign::onWhite(QImage(file("canvas.png")));
        ASSERT_EQ(canvas.size(), QSize(kWidth, kHeight));
        // A pixel of the canvas is one of the page, 24 pixels from its edges.
        runWell({"sign", "--ink", "b.ink", "--model", "S300", "--page", "1", "--field",
            QString("%1,%1,%2x%3")
                .arg(24 * 25.4 / kDpi, 0, 'f', 6)
                .arg(kWidth * 25.4 / kDpi, 0, 'f', 6)
                .arg(kHeight * 25.4 / kDpi, 0, 'f', 6),
            given("written-hybrid.pdf"), "signed.pdf"});
        for (const char *program : {"pdftoppm", "mutool"}) {
            const QImage page = drawn(program, "signed.pdf", kDpi).copy(24, 24, kWidth, kHeight);
            const int ink = kvsign::inkPixels(canvas);
            EXPECT_GT(ink, 500) << program;
            // Edges are smoothed in other ways: a pixel may be a half lighter or darker, but hardly more.
            EXPECT_LT(kvsign::differingPixels(canvas, page, 160), ink / 20) << program;
            EXPECT_NEAR(kvsign::inkPixels(page), ink, ink * 0.15) << program;
        }
    }
}

} // namespace
