#pragma once
// The states of the skin buttons and what the mouse does to them. The window
// forwards each mouse event with the index under the live pointer (from
// HitTestButtons) and runs the command it gets back; states set here show at
// the next paint.

#include "skinimages.h"
#include "skinlayout.h"

#include <array>

namespace quorvel {

// What a mouse event on the skin asks the window to do.
enum class SkinCommand {
    None,
    Close,          // close the window
    ToggleMaximize, // the Maximize button
    Minimize,
    DragWindow,        // a press on the title bar starts a window move
    MaximizeOrRestore, // double-click on the title bar
    Play,
    Pause,
    Stop,
    Previous,
    Next,
    StartRewind,
    StopRewind,
    FastForwardDown,
    FastForwardUp,
    MediaInfo, // the information button: show the selected item's report
    FullScreen,
    PlayList,
    Dvd,
    Open,
    Mute
};

class SkinButtons {
public:
    int state(int index) const;
    // For the playback state and the window commands: enabling sets 0,
    // disabling sets 3; the mouse never leaves or enters state 3.
    void setState(int index, int state);
    void setEnabled(int index, bool enabled) { setState(index, enabled ? StateNormal : StateDisabled); }
    const std::array<int, kSkinButtonSlots> &states() const { return m_states; }

    // Pointer moved over the window's surface. Returns true when a repaint
    // is due. Nothing changes while a button is held.
    bool mouseMove(int hit, bool anyButtonHeld);
    // A press: marks the button pressed and returns the press action
    // (rewind, fast forward, window move). The caller repaints.
    SkinCommand mousePress(int hit);
    // A release: ends rewind or fast forward when released over them.
    SkinCommand mouseRelease(int hit) const;
    // A click runs the command of the button under the pointer now.
    SkinCommand click(int hit) const;
    SkinCommand doubleClick(int hit) const;

private:
    std::array<int, kSkinButtonSlots> m_states{};
};

} // namespace quorvel
