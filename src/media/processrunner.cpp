#include "processrunner.h"

#include "common/paths.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace quorvel {

namespace {
// A tool that has not finished after this long is stuck on a broken file.
constexpr int kToolLimitMs = 120000;
} // namespace

QString ToolPath(const QString &name)
{
    const QString beside = ProgramFolder() + name;
    if (QFileInfo(beside).isExecutable())
        return beside;
    const QString found = QStandardPaths::findExecutable(name);
    return found.isEmpty() ? name : found;
}

QString CommandLineText(const QString &program, const QStringList &arguments)
{
    QStringList parts{program};
    for (const QString &a : arguments)
        parts << (a.contains(u' ') ? u'"' + a + u'"' : a);
    return parts.join(u' ');
}

bool RunPiped(const QString &program, const QStringList &arguments, const QString &outputFile, const QString &workDir)
{
    QFile out(outputFile);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw ProcessError(kPipeError, QStringLiteral("Could not create pipe LastError %1").arg(int(out.error())));
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    if (!workDir.isEmpty())
        p.setWorkingDirectory(workDir);
    p.start(program, arguments, QIODevice::ReadOnly);
    if (!p.waitForStarted(30000)) {
        out.close();
        out.remove();
        throw ProcessError(kProcessError,
                           QStringLiteral("Could not create piped process. LastError %1").arg(int(p.error())));
    }
    out.write(CommandLineText(program, arguments).toUtf8() + "\r\n");
    // Copy as it comes, so a chatty tool never fills its pipe; waking on
    // data (not on a fixed tick) costs the tool no time at its end.
    QElapsedTimer clock;
    clock.start();
    while (p.state() != QProcess::NotRunning) {
        p.waitForReadyRead(250);
        out.write(p.readAll());
        if (clock.elapsed() > kToolLimitMs) {
            p.kill();
            p.waitForFinished();
            out.write(p.readAll());
            return false;
        }
    }
    p.waitForFinished();
    out.write(p.readAll()); // whatever arrived as the tool ended
    return out.error() == QFileDevice::NoError;
}

bool ShellExecuteWait(const QString &program, const QStringList &arguments)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.setStandardOutputFile(QProcess::nullDevice());
    p.start(program, arguments, QIODevice::ReadOnly);
    if (!p.waitForStarted(30000))
        return false;
    if (!p.waitForFinished(kToolLimitMs)) {
        p.kill();
        p.waitForFinished();
    }
    return true;
}

} // namespace quorvel
