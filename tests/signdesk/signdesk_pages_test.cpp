// Pages from untrusted sources: things that are no files, files that cost too much, files that change while open.
#include "outsidecommand.h"
#include "pagepicture.h"
#include "signdesk.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QtEndian>

#include <sys/stat.h>

namespace {

/// A small JPEG with several scans.
QByteArray progressiveJpeg()
{
    QImage picture(16, 16, QImage::Format_RGB32);
    for (int i = 0; i < 256; ++i)
        picture.setPixel(i % 16, i / 16, qRgb(i, 255 - i, i * 7 % 256));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    EXPECT_TRUE(writer.write(picture));
    return buffer.data();
}

/// The JPEG with its last scan repeated until it has the wanted number of scans.
QByteArray withScans(const QByteArray &jpeg, int wanted)
{
    const int last = jpeg.lastIndexOf("\xff\xda");
    const QByteArray scan = jpeg.mid(last, jpeg.size() - 2 - last);
    return jpeg.left(jpeg.size() - 2) + scan.repeated(wanted - jpeg.count("\xff\xda")) + "\xff\xd9";
}

/// The JPEG with another size in its header, for which it has too little data.
QByteArray withSize(QByteArray jpeg, quint16 width, quint16 height)
{
    const int frame = jpeg.indexOf("\xff\xc0");
    EXPECT_GT(frame, 0);
    qToBigEndian(height, jpeg.data() + frame + 5);
    qToBigEndian(width, jpeg.data() + frame + 7);
    return jpeg;
}

QByteArray plainJpeg()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(QImage(16, 16, QImage::Format_RGB32).save(&buffer, "jpg"));
    return buffer.data();
}

class SignDeskPage : public SignDesk
{
protected:
    /// A PDF page of 400 by 500 points with a black square `at` points from the left.
    QString pdfWithSquare(const QString &name, int at)
    {
        QPdfWriter writer(file(name));
        writer.setResolution(72);
        writer.setPageMargins({});
        writer.setPageSize(QPageSize(QSizeF(400, 500), QPageSize::Point, QString(), QPageSize::ExactMatch));
        QPainter painter(&writer);
        painter.fillRect(at, 20, 20, 20, Qt::black);
        return file(name);
    }

    void expectSquareIn(const QString &pdf, int at)
    {
        const QImage page = drawnPdf(pdf);
        EXPECT_EQ(page.size(), QSize(800, 1000));
        EXPECT_TRUE(near(inPoints(boxOf(page.copy(0, 0, page.width(), 100), isInk)), QRectF(at, 20, 20, 20), 1));
    }
};

TEST_F(SignDeskPage, APipeIsNotWaitedFor)
{
    const QString pipe = file("pipe.pdf");
    ASSERT_EQ(::mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    openInVain(pipe, "it is no file.");
    openInVain("/dev/zero", "it is no file.");
    openInVain(QFileInfo(pipe).path(), "it is no file.");
}

TEST_F(SignDeskPage, AJpegOfTooManyScansIsRefused)
{
    const QByteArray jpeg = progressiveJpeg();
    ASSERT_GT(jpeg.count("\xff\xda"), 3);
    EXPECT_EQ(signdesk::scansOfJpeg(jpeg), jpeg.count("\xff\xda"));
    EXPECT_TRUE(window->openPage(written("100.jpg", withScans(jpeg, 100))));
    openInVain(written("101.jpg", withScans(jpeg, 101)), "it is a JPEG of too many scans.");
    openInVain(written("5000.png", withScans(jpeg, 5000)), "it is a JPEG of too many scans."); // whatever it is called
}

/// The JPEG with restart markers announced, so that a decoder skips unknown markers within a scan instead of stopping.
QByteArray withRestarts(QByteArray jpeg)
{
    return jpeg.insert(jpeg.indexOf("\xff\xda"), QByteArray("\xff\xdd\x00\x04\x00\x01", 6));
}

TEST_F(SignDeskPage, ScansDoNotHideBehindMarkersThatNobodyKnows)
{
    const QByteArray jpeg = withRestarts(withScans(progressiveJpeg(), 150));
    const int data = jpeg.indexOf("\xff\xda") + 14; // where the first scan's data begin
    for (const QByteArray &cover :
        {QByteArray("\xff\x05\x7f\xfe", 4), QByteArray("\xff\xbf\x7f\xfe", 4), QByteArray("\xff\x02\x7f\x00", 4)}) {
        const QByteArray hidden = jpeg.left(data) + cover + jpeg.mid(data);
        EXPECT_EQ(signdesk::scansOfJpeg(hidden), 150) << cover.toHex().toStdString();
        openInVain(written("hidden.jpg", hidden), "it is a JPEG of too many scans.");
    }
}

TEST_F(SignDeskPage, ScansAreNotFoundWhereThereAreNone)
{
    QByteArray jpeg = plainJpeg();
    const QByteArray marks = QByteArray("\xff\xda").repeated(200);
    EXPECT_EQ(signdesk::scansOfJpeg(jpeg + marks), 1) << "behind the end";
    QByteArray length(2, '\0');
    qToBigEndian(static_cast<quint16>(marks.size() + 2), length.data());
    jpeg.insert(2, "\xff\xfe" + length + marks);
    EXPECT_EQ(signdesk::scansOfJpeg(jpeg), 1) << "in a comment, as small pictures of cameras are";
    EXPECT_TRUE(window->openPage(written("comment.jpg", jpeg)));
    for (int size = 0; size < jpeg.size(); ++size)
        EXPECT_LE(signdesk::scansOfJpeg(jpeg.left(size)), 1) << size;
}

TEST_F(SignDeskPage, APictureOfTooManyPixelsIsRefused)
{
    const QString why = "it has more pixels than there is memory for.";
    openInVain(written("square.jpg", withSize(plainJpeg(), 12000, 12000)), why);
    openInVain(written("largest.jpg", withSize(plainJpeg(), 65500, 65500)), why);
    openInVain(written("bits.pbm", "P4\n30000 30000\n" + QByteArray(5000, '\0')), why);
    openInVain(
        written("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='100000' height='100000'><g/></svg>"),
        why);
    EXPECT_TRUE(window->openPage(written("plan.jpg", withSize(plainJpeg(), 9000, 7000)))); // A2 at 300 dots to the inch
}

/// Qt would wait for a pipe, or read a JPEG of any size and any number of scans.
TEST_F(SignDeskPage, AnSvgThatLoadsMoreIsRefused)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(file("pipe.png")), 0600), 0);
    const QByteArray jpeg = "data:image/jpeg;base64," + withScans(progressiveJpeg(), 150).toBase64();
    const QByteArray start = "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                             "width='100' height='100'>";
    for (const QByteArray &svg : {start + "<image width='9' height='9' xlink:href='" + jpeg + "'/></svg>",
             start + "<g><image width='9' height='9' xlink:href='" + QFile::encodeName(file("pipe.png"))
                 + "'/></g></svg>",
             start + "<svg:image xmlns:svg='http://www.w3.org/2000/svg' xlink:href='pipe.png'/></svg>",
             "<?xml version='1.0'?><?xml-stylesheet type='text/css' href='" + QFile::encodeName(file("pipe.png"))
                 + "'?>" + start + "</svg>",
             "<!DOCTYPE svg [<!ENTITY p '<image width=\"9\" height=\"9\"/>'>]>" + start + "&p;</svg>"})
        openInVain(written("drawing.svg", svg), "it is an SVG with pictures or style sheets; make a PDF of it first.");
    EXPECT_TRUE(
        window->openPage(written("plain.svg", start + "<?xpacket begin=''?><rect width='50' height='50'/></svg>")));
}

TEST_F(SignDeskPage, APackedSvgIsRefused)
{
    // As gzip packs it: a header, the rest as zlib makes it, sums that Qt does not ask for.
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='100' height='100'><g/></svg>";
    const QByteArray packed = qCompress(svg).mid(6).chopped(4);
    QByteArray gzip("\x1f\x8b\x08\0\0\0\0\0\0\x03", 10);
    quint32 crc = 0xffffffff;
    for (const char byte : svg) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xedb88320 : 0);
    }
    gzip += packed;
    for (const quint32 number : {~crc, static_cast<quint32>(svg.size())})
        for (int i = 0; i < 4; ++i)
            gzip += static_cast<char>(number >> 8 * i & 0xff);
    QImage picture;
    ASSERT_TRUE(picture.loadFromData(gzip)) << "Qt would read it";
    openInVain(written("drawing.svg", gzip), "it is neither a PDF nor a picture.");
}

TEST_F(SignDeskPage, APdfThatIsCutOffWhileItIsOpenIsSavedAsItWasOpened)
{
    const QString path = pdfWithSquare("page.pdf", 40);
    ASSERT_TRUE(window->openPage(path));
    signAndConfirm(kS300Family);
    ASSERT_TRUE(QFile::resize(path, 100));
    save(file("signed.pdf"));
    EXPECT_EQ(note(), "The page is saved as it was when it was opened: its file has changed since then.");
    expectSquareIn(file("signed.pdf"), 40);
}

TEST_F(SignDeskPage, APdfThatIsReplacedWhileItIsOpenIsSavedAsItWasOpened)
{
    const QString path = pdfWithSquare("page.pdf", 40);
    ASSERT_TRUE(window->openPage(path));
    signAndConfirm(kS300Family);
    pdfWithSquare("page.pdf", 240);
    QFile again(path); // the new file has the same size, so only its time tells them apart
    ASSERT_TRUE(again.open(QIODevice::ReadWrite));
    ASSERT_TRUE(again.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));
    again.close();
    save(file("signed.pdf"));
    EXPECT_EQ(note(), "The page is saved as it was when it was opened: its file has changed since then.");
    expectSquareIn(file("signed.pdf"), 40);
}

TEST_F(SignDeskPage, AFileThatStaysIsNotSaidToHaveChanged)
{
    const QString path = pdfWithSquare("page.pdf", 40);
    ASSERT_TRUE(window->openPage(path));
    signAndConfirm(kS300Family);
    save(file("signed.pdf"));
    EXPECT_EQ(note(), "Saved as signed.pdf. Press Done for the next customer.");
    ASSERT_TRUE(QFile::remove(path)); // as happens in a downloads folder
    save(file("again.pdf"));
    EXPECT_EQ(note(), "Saved as again.pdf. Press Done for the next customer.");
    expectSquareIn(file("again.pdf"), 40);
}

} // namespace
