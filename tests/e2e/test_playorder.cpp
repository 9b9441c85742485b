// Play order, repeat modes, the after-play action and the recent-file
// history with the real program and real libVLC on short generated clips.
#include "e2efixture.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace quorvel;
using namespace quorvel::test;

namespace {

class PlayOrderTest : public E2eTest {
protected:
    // Plays the first of three clips and hands the other two over.
    std::unique_ptr<QuorvelProcess> startThree(const QStringList &names = {u"one.mp4"_qs, u"two.mp4"_qs,
                                                                           u"three.mp4"_qs})
    {
        const QString c = makeClip(QStringLiteral("e2e-order.mp4"), 2, QStringLiteral("160x120"));
        for (const QString &n : names)
            m_files << copyOf(c, n);
        auto q = launchInstance({m_files[0]});
        for (int i = 1; i < 3; ++i)
            EXPECT_TRUE(launch({m_files[i]})->waitForExit());
        EXPECT_TRUE(q->waitForLog(traced(trace::kAsEntry, u" 2"_qs)).hasMatch());
        return q;
    }
    static QStringList startedTitles(const QString &log)
    {
        QStringList titles;
        static const QRegularExpression re(traced(trace::kStarted, u" \"[^\"]*/([^/\"]+)\""_qs));
        for (auto it = re.globalMatch(log); it.hasNext();)
            titles << it.next().captured(1);
        return titles;
    }
    QStringList m_files;
};

} // namespace

TEST_F(PlayOrderTest, AFileDamagedAfterItWasAddedIsSaidOnceAndTheListMovesOn)
{
    auto q = startThree();
    ASSERT_TRUE(writeFile(m_files[1], QByteArray(4096, '\x5a'))); // probed when added, junk by the time it plays
    ASSERT_TRUE(q->waitForLog(traced(trace::kStarted, u" [^\\n]*three\\.mp4"_qs)).hasMatch()) << q->log().toStdString();
    EXPECT_EQ(q->count(QString::fromLatin1(trace::kMessage) + u" Cannot open file <"_qs + m_files[1] + u'>'), 1);
    EXPECT_EQ(startedTitles(q->log()).mid(0, 3), (QStringList{u"one.mp4"_qs, u"two.mp4"_qs, u"three.mp4"_qs}));
}

// Without repeat the list stops after the last and runs the action chosen in
// the menu; the history holds the files in play order and, after a restart,
// its menu plays them again.
TEST_F(PlayOrderTest, NoRepeatExitsWhenAskedAndTheHistoryPlaysAgainAfterRestart)
{
    setConfigLine(3, " 0 "); // RepeatMode: no repeat
    auto q = startThree({u"one.mp4"_qs, u"two, #2.mp4"_qs, u"three.mp4"_qs});
    // Play > After file playing finished > Exit Quorvel, by keyboard: up from
    // the end of the Play menu past "Subtitles" and "Audio track".
    keys({u"alt+p"_qs, u"Up"_qs, u"Up"_qs, u"Up"_qs, u"Right"_qs, u"Down"_qs, u"Return"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kMenu, u" \"ExitQuorvel\""_qs)).hasMatch()) << q->log().toStdString();
    ASSERT_TRUE(q->waitForExit(60000)) << q->log().toStdString();
    EXPECT_EQ(q->exitCode(), 0);
    EXPECT_EQ(startedTitles(q->log()), (QStringList{u"one.mp4"_qs, u"two, #2.mp4"_qs, u"three.mp4"_qs}));
    EXPECT_TRUE(q->log().contains(QString::fromLatin1(trace::kAfterPlay) + u" 1"_qs));
    EXPECT_EQ(configLines().value(3), "0"); // still no repeat

    const QJsonObject names = QJsonDocument::fromJson(readFile(m_box.homeDir() + u"/.config/quorvel/registry.json"_qs))
                                  .object()
                                  .value(u"Software/Brenlow/Quorvel/RecentFileNames"_qs)
                                  .toObject();
    EXPECT_EQ(names.size(), 3);
    for (int n = 0; n < 3; ++n)
        EXPECT_EQ(names.value(QString::number(n)).toString(), m_files[n]) << n;

    // File > Recently Played Files > the second entry.
    auto again = launchInstance({});
    ASSERT_TRUE(again->waitForLog(traced(trace::kHistoryLoaded, u" 3 entries"_qs)).hasMatch());
    ASSERT_TRUE(again->waitForLog(traced(trace::kPlaylistRestored, u" 3 entries"_qs)).hasMatch()); // the last list
    keys({u"alt+f"_qs, u"Down"_qs, u"Right"_qs, u"Down"_qs, u"Return"_qs});
    ASSERT_TRUE(again->waitForLog(traced(trace::kStarted, u" \"[^\"]*two, #2.mp4\""_qs)).hasMatch())
        << again->log().toStdString();
}

TEST_F(PlayOrderTest, SingleRepeatReplaysTheSameItem)
{
    setConfigLine(3, " 1 ");
    auto q = launchInstance({copyOf(makeClip(u"e2e-order.mp4"_qs, 2, u"160x120"_qs), u"two.mp4"_qs)});
    ASSERT_TRUE(q->waitForCount(QString::fromLatin1(trace::kItemEnded), 3)) << q->log().toStdString();
    EXPECT_EQ(startedTitles(q->log()), QStringList{u"two.mp4"_qs});
    EXPECT_FALSE(q->log().contains(QString::fromLatin1(trace::kAfterPlay)));
}
