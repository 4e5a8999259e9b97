#include "Views/Thumbnails/ThumbnailCache.h"

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace Qt::StringLiterals;

namespace {

QImage picture(int side)
{
    QImage result(side, side, QImage::Format_ARGB32_Premultiplied);
    result.fill(Qt::red);
    return result;
}

TEST(ThumbnailCache, forgetsWhatWasNotAskedForLongestOnceItIsFull)
{
    const ThumbnailKey first{.path = u"/first.jpg"_s, .side = 10};
    const ThumbnailKey second{.path = u"/second.jpg"_s, .side = 10};
    const ThumbnailKey third{.path = u"/third.jpg"_s, .side = 10};
    ThumbnailCache cache(2 * picture(10).sizeInBytes());
    cache.insert(first, picture(10));
    cache.insert(second, picture(10));
    EXPECT_FALSE(cache.find(first).isNull());
    cache.insert(third, picture(10));
    EXPECT_FALSE(cache.find(first).isNull());
    EXPECT_TRUE(cache.find(second).isNull());
    EXPECT_FALSE(cache.find(third).isNull());

    cache.insert(second, picture(20)); // more than all there is room for
    EXPECT_TRUE(cache.find(second).isNull());
}

} // namespace
