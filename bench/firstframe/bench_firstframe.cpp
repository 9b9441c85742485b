// Time from process start to the first video frame on screen, as a ratio to
// mpv started on the same clip under the same X server in the same run.
//
// The clip is a bright test pattern, so its first frame is told apart from
// everything else on screen (the root window's grey weave, the player's dark
// skin, logo and thumbnail, a black video surface) by its magenta and yellow
// bars. The whole screen is read back (XGetImage) in a tight loop from the
// moment the process is started. For Quorvel the program's own trace splits
// the time into start-up (until the item starts), the engine's opening
// (until it reports playing) and the video output (until the picture shows).
// With FIRSTFRAME_SHOTS set to a folder, the screen at each detection is saved
// there, to check what was taken for the first frame.
#include "../benchtiming.h"
#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/xvfb.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

using namespace quorvel::test;

namespace {

using quorvel::bench::median;
using quorvel::bench::monotonicMs;
using quorvel::bench::stamp;

// Pixels of the test pattern's magenta and yellow bars. The player's own
// window shows blue and white, and its playlist a thumbnail of the clip far
// smaller than any picture of the video.
int patternPixels(Display *dpy)
{
    const Window root = DefaultRootWindow(dpy);
    XWindowAttributes a;
    XGetWindowAttributes(dpy, root, &a);
    XImage *img = XGetImage(dpy, root, 0, 0, a.width, a.height, AllPlanes, ZPixmap);
    if (!img)
        return 0;
    int count = 0;
    for (int y = 0; y < img->height; y += 4) {
        const auto *row = reinterpret_cast<const unsigned char *>(img->data + y * img->bytes_per_line);
        for (int x = 0; x < img->width; x += 4) {
            const unsigned char *p = row + 4 * x; // 24-bit depth, 32 bits per pixel: B, G, R
            const bool magenta = p[2] > 200 && p[0] > 200 && p[1] < 60;
            const bool yellow = p[2] > 200 && p[1] > 200 && p[0] < 60;
            if (magenta || yellow)
                ++count;
        }
    }
    XDestroyImage(img);
    return count;
}

// Sampled pixels (every fourth row and column) that make a frame: about a
// third of the two bars of the picture in the player's default window, ten
// times what its playlist thumbnail holds.
constexpr int kFrameThreshold = 200;

struct Run {
    qint64 toFrame = -1;
    QString log;
};

// Starts `program` and reads the screen until the pattern shows; `trace` is
// the file the program's output goes to, read once it has been stopped.
Run timeToFrame(const XvfbServer &x, Display *dpy, QProcess &p, const QString &program, const QStringList &args,
                const QString &trace = {})
{
    Run r;
    const qint64 t0 = monotonicMs();
    p.start(program, args);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 20000) {
        if (patternPixels(dpy) >= kFrameThreshold) {
            r.toFrame = monotonicMs() - t0;
            break;
        }
        // A short rest between reads leaves the two cores to the player.
        QThread::usleep(5000);
    }
    if (!qEnvironmentVariableIsEmpty("FIRSTFRAME_SHOTS"))
        x.screenshot(qEnvironmentVariable("FIRSTFRAME_SHOTS") + u'/' + QFileInfo(program).fileName()
                     + QStringLiteral(".png"));
    p.kill();
    p.waitForFinished(5000);
    if (QFile f(trace); !trace.isEmpty() && f.open(QIODevice::ReadOnly))
        r.log = QString::fromUtf8(f.readAll());
    // The screen must be clear again before the next program starts.
    for (int i = 0; i < 200 && patternPixels(dpy) >= kFrameThreshold; ++i)
        p.waitForFinished(10);
    return r;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 7;
    const QString mpv = QStandardPaths::findExecutable(QStringLiteral("mpv"));
    if (mpv.isEmpty()) {
        std::fprintf(stderr, "mpv is not installed: run bench/firstframe/run.sh\n");
        return 1;
    }
    XvfbServer x;
    if (!x.isRunning()) {
        std::fprintf(stderr, "Xvfb did not start\n");
        return 1;
    }
    Display *dpy = XOpenDisplay(x.display().toLocal8Bit().constData());
    if (!dpy) {
        std::fprintf(stderr, "cannot open %s\n", qPrintable(x.display()));
        return 1;
    }
    const QString clip = makeMedia(QStringLiteral("bench-firstframe.mp4"),
                                   {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                                    QStringLiteral("testsrc=size=640x360:rate=25:duration=10"), QStringLiteral("-f"),
                                    QStringLiteral("lavfi"), QStringLiteral("-i"),
                                    QStringLiteral("sine=frequency=440:duration=10"), QStringLiteral("-shortest"),
                                    QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p")});
    std::vector<qint64> theirs, ours, ourStart, ourOpen, ourVout;
    for (int i = 0; i < rounds; ++i) {
        {
            Sandbox box;
            QProcess p;
            p.setProcessEnvironment(box.environment(x.display()));
            p.setStandardOutputFile(QProcess::nullDevice());
            p.setStandardErrorFile(QProcess::nullDevice());
            theirs.push_back(timeToFrame(x, dpy, p, mpv, {QStringLiteral("--no-config"), clip}).toFrame);
        }
        {
            Sandbox box;
            QProcess p;
            p.setProcessEnvironment(box.environment(x.display()));
            // The trace goes to a file: a full pipe would stall the program.
            p.setProcessChannelMode(QProcess::MergedChannels);
            const QString trace = box.path(QStringLiteral("trace.log"));
            p.setStandardOutputFile(trace);
            const qint64 t0 = monotonicMs();
            const Run r = timeToFrame(x, dpy, p, box.program(), {clip}, trace);
            ours.push_back(r.toFrame);
            const qint64 started = stamp(r.log, QStringLiteral("started \""));
            const qint64 playing = stamp(r.log, QStringLiteral("engine playing"));
            if (r.toFrame >= 0 && started > 0 && playing > 0) {
                ourStart.push_back(started - t0);
                ourOpen.push_back(playing - started);
                ourVout.push_back(t0 + r.toFrame - playing);
            }
        }
    }
    XCloseDisplay(dpy);
    const qint64 q = median(ours), m = median(theirs);
    std::printf("first video frame: quorvel %lld ms, mpv %lld ms, ratio %.2f\n", static_cast<long long>(q),
                static_cast<long long>(m), m > 0 && q > 0 ? double(q) / m : 0.0);
    std::printf("quorvel: start-up to item start %lld ms, engine opening %lld ms, playing to picture %lld ms\n",
                static_cast<long long>(median(ourStart)), static_cast<long long>(median(ourOpen)),
                static_cast<long long>(median(ourVout)));
    std::printf("(median of %d runs each, alternating)\n", rounds);
    return q > 0 && m > 0 ? 0 : 1;
}
