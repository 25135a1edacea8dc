// Pictures of pages are kept while there is room for them.
#include "pagecache.h"

#include <gtest/gtest.h>

namespace {

using signdesk::PageCache;

constexpr qint64 kRoom = 10 * 40 * 40 * 4;

PageCache::Entry picture(int page, int side = 40, double dots = 1)
{
    return {page, dots, QImage(side, side, QImage::Format_RGB32)};
}

TEST(PageCache, DropsWhatWasNotAskedForLongest)
{
    PageCache cache(kRoom);
    for (int page = 0; page < 10; ++page)
        cache.put(picture(page));
    EXPECT_TRUE(cache.find(0) != nullptr);
    cache.put(picture(10));
    EXPECT_TRUE(cache.find(0) != nullptr) << "it was asked for a moment ago";
    EXPECT_TRUE(cache.find(1) == nullptr);
    EXPECT_TRUE(cache.find(2) != nullptr);
}

TEST(PageCache, IsBounded)
{
    PageCache cache(kRoom);
    for (int page = 0; page < 1000; ++page) {
        cache.put(picture(page, 1 + page % 90));
        EXPECT_LE(cache.bytes(), kRoom);
        EXPECT_TRUE(cache.find(page) != nullptr);
    }
    cache.put(picture(5000, 1000));
    EXPECT_TRUE(cache.find(5000) != nullptr) << "one picture is always kept: it is to be shown";
    EXPECT_EQ(cache.bytes(), 1000 * 1000 * 4);
}

TEST(PageCache, HasOnePictureOfAPage)
{
    PageCache cache(kRoom);
    cache.put(picture(3, 40, 1));
    cache.put(picture(3, 20, 0.5));
    EXPECT_EQ(cache.bytes(), 20 * 20 * 4);
    EXPECT_TRUE(cache.holds(3, 0.5));
    EXPECT_FALSE(cache.holds(3, 1));
    EXPECT_FALSE(cache.holds(4, 0.5));
}

TEST(PageCache, ShowsOutdatedPicturesButWantsNewOnes)
{
    PageCache cache(kRoom);
    cache.put(picture(3));
    cache.setOutdated();
    EXPECT_TRUE(cache.find(3) != nullptr);
    EXPECT_FALSE(cache.holds(3, 1));
    cache.clear();
    EXPECT_TRUE(cache.find(3) == nullptr);
    EXPECT_EQ(cache.bytes(), 0);
}

} // namespace
