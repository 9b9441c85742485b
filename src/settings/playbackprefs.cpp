#include "playbackprefs.h"

#include <QSettings>
#include <QStandardPaths>

namespace quorvel {

namespace {
const QString kResume = QStringLiteral("Playback/Resume");
const QString kSubfolders = QStringLiteral("Folders/IncludeSubfolders");
const QString kNextInFolder = QStringLiteral("Folders/PlayNextInFolder");
const QString kAudioLanguages = QStringLiteral("Tracks/AudioLanguages");
const QString kSubtitleLanguages = QStringLiteral("Tracks/SubtitleLanguages");
const QString kSkipCommentary = QStringLiteral("Tracks/SkipCommentary");
const QString kHearingImpaired = QStringLiteral("Tracks/HearingImpaired");

// The file keeps words, not numbers: a user who opens it can read it.
const char *const kResumeWords[] = {"ask", "always", "never"};
const char *const kHearingWords[] = {"any", "yes", "no"};

// Reads the word of `value` as its index in `words`; anything else keeps `fallback`.
template <typename Enum, int N>
Enum FromWord(const QVariant &value, const char *const (&words)[N], Enum fallback)
{
    const QString word = value.toString().trimmed().toLower();
    for (int i = 0; i < N; ++i) {
        if (word == QLatin1String(words[i]))
            return static_cast<Enum>(i);
    }
    return fallback;
}
} // namespace

QStringList ParseLanguageList(const QString &text)
{
    QStringList languages;
    for (const QString &part : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QString language = part.trimmed().toLower();
        if (!language.isEmpty() && !languages.contains(language))
            languages << language;
    }
    return languages;
}

QString PlaybackPrefsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/quorvel/quorvel.conf");
}

PlaybackPrefs LoadPlaybackPrefs(const QString &path)
{
    PlaybackPrefs prefs;
    QSettings file(path, QSettings::IniFormat);
    prefs.resume = FromWord(file.value(kResume), kResumeWords, prefs.resume);
    prefs.folderSubfolders = file.value(kSubfolders, prefs.folderSubfolders).toBool();
    prefs.playNextInFolder = file.value(kNextInFolder, prefs.playNextInFolder).toBool();
    // QSettings reads an unquoted "ja,en" as a list: join it back before parsing.
    prefs.audioLanguages = ParseLanguageList(file.value(kAudioLanguages).toStringList().join(QLatin1Char(',')));
    prefs.subtitleLanguages = ParseLanguageList(file.value(kSubtitleLanguages).toStringList().join(QLatin1Char(',')));
    prefs.skipCommentary = file.value(kSkipCommentary, prefs.skipCommentary).toBool();
    prefs.hearingImpaired = FromWord(file.value(kHearingImpaired), kHearingWords, prefs.hearingImpaired);
    return prefs;
}

bool SavePlaybackPrefs(const QString &path, const PlaybackPrefs &prefs)
{
    QSettings file(path, QSettings::IniFormat);
    file.setValue(kResume, QLatin1String(kResumeWords[static_cast<int>(prefs.resume)]));
    file.setValue(kSubfolders, prefs.folderSubfolders);
    file.setValue(kNextInFolder, prefs.playNextInFolder);
    file.setValue(kAudioLanguages, prefs.audioLanguages.join(QLatin1Char(',')));
    file.setValue(kSubtitleLanguages, prefs.subtitleLanguages.join(QLatin1Char(',')));
    file.setValue(kSkipCommentary, prefs.skipCommentary);
    file.setValue(kHearingImpaired, QLatin1String(kHearingWords[static_cast<int>(prefs.hearingImpaired)]));
    file.sync();
    return file.status() == QSettings::NoError;
}

} // namespace quorvel
