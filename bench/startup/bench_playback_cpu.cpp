// What the window costs while it plays: the CPU time of the player during
// 20 seconds of a 720p clip, as a ratio to the bare libVLC program playing
// the same clip in a window of the same size, in the same run.
#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/xvfb.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>
#include <cstdio>
#include <unistd.h>

using namespace quorvel::test;

namespace {

// User plus system CPU seconds of a running process.
double cpuSeconds(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray line = stat.readAll();
    const QList<QByteArray> f = line.mid(line.lastIndexOf(')') + 2).split(' ');
    // Fields 14 and 15 of the file; the list starts at field 3.
    return (f.value(11).toDouble() + f.value(12).toDouble()) / double(sysconf(_SC_CLK_TCK));
}

double measure(const QString &program, const QStringList &args, const QProcessEnvironment &env, int seconds)
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setStandardOutputFile(QProcess::nullDevice());
    p.setStandardErrorFile(QProcess::nullDevice());
    p.start(program, args);
    if (!p.waitForStarted(10000))
        return -1;
    QThread::sleep(seconds);
    const double cpu = cpuSeconds(p.processId());
    p.kill();
    p.waitForFinished(5000);
    return cpu;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? qMax(2, atoi(argv[1])) : 20;
    XvfbServer x;
    if (!x.isRunning())
        return 1;
    const QString clip = makeMedia(
        QStringLiteral("bench-720p.mp4"),
        {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
         QStringLiteral("testsrc2=size=1280x720:rate=25:duration=%1").arg(seconds + 10), QStringLiteral("-f"),
         QStringLiteral("lavfi"), QStringLiteral("-i"), QStringLiteral("sine=duration=%1").arg(seconds + 10),
         QStringLiteral("-c:v"), QStringLiteral("libx264"), QStringLiteral("-preset"), QStringLiteral("ultrafast"),
         QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p"), QStringLiteral("-shortest")});
    Sandbox box;
    const QProcessEnvironment env = box.environment(x.display());
    const double bare = measure(QStringLiteral(BARE_VLC_PATH), {clip}, env, seconds);
    const double ours = measure(box.program(), {clip}, env, seconds);
    std::printf("CPU time for %d s of 720p: quorvel %.2f s, bare libVLC %.2f s, ratio %.2f\n", seconds, ours, bare,
                bare > 0 ? ours / bare : 0.0);
    return bare > 0 && ours > 0 ? 0 : 1;
}
