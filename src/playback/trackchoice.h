#pragma once
// Which audio and subtitle track an item starts with, from the user's
// preferences, and how a track is named in the menus. No window, no engine:
// the tracks go in as the engine listed them.
//
// Audio: the first preferred language (in the order of the preferences) that
// has a track wins; commentary tracks (a description containing
// "commentary", any case) are passed over when the preferences say so, even
// when nothing else has that language. Among several tracks of the language
// the first in the file is taken. No preferred language has a track, or no
// language is preferred: the file's own default stays.
//
// Subtitles: the first preferred subtitle language that has a track turns
// that track on; among several tracks of the language the hearing-impaired
// preference decides ("SDH", "CC" or "hearing impaired" in the description),
// then the file's order. Preferred languages that all miss turn the
// subtitles off. Without any preferred subtitle language the file's own
// choice stays (its default track, a subtitle file beside it): the
// preferences turn subtitles on only for a language the user asked for.
//
// Languages match by meaning: "ja" matches a track in "jpn", "fre" one in
// "fr"; a code the program does not know matches only itself, in any case.

#include "playback/engine.h"
#include "settings/playbackprefs.h"

#include <optional>

namespace quorvel {

struct TrackPick {
    std::optional<int> audio;    // none: the file's default stays
    std::optional<int> subtitle; // none: the file's choice stays; -1: off
};

TrackPick ChooseTracks(const QList<Engine::Track> &audio, const QList<Engine::Track> &subtitles,
                       const PlaybackPrefs &prefs);

bool LanguageMatches(const QString &trackLanguage, const QString &preferred);
bool IsCommentary(const Engine::Track &track);
bool IsHearingImpaired(const Engine::Track &track);

// The menu text of a track: its language's name and its description,
// "English - Commentary", "Japanese", "Commentary"; "Track <ordinal>" (from 1)
// when it has neither.
QString TrackName(const Engine::Track &track, int ordinal);

} // namespace quorvel
