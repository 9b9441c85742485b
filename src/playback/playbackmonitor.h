#pragma once
// What the playback monitor shows and decides, as pure functions of what the
// engine reports. The window's 500 ms timer (`tmrMovie`) calls them like this:
//
//   const TickPlan plan = PlanTick(engine.hasControl(), s.MediaLoaded, s.IsHalted, s.IsStopped);
//   if (plan.readEngine) {
//       const MonitorUpdate u = MonitorTick({engine.state(), engine.position(),
//                                            engine.time(), engine.length()});
//       lblRate: show LoadingText() when u.loadingVisible, else hide it;
//       if (u.progressPercent) SetProgressPercent(*u.progressPercent);
//       lblTimeElapsed = u.timeText;
//       if (u.ended) s.MediaLoaded = false;   // buttons keep their states
//   }
//   if (plan.enableDvdCheck) start the drive poll;
//   if (plan.runEndOfItem) act on DecideEndOfItem(order, engine.itemCount(), CurrentFile);
//
// The 10 ms rewind timer (`tmrRewind`) sets the position to
// RewindPosition(engine.position(), kRewindStep) when it has a value.

#include <QString>
#include <optional>

namespace quorvel::playback {

// "hh:mm:ss" from whole seconds: each part has at least two digits, hours
// may have more (0 -> "00:00:00", 3725 -> "01:02:05", 360000 -> "100:00:00").
QString FormatTime(int seconds);

// The texts the monitor shows.
QString LoadingText();    // "Loading..."
QString ResetTimeText();  // "00:00:00 / 00:00:00", also written by the stop command

// The engine's state codes as the monitor reads them (the same numbers as
// the engine interface): below Playing means still opening or buffering.
enum EngineStateCode { StateIdle = 0, StateOpening = 1, StateBuffering = 2, StatePlaying = 3,
                       StatePaused = 4, StateStopped = 5, StateEnded = 6, StateError = 7 };

// One tick's engine reads.
struct EngineReading {
    int state = StateIdle;
    double position = 0;   // fraction 0..1, 0 or less while unknown
    double timeMs = 0;     // elapsed
    double lengthMs = 0;   // total, 0 while unknown
};

struct MonitorUpdate {
    bool loadingVisible = false;         // "Loading..." shown (else the label is hidden)
    std::optional<int> progressPercent;  // empty: the progress bar stays as it is
    QString timeText;                    // "00:00:12 / 00:01:01"
    bool ended = false;                  // the item counts as ended from this tick on

    bool operator==(const MonitorUpdate &) const = default;
};

// The display and the end test of one tick while an item is loaded.
MonitorUpdate MonitorTick(const EngineReading &reading);

// The end test. On whole seconds (halves to even) the item has ended when
// elapsed / length, truncated, is 1: from the tick at which the rounded
// elapsed time reaches the rounded length (a 61.4 s item ends at 60.6 s).
// Besides, the engine's own end or error state ends it, and a length that
// rounds to 0 never ends it by time (see the definition for why).
bool ItemHasEnded(int state, double timeMs, double lengthMs);

// What one monitor tick has to do, from the playback-state flags.
struct TickPlan {
    bool readEngine = false;      // playing: update the display, run the end test
    bool enableDvdCheck = false;  // not playing and not halted (the ended state)
    bool runEndOfItem = false;    // the ended state: apply the end-of-item rules

    bool operator==(const TickPlan &) const = default;
};
TickPlan PlanTick(bool hasEngine, bool mediaLoaded, bool isHalted, bool isStopped);

// The rewind step: thousandths of the item per 10 ms tick.
inline constexpr int kRewindStep = -1;
// The new position for one rewind tick, kept within 0..1; empty when the
// position is unknown (0 or less), so an item still opening is not sent
// back to its start by accident.
std::optional<double> RewindPosition(double position, int rewindStep);

} // namespace quorvel::playback
