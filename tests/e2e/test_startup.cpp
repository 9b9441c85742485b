// The program as a user meets it: starting with a file, later starts handing
// their files over, a killed instance, closing by signal.
#include "e2efixture.h"

#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QThread>
#include <QUrl>
#include <csignal>

using namespace quorvel::test;

namespace {

QString clip()
{
    return makeClip(QStringLiteral("e2e-clip.mp4"), 6, QStringLiteral("320x240"));
}

// Engine times reported by the monitor's trace, in order.
QList<qint64> playingTimes(const QString &log)
{
    QList<qint64> times;
    static const QRegularExpression re(QStringLiteral("tick state=3 time=(\\d+)"));
    for (auto it = re.globalMatch(log); it.hasNext();)
        times << it.next().captured(1).toLongLong();
    return times;
}

int countOf(const QString &log, const QString &text)
{
    return static_cast<int>(log.count(text));
}

} // namespace

TEST_F(E2eTest, PlaysAFileGivenOnTheCommandLine)
{
    const QString file = copyOf(clip(), QStringLiteral("my clip.mp4"));
    auto q = launchInstance({file});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]\\d{2,}")).hasMatch()) << q->log().toStdString();
    q->waitForLog(QStringLiteral("tick state=3 time=[2-9]\\d{3}"));
    const QList<qint64> times = playingTimes(q->log());
    ASSERT_GE(times.size(), 2);
    EXPECT_GT(times.last(), times.first()); // time advances

    // The window shows the video: the test picture is colourful, the idle frame black.
    const QString shot = outputDir() + QStringLiteral("/startup-playing.png");
    ASSERT_TRUE(x().screenshot(shot));
    const QImage image(shot);
    ASSERT_FALSE(image.isNull());
    int colourful = 0;
    for (int y = 0; y < 515; y += 5) {
        for (int xpos = 0; xpos < 388; xpos += 5) {
            const QColor c = image.pixelColor(xpos, y);
            if (c.saturation() > 120 && c.value() > 120)
                ++colourful;
        }
    }
    EXPECT_GT(colourful, 100) << "no video visible in " << shot.toStdString();

    // The window's own title is the caption.
    QString out;
    QProcess xdotool;
    xdotool.setProcessEnvironment(x().environment());
    xdotool.start(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--name"),
                                              QStringLiteral("^Quorvel - \\(.*my clip\\.mp4\\)$")});
    xdotool.waitForFinished(10000);
    EXPECT_FALSE(xdotool.readAll().trimmed().isEmpty()) << "no window titled with the caption";

    q->terminate();
    ASSERT_TRUE(q->waitForExit());
    EXPECT_EQ(q->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(q->exitCode(), 0);
    EXPECT_TRUE(q->log().contains(QStringLiteral("closed")));
    // Settings were written on the way out.
    QFile cfg(m_box.configPath());
    ASSERT_TRUE(cfg.open(QIODevice::ReadOnly));
    EXPECT_EQ(cfg.readAll().count("\r\n"), 46);
}

TEST_F(E2eTest, LaterStartsHandTheirFilesOverWithoutPlayingThem)
{
    const QString first = copyOf(clip(), QStringLiteral("first.mp4"));
    auto running = launchInstance({first});
    ASSERT_TRUE(running->waitForLog(QStringLiteral("started .*first\\.mp4")).hasMatch());

    const QString other = copyOf(clip(), QStringLiteral("other, with 'odd' name.mkv"));
    auto second = launch({other});
    ASSERT_TRUE(second->waitForExit());
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_FALSE(second->log().contains(QStringLiteral("running instance ready")));
    // The sender ends only after the file is in.
    EXPECT_TRUE(running->waitForLog(QStringLiteral("added .*other, with 'odd' name\\.mkv\" as entry 1")).hasMatch())
        << running->log().toStdString();
    EXPECT_FALSE(running->log().contains(QStringLiteral("started \"") + other));

    // The add-only marker is cut; the file is still only added.
    const QString third = copyOf(clip(), QStringLiteral("third.mp4"));
    auto marker = launch({third, QStringLiteral("*Add")});
    ASSERT_TRUE(marker->waitForExit());
    EXPECT_TRUE(running->waitForLog(QStringLiteral("added .*third\\.mp4\" as entry 2")).hasMatch());

    // Names a shell or Qt might take for something else.
    const QString dashed = copyOf(clip(), QStringLiteral("-reverse ünïcode #1.mp4"));
    auto odd = launch({dashed});
    ASSERT_TRUE(odd->waitForExit());
    EXPECT_TRUE(running->waitForLog(QStringLiteral("added .*-reverse ünïcode #1\\.mp4\" as entry 3")).hasMatch())
        << running->log().toStdString();

    // Without a file a later start only checks the instance is alive, then ends.
    auto hello = launch({});
    ASSERT_TRUE(hello->waitForExit());
    EXPECT_TRUE(running->waitForLog(QStringLiteral("found this instance running")).hasMatch());

    // A file that is no media is sent too, and refused with a message.
    auto text = launch({m_box.path(QStringLiteral("notes.txt"))});
    ASSERT_TRUE(text->waitForExit());
    EXPECT_EQ(text->exitCode(), 0);
    EXPECT_TRUE(running->waitForLog(QStringLiteral("message shown:.*notes\\.txt")).hasMatch())
        << running->log().toStdString();
    EXPECT_EQ(countOf(running->log(), QStringLiteral("hand-off received")), 4);
}

TEST_F(E2eTest, TwentyStartsAtOnceAreAllAddedOnce)
{
    auto running = launchInstance({});
    QList<std::shared_ptr<QuorvelProcess>> senders;
    QStringList files;
    for (int i = 0; i < 20; ++i)
        files << copyOf(clip(), QStringLiteral("burst %1.mp4").arg(i));
    for (const QString &f : files)
        senders << std::shared_ptr<QuorvelProcess>(launch({f}));
    for (auto &s : senders) {
        EXPECT_TRUE(s->waitForExit(120000));
        EXPECT_EQ(s->exitCode(), 0);
        EXPECT_FALSE(s->log().contains(QStringLiteral("running instance ready")));
    }
    running->waitForLog(QStringLiteral("as entry 19"));
    const QString log = running->log();
    for (const QString &f : files)
        EXPECT_EQ(countOf(log, QStringLiteral("added \"") + f + u'"'), 1) << f.toStdString();
    EXPECT_EQ(countOf(log, QStringLiteral("is already in")), 0);
    if (qEnvironmentVariableIsSet("QUORVEL_E2E_VERBOSE"))
        qWarning("%s", qPrintable(log));
}

TEST_F(E2eTest, AKilledInstanceIsReplacedByTheNextStart)
{
    auto victim = launchInstance({});
    victim->kill();
    ASSERT_TRUE(victim->waitForExit());

    const QString file = copyOf(clip(), QStringLiteral("after-kill.mp4"));
    auto next = launch({file});
    ASSERT_TRUE(next->waitForLog(QStringLiteral("running instance ready")).hasMatch()) << next->log().toStdString();
    EXPECT_TRUE(next->waitForLog(QStringLiteral("started .*after-kill\\.mp4")).hasMatch());

    // And it now receives the hand-offs.
    const QString more = copyOf(clip(), QStringLiteral("more.mp4"));
    auto sender = launch({more});
    ASSERT_TRUE(sender->waitForExit());
    EXPECT_TRUE(next->waitForLog(QStringLiteral("added .*more\\.mp4")).hasMatch());
}

TEST_F(E2eTest, NewInstanceSettingStartsASeparateReceiver)
{
    // A first run writes the defaults; switch on a new instance per start.
    auto first = launchInstance({});
    first->terminate();
    ASSERT_TRUE(first->waitForExit());
    QFile cfg(m_box.configPath());
    ASSERT_TRUE(cfg.open(QIODevice::ReadOnly));
    QList<QByteArray> lines = cfg.readAll().split('\n');
    cfg.close();
    ASSERT_GE(lines.size(), 46);
    lines[10] = "-1 \r"; // UseNewInstance
    ASSERT_TRUE(cfg.open(QIODevice::WriteOnly | QIODevice::Truncate));
    cfg.write(lines.join('\n'));
    cfg.close();

    auto a = launchInstance({});
    const QString file = copyOf(clip(), QStringLiteral("separate.mp4"));
    auto b = launchInstance({file});
    EXPECT_TRUE(b->waitForLog(QStringLiteral("started .*separate\\.mp4")).hasMatch());
    EXPECT_TRUE(a->isRunning());
    EXPECT_FALSE(a->log().contains(QStringLiteral("separate.mp4")));
}

namespace {

// `added "..." as entry k` lines of a trace, in order (QDebug escapes quotes).
QStringList addedFiles(const QString &log)
{
    QStringList files;
    static const QRegularExpression re(QStringLiteral("added \"((?:[^\"\\\\]|\\\\.)*)\" as entry"));
    for (auto it = re.globalMatch(log); it.hasNext();)
        files << it.next().captured(1).replace(QStringLiteral("\\\""), QStringLiteral("\""));
    return files;
}

} // namespace

TEST_F(E2eTest, StartsAtTheSameMomentMakeOneWindowWithEveryFileInTurnOrder)
{
    // As a file manager does with a selection: one process per file, all at once.
    constexpr int kStarts = 6;
    QString script = QStringLiteral("cd '%1' || exit 1; ").arg(m_box.path(QString()));
    for (int i = 0; i < kStarts; ++i) {
        copyOf(clip(), QStringLiteral("at once %1.mp4").arg(i));
        script += QStringLiteral("( \"$QUORVEL\" 'at once %1.mp4'; echo \"sender exit $?\" ) & ").arg(i);
    }
    auto shell = std::make_unique<QuorvelProcess>(m_box, x().display());
    shell->startShell(script + QStringLiteral("wait"));
    ASSERT_TRUE(waitForCount(*shell, QStringLiteral("sender exit "), kStarts - 1)) << shell->log().toStdString();
    ASSERT_TRUE(waitForCount(*shell, QStringLiteral("\" as entry"), kStarts)) << shell->log().toStdString();
    const QString log = shell->log();
    EXPECT_EQ(countOf(log, QStringLiteral("running instance ready")), 1) << log.toStdString();
    EXPECT_EQ(countOf(log, QStringLiteral("sender exit 0")), kStarts - 1) << log.toStdString();

    // The playlist holds the files in the order the starts got their turn.
    QMap<int, QString> byTurn;
    static const QRegularExpression turn(QStringLiteral("negotiating, turn (\\d+) files \\[\"([^\"]*)\"\\]"));
    for (auto it = turn.globalMatch(log); it.hasNext();) {
        const auto m = it.next();
        byTurn.insert(m.captured(1).toInt(), m.captured(2));
    }
    ASSERT_EQ(byTurn.size(), kStarts) << log.toStdString();
    EXPECT_EQ(addedFiles(log), byTurn.values()) << log.toStdString();

    const QRegularExpressionMatch ready
        = QRegularExpression(QStringLiteral("running instance ready, process (\\d+)")).match(log);
    ASSERT_TRUE(ready.hasMatch());
    ::kill(static_cast<pid_t>(ready.captured(1).toLongLong()), SIGTERM);
    EXPECT_TRUE(shell->waitForExit());
}

TEST_F(E2eTest, EachArgumentIsOneFileTakenAgainstTheCallersFolder)
{
    QDir().mkpath(m_box.path(QStringLiteral("a")));
    QDir().mkpath(m_box.path(QStringLiteral("b")));
    const QStringList names{QStringLiteral("a/t1.mp4"), QStringLiteral("a/say \"hi\".mp4"),
                            QStringLiteral("b/-lead #2 x.mp4"), QStringLiteral("b/uri file.mp4")};
    for (const QString &n : names)
        copyOf(clip(), n);

    // First start: every argument is a file, all are added in order, the
    // first plays, and a missing one says so.
    auto running = std::make_unique<QuorvelProcess>(m_box, x().display());
    running->setWorkingDirectory(m_box.path(QStringLiteral("a")));
    running->start({QStringLiteral("t1.mp4"), QStringLiteral("say \"hi\".mp4"), QStringLiteral("gone.mp4")});
    ASSERT_TRUE(running->waitForLog(QStringLiteral("started .*a/t1\\.mp4")).hasMatch()) << running->log().toStdString();
    EXPECT_TRUE(running->waitForLog(QStringLiteral("message shown:.*a/gone\\.mp4")).hasMatch())
        << running->log().toStdString();
    // A later start in another folder hands its relative names over in one
    // message; the same file named another way is one entry.
    auto sender = std::make_unique<QuorvelProcess>(m_box, x().display());
    sender->setWorkingDirectory(m_box.path(QStringLiteral("b")));
    sender->start({QStringLiteral("-lead #2 x.mp4"), QStringLiteral("../a/t1.mp4"),
                   QUrl::fromLocalFile(m_box.path(QStringLiteral("b/uri file.mp4"))).toString(),
                   QStringLiteral("*Add")});
    ASSERT_TRUE(sender->waitForExit());
    EXPECT_EQ(sender->exitCode(), 0) << sender->log().toStdString();
    EXPECT_TRUE(waitForCount(*running, QStringLiteral("\" as entry"), 4));
    EXPECT_TRUE(running->waitForLog(QStringLiteral("message shown:.*t1\\.mp4.* is already in")).hasMatch());
    QStringList expected;
    for (const QString &n : names)
        expected << m_box.path(n);
    EXPECT_EQ(addedFiles(running->log()), expected) << running->log().toStdString();
    EXPECT_EQ(countOf(running->log(), QStringLiteral("hand-off received")), 1);
    EXPECT_EQ(countOf(running->log(), QStringLiteral("started \"")), 1); // the handed-over files only wait

    // With the add-only marker anywhere, a first start plays nothing.
    running->terminate();
    ASSERT_TRUE(running->waitForExit());
    auto addOnly = launchInstance({m_box.path(names[0]), QStringLiteral("*Add"), m_box.path(names[2])});
    EXPECT_TRUE(waitForCount(*addOnly, QStringLiteral("\" as entry"), 2)) << addOnly->log().toStdString();
    EXPECT_EQ(countOf(addOnly->log(), QStringLiteral("started \"")), 0);
}

TEST_F(E2eTest, AHungInstanceIsReportedNeitherWaitedForNorDoubled)
{
    auto running = launchInstance({});
    ASSERT_EQ(::kill(static_cast<pid_t>(running->pid()), SIGSTOP), 0);
    const QString file = copyOf(clip(), QStringLiteral("to a hung one.mp4"));
    auto sender = launch({file});
    ASSERT_TRUE(sender->waitForExit(60000));
    EXPECT_EQ(sender->exitCode(), 1);
    EXPECT_TRUE(sender->log().contains(QStringLiteral("does not answer; these files were not added: \"") + file))
        << sender->log().toStdString();
    auto plain = launch({});
    ASSERT_TRUE(plain->waitForExit(60000));
    EXPECT_EQ(plain->exitCode(), 1);
    EXPECT_TRUE(plain->log().contains(QStringLiteral("no second window was opened"))) << plain->log().toStdString();
    EXPECT_FALSE(plain->log().contains(QStringLiteral("running instance ready")));

    // Woken up, the instance serves the next start as before.
    ::kill(static_cast<pid_t>(running->pid()), SIGCONT);
    auto again = launch({file});
    ASSERT_TRUE(again->waitForExit());
    EXPECT_EQ(again->exitCode(), 0);
    EXPECT_TRUE(running->waitForLog(QStringLiteral("added .*to a hung one\\.mp4")).hasMatch());
}

TEST_F(E2eTest, VideoShowsOnAWaylandSession)
{
    const QString file = copyOf(clip(), QStringLiteral("wayland.mp4"));
    auto q = std::make_unique<QuorvelProcess>(m_box, x().display());
    q->setEnv(QStringLiteral("QT_QPA_PLATFORM"), QString());
    q->setEnv(QStringLiteral("WAYLAND_DISPLAY"), m_box.path(QStringLiteral("runtime/wayland-gone")));
    q->setEnv(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
    q->start({file});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]\\d{2,}")).hasMatch()) << q->log().toStdString();
    // Qt went to X11 straight away instead of trying the Wayland display first.
    EXPECT_FALSE(q->log().contains(QStringLiteral("\"wayland\""))) << q->log().toStdString();
    EXPECT_TRUE(q->log().contains(QStringLiteral("running instance ready, process"))
                && q->log().contains(QStringLiteral(" on \"xcb\"")));
}

TEST_F(E2eTest, TheDecidingProgramLoadsNeitherWindowNorEngineNorFfmpeg)
{
    // A later start only hands its files over: the libraries of the window
    // system, libVLC and ffmpeg come with the player module, not with it.
    QString libs;
    ASSERT_EQ(runTool(QStringLiteral("ldd"), {m_box.program()}, &libs), 0);
    for (const char *heavy : {"libQt6Gui", "libQt6Widgets", "libvlc", "libavformat", "libavcodec"})
        EXPECT_FALSE(libs.contains(QLatin1String(heavy))) << heavy << '\n' << libs.toStdString();
}
