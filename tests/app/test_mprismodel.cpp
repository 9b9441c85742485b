// What the desktop's media controls see and do, on a scripted engine.
#include "app/mprismodel.h"
#include "app/screensaver.h"
#include "support/playbackrig.h"
#include "support/waituntil.h"

#include <QDBusObjectPath>
#include <QUrl>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct Remote : test::TransportRig, MprisHost {
    MprisModel model{transport, player, playlist, settings, *this};
    QStringList added;
    int volumeValue = 50;
    QVariantMap changed;
    qint64 seekedTo = -1;

    void raise() override {}
    void quit() override {}
    int volume() const override { return volumeValue; }
    void setVolume(int v) override { volumeValue = v; }
    void addFiles(const QStringList &paths) override { added += paths; }

    Remote()
    {
        settings.RepeatMode = RepeatNoRepeat;
        TransportRig::addFiles(3);
        start(0);
        engine.scriptedLength = 20000;
        engine.scriptedTime = 5000;
        model.refresh();
        QObject::connect(&model, &MprisModel::propertiesChanged, [this](const QVariantMap &m) { changed.insert(m); });
        QObject::connect(&model, &MprisModel::seeked, [this](qint64 us) { seekedTo = us; });
    }
    QString trackId() const { return model.metadata().value(u"mpris:trackid"_qs).value<QDBusObjectPath>().path(); }
    QString url() const { return model.metadata().value(u"xesam:url"_qs).toString(); }
};

} // namespace

// From the first of three entries playing at 5 of 20 seconds, without
// repeat: a request, what it changed (only that is reported) and what the
// player did. What playerctl asks for is also checked end to end.
TEST(MprisModel, RequestsChangeThePlayerAndReportWhatChanged)
{
    using R = Remote;
    const struct {
        const char *name;
        std::function<void(Remote &)> request;
        const char *after;    // property=value as read afterwards
        const char *reported; // the properties reported as changed
        double position = -1; // where the engine was sent
        int playing = 0;      // the playlist entry playing afterwards
    } cases[] = {
        {"play while playing starts nothing afresh", [](R &r) { r.model.play(); }, "PlaybackStatus=Playing", ""},
        {"stop", [](R &r) { r.model.stop(); }, "PlaybackStatus=Stopped CanPause=false",
         "CanGoNext CanGoPrevious CanPause CanSeek PlaybackStatus"},
        {"loop Track is single repeat",
         [](R &r) { EXPECT_TRUE(r.model.setLoopStatus(u"Track"_qs) && r.settings.RepeatMode == RepeatSingleItem); },
         "LoopStatus=Track", "LoopStatus"},
        {"shuffle", [](R &r) { r.model.setShuffle(true); }, "Shuffle=true", "Shuffle"},
        {"rate 100 goes to the fastest step", [](R &r) { r.model.setRate(100); }, "Rate=16", "Rate"},
        {"volume above full is full", [](R &r) { r.model.setVolume(1.5); }, "Volume=1", "Volume"},
        {"seek past the end is next", [](R &r) { r.model.seek(60'000'000); }, "", "Metadata", -1, 1},
        {"position on this track", [](R &r) { r.model.setPosition(r.trackId(), 15'000'000); }, "", "", 0.75},
        {"position on a track gone by", [](R &r) { r.model.setPosition(r.trackId() + u'0', 15'000'000); }, "", ""},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Remote r;
        c.request(r);
        EXPECT_TRUE(test::waitUntil([&] { return !r.transport.isStopping(); }));
        if (r.engine.lastSetPosition >= 0) // the engine goes where it was sent
            r.engine.scriptedTime = r.engine.lastSetPosition * r.engine.scriptedLength;
        r.model.refresh();
        for (const QString &pair : QString::fromLatin1(c.after).split(u' ', Qt::SkipEmptyParts))
            EXPECT_EQ(r.model.properties().value(pair.section(u'=', 0, 0)).toString(), pair.section(u'=', 1));
        EXPECT_EQ(r.changed.keys().join(u' ').toStdString(), c.reported); // in name order
        EXPECT_EQ(r.engine.lastSetPosition, c.position);
        EXPECT_EQ(r.seekedTo, c.position < 0 ? -1 : qint64(c.position * r.engine.scriptedLength * 1000));
        EXPECT_EQ(r.url(), QUrl::fromLocalFile(r.playlist.fullPath(c.playing)).toString());
    }
}

TEST(MprisModel, OpenUriAddsLocalMediaFilesOnly)
{
    Remote r;
    EXPECT_FALSE(r.model.openUri(u"http://example.org/a.mp4"_qs).isEmpty());
    EXPECT_FALSE(r.model.openUri(u"file:///tmp/notes.txt"_qs).isEmpty());
    EXPECT_TRUE(r.model.openUri(u"file:///tmp/a%20b.mkv"_qs).isEmpty());
    EXPECT_EQ(r.added, QStringList{u"/tmp/a b.mkv"_qs});
}

// One step after another: the screen saver is held off while a video plays
// and the setting asks for it, and the service is asked only on a change.
TEST(ScreenSaver, HeldOffWhileAVideoPlaysAskingOnlyOnAChange)
{
    struct Recorder final : ScreenSaverService {
        std::string calls; // + inhibit, - uninhibit
        void inhibit() override { calls += '+'; }
        void uninhibit(bool) override { calls += '-'; }
    } service;
    ScreenSaverGuard guard(service);
    const struct {
        MediaAction state;
        bool video;
        std::int16_t DisableScreenSaver;
        const char *calls; // all so far
    } steps[] = {
        {MediaAction::Playing, false, 1, ""},     {MediaAction::Playing, true, 1, "+"},
        {MediaAction::Playing, true, 1, "+"},     {MediaAction::Playing, true, 0, "+-"},
        {MediaAction::Playing, true, 1, "+-+"},   {MediaAction::Paused, true, 1, "+-+-"},
        {MediaAction::Playing, true, 1, "+-+-+"}, {MediaAction::Stopped, true, 1, "+-+-+-"},
    };
    for (const auto &s : steps) {
        PlaybackState state;
        state.apply(s.state);
        guard.follow(ScreenSaverHeldOff(state, s.video, s.DisableScreenSaver));
        EXPECT_EQ(service.calls, s.calls) << &s - steps;
    }
    guard.release();
    EXPECT_EQ(service.calls, steps[std::size(steps) - 1].calls); // nothing held: nothing to give back
}
