#include "playback/systempower.h"
#include "support/qstringprint.h"
#include "support/waituntil.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <gtest/gtest.h>
#include <optional>

using namespace quorvel;
using namespace quorvel::playback;

namespace {

// A stand-in login manager on a private bus: answers the Can* questions
// with a scripted value and records the requests it receives.
class FakeLogin1 : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    QString answer = QStringLiteral("yes");
    QStringList calls;

public slots:
    QString CanReboot() { return (calls << QStringLiteral("CanReboot"), answer); }
    QString CanPowerOff() { return (calls << QStringLiteral("CanPowerOff"), answer); }
    void Reboot(bool interactive) { calls << QStringLiteral("Reboot(%1)").arg(interactive); }
    void PowerOff(bool interactive) { calls << QStringLiteral("PowerOff(%1)").arg(interactive); }
};

// A private message bus for the test's own lifetime.
struct PrivateBus {
    PrivateBus()
    {
        daemon.start(QStringLiteral("dbus-daemon"), {u"--session"_qs, u"--nofork"_qs, u"--print-address=1"_qs});
        if (test::waitUntil([&] { return daemon.canReadLine() || daemon.state() == QProcess::NotRunning; }))
            address = QString::fromUtf8(daemon.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        for (const QString &name : names)
            QDBusConnection::disconnectFromBus(name);
        daemon.kill();
        daemon.waitForFinished();
    }
    QDBusConnection connect(const QString &name)
    {
        names << name;
        return QDBusConnection::connectToBus(address, name);
    }
    QProcess daemon;
    QString address;
    QStringList names;
};

// Asks to reboot or power off and runs the event loop until the request
// reports back; whether it was made.
bool requested(LogindPower &power, bool reboot)
{
    std::optional<bool> ok;
    QObject::connect(&power, &LogindPower::finished, [&](const QString &, bool made) { ok = made; });
    reboot ? power.reboot() : power.powerOff();
    EXPECT_TRUE(test::waitUntil([&] { return ok.has_value(); }));
    return ok.value_or(false);
}

} // namespace

// Asks first, then requests without a password prompt; a refusal, a bus
// without a login manager or no bus at all ends in a report, never a throw.
TEST(LogindPower, AsksFirstThenRequestsWithoutPromptOnAPrivateBus)
{
    PrivateBus bus;
    ASSERT_FALSE(bus.address.isEmpty()) << "dbus-daemon did not start";
    LogindPower lonely(bus.connect(QStringLiteral("lonely")));
    EXPECT_FALSE(requested(lonely, true));
    LogindPower nowhere(QDBusConnection(QStringLiteral("never-connected")));
    EXPECT_FALSE(requested(nowhere, false));

    QDBusConnection serviceSide = bus.connect(QStringLiteral("login1-side"));
    FakeLogin1 login1;
    ASSERT_TRUE(serviceSide.registerObject(QStringLiteral("/org/freedesktop/login1"), &login1,
                                           QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(serviceSide.registerService(QStringLiteral("org.freedesktop.login1")));
    // "challenge" would need a password prompt: it stops at the question.
    const struct {
        bool reboot;
        const char *answer;
        QStringList calls;
    } cases[] = {
        {true, "yes", {"CanReboot", "Reboot(0)"}},
        {false, "yes", {"CanPowerOff", "PowerOff(0)"}},
        {false, "challenge", {"CanPowerOff"}},
    };
    int n = 0;
    for (const auto &c : cases) {
        login1.calls.clear();
        login1.answer = QString::fromLatin1(c.answer);
        LogindPower power(bus.connect(QStringLiteral("player-%1").arg(++n)));
        EXPECT_EQ(requested(power, c.reboot), c.calls.size() == 2) << c.answer;
        EXPECT_EQ(login1.calls, c.calls) << c.answer;
    }
}

#include "test_logindpower.moc"
