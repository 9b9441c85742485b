#pragma once
// Restarting and powering off the computer, asked of the system's login
// manager. Behind an interface so tests never touch the real machine.

#include <QString>

namespace quorvel {

class PowerControl {
public:
    virtual ~PowerControl() = default;
    virtual void reboot() = 0;
    virtual void powerOff() = 0;
};

// Asks logind over the system bus (org.freedesktop.login1). The request is
// sent without waiting; a refusal is logged, the program goes on.
class LogindPowerControl final : public PowerControl {
public:
    void reboot() override { request(QStringLiteral("Reboot")); }
    void powerOff() override { request(QStringLiteral("PowerOff")); }

private:
    static void request(const QString &method);
};

} // namespace quorvel
