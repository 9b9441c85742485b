#pragma once
// The playback speed factor `Rate` and the transport decisions that need no
// window. The window owns one SpeedControl and applies each outcome:
//
//   const SpeedOutcome o = speed.IncreaseRate(state.MediaLoaded);
//   if (o.engineRate) engine.setRate(*o.engineRate);
//   if (o.rateText) { lblRate.setText(*o.rateText); lblRate.show(); }
//   for (auto [key, on] : o.menuEnables) menu.SetEnabled(key, on);
//
// `itemStarted()` belongs to the item start (the factor goes back to 1) and
// `setMenuItemsEnabled()` to enableMediaControl (enabled while playing or
// paused, disabled when stopped), so `isEnabled()` always mirrors the menu.

#include <QList>
#include <QPair>
#include <QString>
#include <optional>

namespace quorvel::playback {

inline constexpr double kMaxRate = 16.0;
inline constexpr double kMinRate = 0.125;
inline constexpr double kNormalRate = 1.0;
inline constexpr double kFastForwardRate = 10.0;

// "Playing rate:" + the factor in shortest decimal form + "x":
// "Playing rate:2x", "Playing rate:0.5x", "Playing rate:0.125x".
QString RateText(double rate);
// Above 1 the factor carries no fraction; up to 1 it keeps three decimals.
double TidyRate(double rate);

struct SpeedOutcome {
    bool changed = false;                     // `Rate` moved
    std::optional<double> engineRate;         // give the engine this factor
    std::optional<QString> rateText;          // show this in the rate label
    QList<QPair<QString, bool>> menuEnables;  // menu keys to enable (true) or disable, in order

    bool operator==(const SpeedOutcome &) const = default;
};

class SpeedControl {
public:
    double Rate() const { return m_rate; }

    // Doubles up to 16 / halves down to 0.125; at the limit nothing at all
    // happens. While nothing is loaded only `Rate` changes: the engine gets
    // it with a later command, and the next item start resets it anyway.
    SpeedOutcome IncreaseRate(bool mediaLoaded);
    SpeedOutcome DecreaseRate(bool mediaLoaded);
    // Back to 1 with both menu items enabled; only while loaded.
    SpeedOutcome ResetRate(bool mediaLoaded);

    // Every item start: `Rate` = 1.
    void itemStarted() { m_rate = kNormalRate; }
    // enableMediaControl: both speed items on (playing, paused) or off (stopped).
    void setMenuItemsEnabled(bool enabled);
    // "IncreaseSpeed" or "DecreaseSpeed": whether the menu item is enabled.
    bool isEnabled(const QString &key) const;

private:
    SpeedOutcome applied(bool increased, bool mediaLoaded);
    void setEnabled(SpeedOutcome &o, const QString &key, bool on);

    double m_rate = kNormalRate;
    bool m_increaseEnabled = false; // the program starts in the stopped state
    bool m_decreaseEnabled = false;
};

// Fast forward: the factor for the engine while the button is held (10) and
// after it is released (1), only while loaded. `Rate` is not touched, so a
// chosen speed is lost on release, and a later speed step starts from it.
std::optional<double> FastForwardRate(bool pressed, bool mediaLoaded);

// The pause command's table. Ended (nothing loaded, not halted): ignored.
// Otherwise the engine's pause is toggled and the new state is paused when
// it was running, playing when it was paused or stopped.
enum class PauseDecision { Ignore, TogglePauseThenPaused, TogglePauseThenPlaying };
PauseDecision DecidePause(bool mediaLoaded, bool isHalted);

// The play command's table.
struct PlayDecision {
    enum Action {
        OpenFiles,      // empty playlist: open the file dialog (not appending)
        ResumeEngine,   // paused or stopped: engine play, then the playing state
        StartSelected,  // playing or ended: cursor = index, then PlayItem(index)
    };
    Action action = OpenFiles;
    int index = -1;

    bool operator==(const PlayDecision &) const = default;
};
PlayDecision DecidePlay(int playlistCount, bool isHalted, int selectedItem);

// The stop command acts only when the engine has an item; it then stops it,
// shows progress 0 and ResetTimeText(), waits half a second for the engine to
// settle and enters the stopped state.
inline bool StopActs(int engineItemCount) { return engineItemCount >= 1; }

} // namespace quorvel::playback
