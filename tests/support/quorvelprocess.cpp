#include "quorvelprocess.h"

#include "mediagen.h"
#include "waituntil.h"

#include <QDir>
#include <QDirIterator>

namespace quorvel::test {

Sandbox::Sandbox()
{
    // The program, its player module and the data files it reads; not the build's own folders.
    const QString src = test::programDir(), dst = programDir();
    QDir().mkpath(dst);
    QDirIterator it(src, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString rel = QDir(src).relativeFilePath(it.next());
        const QString top = rel.section(u'/', 0, 0), suffix = it.fileInfo().suffix().toLower();
        const bool data = rel.contains(u'/')
                              ? (top == u"images" || top == u"icons" || top == u"help")
                              : QStringList{u"txt"_qs, u"jpg"_qs, u"png"_qs, u"html"_qs}.contains(suffix);
        if (data || rel == u"quorvel" || rel == u"libquorvel_player.so") {
            QDir().mkpath(QFileInfo(dst + u'/' + rel).path());
            QFile::copy(it.filePath(), dst + u'/' + rel);
        }
    }
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

QuorvelProcess::QuorvelProcess(const Sandbox &box, const QString &display) : m_process(std::make_unique<QProcess>())
{
    m_process->setProgram(box.program());
    m_process->setProcessEnvironment(box.environment(display));
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    m_logPath = m_logDir.filePath(QStringLiteral("trace.log"));
    m_process->setStandardOutputFile(m_logPath);
}

QuorvelProcess::~QuorvelProcess()
{
    // Ended the way a session ends a program, so it closes as it would for a
    // user and writes what it writes on the way out (settings, and coverage
    // counters in an instrumented build); killed only if it does not go.
    if (!isRunning())
        return;
    terminate();
    if (!m_process->waitForFinished(20000)) {
        kill();
        m_process->waitForFinished(5000);
    }
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

void QuorvelProcess::start(const QStringList &arguments)
{
    m_process->setArguments(arguments);
    m_process->start();
}

void QuorvelProcess::startShell(const QString &script)
{
    setEnv(QStringLiteral("QUORVEL"), m_process->program());
    m_process->setProgram(QStringLiteral("/bin/sh"));
    start({QStringLiteral("-c"), script});
}

QString QuorvelProcess::log() const
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

bool QuorvelProcess::waitForCount(const QString &text, int n, int timeoutMs)
{
    waitUntil([&] { return count(text) >= n || !isRunning(); }, std::chrono::milliseconds(timeoutMs));
    return count(text) >= n;
}

bool QuorvelProcess::waitForExit(int timeoutMs)
{
    return m_process->state() == QProcess::NotRunning || m_process->waitForFinished(timeoutMs);
}

} // namespace quorvel::test
