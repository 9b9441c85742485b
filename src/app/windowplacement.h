#pragma once
// Brings a stored window size and position back onto the screens there are
// now: a size from a larger monitor (or a damaged file) shrinks to the
// screen, a position on a monitor no longer attached moves onto one, so the
// title bar can always be reached.

#include "settings/settings.h"

#include <QList>
#include <QRect>
#include <QSize>

class QWidget;

namespace quorvel {

// `wanted` in pixels; `available` the screens' usable areas (without
// panels). The size stays within the screen the window mostly lies on and
// never below `minimum`; the position stays when the title bar (the top
// `titleHeight` pixels) lies wholly on the screens, otherwise the window is
// moved onto that screen. With no screen known, only the minimum applies.
QRect ClampToScreens(const QRect &wanted, const QList<QRect> &available, QSize minimum, int titleHeight);

// Applies RememberLastSize and RememberLastPos to the window within the
// screens, and puts the clamped values back into the settings so that a
// size no window can have is not saved again.
void RestoreWindowGeometry(QWidget &window, Settings &settings);

} // namespace quorvel
