#pragma once
// The playback preferences that "Config.cfg" has no line for: how a file
// played part way starts again, what opening a folder does and which audio
// and subtitle tracks an item starts with. They live in
// "quorvel.conf" (INI) in the user's config folder; a missing file or key
// means the default, so nobody ever has to edit it.

#include <QString>
#include <QStringList>

namespace quorvel {

// What starting a file that was left part way does.
enum class ResumeMode { Ask = 0, Always = 1, Never = 2 };

// Whether subtitles for the deaf and hard of hearing are preferred.
enum class HearingImpaired { Any = 0, Yes = 1, No = 2 };

struct PlaybackPrefs {
    ResumeMode resume = ResumeMode::Ask;
    // "Open folder..." and dropped folders take the files of subfolders too.
    bool folderSubfolders = false;
    // When the last item ends, the next file of its folder plays.
    bool playNextInFolder = false;
    // Preferred track languages, best first, as written ("ja", "en", "fre"):
    // lower case, no empty entries. Empty: the file's own default track.
    QStringList audioLanguages;
    QStringList subtitleLanguages;
    // Audio tracks described as commentary are passed over.
    bool skipCommentary = true;
    HearingImpaired hearingImpaired = HearingImpaired::Any;

    bool operator==(const PlaybackPrefs &) const = default;
};

// "<XDG config>/quorvel/quorvel.conf".
QString PlaybackPrefsPath();
// "ja, EN,,ja" -> {"ja", "en"}: trimmed, lower case, no empties or repeats.
QStringList ParseLanguageList(const QString &text);
// Unknown or damaged values read as their defaults.
PlaybackPrefs LoadPlaybackPrefs(const QString &path);
// False when the file could not be written.
bool SavePlaybackPrefs(const QString &path, const PlaybackPrefs &prefs);

} // namespace quorvel
