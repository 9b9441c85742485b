#include "skinsliders.h"

#include <cmath>

namespace quorvel {

int FillWidthForPercent(int percent, int barWidth)
{
    return RoundHalfEven(percent / 100.0 * barWidth);
}

std::optional<SeekResult> SeekFromFill(Qt::MouseButton button, int x, bool mediaLoaded, int barWidth)
{
    if (button != Qt::LeftButton || !mediaLoaded || barWidth <= 0 || x < 0 || x >= barWidth - 2)
        return std::nullopt;
    return SeekResult{x, double(x) / barWidth};
}

std::optional<SeekResult> SeekFromBarPress(Qt::MouseButton button, int x, bool mediaLoaded, int barWidth,
                                           int currentFillWidth)
{
    if (!mediaLoaded || barWidth <= 0 || x < 0 || x >= barWidth - 2)
        return std::nullopt;
    const int fill = button == Qt::LeftButton ? x : currentFillWidth;
    return SeekResult{fill, double(fill) / barWidth};
}

std::optional<SeekResult> SeekFromBarMove(Qt::MouseButtons held, int x, bool mediaLoaded, int barWidth)
{
    if (!(held & Qt::LeftButton) || !mediaLoaded || barWidth <= 0 || x < 0 || x >= barWidth - 2)
        return std::nullopt;
    return SeekResult{x, double(x) / barWidth};
}

std::optional<VolumeResult> VolumeFromTrack(int x, int innerWidth)
{
    const int usable = innerWidth - SkinLayout::kKnobWidth;
    if (usable <= 0)
        return std::nullopt;
    const double v = std::floor((x - 3) / double(usable) * 100.0);
    if (v < 0 || v > 100)
        return std::nullopt;
    return VolumeResult{int(v), x - 3};
}

std::optional<VolumeResult> VolumeFromKnob(int knobLeft, int x, int innerWidth)
{
    return VolumeFromTrack(knobLeft + x, innerWidth);
}

SliderPart SliderPartAt(const SkinLayout &layout, QPoint p, int fillWidth, int knobLeft)
{
    if (layout.knob(knobLeft).contains(p))
        return SliderPart::Knob;
    if (layout.volumeTrack.contains(p))
        return SliderPart::Track;
    const QRect fill = layout.fill(fillWidth);
    if (!fill.isEmpty() && fill.contains(p))
        return SliderPart::Fill;
    if (layout.seekBar.contains(p))
        return SliderPart::Bar;
    return SliderPart::None;
}

} // namespace quorvel
