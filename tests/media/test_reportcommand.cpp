// "quorvel --report FILE" run as users run it, with no display at all.
#include "media/ffmpegprobe.h"
#include "support/mediagen.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace quorvel;

namespace {

struct ToolRun {
    int code = -1;
    QString out;
    QString err;
};

ToolRun report(const QString &file)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(u"DISPLAY"_qs);
    env.remove(u"WAYLAND_DISPLAY"_qs);
    env.remove(u"QT_QPA_PLATFORM"_qs);
    p.setProcessEnvironment(env);
    p.start(test::programDir() + u"/quorvel"_qs, {u"--report"_qs, file});
    ToolRun r;
    if (!p.waitForStarted(-1))
        return r;
    p.waitForFinished(-1);
    r.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

} // namespace

TEST(ReportCommand, PrintsTheKeptReportOrTheRefusal)
{
    const QString clip = test::makeClip(u"report-clip.mp4"_qs, 3);
    ASSERT_FALSE(clip.isEmpty());
    const ProbeResult probed = FfmpegProbe(LoadMediaTables(test::programDir() + u'/')).probe(clip);
    ASSERT_TRUE(probed.ok);

    const ToolRun ok = report(clip);
    EXPECT_EQ(ok.code, 0) << ok.err.toStdString();
    EXPECT_EQ(ok.out, probed.mediaInfo + u'\n');
    // Codec names come from the maps beside the program.
    EXPECT_TRUE(ok.out.contains(u"Compression : "_qs));
    EXPECT_FALSE(ok.out.contains(u"Compression : h264"_qs));

    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString text = dir.filePath(u"not a movie.mp4"_qs);
    QFile f(text);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("plain words\n");
    f.close();
    const ToolRun refused = report(text);
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(refused.out.isEmpty());
    EXPECT_TRUE(refused.err.contains(u"Unsupported file format or the file is corrupted."_qs)) << refused.err.toStdString();

    // A pipe never ends a probe: it is refused, not waited for.
    const QString fifo = dir.filePath(u"fifo.mp3"_qs);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const ToolRun pipe = report(fifo);
    EXPECT_EQ(pipe.code, 1);
    EXPECT_TRUE(pipe.err.contains(kNotAFile)) << pipe.err.toStdString();

    // Cover art is no video: one audio stream.
    const QString song = test::makeMedia(
        u"report-cover.mp3"_qs,
        {u"-f"_qs, u"lavfi"_qs, u"-i"_qs, u"sine=frequency=330:duration=2"_qs, u"-f"_qs, u"lavfi"_qs, u"-i"_qs,
         u"testsrc2=size=120x90:rate=1:duration=1"_qs, u"-map"_qs, u"0:a"_qs, u"-map"_qs, u"1:v"_qs, u"-frames:v"_qs,
         u"1"_qs, u"-c:v"_qs, u"png"_qs, u"-disposition:v"_qs, u"attached_pic"_qs});
    const ToolRun cover = report(song);
    EXPECT_EQ(cover.code, 0) << cover.err.toStdString();
    EXPECT_TRUE(cover.out.contains(u"Stream 0 (Audio)"_qs)) << cover.out.toStdString();
    EXPECT_FALSE(cover.out.contains(u"Stream 1"_qs)) << cover.out.toStdString();
    EXPECT_FALSE(cover.out.contains(u"(Video)"_qs)) << cover.out.toStdString();
}
