#include "settings.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>

namespace quorvel {

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

Settings DefaultSettings(const SettingsEnvironment &env)
{
    Settings s;
    s.Language = QStringLiteral("English");
    s.DefaultFolder = env.desktopFolder;
    // Snapshots go below the user's pictures folder (the root when unknown).
    s.SnapshotFolder = env.picturesFolder.isEmpty() ? QString(kPathSeparator) : env.picturesFolder;
    s.SnapshotPrefix = QStringLiteral("IMG_");
    s.WindowWidth = kStartWidthPx * kTwipsPerPixel;
    s.WindowHeight = kStartHeightPx * kTwipsPerPixel;
    s.WindowLeft = (env.screenWidthPx - kStartWidthPx) / 2 * kTwipsPerPixel;
    s.WindowTop = (env.screenHeightPx - kStartHeightPx) / 2 * kTwipsPerPixel;
    return s;
}

} // namespace quorvel
