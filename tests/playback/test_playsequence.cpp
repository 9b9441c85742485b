#include "playback/playsequence.h"

#include <QSet>
#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(PlaySequence, RoundingIsHalfToEven)
{
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(2.51), 3);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(159.5), 160);
}

TEST(PlaySequence, SequentialOrderIsTheIdentityWithTheCursorOnTheSelection)
{
    PlaySequence s;
    s.MakeSequentialOrder(4, 2);
    EXPECT_EQ(s.entries(), (QStringList{u"0"_qs, u"1"_qs, u"2"_qs, u"3"_qs}));
    EXPECT_EQ(s.cursor(), 2);
    s.MakeSequentialOrder(0, -1);
    EXPECT_EQ(s.count(), 0);
    EXPECT_EQ(s.cursor(), -1);
    EXPECT_FALSE(s.stepNext());
}

TEST(PlaySequence, ShuffleIsAPermutationForManySeeds)
{
    for (quint32 seed = 1; seed <= 200; ++seed) {
        QRandomGenerator gen(seed);
        PlaySequence s([&gen] { return gen.generateDouble(); });
        const int n = 1 + static_cast<int>(seed % 9);
        s.MakeShuffledOrder(n, -1);
        QSet<int> seen;
        for (int p = 0; p < n; ++p)
            seen.insert(s.indexAt(p));
        ASSERT_EQ(seen.size(), n) << "seed " << seed;
        for (int i = 0; i < n; ++i)
            EXPECT_TRUE(seen.contains(i));
    }
    PlaySequence one;
    one.MakeShuffledOrder(1, 0);
    EXPECT_EQ(one.entries(), QStringList{u"0"_qs});
}

TEST(PlaySequence, ShuffleDrawsPositionsWithRoundHalfEvenAndRetries)
{
    // Draws u*(n-1) for n = 3: 0.25 -> 0.5 -> 0; 0.25 again (taken) -> retry;
    // 0.75 -> 1.5 -> 2; 0.5 -> 1.
    QList<double> draws{0.25, 0.25, 0.75, 0.5};
    PlaySequence s([&draws] { return draws.takeFirst(); });
    s.MakeShuffledOrder(3, 1);
    EXPECT_EQ(s.entries(), (QStringList{u"0"_qs, u"2"_qs, u"1"_qs}));
    EXPECT_EQ(s.cursor(), 1);
    EXPECT_TRUE(draws.isEmpty());
}

TEST(PlaySequence, NextAndPreviousWrap)
{
    PlaySequence s;
    s.MakeSequentialOrder(3, 2);
    EXPECT_TRUE(s.stepNext());
    EXPECT_EQ(s.cursor(), 0);
    EXPECT_TRUE(s.stepPrevious());
    EXPECT_EQ(s.cursor(), 2);
    s.setCursor(-1); // nothing current: previous goes to the last
    s.stepPrevious();
    EXPECT_EQ(s.cursor(), 2);
}

TEST(PlaySequence, EveryRowOfTheEndOfItemTable)
{
    const QString file = u"/m/a.mp4"_qs;
    PlaySequence s;
    s.MakeSequentialOrder(3, 1);

    // Nothing without an engine item or for a drive root.
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatAllItems, s, 0, file).kind, EndOfItem::Nothing);
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatAllItems, s, 1, u"D:\\"_qs).kind, EndOfItem::Nothing);
    // Single repeat in any mode.
    for (int mode : {PlayNormal, PlayContinuous, PlayShuffle})
        EXPECT_EQ(DecideEndOfItem(mode, RepeatSingleItem, s, 1, file).kind, EndOfItem::Replay);
    // Normal mode stops whatever the repeat says.
    EXPECT_EQ(DecideEndOfItem(PlayNormal, RepeatAllItems, s, 1, file).kind, EndOfItem::StopAndAfterPlay);
    EXPECT_EQ(DecideEndOfItem(PlayNormal, RepeatNoRepeat, s, 1, file).kind, EndOfItem::StopAndAfterPlay);
    EXPECT_EQ(s.cursor(), 1);
    // Continuous: the next entry, then stop (no repeat) or wrap (repeat all).
    EndOfItem e = DecideEndOfItem(PlayContinuous, RepeatNoRepeat, s, 1, file);
    EXPECT_EQ(e.kind, EndOfItem::PlayEntry);
    EXPECT_EQ(e.index, 2);
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatNoRepeat, s, 1, file).kind, EndOfItem::StopAndAfterPlay);
    EXPECT_EQ(s.cursor(), 2);
    e = DecideEndOfItem(PlayContinuous, RepeatAllItems, s, 1, file);
    EXPECT_EQ(e.kind, EndOfItem::PlayEntry);
    EXPECT_EQ(e.index, 0);
    // Shuffle follows the indices held in the order.
    QList<double> draws{0.9, 0.1, 0.5};
    PlaySequence sh([&draws] { return draws.takeFirst(); });
    sh.MakeShuffledOrder(3, 0); // positions: 2 <- 0, 0 <- 1, 1 <- 2 => "1","2","0"
    ASSERT_EQ(sh.entries(), (QStringList{u"1"_qs, u"2"_qs, u"0"_qs}));
    e = DecideEndOfItem(PlayShuffle, RepeatNoRepeat, sh, 1, file);
    EXPECT_EQ(e.index, 2);
    e = DecideEndOfItem(PlayShuffle, RepeatNoRepeat, sh, 1, file);
    EXPECT_EQ(e.index, 0);
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, sh, 1, file).kind, EndOfItem::StopAndAfterPlay);
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatAllItems, sh, 1, file).index, 1);
    // An order that names a removed entry still moves; the index is left to the caller.
    s.MakeSequentialOrder(3, 0);
    s.removeAt(1);
    EXPECT_EQ(s.entries(), (QStringList{u"0"_qs, u"2"_qs}));
}
