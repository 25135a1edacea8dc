// What leaves the sign desk, checked with other programs: signed pages, signatures, fingerprints, printed paper.
#include "signdesk.h"

#include "outsidecommand.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QRegularExpression>
#include <QSpinBox>

#include <cstring>

namespace {

/// Where the line that signAndConfirm writes lies on a page, in points.
QRectF lineOf(const QRectF &field)
{
    return {field.x() + 0.2 * field.width(), field.center().y(), 0.6 * field.width(), 0};
}

constexpr double kPenWidth = 6; ///< the widest that the line may be, in points

class OutputOfEachModel : public SignDesk, public testing::WithParamInterface<Family>
{
};

TEST_P(OutputOfEachModel, TheSignedPageHasTheInkAtItsPlace)
{
    signAndConfirm(GetParam());
    const QString path = file("signed.pdf");
    whenDialogComes([&](QDialog &dialog) { giveFile(dialog, path); });
    press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(happened());
    EXPECT_EQ(note(), "Saved as signed.pdf. Press Done for the next customer.");
    EXPECT_FALSE(window->isWindowModified());

    const QRectF line = lineOf(sheet().field());
    const QImage page = drawnPdf(path);
    EXPECT_EQ(page.size(), QSize(1190, 1684));
    EXPECT_TRUE(near(inPoints(boxOf(page, isInk)), line, kPenWidth));
}

INSTANTIATE_TEST_SUITE_P(Models, OutputOfEachModel, testing::ValuesIn(kFamilies),
    [](const auto &row) { return std::string(row.param.prefix, std::strlen(row.param.prefix) - 1); });

class SignDeskOutput : public SignDesk
{
protected:
    /// A PDF of three pages of different sizes. Page n has n black squares at its top left.
    QString threePages()
    {
        const QString path = file("three.pdf");
        QPdfWriter writer(path);
        writer.setResolution(72);
        writer.setPageMargins({});
        writer.setPageSize(QPageSize(kSizes[0], QPageSize::Point, QString(), QPageSize::ExactMatch));
        QPainter painter(&writer);
        for (int page = 0; page < 3; ++page) {
            if (page > 0) {
                writer.setPageSize(QPageSize(kSizes[page], QPageSize::Point, QString(), QPageSize::ExactMatch));
                writer.newPage();
            }
            for (int i = 0; i <= page; ++i)
                painter.fillRect(20 + 30 * i, 20, 20, 20, Qt::black);
        }
        return path;
    }

    QString exported(const QString &name)
    {
        const QString path = file(name);
        whenDialogComes([&](QDialog &dialog) { giveFile(dialog, path); });
        press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(happened());
        return path;
    }

    static constexpr QSizeF kSizes[] = {{400, 500}, {600, 300}, {420, 420}};
};

TEST_F(SignDeskOutput, TheSignedPageIsAPictureToo)
{
    signAndConfirm(kS300Family);
    save(file("signed.png"));
    const QImage picture(file("signed.png"));
    EXPECT_EQ(picture.dotsPerMeterX(), 11811); // 300 dots an inch
    EXPECT_EQ(picture.size(), QSize(2479, 3508));
    const QImage drawn = picture.scaled(1190, 1684);
    EXPECT_TRUE(near(inPoints(boxOf(drawn, isInk)), lineOf(sheet().field()), kPenWidth));
}

TEST_F(SignDeskOutput, TheSecondOfThreePagesIsSigned)
{
    const QString source = threePages();
    whenDialogComes([&](QDialog &dialog) { giveFile(dialog, source); });
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_TRUE(happened());
    EXPECT_EQ(window->windowTitle(), "three.pdf[*] - Sign Desk");
    auto *const page = labelled<QSpinBox>("Page");
    page->setFocus();
    QTest::keyClick(page, Qt::Key_Up);
    EXPECT_EQ(sheet().pageSize(), kSizes[1]);
    signAndConfirm(kS300Family);
    EXPECT_FALSE(page->isEnabled());
    const QString path = file("signed.pdf");
    save(path);
    const QRectF field = sheet().field();
    for (int i = 0; i < 3; ++i) {
        const QImage drawn = drawnPdf(path, i + 1);
        EXPECT_EQ(drawn.size(), (kSizes[i] * kDrawnScale).toSize());
        const QRect squares = boxOf(drawn.copy(0, 0, drawn.width(), 90), isInk);
        EXPECT_TRUE(near(inPoints(squares), QRectF(20, 20, 20 + 30 * i, 20), 1)) << "page " << i + 1;
        const QRect below = boxOf(drawn.copy(0, 90, drawn.width(), drawn.height() - 90), isInk).translated(0, 90);
        if (i == 1)
            EXPECT_TRUE(near(inPoints(below), lineOf(field), kPenWidth));
        else
            EXPECT_TRUE(below.isNull()) << "page " << i + 1;
    }
    const CommandResult info = runProgram({"pdfinfo", path}, "/");
    EXPECT_TRUE(info.output.contains(QRegularExpression("Pages: +3\n"))) << testing::PrintToString(info);
}

TEST_F(SignDeskOutput, APictureIsSigned)
{
    QImage picture(800, 400, QImage::Format_RGB32); // 600 by 300 points at 96 dots an inch
    picture.setDotsPerMeterX(3780);
    picture.setDotsPerMeterY(3780);
    picture.fill(Qt::white);
    for (int i = 0; i < 40; ++i)
        for (int j = 0; j < 40; ++j)
            picture.setPixelColor(40 + i, 40 + j, Qt::black);
    ASSERT_TRUE(picture.save(file("form.jpg")));
    ASSERT_TRUE(window->openPage(file("form.jpg")));
    EXPECT_TRUE(near(QRectF({}, sheet().pageSize()), {0, 0, 600, 300}, 1));
    signAndConfirm(kR800Family);
    const QString path = file("signed.pdf");
    save(path);
    const QImage drawn = drawnPdf(path);
    EXPECT_TRUE(near(inPoints(boxOf(drawn.copy(0, 0, 300, 300), isInk)), {30, 30, 30, 30}, 1.5));
    const QRectF field = sheet().field();
    EXPECT_TRUE(near(inPoints(boxOf(drawn.copy(300, 0, drawn.width() - 300, drawn.height()), isInk).translated(300, 0)),
        lineOf(field), kPenWidth));
}

TEST_F(SignDeskOutput, TheSignatureIsExportedInEveryFormat)
{
    signAndConfirm(kS300Family);
    const struct
    {
        const char *name;
        const char *kind; // what file(1) calls it
    } kinds[] = {{"a.png", "PNG image data"}, {"a.jpg", "JPEG image data"}, {"a.bmp", "PC bitmap"},
        {"a.pdf", "PDF document"}, {"a.svg", "SVG"}};
    const double canvasWidth = 800;
    for (const auto &kind : kinds) {
        const QString path = exported(kind.name);
        EXPECT_EQ(note(), "The signature is exported.");
        const CommandResult told = runProgram({"file", "--brief", path}, "/");
        EXPECT_TRUE(told.output.contains(kind.kind)) << kind.name << " is " << told.output.toStdString();
    }
    // The length of the line, half a pen width of 1024 * 2 / 306 pixels at each end, and a margin of 6 on each side.
    const double cutWidth = 0.6 * canvasWidth + 6.7 + 12;
    EXPECT_NEAR(QImage(file("a.bmp")).width(), cutWidth, 4);
    EXPECT_EQ(QImage(file("a.png")).pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(QImage(file("a.jpg")).dotsPerMeterX(), 11811);
    ASSERT_EQ(runProgram({"rsvg-convert", "-o", file("svg.png"), file("a.svg")}, "/").exitCode, 0);
    const QImage vector(file("svg.png"));
    const QRect lines = boxOf(vector, [](const QColor &colour) { return colour.alpha() > 128; });
    EXPECT_NEAR(lines.width(), vector.width() * (cutWidth - 12) / cutWidth, vector.width() * 0.03);
    EXPECT_FALSE(boxOf(drawnPdf(file("a.pdf")), isInk).isEmpty());

    QTest::mouseClick(button("Cut exports to the ink"), Qt::LeftButton, Qt::NoModifier, QPoint(8, 8));
    labelled<QComboBox>("Quality")->setCurrentIndex(1);
    const QImage whole(exported("whole.bmp"));
    EXPECT_EQ(whole.size(), QSize(800, 452)); // the writing area is 2300 by 1300
    EXPECT_EQ(whole.dotsPerMeterX(), 5905); // 150 dots an inch
    EXPECT_EQ(QFileInfo(exported("without-suffix")).exists(), false);
    EXPECT_TRUE(QFileInfo::exists(file("without-suffix.png")));
}

TEST_F(SignDeskOutput, ThePagesArePrinted)
{
    ASSERT_TRUE(window->openPage(threePages()));
    signAndConfirm(kS210Family);
    const QString path = file("printed.pdf");
    whenDialogComes([&](QDialog &dialog) {
        auto *const print = qobject_cast<QPrintDialog *>(&dialog);
        ASSERT_TRUE(print != nullptr);
        auto *const name = dialog.findChild<QLineEdit *>("filename");
        ASSERT_TRUE(name != nullptr);
        name->setText(path); // without an installed printer the dialog prints into a file
        QTest::keyClick(name, Qt::Key_Return);
    });
    click("Print...");
    ASSERT_TRUE(happened());
    EXPECT_EQ(note(), "The page is printed.");
    for (int page = 1; page <= 3; ++page)
        EXPECT_FALSE(boxOf(drawnPdf(path, page), isInk).isEmpty()) << "page " << page;
    // The first page fills the paper: its square is at the top left, and the line reaches into the right half.
    const QImage first = drawnPdf(path);
    const QRect ink = boxOf(first, isInk);
    EXPECT_LT(ink.left(), first.width() / 4);
    EXPECT_GT(ink.right(), first.width() / 2);
}

} // namespace
