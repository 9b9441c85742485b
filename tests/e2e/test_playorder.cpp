// Play order, repeat modes and the after-play action with the real program
// and real libVLC on short generated clips.
#include "e2efixture.h"

#include <QRegularExpression>
#include <QSet>

using namespace quorvel::test;

namespace {

QStringList startedTitles(const QString &log)
{
    QStringList titles;
    static const QRegularExpression re(QStringLiteral("started \"[^\"]*/([^/\"]+)\""));
    for (auto it = re.globalMatch(log); it.hasNext();)
        titles << it.next().captured(1);
    return titles;
}

class PlayOrderTest : public E2eTest {
protected:
    QStringList clips()
    {
        const QString c = makeClip(QStringLiteral("e2e-order.mp4"), 2, QStringLiteral("160x120"));
        return {copyOf(c, QStringLiteral("one.mp4")), copyOf(c, QStringLiteral("two.mp4")),
                copyOf(c, QStringLiteral("three.mp4"))};
    }
    // Plays the first clip and hands the other two over.
    std::unique_ptr<QuorvelProcess> startThree(const QStringList &files)
    {
        auto q = launchInstance({files[0]});
        for (int i = 1; i < 3; ++i) {
            auto sender = launch({files[i]});
            EXPECT_TRUE(sender->waitForExit());
        }
        EXPECT_TRUE(q->waitForLog(QStringLiteral("as entry 2")).hasMatch());
        return q;
    }
    bool waitForStarts(QuorvelProcess &q, int count) { return waitForCount(q, QStringLiteral("started \""), count); }
};

} // namespace

TEST_F(PlayOrderTest, ContinuousWithRepeatAllGoesRoundAgain)
{
    const QStringList files = clips();
    auto q = startThree(files); // the defaults: continuous, repeat all
    ASSERT_TRUE(waitForStarts(*q, 4)) << q->log().toStdString();
    EXPECT_EQ(startedTitles(q->log()).mid(0, 4),
              (QStringList{u"one.mp4"_qs, u"two.mp4"_qs, u"three.mp4"_qs, u"one.mp4"_qs}));
}

TEST_F(PlayOrderTest, ContinuousWithoutRepeatStopsAndExitsWhenAsked)
{
    setConfigLine(3, " 0 "); // RepeatMode: no repeat
    const QStringList files = clips();
    auto q = startThree(files);
    // Play > After file playing finished > Exit Quorvel, by keyboard.
    keys({QStringLiteral("alt+p"), QStringLiteral("Up"), QStringLiteral("Right"), QStringLiteral("Down"),
          QStringLiteral("Return")});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("menu \"ExitQuorvel\"")).hasMatch()) << q->log().toStdString();
    ASSERT_TRUE(q->waitForExit(60000)) << q->log().toStdString();
    EXPECT_EQ(q->exitCode(), 0);
    EXPECT_EQ(startedTitles(q->log()), (QStringList{u"one.mp4"_qs, u"two.mp4"_qs, u"three.mp4"_qs}));
    EXPECT_TRUE(q->log().contains(QStringLiteral("after-play action 1")));
    QFile cfg(m_box.configPath());
    ASSERT_TRUE(cfg.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = cfg.readAll().split('\n');
    ASSERT_GE(lines.size(), 46);
    EXPECT_EQ(lines[3], " 0 \r"); // still no repeat
}

TEST_F(PlayOrderTest, SingleRepeatReplaysTheSameItem)
{
    setConfigLine(3, " 1 ");
    const QStringList files = clips();
    auto q = launchInstance({files[1]});
    ASSERT_TRUE(waitForCount(*q, QStringLiteral("item ended"), 3)) << q->log().toStdString();
    EXPECT_EQ(startedTitles(q->log()), QStringList{u"two.mp4"_qs});
    EXPECT_FALSE(q->log().contains(QStringLiteral("after-play action")));
}

TEST_F(PlayOrderTest, ShufflePlaysEachItemOnceARound)
{
    setConfigLine(2, " 2 "); // PlayMode: shuffle; repeat all stays
    const QStringList files = clips();
    auto q = startThree(files);
    ASSERT_TRUE(waitForStarts(*q, 6)) << q->log().toStdString();
    const QStringList started = startedTitles(q->log());
    // After the first wrap the cursor runs over every position once.
    const QSet<QString> lastThree(started.begin() + 3, started.begin() + 6);
    EXPECT_EQ(lastThree.size(), 3) << started.join(u' ').toStdString();
}

TEST_F(PlayOrderTest, NextAndPreviousWrapAround)
{
    const QStringList files = clips();
    auto q = startThree(files);
    keys({QStringLiteral("Prior")}); // previous from the first: the last
    ASSERT_TRUE(q->waitForLog(QStringLiteral("started [^\\n]*three\\.mp4")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("Next")}); // next from the last: the first
    ASSERT_TRUE(waitForStarts(*q, 3));
    EXPECT_EQ(startedTitles(q->log()).mid(0, 3), (QStringList{u"one.mp4"_qs, u"three.mp4"_qs, u"one.mp4"_qs}));
}

TEST_F(PlayOrderTest, NextRightAfterStopPlaysOnAndTheListAdvances)
{
    const QStringList files = clips();
    auto q = startThree(files);
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3")).hasMatch());
    const int before = q->log().count(QStringLiteral("started \""));
    keys({QStringLiteral("ctrl+s"), QStringLiteral("Next")}); // Next while the stop settles
    ASSERT_TRUE(waitForStarts(*q, before + 1)) << q->log().toStdString();
    // The item Next started is shown as playing: it runs to its end and the list moves on.
    const int started = q->log().count(QStringLiteral("started \""));
    EXPECT_TRUE(waitForStarts(*q, started + 1)) << q->log().toStdString();
}

TEST_F(PlayOrderTest, FullScreenIsLeftWithEscape)
{
    const QString file = copyOf(makeClip(QStringLiteral("e2e-long.mp4"), 8, QStringLiteral("320x240")),
                                QStringLiteral("long.mp4"));
    auto q = launchInstance({file});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3")).hasMatch());
    auto geometry = [this] {
        QProcess p;
        p.setProcessEnvironment(x().environment());
        p.start(QStringLiteral("sh"),
                {QStringLiteral("-c"),
                 QStringLiteral("xdotool getwindowgeometry $(xdotool search --name '^Quorvel' | head -1)")});
        p.waitForFinished(10000);
        return QString::fromUtf8(p.readAll());
    };
    auto waitFor = [&](bool full) {
        return waitUntil([&] { return geometry().contains(QStringLiteral("1280x1024")) == full; },
                         std::chrono::seconds(5));
    };
    keys({QStringLiteral("ctrl+f")});
    EXPECT_TRUE(waitFor(true)) << geometry().toStdString();
    const QString shot = outputDir() + QStringLiteral("/fullscreen.png");
    x().screenshot(shot);
    keys({QStringLiteral("Escape")});
    EXPECT_TRUE(waitFor(false)) << geometry().toStdString();
}

TEST_F(PlayOrderTest, AFileDamagedAfterItWasAddedIsSaidOnceAndTheListMovesOn)
{
    const QStringList files = clips();
    auto q = startThree(files);
    QFile junk(files[1]); // probed when added, junk by the time it plays
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly | QIODevice::Truncate));
    junk.write(QByteArray(4096, '\x5a'));
    junk.close();
    ASSERT_TRUE(q->waitForLog(u"started [^\\n]*three\\.mp4"_qs).hasMatch()) << q->log().toStdString();
    const QString said = u"message: Cannot open file <"_qs + files[1] + u'>';
    EXPECT_EQ(q->log().count(said), 1) << q->log().toStdString();
    EXPECT_EQ(startedTitles(q->log()).mid(0, 3), (QStringList{u"one.mp4"_qs, u"two.mp4"_qs, u"three.mp4"_qs}));
}
