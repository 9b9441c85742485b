#include "settings/settings.h"

#include <QStandardPaths>

namespace quorvel {

Settings DefaultSettings(const SettingsEnvironment &env)
{
    Settings s;
    s.Language = QStringLiteral("English");
    s.DefaultFolder = env.desktopFolder;
    // Snapshots go below the user's pictures folder (the root when unknown).
    s.SnapshotFolder = env.picturesFolder.isEmpty() ? QString(kPathSeparator) : env.picturesFolder;
    s.SnapshotPrefix = QStringLiteral("IMG_");
    s.WindowWidth = kStartWidthPx;
    s.WindowHeight = kStartHeightPx;
    s.WindowLeft = (env.screenWidthPx - kStartWidthPx) / 2;
    s.WindowTop = (env.screenHeightPx - kStartHeightPx) / 2;
    return s;
}

} // namespace quorvel
