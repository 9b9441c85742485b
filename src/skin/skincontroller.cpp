#include "skincontroller.h"

#include <algorithm>

namespace quorvel {

bool SkinController::Reaction::has(SkinCommand c) const
{
    return std::find(commands.begin(), commands.end(), c) != commands.end();
}

void SkinController::SetProgressPercent(int percent)
{
    m_state.fillWidth = FillWidthForPercent(percent, layout().seekBar.width());
}

void SkinController::paint(QPainter &painter)
{
    m_state.buttonStates = m_buttons.states();
    m_rects = m_painter.paint(painter, m_state);
}

SkinController::Reaction SkinController::mouseMove(QPoint client, Qt::MouseButtons held)
{
    Reaction r;
    const SkinLayout l = layout();
    if (m_capture != SliderPart::None) {
        // a press on a slider keeps the mouse until release, like a child control
        if (m_capture == SliderPart::Fill || m_capture == SliderPart::Bar) {
            const int x = client.x() - l.seekBar.left();
            const auto seek = m_capture == SliderPart::Fill
                                  ? (held & Qt::LeftButton
                                         ? SeekFromFill(Qt::LeftButton, x, m_mediaLoaded, l.seekBar.width())
                                         : std::nullopt)
                                  : SeekFromBarMove(held, x, m_mediaLoaded, l.seekBar.width());
            if (seek) {
                m_state.fillWidth = seek->fillWidth;
                r.seekTo = seek->position;
                r.repaint = true;
            }
        } else if (held != Qt::NoButton) {
            if (auto v = VolumeFromTrack(client.x() - l.volumeTrack.left())) {
                m_state.knobLeft = v->knobLeft;
                m_state.volumeText = QString::number(v->volume);
                r.volume = v->volume;
                r.repaint = true;
            }
        }
        return r;
    }
    if (SliderPartAt(l, client, m_state.fillWidth, m_state.knobLeft) != SliderPart::None)
        return r; // the sliders are not part of the window's surface
    r.repaint = m_buttons.mouseMove(hitTest(client), held != Qt::NoButton);
    return r;
}

SkinController::Reaction SkinController::mousePress(QPoint client, Qt::MouseButton button)
{
    Reaction r;
    const SkinLayout l = layout();
    const SliderPart part = SliderPartAt(l, client, m_state.fillWidth, m_state.knobLeft);
    if (part != SliderPart::None) {
        m_capture = part;
        if (part == SliderPart::Fill || part == SliderPart::Bar) {
            const int x = client.x() - l.seekBar.left();
            const auto seek = part == SliderPart::Fill
                                  ? SeekFromFill(button, x, m_mediaLoaded, l.seekBar.width())
                                  : SeekFromBarPress(button, x, m_mediaLoaded, l.seekBar.width(), m_state.fillWidth);
            if (seek) {
                m_state.fillWidth = seek->fillWidth;
                r.seekTo = seek->position;
                r.repaint = true;
            }
        } else if (part == SliderPart::Track) {
            // the knob only follows a drag; a press on the track jumps to it
            if (auto v = VolumeFromTrack(client.x() - l.volumeTrack.left())) {
                m_state.knobLeft = v->knobLeft;
                m_state.volumeText = QString::number(v->volume);
                r.volume = v->volume;
                r.repaint = true;
            }
        }
        return r;
    }
    m_surfacePressed = true;
    const SkinCommand press = m_buttons.mousePress(hitTest(client));
    r.repaint = true;
    if (press != SkinCommand::None)
        r.commands.push_back(press);
    return r;
}

SkinController::Reaction SkinController::mouseRelease(QPoint client)
{
    Reaction r;
    if (m_capture != SliderPart::None) {
        m_capture = SliderPart::None;
        return r;
    }
    if (!m_surfacePressed)
        return r;
    m_surfacePressed = false;
    const int hit = hitTest(client);
    const SkinCommand release = m_buttons.mouseRelease(hit);
    if (release != SkinCommand::None)
        r.commands.push_back(release);
    const SkinCommand click = m_buttons.click(hit);
    if (click != SkinCommand::None)
        r.commands.push_back(click);
    return r;
}

SkinController::Reaction SkinController::doubleClick(QPoint client)
{
    Reaction r;
    if (SliderPartAt(layout(), client, m_state.fillWidth, m_state.knobLeft) != SliderPart::None)
        return r;
    const SkinCommand c = m_buttons.doubleClick(hitTest(client));
    if (c != SkinCommand::None)
        r.commands.push_back(c);
    return r;
}

} // namespace quorvel
