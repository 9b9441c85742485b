#pragma once
// A private D-Bus session bus for one test: programs started after it (the
// player, playerctl, stand-in services) find it through
// DBUS_SESSION_BUS_ADDRESS, which it sets for this process.

#include <QProcess>
#include <QString>

namespace quorvel::test {

class SessionBus {
public:
    SessionBus();
    ~SessionBus();
    // Empty when dbus-daemon did not start.
    QString address() const { return m_address; }

private:
    QProcess m_daemon;
    QString m_address;
};

} // namespace quorvel::test
