// What the commands ask of the main window, and the states of the menu items
// and buttons following playback and the playlist. Choosing and dispatching
// is the CommandDispatcher's; the menus themselves are WindowMenus'.

#include "mainwindow.h"

#include "app/mediacontrols.h"
#include "app/mediainfobox.h"
#include "app/skinsurface.h"
#include "app/windowdvd.h"
#include "common/logging.h"
#include "common/tracelines.h"
#include "playlist/playlist.h"

#include <QDesktopServices>
#include <QScreen>

namespace quorvel {

void MainWindow::followMediaControl(MediaAction action)
{
    applyControls(ControlsFor(action));
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
    // The settings dialog is shown here once it exists.
    qCDebug(lcApp) << "settings asked for";
}

void MainWindow::showAbout()
{
    // The about dialog is shown here once it exists.
    qCDebug(lcApp) << "about asked for";
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
