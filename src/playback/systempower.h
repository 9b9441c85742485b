#pragma once
// Restarting and powering off the computer. Behind `PowerControl` so that
// tests record the requests: no test may ever reach a real machine's power.
//
// `LogindPower` is what users get: it asks the login manager over the
// system bus (org.freedesktop.login1), first whether the action is allowed
// (CanReboot / CanPowerOff answer "yes"), then for the action itself with
// interactive = false, so the program never raises a password prompt. The
// calls are asynchronous; the window stays responsive and a refusal or a
// missing login manager is logged, never thrown and never shown.

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace quorvel::playback {

class PowerControl {
public:
    virtual ~PowerControl() = default;
    virtual void reboot() = 0;
    virtual void powerOff() = 0;
};

class LogindPower final : public QObject, public PowerControl {
    Q_OBJECT
public:
    // `bus` is the system bus for users; tests hand in a private bus that
    // carries a stand-in login manager.
    explicit LogindPower(const QDBusConnection &bus = QDBusConnection::systemBus(), QObject *parent = nullptr);

    void reboot() override;
    void powerOff() override;

signals:
    // After each request ran its course: `action` is "Reboot" or "PowerOff";
    // `requested` is true when the login manager accepted the request.
    void finished(const QString &action, bool requested);

private:
    void request(const QString &action);
    void send(const QString &action);

    QDBusConnection m_bus;
};

} // namespace quorvel::playback
