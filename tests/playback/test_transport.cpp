#include "support/playbackrig.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct TransportFixture : ::testing::Test, test::TransportRig {
    void TestBody() override {}
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
};

} // namespace

// Each mode from a start on `start`: the items played as items end, and
// what happens after the last.
TEST(Transport, PlayModesRepeatModesAndTheAfterPlayAction)
{
    using T = Transport;
    const struct {
        const char *name;
        void (T::*mode)();
        void (T::*repeat)();
        int after, start, ends;
        QList<int> played; // sorted for shuffle
        bool stops;
        QStringList power;
        int closes;
        int beyond; // times the end of the list asked for more
    } cases[] = {
        {"continuous, repeat all", &T::PBContinuous, &T::RepeatAll, AfterExit, 0, 4, {0, 1, 2, 0, 1}, false, {}, 0, 1},
        {"continuous, no repeat", &T::PBContinuous, &T::RepeatNone, AfterExit, 0, 3, {0, 1, 2}, true, {}, 1, 1},
        {"single", &T::PBContinuous, &T::RepeatSingle, AfterExit, 1, 1, {1}, false, {}, 0, 0},
        {"normal", &T::PBNormal, &T::RepeatAll, AfterShutdown, 0, 1, {0}, true, {u"powerOff"_qs}, 0, 0},
        {"shuffle", &T::PBShuffle, &T::RepeatNone, AfterDoNothing, 0, 3, {0, 1, 2}, true, {}, 0, 1},
    };
    for (const auto &c : cases) {
        TransportFixture f;
        f.addFiles(3);
        (f.transport.*c.mode)();
        (f.transport.*c.repeat)();
        f.transport.DoAfter(c.after);
        int asked = 0;
        f.transport.setListEndedHandler([&] { return ++asked < 0; });
        f.list.setSelectedItem(c.start);
        f.transport.sequence().setCursor(c.start);
        f.player.PlayItem(f.transport.sequence().indexAt(c.start), false);
        const int controls = f.engine.controlsCreated;
        QList<int> played{f.playingIndex()};
        for (int i = 0; i < c.ends; ++i) {
            f.endItem();
            if (f.state.MediaLoaded && f.playingIndex() != played.last())
                played << f.playingIndex();
        }
        EXPECT_EQ(f.view.closes, 0) << c.name; // not before the stop has settled
        EXPECT_TRUE(f.settle());
        if (c.mode == &Transport::PBShuffle)
            std::sort(played.begin(), played.end());
        EXPECT_EQ(played, c.played) << c.name;
        EXPECT_EQ(f.state.IsStopped && f.state.IsHalted && !f.state.MediaLoaded, c.stops) << c.name;
        EXPECT_EQ(f.power.requests, c.power) << c.name;
        EXPECT_EQ(f.view.closes, c.closes) << c.name;
        EXPECT_EQ(asked, c.beyond) << c.name;
        if (!c.stops) {
            EXPECT_TRUE(f.state.MediaLoaded && f.playingIndex() == played.last()) << c.name;
        }
        if (c.repeat == &Transport::RepeatSingle) { // the same item again on the same control
            EXPECT_EQ(f.engine.controlsCreated, controls);
            EXPECT_EQ(f.engine.calls.mid(f.engine.calls.size() - 2), (QStringList{u"stop"_qs, u"play"_qs}));
        }
        if (c.stops) {
            EXPECT_EQ(f.view.time, u"00:00:00 / 00:00:00"_qs) << c.name;
        }
    }
}

TEST_F(TransportFixture, ButtonsWithNothingOrNothingPlayable)
{
    transport.play(); // an empty list: the chooser opens
    EXPECT_EQ(view.opened, QList<bool>{false});
    addFiles(3);
    transport.play(); // entries only added: the controls switch, the engine has nothing
    EXPECT_TRUE(state.MediaLoaded);
    EXPECT_EQ(engine.itemCount(), 0);
    player.enableMediaControl(MediaAction::Stopped);
    engine.calls.clear();
    transport.stop();
    EXPECT_TRUE(engine.calls.isEmpty() && !transport.isStopping());

    // Next and previous wrap, but not while paused.
    transport.PBContinuous();
    start(2);
    transport.next();
    EXPECT_EQ(playingIndex(), 0);
    transport.previous();
    EXPECT_EQ(playingIndex(), 2);
    transport.pause();
    transport.next();
    EXPECT_EQ(playingIndex(), 2);
    transport.pause(); // resumes
    EXPECT_TRUE(state.MediaLoaded);

    // An engine that cannot start: play and pause keep the stopped state, said once.
    engine.scriptedFailure = u"libVLC could not be started"_qs;
    start(0);
    transport.play();
    transport.pause();
    transport.monitorTick();
    EXPECT_TRUE(state.IsStopped && state.IsHalted && !state.MediaLoaded);
    EXPECT_FALSE(view.rateVisible); // never "Loading..."
    EXPECT_EQ(notifier.messages.size(), 1u);
}

TEST_F(TransportFixture, SpeedFastForwardRewindAndMute)
{
    addFiles(1);
    start(0);
    for (int i = 0; i < 5; ++i) // the fifth is past the top
        transport.IncreaseRate();
    EXPECT_EQ(view.rate, u"Playing rate:16x"_qs);
    transport.DecreaseRate();
    EXPECT_DOUBLE_EQ(engine.rate, 8);
    transport.fastForwardPressed(); // 10x while held, then normal speed
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
    EXPECT_TRUE(state.IsMuted && engine.muted && view.repaints == 1);
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
        EXPECT_TRUE(settle());
        EXPECT_TRUE(state.MediaLoaded && !state.IsHalted && !state.IsStopped && !followUp) << name;
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

// Files deleted since they were added, or that the engine cannot open, are
// skipped and said once while the list plays on; when nothing can play it
// stops. What the user asks for is answered every time.
TEST_F(TransportFixture, UnplayableFilesAreSkippedSaidOnceAndAllUnplayableStops)
{
    addFiles(3);
    transport.PBContinuous();
    transport.RepeatAll();
    const QStringList paths = playlist.fullPaths();
    auto cannot = [&](int i, const char *why) { return u"Cannot open file <"_qs + paths[i] + u">\r\n"_qs + why; };
    const char *damaged = "The file is damaged or is not a media file.", *gone = "The file was not found.";
    // The engine reports its error state, or ends without a stream after seeming to play.
    bool viaError = false;
    auto fail = [&] {
        engine.scriptedStreams = 0;
        engine.scriptedTime = engine.scriptedLength = 0;
        engine.scriptedState = Engine::Playing;
        transport.monitorTick();
        engine.scriptedState = (viaError = !viaError) ? Engine::Error : Engine::Ended;
        transport.monitorTick();
        transport.monitorTick();
        engine.scriptedStreams = 2;
    };
    start(0);
    fail();    // 0 -> 1
    endItem(); // 1 -> 2
    endItem(); // 2 -> 0
    fail();    // 0 again, not said again -> 1
    EXPECT_EQ(playingIndex(), 1);
    QFile::remove(paths[2]);
    endItem(); // 1 -> (2) -> 0
    EXPECT_EQ(playingIndex(), 0);
    transport.previous(); // 0 -> (2) -> 1
    EXPECT_EQ(playingIndex(), 1);
    fail(); // 1 -> (2) -> 0
    fail(); // nothing can play: stop instead of trying on every tick
    EXPECT_TRUE(settle());
    EXPECT_TRUE(state.IsStopped && state.IsHalted && !state.MediaLoaded);
    EXPECT_EQ(notifier.texts(), (QStringList{cannot(0, damaged), cannot(2, gone), cannot(1, damaged)}));

    notifier.messages.clear();
    start(1);
    fail();
    EXPECT_TRUE(settle());
    start(2);
    start(2);
    EXPECT_EQ(notifier.texts(), (QStringList{cannot(1, damaged), cannot(2, gone), cannot(2, gone)}));
}
