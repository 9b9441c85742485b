// The menu of the main window: building it, keeping its states in step with
// playback and the playlist, and turning choices into commands.

#include "mainwindow.h"

#include "common/logging.h"
#include "common/paths.h"
#include "menus/menubarview.h"
#include "playback/player.h"
#include "playlist/playlist.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSystemTrayIcon>

namespace quorvel {

namespace {
const QStringList kPlaylistItems{QStringLiteral("Remove"), QStringLiteral("RemoveAll"), QStringLiteral("Next"),
                                 QStringLiteral("Previous")};
const QStringList kMediaItems{QStringLiteral("Stop"), QStringLiteral("FullScreen"), QStringLiteral("IncreaseSpeed"),
                              QStringLiteral("DecreaseSpeed"), QStringLiteral("ResetSpeed")};
} // namespace

void MainWindow::BuildMenu()
{
    quorvel::BuildMenu(m_menu);
    m_menuView = new MenuBarView(m_menu, m_menuBar);
    connect(&m_menu, &MenuModel::MenuItemClick, this, &MainWindow::onMenuItemClick);
}

void MainWindow::followMediaControl(MediaAction action)
{
    for (const QString &key : kMediaItems)
        m_menu.setEnabled(key, action != MediaAction::Stopped);
}

void MainWindow::updatePlaylistMenuItems()
{
    const bool any = m_playlist && m_playlist->count() > 0;
    for (const QString &key : kPlaylistItems)
        m_menu.setEnabled(key, any);
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
        m_tray->setToolTip(QCoreApplication::applicationName());
        // The right button opens the File branch; a left click does nothing.
        m_tray->setContextMenu(m_menuView ? m_menuView->menuFor(QStringLiteral("File")) : nullptr);
    }
    m_tray->show();
}

void MainWindow::onMenuItemClick(int position)
{
    const QString key = m_menu.KeyAt(position);
    qCDebug(lcApp) << "menu" << key;
    if (key == u"Exit") {
        close();
    } else if (key == u"Remove") {
        m_playlist->removeSelected();
        updatePlaylistMenuItems();
    } else if (key == u"RemoveAll") {
        m_playlist->removeAll();
        updatePlaylistMenuItems();
    }
}

} // namespace quorvel
