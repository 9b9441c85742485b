// Picking up where the user left off, with the real program and libVLC:
// positions kept through a stop and a kill, never given to another file, and
// the playlist kept between runs.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

namespace {

class ResumeTest : public E2eTest {
protected:
    QString longClip(const QString &name) { return copyOf(makeClip(u"e2e-90s.mp4"_qs, 90, u"160x120"_qs), name); }
    // The numbers after `word` in the trace, in order.
    static QList<qint64> numbersAfter(const QuorvelProcess &q, const char *word)
    {
        QList<qint64> found;
        for (auto it = QRegularExpression(traced(word, u" ?(\\d+)"_qs)).globalMatch(q.log()); it.hasNext();)
            found << it.next().captured(1).toLongLong();
        return found;
    }
    // Waits until the monitor has seen the item play at `ms` or later.
    static bool playedTo(const QuorvelProcess &q, qint64 ms)
    {
        return waitUntil([&] {
            const QList<qint64> t = numbersAfter(q, "tick state=3 time=");
            return !t.isEmpty() && t.last() >= ms;
        });
    }
};

} // namespace

TEST_F(ResumeTest, StopAndKillKeepThePlaceAndAnotherFileStartsOver)
{
    const QString film = longClip(u"film.mp4"_qs);
    auto q = launchInstance({film});
    ASSERT_TRUE(playedTo(*q, 1)) << q->log().toStdString();
    keys({u"Right"_qs, u"Right"_qs, u"Right"_qs, u"Right"_qs}); // 10 s each
    ASSERT_TRUE(playedTo(*q, 40'000));
    keys({u"ctrl+s"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kResumeSaved)).hasMatch());
    const qint64 left = numbersAfter(*q, trace::kResumeSaved).last();
    keys({u"ctrl+p"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kResumed, u" \\d+ [^\\n]*film.mp4 asked= 1"_qs)).hasMatch());
    EXPECT_NEAR(numbersAfter(*q, trace::kResumed).last(), left, 2'000);
    ASSERT_TRUE(playedTo(*q, left + 500)); // the seek has taken
    shoot(u"resume-prompt.png"_qs, QSize(388, 515));
    ASSERT_TRUE(q->close());

    // An audio file, the player killed at 0:50: it comes back at 0:40 or later.
    const QString tone = copyOf(makeMedia(u"e2e-tone-90s.mp3"_qs, u"-f lavfi -i sine=frequency=330:duration=90"_qs),
                                u"tone.mp3"_qs);
    auto k = launchInstance({tone});
    ASSERT_TRUE(playedTo(*k, 1));
    keys({u"Right"_qs, u"Right"_qs, u"Right"_qs});
    ASSERT_TRUE(waitUntil([&] {
        const QList<qint64> saved = numbersAfter(*k, trace::kResumeSaved);
        return !saved.isEmpty() && saved.last() >= 40'000;
    }));
    ASSERT_TRUE(playedTo(*k, 50'000));
    k->kill();
    ASSERT_TRUE(k->waitForExit());
    const qint64 killedAt = numbersAfter(*k, "tick state=3 time=").last();
    auto again = launchInstance({tone});
    ASSERT_TRUE(again->waitForLog(traced(trace::kResumed)).hasMatch()) << again->log().toStdString();
    const qint64 resumed = numbersAfter(*again, trace::kResumed).last();
    EXPECT_GE(resumed, 40'000);
    EXPECT_GE(resumed, killedAt - 11'000); // saved every 10 s while playing
    ASSERT_TRUE(again->close());

    // The same picture under another name is another file.
    auto other = launchInstance({longClip(u"film copy.mp4"_qs)});
    ASSERT_TRUE(playedTo(*other, 3'000));
    EXPECT_FALSE(other->log().contains(QString::fromLatin1(trace::kResumed)));
}

TEST_F(ResumeTest, ThePlaylistComesBackAfterARestartAndADamagedOneIsLeftOut)
{
    setConfigLine(45, " 4 "); // the list over the video, where rows can be clicked
    QStringList files;
    for (const char *name : {"a.mp4", "b.mp4", "c.mp4"})
        files << longClip(QString::fromLatin1(name));
    auto q = launchInstance({files[0]});
    for (int i = 1; i < 3; ++i)
        EXPECT_TRUE(launch({files[i]})->waitForExit());
    ASSERT_TRUE(q->waitForLog(traced(trace::kAsEntry, u" 2"_qs)).hasMatch());
    keys({u"Right"_qs, u"Right"_qs});
    ASSERT_TRUE(playedTo(*q, 20'000));
    clickAt(100, 56 + 120); // row 1, then "Remove" from its context menu
    ASSERT_TRUE(q->waitForLog(traced(trace::kRowChosen, u" 1"_qs)).hasMatch());
    xdo({u"click"_qs, u"3"_qs});
    keys({u"Down"_qs, u"Down"_qs, u"Return"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kPlaylistSaved, u" 2 entries"_qs)).hasMatch()) << q->log().toStdString();
    clickAt(100, 56 + 40); // the playing row is the current one again
    ASSERT_TRUE(q->waitForCount(QString::fromLatin1(trace::kRowChosen) + u" 0"_qs, 1));
    ASSERT_TRUE(q->close());

    auto back = launchInstance({});
    ASSERT_TRUE(back->waitForLog(traced(trace::kPlaylistRestored, u" 2 entries, current 0"_qs)).hasMatch())
        << back->log().toStdString();
    for (int entry : {0, 1}) {
        EXPECT_TRUE(back->log().contains(QString::fromLatin1(trace::kAdded) + u" \""_qs + files[entry * 2] + u"\" "_qs
                                         + QString::fromLatin1(trace::kAsEntry) + u' ' + QString::number(entry)))
            << entry;
    }
    EXPECT_FALSE(back->log().contains(QString::fromLatin1(trace::kAdded) + u" \""_qs + files[1]));
    keys({u"ctrl+p"_qs}); // plays the current item from where it was
    ASSERT_TRUE(back->waitForLog(traced(trace::kResumed, u" \\d+ [^\\n]*a.mp4"_qs)).hasMatch());
    EXPECT_GE(numbersAfter(*back, trace::kResumed).last(), 20'000);
    ASSERT_TRUE(back->close());

    ASSERT_TRUE(writeFile(m_box.homeDir() + u"/.config/quorvel/playlist.xspf"_qs,
                          "<?xml version=\"1.0\"?><playlist><trackList><track><location>"));
    auto empty = launchInstance({});
    EXPECT_TRUE(empty->log().contains(u"is damaged"_qs)) << empty->log().toStdString();
    EXPECT_FALSE(empty->log().contains(QString::fromLatin1(trace::kAdded)));
}
