#include "Platform/Linux/BlockCutter.h"
#include "Platform/Linux/PlaybackQueue.h"

#include <QList>

#include <gtest/gtest.h>

namespace KelvaLR {

namespace {

TEST(BlockCutter, keepsWhatDoesNotFillABlockForTheNext)
{
    QList<QByteArray> blocks;
    BlockCutter cutter(4, [&](QByteArrayView block) { blocks.append(block.toByteArray()); });
    for (const char *piece : {"ab", "c", "defghijkl", "m", "no"}) {
        EXPECT_EQ(cutter.write(piece), qint64(qstrlen(piece)));
    }
    EXPECT_EQ(blocks, QList<QByteArray>({"abcd", "efgh", "ijkl"}));
}

TEST(PlaybackQueue, givesWhatIsQueuedInOrderAndThenSilence)
{
    PlaybackQueue queue('-');
    queue.append("abc");
    queue.append("");
    queue.append("de");
    EXPECT_EQ(queue.read(2), "ab");
    EXPECT_EQ(queue.read(5), "cde--");
    EXPECT_EQ(queue.silenceRead(), 2);
    EXPECT_EQ(queue.read(3), "---");
    EXPECT_EQ(queue.silenceRead(), 5);
    queue.append("fg");
    EXPECT_EQ(queue.silenceRead(), 0);
    EXPECT_EQ(queue.read(1), "f");
    queue.clear();
    EXPECT_EQ(queue.read(2), "--");
    EXPECT_EQ(queue.totalRead(), 13);
}

} // namespace

} // namespace KelvaLR
