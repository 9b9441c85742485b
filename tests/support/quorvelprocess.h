#pragma once
// Runs the real program for end-to-end tests: a private copy of the program
// folder (so "Config.cfg" and the settings store belong to the test), a
// private home and runtime folder, and a log of what the program traces.

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <memory>

namespace quorvel::test {

// A program folder and a user of its own.
class Sandbox {
public:
    Sandbox();
    QString programDir() const { return m_dir.path() + QStringLiteral("/program"); }
    QString program() const { return programDir() + QStringLiteral("/quorvel"); }
    QString configPath() const { return programDir() + QStringLiteral("/Config.cfg"); }
    QString homeDir() const { return m_dir.path() + QStringLiteral("/home"); }
    QString path(const QString &name) const { return m_dir.path() + u'/' + name; }
    // The environment a program of this sandbox runs in (on `display` when given).
    QProcessEnvironment environment(const QString &display = QString()) const;

private:
    QTemporaryDir m_dir;
};

class QuorvelProcess {
public:
    QuorvelProcess(const Sandbox &sandbox, const QString &display);
    ~QuorvelProcess();

    // For the next start: sets `name`, or removes it when `value` is null.
    void setEnv(const QString &name, const QString &value);
    void setWorkingDirectory(const QString &dir) { m_process->setWorkingDirectory(dir); }
    void start(const QStringList &arguments);
    // Runs `script` with /bin/sh instead, the program's path in $QUORVEL.
    void startShell(const QString &script);
    // Waits until the trace holds a line matching `pattern`; returns the match.
    QRegularExpressionMatch waitForLog(const QString &pattern, int timeoutMs = 30000);
    // Waits until `text` stands `count` times in the trace.
    bool waitForCount(const QString &text, int count, int timeoutMs = 60000);
    bool waitForExit(int timeoutMs = 30000);
    void terminate() { m_process->terminate(); }
    // Ends the program as a session does and waits for it.
    bool close() { return terminate(), waitForExit(); }
    void kill() { m_process->kill(); }
    QString log() const;
    int count(const QString &text) const { return int(log().count(text)); }
    int exitCode() const { return m_process->exitCode(); }
    qint64 pid() const { return m_process->processId(); }
    bool isRunning() const { return m_process->state() != QProcess::NotRunning; }

private:
    std::unique_ptr<QProcess> m_process;
    // The trace goes to a file: a pipe that nobody reads while the test
    // drives the window would fill up and stall the program.
    QTemporaryDir m_logDir;
    QString m_logPath;
};

} // namespace quorvel::test
