// The menu of the main window: building it, keeping its states in step with
// playback and the playlist, and turning choices into commands.

#include "mainwindow.h"

#include "app/mediacontrols.h"
#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "menus/menubarview.h"
#include "playback/player.h"
#include "playback/transport.h"
#include "playlist/playlist.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSystemTrayIcon>

namespace quorvel {

void MainWindow::BuildMenu()
{
    quorvel::BuildMenu(m_menu);
    m_menuView = new MenuBarView(m_menu, m_menuBar);
    connect(&m_menu, &MenuModel::MenuItemClick, this, &MainWindow::onMenuItemClick);
}

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
    for (const auto &[key, usable] : controls.menuItems)
        m_menu.setEnabled(key, usable);
    for (const auto &[index, usable] : controls.buttons)
        m_skin->buttons().setEnabled(index, usable);
    if (!controls.buttons.empty())
        update();
}

void MainWindow::applyTray()
{
    if (!IsSet(m_settings.ShowInTray)) {
        if (m_tray)
            m_tray->hide();
        return;
    }
    if (!m_tray) {
        m_tray = new QSystemTrayIcon(windowIcon(), this);
        m_tray->setToolTip(QStringLiteral("Quorvel"));
        // The right button opens the File branch; a left click does nothing.
        m_tray->setContextMenu(m_menuView ? m_menuView->menuFor(QStringLiteral("File")) : nullptr);
    }
    m_tray->show();
}

void MainWindow::onMenuItemClick(int position)
{
    const QString key = m_menu.KeyAt(position);
    qCDebug(lcApp) << trace::kMenu << key;
    Transport &t = *m_transport;
    if (key == u"OpenFile") {
        openFiles(false);
    } else if (key == u"Exit") {
        close();
    } else if (key == u"PlayPause") {
        if (m_playlist->list().count() < 1) {
            openFiles(false);
            m_menu.setEnabled(QStringLiteral("Stop"), true);
        } else {
            t.CMDPauseClick();
        }
    } else if (key == u"Stop") {
        t.cmdStopClick();
        m_menu.setEnabled(QStringLiteral("Stop"), false);
    } else if (key == u"PMNormal") {
        t.PBNormal();
    } else if (key == u"PMContinuous") {
        t.PBCont();
    } else if (key == u"PMShuffle") {
        t.PBShuffle();
    } else if (key == u"RMNoRepeat") {
        t.RepeatNone();
    } else if (key == u"RMSingleRepeat") {
        t.RepeatSingle();
    } else if (key == u"RMRepeatAll") {
        t.RepeatAll();
    } else if (key == u"FullScreen") {
        t.cmdFulScreenClick();
    } else if (key == u"IncreaseSpeed") {
        t.IncreaseRate();
    } else if (key == u"DecreaseSpeed") {
        t.DecreaseRate();
    } else if (key == u"ResetSpeed") {
        t.ResetRate();
    } else if (key == u"Donothing") {
        t.DoAfter(AfterDoNothing);
    } else if (key == u"ExitQuorvel") {
        t.DoAfter(AfterExit);
    } else if (key == u"RestartTheComputer") {
        t.DoAfter(AfterRestart);
    } else if (key == u"ShutdownTheComputer") {
        t.DoAfter(AfterShutdown);
    } else if (key == u"AddVideoFile") {
        openFiles(true);
        if (m_playlist->list().selectedItem() < 0)
            m_playlist->list().setSelectedItem(0);
        updatePlaylistMenuItems();
    } else if (key == u"Remove") {
        m_playlist->removeSelected();
        updatePlaylistMenuItems();
    } else if (key == u"RemoveAll") {
        m_playlist->removeAll();
        updatePlaylistMenuItems();
        // The list is empty: the caption names no entry any more.
        m_playback.CaptionText = QStringLiteral("Quorvel");
        showCaption();
    } else if (key == u"Next") {
        t.cmdNextClick();
    } else if (key == u"Previous") {
        t.cmdPreviousClick();
    }
}

} // namespace quorvel
