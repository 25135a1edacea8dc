/// @file
/// Signing on the virtual pad: what mouse, finger and stylus do to its face, as a program gets it from the library.
#include "virtualpadrun.h"

#include <QComboBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTabletEvent>
#include <QTouchDevice>

#include <cmath>

namespace {

class VirtualPadOfEachModel : public VirtualPad, public testing::WithParamInterface<Family>
{
};

TEST_P(VirtualPadOfEachModel, BecomesWhatAProgramOpens)
{
    const Family &opened = GetParam();
    openWindow(opened.type == KVS300_DEVICE ? "R800" : "S300");
    EXPECT_FALSE(face()->display().isOpen);
    ASSERT_TRUE(open(opened));
    EXPECT_TRUE(until([&] { return face()->display().isOpen && face()->display().isScreenOn == opened.hasScreen; }));
    char version[32] = "";
    opened.GetHWVersion(opened.type, version, sizeof version);
    EXPECT_EQ(std::string(version).rfind(std::string(opened.prefix, std::strlen(opened.prefix) - 1), 0), 0u) << version;
    const RawArea raw = rawArea(opened.type);
    const QRectF area = face()->writingArea();
    EXPECT_NEAR(area.width() / area.height(), static_cast<double>(raw.spanX) / raw.spanY, 0.01);
    EXPECT_TRUE(QRectF(face()->rect()).contains(area));
    for (const QRectF &button : {face()->confirmArea(), face()->cancelArea()}) {
        EXPECT_TRUE(QRectF(face()->rect()).contains(button));
        EXPECT_FALSE(button.intersects(area));
    }
    close();
    EXPECT_TRUE(until([&] { return !face()->display().isOpen; }));
}

TEST_P(VirtualPadOfEachModel, AStrokeIsInkAtThePadsRate)
{
    openWindow();
    ASSERT_TRUE(open(GetParam()));
    const auto begin = std::chrono::steady_clock::now();
    const std::chrono::duration<double, std::milli> down = write(0.25, 0.5, 0.75, 0.25);
    const std::chrono::duration<double, std::milli> all = std::chrono::steady_clock::now() - begin;
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    const std::vector<INKPOINTDATA> ink = points();
    EXPECT_GE(static_cast<double>(ink.size()), down.count() / 5 - 3);
    EXPECT_LE(static_cast<double>(ink.size()), all.count() / 5 + 3);

    const RawArea raw = rawArea(GetParam().type);
    const double pixel = raw.spanX / face()->writingArea().width();
    const auto near = [&](const INKPOINTDATA &point, double x, double y) {
        return std::abs(point.nX - (raw.offsetX + x * raw.spanX)) <= 2 * pixel
            && std::abs(point.nY - (raw.offsetY + y * raw.spanY)) <= 2 * pixel;
    };
    EXPECT_TRUE(near(ink.front(), 0.25, 0.5));
    EXPECT_TRUE(near(ink.back(), 0.75, 0.25)) << ink.back().nX << " " << ink.back().nY;
    for (std::size_t i = 0; i < ink.size(); ++i) {
        EXPECT_EQ(ink[i].bStrokeEnd, i + 1 == ink.size());
        EXPECT_TRUE(ink[i].nPressureValue > 0 && ink[i].nPressureValue < raw.maxPressure) << ink[i].nPressureValue;
        if (i > 0) {
            EXPECT_GE(ink[i].nX, ink[i - 1].nX);
            EXPECT_LE(ink[i].nY, ink[i - 1].nY);
        }
    }
    EXPECT_TRUE(face()->hasInk());
    EXPECT_EQ(beside<int>([&] { return family->Clear(family->type); }), 0);
    EXPECT_TRUE(until([&] { return !face()->hasInk(); }));
    EXPECT_EQ(pointCount(), ARI_INK_EMPTY);
}

TEST_P(VirtualPadOfEachModel, ItsButtonsConfirmAndCancel)
{
    openWindow();
    ASSERT_TRUE(open(GetParam()));
    click(face()->confirmArea());
    ASSERT_TRUE(until([&] { return family->GetDeviceConfirmOrCancelKeyStatus(family->type) == 1; }));
    click(face()->cancelArea());
    ASSERT_TRUE(until([&] { return family->GetDeviceConfirmOrCancelKeyStatus(family->type) == 0; }));
    EXPECT_EQ(takeEvents(), (std::vector<int>{1, 0}));
    EXPECT_EQ(pointCount(), ARI_INK_EMPTY);
    press(QPoint(9, 9)); // on the body, which feels nothing
    release(QPoint(9, 9));
    QTest::qWait(60);
    EXPECT_EQ(pointCount(), ARI_INK_EMPTY);
}

INSTANTIATE_TEST_SUITE_P(Models, VirtualPadOfEachModel, testing::ValuesIn(kFamilies),
    [](const auto &row) { return std::string(row.param.prefix, std::strlen(row.param.prefix) - 1); });

TEST_F(VirtualPad, CancellingClearsThePadsOwnScreen)
{
    openWindow();
    ASSERT_TRUE(open(kS300Family));
    write(0.2, 0.2, 0.4, 0.4);
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    click(face()->confirmArea());
    ASSERT_TRUE(until([&] { return !takeEvents().empty(); }));
    EXPECT_TRUE(face()->hasInk());
    click(face()->cancelArea());
    EXPECT_TRUE(until([&] { return !face()->hasInk(); }));
}

TEST_F(VirtualPad, TheScreenShowsWhatItIsTold)
{
    openWindow();
    ASSERT_TRUE(open(kS210Family));
    EXPECT_EQ(kS210Family.DisplayHWVersion(KVS210_DEVICE, true), 0);
    EXPECT_TRUE(until([&] { return face()->display().version == "KVS210 VIRTUAL 1.0"; }));
    EXPECT_EQ(kS210Family.DisplayHWVersion(KVS210_DEVICE, false), 0);
    EXPECT_TRUE(until([&] { return face()->display().version.isEmpty(); }));
    EXPECT_EQ(kS210Family.OpenLCD(KVS210_DEVICE, false), 0);
    EXPECT_TRUE(until([&] { return !face()->display().isScreenOn; }));
    EXPECT_EQ(kS210Family.OpenLCD(KVS210_DEVICE, true), 0);
    EXPECT_TRUE(until([&] { return face()->display().isScreenOn; }));
}

TEST_F(VirtualPad, AStylusGivesItsOwnPressure)
{
    openWindow();
    ASSERT_TRUE(open(kR800Family));
    const auto stylus = [&](QEvent::Type type, double x, double pressure, Qt::MouseButtons buttons) {
        const QPointF at = place(x, 0.5);
        QTabletEvent event(type, at, face()->mapToGlobal(at.toPoint()), QTabletEvent::Stylus, QTabletEvent::Pen,
            pressure, 0, 0, 0, 0, 0, Qt::NoModifier, 1, Qt::LeftButton, buttons);
        QCoreApplication::sendEvent(face(), &event);
        EXPECT_TRUE(event.isAccepted()); // or a mouse event would be made of it
    };
    stylus(QEvent::TabletMove, 0.1, 0, Qt::NoButton); // hovers
    stylus(QEvent::TabletPress, 0.3, 0.25, Qt::LeftButton);
    for (int i = 0; i < 10; ++i) {
        QTest::qWait(10);
        stylus(QEvent::TabletMove, 0.3 + 0.02 * i, 0.25 + 0.05 * i, Qt::LeftButton);
    }
    QTest::qWait(50);
    stylus(QEvent::TabletRelease, 0.5, 0, Qt::NoButton);
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    int most = 0;
    for (const INKPOINTDATA &point : points())
        most = std::max<int>(most, point.nPressureValue);
    EXPECT_EQ(points().front().nPressureValue, 2048); // a quarter of 8192
    EXPECT_NEAR(most, 0.7 * 8192, 2);
}

TEST_F(VirtualPad, AFingerWrites)
{
    openWindow();
    ASSERT_TRUE(open(kM450Family));
    QTouchDevice *const device = QTest::createTouchDevice();
    QTest::touchEvent(face(), device).press(1, place(0.3, 0.5), face());
    for (int i = 1; i <= 10; ++i) {
        QTest::qWait(10);
        QTest::touchEvent(face(), device).move(1, place(0.3 + 0.02 * i, 0.5), face());
    }
    QTest::touchEvent(face(), device).release(1, place(0.5, 0.5), face());
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    const RawArea raw = rawArea(KVM450_DEVICE);
    EXPECT_GE(pointCount(), 15);
    EXPECT_NEAR(points().front().nX, raw.offsetX + 0.3 * raw.spanX, 0.01 * raw.spanX);
    EXPECT_NEAR(points().back().nX, raw.offsetX + 0.5 * raw.spanX, 0.01 * raw.spanX);
}

int redPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += (image.pixel(x, y) & 0xffffff) == 0xff0000;
    return count;
}

TEST_F(VirtualPad, AFingerOnTheSensorIsShownOnThePadAndInTheSignature)
{
    openWindow();
    ASSERT_TRUE(open(kS310XFamily));
    auto *const finger = window->findChild<QComboBox *>();
    auto *const touch = window->findChild<QPushButton *>();
    ASSERT_TRUE(finger && touch && touch->isVisible());
    write(0.1, 0.8, 0.3, 0.8);
    ASSERT_TRUE(until([&] { return lastStrokeEnded(); }));
    QTest::mouseClick(touch, Qt::LeftButton);
    ASSERT_TRUE(until([&] { return !face()->display().picture.isNull(); }));
    const QImage picture = face()->display().picture;
    EXPECT_EQ(picture.size(), QSize(104, 144));
    EXPECT_GT(redPixels(picture), 1000);
    const auto canvas = [&] {
        char *text = family->Base64EncodeEx(family->type, EBITI_BITMAP, false);
        const QImage image = QImage::fromData(QByteArray::fromBase64(text), "BMP");
        family->Base64EncodeExFree(family->type, text);
        return image;
    };
    EXPECT_TRUE(until([&] { return redPixels(canvas()) > 1000; }));

    finger->setCurrentIndex(0);
    emit finger->activated(0);
    auto *const score = window->findChild<QSpinBox *>();
    EXPECT_LT(score->value(), 50); // a fainter finger, which is not taken
    QTest::mouseClick(touch, Qt::LeftButton);
    QTest::qWait(400);
    EXPECT_EQ(face()->display().picture, picture);
    score->setValue(99);
    QTest::mouseClick(touch, Qt::LeftButton);
    EXPECT_TRUE(until([&] { return face()->display().picture != picture; }));
    finger->setCurrentIndex(2);
    emit finger->activated(2);
    score->setValue(100);
    click(face()->sensorArea()); // as the button does
    EXPECT_TRUE(until([&] { return face()->display().picture == picture; }));
    EXPECT_EQ(beside<int>([&] { return family->Clear(family->type); }), 0);
    EXPECT_TRUE(until([&] { return face()->display().picture.isNull(); }));
}

TEST_F(VirtualPad, OnlyThePadWithASensorHasFingers)
{
    openWindow("S310X");
    auto *const touch = window->findChild<QPushButton *>();
    EXPECT_TRUE(touch->isVisible());
    toggle("S210");
    EXPECT_FALSE(touch->isVisible());
    EXPECT_TRUE(face()->sensorArea().isEmpty());
    EXPECT_TRUE(window->windowTitle().startsWith("S210"));
}

} // namespace
