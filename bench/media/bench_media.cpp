// How long adding 100 clips takes with the probe on two worker threads (as
// the playlist adds them), as a ratio to the baseline of this same run: the
// report command and the one-frame command of ffmpeg for each file, one file
// after another. Prints ratios only; no absolute limit.
#include "benchtiming.h"
#include "media/ffmpegprobe.h"
#include "media/processrunner.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>

#include <atomic>
#include <cstdio>

using namespace quorvel;
using bench::RunTool;

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int files = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100;
    QTemporaryDir dir;
    const QString ffmpeg = ToolPath(QStringLiteral("ffmpeg"));

    // Four kinds of clip, copied so that every file is probed on its own.
    const QStringList kinds{QStringLiteral("mp4"), QStringLiteral("mkv"), QStringLiteral("avi"), QStringLiteral("mp3")};
    QStringList paths;
    for (const QString &kind : kinds) {
        const QString master = dir.filePath(QStringLiteral("master.") + kind);
        QStringList args{QStringLiteral("-hide_banner"), QStringLiteral("-loglevel"), QStringLiteral("error"),
                         QStringLiteral("-y")};
        if (kind != u"mp3")
            args << QStringLiteral("-f") << QStringLiteral("lavfi") << QStringLiteral("-i")
                 << QStringLiteral("testsrc2=size=320x240:rate=25:duration=4");
        args << QStringLiteral("-f") << QStringLiteral("lavfi") << QStringLiteral("-i")
             << QStringLiteral("sine=duration=4") << QStringLiteral("-shortest") << master;
        if (RunTool(ffmpeg, args) != 0) {
            std::fprintf(stderr, "could not make the %s clip\n", qPrintable(kind));
            return 1;
        }
    }
    for (int i = 0; i < files; ++i) {
        const QString kind = kinds.at(i % kinds.size());
        const QString path = dir.filePath(QStringLiteral("clip %1.").arg(i, 3, 10, QChar(u'0')) + kind);
        QFile::copy(dir.filePath(QStringLiteral("master.") + kind), path);
        paths << path;
    }

    // Baseline: the report and one frame per file, one file after another.
    QElapsedTimer clock;
    clock.start();
    for (const QString &path : paths) {
        RunTool(ffmpeg, {QStringLiteral("-hide_banner"), QStringLiteral("-i"), path}); // exits 1: no output named
        if (!path.endsWith(u".mp3"))
            RunTool(ffmpeg, {QStringLiteral("-hide_banner"), QStringLiteral("-loglevel"), QStringLiteral("error"),
                             QStringLiteral("-ss"), QStringLiteral("0.4"), QStringLiteral("-i"), path,
                             QStringLiteral("-vframes"), QStringLiteral("1"), QStringLiteral("-s"),
                             QStringLiteral("90x68"), QStringLiteral("-f"), QStringLiteral("image2"),
                             QStringLiteral("-y"), dir.filePath(QStringLiteral("b.jpg"))});
    }
    const double baseline = double(clock.nsecsElapsed());

    // The probe on two worker threads, as the playlist adds files, with the
    // tools and with the libraries inside the process.
    int failed = 0;
    for (const ProbeEngine engine : {ProbeEngine::Tools, ProbeEngine::Libraries}) {
        FfmpegProbe probe{MediaTables{}, engine};
        QThreadPool pool;
        pool.setMaxThreadCount(2);
        std::atomic<int> good{0};
        clock.restart();
        QList<QFuture<void>> jobs;
        for (const QString &path : paths)
            jobs << QtConcurrent::run(&pool, [&probe, &good, path] {
                if (probe.probe(path).ok)
                    ++good;
            });
        for (auto &job : jobs)
            job.waitForFinished();
        const double pooled = double(clock.nsecsElapsed());
        const char *name = engine == ProbeEngine::Tools ? "tools" : "libraries";
        std::printf("%s: %d of %d files probed; 2 threads / sequential ffmpeg commands: %.3f (goal 0.25 or less)\n",
                    name, good.load(), files, pooled / baseline);
        failed += files - good.load();
    }
    return failed == 0 ? 0 : 1;
}
