// Pictures of ink: they look as the library draws them, come in any size, and are checked with other programs.
#include "countpixels.h"
#include "kvsign.h"

#include "outsideprogram.h"

#include <QJsonArray>

namespace {

using namespace kvsign;

class KvsignPictures : public Place
{
protected:
    QImage drawn(const QStringList &options, const QString &name = "drawn.png") const
    {
        runWell(QStringList{"convert", "a.ink", name} + options);
        return onWhite(QImage(file(name)));
    }

    /// The pictures differ in at most this share of the first one's ink pixels.
    static void looksAlike(const QImage &one, const QImage &other, double share, const char *what)
    {
        const int ink = inkPixels(one);
        EXPECT_GT(ink, 500) << what;
        EXPECT_LE(differingPixels(one, other, 128), share * ink) << what;
    }
};

TEST_F(KvsignPictures, LookAsTheLibraryDrawsThem)
{
    for (const char *model : {"S210", "S300", "S310X", "R800", "M450"}) {
        for (const char *recording : {"signature", "dots-and-dashes"}) {
            capture(recording, model, {"a.ink", "library.bmp"});
            const QImage library(file("library.bmp"));
            EXPECT_LE(differingPixels(library, drawn({"--model", model})), inkPixels(library) / 200) << model;
        }
    }
}

TEST_F(KvsignPictures, LookAsTheLibraryDrawsThemInOneWidth)
{
    for (const char *model : {"S300", "R800"}) {
        capture("signature", model, {"--no-pressure", "-w", "4", "a.ink", "library.bmp"});
        looksAlike(QImage(file("library.bmp")), drawn({"--model", model, "--no-pressure", "-w", "4"}), 0.005, model);
    }
}

TEST_F(KvsignPictures, FindTheirModelByTheInk)
{
    for (const char *model : {"S300", "S310X", "R800"}) {
        capture("long-signature", model, {"a.ink"});
        EXPECT_EQ(runJson({"convert", "a.ink", "a.png"})["model"].toString(), model);
    }
    write("a.ink", record({{2510, 1600, 100, false, 0, 0}, {2000, 1600, 100, false, 5, 0}}));
    EXPECT_EQ(runJson({"convert", "a.ink", "a.png"})["model"].toString(), "S210");
}

TEST_F(KvsignPictures, HaveAnySize)
{
    capture("signature", "S300", {"a.ink"});
    const QImage once = drawn({});
    EXPECT_EQ(once.size(), QSize(800, 452));
    for (const double scale : {0.5, 3.0}) {
        const QImage scaled = drawn({"--scale", QString::number(scale)});
        EXPECT_EQ(scaled.size(), QSize(qRound(800 * scale), qRound(452 * scale)));
        looksAlike(once, scaled.scaled(once.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation), 0.2, "scaled");
    }
    const QJsonObject result = runJson({"convert", "--scale", "2", "a.ink", "twice.png"});
    EXPECT_EQ(result["width"].toInt(), 1600);
    EXPECT_EQ(result["height"].toInt(), 904);
    EXPECT_EQ(result["points"].toInt(), storedPoints(kRecordings + "/signature.kvrec"));
}

TEST_F(KvsignPictures, AreTheSameInEveryFormat)
{
    capture("signature", "S300", {"a.ink"});
    const QImage png = drawn({"--background", "white"});
    looksAlike(png, drawn({}, "a.bmp"), 0, "BMP");
    looksAlike(png, drawn({}, "a.jpg"), 0.02, "JPEG");
    runWell({"convert", "a.ink", "a.svg"});
    outputOf("rsvg-convert", {"-d", "300", "-p", "300", "-b", "white", file("a.svg"), "-o", file("svg.png")});
    looksAlike(png, QImage(file("svg.png")).convertToFormat(QImage::Format_RGB32), 0.2, "SVG");
    // With thick lines, wrong line ends would show.
    runWell({"convert", "-w", "10", "a.ink", "a.svg"});
    outputOf("rsvg-convert", {"-d", "300", "-p", "300", "-b", "white", file("a.svg"), "-o", file("svg.png")});
    looksAlike(drawn({"-w", "10"}), QImage(file("svg.png")).convertToFormat(QImage::Format_RGB32), 0.03, "thick SVG");
    runWell({"convert", "a.ink", "a.pdf"});
    outputOf("pdftoppm", {"-r", "300", "-singlefile", file("a.pdf"), file("pdf")});
    const QImage page(file("pdf.ppm"));
    // A page's size is a whole number of points of 1/72 inch, so the page may be up to four pixels too large.
    EXPECT_GE(page.height(), 452);
    EXPECT_LE(page.height(), 457);
    looksAlike(png, page.copy(0, 0, 800, 452), 0.25, "PDF");
}

TEST_F(KvsignPictures, TakeThePenAndTheColours)
{
    capture("signature", "S300", {"a.ink"});
    EXPECT_GT(inkPixels(drawn({"--pen-width", "8"})), 2 * inkPixels(drawn({})));
    runWell({"convert", "a.ink", "c.png", "--color", "#ff0000", "--background", "yellow", "--dpi", "96"});
    const QImage coloured(file("c.png"));
    EXPECT_EQ(coloured.pixelColor(0, 0), QColor(255, 255, 0));
    EXPECT_EQ(coloured.dotsPerMeterX(), 3779);
    EXPECT_GT(countPixels(coloured, QColor("#ff0000")), 2000);
    runWell({"convert", "a.ink", "t.png"});
    EXPECT_EQ(QImage(file("t.png")).pixelColor(0, 0).alpha(), 0);
    runWell({"convert", "a.ink", "c.svg", "--color", "navy", "--background", "yellow"});
    EXPECT_TRUE(read("c.svg").contains("stroke=\"#000080\""));
    EXPECT_TRUE(read("c.svg").contains("fill=\"#ffff00\""));
}

TEST_F(KvsignPictures, AreCutToTheInk)
{
    capture("signature", "S300", {"a.ink"});
    const QImage whole = drawn({});
    const QImage cut = drawn({"--clip", "9,4"});
    EXPECT_LT(cut.width(), whole.width() - 100);
    EXPECT_EQ(inkPixels(cut), inkPixels(whole));
    const auto isBlank = [&](const QRect &part) { return inkPixels(cut.copy(part)) == 0; };
    EXPECT_TRUE(isBlank(QRect(0, 0, 9, cut.height())));
    EXPECT_TRUE(isBlank(QRect(0, 0, cut.width(), 4)));
    EXPECT_FALSE(isBlank(QRect(0, 0, 13, cut.height())));
    EXPECT_FALSE(isBlank(QRect(0, 0, cut.width(), 8)));
    EXPECT_FALSE(isBlank(QRect(cut.width() - 13, 0, 13, cut.height())));
    EXPECT_FALSE(isBlank(QRect(0, cut.height() - 8, cut.width(), 8)));
}

TEST_F(KvsignPictures, WhichCannotBeHadAreNotThere)
{
    write("a.ink", record({{1500, 900, 100, false, 0, 0}, {1500, 900, 100, true, 5, 0}}));
    const CommandResult large = run({"convert", "--scale", "100", "a.ink", "large.png"});
    EXPECT_EQ(large.exitCode, 1);
    EXPECT_TRUE(large.errors.contains("a picture of 80000 by 45200 pixels is too large"))
        << testing::PrintToString(large);
    const CommandResult tap = run({"convert", "--clip", "5", "a.ink", "tap.png"});
    EXPECT_EQ(tap.exitCode, 1);
    EXPECT_TRUE(tap.errors.contains("there is no line to cut the picture to")) << testing::PrintToString(tap);
    EXPECT_EQ(run({"convert", "--scale", "0", "a.ink", "x.png"}).exitCode, 2);
    EXPECT_EQ(run({"convert", "--dpi", "0", "a.ink", "x.png"}).exitCode, 2);
    EXPECT_EQ(files(), QStringList("a.ink"));
}

} // namespace
