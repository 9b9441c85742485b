#include "skinbuttons.h"

namespace quorvel {

int SkinButtons::state(int index) const
{
    return index >= 0 && index < kSkinButtonSlots ? m_states[index] : StateNormal;
}

void SkinButtons::setState(int index, int state)
{
    if (index >= 0 && index < kSkinButtonSlots && state >= 0 && state < kSkinStateCount)
        m_states[index] = state;
}

bool SkinButtons::mouseMove(int hit, bool anyButtonHeld)
{
    if (anyButtonHeld)
        return false;
    bool repaint = false;
    for (int &s : m_states) {
        if (s != StateDisabled) {
            s = StateNormal;
            repaint = true;
        }
    }
    if (hit >= 0 && hit < kSkinButtonSlots && m_states[hit] != StateDisabled && m_states[hit] != StatePressed)
        m_states[hit] = StateOver;
    return repaint;
}

SkinCommand SkinButtons::mousePress(int hit)
{
    for (int &s : m_states) {
        if (s != StateDisabled)
            s = StateNormal;
    }
    const bool live = hit >= 0 && hit < kSkinButtonSlots && m_states[hit] != StateDisabled;
    if (live)
        m_states[hit] = StatePressed;
    if (live && hit == BtnRewind)
        return SkinCommand::StartRewind;
    if (live && hit == BtnFF)
        return SkinCommand::FastForwardDown;
    if (hit == BtnTitleBar)
        return SkinCommand::DragWindow;
    return SkinCommand::None;
}

SkinCommand SkinButtons::mouseRelease(int hit) const
{
    // no state test: a rewind started must always be stoppable
    if (hit == BtnRewind)
        return SkinCommand::StopRewind;
    if (hit == BtnFF)
        return SkinCommand::FastForwardUp;
    return SkinCommand::None;
}

SkinCommand SkinButtons::click(int hit) const
{
    if (hit < 0 || hit > BtnSound || m_states[hit] == StateDisabled)
        return SkinCommand::None;
    switch (hit) {
    case BtnClose:
        return SkinCommand::Close;
    case BtnMaxmize:
        return SkinCommand::ToggleMaximize;
    case BtnMinimize:
        return SkinCommand::Minimize;
    case BtnPlay:
        return SkinCommand::Play;
    case BtnPause:
        return SkinCommand::Pause;
    case BtnStop:
        return SkinCommand::Stop;
    case BtnPrevious:
        return SkinCommand::Previous;
    case BtnNext:
        return SkinCommand::Next;
    case BtnSnapShoot:
        return SkinCommand::MediaInfo;
    case BtnFullScreen:
        return SkinCommand::FullScreen;
    case BtnPlayList:
        return SkinCommand::PlayList;
    case BtnDvd:
        return SkinCommand::Dvd;
    case BtnOpen:
        return SkinCommand::Open;
    case BtnSound:
        return SkinCommand::Mute;
    default:
        return SkinCommand::None;
    }
}

SkinCommand SkinButtons::doubleClick(int hit) const
{
    return hit == BtnTitleBar ? SkinCommand::MaximizeOrRestore : SkinCommand::None;
}

} // namespace quorvel
