#include "xvfb.h"

#include "mediagen.h"

namespace quorvel::test {

XvfbServer::XvfbServer(int width, int height) : m_process(std::make_unique<QProcess>())
{
    // -displayfd 1: the server picks a free display and prints its number.
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(u"Xvfb"_qs, {u"-displayfd"_qs, u"1"_qs, u"-screen"_qs, u"0"_qs,
                                  u"%1x%2x24"_qs.arg(width).arg(height), u"-nolisten"_qs, u"tcp"_qs, u"-noreset"_qs});
    while (!m_process->canReadLine() && m_process->waitForReadyRead(30000)) {
    }
    const QByteArray number = m_process->readLine().trimmed();
    if (!number.isEmpty())
        m_display = u":"_qs + QString::fromLatin1(number);
}

XvfbServer::~XvfbServer()
{
    // Asked to end first; the process object kills it if it does not.
    m_process->terminate();
    m_process->waitForFinished(5000);
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
