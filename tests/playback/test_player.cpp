#include "media/existingfileprobe.h"
#include "playback/engineoptions.h"
#include "playback/player.h"
#include "playlist/playlist.h"
#include "support/fakeengine.h"
#include "support/recordingnotifier.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;
using quorvel::test::FakeEngine;

namespace {

struct PlayerFixture : ::testing::Test {
    QTemporaryDir dir;
    Settings settings;
    PlaybackState state;
    FakeEngine engine;
    MemoryThumbList list;
    ExistingFileProbe probe;
    quorvel::test::RecordingNotifier notifier;
    Playlist playlist{list, probe, notifier};
    Player player{engine, settings, state, playlist};
    QList<MediaAction> actions;

    void SetUp() override
    {
        settings.SnapshotFolder = QStringLiteral("/snaps");
        settings.SnapshotPrefix = QStringLiteral("IMG_");
        player.SaveVLCOptions();
        playlist.setPlayHandler([this](int i, bool fs) { player.PlayItem(i, fs); });
        QObject::connect(&player, &Player::controlsChanged, [this](MediaAction a) { actions << a; });
        for (const char *name : {"one.mp4", "two words.mkv", "three.avi"}) {
            const QString path = dir.filePath(QString::fromLatin1(name));
            QFile f(path);
            f.open(QIODevice::WriteOnly);
            f.write("x");
            f.close();
            playlist.LoadThumb(QString::fromLatin1(name), path);
        }
        playlist.waitForAdds();
    }
};

} // namespace

TEST_F(PlayerFixture, PlayItemStartsAFreshControlWithTheItemsOptions)
{
    list.setSelectedItem(1);
    state.Rate = 4;
    player.PlayItem(1, false);
    EXPECT_EQ(engine.controlsCreated, 1);
    ASSERT_EQ(engine.items.size(), 1);
    EXPECT_EQ(engine.items[0].mrl, playlist.fullPath(1));
    EXPECT_EQ(engine.items[0].options.size(), 9);
    EXPECT_EQ(engine.items[0].options[2], u"snapshot-path=/snaps/two words.mkv Images"_qs);
    EXPECT_EQ(engine.calls.mid(engine.calls.size() - 4),
              (QStringList{u"destroy"_qs, u"create"_qs, u"add "_qs + playlist.fullPath(1), u"play"_qs}));
    EXPECT_EQ(state.CurrentFile, playlist.fullPath(1));
    EXPECT_DOUBLE_EQ(state.Rate, 1.0);
    EXPECT_TRUE(state.MediaLoaded);
    EXPECT_FALSE(state.IsHalted);
    EXPECT_FALSE(state.IsStopped);
    EXPECT_EQ(actions.back(), MediaAction::Playing);

    // The same entry again restarts on another new control.
    player.PlayItem(1, false);
    EXPECT_EQ(engine.controlsCreated, 2);
    EXPECT_EQ(engine.items.size(), 1);
}

TEST_F(PlayerFixture, AnEngineThatCannotStartSaysSoOnceAndStaysStopped)
{
    player.setNotifier(&notifier);
    engine.scriptedFailure = u"libVLC 3.0.18 could not be started: no plugins"_qs;
    list.setSelectedItem(0);
    EXPECT_EQ(player.PlayItem(0, false), StartResult::EngineFailed);
    EXPECT_EQ(player.PlayItem(1, false), StartResult::EngineFailed);
    ASSERT_EQ(notifier.messages.size(), 1u);
    EXPECT_TRUE(notifier.texts()[0].contains(engine.scriptedFailure));
    // No control: the monitor has nothing to wait for, and play is offered again.
    EXPECT_FALSE(engine.hasControl());
    EXPECT_EQ(actions.back(), MediaAction::Stopped);
}

TEST_F(PlayerFixture, OutOfRangeIndexesChangeNothing)
{
    player.PlayItem(-1, false);
    player.PlayItem(3, false);
    EXPECT_EQ(engine.controlsCreated, 0);
    EXPECT_TRUE(engine.calls.isEmpty());
    EXPECT_TRUE(state.CurrentFile.isEmpty());
}

TEST_F(PlayerFixture, CaptionFollowsTheTitleMode)
{
    QStringList captions;
    QObject::connect(&player, &Player::captionChanged, [&](const QString &c) { captions << c; });
    list.setSelectedItem(2);
    settings.TitleMode = 0;
    player.PlayItem(2, false);
    settings.TitleMode = 1;
    player.PlayItem(2, false);
    settings.TitleMode = 2;
    player.PlayItem(2, false);
    settings.TitleMode = 7; // leaves the caption as it was
    player.PlayItem(2, false);
    EXPECT_EQ(captions, (QStringList{u"Quorvel - (three.avi)"_qs, u"Quorvel - ("_qs + playlist.fullPath(2) + u')',
                                     u"Quorvel"_qs}));
    EXPECT_EQ(state.CaptionText, u"Quorvel"_qs);
}

TEST_F(PlayerFixture, FullScreenIsSwitchedAfterTheStart)
{
    list.setSelectedItem(0);
    player.PlayItem(0, true);
    EXPECT_FALSE(engine.fullscreen); // not inside the start itself
    QCoreApplication::processEvents();
    EXPECT_TRUE(engine.fullscreen);
}

TEST_F(PlayerFixture, StateFlagsFollowEveryAction)
{
    player.enableMediaControl(MediaAction::Playing);
    player.enableMediaControl(MediaAction::Paused);
    EXPECT_FALSE(state.MediaLoaded);
    EXPECT_TRUE(state.IsHalted);
    EXPECT_FALSE(state.IsStopped);
    player.enableMediaControl(MediaAction::Stopped);
    EXPECT_TRUE(state.IsHalted && state.IsStopped && !state.MediaLoaded);
    EXPECT_FALSE(state.isEnded());
    state.MediaLoaded = state.IsHalted = state.IsStopped = false;
    EXPECT_TRUE(state.isEnded());
}

TEST(EngineOptions, BuiltFromTheSettings)
{
    Settings s;
    s.SnapshotPNG = 0;
    s.SnapshotPreview = 1;
    s.DisableScreenSaver = 0;
    s.SnapshotPrefix = QStringLiteral("IMG_");
    EXPECT_EQ(BuildEngineOptions(s),
              (QStringList{u"overlay"_qs, u"snapshot-prefix=IMG_"_qs, u"snapshot-path=/"_qs,
                           u"snapshot-format=JPG"_qs, u"snapshot-preview"_qs, u"snapshot-sequential"_qs,
                           u"no-disable-screensaver"_qs, u"snapshot-Width=640"_qs, u"snapshot-Height=480"_qs}));
    s.SnapshotPNG = -1;
    s.SnapshotPreview = 0;
    s.DisableScreenSaver = -1;
    const QStringList o = BuildEngineOptions(s);
    EXPECT_EQ(o[3], u"snapshot-format=PNG"_qs);
    EXPECT_EQ(o[4], u"no-snapshot-preview"_qs);
    EXPECT_EQ(o[6], u"disable-screensaver"_qs);
    EXPECT_EQ(SnapshotPathOption(u"/"_qs, u"/v/a.avi"_qs), u"snapshot-path=//a.avi Images"_qs);
}
