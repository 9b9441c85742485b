#include "desktopbus.h"

#include "app/commandline.h"
#include "app/mainwindow.h"
#include "playback/player.h"
#include "playback/transport.h"

namespace quorvel {

DesktopBus::DesktopBus(MainWindow &window, const QDBusConnection &bus)
    : QObject(&window), m_window(window), m_screenSaver(bus)
{
    if (!bus.isConnected())
        return; // no desktop to tell: the player runs on its own
    MprisHost &host = *this;
    m_model = std::make_unique<MprisModel>(window.transport(), window.player(), window.playlist(), window.settings(),
                                           host);
    m_service = std::make_unique<MprisService>(*m_model);
    m_service->registerOn(bus);
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
