#include "playback/monitor.h"
#include "playback/rate.h"
#include "support/fakeengine.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(Monitor, FormatsTimes)
{
    EXPECT_EQ(FormatTime(0), u"00:00:00"_qs);
    EXPECT_EQ(FormatTime(3725), u"01:02:05"_qs);
    EXPECT_EQ(FormatTime(360000), u"100:00:00"_qs);
    EXPECT_EQ(FormatTime(59), u"00:00:59"_qs);
}

TEST(Monitor, EndsOnRoundedSecondsButNeverOnAnUnknownLength)
{
    // 61.4 s shows as 00:01:01 and ends at 60.6 s elapsed.
    EXPECT_FALSE(HasEnded(60400, 61400));
    EXPECT_TRUE(HasEnded(60600, 61400));
    EXPECT_TRUE(HasEnded(61400, 61400));
    EXPECT_FALSE(HasEnded(0, 0));      // still opening
    EXPECT_FALSE(HasEnded(300, 400));  // length rounds to 0: left to the engine's end state

    test::FakeEngine e;
    e.createControl();
    e.scriptedState = Engine::Opening;
    e.scriptedLength = 0;
    e.scriptedTime = 0;
    e.scriptedPosition = 0;
    MonitorReading r = ReadMonitor(e);
    EXPECT_TRUE(r.loading);
    EXPECT_FALSE(r.ended);
    EXPECT_FALSE(r.progressPercent.has_value());
    EXPECT_EQ(r.timeText, u"00:00:00 / 00:00:00"_qs);

    e.scriptedState = Engine::Playing;
    e.scriptedLength = 61400;
    e.scriptedTime = 30500;
    e.scriptedPosition = 0.125; // 12.5 -> 12
    r = ReadMonitor(e);
    EXPECT_FALSE(r.loading);
    EXPECT_EQ(r.progressPercent, 12);
    EXPECT_EQ(r.timeText, u"00:00:30 / 00:01:01"_qs);

    e.scriptedState = Engine::Ended; // the engine finished before the rounded test
    e.scriptedTime = 58000;
    EXPECT_TRUE(ReadMonitor(e).ended);
}

TEST(Rate, StepsDoubleAndHalveBetweenTheLimits)
{
    double rate = 1;
    QList<double> up;
    for (RateChange c = IncreasedRate(rate); c.changed; c = IncreasedRate(rate)) {
        rate = c.rate;
        up << rate;
    }
    EXPECT_EQ(up, (QList<double>{2, 4, 8, 16}));
    rate = 1;
    QList<double> down;
    for (RateChange c = DecreasedRate(rate); c.changed; c = DecreasedRate(rate)) {
        rate = c.rate;
        down << rate;
    }
    EXPECT_EQ(down, (QList<double>{0.5, 0.25, 0.125}));
    EXPECT_EQ(RateText(2), u"Playing rate:2x"_qs);
    EXPECT_EQ(RateText(0.5), u"Playing rate:0.5x"_qs);
    EXPECT_EQ(RateText(0.125), u"Playing rate:0.125x"_qs);
}
