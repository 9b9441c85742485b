#pragma once
// Everything a skinned main window needs between its events and the skin:
// the paint state, the button states, the hit rectangles of the last paint
// and the drag of the seek bar or volume knob. The window forwards paint and
// mouse events with client positions and acts on the Reaction it gets back
// (run commands, repaint, send a position or a volume to the engine).
// Window-free, so every path is testable without a screen.

#include "skinbuttons.h"
#include "skinpainter.h"
#include "skinsliders.h"

#include <optional>
#include <vector>

namespace quorvel {

class SkinController {
public:
    struct Reaction {
        std::vector<SkinCommand> commands; // in the order they must run
        bool repaint = false;
        std::optional<double> seekTo; // send as the engine's position (0..1)
        std::optional<int> volume;    // send as the engine's volume (0..100)
        bool has(SkinCommand c) const;
    };

    explicit SkinController(const SkinImages &images) : m_painter(images) {}

    // The window fills texts, size and mute flag here; button states live in buttons().
    SkinPaintState &state() { return m_state; }
    const SkinPaintState &state() const { return m_state; }
    SkinButtons &buttons() { return m_buttons; }
    const SkinButtons &buttons() const { return m_buttons; }
    const SkinRects &hitRects() const { return m_rects; }
    SkinLayout layout() const { return SkinLayout::Compute(m_state.size); }

    void setMediaLoaded(bool loaded) { m_mediaLoaded = loaded; }
    bool mediaLoaded() const { return m_mediaLoaded; }
    // The playback monitor's tick and the stop command.
    void SetProgressPercent(int percent);

    // Paints the whole window; the rectangles of this paint serve the
    // following mouse events.
    void paint(QPainter &painter);
    int hitTest(QPoint client) const { return HitTestButtons(m_rects, client); }

    Reaction mouseMove(QPoint client, Qt::MouseButtons held);
    Reaction mousePress(QPoint client, Qt::MouseButton button);
    // A release after a press on the window's surface also clicks what is
    // under the pointer now (not what was pressed).
    Reaction mouseRelease(QPoint client);
    Reaction doubleClick(QPoint client);

private:
    SkinPainter m_painter;
    SkinPaintState m_state;
    SkinButtons m_buttons;
    SkinRects m_rects{};
    bool m_mediaLoaded = false;
    SliderPart m_capture = SliderPart::None; // the slider part a press landed on
    bool m_surfacePressed = false;
};

} // namespace quorvel
