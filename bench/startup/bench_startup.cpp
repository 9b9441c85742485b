// Times two things users wait for, as ratios to a bare libVLC program doing
// the same on the same clip in the same run:
//  - from process start to the first painted window;
//  - from the item start to the engine's playing state.
// Runs each program several times in turn and compares medians.
#include "../benchtiming.h"
#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/xvfb.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace quorvel::test;

namespace {

using quorvel::bench::median;
using quorvel::bench::monotonicMs;
using quorvel::bench::stamp;

struct Sample {
    qint64 toPaint = -1;
    qint64 toPlaying = -1;
};

Sample measure(QProcess &p, qint64 launchedAt)
{
    QString log;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 30000) {
        p.waitForReadyRead(50);
        log += QString::fromUtf8(p.readAll());
        if (stamp(log, QStringLiteral("first paint")) > 0 && stamp(log, QStringLiteral("engine playing")) > 0)
            break;
    }
    p.kill();
    p.waitForFinished(5000);
    Sample s;
    const qint64 paint = stamp(log, QStringLiteral("first paint"));
    const qint64 started = stamp(log, QStringLiteral("started"));
    const qint64 playing = stamp(log, QStringLiteral("engine playing"));
    if (paint > 0)
        s.toPaint = paint - launchedAt;
    if (started > 0 && playing > 0)
        s.toPlaying = playing - started;
    return s;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 7;
    XvfbServer x;
    if (!x.isRunning()) {
        std::fprintf(stderr, "Xvfb did not start\n");
        return 1;
    }
    const QString clip = makeClip(QStringLiteral("bench-startup.mp4"), 10, QStringLiteral("640x360"));
    std::vector<qint64> barePaint, barePlay, ourPaint, ourPlay;
    for (int i = 0; i < rounds; ++i) {
        {
            Sandbox box;
            QProcess bare;
            bare.setProcessEnvironment(box.environment(x.display()));
            bare.setProcessChannelMode(QProcess::MergedChannels);
            const qint64 t0 = monotonicMs();
            bare.start(QStringLiteral(BARE_VLC_PATH), {clip});
            const Sample s = measure(bare, t0);
            barePaint.push_back(s.toPaint);
            barePlay.push_back(s.toPlaying);
        }
        {
            Sandbox box;
            QProcess ours;
            ours.setProcessEnvironment(box.environment(x.display()));
            ours.setProcessChannelMode(QProcess::MergedChannels);
            const qint64 t0 = monotonicMs();
            ours.start(box.program(), {clip});
            const Sample s = measure(ours, t0);
            ourPaint.push_back(s.toPaint);
            ourPlay.push_back(s.toPlaying);
        }
    }
    const qint64 bp = median(barePaint), op = median(ourPaint), bl = median(barePlay), ol = median(ourPlay);
    std::printf("start-up to first paint: quorvel %lld ms, bare libVLC %lld ms, ratio %.2f\n",
                static_cast<long long>(op), static_cast<long long>(bp), bp > 0 ? double(op) / bp : 0.0);
    std::printf("item start to playing:   quorvel %lld ms, bare libVLC %lld ms, ratio %.2f\n",
                static_cast<long long>(ol), static_cast<long long>(bl), bl > 0 ? double(ol) / bl : 0.0);
    std::printf("(median of %d runs each, alternating)\n", rounds);
    return (bp > 0 && op > 0 && bl > 0 && ol > 0) ? 0 : 1;
}
