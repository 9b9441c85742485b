#include "playback/monitor.h"
#include "support/fakeengine.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(Monitor, EndsOnRoundedSecondsButNeverOnAnUnknownLength)
{
    EXPECT_EQ(FormatTime(360000), u"100:00:00"_qs); // hours are not wrapped
    // 61.4 s shows as 00:01:01 and ends at 60.6 s elapsed; a length that
    // rounds to 0 is left to the engine's end state.
    const struct {
        int time, length;
        bool ended;
    } cases[] = {
        {60400, 61400, false}, {60600, 61400, true}, {61400, 61400, true}, {0, 0, false}, {300, 400, false},
    };
    for (const auto &c : cases)
        EXPECT_EQ(HasEnded(c.time, c.length), c.ended) << c.time << '/' << c.length;

    test::FakeEngine e;
    e.createControl();
    e.scriptedState = Engine::Opening;
    e.scriptedLength = e.scriptedTime = 0;
    const MonitorReading opening = ReadMonitor(e);
    EXPECT_TRUE(opening.loading && !opening.ended && !opening.progressPercent);

    e.scriptedState = Engine::Playing;
    e.scriptedLength = 61400;
    e.scriptedTime = 30500;
    e.scriptedPosition = 0.125; // 12.5 -> 12
    const MonitorReading r = ReadMonitor(e);
    EXPECT_EQ(std::tuple(r.loading, r.progressPercent, r.timeText),
              std::tuple(false, std::optional(12), u"00:00:30 / 00:01:01"_qs));

    e.scriptedState = Engine::Ended; // the engine finished before the rounded test
    e.scriptedTime = 58000;
    EXPECT_TRUE(ReadMonitor(e).ended);
}
