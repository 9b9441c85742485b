// The real program when libVLC cannot start. libVLC looks for its plugins
// beside its own library, so copies of the libraries in an empty folder
// find none and the engine fails as on a broken installation.
#include "e2efixture.h"

#include <QRegularExpression>
#include <QTemporaryDir>

using namespace quorvel::test;

namespace {
class EngineTest : public E2eTest {};
} // namespace

TEST_F(EngineTest, AnEngineThatCannotStartIsReportedOnceAndTheWindowStaysUsable)
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
    q->setVariable(u"LD_LIBRARY_PATH"_qs, lonely.path());
    q->start({copyOf(clip, u"one.mp4"_qs)});
    ASSERT_TRUE(q->waitForLog(u"message: .*the playback engine did not start"_qs).hasMatch()) << q->log().toStdString();
    EXPECT_TRUE(q->log().contains(u"could not be started"_qs));

    // Still answering: a file handed over is added; nothing waits on
    // "Loading..." (the monitor has no engine item to poll).
    auto sender = launch({copyOf(clip, u"two.mp4"_qs)});
    ASSERT_TRUE(sender->waitForExit());
    EXPECT_EQ(sender->exitCode(), 0);
    ASSERT_TRUE(q->waitForLog(u"as entry 1"_qs).hasMatch()) << q->log().toStdString();
    x().screenshot(outputDir() + u"/engine-failed.png"_qs);
    EXPECT_TRUE(q->isRunning());
    EXPECT_EQ(q->log().count(u"message:"_qs), 1) << q->log().toStdString();
    EXPECT_FALSE(q->log().contains(u"tick state="_qs));
    q->terminate();
    EXPECT_TRUE(q->waitForExit());
    EXPECT_EQ(q->exitCode(), 0);
}
