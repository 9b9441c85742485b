#pragma once
// Paints the whole skinned main window (frame, control area, the 16
// buttons in their states, seek bar, volume slider and the texts) onto any
// painter, in a fixed order, and returns the buttons' hit rectangles. The
// window keeps a SkinPaintState, fills it from its own state and calls
// paint() from its paint event; the returned rectangles feed HitTestButtons.

#include "skinimages.h"
#include "skinlayout.h"

#include <QFont>
#include <QSize>
#include <QString>
#include <QStringList>
#include <array>

class QPainter;

namespace quorvel {

struct SkinPaintState {
    QSize size{388, 515};                             // client size
    std::array<int, kSkinButtonSlots> buttonStates{}; // from SkinButtons::states()
    bool isMuted = false;                             // the sound button shows "SoundOFF"
    int fillWidth = 0;                                // seek fill in pixels
    int knobLeft = 48;                                // volume knob left inside the track
    QString captionText = QStringLiteral("Quorvel");  // already fitted to the caption label
    QString timeText = QStringLiteral("00:00:00 / 00:00:00");
    QString rateText;
    QString volumeText = QStringLiteral("0");
    QStringList menuCaptions; // drawn only when the window has no menu bar of its own
};

class SkinPainter {
public:
    explicit SkinPainter(const SkinImages &images) : m_images(images) {}

    // Paints everything and returns the hit rectangles (bottoms of the
    // control-area buttons raised). Pictures that are missing are left out
    // and their buttons get empty rectangles.
    SkinRects paint(QPainter &painter, const SkinPaintState &state) const;

    static QFont captionFont(); // white bold caption on the title bar
    static QFont statusFont();  // time and rate text
    static QFont windowFont();  // volume number, menu captions

private:
    void paintSeekBar(QPainter &p, const SkinLayout &l, const SkinPaintState &s) const;
    void paintVolume(QPainter &p, const SkinLayout &l, const SkinPaintState &s) const;
    void paintTexts(QPainter &p, const SkinLayout &l, const SkinPaintState &s) const;

    const SkinImages &m_images;
};

} // namespace quorvel
