#pragma once
// The program's colours outside the skin pictures: the menu bar over the
// skin's menu strip, the pop-up menus, the playlist and the media report.
// One place, so the parts of the window keep one look.

#include <QPalette>
#include <QString>

namespace quorvel::theme {

// The menu bar lying on the skin's dark menu strip.
QString menuBarStyleSheet();
// The pop-up menus (branches of the bar, context and tray menus).
QString menuStyleSheet();
// The playlist: dark rows with light text and the blue accent, `base`
// giving everything the theme leaves alone.
QPalette listPalette(QPalette base);
QString listScrollBarStyleSheet();
// The media report dialog.
QString reportStyleSheet();
// The controls of the skinned dialogs, lying on the skin's dark background.
QString dialogStyleSheet();
QPalette dialogPalette(QPalette base);
// The small panel over the video that offers to start a resumed file over.
QString overlayStyleSheet();
// Small settings dialogs: the dark frame with light text, check boxes and radio buttons.
QString preferencesStyleSheet();

} // namespace quorvel::theme
