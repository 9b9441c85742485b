// The menu of the main window: building it, keeping its states in step with
// playback and the playlist, and turning choices into commands.

#include "mainwindow.h"

#include "app/mediacontrols.h"
#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "menus/helptopics.h"
#include "menus/menubarview.h"
#include "menus/menukeys.h"
#include "playback/player.h"
#include "playback/transport.h"
#include "playlist/playlist.h"

#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSystemTrayIcon>

namespace quorvel {

namespace {

// Checks the item of `group` at `index` and unchecks the others; an index
// outside the group changes nothing.
template <std::size_t N>
void checkOneOf(MenuModel &menu, const std::array<QLatin1StringView, N> &group, int index)
{
    if (index < 0 || index >= int(N))
        return;
    for (int i = 0; i < int(N); ++i)
        menu.setChecked(group[i], i == index);
}

} // namespace

void MainWindow::BuildMenu()
{
    quorvel::BuildMenu(m_menu);
    m_menuView = new MenuBarView(m_menu, m_menuBar);
    connect(&m_menu, &MenuModel::MenuItemClick, this, &MainWindow::onMenuItemClick);
}

void MainWindow::connectTransportToMenu()
{
    Transport *t = m_transport.get();
    connect(t, &Transport::playModeChanged, this, [this](int mode) { checkOneOf(m_menu, menukey::kPlayModes, mode); });
    connect(t, &Transport::repeatModeChanged, this,
            [this](int mode) { checkOneOf(m_menu, menukey::kRepeatModes, mode); });
    connect(t, &Transport::afterPlayChanged, this,
            [this](int action) { checkOneOf(m_menu, menukey::kAfterPlay, action); });
    connect(t, &Transport::rateStepsChanged, this, [this](bool canIncrease, bool canDecrease) {
        m_menu.setEnabled(menukey::IncreaseSpeed, canIncrease);
        m_menu.setEnabled(menukey::DecreaseSpeed, canDecrease);
    });
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
        m_tray->setContextMenu(m_menuView ? m_menuView->menuFor(menukey::File) : nullptr);
    }
    m_tray->show();
}

void MainWindow::onMenuItemClick(int position)
{
    const QString key = m_menu.KeyAt(position);
    qCDebug(lcApp) << trace::kMenu << key;
    Transport &t = *m_transport;
    if (key == menukey::OpenFile) {
        openFiles(false);
    } else if (key == menukey::Exit) {
        close();
    } else if (key == menukey::PlayPause) {
        if (m_playlist->list().count() < 1) {
            openFiles(false);
            m_menu.setEnabled(menukey::Stop, true);
        } else {
            t.CMDPauseClick();
        }
    } else if (key == menukey::Stop) {
        t.cmdStopClick();
        m_menu.setEnabled(menukey::Stop, false);
    } else if (key == menukey::PMNormal) {
        t.PBNormal();
    } else if (key == menukey::PMContinuous) {
        t.PBCont();
    } else if (key == menukey::PMShuffle) {
        t.PBShuffle();
    } else if (key == menukey::RMNoRepeat) {
        t.RepeatNone();
    } else if (key == menukey::RMSingleRepeat) {
        t.RepeatSingle();
    } else if (key == menukey::RMRepeatAll) {
        t.RepeatAll();
    } else if (key == menukey::FullScreen) {
        t.cmdFulScreenClick();
    } else if (key == menukey::IncreaseSpeed) {
        t.IncreaseRate();
    } else if (key == menukey::DecreaseSpeed) {
        t.DecreaseRate();
    } else if (key == menukey::ResetSpeed) {
        t.ResetRate();
    } else if (key == menukey::Donothing) {
        t.DoAfter(AfterDoNothing);
    } else if (key == menukey::ExitQuorvel) {
        t.DoAfter(AfterExit);
    } else if (key == menukey::RestartTheComputer) {
        t.DoAfter(AfterRestart);
    } else if (key == menukey::ShutdownTheComputer) {
        t.DoAfter(AfterShutdown);
    } else if (key == menukey::AddVideoFile) {
        openFiles(true);
        if (m_playlist->list().selectedItem() < 0)
            m_playlist->list().setSelectedItem(0);
        updatePlaylistMenuItems();
    } else if (key == menukey::Remove) {
        m_playlist->removeSelected();
        updatePlaylistMenuItems();
    } else if (key == menukey::RemoveAll) {
        m_playlist->removeAll();
        updatePlaylistMenuItems();
        // The list is empty: the caption names no entry any more.
        m_playback.CaptionText = QStringLiteral("Quorvel");
        showCaption();
    } else if (key == menukey::Next) {
        t.cmdNextClick();
    } else if (key == menukey::Previous) {
        t.cmdPreviousClick();
    } else if (key == menukey::HelpTopics) {
        ShowHelpTopics(m_tables.AppPath);
    }
}

} // namespace quorvel
