// Where the ink is on a canvas: the scan against a plain one of the test's own, margins, log lines, transparency.
#include "inkbounds.h"
#include "insidepads.h"
#include "logmessages.h"

#include <QImage>

#include <climits>
#include <random>

namespace {

struct Corners
{
    int left;
    int top;
    int right;
    int bottom;

    bool operator==(const Corners &other) const
    {
        return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
    }
};

void PrintTo(const Corners &corners, std::ostream *out)
{
    *out << corners.left << ", " << corners.top << " to " << corners.right << ", " << corners.bottom;
}

QImage whiteImage(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(0xffffffff);
    return image;
}

class InkBounds : public testing::TestWithParam<PadCase>
{
protected:
    // The corners that an instance with this canvas and these margins finds.
    static Corners found(const QImage &canvas, int marginX, int marginY)
    {
        QRect box(1, 2, 3, 4);
        withNewInstance(GetParam(), 30, 20, [&](auto &instance) {
            instance.m_canvas = canvas;
            instance.SetSaveClipImageMargin(true, marginX, marginY);
            instance.CheckSignImageBoundingBox(box);
            EXPECT_EQ(instance.m_canvas, canvas);
        });
        return {box.left(), box.top(), box.right(), box.bottom()};
    }
};

INSTANTIATE_TEST_SUITE_P(AllPads, InkBounds, testing::ValuesIn(allPads()), padCaseName);

TEST_P(InkBounds, EncloseEveryInkPixelAndNoMore)
{
    std::mt19937 random(5);
    const QRgb colours[] = {
        0x00ffffff, 0x80ffffff, 0xffffffff, 0x80000000, 0xfffffeff, 0xfffeffff, 0xfffffffe, 0x00000000};
    const unsigned firstInk = 3;
    for (int round = 0; round < 60; ++round) {
        QImage image = whiteImage(1 + static_cast<int>(random() % 70), 1 + static_cast<int>(random() % 40));
        Corners expected{99999, 99999, -1, -1};
        const auto share = 1 + random() % 200;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const auto choice = random() % share == 0 ? random() % 8 : random() % firstInk;
                image.setPixel(x, y, colours[choice]);
                if (choice >= firstInk)
                    expected = {std::min(expected.left, x), std::min(expected.top, y), std::max(expected.right, x),
                        std::max(expected.bottom, y)};
            }
        }
        EXPECT_EQ(found(image, 0, 0), expected) << "round " << round;
    }
}

TEST_P(InkBounds, TakeAPixelForInkByItsColourAndNotItsAlpha)
{
    const std::pair<QRgb, bool> kPixels[] = {{0x00ffffff, false}, {0x80ffffff, false}, {0xffffffff, false},
        {0x80000000, true}, {0x00000000, true}, {0xfffffeff, true}, {0xfffeffff, true}, {0xfffffffe, true},
        {0x00fffffe, true}};
    for (const auto &[pixel, isInk] : kPixels) {
        QImage image = whiteImage(9, 8);
        image.setPixel(4, 5, pixel);
        EXPECT_EQ(found(image, 0, 0), isInk ? (Corners{4, 5, 4, 5}) : (Corners{99999, 99999, -1, -1}))
            << std::hex << pixel;
    }
}

struct MarginRow
{
    QRect ink;
    int marginX;
    int marginY;
    Corners expected;
};

TEST_P(InkBounds, WidenByTheMarginsEachSideByItself)
{
    // On a canvas of 100 by 50. An empty ink rectangle stands for a blank canvas.
    const MarginRow kRows[] = {
        {{10, 20, 1, 1}, 4, 6, {6, 14, 14, 26}},
        {{2, 20, 1, 1}, 5, 0, {0, 20, 7, 20}},
        {{98, 20, 1, 1}, 5, 0, {93, 20, 99, 20}},
        {{94, 20, 1, 1}, 5, 0, {89, 20, 99, 20}},
        {{5, 5, 1, 1}, 5, 5, {0, 0, 10, 10}},
        {{0, 0, 100, 50}, 1, 1, {0, 0, 99, 49}},
        {{30, 20, 5, 4}, INT_MAX, INT_MAX, {0, 0, 99, 49}},
        {{30, 20, 5, 4}, -1, -1, {31, 21, 33, 22}},
        {{30, 20, 5, 4}, -200, -100, {230, 120, -166, -77}},
        {{30, 20, 5, 4}, INT_MIN, INT_MIN, {INT_MAX, INT_MAX, INT_MIN + 34, INT_MIN + 23}},
        {{}, 0, 0, {99999, 99999, -1, -1}},
        {{}, 7, 3, {99992, 99996, 6, 2}},
        {{}, 100, 50, {99899, 99949, 99, 49}},
        {{}, 101, 51, {99898, 99948, 99, 49}},
        {{}, 100000, 99999, {0, 0, 99, 49}},
        {{}, INT_MAX, INT_MAX, {0, 0, 99, 49}},
        {{}, -2, -3, {100001, 100002, -3, -4}},
    };
    for (const MarginRow &row : kRows) {
        QImage image = whiteImage(100, 50);
        for (int x = row.ink.left(); x <= row.ink.right(); ++x) {
            for (int y = row.ink.top(); y <= row.ink.bottom(); ++y)
                image.setPixel(x, y, 0xff123456);
        }
        EXPECT_EQ(found(image, row.marginX, row.marginY), row.expected)
            << "margins " << row.marginX << ", " << row.marginY;
    }
}

TEST_P(InkBounds, OfACanvasWithoutPixelsAreInverted)
{
    EXPECT_EQ(found(QImage(), 4, 5), (Corners{99995, 99994, -1, -1}));
    EXPECT_EQ(found(QImage(), 0, 0), (Corners{99999, 99999, -1, -1}));
}

TEST_P(InkBounds, LogEachChangeOfASideAndTheEndOfEachRow)
{
    QImage image = whiteImage(4, 3);
    image.setPixel(0, 0, 0x00ffffff);
    image.setPixel(2, 0, 0xff010203);
    image.setPixel(3, 0, 0x80000000);
    image.setPixel(1, 1, 0xffff0000);
    image.setPixel(2, 2, 0xff0000ff);
    const LogTail log;
    withNewInstance(GetParam(), 30, 20, [&](auto &instance) {
        instance.m_canvas = image;
        instance.m_nSaveImageClipMarginX = 1;
        QRect box;
        const LogOn logOn;
        instance.CheckSignImageBoundingBox(box);
    });
    const std::string key = "[" + std::string(GetParam().className()) + "::CheckSignImageBoundingBox()]:<%ld>-";
    Lines lines;
    for (const std::string &line : messages(log)) {
        // The display thread of a fingerprint pad may be logging beside.
        if (line.find("CheckSign") != std::string::npos || line.find("]-<R=") != std::string::npos
            || line.find("line end") != std::string::npos)
            lines.push_back(line);
    }
    EXPECT_EQ(lines,
        (Lines{key + "Enter, nWidth=4, nHeight=3", //
            "[[2, 0]-<R=1, G=2, B=3, A=255> ]:[x < nLeft]", "[[2, 0]-<R=1, G=2, B=3, A=255> ]:[x > nRight]",
            "[[2, 0]-<R=1, G=2, B=3, A=255> ]:[y < nTop]", "[[2, 0]-<R=1, G=2, B=3, A=255> ]:[y > nBottom]",
            "[[3, 0]-<R=0, G=0, B=0, A=128> ]:[x > nRight]", "[<line end>]:",
            "[[1, 1]-<R=255, G=0, B=0, A=255> ]:[x < nLeft]", "[[1, 1]-<R=255, G=0, B=0, A=255> ]:[y > nBottom]",
            "[<line end>]:", "[[2, 2]-<R=0, G=0, B=255, A=255> ]:[y > nBottom]",
            "[<line end>]:", key + "nLeft=1, nRight=3, nTop=0, nBottom=2",
            key + "leave with rcBoundBox.Left=0, Right=3, Top=0, Bottom=2"}));
}

TEST_P(InkBounds, MakeOneColourTransparentExactlyWhereItStands)
{
    withNewInstance(GetParam(), 30, 20, [&](auto &instance) {
        QImage image = whiteImage(3, 2);
        image.setPixel(1, 0, 0xfeffffff);
        image.setPixel(2, 0, 0xff000000);
        image.setPixel(0, 1, 0x00ffffff);
        image.setPixel(1, 1, 0xfffffffe);
        instance.MakeAsTransparentImage(image, Qt::white);
        const QRgb expected[] = {0x00ffffff, 0xfeffffff, 0xff000000, 0x00ffffff, 0xfffffffe, 0x00ffffff};
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(image.pixel(i % 3, i / 3), expected[i]) << i;

        instance.MakeAsTransparentImage(image, QColor(0, 0, 0, 255));
        EXPECT_EQ(image.pixel(2, 0), 0x00000000u);
        instance.MakeAsTransparentImage(image, QColor(255, 255, 255, 254));
        EXPECT_EQ(image.pixel(1, 0), 0x00ffffffu);
        EXPECT_EQ(image.pixel(1, 1), 0xfffffffe);

        QImage none;
        const LogTail log;
        {
            const LogOn logOn;
            instance.MakeAsTransparentImage(none, Qt::white);
            instance.MakeAsTransparentImage(image, Qt::white);
        }
        EXPECT_EQ(messagesOf(log, std::string(GetParam().className()) + "::MakeAsTransparentImage()"),
            (Lines{
                "<%ld>-Enter, nWidth=0, nHeight=0", "<%ld>-leave", "<%ld>-Enter, nWidth=3, nHeight=2", "<%ld>-leave"}));
    });
}

TEST_P(InkBounds, AreInForceOnlyWithAMarginOnSomeSide)
{
    struct Row
    {
        bool clip;
        int marginX;
        int marginY;
        bool inForce;
    };
    const Row kRows[] = {{true, 0, 0, false}, {true, 0, 5, true}, {true, 5, 0, true}, {true, 3, 4, true},
        {false, 3, 4, false}, {false, 0, 0, false}, {true, -1, 0, true}, {true, 0, INT_MIN, true}, {true, 7, -7, true}};
    withNewInstance(GetParam(), 30, 20, [&](auto &instance) {
        EXPECT_FALSE(instance.m_bClipImage);
        EXPECT_EQ(instance.m_nSaveImageClipMarginX, 0);
        EXPECT_EQ(instance.m_nSaveImageClipMarginY, 0);
        for (const Row &row : kRows) {
            const LogTail log;
            {
                const LogOn logOn;
                EXPECT_EQ(instance.SetSaveClipImageMargin(row.clip, row.marginX, row.marginY), 0);
            }
            EXPECT_EQ(instance.m_bClipImage, row.inForce) << row.marginX << ", " << row.marginY;
            EXPECT_EQ(instance.m_nSaveImageClipMarginX, row.marginX);
            EXPECT_EQ(instance.m_nSaveImageClipMarginY, row.marginY);
            const QString entered = QString::asprintf(
                "<%%ld>-Enter, bClipImage=%d, nClipMarginX=%d, nClipMarginY=%d", row.clip, row.marginX, row.marginY);
            EXPECT_EQ(messagesOf(log, std::string(GetParam().className()) + "::SetSaveClipImageMargin()"),
                (Lines{entered.toStdString(),
                    row.inForce ? "<%ld>-leave with m_bClipImage=1" : "<%ld>-leave with m_bClipImage=0"}));
        }
    });
}

TEST(PartInsideARectangle, IsQtsCopy)
{
    QImage canvas(60, 40, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    for (int i = 0; i < 40; ++i)
        canvas.setPixel(i, i, 0xff000000U | static_cast<QRgb>(i * 1001));
    const QRect whole(0, 0, 60, 40);
    for (const QRect &part : {QRect(5, 6, 20, 10), whole, QRect(), QRect(7, 9, 0, 0), QRect(50, 30, 30, 30),
             QRect(-10, -20, 30, 30), QRect(-10, -20, 300, 300), QRect(60, 0, 5, 5), QRect(-7, 3, 7, 4),
             QRect(500, 600, 4, 3), QRect(3, 3, 0, 5), QRect(3, 3, 5, -2), QRect(20, 20, -10, -10)})
        EXPECT_EQ(inkbounds::partInside(canvas, part), canvas.copy(part))
            << part.x() << ", " << part.y() << ", " << part.width() << ", " << part.height();
    EXPECT_TRUE(inkbounds::partInside(QImage(), QRect()).isNull());
    EXPECT_TRUE(inkbounds::partInside(QImage(), whole).isNull());
}

// Of a rectangle that was refused the corners stay, and they may be any.
TEST(PartInsideARectangle, OfAnyCornersIsNoLargerThanACanvasMayBe)
{
    QImage canvas(60, 40, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    const auto part = [&](const QPoint &topLeft, const QPoint &bottomRight) {
        return inkbounds::partInside(canvas, QRect(topLeft, bottomRight));
    };
    QImage nothing(6, 4, QImage::Format_ARGB32);
    nothing.fill(0);
    EXPECT_EQ(part({INT_MAX - 5, INT_MAX - 3}, {INT_MAX, INT_MAX}), nothing);
    EXPECT_EQ(part({INT_MIN, INT_MIN}, {INT_MIN + 5, INT_MIN + 3}), nothing);
    EXPECT_TRUE(part({INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}).isNull());
    EXPECT_TRUE(part({0, 0}, {INT_MAX, 39}).isNull());
    EXPECT_TRUE(part({INT_MAX, INT_MAX}, {INT_MIN, INT_MIN}).isNull());
    EXPECT_TRUE(part({INT_MAX, 0}, {INT_MIN, 39}).isNull());
    EXPECT_TRUE(part({-40000, -40000}, {40000, 40000}).isNull());
}

} // namespace
