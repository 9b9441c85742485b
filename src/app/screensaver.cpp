#include "screensaver.h"

#include "common/logging.h"
#include "playback/playbackstate.h"
#include "settings/settings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace quorvel {

namespace {
const QString kService = u"org.freedesktop.ScreenSaver"_qs;
// Most desktops answer on the first path; some only on the second.
const QString kPath = u"/org/freedesktop/ScreenSaver"_qs;
const QString kOtherPath = u"/ScreenSaver"_qs;
} // namespace

bool ScreenSaverHeldOff(const PlaybackState &state, bool hasVideo, std::int16_t DisableScreenSaver)
{
    return IsSet(DisableScreenSaver) && hasVideo && state.MediaLoaded && !state.IsStopped;
}

void ScreenSaverGuard::follow(bool holdOff)
{
    if (holdOff == m_holding)
        return;
    m_holding = holdOff;
    if (holdOff)
        m_service.inhibit();
    else
        m_service.uninhibit();
}

void ScreenSaverGuard::release()
{
    if (std::exchange(m_holding, false))
        m_service.uninhibit(true);
}

FreedesktopScreenSaver::FreedesktopScreenSaver(const QDBusConnection &bus, QObject *parent)
    : QObject(parent), m_bus(bus), m_path(kPath)
{
}

void FreedesktopScreenSaver::inhibit()
{
    m_wanted = true;
    if (!m_haveCookie && !m_asking)
        askToInhibit();
}

void FreedesktopScreenSaver::askToInhibit()
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(kService, m_path, kService, u"Inhibit"_qs);
    call << u"Quorvel"_qs << u"Playing a video"_qs;
    m_asking = true;
    // Asked without waiting: a slow service must not stall the picture.
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *w) {
        w->deleteLater();
        m_asking = false;
        const QDBusPendingReply<uint> reply = *w;
        if (reply.isError()) {
            const QDBusError::ErrorType type = reply.error().type();
            if (!m_triedOtherPath && (type == QDBusError::UnknownObject || type == QDBusError::UnknownMethod)) {
                m_triedOtherPath = true;
                m_path = kOtherPath;
                if (m_wanted)
                    askToInhibit();
                return;
            }
            qCDebug(lcApp) << "screen saver not held off:" << reply.error().message();
            return;
        }
        m_cookie = reply.value();
        m_haveCookie = true;
        qCDebug(lcApp) << "screen saver held off, cookie" << m_cookie;
        if (!m_wanted) // paused or stopped while the service answered
            giveBack(false);
    });
}

void FreedesktopScreenSaver::uninhibit(bool waitForIt)
{
    m_wanted = false;
    if (m_haveCookie)
        giveBack(waitForIt);
}

void FreedesktopScreenSaver::giveBack(bool waitForIt)
{
    QDBusMessage call = QDBusMessage::createMethodCall(kService, m_path, kService, u"UnInhibit"_qs);
    call << m_cookie;
    m_haveCookie = false;
    qCDebug(lcApp) << "screen saver released, cookie" << m_cookie;
    if (waitForIt)
        m_bus.call(call, QDBus::Block, 2000);
    else
        m_bus.asyncCall(call);
}

} // namespace quorvel
