#include "playback/playbackmonitor.h"
#include "qstringprint.h"

#include <gtest/gtest.h>

using namespace quorvel::playback;

TEST(PlaybackMonitor, FormatTimeWritesHoursMinutesSeconds)
{
    EXPECT_EQ(FormatTime(0), "00:00:00");
    EXPECT_EQ(FormatTime(9), "00:00:09");
    EXPECT_EQ(FormatTime(61), "00:01:01");
    EXPECT_EQ(FormatTime(3599), "00:59:59");
    EXPECT_EQ(FormatTime(3725), "01:02:05");
    EXPECT_EQ(FormatTime(36000), "10:00:00");
    EXPECT_EQ(FormatTime(360000), "100:00:00");
    EXPECT_EQ(ResetTimeText(), "00:00:00 / 00:00:00");
}

TEST(PlaybackMonitor, AnItemOfSixtyOnePointFourSecondsEndsAtSixtyPointSix)
{
    const double length = 61400;
    MonitorUpdate u = MonitorTick({StatePlaying, 0.98, 60100, length});
    EXPECT_EQ(u.timeText, "00:01:00 / 00:01:01");
    EXPECT_FALSE(u.ended);
    u = MonitorTick({StatePlaying, 0.987, 60600, length});
    EXPECT_EQ(u.timeText, "00:01:01 / 00:01:01");
    EXPECT_TRUE(u.ended); // before the engine itself has finished
    EXPECT_EQ(u.progressPercent, 99);
    // Elapsed 60.5 s rounds to 60 (half to even): not yet.
    EXPECT_FALSE(ItemHasEnded(StatePlaying, 60500, length));
    // The integer quotient is 1 up to twice the length.
    EXPECT_TRUE(ItemHasEnded(StatePlaying, 121000, length));
    EXPECT_FALSE(ItemHasEnded(StatePlaying, 122000, length));
}

TEST(PlaybackMonitor, ZeroLengthWhileOpeningIsNotAnEnd)
{
    // The engine is opening: no length, no time, no position.
    for (int state : {StateIdle, StateOpening, StateBuffering, StatePlaying}) {
        const MonitorUpdate u = MonitorTick({state, 0, 0, 0});
        EXPECT_FALSE(u.ended) << state;
        EXPECT_EQ(u.timeText, "00:00:00 / 00:00:00");
        EXPECT_FALSE(u.progressPercent.has_value());
        EXPECT_EQ(u.loadingVisible, state < StatePlaying);
    }
    // A length under half a second rounds to 0 and never ends by time...
    EXPECT_FALSE(ItemHasEnded(StatePlaying, 400, 400));
    // ...but the engine's own end (or failure) ends it, as it does an item
    // whose last reported time fell short of its length.
    EXPECT_TRUE(ItemHasEnded(StateEnded, 400, 400));
    EXPECT_TRUE(ItemHasEnded(StateEnded, 58000, 61400));
    EXPECT_TRUE(ItemHasEnded(StateError, 0, 0));
    EXPECT_FALSE(ItemHasEnded(StatePaused, 0, 0));
}

TEST(PlaybackMonitor, ProgressAndLoadingDisplay)
{
    EXPECT_EQ(MonitorTick({StatePlaying, 0.125, 1000, 8000}).progressPercent, 12);  // 12.5 -> 12
    EXPECT_EQ(MonitorTick({StatePlaying, 0.135, 1000, 8000}).progressPercent, 14);  // 13.5 -> 14
    EXPECT_EQ(MonitorTick({StatePlaying, 1.3, 1000, 8000}).progressPercent, 100);   // clamped
    EXPECT_FALSE(MonitorTick({StatePlaying, -1, 1000, 8000}).progressPercent.has_value());
    EXPECT_TRUE(MonitorTick({StateBuffering, 0.5, 1000, 8000}).loadingVisible);
    EXPECT_FALSE(MonitorTick({StatePaused, 0.5, 1000, 8000}).loadingVisible);
    EXPECT_EQ(LoadingText(), "Loading...");
    // Times round half to even; a negative length shows as zero.
    EXPECT_EQ(MonitorTick({StatePlaying, 0.5, 2500, 3725400}).timeText, "00:00:02 / 01:02:05");
    EXPECT_EQ(MonitorTick({StatePlaying, 0, -1, -1}).timeText, "00:00:00 / 00:00:00");
}

TEST(PlaybackMonitor, TickPlanFollowsTheFourStates)
{
    // No engine: nothing at all.
    EXPECT_EQ(PlanTick(false, true, false, false), TickPlan{});
    EXPECT_EQ(PlanTick(false, false, false, false), TickPlan{});
    // Playing (T, F, F): read the engine.
    EXPECT_EQ(PlanTick(true, true, false, false), (TickPlan{true, false, false}));
    // Paused (F, T, F) and stopped (F, T, T): nothing, the display keeps its text.
    EXPECT_EQ(PlanTick(true, false, true, false), TickPlan{});
    EXPECT_EQ(PlanTick(true, false, true, true), TickPlan{});
    // Ended (F, F, F): the drive poll and the end-of-item rules.
    EXPECT_EQ(PlanTick(true, false, false, false), (TickPlan{false, true, true}));
    // Not halted but stopped does not happen through the commands; it polls
    // the drives but runs no rules.
    EXPECT_EQ(PlanTick(true, false, false, true), (TickPlan{false, true, false}));
}

TEST(PlaybackMonitor, RewindStepsBackAThousandthAndStopsAtTheStart)
{
    EXPECT_EQ(kRewindStep, -1);
    EXPECT_DOUBLE_EQ(*RewindPosition(0.5, kRewindStep), 0.499);
    EXPECT_DOUBLE_EQ(*RewindPosition(0.0004, kRewindStep), 0.0);
    EXPECT_FALSE(RewindPosition(0, kRewindStep).has_value());
    EXPECT_FALSE(RewindPosition(-1, kRewindStep).has_value());
    // A hundred ticks (one second held) go back one tenth of the item.
    double p = 0.6;
    for (int i = 0; i < 100; ++i)
        p = *RewindPosition(p, kRewindStep);
    EXPECT_NEAR(p, 0.5, 1e-9);
}
