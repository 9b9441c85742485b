#include "playback/systempower.h"

#include "common/logging.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace quorvel::playback {

namespace {
const QString kService = QStringLiteral("org.freedesktop.login1");
const QString kPath = QStringLiteral("/org/freedesktop/login1");
const QString kInterface = QStringLiteral("org.freedesktop.login1.Manager");
} // namespace

LogindPower::LogindPower(const QDBusConnection &bus, QObject *parent) : QObject(parent), m_bus(bus) {}

void LogindPower::reboot()
{
    request(QStringLiteral("Reboot"));
}

void LogindPower::powerOff()
{
    request(QStringLiteral("PowerOff"));
}

void LogindPower::request(const QString &action)
{
    if (!m_bus.isConnected()) {
        qCWarning(lcPlayback) << "cannot" << action << "the computer: no connection to the message bus";
        emit finished(action, false);
        return;
    }
    const QDBusMessage ask = QDBusMessage::createMethodCall(kService, kPath, kInterface,
                                                            QStringLiteral("Can") + action);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(ask), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, action](QDBusPendingCallWatcher *w) {
        w->deleteLater();
        const QDBusPendingReply<QString> reply = *w;
        if (reply.isError()) {
            qCWarning(lcPlayback) << "cannot" << action << "the computer:" << reply.error().message();
            emit finished(action, false);
            return;
        }
        // "challenge" would need a password prompt, which the program never
        // raises; "no" and "na" are plain refusals.
        if (reply.value() != QLatin1String("yes")) {
            qCWarning(lcPlayback) << "the login manager does not allow" << action << "now:" << reply.value();
            emit finished(action, false);
            return;
        }
        send(action);
    });
}

void LogindPower::send(const QString &action)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, action);
    call << false; // interactive: no authentication prompt
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, action](QDBusPendingCallWatcher *w) {
        w->deleteLater();
        const QDBusPendingReply<> reply = *w;
        if (reply.isError())
            qCWarning(lcPlayback) << action << "was refused:" << reply.error().message();
        else
            qCInfo(lcPlayback) << action << "requested";
        emit finished(action, !reply.isError());
    });
}

} // namespace quorvel::playback
