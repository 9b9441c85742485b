#pragma once
// The player on the desktop's session bus: the media player interface that
// media keys and panel widgets use, and the screen saver held off while a
// video plays. Built once the window is; without a session bus it does
// nothing at all.

#include "app/mprismodel.h"
#include "app/mprisservice.h"
#include "app/screensaver.h"

#include <memory>

namespace quorvel {

class MainWindow;

class DesktopBus final : public QObject, private MprisHost {
    Q_OBJECT
public:
    explicit DesktopBus(MainWindow &window, const QDBusConnection &bus = QDBusConnection::sessionBus());
    ~DesktopBus() override;

private:
    // What the media player interface asks of the window.
    void raise() override;
    void quit() override;
    int volume() const override;
    void setVolume(int volume) override;
    void addFiles(const QStringList &paths) override;
    void followScreenSaver();

    MainWindow &m_window;
    FreedesktopScreenSaver m_screenSaver;
    std::unique_ptr<MprisModel> m_model;
    std::unique_ptr<MprisService> m_service;
    ScreenSaverGuard m_guard{m_screenSaver};
};

} // namespace quorvel
