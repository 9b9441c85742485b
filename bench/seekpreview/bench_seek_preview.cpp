// How long the seek bar's preview takes to show the exact frame for a time
// nobody has asked for before, against the ffmpeg tool writing one frame at
// that time, on a 60 s 1080p H.264 clip with a key frame every 2 s. Each of
// 20 random times (fixed seed) lies in a 2 s stretch of its own, so every
// answer needs a decode. The last line is "ratio R": median preview time /
// median tool time (goal 0.1 or less).
#include "benchtiming.h"
#include "media/framegrabber.h"
#include "media/processrunner.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>
#include <random>

using namespace quorvel;
using bench::RunTool;

namespace {

// Milliseconds of the median and the 95th percentile (nearest rank).
std::pair<double, double> spread(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    const size_t p95 = std::max<size_t>(1, size_t(std::ceil(0.95 * double(v.size())))) - 1;
    return {v[v.size() / 2], v[p95]};
}

// Asks for `ms` and waits for its answer; returns the milliseconds taken.
double timeRequest(FrameGrabber &g, const QString &clip, qint64 ms, PreviewFrame *answer)
{
    QEventLoop loop;
    const auto c = QObject::connect(&g, &FrameGrabber::frameReady, &loop, [&](const PreviewFrame &f) {
        if (f.requestedMs == ms) {
            *answer = f;
            loop.quit();
        }
    });
    QElapsedTimer t;
    t.start();
    g.request(clip, ms);
    loop.exec();
    const double taken = double(t.nsecsElapsed()) / 1e6;
    QObject::disconnect(c);
    return taken;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString ffmpeg = ToolPath(QStringLiteral("ffmpeg"));
    const QString clip = dir.filePath(QStringLiteral("clip-1080p.mp4"));
    std::printf("making the 60 s 1080p clip...\n");
    std::fflush(stdout);
    const QString make = u"-hide_banner -loglevel error -y -f lavfi -i testsrc2=size=1920x1080:rate=25:duration=60 "
                         u"-c:v libx264 -preset ultrafast -g 50 -keyint_min 50 -sc_threshold 0 "
                         u"-force_key_frames expr:gte(t,n_forced*2) -pix_fmt yuv420p"_qs;
    if (RunTool(ffmpeg, make.split(u' ') << clip) != 0) {
        std::fprintf(stderr, "could not make the clip\n");
        return 1;
    }

    // 20 of the 30 two-second stretches, a random time in each.
    std::mt19937 random(20);
    std::vector<int> stretches(30);
    std::iota(stretches.begin(), stretches.end(), 0);
    std::shuffle(stretches.begin(), stretches.end(), random);
    std::uniform_int_distribution<int> within(100, 1900);
    std::vector<qint64> times;
    for (int i = 0; i < 20; ++i)
        times.push_back(stretches[i] * 2000 + within(random));

    FrameGrabber grabber;
    PreviewFrame f;
    const double first = timeRequest(grabber, clip, stretches[20] * 2000 + 1000, &f);
    std::printf("opening the file and its first frame: %.1f ms (once per file, not in the numbers below)\n", first);

    std::vector<double> preview, tool;
    int wrong = 0;
    for (const qint64 ms : times) {
        preview.push_back(timeRequest(grabber, clip, ms, &f));
        if (f.kind != PreviewFrame::Frame || f.keyframeMs != ms / 2000 * 2000 || f.image.width() != 160)
            ++wrong;
        QElapsedTimer t;
        t.start();
        RunTool(ffmpeg, {u"-hide_banner"_qs, u"-loglevel"_qs, u"error"_qs, u"-y"_qs, u"-ss"_qs,
                         QString::number(double(ms) / 1000.0, 'f', 3), u"-i"_qs, clip, u"-frames:v"_qs, u"1"_qs,
                         u"-f"_qs, u"image2"_qs, dir.filePath(u"out.jpg"_qs)});
        tool.push_back(double(t.nsecsElapsed()) / 1e6);
        std::printf("  %6lld ms: preview %7.1f ms (key frame %lld), tool %7.1f ms\n", (long long)ms, preview.back(),
                    (long long)f.keyframeMs, tool.back());
    }
    const auto [previewMedian, preview95] = spread(preview);
    const auto [toolMedian, tool95] = spread(tool);
    std::printf("preview, exact frame with nothing kept: median %.1f ms, 95th percentile %.1f ms\n", previewMedian,
                preview95);
    std::printf("ffmpeg -ss T -i clip -frames:v 1: median %.1f ms, 95th percentile %.1f ms\n", toolMedian, tool95);
    const double cachedNs = bench::Measure(
        [&](int i) {
            const PreviewFrame kept = grabber.nearestCached(clip, qint64(i) * 7919 % 60000);
            if (kept.image.isNull())
                ++wrong;
        },
        1000);
    std::printf("a kept frame (nearestCached) takes %.0f ns; one repaint at 60 Hz is 16,666,667 ns\n", cachedNs);
    if (wrong)
        std::printf("%d answers were not the expected key frame\n", wrong);
    std::printf("ratio %.3f\n", previewMedian / toolMedian);
    return wrong == 0 ? 0 : 1;
}
