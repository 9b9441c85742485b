#include "playback/systempower.h"
#include "support/qstringprint.h"
#include "support/waituntil.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <gtest/gtest.h>

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
class PrivateBus {
public:
    PrivateBus()
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
        if (!m_daemon.waitForStarted())
            return;
        while (!m_daemon.canReadLine() && m_daemon.state() == QProcess::Running)
            m_daemon.waitForReadyRead();
        address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus()
    {
        for (const QString &name : m_names)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    QDBusConnection connect(const QString &name)
    {
        m_names << name;
        return QDBusConnection::connectToBus(address, name);
    }
    QString address;

private:
    QProcess m_daemon;
    QStringList m_names;
};

// Runs the event loop until the power request reports back.
bool waitFinished(LogindPower &power, const QString &expectedAction)
{
    bool done = false, requested = false;
    QObject::connect(&power, &LogindPower::finished, [&](const QString &action, bool ok) {
        EXPECT_EQ(action, expectedAction);
        done = true;
        requested = ok;
    });
    EXPECT_TRUE(test::waitUntil([&] { return done; }));
    return requested;
}

} // namespace

TEST(LogindPower, AsksFirstThenRequestsWithoutPromptOnAPrivateBus)
{
    PrivateBus bus;
    ASSERT_FALSE(bus.address.isEmpty()) << "dbus-daemon did not start";
    QDBusConnection serviceSide = bus.connect(QStringLiteral("login1-side"));
    FakeLogin1 login1;
    ASSERT_TRUE(serviceSide.registerObject(QStringLiteral("/org/freedesktop/login1"), &login1,
                                           QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(serviceSide.registerService(QStringLiteral("org.freedesktop.login1")));

    // A refusal ("challenge" would need a password prompt) stops at the question.
    const struct {
        bool reboot;
        const char *answer;
        QStringList calls;
    } cases[] = {
        {true, "yes", {"CanReboot", "Reboot(0)"}},
        {false, "yes", {"CanPowerOff", "PowerOff(0)"}},
        {false, "no", {"CanPowerOff"}},
        {false, "challenge", {"CanPowerOff"}},
        {true, "na", {"CanReboot"}},
    };
    int n = 0;
    for (const auto &c : cases) {
        login1.calls.clear();
        login1.answer = QString::fromLatin1(c.answer);
        LogindPower power(bus.connect(QStringLiteral("player-%1").arg(++n)));
        c.reboot ? power.reboot() : power.powerOff();
        EXPECT_EQ(waitFinished(power, c.reboot ? u"Reboot"_qs : u"PowerOff"_qs), c.calls.size() == 2) << c.answer;
        EXPECT_EQ(login1.calls, c.calls) << c.answer;
    }
}

TEST(LogindPower, NoLoginManagerOrNoBusIsLoggedNotThrown)
{
    PrivateBus bus;
    ASSERT_FALSE(bus.address.isEmpty()) << "dbus-daemon did not start";
    // A bus without any login manager: the question fails, nothing else happens.
    LogindPower lonely(bus.connect(QStringLiteral("lonely")));
    lonely.reboot();
    EXPECT_FALSE(waitFinished(lonely, QStringLiteral("Reboot")));

    // No bus at all: reported at once.
    LogindPower nowhere(QDBusConnection(QStringLiteral("never-connected")));
    bool reported = false;
    QObject::connect(&nowhere, &LogindPower::finished, [&](const QString &, bool ok) { reported = !ok; });
    nowhere.powerOff();
    EXPECT_TRUE(reported);
}

#include "test_logindpower.moc"
