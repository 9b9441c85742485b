#include "sessionbus.h"

#include "waituntil.h"

namespace quorvel::test {

SessionBus::SessionBus()
{
    m_daemon.start(QStringLiteral("dbus-daemon"), {u"--session"_qs, u"--nofork"_qs, u"--print-address=1"_qs});
    waitUntil([&] { return m_daemon.canReadLine() || m_daemon.state() == QProcess::NotRunning; });
    m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_address.toUtf8());
}

SessionBus::~SessionBus()
{
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    m_daemon.terminate();
    m_daemon.waitForFinished(5000);
}

} // namespace quorvel::test
