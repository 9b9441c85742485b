#include "app/mediacontrols.h"

#include "menus/menukeys.h"
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
    for (QLatin1StringView key :
         {menukey::Stop, menukey::FullScreen, menukey::IncreaseSpeed, menukey::DecreaseSpeed, menukey::ResetSpeed})
        c.menuItems.emplace_back(key, loaded);
    return c;
}

ControlEnables PlaylistControls(bool hasEntries)
{
    ControlEnables c;
    for (QLatin1StringView key : {menukey::Remove, menukey::RemoveAll, menukey::Next, menukey::Previous})
        c.menuItems.emplace_back(key, hasEntries);
    return c;
}

} // namespace quorvel
