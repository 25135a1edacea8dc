// PDF files as other programs read them.
#include "inkpicture.h"
#include "logmessages.h"
#include "outsideprogram.h"
#include "savedfiles.h"

#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>

namespace {

class PdfFiles : public testing::TestWithParam<PadCase>
{
protected:
    static constexpr int kWidth = 600;
    static constexpr int kHeight = 300;

    PdfFiles()
        : pad(GetParam(), kWidth, kHeight)
        , picture(GetParam(), kWidth, kHeight)
    {
        // A frame around the canvas, so that its edges show on the page.
        const auto packets =
            stroke(pad.type(), {{0, 0, .3}, {1.1, 0, .3}, {1.1, 1.1, .3}, {0, 1.1, .3}, {0, 0, .3}, {.7, .4, .3}});
        pad.driver.send(packets);
        picture.play(packets);
    }

    // The page as a picture.
    QImage page(int dotsPerInch) const
    {
        outputOf(
            "pdftoppm", {"-singlefile", "-r", QString::number(dotsPerInch), files.path("sig.pdf"), files.path("page")});
        return QImage(files.path("page.ppm")).convertToFormat(QImage::Format_ARGB32);
    }

    OpenPad pad;
    InkPicture picture;
    SavedFiles files;
};

INSTANTIATE_TEST_SUITE_P(AllPads, PdfFiles, testing::ValuesIn(allPads()), padCaseName);

QRect boxOfInk(const QImage &image)
{
    const QImage page = image.convertToFormat(QImage::Format_ARGB32);
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(page.constScanLine(y));
        for (int x = 0; x < page.width(); ++x) {
            if (row[x] != 0xffffffff && qGray(row[x]) < 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

TEST_P(PdfFiles, AreOneA4PageWithTheCanvasInItsTopLeftAtTheResolution)
{
    const std::pair<int, int> kLevels[] = {{IDLI_150DPI, 150}, {IDLI_300DPI, 300}};
    for (const auto &[level, dotsPerInch] : kLevels) {
        ASSERT_EQ(files.save(pad, ITI_PDF, "sig.pdf", level), ARI_SUCCESS);
        const QString info = outputOf("pdfinfo", {files.path("sig.pdf")});
        EXPECT_TRUE(info.contains(QRegularExpression("Pages: +1\n"))) << info.toStdString();
        EXPECT_TRUE(info.contains(QRegularExpression("Page size: +595 x 842 pts \\(A4\\)"))) << info.toStdString();

        // At 144 dots per inch the margins of 10 points are 20 dots.
        const QRect ink = boxOfInk(page(144));
        const QRect expected(20, 20, kWidth * 144 / dotsPerInch, kHeight * 144 / dotsPerInch);
        EXPECT_NEAR(ink.left(), expected.left(), 1);
        EXPECT_NEAR(ink.top(), expected.top(), 1);
        EXPECT_NEAR(ink.right(), expected.right(), 1);
        EXPECT_NEAR(ink.bottom(), expected.bottom(), 1);
    }
}

TEST_P(PdfFiles, HoldTheCanvasPixelByPixelOnWhite)
{
    ASSERT_EQ(files.save(pad, ITI_PDF, "sig.pdf", IDLI_300DPI), ARI_SUCCESS);
    const QString list = outputOf("pdfimages", {"-list", files.path("sig.pdf")});
    EXPECT_EQ(list.count(QRegularExpression("\n +1 +\\d+ +image ")), 1) << list.toStdString();
    EXPECT_FALSE(list.contains("smask")) << list.toStdString();
    EXPECT_TRUE(list.contains(QRegularExpression(" 600 +300 .* 300 +300 "))) << list.toStdString();
    outputOf("pdfimages", {"-png", files.path("sig.pdf"), files.path("image")});
    const QImage image = QImage(files.path("image-000.png")).convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(image.size(), picture.image.size());
    // Large images are stored as JPEG.
    double sum = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x)
            sum += std::abs(qGray(image.pixel(x, y)) - qGray(picture.image.pixel(x, y)));
    }
    EXPECT_LT(sum / (kWidth * kHeight), 1);
    EXPECT_EQ(image.pixel(300, 250), 0xffffffff);
}

// Without what changes from file to file.
QByteArray withoutDate(QByteArray pdf)
{
    QString text = QLatin1String(pdf.constData(), pdf.size());
    text.replace(QRegularExpression("D:\\d{14}[^)]*\\)"), ")");
    return text.toLatin1();
}

TEST_P(PdfFiles, AreWhatAPlainWriterWrites)
{
    ASSERT_EQ(files.save(pad, ITI_PDF, "sig.pdf", IDLI_300DPI), ARI_SUCCESS);
    QFile own(files.path("own.pdf"));
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    {
        QPdfWriter writer(&own);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setResolution(300);
        writer.setPageMargins(QMarginsF(10, 10, 10, 10));
        QPainter painter(&writer);
        picture.image.setDotsPerMeterX(11811);
        picture.image.setDotsPerMeterY(11811);
        painter.drawPixmap(0, 0, QPixmap::fromImage(picture.image));
    }
    own.close();
    EXPECT_EQ(withoutDate(files.bytes("sig.pdf")), withoutDate(files.bytes("own.pdf")));
}

TEST_P(PdfFiles, HoldTheClippedPartWhenClippingIsOn)
{
    EXPECT_EQ(pad->Clear(pad.type()), 0);
    pad.driver.send(stroke(pad.type(), {{0.4, 0.4, 0.5}, {0.6, 0.6, 0.5}}));
    EXPECT_EQ(pad->SetSaveClipImageMargin(pad.type(), true, 6, 6), 0);
    ASSERT_EQ(files.save(pad, ITI_PDF, "sig.pdf", IDLI_300DPI), ARI_SUCCESS);
    const QImage clipped = pad.canvas();
    EXPECT_LT(clipped.width(), 200);
    const QString list = outputOf("pdfimages", {"-list", files.path("sig.pdf")});
    const QString size = QString(" %1 +%2 ").arg(clipped.width()).arg(clipped.height());
    EXPECT_TRUE(list.contains(QRegularExpression(size))) << list.toStdString();
}

TEST_P(PdfFiles, OfACanvasLargerThanThePageAreCutAtItsEdge)
{
    pad->UnInitialDevice(pad.type());
    OpenPad large(GetParam(), 1500, 2000);
    large.driver.send(stroke(large.type(), {{0, 0.5, 0.5}, {1.1, 0.5, 0.5}}));
    ASSERT_EQ(files.save(large, ITI_PDF, "sig.pdf", IDLI_150DPI), ARI_SUCCESS);
    const QString info = outputOf("pdfinfo", {files.path("sig.pdf")});
    EXPECT_TRUE(info.contains("595 x 842 pts (A4)")) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression("Pages: +1\n")));
    const QImage shown = page(72);
    EXPECT_LT(qGray(shown.pixel(shown.width() - 15, 10 + 480)), 128);
}

TEST_P(PdfFiles, LogResolutionAndResult)
{
    const LogTail log;
    {
        const LogOn logOn;
        files.save(pad, ITI_PDF, "sig.pdf", IDLI_300DPI);
        files.save(pad, ITI_PDF, "no/such/directory", IDLI_150DPI);
    }
    const std::string scope = GetParam().className() + std::string("::");
    EXPECT_EQ(messagesOf(log, scope + "SaveDrawingImageAsPDFFile()"),
        (Lines{
            "<%ld>-enter, nDPI=300", "<%ld>-leave with bRet=1", "<%ld>-enter, nDPI=150", "<%ld>-leave with bRet=0"}));
}

} // namespace
