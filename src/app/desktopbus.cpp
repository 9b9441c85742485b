#include "desktopbus.h"

#include "app/commandline.h"
#include "app/mainwindow.h"
#include "playback/player.h"
#include "playback/transport.h"

namespace quorvel {

DesktopBus::DesktopBus(MainWindow &window, const QDBusConnection &bus)
    : QObject(&window), m_window(window),
      m_model(window.transport(), window.player(), window.playlist(), window.settings(), *this), m_service(m_model),
      m_screenSaver(bus)
{
    m_service.registerOn(bus);
    connect(&window.player(), &Player::controlsChanged, this, &DesktopBus::followScreenSaver);
    // Whether the item shows a picture is known only once it plays.
    connect(&window.transport().movieTimer(), &QTimer::timeout, this, &DesktopBus::followScreenSaver);
    connect(&window, &MainWindow::closing, this, [this] { m_guard.release(); });
}

DesktopBus::~DesktopBus()
{
    m_guard.release();
}

void DesktopBus::followScreenSaver()
{
    m_guard.follow(ScreenSaverHeldOff(m_window.playback(), m_window.transport().engine().hasVout(),
                                      m_window.settings().DisableScreenSaver));
}

void DesktopBus::raise()
{
    m_window.setWindowState(m_window.windowState() & ~Qt::WindowMinimized);
    m_window.show();
    m_window.raise();
    m_window.activateWindow();
}

void DesktopBus::quit()
{
    m_window.close();
}

int DesktopBus::volume() const
{
    return m_window.volume();
}

void DesktopBus::setVolume(int volume)
{
    static_cast<CommandActions &>(m_window).changeVolume(volume - m_window.volume());
}

void DesktopBus::addFiles(const QStringList &paths)
{
    m_window.receiveCommand(CommandLine{paths, false}.handOffText(), [] {});
}

} // namespace quorvel
