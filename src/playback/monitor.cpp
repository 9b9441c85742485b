#include "monitor.h"

#include "playback/engine.h"
#include "playback/playsequence.h"

namespace quorvel {

QString FormatTime(int seconds)
{
    const int h = seconds / 3600;
    const int r = seconds - 3600 * h;
    const int m = r / 60;
    const int s = r - 60 * m;
    auto two = [](int v) { return v < 10 ? QStringLiteral("0") + QString::number(v) : QString::number(v); };
    return two(h) + u':' + two(m) + u':' + two(s);
}

bool HasEnded(double timeMs, double lengthMs)
{
    const int elapsed = RoundHalfEven(timeMs / 1000);
    const int total = RoundHalfEven(lengthMs / 1000);
    // A length of zero seconds means the engine does not know it yet (it is
    // still opening the file) or the item is shorter than half a second.
    // Counting that as the end would skip files that are merely slow to
    // open, so such an item ends through the engine's own end state instead.
    if (total <= 0)
        return false;
    return elapsed / total == 1;
}

MonitorReading ReadMonitor(const Engine &engine)
{
    MonitorReading r;
    r.loading = engine.state() < Engine::Playing;
    if (engine.position() > 0)
        r.progressPercent = RoundHalfEven(100 * engine.position());
    r.timeText = FormatTime(RoundHalfEven(engine.time() / 1000)) + QStringLiteral(" / ")
                 + FormatTime(RoundHalfEven(engine.length() / 1000));
    // The engine's own end state also counts: its last reported time can
    // fall short of the length, and a very short item has no length at all.
    r.ended = HasEnded(engine.time(), engine.length()) || engine.state() == Engine::Ended;
    return r;
}

} // namespace quorvel
