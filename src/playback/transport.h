#pragma once
// The transport commands (play, pause, stop, next, previous, fast forward,
// rewind, full screen, mute, speed), the play and repeat modes, the
// after-play action and the playback monitor's tick. They act on the engine,
// the playback-state flags and the play order; what they show goes through
// TransportView, so the same logic drives any window.

#include "playback/playbackstate.h"
#include "playback/player.h"
#include "playback/playsequence.h"
#include "settings/settings.h"

#include <QObject>
#include <QTimer>
#include <functional>

namespace quorvel {

class Engine;
class Playlist;
namespace playback {
class PowerControl;
}

// What the window does for the transport.
class TransportView {
public:
    virtual ~TransportView() = default;
    virtual void setTimeText(const QString &text) = 0;
    // The rate label: "Loading..." or the speed text; hidden when `visible` is false.
    virtual void setRateText(const QString &text, bool visible) = 0;
    virtual void setProgressPercent(int percent) = 0;
    virtual void openFiles(bool append) = 0;
    virtual void togglePlaylist() = 0;
    virtual void closeWindow() = 0;
    virtual void controlsChanged() = 0; // repaint the buttons (mute image, states)
    virtual void enableDvdCheck() {}
};

enum AfterPlayAction { AfterDoNothing = 0, AfterExit = 1, AfterRestart = 2, AfterShutdown = 3 };

class Transport : public QObject {
    Q_OBJECT
public:
    Transport(Engine &engine, Settings &settings, PlaybackState &state, Playlist &playlist, Player &player,
              playback::PowerControl &power, TransportView &view, QObject *parent = nullptr);

    PlaySequence &sequence() { return m_sequence; }
    Engine &engine() { return m_engine; }

    // Commands.
    void play();
    void pause();
    // Stops, then runs `then` once the engine has had its half second to
    // settle; the window keeps painting meanwhile. A command given while the
    // stop settles wins: the stop's stopped state and `then` are dropped.
    void stop(std::function<void()> then = {});
    // The settle time of a stop (500 ms); tests set 0.
    void setStopSettleDelay(int ms) { m_settleTimer.setInterval(ms); }
    void next();
    void previous();
    void fastForwardPressed();
    void fastForwardReleased();
    void StartRewind();
    void StopRewind();
    void toggleFullScreen();
    void toggleMute();
    void togglePlaylist();
    void IncreaseRate();
    void DecreaseRate();
    void ResetRate();

    // Play and repeat modes; each reports the mode it set.
    void PBNormal();
    void PBContinuous();
    void PBShuffle();
    void RepeatNone();
    void RepeatSingle();
    void RepeatAll();
    // Applies the stored modes at start-up; other values select nothing.
    void applyStoredModes();
    // Rebuilds the order after the playlist changed.
    void rebuildOrder();

    // Asked when the last item of the list has ended, before the repeat
    // and after-play rules: true when it started something beyond the list.
    void setListEndedHandler(std::function<bool()> handler) { m_listEnded = std::move(handler); }

    void DoAfter(int toDo);
    void DoAfterFinishPlay();
    int afterPlayAction() const { return m_afterPlay; }

    // The monitor's tick (every 500 ms) and the rewind tick (every 10 ms).
    void monitorTick();
    void rewindTick();
    QTimer &movieTimer() { return m_movieTimer; }
    QTimer &rewindTimer() { return m_rewindTimer; }
    bool isStopping() const { return m_stopping; }

signals:
    // The playlist cursor moved to `index` (the list shows it as current).
    void selectionMoved(int index);
    // The modes and the after-play action as set (a PlayMode, a RepeatMode,
    // an AfterPlayAction), for the window to mark its menu.
    void playModeChanged(int mode);
    void repeatModeChanged(int mode);
    void afterPlayChanged(int action);
    // Whether the speed can still go up and down from the current one.
    void rateStepsChanged(bool canIncrease, bool canDecrease);

private:
    StartResult playEntry(int index);
    void resumeHalted();
    void step(bool forward);
    void runEndOfItem(EndOfItem next);
    void settleStop();
    void cancelStop();
    void finishStopNow();
    void rateChanged(bool increased, bool reachedLimit);

    Engine &m_engine;
    Settings &m_settings;
    PlaybackState &m_state;
    Playlist &m_playlist;
    Player &m_player;
    playback::PowerControl &m_power;
    TransportView &m_view;
    PlaySequence m_sequence;
    QTimer m_movieTimer;
    QTimer m_rewindTimer;
    QTimer m_settleTimer;
    std::function<void()> m_afterStop;
    std::function<bool()> m_listEnded;
    int m_rewindStep = -1;
    int m_afterPlay = AfterDoNothing;
    bool m_stopping = false;
};

} // namespace quorvel
