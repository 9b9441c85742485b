#include "quorvelprocess.h"

#include "mediagen.h"
#include "waituntil.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QThread>

namespace quorvel::test {

namespace {
void copyTree(const QString &from, const QString &to)
{
    QDir().mkpath(to);
    QDirIterator it(from, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString file = it.next();
        const QString rel = QDir(from).relativeFilePath(file);
        QDir().mkpath(QFileInfo(to + u'/' + rel).path());
        QFile::copy(file, to + u'/' + rel);
    }
}
} // namespace

Sandbox::Sandbox()
{
    const QString src = test::programDir();
    const QString dst = programDir();
    QDir().mkpath(dst);
    QFile::copy(src + QStringLiteral("/quorvel"), dst + QStringLiteral("/quorvel"));
    QFile::copy(src + QStringLiteral("/libquorvel_player.so"), dst + QStringLiteral("/libquorvel_player.so"));
    // The data files the program reads: everything but the build's own folders.
    const QDir dir(src);
    for (const QFileInfo &info : dir.entryInfoList(QDir::Files)) {
        const QString suffix = info.suffix().toLower();
        if (suffix == u"txt" || suffix == u"jpg" || suffix == u"png" || suffix == u"html")
            QFile::copy(info.filePath(), dst + u'/' + info.fileName());
    }
    for (const QString &sub : {QStringLiteral("images"), QStringLiteral("icons"), QStringLiteral("help")}) {
        if (dir.exists(sub))
            copyTree(src + u'/' + sub, dst + u'/' + sub);
    }
    QFile::remove(dst + QStringLiteral("/Config.cfg"));
    QDir().mkpath(homeDir());
    QDir().mkpath(path(QStringLiteral("runtime")));
    QFile::setPermissions(path(QStringLiteral("runtime")), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

QProcessEnvironment Sandbox::environment(const QString &display) const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), homeDir());
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), homeDir() + QStringLiteral("/.config"));
    env.insert(QStringLiteral("XDG_DATA_HOME"), homeDir() + QStringLiteral("/.local/share"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), path(QStringLiteral("runtime")));
    env.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("quorvel.*.debug=true"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    if (!display.isEmpty()) {
        env.insert(QStringLiteral("DISPLAY"), display);
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    }
    return env;
}

QuorvelProcess::QuorvelProcess(const Sandbox &sandbox, const QString &display) : m_process(std::make_unique<QProcess>())
{
    m_process->setProgram(sandbox.program());
    m_process->setProcessEnvironment(sandbox.environment(display));
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    m_logPath = m_logDir.filePath(QStringLiteral("trace.log"));
    m_process->setStandardOutputFile(m_logPath);
}

QuorvelProcess::~QuorvelProcess()
{
    if (isRunning()) {
        kill();
        m_process->waitForFinished(5000);
    }
}

void QuorvelProcess::setVariable(const QString &name, const QString &value)
{
    QProcessEnvironment env = m_process->processEnvironment();
    env.insert(name, value);
    m_process->setProcessEnvironment(env);
}

void QuorvelProcess::start(const QStringList &arguments)
{
    m_process->setArguments(arguments);
    m_process->start();
}

void QuorvelProcess::startShell(const QString &script)
{
    QProcessEnvironment env = m_process->processEnvironment();
    env.insert(QStringLiteral("QUORVEL"), m_process->program());
    m_process->setProcessEnvironment(env);
    m_process->setProgram(QStringLiteral("/bin/sh"));
    m_process->setArguments({QStringLiteral("-c"), script});
    m_process->start();
}

void QuorvelProcess::setEnv(const QString &name, const QString &value)
{
    QProcessEnvironment env = m_process->processEnvironment();
    if (value.isNull())
        env.remove(name);
    else
        env.insert(name, value);
    m_process->setProcessEnvironment(env);
}

bool QuorvelProcess::waitForStarted()
{
    return m_process->waitForStarted(10000);
}

QString QuorvelProcess::log()
{
    QFile f(m_logPath);
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

QRegularExpressionMatch QuorvelProcess::waitForLog(const QString &pattern, int timeoutMs)
{
    const QRegularExpression re(pattern, QRegularExpression::MultilineOption);
    QRegularExpressionMatch m;
    waitUntil([&] { return (m = re.match(log())).hasMatch() || !isRunning(); }, std::chrono::milliseconds(timeoutMs));
    // A program that has just ended may have written its last lines meanwhile.
    return m.hasMatch() ? m : re.match(log());
}

bool QuorvelProcess::waitForExit(int timeoutMs)
{
    const bool ok = m_process->state() == QProcess::NotRunning || m_process->waitForFinished(timeoutMs);
    log();
    return ok;
}

void QuorvelProcess::terminate()
{
    m_process->terminate();
}

void QuorvelProcess::kill()
{
    m_process->kill();
}

} // namespace quorvel::test
