#include "playback/playsequence.h"

#include <QList>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(PlaySequence, ShuffleDrawsPositionsWithRoundHalfEvenAndRetries)
{
    // Draws u*(n-1) for n = 3: 0.25 -> 0.5 -> 0; 0.25 again (taken) -> retry;
    // 0.75 -> 1.5 -> 2; 0.5 -> 1.
    QList<double> draws{0.25, 0.25, 0.75, 0.5};
    PlaySequence s([&draws] { return draws.takeFirst(); });
    s.MakeShuffledOrder(3, 1);
    EXPECT_EQ(s.entries(), (std::vector<int>{0, 2, 1}));
    EXPECT_EQ(s.cursor(), 1);
    EXPECT_TRUE(draws.isEmpty());
}

TEST(PlaySequence, StepsWrapAndAnEmptyOrderDoesNotMove)
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
    s.MakeSequentialOrder(0, -1);
    EXPECT_FALSE(s.stepNext());
}

TEST(PlaySequence, EndOfItemRules)
{
    const QString file = u"/m/a.mp4"_qs;
    // Each row runs on a fresh sequential order of 3 with the cursor on
    // `cursor`. (The transport's test plays every mode through to its end.)
    const struct {
        int mode, repeat, engineItems, cursor;
        QString file;
        EndOfItem::Kind kind;
        int index;
    } cases[] = {
        {PlayContinuous, RepeatAllItems, 0, 1, file, EndOfItem::Nothing, -1},       // no engine item
        {PlayContinuous, RepeatAllItems, 1, 1, u"D:\\"_qs, EndOfItem::Nothing, -1}, // a drive root
        {PlayContinuous, RepeatNoRepeat, 1, 2, file, EndOfItem::StopAndAfterPlay, -1},
        {PlayContinuous, RepeatAllItems, 1, 2, file, EndOfItem::PlayEntry, 0},
    };
    for (const auto &c : cases) {
        PlaySequence s;
        s.MakeSequentialOrder(3, c.cursor);
        const EndOfItem e = DecideEndOfItem(c.mode, c.repeat, s, c.engineItems, c.file);
        EXPECT_EQ(e.kind, c.kind) << c.mode << ' ' << c.repeat << ' ' << c.cursor;
        if (c.index >= 0) {
            EXPECT_EQ(e.index, c.index) << c.mode << ' ' << c.repeat << ' ' << c.cursor;
        }
    }
    // Shuffle follows the indices held in the order.
    QList<double> draws{0.9, 0.1, 0.5};
    PlaySequence sh([&draws] { return draws.takeFirst(); });
    sh.MakeShuffledOrder(3, 0); // "1","2","0"
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, sh, 1, file).index, 2);
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, sh, 1, file).index, 0);
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, sh, 1, file).kind, EndOfItem::StopAndAfterPlay);
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatAllItems, sh, 1, file).index, 1);
}
