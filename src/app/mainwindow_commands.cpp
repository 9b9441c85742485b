// The menus of the main window: both trees built and shown, their states
// following playback and the playlist, and what the commands ask of the
// window. Choosing and dispatching is the CommandDispatcher's.

#include "mainwindow.h"

#include "about/aboutdialog.h"
#include "app/mediacontrols.h"
#include "app/mediainfobox.h"
#include "app/optionsdialog.h"
#include "common/logging.h"
#include "common/tracelines.h"
#include "menus/menuview.h"
#include "playback/player.h"
#include "playback/vlcengine.h"
#include "playlist/playlist.h"
#include "settings/associations.h"
#include "settings/configfile.h"
#include "skin/skinlayout.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QSystemTrayIcon>

namespace quorvel {

void MainWindow::BuildMenu()
{
    quorvel::BuildMenu(m_menu);
    quorvel::BuildClassicMenu(m_classicMenu);
    m_menuView = new MenuView(m_menu, m_menuBar);
    m_classicView = new MenuView(m_classicMenu, this);
    // The window owns the keys too, so they work while the bar is hidden
    // (full screen).
    addActions(m_menuView->shortcutActions());
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
        m_tray->setContextMenu(m_classicView->menuFor(QStringLiteral("mnuFileMenu")));
    }
    m_tray->show();
}

void MainWindow::popupClassicBranch(const QString &key, QPoint globalPos)
{
    if (QMenu *menu = m_classicView ? m_classicView->menuFor(key) : nullptr)
        menu->popup(globalPos);
}

void MainWindow::popupDvdMenu()
{
    popupClassicBranch(QStringLiteral("mnuOpenDVD"), mapToGlobal(QPoint(55, height() - 44)));
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    // Keys the focused child left alone (the playlist keeps its arrows).
    if (m_dispatcher && m_dispatcher->runKey(QKeySequence(event->keyCombination())))
        event->accept();
    else
        QWidget::keyPressEvent(event);
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
    m_skin->buttons().setState(BtnMinimize, maximized ? StateDisabled : StateNormal);
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
    OptionsDialog dialog(
        m_skinImages, m_settings, host, [](const QString &) { return QIcon(); }, this);
    dialog.exec();
}

void MainWindow::showAbout()
{
    AboutDialog dialog(m_skinImages, VlcEngine::version(), this);
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

void MainWindow::changeVolume(int delta)
{
    const int volume = std::clamp(m_skin->state().volumeText.toInt() + delta, 0, 100);
    m_skin->state().knobLeft = qRound(volume * (SkinLayout::kTrackWidth - SkinLayout::kKnobWidth) / 100.0);
    setVolume(volume);
    update();
}

} // namespace quorvel
