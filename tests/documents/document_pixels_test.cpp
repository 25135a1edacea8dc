// The ink on a page looks as on the canvas: what poppler and mupdf draw, beside the library's own picture.
#include "signeddocuments.h"

namespace {

using namespace signeddocuments;

class DocumentPixels : public Documents
{
protected:
    /// How many pixels are darker or lighter, by more than a half, than all that lie within a pixel in the other
    /// picture.
    static int strayPixels(const QImage &one, const QImage &other)
    {
        constexpr int kHalf = 128;
        int count = 0;
        for (int y = 1; y < one.height() - 1; ++y) {
            for (int x = 1; x < one.width() - 1; ++x) {
                int darkest = 255, lightest = 0;
                for (int near = 0; near < 9; ++near) {
                    const int shade = qGray(other.pixel(x - 1 + near % 3, y - 1 + near / 3));
                    darkest = std::min(darkest, shade);
                    lightest = std::max(lightest, shade);
                }
                const int shade = qGray(one.pixel(x, y));
                count += darkest - shade > kHalf || shade - lightest > kHalf ? 1 : 0;
            }
        }
        return count;
    }

    /// The area of the ink in pixels, pale ones counted as parts.
    static double inkArea(const QImage &image)
    {
        double area = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                area += (255 - qGray(image.pixel(x, y))) / 255.0;
        return area;
    }
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
            // Each program smooths edges in its own way, and the canvas draws thin lines by whole pixels, so that edges
            // may lie up to a pixel apart. Within that, poppler and mupdf differ from each other by shades of up to 78
            // of 255, and in the area of the ink by up to 3.5 %: more than a half, or than 5 %, is another line.
            EXPECT_GT(inkArea(canvas), 1000) << program;
            EXPECT_EQ(strayPixels(canvas, page), 0) << program;
            EXPECT_EQ(strayPixels(page, canvas), 0) << program;
            EXPECT_NEAR(inkArea(page) / inkArea(canvas), 1, 0.05) << program;
        }
    }
}

} // namespace
