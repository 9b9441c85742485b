#include "powercontrol.h"

#include "common/logging.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace quorvel {

void LogindPowerControl::request(const QString &method)
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) {
        qCWarning(lcPlayback) << "no system bus: cannot" << method;
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), method);
    // Not interactive: the program asks once and never shows a prompt.
    call << false;
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [method](QDBusPendingCallWatcher *w) {
        const QDBusPendingReply<> reply = *w;
        if (reply.isError())
            qCWarning(lcPlayback) << method << "was refused:" << reply.error().message();
        w->deleteLater();
    });
}

} // namespace quorvel
