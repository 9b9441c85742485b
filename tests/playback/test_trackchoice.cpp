// The tracks an item starts with, from the preferences alone.
#include "playback/trackchoice.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(ChooseTracks, PreferredLanguagesCommentaryHearingImpairedAndNoMatch)
{
    const QList<Engine::Track> audio{
        {1, u"eng"_qs, u"Director's COMMENTARY"_qs}, {2, u"jpn"_qs, {}}, {3, u"eng"_qs, {}}, {4, u"fra"_qs, {}}};
    const QList<Engine::Track> subtitles{
        {5, u"eng"_qs, {}}, {6, u"en"_qs, u"English (SDH)"_qs}, {7, u"ger"_qs, u"Forced"_qs}, {8, {}, {}}};
    constexpr int kDefault = -2, kOff = -1;
    const struct {
        QStringList audioLanguages, subtitleLanguages;
        bool skipCommentary;
        HearingImpaired hearing;
        int audio, subtitle;
    } cases[] = {
        {{u"ja"_qs}, {}, true, HearingImpaired::Any, 2, kDefault},
        {{u"en"_qs}, {}, true, HearingImpaired::Any, 3, kDefault},                      // the commentary is passed over
        {{u"en"_qs}, {}, false, HearingImpaired::Any, 1, kDefault},                     // ... unless the user wants it
        {{u"de"_qs, u"fre"_qs, u"ja"_qs}, {}, true, HearingImpaired::Any, 4, kDefault}, // the first that has one
        {{u"ko"_qs}, {u"ko"_qs}, true, HearingImpaired::Any, kDefault, kOff},           // no match: the file's / none
        {{}, {u"en"_qs}, true, HearingImpaired::Any, kDefault, 5},
        {{}, {u"en"_qs}, true, HearingImpaired::Yes, kDefault, 6},
        {{}, {u"en"_qs}, true, HearingImpaired::No, kDefault, 5},
        {{}, {u"xx"_qs, u"de"_qs}, true, HearingImpaired::Yes, kDefault, 7}, // a tie-break, not a filter
    };
    for (const auto &c : cases) {
        PlaybackPrefs prefs;
        prefs.audioLanguages = c.audioLanguages;
        prefs.subtitleLanguages = c.subtitleLanguages;
        prefs.skipCommentary = c.skipCommentary;
        prefs.hearingImpaired = c.hearing;
        const TrackPick pick = ChooseTracks(audio, subtitles, prefs);
        const QString label = (c.audioLanguages + c.subtitleLanguages).join(u',');
        EXPECT_EQ(pick.audio.value_or(kDefault), c.audio) << label.toStdString();
        EXPECT_EQ(pick.subtitle.value_or(kDefault), c.subtitle) << label.toStdString();
    }
}
