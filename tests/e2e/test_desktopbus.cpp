// The player on a private session bus: playerctl drives it as a panel
// widget or media keys would, and a stand-in screen saver service sees it
// hold the screen saver off while the video plays.
#include "e2efixture.h"

#include <QUrl>

using namespace quorvel;
using namespace quorvel::test;

namespace {

class DesktopBusTest : public E2eTest {
protected:
    // A private session bus: the player, playerctl and the stand-in find it in the environment.
    void SetUp() override
    {
        E2eTest::SetUp();
        m_bus.start(u"dbus-daemon"_qs, {u"--session"_qs, u"--nofork"_qs, u"--print-address=1"_qs});
        ASSERT_TRUE(waitUntil([&] { return m_bus.canReadLine(); })) << "dbus-daemon did not start";
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    }
    void TearDown() override
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_bus.terminate();
        m_bus.waitForFinished();
    }
    QString clip(const QString &name) { return copyOf(makeClip(u"e2e-bus.mp4"_qs, 20, u"160x120"_qs), name); }
    static QString playerctl(const QStringList &args)
    {
        QString out;
        runTool(u"playerctl"_qs, QStringList{u"-p"_qs, u"quorvel"_qs} + args, &out);
        return out.trimmed();
    }
    static bool answers(const QStringList &args, const QString &expected)
    {
        return waitUntil([&] { return playerctl(args) == expected; });
    }
    QProcess m_bus;
};

} // namespace

TEST_F(DesktopBusTest, PlayerctlFollowsAndControlsThePlayer)
{
    setConfigLine(3, " 0 "); // RepeatMode: no repeat, for the loop status to change
    const QString one = clip(u"one.mp4"_qs), two = clip(u"two.mp4"_qs);
    auto q = launchInstance({one});
    ASSERT_TRUE(launch({two})->waitForExit());
    ASSERT_TRUE(q->waitForLog(traced(trace::kAsEntry, u" 1"_qs)).hasMatch());

    EXPECT_TRUE(answers({u"status"_qs}, u"Playing"_qs));
    EXPECT_EQ(playerctl({u"metadata"_qs, u"xesam:url"_qs}), QUrl::fromLocalFile(one).toString());
    playerctl({u"pause"_qs});
    EXPECT_TRUE(answers({u"status"_qs}, u"Paused"_qs));
    playerctl({u"play"_qs});
    EXPECT_TRUE(answers({u"status"_qs}, u"Playing"_qs));
    playerctl({u"position"_qs, u"5"_qs});
    EXPECT_TRUE(waitUntil([] { return playerctl({u"position"_qs}).toDouble() >= 5; }));
    playerctl({u"loop"_qs, u"Playlist"_qs});
    EXPECT_TRUE(answers({u"loop"_qs}, u"Playlist"_qs));
    playerctl({u"next"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kStarted, u" \"[^\"]*two\\.mp4\""_qs)).hasMatch())
        << q->log().toStdString();
    EXPECT_TRUE(answers({u"metadata"_qs, u"xesam:url"_qs}, QUrl::fromLocalFile(two).toString()));
    playerctl({u"stop"_qs});
    EXPECT_TRUE(answers({u"status"_qs}, u"Stopped"_qs));

    runTool(u"gdbus"_qs, {u"call"_qs, u"--session"_qs, u"-d"_qs, u"org.mpris.MediaPlayer2.quorvel"_qs, u"-o"_qs,
                          u"/org/mpris/MediaPlayer2"_qs, u"-m"_qs, u"org.mpris.MediaPlayer2.Quit"_qs});
    ASSERT_TRUE(q->waitForExit()) << q->log().toStdString();
    EXPECT_EQ(q->exitCode(), 0);
    EXPECT_EQ(configLines().value(3), "2"); // repeat all, as the menu then showed
}

TEST_F(DesktopBusTest, TheScreenSaverIsHeldOffWhileTheVideoPlays)
{
    const QString calls = m_box.path(u"screensaver-calls.txt"_qs);
    QProcess standIn;
    standIn.start(QStringLiteral(QUORVEL_SCREENSAVER_STANDIN), {calls});
    ASSERT_TRUE(waitUntil([&] { return standIn.canReadLine() || standIn.state() == QProcess::NotRunning; }));
    ASSERT_EQ(standIn.readLine().trimmed(), "ready");
    // Only the player's own calls count: libVLC may ask on its own as well.
    auto quorvelCalls = [&] {
        QStringList lines, cookies;
        for (const QByteArray &l : readFile(calls).split('\n')) {
            const QString cookie = QString::fromUtf8(l.mid(l.lastIndexOf(' ') + 1));
            if (l.startsWith("Inhibit Quorvel ") && !cookies.contains(cookie))
                lines << u"Inhibit "_qs + (cookies << cookie).last();
            else if (l.startsWith("UnInhibit ") && cookies.contains(cookie))
                lines << u"UnInhibit "_qs + cookie;
        }
        return lines;
    };
    auto made = [&](int n) { return waitUntil([&] { return quorvelCalls().size() >= n; }); };

    auto q = launchInstance({clip(u"video.mp4"_qs)});
    ASSERT_TRUE(made(1)) << q->log().toStdString();
    keys({u"space"_qs}); // pause
    ASSERT_TRUE(made(2));
    keys({u"space"_qs}); // play on
    ASSERT_TRUE(made(3));
    q->terminate(); // closes like the close button
    ASSERT_TRUE(q->waitForExit());
    const QStringList c = quorvelCalls();
    ASSERT_EQ(c.size(), 4) << c.join(u", "_qs).toStdString();
    const QString first = c[0].section(u' ', 1), second = c[2].section(u' ', 1);
    EXPECT_EQ(c, (QStringList{u"Inhibit "_qs + first, u"UnInhibit "_qs + first, u"Inhibit "_qs + second,
                              u"UnInhibit "_qs + second}));
    standIn.terminate();
    standIn.waitForFinished();
}
