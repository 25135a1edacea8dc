// A program that encodes before it creates its QApplication, when Qt does not know the screen's resolution yet: JPEG
// texts still carry the canvas's resolution, before and after.
#include "returnedtext.h"

#include <QGuiApplication>

namespace {

// A picture without pixels is asked for first of all: nothing of that call may stay.
TEST(JpegBeforeAnApplication, HasTheResolutionOfItsCanvas)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    {
        OpenPad none({&kS210Family, true}, 0, 0);
        none.driver.send(twoStrokes(none.type()));
        EXPECT_EQ(textOf(none, EBITI_JPEG).text(), "");
    }
    OpenPad before({&kS210Family, true});
    before.driver.send(twoStrokes(before.type()));
    const QImage early = before.canvas();

    QCoreApplication::setAttribute(Qt::AA_Use96Dpi); // and not the 100 that there are without an application
    int argc = 1;
    char name[] = "host";
    char *argv[] = {name, nullptr};
    const QGuiApplication application(argc, argv);
    const QImage fresh(1, 1, QImage::Format_ARGB32);
    ASSERT_NE(early.dotsPerMeterX(), fresh.dotsPerMeterX()) << "or the test would see nothing";

    EXPECT_EQ(textOf(before, EBITI_JPEG).bytes(), fileOf(early, "JPG"));
    before->UnInitialDevice(before.type());
    OpenPad after({&kS300Family, true});
    after.driver.send(twoStrokes(after.type()));
    const QImage late = after.canvas();
    EXPECT_EQ(late.dotsPerMeterX(), fresh.dotsPerMeterX());
    EXPECT_EQ(textOf(after, EBITI_JPEG).bytes(), fileOf(late, "JPG"));
}

} // namespace
