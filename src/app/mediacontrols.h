#pragma once
// Which skin buttons and menu items can be used in each media-control state
// (playing, paused, stopped) and with an empty or filled playlist. The window
// applies the result; nothing here needs a window.

#include "playback/playbackstate.h"

#include <QString>
#include <utility>
#include <vector>

namespace quorvel {

struct ControlEnables {
    std::vector<std::pair<int, bool>> buttons;       // skin button index, usable
    std::vector<std::pair<QString, bool>> menuItems; // menu key, usable
};

// Seeking and stepping only while playing, play while halted, pause while
// playing; stop and the speed and full-screen items unless stopped.
ControlEnables ControlsFor(MediaAction action);

// Removing and stepping through entries need a filled playlist.
ControlEnables PlaylistControls(bool hasEntries);

} // namespace quorvel
