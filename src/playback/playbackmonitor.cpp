#include "playback/playbackmonitor.h"

#include "playback/rounding.h"

#include <algorithm>
#include <cmath>

namespace quorvel::playback {

namespace {
QString twoDigits(int value)
{
    return value < 10 ? QStringLiteral("0") + QString::number(value) : QString::number(value);
}

int wholeSeconds(double ms)
{
    return RoundHalfEven(ms / 1000.0);
}
} // namespace

QString FormatTime(int seconds)
{
    const int h = seconds / 3600;
    const int r = seconds - 3600 * h;
    const int m = r / 60;
    const int s = r - 60 * m;
    return twoDigits(h) + u':' + twoDigits(m) + u':' + twoDigits(s);
}

QString LoadingText()
{
    return QStringLiteral("Loading...");
}

QString ResetTimeText()
{
    return QStringLiteral("00:00:00 / 00:00:00");
}

bool ItemHasEnded(int state, double timeMs, double lengthMs)
{
    // The engine says it is done (end of stream, or it gave up on the file):
    // its last reported time can fall short of the length, so the time test
    // alone could wait for ever.
    if (state == StateEnded || state == StateError)
        return true;
    const int elapsed = wholeSeconds(timeMs);
    const int total = wholeSeconds(lengthMs);
    // A length of 0 seconds is what the engine reports while it is still
    // opening the file (and for items under half a second). Dividing by it
    // would make every slow-to-open item "end" on its first tick and skip it,
    // or, with an after-play action set, shut the machine down before the
    // file ever played. Such items end through the engine's end state above.
    if (total <= 0)
        return false;
    return elapsed / total == 1;
}

MonitorUpdate MonitorTick(const EngineReading &reading)
{
    MonitorUpdate u;
    u.loadingVisible = reading.state < StatePlaying;
    if (reading.position > 0)
        u.progressPercent = std::clamp(RoundHalfEven(100.0 * reading.position), 0, 100);
    // Negative readings (an engine that does not know yet) show as zero.
    const int elapsed = std::max(0, wholeSeconds(reading.timeMs));
    const int total = std::max(0, wholeSeconds(reading.lengthMs));
    u.timeText = FormatTime(elapsed) + QStringLiteral(" / ") + FormatTime(total);
    u.ended = ItemHasEnded(reading.state, reading.timeMs, reading.lengthMs);
    return u;
}

TickPlan PlanTick(bool hasEngine, bool mediaLoaded, bool isHalted, bool isStopped)
{
    TickPlan plan;
    if (!hasEngine)
        return plan;
    if (mediaLoaded) {
        plan.readEngine = true;
        return plan;
    }
    plan.enableDvdCheck = !isHalted;
    plan.runEndOfItem = !isHalted && !isStopped;
    return plan;
}

std::optional<double> RewindPosition(double position, int rewindStep)
{
    if (!(position > 0))
        return std::nullopt;
    return std::clamp(position + rewindStep * 0.001, 0.0, 1.0);
}

} // namespace quorvel::playback
