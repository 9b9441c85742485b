#include "settings/settings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>

namespace quorvel {

// Kept in a file of its own: a start that only hands its files over
// reads the settings without loading the window system's libraries.
SettingsEnvironment SettingsEnvironment::fromSystem()
{
    SettingsEnvironment env;
    env.desktopFolder = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
    env.picturesFolder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        if (const QScreen *screen = app->primaryScreen()) {
            env.screenWidthPx = screen->geometry().width();
            env.screenHeightPx = screen->geometry().height();
        }
    }
    return env;
}

} // namespace quorvel
