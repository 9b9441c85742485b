#include "playback/playorder.h"
#include "playback/rounding.h"
#include "qstringprint.h"

#include <QRandomGenerator>
#include <QSet>
#include <algorithm>
#include <gtest/gtest.h>

using namespace quorvel::playback;

namespace {
QStringList identity(int n)
{
    QStringList out;
    for (int i = 0; i < n; ++i)
        out << QString::number(i);
    return out;
}

// A generator that hands out a fixed list of draws, then repeats the last.
PlayOrder::Random scripted(QList<double> values)
{
    return [values, i = qsizetype(0)]() mutable { return values.at(qMin(i++, values.size() - 1)); };
}
} // namespace

TEST(Rounding, HalvesGoToTheEvenNeighbour)
{
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(2.4999), 2);
    EXPECT_EQ(RoundHalfEven(2.5001), 3);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(61.4), 61);
    EXPECT_EQ(RoundHalfEven(60.6), 61);
    EXPECT_EQ(RoundHalfEven(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(RoundHalfEven(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(RoundHalfEven(-1e300), std::numeric_limits<int>::min());
    EXPECT_DOUBLE_EQ(RoundToDecimals(0.0625, 3), 0.062);
    EXPECT_DOUBLE_EQ(RoundToDecimals(0.125, 3), 0.125);
}

TEST(PlayOrder, SequentialOrderIsTheIdentityWithTheCursorOnTheSelection)
{
    PlayOrder order;
    order.MakeSequentialOrder(4, 2);
    EXPECT_EQ(order.entries(), identity(4));
    EXPECT_EQ(order.cursor(), 2);
    order.MakeSequentialOrder(0, -1);
    EXPECT_EQ(order.count(), 0);
    EXPECT_EQ(order.cursor(), -1);
}

TEST(PlayOrder, ShuffleIsAPermutationForManySeeds)
{
    for (quint32 seed = 1; seed <= 300; ++seed) {
        QRandomGenerator gen(seed);
        PlayOrder order([&gen] { return gen.generateDouble(); });
        const int n = 1 + static_cast<int>(seed % 12);
        order.MakeShuffledOrder(n, static_cast<int>(seed % n));
        ASSERT_EQ(order.count(), n);
        QSet<int> seen;
        for (int p = 0; p < n; ++p) {
            const int held = order.indexAt(p);
            ASSERT_GE(held, 0) << "seed " << seed;
            ASSERT_LT(held, n) << "seed " << seed;
            seen.insert(held);
        }
        EXPECT_EQ(seen.size(), n) << "seed " << seed;
        EXPECT_EQ(order.cursor(), static_cast<int>(seed % n));
    }
}

TEST(PlayOrder, TheClockSeededShuffleGivesNewPermutations)
{
    PlayOrder order;
    QSet<QString> orders;
    for (int round = 0; round < 20; ++round) {
        order.MakeShuffledOrder(10, 0);
        QStringList sorted = order.entries();
        std::sort(sorted.begin(), sorted.end(), [](const QString &a, const QString &b) { return a.toInt() < b.toInt(); });
        ASSERT_EQ(sorted, identity(10));
        orders.insert(order.entries().join(u','));
    }
    // 20 shuffles of 10 entries that all came out alike would mean a fixed seed.
    EXPECT_GT(orders.size(), 1);
}

TEST(PlayOrder, ShuffleFollowsTheDrawAndRetryRule)
{
    // n = 3: u*(n-1) = 2u. Draws 0.5 -> 1 (index 0 at position 1);
    // 0.25 -> 0.5 rounds to 0 (index 1 at position 0); 0.75 -> 1.5 rounds to
    // 2 (index 2 at position 2). Half-to-even matters for both halves.
    PlayOrder order(scripted({0.5, 0.25, 0.75}));
    order.MakeShuffledOrder(3, 1);
    EXPECT_EQ(order.entries(), (QStringList{"1", "0", "2"}));

    // Taken positions are drawn again: 0.9 -> 2, 0.9 again (taken), 0.1 -> 0,
    // 0.9 and 0.1 taken, 0.5 -> 1.
    PlayOrder retry(scripted({0.9, 0.9, 0.1, 0.9, 0.1, 0.5}));
    retry.MakeShuffledOrder(3, -1);
    EXPECT_EQ(retry.entries(), (QStringList{"1", "2", "0"}));

    // One entry is always "0", whatever the generator says.
    PlayOrder one(scripted({0.99}));
    one.MakeShuffledOrder(1, 0);
    EXPECT_EQ(one.entries(), QStringList{"0"});

    // A generator stuck on one value still gives a permutation, not a hang.
    PlayOrder stuck(scripted({0.0}));
    stuck.MakeShuffledOrder(4, 0);
    EXPECT_EQ(stuck.entries(), (QStringList{"0", "1", "2", "3"}));

    PlayOrder empty(scripted({0.3}));
    empty.MakeShuffledOrder(0, -1);
    EXPECT_TRUE(empty.entries().isEmpty());
    EXPECT_EQ(empty.cursor(), -1);
}

TEST(PlayOrder, ModeSettersCheckExactlyOneKeyPerGroupAndRebuild)
{
    QRandomGenerator gen(7);
    PlayOrder order([&gen] { return gen.generateDouble(); });
    EXPECT_TRUE(order.checkedPlayModeKey().isEmpty());

    order.PBShuffle(5, 3);
    EXPECT_EQ(order.playMode(), PlayShuffle);
    EXPECT_EQ(order.checkedPlayModeKey(), "PMShuffle");
    EXPECT_EQ(order.count(), 5);
    EXPECT_EQ(order.cursor(), 3);

    // Back from shuffle to normal: the identity order, cursor on the current item.
    order.PBNormal(5, 2);
    EXPECT_EQ(order.checkedPlayModeKey(), "PMNormal");
    EXPECT_EQ(order.entries(), identity(5));
    EXPECT_EQ(order.cursor(), 2);

    order.PBCont(5, 4);
    order.RepeatSingle();
    const QList<QPair<QString, bool>> expected{{"PMNormal", false},      {"PMContinuous", true},
                                               {"PMShuffle", false},     {"RMNoRepeat", false},
                                               {"RMSingleRepeat", true}, {"RMRepeatAll", false}};
    EXPECT_EQ(order.menuChecks(), expected);

    // Repeat setters leave the order alone.
    order.RepeatNone();
    EXPECT_EQ(order.checkedRepeatModeKey(), "RMNoRepeat");
    EXPECT_EQ(order.repeatMode(), RepeatNoRepeat);
    EXPECT_EQ(order.entries(), identity(5));
    order.RepeatAll();
    EXPECT_EQ(order.checkedRepeatModeKey(), "RMRepeatAll");
    EXPECT_EQ(order.cursor(), 4);
}

TEST(PlayOrder, StoredModesAreAppliedAndUnknownValuesCheckNothing)
{
    PlayOrder order;
    order.applyStoredModes(PlayContinuous, RepeatAllEntries, 3, 0);
    EXPECT_EQ(order.checkedPlayModeKey(), "PMContinuous");
    EXPECT_EQ(order.checkedRepeatModeKey(), "RMRepeatAll");
    EXPECT_EQ(order.entries(), identity(3));

    order.applyStoredModes(9, -4, 3, 0);
    EXPECT_EQ(order.playMode(), 9);
    EXPECT_EQ(order.repeatMode(), -4);
    for (const auto &[key, checked] : order.menuChecks())
        EXPECT_FALSE(checked) << key.toStdString();
    // An unknown play mode is not shuffle: adds rebuild the identity order.
    order.rebuild(2, 1);
    EXPECT_EQ(order.entries(), identity(2));
}

TEST(PlayOrder, CursorMovesOfClicksNextPreviousAndRemovals)
{
    PlayOrder order;
    order.PBCont(3, 2);
    // Next on the last of three wraps to the first; previous from the first to the last.
    EXPECT_TRUE(order.stepNext());
    EXPECT_EQ(order.cursor(), 0);
    EXPECT_TRUE(order.stepPrevious());
    EXPECT_EQ(order.cursor(), 2);
    EXPECT_TRUE(order.stepPrevious());
    EXPECT_EQ(order.cursor(), 1);
    // From no position, next goes to the first and previous to the last.
    order.setCursor(-1);
    EXPECT_TRUE(order.stepNext());
    EXPECT_EQ(order.cursor(), 0);
    order.setCursor(-1);
    EXPECT_TRUE(order.stepPrevious());
    EXPECT_EQ(order.cursor(), 2);

    order.clickedEntry(1);
    EXPECT_EQ(order.cursor(), 1);
    order.PBShuffle(3, 0);
    order.clickedEntry(2); // shuffle keeps its cursor on clicks
    EXPECT_EQ(order.cursor(), 0);

    order.PBNormal(3, 0);
    order.removeAt(1);
    EXPECT_EQ(order.entries(), (QStringList{"0", "2"})); // not rebuilt: "2" names a gone index
    order.removeAt(5);
    EXPECT_EQ(order.count(), 2);
    order.clear();
    EXPECT_EQ(order.count(), 0);
    EXPECT_EQ(order.cursor(), -1);
    EXPECT_FALSE(order.stepNext());
    EXPECT_FALSE(order.stepPrevious());
    EXPECT_EQ(order.cursor(), -1);
    EXPECT_EQ(order.indexAt(0), -1);
}

TEST(EndOfItem, EveryRowOfTheTable)
{
    using D = EndOfItemDecision;
    const QStringList three = identity(3);
    const QString file = QStringLiteral("/media/a.mkv");

    // Nothing in the engine, or a drive root: nothing happens, in every mode.
    for (int play = 0; play <= 2; ++play)
        for (int repeat = 0; repeat <= 2; ++repeat) {
            EXPECT_EQ(DecideEndOfItem(play, repeat, three, 1, 0, file), (D{D::Nothing, -1, 1}));
            EXPECT_EQ(DecideEndOfItem(play, repeat, three, 1, 1, QStringLiteral("D:/")), (D{D::Nothing, -1, 1}));
        }
    // Single repeat, any play mode: stop, then play the same item again.
    for (int play = 0; play <= 2; ++play)
        EXPECT_EQ(DecideEndOfItem(play, RepeatSingleEntry, three, 2, 1, file), (D{D::StopThenPlayAgain, -1, 2}));
    // Normal with no repeat or repeat all: stop and the after-play action.
    EXPECT_EQ(DecideEndOfItem(PlayNormal, RepeatNoRepeat, three, 0, 1, file), (D{D::StopThenAfterPlay, -1, 0}));
    EXPECT_EQ(DecideEndOfItem(PlayNormal, RepeatAllEntries, three, 0, 1, file), (D{D::StopThenAfterPlay, -1, 0}));
    // Continuous, no repeat: the second ends, the third plays; the third ends: done.
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatNoRepeat, three, 1, 1, file), (D{D::PlayIndex, 2, 2}));
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatNoRepeat, three, 2, 1, file), (D{D::StopThenAfterPlay, -1, 2}));
    // Continuous, repeat all: after the last comes entry 0.
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatAllEntries, three, 2, 1, file), (D{D::PlayIndex, 0, 0}));
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatAllEntries, three, 0, 1, file), (D{D::PlayIndex, 1, 1}));
    // Shuffle follows the held indices, not the positions.
    const QStringList shuffled{"2", "0", "1"};
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, shuffled, 0, 1, file), (D{D::PlayIndex, 0, 1}));
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, shuffled, 2, 1, file), (D{D::StopThenAfterPlay, -1, 2}));
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatAllEntries, shuffled, 2, 1, file), (D{D::PlayIndex, 2, 0}));
    // No cursor yet: the first position plays.
    EXPECT_EQ(DecideEndOfItem(PlayShuffle, RepeatNoRepeat, shuffled, -1, 1, file), (D{D::PlayIndex, 2, 0}));
    // A removal left a gone index behind: it is handed on (the item start ignores it).
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatNoRepeat, QStringList{"0", "5"}, 0, 1, file),
              (D{D::PlayIndex, 5, 1}));
    // The list was emptied while playing: with repeat all the cursor wraps to a missing position.
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatNoRepeat, QStringList{}, -1, 1, file),
              (D{D::StopThenAfterPlay, -1, -1}));
    EXPECT_EQ(DecideEndOfItem(PlayContinuous, RepeatAllEntries, QStringList{}, -1, 1, file), (D{D::PlayIndex, -1, 0}));
}

TEST(EndOfItem, ThePlayOrderFormStoresTheNewCursor)
{
    // Three entries, continuous, no repeat, the second playing: the third
    // plays next, then playback stops for good.
    PlayOrder order;
    order.PBCont(3, 1);
    order.RepeatNone();
    const QString file = QStringLiteral("/v/b.avi");
    EXPECT_EQ(DecideEndOfItem(order, 1, file).index, 2);
    EXPECT_EQ(order.cursor(), 2);
    EXPECT_EQ(DecideEndOfItem(order, 1, file).action, EndOfItemDecision::StopThenAfterPlay);
    EXPECT_EQ(order.cursor(), 2);

    // A shuffled order of five played to the end with repeat all visits every
    // entry once per round.
    QRandomGenerator gen(42);
    PlayOrder shuffled([&gen] { return gen.generateDouble(); });
    shuffled.PBShuffle(5, -1);
    shuffled.RepeatAll();
    QSet<int> played;
    for (int i = 0; i < 5; ++i)
        played.insert(DecideEndOfItem(shuffled, 1, file).index);
    EXPECT_EQ(played, (QSet<int>{0, 1, 2, 3, 4}));
    EXPECT_EQ(shuffled.cursor(), 4);
    EXPECT_EQ(DecideEndOfItem(shuffled, 1, file).cursor, 0);
}
