// Times a later start handing a file to the running player, from its launch
// until it ends (it ends once the player has the file), as a ratio to a bare
// Qt core program that starts and ends, measured in turn in the same run.
#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/xvfb.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace quorvel::test;

namespace {

// Milliseconds from launch to exit, or -1 when the program failed.
double timeRun(const QString &program, const QStringList &args, const QProcessEnvironment &env)
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    QElapsedTimer clock;
    clock.start();
    p.start(program, args);
    if (!p.waitForFinished(30000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0) {
        std::fprintf(stderr, "%s failed: %s\n", qPrintable(program), p.readAll().constData());
        return -1;
    }
    return double(clock.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? -1 : v[v.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 15;
    XvfbServer x;
    if (!x.isRunning()) {
        std::fprintf(stderr, "Xvfb did not start\n");
        return 1;
    }
    Sandbox box;
    QuorvelProcess running(box, x.display());
    running.start({});
    if (!running.waitForLog(QStringLiteral("running instance ready")).hasMatch()) {
        std::fprintf(stderr, "the player did not start:\n%s\n", qPrintable(running.log()));
        return 1;
    }
    const QString clip = box.path(QStringLiteral("handed.mp4"));
    QFile::copy(makeClip(QStringLiteral("bench-handoff.mp4"), 2, QStringLiteral("320x240")), clip);

    QProcessEnvironment env = box.environment(x.display());
    env.remove(QStringLiteral("QT_LOGGING_RULES"));
    std::vector<double> bare, ours;
    bool failed = false;
    for (int i = 0; i < rounds && !failed; ++i) {
        const double b = timeRun(QStringLiteral(BARE_QT_PATH), {}, env);
        const double o = timeRun(box.program(), {clip}, env);
        failed = b < 0 || o < 0;
        bare.push_back(b);
        ours.push_back(o);
    }
    running.terminate();
    running.waitForExit();
    if (failed)
        return 1;
    const double b = median(bare), o = median(ours);
    std::printf("hand-off until acknowledged: quorvel %.1f ms, bare Qt core %.1f ms, ratio %.2f\n", o, b, o / b);
    std::printf("(median of %d runs each, alternating)\n", rounds);
    return 0;
}
