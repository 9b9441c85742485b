// "quorvel --report FILE" run as users run it, with no display at all.
#include "media/ffmpegprobe.h"
#include "support/files.h"
#include "support/mediagen.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(ReportCommand, PrintsTheKeptReportOrTheRefusal)
{
    const QString clip = test::makeClip(u"report-clip.mp4"_qs, 3);
    ASSERT_FALSE(clip.isEmpty());
    const ProbeResult probed = FfmpegProbe(LoadMediaTables(test::programDir() + u'/')).probe(clip);
    ASSERT_TRUE(probed.ok);
    QTemporaryDir dir;
    const QString text = dir.filePath(u"not a movie.mp4"_qs);
    ASSERT_TRUE(test::writeFile(text, "plain words\n"));

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"DISPLAY"_qs, u"WAYLAND_DISPLAY"_qs, u"QT_QPA_PLATFORM"_qs})
        env.remove(name);
    // The report the playlist keeps (codec names from the maps beside the
    // program), or the reason on stderr and status 1.
    const std::tuple<QString, int, QString, QString> cases[] = {
        {clip, 0, probed.mediaInfo + u'\n', {}},
        {text, 1, {}, u"Unsupported file format or the file is corrupted."_qs}};
    for (const auto &[file, code, wantOut, wantErr] : cases) {
        QProcess p;
        p.setProcessEnvironment(env);
        p.start(test::programDir() + u"/quorvel"_qs, {u"--report"_qs, file});
        ASSERT_TRUE(p.waitForFinished(-1)) << file.toStdString();
        const QString out = QString::fromUtf8(p.readAllStandardOutput());
        const QString err = QString::fromUtf8(p.readAllStandardError());
        EXPECT_EQ(std::pair(p.exitStatus(), p.exitCode()), std::pair(QProcess::NormalExit, code)) << err.toStdString();
        EXPECT_EQ(out, wantOut);
        EXPECT_TRUE(err.contains(wantErr)) << err.toStdString();
    }
    EXPECT_FALSE(probed.mediaInfo.contains(u"Compression : h264"_qs)) << "codec names from the maps";
}
