// "quorvel --report FILE" run as users run it, with no display at all.
#include "media/ffmpegprobe.h"
#include "support/mediagen.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

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
    EXPECT_FALSE(ok.out.contains(u"Compression : h264"_qs)) << "codec names from the maps beside the program";

    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString text = dir.filePath(u"not a movie.mp4"_qs);
    QFile f(text);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("plain words\n") > 0);
    f.close();
    const ToolRun refused = report(text);
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(refused.out.isEmpty());
    EXPECT_TRUE(refused.err.contains(u"Unsupported file format or the file is corrupted."_qs))
        << refused.err.toStdString();
}
