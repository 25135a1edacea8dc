// What is drawn on paper can be seen on white, whatever the theme's colours are.
#include "papercolours.h"

#include <gtest/gtest.h>

namespace {

TEST(PaperColours, ContrastIsCountedAsTheGuidelinesDo)
{
    // The guidelines' own examples: black on white, and the lightest grey that is enough for letters.
    EXPECT_NEAR(signdesk::contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(signdesk::contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(signdesk::contrast(Qt::white, Qt::white), 1, 0.001);
    EXPECT_NEAR(signdesk::contrast("#767676", Qt::white), 4.54, 0.01);
    EXPECT_NEAR(signdesk::contrast("#777777", Qt::white), 4.48, 0.01);
}

TEST(PaperColours, EveryThemesAccentIsReadable)
{
    for (int hue = 0; hue < 360; hue += 15) {
        for (const int lightness : {0, 60, 128, 200, 255}) {
            QPalette palette;
            palette.setColor(QPalette::Highlight, QColor::fromHsl(hue, 255, lightness));
            const QColor accent = signdesk::accentOnPaper(palette);
            EXPECT_GE(signdesk::contrast(accent, Qt::white), 4.5) << hue << " " << lightness;
        }
    }
}

TEST(PaperColours, ADarkAccentStaysAsItIs)
{
    QPalette palette;
    palette.setColor(QPalette::Highlight, QColor(38, 103, 181));
    EXPECT_EQ(signdesk::accentOnPaper(palette), QColor(38, 103, 181));
}

} // namespace
