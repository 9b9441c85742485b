#include "playbackprefs.h"

#include <QSettings>
#include <QStandardPaths>

namespace quorvel {

namespace {
const QString kResume = QStringLiteral("Playback/Resume");
const QString kSubfolders = QStringLiteral("Folders/IncludeSubfolders");
const QString kNextInFolder = QStringLiteral("Folders/PlayNextInFolder");

// The file keeps words, not numbers: a user who opens it can read it.
const char *const kResumeWords[] = {"ask", "always", "never"};
} // namespace

QString PlaybackPrefsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/quorvel/quorvel.conf");
}

PlaybackPrefs LoadPlaybackPrefs(const QString &path)
{
    PlaybackPrefs prefs;
    QSettings file(path, QSettings::IniFormat);
    const QString resume = file.value(kResume).toString().trimmed().toLower();
    for (int i = 0; i < 3; ++i) {
        if (resume == QLatin1String(kResumeWords[i]))
            prefs.resume = static_cast<ResumeMode>(i);
    }
    prefs.folderSubfolders = file.value(kSubfolders, prefs.folderSubfolders).toBool();
    prefs.playNextInFolder = file.value(kNextInFolder, prefs.playNextInFolder).toBool();
    return prefs;
}

bool SavePlaybackPrefs(const QString &path, const PlaybackPrefs &prefs)
{
    QSettings file(path, QSettings::IniFormat);
    file.setValue(kResume, QLatin1String(kResumeWords[static_cast<int>(prefs.resume)]));
    file.setValue(kSubfolders, prefs.folderSubfolders);
    file.setValue(kNextInFolder, prefs.playNextInFolder);
    file.sync();
    return file.status() == QSettings::NoError;
}

} // namespace quorvel
