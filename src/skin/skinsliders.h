#pragma once
// The seek bar and volume slider arithmetic: from a pointer position on the
// bar, its fill, the track or the knob to a fill width and playing position,
// or to a knob place and volume. Nothing here touches the engine; the
// window sends `position` / `volume` on when a result comes back.

#include "skinlayout.h"

#include <Qt>
#include <optional>

namespace quorvel {

struct SeekResult {
    int fillWidth = 0;   // new fill width in pixels
    double position = 0; // 0..1 for the engine
};

struct VolumeResult {
    int volume = 0;   // 0..100
    int knobLeft = 0; // knob left inside the track
};

// Fill width for a whole percent of the bar.
int FillWidthForPercent(int percent, int barWidth);

// Press or move on the fill: left button only, while an item is loaded.
std::optional<SeekResult> SeekFromFill(Qt::MouseButton button, int x, bool mediaLoaded, int barWidth);
// Press on the bar: a left press moves the fill to x; any press then sends
// the position the fill shows.
std::optional<SeekResult> SeekFromBarPress(Qt::MouseButton button, int x, bool mediaLoaded, int barWidth,
                                           int currentFillWidth);
// Move over the bar with the left button held. Positions left of the bar
// (a drag past its start) are ignored like those at its right end.
std::optional<SeekResult> SeekFromBarMove(Qt::MouseButtons held, int x, bool mediaLoaded, int barWidth);

// Press on the track, or a move with any button held.
std::optional<VolumeResult> VolumeFromTrack(int x, int innerWidth = SkinLayout::kTrackWidth);
// Move on the knob with a button held: x is the pointer's x on the knob.
std::optional<VolumeResult> VolumeFromKnob(int knobLeft, int x, int innerWidth = SkinLayout::kTrackWidth);

// Which slider part a window point falls on, topmost first.
enum class SliderPart { None, Fill, Bar, Knob, Track };
SliderPart SliderPartAt(const SkinLayout &layout, QPoint p, int fillWidth, int knobLeft);

} // namespace quorvel
