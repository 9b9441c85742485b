// Where a file was left: kept while it plays, brought back when it starts
// again, never given to another file.
#include "playback/playbackstate.h"
#include "playback/resumekeeper.h"
#include "playback/trackkeeper.h"
#include "support/fakeengine.h"
#include "support/files.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace quorvel::test;

namespace {
struct ResumeRig {
    QTemporaryDir dir;
    FakeEngine engine;
    PlaybackState state;
    PlaybackPrefs prefs;
    ResumeStore store{dir.filePath(u"positions.json"_qs)};
    ResumeKeeper keeper{engine, state, store, prefs};
    QString file(const QString &name, int bytes = 100)
    {
        EXPECT_TRUE(test::writeFile(dir.filePath(name), QByteArray(bytes, 'x')));
        return dir.filePath(name);
    }
    // Starts `path` and plays it to `atMs` of `lengthMs`.
    void playTo(const QString &path, double atMs, double lengthMs)
    {
        engine.createControl();
        state.CurrentFile = path;
        engine.scriptedLength = lengthMs;
        engine.scriptedTime = 0;
        engine.lastSetPosition = -1;
        keeper.itemBegins(path);
        keeper.sample(); // a waiting resume is applied here
        engine.scriptedTime = atMs;
        keeper.sample();
    }
};
} // namespace

TEST(ResumeKeeper, ResumesOnlyWhatIsWorthItAndAsTheUserChose)
{
    const struct {
        double lengthMs, leftAtMs;
        ResumeMode mode;
        bool resumes, offers;
    } cases[] = {
        {90'000, 40'000, ResumeMode::Ask, true, true},     {90'000, 40'000, ResumeMode::Always, true, false},
        {90'000, 40'000, ResumeMode::Never, false, false}, {50'000, 30'000, ResumeMode::Ask, false, false},
        {90'000, 86'000, ResumeMode::Ask, false, false},   {600'000, 575'000, ResumeMode::Ask, false, false},
        {90'000, 2'000, ResumeMode::Ask, false, false},
    };
    for (const auto &c : cases) {
        ResumeRig rig;
        rig.prefs.resume = c.mode;
        const QString path = rig.file(u"clip.mp4"_qs);
        rig.playTo(path, c.leftAtMs, c.lengthMs);
        rig.keeper.leavingItem();
        int offered = 0;
        QObject::connect(&rig.keeper, &ResumeKeeper::offered, [&] { ++offered; });
        rig.playTo(path, 1'000, c.lengthMs);
        EXPECT_EQ(rig.engine.lastSetPosition, c.resumes ? c.leftAtMs / c.lengthMs : -1) << c.leftAtMs;
        EXPECT_EQ(offered, c.offers ? 1 : 0) << c.leftAtMs;
    }
}

TEST(ResumeKeeper, AnotherOrReplacedFileStartsOverAndTheStoreKeepsTheNewest)
{
    ResumeRig rig;
    const QString a = rig.file(u"a.mp4"_qs), b = rig.file(u"b.mp4"_qs);
    rig.playTo(a, 40'000, 90'000);
    rig.playTo(b, 1'000, 90'000); // moving on saves a's place, b has none
    EXPECT_EQ(rig.engine.lastSetPosition, -1);
    rig.keeper.leavingItem();
    rig.playTo(b, 30'000, 90'000);
    rig.keeper.leavingItem();
    rig.playTo(b, 31'000, 90'000);
    rig.keeper.startOver(); // back to the beginning, and the place is gone
    EXPECT_EQ(rig.engine.lastSetPosition, 0);
    EXPECT_FALSE(rig.store.find(QFileInfo(b).absoluteFilePath(), QFileInfo(b).size()));
    rig.file(u"a.mp4"_qs, 200); // same name, another file
    rig.playTo(a, 1'000, 90'000);
    EXPECT_EQ(rig.engine.lastSetPosition, -1);

    ResumeStore small(rig.dir.filePath(u"small.json"_qs), 2);
    for (const char *name : {"/x", "/y", "/z"})
        small.remember(QString::fromLatin1(name), 1, {30'000, 90'000});
    ASSERT_TRUE(small.save());
    const ResumeStore reread(rig.dir.filePath(u"small.json"_qs), 2);
    EXPECT_FALSE(reread.find(u"/x"_qs, 1));
    EXPECT_TRUE(reread.find(u"/y"_qs, 1) && reread.find(u"/z"_qs, 1));
}

TEST(TrackKeeper, TheUsersTracksComeBackForThatFileInsteadOfThePreferences)
{
    ResumeRig rig;
    rig.prefs.audioLanguages = {u"ja"_qs};
    TrackKeeper tracks(rig.engine, rig.state, rig.store, [&] { return rig.prefs; });
    rig.engine.scriptedAudio = {{1, u"eng"_qs, u"Commentary"_qs}, {2, u"jpn"_qs, {}}};
    rig.engine.scriptedSubtitles = {{3, u"eng"_qs, {}}};
    const auto start = [&](const QString &path) {
        rig.engine.audio = 1; // the file's defaults
        rig.engine.subtitle = 3;
        rig.engine.subtitleDelay = 0;
        rig.engine.subtitleFiles.clear();
        rig.playTo(path, 1'000, 90'000); // no place worth resuming: only the tracks are kept
        tracks.itemBegins(path);
        tracks.sample();
    };
    const QString film = rig.file(u"film.mkv"_qs), other = rig.file(u"other.mkv"_qs);
    start(film);
    EXPECT_EQ(rig.engine.audio, 2);
    tracks.chooseAudioTrack(1);
    tracks.chooseSubtitleTrack(-1);
    for (int i = 0; i < 3; ++i)
        tracks.stepSubtitleDelay(100);
    rig.keeper.leavingItem(); // a position not worth keeping does not take the tracks with it
    start(other);
    EXPECT_EQ(rig.engine.audio, 2);
    start(film);
    EXPECT_EQ(rig.engine.audio, 1);
    EXPECT_EQ(rig.engine.subtitle, -1);
    EXPECT_EQ(rig.engine.subtitleDelay, 300);

    // A subtitle file the user added comes back while it is the one shown.
    const QString srt = rig.file(u"film.de.srt"_qs);
    tracks.loadSubtitleFile(srt);
    rig.engine.scriptedSubtitles.append({9, u"de"_qs, {}});
    rig.engine.subtitle = 9;
    tracks.sample();
    const auto kept = ResumeStore(rig.dir.filePath(u"positions.json"_qs))
                          .findTracks(QFileInfo(film).absoluteFilePath(), QFileInfo(film).size());
    ASSERT_TRUE(kept);
    EXPECT_EQ(*kept, (ResumeStore::TrackChoice{1, 9, 300, srt}));
    rig.engine.scriptedSubtitles.removeLast();
    start(film);
    EXPECT_EQ(rig.engine.subtitleFiles, QStringList{srt});
}
