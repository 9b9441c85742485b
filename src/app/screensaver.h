#pragma once
// Keeps the screen saver away while a video plays, when the user asked for
// that ("Disable ScreenSaver while playing."): the desktop's screen saver
// service is asked to hold off, and told when the video pauses, stops or the
// player closes. Audio alone never holds the screen saver off.

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <cstdint>

namespace quorvel {

struct PlaybackState;

// The desktop's screen saver.
class ScreenSaverService {
public:
    virtual ~ScreenSaverService() = default;
    virtual void inhibit() = 0;
    // `waitForIt` at the end of the program, where a message still queued
    // would be lost.
    virtual void uninhibit(bool waitForIt = false) = 0;
};

// Whether the screen saver is to be held off: a video plays and the setting asks for it.
bool ScreenSaverHeldOff(const PlaybackState &state, bool hasVideo, std::int16_t DisableScreenSaver);

// Asks the service only when the answer changes.
class ScreenSaverGuard {
public:
    explicit ScreenSaverGuard(ScreenSaverService &service) : m_service(service) {}
    void follow(bool holdOff);
    // The player closes.
    void release();
    bool isHoldingOff() const { return m_holding; }

private:
    ScreenSaverService &m_service;
    bool m_holding = false;
};

// org.freedesktop.ScreenSaver on the session bus: Inhibit gives a cookie,
// UnInhibit returns it. Without a bus or a screen saver service nothing happens.
class FreedesktopScreenSaver final : public QObject, public ScreenSaverService {
    Q_OBJECT
public:
    explicit FreedesktopScreenSaver(const QDBusConnection &bus, QObject *parent = nullptr);
    void inhibit() override;
    void uninhibit(bool waitForIt = false) override;

private:
    void askToInhibit();
    void giveBack(bool waitForIt);

    QDBusConnection m_bus;
    QString m_path; // the object path the service answered on
    std::uint32_t m_cookie = 0;
    bool m_haveCookie = false;
    bool m_wanted = false;
    bool m_asking = false;
    bool m_triedOtherPath = false;
};

} // namespace quorvel
