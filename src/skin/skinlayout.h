#pragma once
// Where everything of the skinned main window sits for a given client size
// and playlist layout code: frame bands, the 16 buttons with their hit
// rectangles, the video area and playlist place, text labels, the seek bar
// and the volume slider. Pure arithmetic; no window needed.

#include "common/geometry.h"

#include <QRect>
#include <QSize>
#include <array>
#include <optional>

namespace quorvel {

// Indices of the button table (24 slots; 3-6, 21 and 22 stay empty).
enum SkinButtonIndex : int {
    BtnClose = 0,
    BtnMaxmize = 1,
    BtnMinimize = 2,
    BtnTitleBar = 7,
    BtnPlay = 8,
    BtnPause = 9,
    BtnStop = 10,
    BtnPrevious = 11,
    BtnRewind = 12,
    BtnNext = 13,
    BtnFF = 14,
    BtnSnapShoot = 15,
    BtnFullScreen = 16,
    BtnPlayList = 17,
    BtnDvd = 18,
    BtnOpen = 19,
    BtnSound = 20,
    BtnWindowIcon = 23
};
inline constexpr int kSkinButtonSlots = 24;
using SkinRects = std::array<HitRect, kSkinButtonSlots>;


// Side pane sizes of the splitter for one playlist layout code.
struct PlaylistPanes {
    double pane0Width = 0, pane1Height = 0, pane3Height = 0, pane4Width = 0;
    int holder = -1;           // pane index holding the playlist; -1 for none
    bool fillsVideo = false;   // code 4: the playlist lies over the video area
    bool keepContents = false; // code 5: pane contents are left as they are
    // locks after the layout: width of 0, width of 4, height of 1, height of 3
    bool lock0W = true, lock4W = true, lock1H = true, lock3H = true;
};

// Pane sizes for `code` on a splitter of the given outer size; nothing for
// codes outside 0-5, which change no pane.
std::optional<PlaylistPanes> PlaylistPanesFor(int code, QSizeF splitter);

struct SkinLayout {
    static constexpr int kTitleHeight = 31;
    static constexpr int kControlHeight = 147;
    static constexpr int kSeekBarHeight = 14;
    static constexpr int kTrackWidth = 61;
    static constexpr int kTrackHeight = 12;
    static constexpr int kKnobWidth = 10;
    static constexpr int kKnobHeight = 17;
    static constexpr int kFillTop = 2;
    static constexpr int kFillHeight = 9;

    int width = 0, height = 0;
    int px = 0; // left of the Play button

    QRect titleBar, menuStrip, leftBorder, rightBorder, videoArea;
    QRect controlLeft, controlCentre, controlRight;
    SkinRects buttons;    // drawn rectangles
    QRect caption;        // caption label
    QPoint rateLabel;     // top-left of the playing-rate text
    int timeLabelTop = 0; // the time text is centred horizontally
    QRect volumeLabel;    // the volume number, right-aligned over the track's end
    QRect seekBar;
    QRect volumeTrack;
    std::array<QRect, 5> menuCaptions; // "File" ... "Help"

    // Playlist and remaining video place for the layout code, in client
    // pixels (splitter bars not counted); empty playlist rect when hidden.
    QRect playlist;
    QRect video;

    static SkinLayout Compute(QSize client, int playlistCode = 5);

    // The time text's label left for a text of `textWidth` pixels.
    int timeLabelLeft(int textWidth) const { return (width - textWidth) / 2; }
    // Knob rectangle for a knob left inside the track.
    QRect knob(int knobLeft) const;
    // Seek fill rectangle for a fill width in pixels (clipped to the bar).
    QRect fill(int fillWidth) const;
};

// Hit rectangles from drawn ones: from index 8 on, the bottom is raised by
// 2/7 of the height, so the lower part of a control-area button is dead.
SkinRects RaiseHitBottoms(const SkinRects &drawn);

} // namespace quorvel
