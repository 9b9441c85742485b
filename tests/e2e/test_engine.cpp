// The real program when libVLC cannot start, and what the playlist tells a user.
// libVLC looks for its plugins beside its own library, so copies of the
// libraries in an empty folder find none and the engine fails as on a broken
// installation.
#include "e2efixture.h"

#include <QTemporaryDir>

using namespace quorvel;
using namespace quorvel::test;

TEST_F(E2eTest, AnEngineThatCannotStartIsReportedOnceAndTheWindowStaysUsable)
{
    QString libs;
    // The engine libraries come with the player module the program loads.
    ASSERT_EQ(runTool(u"ldd"_qs, {m_box.programDir() + u"/libquorvel_player.so"_qs}, &libs), 0);
    QTemporaryDir lonely;
    static const QRegularExpression lib(u"(libvlc(core)?\\.so\\.\\d+) => (\\S+)"_qs);
    int copied = 0;
    for (auto it = lib.globalMatch(libs); it.hasNext(); ++copied) {
        const auto m = it.next();
        ASSERT_TRUE(QFile::copy(m.captured(3), lonely.filePath(m.captured(1))));
    }
    ASSERT_EQ(copied, 2) << libs.toStdString();

    const QString clip = makeClip(u"e2e-engine.mp4"_qs, 2, u"160x120"_qs);
    auto q = std::make_unique<QuorvelProcess>(m_box, x().display());
    q->setEnv(u"LD_LIBRARY_PATH"_qs, lonely.path());
    q->start({copyOf(clip, u"one.mp4"_qs)});
    ASSERT_TRUE(q->waitForLog(traced(trace::kMessage, u" .*the playback engine did not start"_qs)).hasMatch())
        << q->log().toStdString();
    EXPECT_TRUE(q->log().contains(u"could not be started"_qs));
    // Still answering: a file handed over is added; nothing waits on
    // "Loading..." (the monitor has no engine item to poll).
    auto sender = launch({copyOf(clip, u"two.mp4"_qs)});
    ASSERT_TRUE(sender->waitForExit());
    EXPECT_EQ(sender->exitCode(), 0);
    ASSERT_TRUE(q->waitForLog(traced(trace::kAsEntry, u" 1"_qs)).hasMatch()) << q->log().toStdString();
    shoot(u"engine-failed.png"_qs);
    EXPECT_EQ(q->count(QString::fromLatin1(trace::kMessage)), 1) << q->log().toStdString();
    EXPECT_EQ(q->count(QString::fromLatin1(trace::kTick)), 0);
    EXPECT_TRUE(q->close());
    EXPECT_EQ(q->exitCode(), 0);
}

// Many refused files at once give one message, in a box that scrolls.
TEST_F(E2eTest, ManyRefusalsGiveOneMessage)
{
    // A clip plays, so the window's caption is not the box's.
    auto q = launchInstance({copyOf(makeClip(u"e2e-engine.mp4"_qs, 2, u"160x120"_qs), u"one.mp4"_qs)});
    const QString shown = QString::fromLatin1(trace::kMessageShown);
    QStringList names;
    for (int i = 0; i < 14; ++i) {
        const QString file = m_box.path(u"junk/not a film %1.mp4"_qs.arg(i, 2, 10, QChar(u'0')));
        ASSERT_TRUE(writeFile(file, "only words here\n"));
        names << u'"' + file + u'"';
    }
    keys({u"ctrl+o"_qs});
    const QString dialog = xdo({u"search"_qs, u"--sync"_qs, u"--name"_qs, u"^Open"_qs}).section(u'\n', 0, 0);
    ASSERT_FALSE(dialog.isEmpty()) << q->log().toStdString();
    xdo({u"windowfocus"_qs, u"--sync"_qs, dialog});
    xdo({u"type"_qs, u"--delay"_qs, u"2"_qs, names.join(u' ')});
    xdo({u"key"_qs, u"Return"_qs});
    ASSERT_TRUE(q->waitForLog(shown + u" 14 files could not be added:"_qs).hasMatch()) << q->log().toStdString();
    EXPECT_TRUE(q->log().contains(u"not a film 13.mp4"_qs));
    EXPECT_EQ(q->count(shown), 1);
    ASSERT_FALSE(xdo({u"search"_qs, u"--sync"_qs, u"--name"_qs, u"^Quorvel$"_qs}).isEmpty()); // the box
    shoot(u"gathered-refusals.png"_qs);
}
