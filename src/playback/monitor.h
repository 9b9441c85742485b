#pragma once
// What the playback monitor shows and decides on each tick, from what the
// engine reports.

#include <QString>
#include <optional>

namespace quorvel {

class Engine;

// "hh:mm:ss"; hours may take more than two digits.
QString FormatTime(int seconds);

struct MonitorReading {
    bool loading = false;               // show "Loading..."
    std::optional<int> progressPercent; // unchanged when empty
    QString timeText;                   // "00:01:02 / 00:03:00"
    bool ended = false;                 // the item has reached its end
};

// One tick while playing. All reads are fresh engine calls.
MonitorReading ReadMonitor(const Engine &engine);

// The end test on whole seconds: the item has ended once the rounded
// elapsed time reaches the rounded length.
bool HasEnded(double timeMs, double lengthMs);

} // namespace quorvel
