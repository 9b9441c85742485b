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
    const QStringList all = QStringList{u"-hide_banner"_qs, u"-loglevel"_qs, u"error"_qs, u"-y"_qs} + args
                            + QStringList{partial}; // its name keeps the extension that names the container
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
    return makeMedia(name,
                     u"-f lavfi -i testsrc2=size=%1:rate=25:duration=%2 -f lavfi -i sine=frequency=440:duration=%2 "
                     u"-shortest -pix_fmt yuv420p"_qs.arg(size, d));
}

QString makeDvdFolder(const QString &name, double seconds)
{
    const QString d = QString::number(seconds);
    const QString clip = makeMedia(name + u".mpg"_qs, u"-f lavfi -i testsrc2=size=720x480:rate=30000/1001:duration=%1 "
                                                      u"-f lavfi -i sine=frequency=440:duration=%1 -shortest "
                                                      u"-target ntsc-dvd -f dvd"_qs.arg(d));
    const QString folder = testMediaDir() + u'/' + name;
    QLockFile lock(folder + u".lock"_qs);
    lock.setStaleLockTime(0);
    lock.lock();
    if (clip.isEmpty() || QFileInfo::exists(folder + u"/VIDEO_TS/VIDEO_TS.IFO"_qs))
        return clip.isEmpty() ? QString() : folder;
    // dvdauthor adds the title, then writes the table of contents.
    const QString partial = testMediaDir() + u"/.partial-"_qs + name;
    QDir(partial).removeRecursively();
    const QStringList author{u"VIDEO_FORMAT=NTSC"_qs, u"dvdauthor"_qs, u"-o"_qs, partial};
    QString out;
    if (runTool(u"env"_qs, author + QStringList{u"-t"_qs, clip}, &out) != 0
        || runTool(u"env"_qs, author + QStringList{u"-T"_qs}, &out) != 0) {
        qWarning("dvdauthor failed for %s: %s", qPrintable(name), qPrintable(out));
        return {};
    }
    QDir().rename(partial, folder);
    return folder;
}

} // namespace quorvel::test
