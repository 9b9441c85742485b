#include "mediagen.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>

namespace quorvel::test {

QString testMediaDir()
{
    const QString dir = QStringLiteral(QUORVEL_TEST_MEDIA_DIR);
    QDir().mkpath(dir);
    return dir;
}

QString programDir()
{
    return QStringLiteral(QUORVEL_PROGRAM_DIR);
}

int runTool(const QString &program, const QStringList &args, QString *output, int timeoutMs)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    if (!p.waitForStarted(10000))
        return -1;
    p.closeWriteChannel();
    if (!p.waitForFinished(timeoutMs)) {
        p.kill();
        p.waitForFinished();
        return -1;
    }
    if (output)
        *output = QString::fromUtf8(p.readAll());
    return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
}

QString makeMedia(const QString &name, const QStringList &args)
{
    const QString path = testMediaDir() + u'/' + name;
    // Test binaries run in parallel under CTest; one of them makes a clip.
    QLockFile lock(path + QStringLiteral(".lock"));
    lock.setStaleLockTime(0);
    lock.lock();
    if (QFileInfo(path).size() > 0)
        return path;
    const QString partial = testMediaDir() + QStringLiteral("/.partial-") + name;
    QStringList all{QStringLiteral("-hide_banner"), QStringLiteral("-loglevel"), QStringLiteral("error"),
                    QStringLiteral("-y")};
    all << args;
    const QString ext = QFileInfo(name).suffix();
    if (!ext.isEmpty() && !args.contains(QStringLiteral("-f")))
        all << QStringLiteral("-f")
            << (ext == u"mkv"                    ? QStringLiteral("matroska")
                : ext == u"mpg"                  ? QStringLiteral("mpeg")
                : ext == u"wma" || ext == u"wmv" ? QStringLiteral("asf")
                : ext == u"m4a"                  ? QStringLiteral("mp4")
                                                 : ext);
    all << partial;
    QString out;
    if (runTool(QStringLiteral("ffmpeg"), all, &out) != 0) {
        qWarning("ffmpeg failed for %s: %s", qPrintable(name), qPrintable(out));
        QFile::remove(partial);
        return {};
    }
    QFile::remove(path);
    QFile::rename(partial, path);
    return path;
}

QString makeClip(const QString &name, double seconds, const QString &size)
{
    const QString d = QString::number(seconds);
    return makeMedia(name, {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                            QStringLiteral("testsrc2=size=%1:rate=25:duration=%2").arg(size, d), QStringLiteral("-f"),
                            QStringLiteral("lavfi"), QStringLiteral("-i"),
                            QStringLiteral("sine=frequency=440:duration=%1").arg(d), QStringLiteral("-shortest"),
                            QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p")});
}

QString makeDvdFolder(const QString &name, double seconds)
{
    const QString d = QString::number(seconds);
    const QString clip = makeMedia(name + QStringLiteral(".mpg"),
                                   {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                                    QStringLiteral("testsrc2=size=720x480:rate=30000/1001:duration=") + d,
                                    QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                                    QStringLiteral("sine=frequency=440:duration=") + d, QStringLiteral("-shortest"),
                                    QStringLiteral("-target"), QStringLiteral("ntsc-dvd"), QStringLiteral("-f"),
                                    QStringLiteral("dvd")});
    const QString folder = testMediaDir() + u'/' + name;
    QLockFile lock(folder + QStringLiteral(".lock"));
    lock.setStaleLockTime(0);
    lock.lock();
    if (clip.isEmpty() || QFileInfo::exists(folder + QStringLiteral("/VIDEO_TS/VIDEO_TS.IFO")))
        return clip.isEmpty() ? QString() : folder;
    // dvdauthor adds the title, then writes the table of contents.
    const QString partial = testMediaDir() + QStringLiteral("/.partial-") + name;
    QDir(partial).removeRecursively();
    const QStringList author{QStringLiteral("VIDEO_FORMAT=NTSC"), QStringLiteral("dvdauthor"), QStringLiteral("-o"),
                             partial};
    QString out;
    if (runTool(QStringLiteral("env"), author + QStringList{QStringLiteral("-t"), clip}, &out) != 0
        || runTool(QStringLiteral("env"), author + QStringList{QStringLiteral("-T")}, &out) != 0) {
        qWarning("dvdauthor failed for %s: %s", qPrintable(name), qPrintable(out));
        return {};
    }
    QDir().rename(partial, folder);
    return folder;
}

} // namespace quorvel::test
