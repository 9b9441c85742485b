// What the desktop's media controls see and do, on a scripted engine.
#include "app/mprismodel.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "support/playbackrig.h"
#include "support/waituntil.h"

#include <QDBusObjectPath>
#include <QFile>
#include <QUrl>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct NoView final : TransportView {
    void setTimeText(const QString &) override {}
    void setRateText(const QString &, bool) override {}
    void setProgressPercent(int) override {}
    void openFiles(bool) override {}
    void togglePlaylist() override {}
    void closeWindow() override {}
    void controlsChanged() override {}
};

struct NoPower final : playback::PowerControl {
    void reboot() override {}
    void powerOff() override {}
};

struct Remote : test::PlaybackRig, MprisHost {
    NoView view;
    NoPower power;
    Transport transport{engine, settings, state, playlist, player, power, view};
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
        transport.setStopSettleDelay(0);
        player.SaveVLCOptions();
        playlist.setOrderHandler([this] { transport.rebuildOrder(); });
        for (int i = 0; i < 3; ++i) {
            const QString path = dir.filePath(QStringLiteral("clip%1.mp4").arg(i));
            QFile(path).open(QIODevice::WriteOnly);
            playlist.LoadThumb(GetFileTitle(path), path);
        }
        playlist.waitForAdds();
        list.setSelectedItem(0);
        transport.play();
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
// player did.
TEST(MprisModel, RequestsChangeThePlayerAndReportWhatChanged)
{
    const struct {
        const char *name;
        std::function<void(Remote &)> request;
        QVariantMap after;    // values read afterwards
        QStringList reported; // the properties reported as changed
        double position;      // where the engine was sent, or -1
        int playing;          // the playlist entry playing afterwards
    } cases[] = {
        {"pause",
         [](Remote &r) { r.model.pause(); },
         {{u"PlaybackStatus"_qs, u"Paused"_qs}},
         {u"PlaybackStatus"_qs, u"CanGoNext"_qs, u"CanGoPrevious"_qs},
         -1,
         0},
        {"play while playing starts nothing afresh", [](Remote &r) { r.model.play(); }, {}, {}, -1, 0},
        {"stop",
         [](Remote &r) { r.model.stop(); },
         {{u"PlaybackStatus"_qs, u"Stopped"_qs}, {u"CanPause"_qs, false}},
         {u"PlaybackStatus"_qs, u"CanGoNext"_qs, u"CanGoPrevious"_qs, u"CanPause"_qs, u"CanSeek"_qs},
         -1,
         0},
        {"loop Track is single repeat",
         [](Remote &r) { r.model.setLoopStatus(u"Track"_qs); },
         {{u"LoopStatus"_qs, u"Track"_qs}},
         {u"LoopStatus"_qs},
         -1,
         0},
        {"an unknown loop status changes nothing",
         [](Remote &r) { EXPECT_FALSE(r.model.setLoopStatus(u"All"_qs)); },
         {{u"LoopStatus"_qs, u"None"_qs}},
         {},
         -1,
         0},
        {"shuffle", [](Remote &r) { r.model.setShuffle(true); }, {{u"Shuffle"_qs, true}}, {u"Shuffle"_qs}, -1, 0},
        {"rate 3 goes to the nearest step",
         [](Remote &r) { r.model.setRate(3); },
         {{u"Rate"_qs, 4.0}},
         {u"Rate"_qs},
         -1,
         0},
        {"rate 100 stops at the fastest step",
         [](Remote &r) { r.model.setRate(100); },
         {{u"Rate"_qs, MprisModel::maximumRate()}},
         {u"Rate"_qs},
         -1,
         0},
        {"rate 0 pauses",
         [](Remote &r) { r.model.setRate(0); },
         {{u"PlaybackStatus"_qs, u"Paused"_qs}},
         {u"PlaybackStatus"_qs, u"CanGoNext"_qs, u"CanGoPrevious"_qs},
         -1,
         0},
        {"volume", [](Remote &r) { r.model.setVolume(1.5); }, {{u"Volume"_qs, 1.0}}, {u"Volume"_qs}, -1, 0},
        {"next", [](Remote &r) { r.model.next(); }, {}, {u"Metadata"_qs}, -1, 1},
        {"seek forward", [](Remote &r) { r.model.seek(5'000'000); }, {}, {}, 0.5, 0},
        {"seek past the end is next", [](Remote &r) { r.model.seek(60'000'000); }, {}, {u"Metadata"_qs}, -1, 1},
        {"position on the current track",
         [](Remote &r) { r.model.setPosition(r.trackId(), 15'000'000); },
         {},
         {},
         0.75,
         0},
        {"position on a track gone by",
         [](Remote &r) { r.model.setPosition(r.trackId() + u'0', 15'000'000); },
         {},
         {},
         -1,
         0},
        {"position past the end", [](Remote &r) { r.model.setPosition(r.trackId(), 21'000'000); }, {}, {}, -1, 0},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Remote r;
        c.request(r);
        EXPECT_TRUE(test::waitUntil([&] { return !r.transport.isStopping(); }));
        if (r.engine.lastSetPosition >= 0) // the engine goes where it was sent
            r.engine.scriptedTime = r.engine.lastSetPosition * r.engine.scriptedLength;
        r.model.refresh();
        for (auto it = c.after.cbegin(); it != c.after.cend(); ++it)
            EXPECT_EQ(r.model.properties().value(it.key()), it.value()) << it.key().toStdString();
        QStringList reported = r.changed.keys(), expected = c.reported;
        reported.sort();
        expected.sort();
        EXPECT_EQ(reported.join(u' ').toStdString(), expected.join(u' ').toStdString());
        EXPECT_EQ(r.engine.lastSetPosition, c.position);
        EXPECT_EQ(r.seekedTo, c.position < 0 ? -1 : qint64(c.position * 20'000'000));
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
