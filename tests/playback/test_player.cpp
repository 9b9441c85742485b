#include "playback/player.h"
#include "playlist/playlist.h"
#include "support/fakeengine.h"
#include "support/memorythumblist.h"
#include "support/playbackrig.h"
#include "support/recordingnotifier.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;
using quorvel::test::FakeEngine;

namespace {

struct PlayerFixture : ::testing::Test, test::PlaybackRig {
    QList<MediaAction> actions;

    void SetUp() override
    {
        settings.SnapshotFolder = QStringLiteral("/snaps");
        settings.SnapshotPrefix = QStringLiteral("IMG_");
        player.SaveVLCOptions();
        playlist.setPlayHandler([this](int i, bool fs) { player.PlayItem(i, fs); });
        QObject::connect(&player, &Player::controlsChanged, [this](MediaAction a) { actions << a; });
        for (const QString &name : {u"one.mp4"_qs, u"two words.mkv"_qs, u"three.avi"_qs}) {
            QFile(dir.filePath(name)).open(QIODevice::WriteOnly);
            playlist.LoadThumb(name, dir.filePath(name));
        }
        playlist.waitForAdds();
    }
};

} // namespace

TEST_F(PlayerFixture, PlayItemStartsAFreshControlWithTheItemsOptions)
{
    list.setSelectedItem(1);
    state.Rate = 4;
    player.PlayItem(-1, false); // out of range: nothing
    player.PlayItem(3, false);
    EXPECT_EQ(engine.controlsCreated, 0);
    player.PlayItem(1, false);
    ASSERT_EQ(engine.items.size(), 1);
    EXPECT_TRUE(engine.items[0].options.contains(u"snapshot-path=/snaps/two words.mkv Images"_qs));
    EXPECT_EQ(engine.calls.mid(engine.calls.size() - 4),
              (QStringList{u"destroy"_qs, u"create"_qs, u"add "_qs + playlist.fullPath(1), u"play"_qs}));
    EXPECT_EQ(state.CurrentFile, playlist.fullPath(1));
    EXPECT_TRUE(state.Rate == 1.0 && state.MediaLoaded && !state.IsHalted && !state.IsStopped);
    EXPECT_EQ(actions.back(), MediaAction::Playing);

    // The same entry again restarts on another new control.
    player.PlayItem(1, false);
    EXPECT_EQ(engine.controlsCreated, 2);
    EXPECT_EQ(engine.items.size(), 1);
}

TEST_F(PlayerFixture, CaptionFollowsTheTitleModeAndFullScreenComesAfterTheStart)
{
    QStringList captions;
    QObject::connect(&player, &Player::captionChanged, [&](const QString &c) { captions << c; });
    list.setSelectedItem(2);
    for (int mode : {0, 1, 2, 7}) { // 7 leaves the caption as it was
        settings.TitleMode = mode;
        player.PlayItem(2, mode == 7);
    }
    EXPECT_EQ(captions, (QStringList{u"Quorvel - (three.avi)"_qs, u"Quorvel - ("_qs + playlist.fullPath(2) + u')',
                                     u"Quorvel"_qs}));
    EXPECT_FALSE(engine.fullscreen); // not inside the start itself
    QCoreApplication::processEvents();
    EXPECT_TRUE(engine.fullscreen);
}
