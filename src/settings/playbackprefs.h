#pragma once
// The playback preferences that "Config.cfg" has no line for: how a file
// played part way starts again and what opening a folder does. They live in
// "quorvel.conf" (INI) in the user's config folder; a missing file or key
// means the default, so nobody ever has to edit it.

#include <QString>

namespace quorvel {

// What starting a file that was left part way does.
enum class ResumeMode { Ask = 0, Always = 1, Never = 2 };

struct PlaybackPrefs {
    ResumeMode resume = ResumeMode::Ask;
    // "Open folder..." and dropped folders take the files of subfolders too.
    bool folderSubfolders = false;
    // When the last item ends, the next file of its folder plays.
    bool playNextInFolder = false;

    bool operator==(const PlaybackPrefs &) const = default;
};

// "<XDG config>/quorvel/quorvel.conf".
QString PlaybackPrefsPath();
// Unknown or damaged values read as their defaults.
PlaybackPrefs LoadPlaybackPrefs(const QString &path);
// False when the file could not be written.
bool SavePlaybackPrefs(const QString &path, const PlaybackPrefs &prefs);

} // namespace quorvel
