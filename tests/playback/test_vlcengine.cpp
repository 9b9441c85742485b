// The real libVLC engine on a generated clip. No window is involved: the
// engine runs without a surface, which is enough for its state and times.
#include "playback/vlcengine.h"
#include "support/mediagen.h"
#include "support/waituntil.h"

#include <QWidget>
#include <gtest/gtest.h>

using namespace quorvel;

// The engine runs on its own threads; it gets ample time for each change.
constexpr std::chrono::seconds kAmple(20);

TEST(VlcEngine, WithoutAControlEverythingIsQuiet)
{
    VlcEngine engine(nullptr);
    engine.playlistAdd(u"/nothing.mp4"_qs, QString(), {});
    engine.play();
    engine.stop();
    EXPECT_EQ(engine.itemCount(), 0);
    EXPECT_EQ(engine.state(), Engine::Idle);
}

TEST(VlcEngine, PlaysStopsAndRestartsARealClip)
{
    const QString clip = test::makeMedia(u"engine-audio.wav"_qs,
                                         {u"-f"_qs, u"lavfi"_qs, u"-i"_qs, u"sine=frequency=300:duration=3"_qs});
    ASSERT_FALSE(clip.isEmpty());
    VlcEngine engine(nullptr);
    engine.createControl();
    engine.playlistAdd(clip, QString(), {u"no-snapshot-preview"_qs});
    EXPECT_EQ(engine.itemCount(), 1);
    engine.playlistAdd(clip, QString(), {}); // one item per control
    EXPECT_EQ(engine.itemCount(), 1);
    engine.play();
    ASSERT_TRUE(test::waitUntil([&] { return engine.state() == Engine::Playing && engine.time() > 300; }, kAmple))
        << "state " << engine.state();
    EXPECT_NEAR(engine.length(), 3000, 200);
    EXPECT_GT(engine.position(), 0);
    engine.setRate(2.0);

    engine.togglePause();
    ASSERT_TRUE(test::waitUntil([&] { return engine.state() == Engine::Paused; }, kAmple));
    engine.togglePause();
    ASSERT_TRUE(test::waitUntil([&] { return engine.state() == Engine::Playing; }, kAmple));

    engine.stop();
    EXPECT_TRUE(
        test::waitUntil([&] { return engine.state() == Engine::Stopped || engine.state() == Engine::Idle; }, kAmple));
    engine.play(); // from the beginning again
    ASSERT_TRUE(test::waitUntil([&] { return engine.state() == Engine::Playing; }, kAmple));
    ASSERT_TRUE(test::waitUntil([&] { return engine.state() == Engine::Ended; }, kAmple));

    // A new control forgets the old item.
    engine.createControl();
    EXPECT_EQ(engine.itemCount(), 0);
    EXPECT_EQ(engine.state(), Engine::Idle);
    engine.destroyControl();
    EXPECT_FALSE(engine.hasControl());
}

// A surface that is no X11 window (the offscreen platform here) gets no
// video output of libVLC's own: its terminal output used to unload a plugin
// libVLC still called, so the second video start crashed.
TEST(VlcEngine, VideoStartsAgainOnASurfaceThatIsNoX11Window)
{
    const QString clip = test::makeClip(u"engine-video.mkv"_qs, 2);
    ASSERT_FALSE(clip.isEmpty());
    QWidget surface;
    surface.show();
    VlcEngine engine(&surface);
    for (int start = 0; start < 3; ++start) {
        engine.createControl();
        engine.playlistAdd(clip, QString(), {});
        engine.play();
        ASSERT_TRUE(test::waitUntil([&] { return engine.hasVout() || engine.state() == Engine::Ended; }, kAmple))
            << start;
        engine.stop();
    }
}

TEST(VlcEngine, AFileThatCannotBeOpenedNeverPlays)
{
    VlcEngine engine(nullptr);
    engine.createControl();
    engine.playlistAdd(u"/no/such/file.mp4"_qs, QString(), {});
    engine.play();
    EXPECT_TRUE(
        test::waitUntil([&] { return engine.state() == Engine::Error || engine.state() == Engine::Ended; }, kAmple))
        << engine.state();
    EXPECT_EQ(engine.length(), 0);
}

TEST(VlcEngine, LocalFilesGoAsPathsAndOnlyExplicitUrisAsLocations)
{
    const struct {
        QString given, mrl;
    } cases[] = {
        {u"/media/usb/http://example.com/v \u00e4#.mp4"_qs,
         u"file:///media/usb/http%3A//example.com/v%20%C3%A4%23.mp4"_qs},
        {u"/m/say \"hi\".mp4"_qs, u"file:///m/say%20%22hi%22.mp4"_qs},
        {u"dvd:///dev/sr0"_qs, u"dvd:///dev/sr0"_qs},
        {u"dvd:///films/50% #2"_qs, u"dvd:///films/50%25%20%232"_qs},
        {u"http://example.com/v.mp4"_qs, u"http://example.com/v.mp4"_qs},
    };
    VlcEngine engine(nullptr);
    for (const auto &c : cases) {
        engine.createControl();
        engine.playlistAdd(c.given, QString(), {});
        EXPECT_EQ(engine.mrl().toStdString(), c.mrl.toStdString()) << c.given.toStdString();
    }
}
