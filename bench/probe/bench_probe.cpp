// How well the window keeps answering while 100 files go into the playlist
// through the real probe: the longest wait of the event loop during the adds,
// as a ratio to its longest wait while idle for as long in the same run.
// (bench_media compares the probe's speed with the ffmpeg tool.)
#include "common/notifier.h"
#include "common/paths.h"
#include "media/ffmpegprobe.h"
#include "playlist/playlist.h"
#include "support/mediagen.h"
#include "support/memorythumblist.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

using namespace quorvel;

namespace {

struct SilentNotifier final : MessageNotifier {
    void notify(Icon, const QString &) override {}
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int count = argc > 1 ? qMax(10, atoi(argv[1])) : 100;
    QTemporaryDir dir;
    QStringList files;
    for (int i = 0; i < 10; ++i) {
        const QString clip = test::makeMedia(
            QStringLiteral("bench-probe-%1.mp4").arg(i),
            {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
             QStringLiteral("testsrc2=size=320x240:rate=25:duration=%1").arg(2 + i % 3), QStringLiteral("-f"),
             QStringLiteral("lavfi"), QStringLiteral("-i"), QStringLiteral("sine=duration=3"),
             QStringLiteral("-shortest"), QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p")});
        for (int k = 0; k < count / 10; ++k) {
            files << dir.filePath(QStringLiteral("clip %1-%2.mp4").arg(i).arg(k));
            QFile::copy(clip, files.last());
        }
    }

    // The playlist's way: probes on two worker threads, commits in order.
    test::MemoryThumbList list;
    FfmpegProbe probe(LoadMediaTables(test::programDir() + u'/'));
    SilentNotifier notifier;
    Playlist playlist(list, probe, notifier);
    qint64 longestWait = 0;
    QElapsedTimer beat;
    QTimer heart;
    heart.setInterval(5);
    QObject::connect(&heart, &QTimer::timeout, [&] { longestWait = qMax(longestWait, beat.restart()); });
    QElapsedTimer clock;
    clock.start();
    beat.start();
    heart.start();
    int done = 0;
    for (const QString &f : files)
        playlist.LoadThumb(GetFileTitle(f), f, false, false, [&done] { ++done; });
    while (done < files.size())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    const qint64 adding = clock.elapsed();
    const qint64 busyWait = longestWait;

    // Baseline: the same loop, idle for as long.
    longestWait = 0;
    clock.restart();
    beat.restart();
    while (clock.elapsed() < adding)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    heart.stop();
    const qint64 idleWait = qMax<qint64>(longestWait, 1);

    std::printf("adding %lld clips took %lld ms; %d entries\n", static_cast<long long>(files.size()),
                static_cast<long long>(adding), playlist.count());
    std::printf("longest event-loop wait: %lld ms while adding, %lld ms idle, ratio %.2f (budget 50 ms)\n",
                static_cast<long long>(busyWait), static_cast<long long>(idleWait), double(busyWait) / idleWait);
    return playlist.count() == files.size() ? 0 : 1;
}
