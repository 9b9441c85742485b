#include "app/mediacontrols.h"

#include "skin/skinlayout.h"

namespace quorvel {

ControlEnables ControlsFor(MediaAction action)
{
    const bool playing = action == MediaAction::Playing;
    const bool loaded = action != MediaAction::Stopped;
    ControlEnables c;
    for (int index : {BtnPrevious, BtnRewind, BtnNext, BtnFF, BtnSnapShoot, BtnFullScreen})
        c.buttons.emplace_back(index, playing);
    c.buttons.emplace_back(BtnPlay, !playing);
    c.buttons.emplace_back(BtnPause, playing);
    c.buttons.emplace_back(BtnStop, loaded);
    for (const char *key : {"Stop", "FullScreen", "IncreaseSpeed", "DecreaseSpeed", "ResetSpeed"})
        c.menuItems.emplace_back(QLatin1String(key), loaded);
    return c;
}

ControlEnables PlaylistControls(bool hasEntries)
{
    ControlEnables c;
    for (const char *key : {"Remove", "RemoveAll", "Next", "Previous"})
        c.menuItems.emplace_back(QLatin1String(key), hasEntries);
    return c;
}

} // namespace quorvel
