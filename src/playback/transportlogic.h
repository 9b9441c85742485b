#pragma once
// The transport commands, the mode setters and the monitor ticks in one
// window-free class. It acts on the engine (`quorvel::Engine`) and the
// playback-state flags, keeps the play order, the speed factor and the
// after-play choice, and asks its host for everything that belongs to the
// window: the playlist's selection, the item start, labels and menu items.
//
// Wiring in the window:
//  - buttons and menu commands call the commands of the same name;
//  - the 500 ms timer calls tmrMovie_Timer(), the 10 ms rewind timer
//    tmrRewind_Timer() while the host's rewind timer runs;
//  - the window's PlayItem calls itemStarted() once the item has started,
//    so the speed factor and its menu items follow every start;
//  - after every add to the playlist: order().rebuild(count, selected);
//    clicks and removals: order().clickedEntry / setCursor / removeAt / clear.

#include "playback/afterplay.h"
#include "playback/playbackmonitor.h"
#include "playback/playbackstate.h"
#include "playback/playorder.h"
#include "playback/speed.h"

#include <QString>
#include <functional>

namespace quorvel {
class Engine;
}

namespace quorvel::playback {

class PowerControl;

// What the transport needs from the window. Display pieces default to
// nothing, so a test host overrides only what it looks at.
class TransportHost {
public:
    virtual ~TransportHost() = default;

    virtual int playlistCount() const = 0;
    // `FancyList1.SelectedItem`, -1 for none.
    virtual int selectedItem() const = 0;
    // Makes `index` the current entry: selection, redraw, current path row.
    virtual void selectEntry(int index) = 0;
    // `PlayItem(index, fullScreen)`: does nothing for an index outside the list.
    virtual void PlayItem(int index, bool fullScreen) = 0;
    // Menu items and skin buttons of `enableMediaControl` (the flags are
    // already set when this is called).
    virtual void enableMediaControl(MediaAction action) = 0;
    // `OpenFiles(Append)`.
    virtual void openFiles(bool append) = 0;
    // Runs `then` once the engine has had half a second after a stop.
    virtual void afterStopPause(std::function<void()> then) = 0;

    virtual void setTimeText(const QString &) {}
    // The rate label: `text` shown, or the label hidden.
    virtual void setRateLabel(const QString &, bool) {}
    virtual void setProgressPercent(int) {}
    virtual void setMenuEnabled(const QString &, bool) {}
    virtual void setMenuChecked(const QString &, bool) {}
    virtual void setRewindTimer(bool) {}
    virtual void enableDvdCheck() {}
    virtual void togglePlaylist() {}
    // Repaint the buttons (the sound button's muted image).
    virtual void controlsChanged() {}
    // Unload the main window: saves the settings and ends the program.
    virtual void exitProgram() {}
};

class Transport {
public:
    Transport(Engine &engine, PlaybackState &state, TransportHost &host, PowerControl &power,
              PlayOrder::Random random = {});

    // Commands.
    void CMDPlayClick();
    void CMDPauseClick();
    // Stops, waits through the host, then runs `then` (the end-of-item rules
    // use it). With nothing in the engine it does nothing but run `then`.
    void cmdStopClick(std::function<void()> then = {});
    void cmdNextClick();
    void cmdPreviousClick();
    void cmdffMouseDown();
    void cmdffMouseUp();
    void StartRewind();
    void StopRewind();
    void cmdFulScreenClick();
    void cmdMuteClick();
    void cmdPlayListClick();
    void IncreaseRate();
    void DecreaseRate();
    void ResetRate();

    // Modes and the after-play choice, with their menu marks.
    void PBNormal();
    void PBCont();
    void PBShuffle();
    void RepeatNone();
    void RepeatSingle();
    void RepeatAll();
    void applyStoredModes(int playMode, int repeatMode);
    void DoAfter(int toDo);

    // Timers.
    void tmrMovie_Timer();
    void tmrRewind_Timer();

    // Sets the flags, the speed items and tells the host.
    void setMediaControl(MediaAction action);
    // Called by the window's item start.
    void itemStarted();

    PlayOrder &order() { return m_order; }
    const SpeedControl &speed() const { return m_speed; }
    AfterPlay &afterPlay() { return m_afterPlay; }
    bool isStopping() const { return m_stopping; }

private:
    void playEntry(int index);
    void applySpeed(const SpeedOutcome &outcome);
    void showModeChecks();

    Engine &m_engine;
    PlaybackState &m_state;
    TransportHost &m_host;
    PlayOrder m_order;
    SpeedControl m_speed;
    AfterPlay m_afterPlay;
    int m_rewindStep = kRewindStep;
    bool m_stopping = false;
};

} // namespace quorvel::playback
