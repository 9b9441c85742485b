// The program as a user meets it: starting with files, later starts handing
// theirs over, starts at the same moment, a hung instance, closing by signal.
#include "e2efixture.h"

#include <QUrl>
#include <csignal>

using namespace quorvel;
using namespace quorvel::test;

namespace {

QString clip()
{
    return makeClip(QStringLiteral("e2e-clip.mp4"), 6, QStringLiteral("320x240"));
}

// The files of the `added "..." as entry k` lines of a trace, in order (QDebug escapes quotes).
QStringList addedFiles(const QString &log)
{
    QStringList files;
    static const QRegularExpression re(traced(trace::kAdded, u" \"((?:[^\"\\\\]|\\\\.)*)\" "_qs)
                                       + traced(trace::kAsEntry));
    for (auto it = re.globalMatch(log); it.hasNext();)
        files << it.next().captured(1).replace(QStringLiteral("\\\""), QStringLiteral("\""));
    return files;
}

} // namespace

// Every argument is one file taken against the caller's folder; the first
// start plays the first, later starts only add theirs, whatever the names.
TEST_F(E2eTest, PlaysTheFirstFileAndLaterStartsHandTheirsOver)
{
    const QStringList names{u"a/t1.mp4"_qs, u"a/say \"hi\".mp4"_qs, u"b/-lead #2 ünï.mp4"_qs, u"b/uri file.mp4"_qs,
                            u"b/other, with 'odd' name.mkv"_qs};
    for (const QString &n : names)
        copyOf(clip(), n);
    auto running = launch({u"t1.mp4"_qs, u"say \"hi\".mp4"_qs, u"gone.mp4"_qs}, m_box.path(u"a"_qs));
    ASSERT_TRUE(running->waitForLog(traced(trace::kStarted, u" .*a/t1\\.mp4"_qs)).hasMatch())
        << running->log().toStdString();
    EXPECT_TRUE(running->waitForLog(traced(trace::kMessageShown, u".*a/gone\\.mp4"_qs)).hasMatch());
    ASSERT_TRUE(running->waitForLog(traced(trace::kTick, u"3 time=[2-9]\\d{3}"_qs)).hasMatch());

    // The window shows the video (the test picture is colourful, the idle
    // frame black) and is titled with the caption.
    const QImage image = shoot(QStringLiteral("startup-playing.png"));
    int colourful = 0;
    for (int y = 0; y < 515; y += 5)
        for (int x = 0; x < 388; x += 5)
            colourful += image.pixelColor(x, y).saturation() > 120 && image.pixelColor(x, y).value() > 120;
    EXPECT_GT(colourful, 100) << "no video visible";
    EXPECT_FALSE(xdo({u"search"_qs, u"--name"_qs, u"^Quorvel - \\(.*t1\\.mp4\\)$"_qs}).isEmpty());

    // From another folder: relative names, a name the list has, a file URI,
    // the add-only marker; then a name alone; then a start without files
    // (only checks the instance is alive); then a file that is no media.
    const QList<QStringList> later{{u"-lead #2 ünï.mp4"_qs, u"../a/t1.mp4"_qs,
                                    QUrl::fromLocalFile(m_box.path(u"b/uri file.mp4"_qs)).toString(), u"*Add"_qs},
                                   {u"other, with 'odd' name.mkv"_qs},
                                   {},
                                   {u"notes.txt"_qs}};
    for (const QStringList &args : later) {
        auto sender = launch(args, m_box.path(u"b"_qs));
        ASSERT_TRUE(sender->waitForExit());
        EXPECT_EQ(sender->exitCode(), 0) << sender->log().toStdString();
        EXPECT_EQ(sender->count(QString::fromLatin1(trace::kInstanceReady)), 0);
    }
    EXPECT_TRUE(running->waitForLog(traced(trace::kMessageShown, u".*t1\\.mp4.* is already in"_qs)).hasMatch());
    EXPECT_TRUE(running->waitForLog(traced(trace::kFoundRunning)).hasMatch());
    EXPECT_TRUE(running->waitForLog(traced(trace::kMessageShown, u".*b/notes\\.txt"_qs)).hasMatch())
        << running->log().toStdString();
    QStringList expected;
    for (const QString &n : names)
        expected << m_box.path(n);
    EXPECT_EQ(addedFiles(running->log()), expected) << running->log().toStdString();
    EXPECT_EQ(running->count(QString::fromLatin1(trace::kHandoffReceived)), 3);
    EXPECT_EQ(running->count(QString::fromLatin1(trace::kStarted) + u" \""_qs), 1); // handed-over files only wait

    // SIGTERM closes the window normally and writes the settings.
    ASSERT_TRUE(running->close());
    EXPECT_EQ(running->exitCode(), 0);
    EXPECT_TRUE(running->log().contains(QString::fromLatin1(trace::kClosed)));
    EXPECT_EQ(configLines().size(), 47);

    // With the add-only marker anywhere, a first start plays nothing.
    auto addOnly = launchInstance({m_box.path(names[0]), u"*Add"_qs, m_box.path(names[2])});
    EXPECT_TRUE(addOnly->waitForCount(QString::fromLatin1(trace::kAsEntry), 2)) << addOnly->log().toStdString();
    EXPECT_EQ(addOnly->count(QString::fromLatin1(trace::kStarted) + u" \""_qs), 0);
}

// As a file manager does with a selection: one process per file, all at once.
TEST_F(E2eTest, StartsAtTheSameMomentMakeOneWindowWithEveryFileInTurnOrder)
{
    constexpr int kStarts = 8;
    QString script = QStringLiteral("cd '%1' || exit 1; ").arg(m_box.path(QString()));
    for (int i = 0; i < kStarts; ++i) {
        copyOf(clip(), QStringLiteral("at once %1.mp4").arg(i));
        script += QStringLiteral("( \"$QUORVEL\" 'at once %1.mp4'; echo \"sender exit $?\" ) & ").arg(i);
    }
    auto shell = std::make_unique<QuorvelProcess>(m_box, x().display());
    shell->startShell(script + QStringLiteral("wait"));
    ASSERT_TRUE(shell->waitForCount(QStringLiteral("sender exit "), kStarts - 1)) << shell->log().toStdString();
    ASSERT_TRUE(shell->waitForCount(QString::fromLatin1(trace::kAsEntry), kStarts)) << shell->log().toStdString();
    const QString log = shell->log();
    EXPECT_EQ(log.count(QString::fromLatin1(trace::kInstanceReady)), 1) << log.toStdString();
    EXPECT_EQ(log.count(QStringLiteral("sender exit 0")), kStarts - 1) << log.toStdString();

    // The playlist holds the files in the order the starts got their turn.
    QMap<int, QString> byTurn;
    static const QRegularExpression turn(traced(trace::kNegotiating, u" (\\d+) files \\[\"([^\"]*)\"\\]"_qs));
    for (auto it = turn.globalMatch(log); it.hasNext();) {
        const auto m = it.next();
        byTurn.insert(m.captured(1).toInt(), m.captured(2));
    }
    ASSERT_EQ(byTurn.size(), kStarts) << log.toStdString();
    EXPECT_EQ(addedFiles(log), byTurn.values()) << log.toStdString();
    const auto ready = QRegularExpression(traced(trace::kInstanceReady, u" (\\d+)"_qs)).match(log);
    ASSERT_TRUE(ready.hasMatch());
    ::kill(static_cast<pid_t>(ready.captured(1).toLongLong()), SIGTERM);
    EXPECT_TRUE(shell->waitForExit());
}

// A start that finds the running instance hung says so and ends; it neither
// waits for it nor opens a second window.
TEST_F(E2eTest, AHungInstanceIsReported)
{
    const QString file = copyOf(clip(), QStringLiteral("to a hung one.mp4"));
    auto running = launchInstance({});
    ASSERT_EQ(::kill(static_cast<pid_t>(running->pid()), SIGSTOP), 0);
    auto sender = launch({file});
    const bool ended = sender->waitForExit(60000);
    ::kill(static_cast<pid_t>(running->pid()), SIGCONT);
    ASSERT_TRUE(ended);
    EXPECT_EQ(sender->exitCode(), 1);
    EXPECT_TRUE(sender->log().contains(u"does not answer; these files were not added: \""_qs + file))
        << sender->log().toStdString();
}

// On a Wayland session Qt goes to X11 straight away instead of trying the
// Wayland display first; and a later start, which only hands its files
// over, loads neither the window system nor libVLC nor ffmpeg.
TEST_F(E2eTest, WaylandSessionsAndALightDecidingProgram)
{
    auto q = std::make_unique<QuorvelProcess>(m_box, x().display());
    q->setEnv(QStringLiteral("QT_QPA_PLATFORM"), QString());
    q->setEnv(QStringLiteral("WAYLAND_DISPLAY"), m_box.path(QStringLiteral("runtime/wayland-gone")));
    q->setEnv(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
    q->start({copyOf(clip(), QStringLiteral("wayland.mp4"))});
    ASSERT_TRUE(q->waitForLog(traced(trace::kTick, u"3 time=[1-9]\\d{2,}"_qs)).hasMatch()) << q->log().toStdString();
    EXPECT_FALSE(q->log().contains(QStringLiteral("\"wayland\""))) << q->log().toStdString();
    EXPECT_TRUE(q->log().contains(QStringLiteral(" on \"xcb\"")));

    QString libs;
    ASSERT_EQ(runTool(QStringLiteral("ldd"), {m_box.programDir() + u"/quorvel"_qs}, &libs), 0);
    for (const char *heavy : {"libQt6Gui", "libQt6Widgets", "libvlc", "libavformat", "libavcodec"})
        EXPECT_FALSE(libs.contains(QLatin1String(heavy))) << heavy << '\n' << libs.toStdString();
}
