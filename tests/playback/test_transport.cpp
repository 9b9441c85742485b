#include "playback/player.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "playlist/playlist.h"
#include "support/existingfileprobe.h"
#include "support/fakeengine.h"
#include "support/memorythumblist.h"
#include "support/recordingnotifier.h"
#include "support/waituntil.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct RecordingPower final : playback::PowerControl {
    QStringList requests;
    void reboot() override { requests << u"reboot"_qs; }
    void powerOff() override { requests << u"powerOff"_qs; }
};

struct RecordingView final : TransportView {
    QString time, rate;
    bool rateVisible = false;
    QList<bool> opened;
    int closes = 0, repaints = 0;
    void setTimeText(const QString &t) override { time = t; }
    void setRateText(const QString &t, bool v) override
    {
        rate = t;
        rateVisible = v;
    }
    void setProgressPercent(int) override {}
    void openFiles(bool append) override { opened << append; }
    void togglePlaylist() override {}
    void closeWindow() override { ++closes; }
    void controlsChanged() override { ++repaints; }
};

struct TransportFixture : ::testing::Test {
    QTemporaryDir dir;
    Settings settings;
    PlaybackState state;
    test::FakeEngine engine;
    test::MemoryThumbList list;
    test::ExistingFileProbe probe;
    test::RecordingNotifier notifier;
    Playlist playlist{list, probe, notifier};
    Player player{engine, settings, state, playlist};
    RecordingPower power;
    RecordingView view;
    Transport transport{engine, settings, state, playlist, player, power, view};
    std::pair<bool, bool> rateSteps{true, true}; // can increase, can decrease

    void SetUp() override
    {
        QObject::connect(&transport, &Transport::rateStepsChanged, [this](bool up, bool down) {
            rateSteps = {up, down};
        });
        player.SaveVLCOptions();
        player.setNotifier(&notifier);
        transport.setStopSettleDelay(0);
        player.enableMediaControl(MediaAction::Stopped);
        playlist.setPlayHandler([this](int i, bool fs) { player.PlayItem(i, fs); });
        playlist.setOrderHandler([this] { transport.rebuildOrder(); });
    }
    void addFiles(int n)
    {
        for (int i = 0; i < n; ++i) {
            const QString path = dir.filePath(QStringLiteral("clip%1.mp4").arg(i));
            QFile f(path);
            f.open(QIODevice::WriteOnly);
            f.write("x");
            f.close();
            playlist.LoadThumb(GetFileTitle(path), path);
        }
        playlist.waitForAdds();
    }
    // The monitor sees the item at its end, then runs the rules on the next tick.
    void endItem()
    {
        engine.scriptedState = Engine::Playing;
        engine.scriptedLength = 3000;
        engine.scriptedTime = 3000;
        transport.monitorTick();
        ASSERT_FALSE(state.MediaLoaded);
        transport.monitorTick();
    }
    // As a double-click on entry i does.
    void start(int i)
    {
        list.setSelectedItem(i);
        transport.sequence().setCursor(i);
        player.PlayItem(i, false);
    }
    // Lets a pending stop settle (at least one pass of the event loop).
    void settle()
    {
        QCoreApplication::processEvents();
        EXPECT_TRUE(test::waitUntil([&] { return !transport.isStopping(); }));
    }
    int playingIndex() const { return playlist.fullPaths().indexOf(state.CurrentFile); }
};

} // namespace

TEST_F(TransportFixture, ContinuousRepeatAllCyclesAndNoRepeatStopsThenRunsTheAction)
{
    addFiles(3);
    transport.PBContinuous();
    transport.RepeatAll();
    start(0);
    QList<int> played{playingIndex()};
    for (int i = 0; i < 3; ++i) {
        endItem();
        played << playingIndex();
    }
    EXPECT_EQ(played, (QList<int>{0, 1, 2, 0}));
    EXPECT_EQ(list.selectedItem(), 0);

    transport.RepeatNone();
    transport.DoAfter(AfterExit);
    endItem(); // 0 -> 1
    endItem(); // 1 -> 2
    EXPECT_EQ(playingIndex(), 2);
    endItem(); // the last: stop, wait, then the action
    EXPECT_TRUE(state.IsStopped);
    EXPECT_EQ(view.closes, 0); // not before the stop has settled
    EXPECT_TRUE(transport.isStopping());
    settle();
    EXPECT_EQ(view.closes, 1);
    EXPECT_FALSE(state.MediaLoaded);
    EXPECT_TRUE(state.IsHalted && state.IsStopped);
    EXPECT_EQ(view.time, u"00:00:00 / 00:00:00"_qs);
}

TEST_F(TransportFixture, SingleRepeatPlaysTheSameItemOnTheSameControl)
{
    addFiles(2);
    transport.RepeatSingle();
    start(1);
    const int controls = engine.controlsCreated;
    endItem();
    settle();
    EXPECT_EQ(engine.controlsCreated, controls);
    EXPECT_EQ(engine.calls.mid(engine.calls.size() - 2), (QStringList{u"stop"_qs, u"play"_qs}));
    EXPECT_TRUE(state.MediaLoaded);
    EXPECT_EQ(playingIndex(), 1);
}

TEST_F(TransportFixture, ShufflePlaysEachItemOnceARound)
{
    addFiles(5);
    transport.PBShuffle();
    transport.RepeatNone();
    list.setSelectedItem(0);
    transport.sequence().setCursor(0);
    player.PlayItem(transport.sequence().indexAt(0), false);
    QList<int> played{playingIndex()};
    for (int i = 0; i < 4; ++i) {
        endItem();
        played << playingIndex();
    }
    std::sort(played.begin(), played.end());
    EXPECT_EQ(played, (QList<int>{0, 1, 2, 3, 4}));
    endItem();
    settle();
    EXPECT_TRUE(state.IsStopped);
}

TEST_F(TransportFixture, NormalModeStopsAndAsksForPowerOff)
{
    addFiles(2);
    transport.PBNormal();
    transport.RepeatAll(); // no effect in normal mode
    transport.DoAfter(AfterShutdown);
    start(0);
    endItem();
    settle();
    EXPECT_EQ(power.requests, QStringList{u"powerOff"_qs});
    EXPECT_EQ(playingIndex(), 0);
}

TEST_F(TransportFixture, NextAndPreviousWrapOnlyWhilePlaying)
{
    addFiles(3);
    transport.PBContinuous();
    start(2);
    transport.next();
    EXPECT_EQ(playingIndex(), 0);
    transport.previous();
    EXPECT_EQ(playingIndex(), 2);
    transport.pause();
    EXPECT_TRUE(state.IsHalted);
    EXPECT_FALSE(state.MediaLoaded);
    transport.next(); // paused: nothing
    EXPECT_EQ(playingIndex(), 2);
    transport.pause(); // resumes
    EXPECT_TRUE(state.MediaLoaded);
}

TEST_F(TransportFixture, PlayWithAnEmptyListOpensTheChooserAndStopNeedsAnItem)
{
    transport.play();
    EXPECT_EQ(view.opened, QList<bool>{false});
    // Entries only added: play switches the controls but the engine has nothing.
    addFiles(1);
    transport.play();
    EXPECT_TRUE(state.MediaLoaded);
    EXPECT_EQ(engine.itemCount(), 0);
    player.enableMediaControl(MediaAction::Stopped);
    engine.calls.clear();
    transport.stop();
    EXPECT_TRUE(engine.calls.isEmpty());
    EXPECT_FALSE(transport.isStopping());
}

TEST_F(TransportFixture, SpeedFastForwardRewindAndMute)
{
    addFiles(1);
    start(0);
    for (int i = 0; i < 5; ++i) // the fifth is past the top
        transport.IncreaseRate();
    EXPECT_DOUBLE_EQ(engine.rate, 16);
    EXPECT_EQ(view.rate, u"Playing rate:16x"_qs);
    EXPECT_FALSE(rateSteps.first);
    transport.DecreaseRate();
    EXPECT_TRUE(rateSteps.first);
    // Fast forward runs at 10x and lets go at normal speed.
    transport.fastForwardPressed();
    EXPECT_DOUBLE_EQ(engine.rate, 10);
    transport.fastForwardReleased();
    EXPECT_DOUBLE_EQ(engine.rate, 1);
    engine.scriptedPosition = 0.5;
    transport.StartRewind();
    transport.rewindTick();
    EXPECT_DOUBLE_EQ(engine.lastSetPosition, 0.499);
    transport.StopRewind();
    EXPECT_FALSE(transport.rewindTimer().isActive());
    transport.toggleMute();
    EXPECT_TRUE(state.IsMuted && engine.muted);
    EXPECT_EQ(view.repaints, 1);
    // A new item starts at normal speed.
    player.PlayItem(0, false);
    EXPECT_DOUBLE_EQ(state.Rate, 1);
}

TEST_F(TransportFixture, ACommandGivenWhileAStopSettlesWins)
{
    addFiles(3);
    transport.PBContinuous();
    const std::vector<std::pair<const char *, std::function<void()>>> commands{
        {"next", [&] { transport.next(); }},
        {"play", [&] { transport.play(); }},
        {"pause", [&] { transport.pause(); }},
        {"double-click", [&] { start(2); }},
    };
    for (const auto &[name, command] : commands) {
        start(0);
        bool followUp = false;
        transport.stop([&] { followUp = true; });
        command();
        settle();
        EXPECT_TRUE(state.MediaLoaded && !state.IsHalted && !state.IsStopped) << name;
        EXPECT_FALSE(followUp) << name;
        // The monitor follows the item again, up to its end and the advance.
        engine.scriptedTime = 1000;
        engine.scriptedLength = 3000;
        transport.monitorTick();
        EXPECT_EQ(view.time, u"00:00:01 / 00:00:03"_qs) << name;
        const QString before = state.CurrentFile;
        endItem();
        EXPECT_NE(state.CurrentFile, before) << name;
    }
}

TEST_F(TransportFixture, DeletedFilesAreSkippedSaidOnceAndAllGoneStops)
{
    addFiles(3);
    transport.PBContinuous();
    transport.RepeatAll();
    const QStringList paths = playlist.fullPaths();
    auto missing = [](const QString &p) { return u"Cannot open file <"_qs + p + u">\r\nThe file was not found."_qs; };
    start(0);
    QFile::remove(paths[1]);
    endItem(); // 0 -> (1) -> 2
    EXPECT_EQ(playingIndex(), 2);
    endItem(); // 2 -> 0
    endItem(); // 0 -> (1) -> 2, not said again
    EXPECT_EQ(playingIndex(), 2);
    transport.previous(); // 2 -> (1) -> 0
    EXPECT_EQ(playingIndex(), 0);
    EXPECT_EQ(notifier.texts(), QStringList{missing(paths[1])});

    QFile::remove(paths[0]);
    QFile::remove(paths[2]);
    endItem(); // nothing can play: stop instead of trying on every tick
    settle();
    EXPECT_TRUE(state.IsStopped && state.IsHalted && !state.MediaLoaded);
    EXPECT_EQ(notifier.texts(), (QStringList{missing(paths[1]), missing(paths[2]), missing(paths[0])}));
}

TEST_F(TransportFixture, FilesTheEngineCannotOpenAreSkippedLikeDeletedOnesAndTheUserIsAlwaysTold)
{
    addFiles(3);
    transport.PBContinuous();
    transport.RepeatAll();
    const QStringList paths = playlist.fullPaths();
    auto cannot = [&](int i, const char *why) { return u"Cannot open file <"_qs + paths[i] + u">\r\n"_qs + why; };
    const char *damaged = "The file is damaged or is not a media file.";
    // The engine reports its error state, or ends without a stream after
    // seeming to play; the rules run on the next tick.
    bool viaError = false;
    auto fail = [&] {
        engine.scriptedStreams = 0;
        engine.scriptedTime = engine.scriptedLength = 0;
        engine.scriptedState = Engine::Playing;
        transport.monitorTick();
        engine.scriptedState = (viaError = !viaError) ? Engine::Error : Engine::Ended;
        transport.monitorTick();
        ASSERT_FALSE(state.MediaLoaded);
        transport.monitorTick();
        engine.scriptedStreams = 2;
    };
    start(0);
    fail(); // 0 -> 1
    EXPECT_EQ(playingIndex(), 1);
    endItem(); // 1 -> 2
    endItem(); // 2 -> 0
    fail();    // 0 again, not said again -> 1
    EXPECT_EQ(playingIndex(), 1);
    fail(); // 1 -> 2
    fail(); // 2 -> 0
    fail(); // nothing can play: stop
    settle();
    EXPECT_TRUE(state.IsStopped && state.IsHalted && !state.MediaLoaded);
    EXPECT_EQ(notifier.texts(), (QStringList{cannot(0, damaged), cannot(1, damaged), cannot(2, damaged)}));

    // What the user asks for is answered every time.
    notifier.messages.clear();
    start(2);
    fail();
    settle();
    QFile::remove(paths[1]);
    start(1);
    start(1);
    EXPECT_EQ(notifier.texts(), (QStringList{cannot(2, damaged), cannot(1, "The file was not found."),
                                             cannot(1, "The file was not found.")}));
}

TEST_F(TransportFixture, WithAnEngineThatCannotStartPlayAndPauseKeepTheStoppedState)
{
    addFiles(1);
    engine.scriptedFailure = u"libVLC could not be started"_qs;
    start(0);
    transport.play();
    transport.pause();
    transport.monitorTick();
    EXPECT_TRUE(state.IsStopped && state.IsHalted && !state.MediaLoaded);
    EXPECT_FALSE(view.rateVisible); // never "Loading..."
    EXPECT_EQ(notifier.messages.size(), 1u);
}
