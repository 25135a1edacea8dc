// Pages in a column: where each of them is, and how large they may become.
#include "pagelayout.h"

#include <gtest/gtest.h>

namespace {

using signdesk::PageLayout;

TEST(PageLayout, PutsPagesBelowEachOther)
{
    PageLayout layout;
    layout.setPages({{100, 200}, {300, 50}, {200, 400}});
    layout.setScale(2);
    EXPECT_EQ(layout.size(), QSizeF(300 * 2 + 40, (200 + 50 + 400) * 2 + 4 * 20));
    EXPECT_EQ(layout.page(0, 640), QRectF((640 - 200) / 2, 20, 200, 400));
    EXPECT_EQ(layout.page(1, 640), QRectF(20, 20 + 400 + 20, 600, 100));
    EXPECT_EQ(layout.page(2, 640), QRectF((640 - 400) / 2, 20 + 400 + 20 + 100 + 20, 400, 800));
    EXPECT_EQ(layout.page(1, 1000).x(), 200) << "in the middle of a broader view";
}

TEST(PageLayout, KnowsThePageAtEveryHeight)
{
    PageLayout layout;
    layout.setPages({{100, 200}, {300, 50}, {200, 400}});
    layout.setScale(0.5);
    for (int y = -100; y < 600; ++y) {
        // The middle of the gap above a page parts it from the one before.
        const int expected = y < 20 + 100 + 10 ? 0 : y < 20 + 100 + 20 + 25 + 10 ? 1 : 2;
        EXPECT_EQ(layout.pageAt(y), expected) << y;
    }
}

TEST(PageLayout, FitsTheWidestPageButNotAtAnyPrice)
{
    PageLayout layout;
    layout.setPages({{600, 800}, {800, 600}});
    EXPECT_DOUBLE_EQ(layout.fitting(400), 0.5);
    layout.setPages({{600, 800}, {60000, 600}}); // a banner does not make the letter before it unreadable
    EXPECT_DOUBLE_EQ(layout.fitting(450), 0.5);
}

/// A file can claim any size, but pixels are counted in ints.
TEST(PageLayout, StaysCountable)
{
    const std::vector<QSizeF> hostile[] = {std::vector<QSizeF>(1000000, {14400, 14400}), {{1e12, 1e12}},
        {{595, 842}, {1e9, 1}}, {{1e-3, 1e9}}, std::vector<QSizeF>(3000000, {1, 1})};
    for (const std::vector<QSizeF> &pages : hostile) {
        PageLayout layout;
        layout.setPages(pages);
        for (const double scale : {1e-9, 1.0, 1e9}) {
            layout.setScale(scale);
            EXPECT_GT(layout.scale(), 0);
            EXPECT_LE(layout.scale(), 6);
            EXPECT_LT(layout.size().height(), 2e9);
            EXPECT_LT(layout.size().width(), 2e7);
            EXPECT_EQ(layout.pageAt(1e300), static_cast<int>(pages.size()) - 1);
            EXPECT_EQ(layout.pageAt(-1e300), 0);
        }
    }
}

} // namespace
