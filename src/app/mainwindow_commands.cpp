// What the commands ask of the main window, and the states of the menu items
// and buttons following playback and the playlist. Choosing and dispatching
// is the CommandDispatcher's; the menus themselves are WindowMenus'.

#include "mainwindow.h"

#include "about/aboutdialog.h"
#include "app/extensionicon.h"
#include "app/mediacontrols.h"
#include "app/mediainfobox.h"
#include "app/optionsdialog.h"
#include "app/skinsurface.h"
#include "app/windowdvd.h"
#include "common/logging.h"
#include "common/tracelines.h"
#include "playback/player.h"
#include "playback/vlcengine.h"
#include "playlist/playlist.h"
#include "settings/associations.h"
#include "settings/configfile.h"

#include <QDesktopServices>
#include <QScreen>

namespace quorvel {

void MainWindow::followMediaControl(MediaAction action)
{
    applyControls(ControlsFor(action));
    m_surface->followMediaControl(action == MediaAction::Playing);
}

void MainWindow::updatePlaylistMenuItems()
{
    applyControls(PlaylistControls(m_playlist && m_playlist->count() > 0));
}

void MainWindow::applyControls(const ControlEnables &controls)
{
    m_menus->setItemsEnabled(controls.menuItems);
    m_surface->setButtonsEnabled(controls.buttons);
}

void MainWindow::popupDvdMenu()
{
    m_menus->popup(QStringLiteral("mnuOpenDVD"), mapToGlobal(QPoint(55, height() - 44)));
}

void MainWindow::minimize()
{
    showMinimized();
}

void MainWindow::maximizeOrRestore()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}

void MainWindow::toggleMaximize()
{
    // Without a window manager the window takes the screen itself.
    const QRect available = screen() ? screen()->availableGeometry() : QRect();
    const WindowStates::Step step = m_windowStates.toggleMaximize(geometry(), available);
    const bool maximized = step.show == WindowStates::Show::Maximized;
    if (maximized) {
        m_settings.WindowLeft = x();
        m_settings.WindowTop = y();
        showMaximized();
    } else {
        showNormal();
    }
    m_surface->skin().buttons().setState(BtnMinimize, maximized ? StateDisabled : StateNormal);
    if (step.geometry.isValid())
        setGeometry(step.geometry);
    update();
}

void MainWindow::showMediaInformation()
{
    auto *box = new MediaInfoBox(m_playlist->mediaInfo(m_playlist->list().selectedItem()), this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->open();
    qCDebug(lcApp) << trace::kMediaInfoShown;
}

void MainWindow::showSettings()
{
    // What the dialog asks of the window, for as long as it is open.
    struct Host final : OptionsHost {
        MainWindow &w;
        explicit Host(MainWindow &window) : w(window) {}
        void LoadConfigurations() override
        {
            // The file may have been edited by hand since it was read; what the
            // running program changed by itself since it was written (play and
            // repeat mode, the window's place and size) stays as it is now.
            const Settings running = w.m_settings;
            w.m_settings = ConfigFile::load(w.m_tables.ConfigPath, w.m_environment).settings;
            w.m_settings.PlayMode = running.PlayMode;
            w.m_settings.RepeatMode = running.RepeatMode;
            w.m_settings.WindowLeft = running.WindowLeft;
            w.m_settings.WindowTop = running.WindowTop;
            w.m_settings.WindowWidth = running.WindowWidth;
            w.m_settings.WindowHeight = running.WindowHeight;
            w.m_player->SaveVLCOptions();
        }
        void ApplyAssociations(const std::array<std::int16_t, kMediaExtensionCount> &flags) override
        {
            quorvel::ApplyAssociations(flags);
        }
        void WriteConfigurations() override
        {
            w.WriteConfigurations();
            w.m_player->SaveVLCOptions();
        }
        void SetLoadedOptions() override { w.SetLoadedOptions(); }
    } host(*this);
    OptionsDialog dialog(m_surface->images(), m_settings, host, GetExtensionIcon, this);
    dialog.exec();
}

void MainWindow::showAbout()
{
    AboutDialog dialog(m_surface->images(), VlcEngine::version(), this);
    dialog.exec();
}

void MainWindow::setStaysOnTop(bool on)
{
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == on)
        return;
    const bool shown = isVisible();
    setWindowFlag(Qt::WindowStaysOnTopHint, on);
    if (shown)
        show(); // changing a window flag hides the window
}

void MainWindow::openUrl(const QUrl &url)
{
    const bool asked = QDesktopServices::openUrl(url);
    qCDebug(lcApp) << "open" << url.toString() << (asked ? "asked of the desktop" : "refused by the desktop");
}

int MainWindow::volume() const
{
    return m_surface->skin().state().volumeText.toInt();
}

void MainWindow::changeVolume(int delta)
{
    m_surface->changeVolume(delta);
}

void MainWindow::enableDvdCheck()
{
    if (m_dvd)
        m_dvd->playback().enableCheck();
}

DvdPlayback &MainWindow::dvd()
{
    return m_dvd->playback();
}

} // namespace quorvel
