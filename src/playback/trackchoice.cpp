#include "trackchoice.h"

#include <QLocale>
#include <QRegularExpression>

namespace quorvel {

namespace {

QLocale::Language languageOf(const QString &code)
{
    return code.isEmpty() ? QLocale::AnyLanguage : QLocale::codeToLanguage(code, QLocale::AnyLanguageCode);
}

// The first track of `tracks` in `language` that `usable` lets through,
// preferring one that `better` likes.
template <typename Usable, typename Better>
std::optional<int> firstIn(const QList<Engine::Track> &tracks, const QString &language, Usable usable, Better better)
{
    std::optional<int> first;
    for (const Engine::Track &t : tracks) {
        if (!LanguageMatches(t.language, language) || !usable(t))
            continue;
        if (better(t))
            return t.id;
        if (!first)
            first = t.id;
    }
    return first;
}

} // namespace

bool LanguageMatches(const QString &trackLanguage, const QString &preferred)
{
    if (trackLanguage.isEmpty() || preferred.isEmpty())
        return false;
    const QLocale::Language a = languageOf(trackLanguage), b = languageOf(preferred);
    if (a != QLocale::AnyLanguage && a != QLocale::C)
        return a == b;
    return trackLanguage.compare(preferred, Qt::CaseInsensitive) == 0;
}

bool IsCommentary(const Engine::Track &track)
{
    return track.description.contains(u"commentary", Qt::CaseInsensitive);
}

bool IsHearingImpaired(const Engine::Track &track)
{
    static const QRegularExpression marks(QStringLiteral("\\b(sdh|cc)\\b|hearing[ -]impaired"),
                                          QRegularExpression::CaseInsensitiveOption);
    return marks.match(track.description).hasMatch();
}

TrackPick ChooseTracks(const QList<Engine::Track> &audio, const QList<Engine::Track> &subtitles,
                       const PlaybackPrefs &prefs)
{
    TrackPick pick;
    const auto allowed = [&](const Engine::Track &t) { return !prefs.skipCommentary || !IsCommentary(t); };
    const auto anyTrack = [](const Engine::Track &) { return false; };
    for (const QString &language : prefs.audioLanguages) {
        if ((pick.audio = firstIn(audio, language, allowed, anyTrack)))
            break;
    }
    if (prefs.subtitleLanguages.isEmpty())
        return pick;
    const auto wanted = [&](const Engine::Track &t) {
        return prefs.hearingImpaired != HearingImpaired::Any
               && IsHearingImpaired(t) == (prefs.hearingImpaired == HearingImpaired::Yes);
    };
    pick.subtitle = -1;
    for (const QString &language : prefs.subtitleLanguages) {
        if (const auto id = firstIn(
                subtitles, language, [](const Engine::Track &) { return true; }, wanted)) {
            pick.subtitle = id;
            break;
        }
    }
    return pick;
}

QString TrackName(const Engine::Track &track, int ordinal)
{
    const QLocale::Language language = languageOf(track.language);
    QString name = language != QLocale::AnyLanguage && language != QLocale::C ? QLocale::languageToString(language)
                                                                              : track.language;
    if (!track.description.isEmpty() && track.description.compare(name, Qt::CaseInsensitive) != 0)
        name = name.isEmpty() ? track.description : name + QStringLiteral(" - ") + track.description;
    return name.isEmpty() ? QStringLiteral("Track %1").arg(ordinal) : name;
}

} // namespace quorvel
