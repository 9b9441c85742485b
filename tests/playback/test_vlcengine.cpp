// The real libVLC engine: a video started again and again on a surface that
// is no X11 window, and the locations files are handed to it as.
#include "playback/vlcengine.h"
#include "support/files.h"
#include "support/mediagen.h"
#include "support/waituntil.h"

#include <QFile>
#include <QWidget>
#include <gtest/gtest.h>

using namespace quorvel;

// The engine runs on its own threads; it gets ample time for each change.
constexpr std::chrono::seconds kAmple(20);

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

TEST(VlcEngine, ListsAndSwitchesTracksAddsASubtitleFileAndMovesTheDelay)
{
    const QString srt = test::testMediaDir() + u"/added-by-hand.srt"_qs;
    ASSERT_TRUE(test::writeFile(srt, "1\n00:00:00,000 --> 00:00:20,000\nHello\n"));
    const QString clip = test::makeMedia(u"engine-tracks.mkv"_qs,
                                         u"-f lavfi -i sine=duration=20 -f lavfi -i sine=duration=20 -map 0 -map 1 "
                                         u"-metadata:s:a:0 language=eng -metadata:s:a:0 title=Commentary "
                                         u"-metadata:s:a:1 language=jpn"_qs);
    ASSERT_FALSE(clip.isEmpty());
    VlcEngine engine(nullptr);
    engine.createControl();
    engine.playlistAdd(clip, QString(), {});
    engine.play();
    ASSERT_TRUE(test::waitUntil([&] { return engine.audioTracks().size() == 2 && engine.audioTrack() >= 0; }, kAmple));
    const QList<Engine::Track> audio = engine.audioTracks();
    EXPECT_EQ(audio[0].language, u"eng"_qs);
    EXPECT_EQ(audio[0].description, u"Commentary"_qs);
    EXPECT_EQ(audio[1].language, u"jpn"_qs);
    engine.setAudioTrack(audio[1].id);
    EXPECT_TRUE(test::waitUntil([&] { return engine.audioTrack() == audio[1].id; }, kAmple));
    EXPECT_TRUE(engine.subtitleTracks().isEmpty()); // no subtitle file has its name
    engine.addSubtitleFile(srt);
    ASSERT_TRUE(test::waitUntil([&] { return engine.subtitleTracks().size() == 1; }, kAmple));
    EXPECT_TRUE(test::waitUntil([&] { return engine.subtitleTrack() == engine.subtitleTracks()[0].id; }, kAmple));
    engine.setSubtitleDelayMs(-300);
    EXPECT_EQ(engine.subtitleDelayMs(), -300);
    engine.setSubtitleTrack(-1);
    EXPECT_TRUE(test::waitUntil([&] { return engine.subtitleTrack() == -1; }, kAmple));
}
