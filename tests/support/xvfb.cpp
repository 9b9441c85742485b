#include "xvfb.h"

#include "mediagen.h"

#include <QElapsedTimer>
#include <QThread>
#include <fcntl.h>
#include <unistd.h>

namespace quorvel::test {

XvfbServer::XvfbServer(int width, int height) : m_process(std::make_unique<QProcess>())
{
    // -displayfd lets the server pick a free display and tell us its number.
    int fds[2];
    if (pipe(fds) != 0)
        return;
    m_process->setChildProcessModifier([rfd = fds[0]] { ::close(rfd); });
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(QStringLiteral("Xvfb"),
                     {QStringLiteral("-displayfd"), QString::number(fds[1]), QStringLiteral("-screen"),
                      QStringLiteral("0"), QStringLiteral("%1x%2x24").arg(width).arg(height),
                      QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset")});
    ::close(fds[1]);
    if (!m_process->waitForStarted(10000)) {
        ::close(fds[0]);
        return;
    }
    QByteArray number;
    char c;
    while (::read(fds[0], &c, 1) == 1 && c != '\n')
        number += c;
    ::close(fds[0]);
    if (!number.isEmpty())
        m_display = QStringLiteral(":") + QString::fromLatin1(number);
}

XvfbServer::~XvfbServer()
{
    if (m_process->state() != QProcess::NotRunning) {
        m_process->terminate();
        if (!m_process->waitForFinished(5000)) {
            m_process->kill();
            m_process->waitForFinished();
        }
    }
}

QProcessEnvironment XvfbServer::environment() const
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), m_display);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    return env;
}

bool XvfbServer::screenshot(const QString &path) const
{
    QProcess p;
    p.setProcessEnvironment(environment());
    p.start(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"), path});
    return p.waitForFinished(30000) && p.exitCode() == 0;
}

} // namespace quorvel::test
