// Adds 100 generated clips to a playlist through the real probe and prints
// the time as a ratio to running, one file after another, the two ffmpeg
// commands a probe needs (the report and one frame), in the same run. Also
// prints the longest time the event loop waited while the files went in.
#include "common/notifier.h"
#include "common/paths.h"
#include "media/ffmpegprobe.h"
#include "playlist/playlist.h"
#include "support/mediagen.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

using namespace quorvel;

namespace {

struct SilentNotifier final : MessageNotifier {
    void notify(Icon, const QString &) override {}
};

void runTool(const QStringList &args)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(QStringLiteral("ffmpeg"), args);
    p.waitForFinished(60000);
    p.readAll();
}

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

    // Baseline: the two commands for each file, one after another.
    QElapsedTimer clock;
    clock.start();
    for (const QString &f : files) {
        runTool({QStringLiteral("-hide_banner"), QStringLiteral("-i"), f});
        runTool({QStringLiteral("-hide_banner"), QStringLiteral("-loglevel"), QStringLiteral("error"),
                 QStringLiteral("-ss"), QStringLiteral("0.3"), QStringLiteral("-i"), f, QStringLiteral("-vframes"),
                 QStringLiteral("1"), QStringLiteral("-s"), QStringLiteral("90x68"), QStringLiteral("-y"),
                 dir.filePath(QStringLiteral("frame.jpg"))});
    }
    const qint64 baseline = clock.elapsed();

    // The playlist's way: probes on two worker threads, commits in order.
    MemoryThumbList list;
    FfmpegProbe probe(LoadMediaTables(test::programDir() + u'/'));
    SilentNotifier notifier;
    Playlist playlist(list, probe, notifier);
    qint64 longestWait = 0;
    QElapsedTimer beat;
    QTimer heart;
    heart.setInterval(5);
    QObject::connect(&heart, &QTimer::timeout, [&] {
        longestWait = qMax(longestWait, beat.restart());
    });
    clock.restart();
    beat.start();
    heart.start();
    int done = 0;
    for (const QString &f : files)
        playlist.LoadThumb(GetFileTitle(f), f, false, false, [&done] { ++done; });
    while (done < files.size())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    const qint64 ours = clock.elapsed();
    heart.stop();

    std::printf("adding %lld clips: quorvel %lld ms, tools one after another %lld ms, ratio %.2f (goal 0.25)\n",
                static_cast<long long>(files.size()), static_cast<long long>(ours), static_cast<long long>(baseline),
                baseline > 0 ? double(ours) / baseline : 0.0);
    std::printf("entries %d; longest wait of the event loop while adding: %lld ms\n", playlist.count(),
                static_cast<long long>(longestWait));
    return playlist.count() == files.size() ? 0 : 1;
}
