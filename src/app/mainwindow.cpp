#include "mainwindow.h"

#include "app/equalizerkeeper.h"
#include "app/instance.h"
#include "app/panesplitter.h"
#include "app/playlistplacement.h"
#include "app/sessionkeeper.h"
#include "app/skinsurface.h"
#include "app/unixsignals.h"
#include "app/videoframe.h"
#include "app/windowdvd.h"
#include "app/windowtracks.h"
#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "media/mediaprobe.h"
#include "playback/player.h"
#include "playback/playsequence.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "playback/vlcengine.h"
#include "playlist/fancylist.h"
#include "playlist/fancylistthumblist.h"
#include "playlist/filechooser.h"
#include "playlist/openfiles.h"
#include "playlist/playlist.h"
#include "skin/skinlayout.h"
#include "skin/theme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>

namespace quorvel {

MainWindow::MainWindow()
{
    setObjectName(QStringLiteral("frmMain"));
    buildWidgets();
}

MainWindow::~MainWindow()
{
    m_dvd.reset();
    // The playlist waits for running probes before the probe goes away.
    m_playlist.reset();
    m_player.reset();
    m_engine.reset();
    m_surface.reset();
}

void MainWindow::buildWidgets()
{
    // No system frame: the skin draws the title bar, borders and buttons.
    setWindowFlag(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_surface = std::make_unique<SkinSurface>(*this, m_windowStates, m_playback);

    m_menuBar = new QMenuBar(this);
    m_menuBar->setObjectName(QStringLiteral("SmartMenuXP1"));
    m_menuBar->setNativeMenuBar(false);
    m_menus = std::make_unique<WindowMenus>(*this, *m_menuBar);

    m_splitter = new PaneSplitter(this);
    m_splitter->setObjectName(QStringLiteral("SSSplitMain"));
    m_videoFrame = new VideoFrame(this);
    m_listWidget = new FancyList(this);
    m_listWidget->setObjectName(QStringLiteral("FancyList1"));
    m_listWidget->setPalette(theme::listPalette(m_listWidget->palette()));
    m_listWidget->setPlaceholderText(tr("Drop media files here"));
    m_listWidget->scrollBar()->setStyleSheet(theme::listScrollBarStyleSheet());
    m_splitter->setPaneContent(PaneSplitter::kCentre, m_videoFrame);
    m_placement = std::make_unique<PlaylistPlacement>(*this, *m_splitter, *m_listWidget);

    m_addProgress = new QProgressBar(this);
    m_addProgress->setObjectName(QStringLiteral("addProgress"));
    m_addProgress->setTextVisible(false);
    m_addProgress->hide();

    m_thumbList = std::make_unique<FancyListThumbList>(m_listWidget);

    m_signals = std::make_unique<UnixSignalWatcher>();
    connect(m_signals.get(), &UnixSignalWatcher::terminationRequested, this, &QWidget::close);
    m_notifier.setParent(this);
}

void MainWindow::connectParts()
{
    m_player->setNotifier(&m_notifier);
    m_playlist->setPlayHandler([this](int index, bool fullScreen) {
        if (!m_closing)
            m_player->PlayItem(index, fullScreen);
    });
    m_playlist->setOrderHandler([this] { m_transport->rebuildOrder(); });
    m_playlist->setRemoveHandler([this](int k) { m_transport->sequence().removeAt(k); });
    connect(m_player.get(), &Player::captionChanged, this, &MainWindow::showCaption);
    connect(m_player.get(), &Player::controlsChanged, this, &MainWindow::followMediaControl);
    connect(m_playlist.get(), &Playlist::changed, this, &MainWindow::updatePlaylistMenuItems);
    connect(m_playlist.get(), &Playlist::addProgress, this, [this](int done, int total) {
        // Progress shows only while several files are on their way.
        m_addProgress->setVisible(total > 1 && done < total);
        m_addProgress->setRange(0, total);
        m_addProgress->setValue(done);
    });

    connect(m_listWidget, &FancyList::Click, this, [this] { onListClicked(m_listWidget->SelectedItem()); });
    connect(m_listWidget, &FancyList::DblClick, this, [this] { onListDoubleClicked(m_listWidget->SelectedItem()); });
    connect(m_listWidget, &FancyList::OLEDragDrop, this,
            [this](const QStringList &files) { m_playlist->addFiles(m_session->droppedFiles(files), false); });
    connect(m_listWidget, &FancyList::MouseDown, this,
            [this](Qt::MouseButton button, Qt::KeyboardModifiers, int x, int y) {
                if (button == Qt::RightButton)
                    m_menus->popup(QStringLiteral("mnuPlayListmenu"), m_listWidget->mapToGlobal(QPoint(x, y)));
            });
    connect(m_videoFrame, &VideoFrame::filesDropped, this,
            [this](const QStringList &paths) { m_playlist->addFiles(m_session->droppedFiles(paths), true); });
    connect(m_videoFrame, &VideoFrame::doubleClicked, this, [this] { enterFullScreen(false); });
    connect(m_videoFrame, &VideoFrame::rightClicked, this,
            [this](QPoint pos) { m_menus->popup(QStringLiteral("mnuPlayBackMenu"), m_videoFrame->mapToGlobal(pos)); });
    connect(m_player.get(), &Player::itemStarted, this, [this] { m_videoFrame->showLogo(false); });
    m_engine->setFullscreenHandler([this](bool on) { enterFullScreen(on); });
    // Escape leaves full screen wherever the focus is; it is free otherwise,
    // for dialogs and menus.
    m_leaveFullScreen = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    m_leaveFullScreen->setContext(Qt::ApplicationShortcut);
    m_leaveFullScreen->setEnabled(false);
    connect(m_leaveFullScreen, &QShortcut::activated, this, [this] { enterFullScreen(false); });
}

void MainWindow::onListClicked(int index)
{
    qCDebug(lcApp) << trace::kRowChosen << index;
    if (m_settings.PlayMode != PlayShuffle)
        m_transport->sequence().setCursor(index);
}

void MainWindow::onListDoubleClicked(int index)
{
    if (index < 0)
        return;
    m_player->PlayItem(index, false);
    m_listWidget->hide();
    m_placement->SetPlaylistPosition(5);
    m_transport->sequence().setCursor(index);
}

void MainWindow::showCaption()
{
    setWindowTitle(m_playback.CaptionText);
    m_surface->setCaptionFlags(EndEllipsis);
    update();
}

void MainWindow::enterFullScreen(bool on)
{
    const QRect screenArea = screen() ? screen()->geometry() : QRect();
    const auto step = m_windowStates.setFullScreen(on, geometry(), screenArea, m_listWidget->isVisible());
    if (!step)
        return;
    qCDebug(lcApp) << trace::kFullScreen << on;
    m_leaveFullScreen->setEnabled(on);
    m_menuBar->setVisible(!on);
    if (on) {
        m_listWidget->hide();
        showFullScreen();
    } else {
        showNormal();
        if (step->listVisible)
            m_listWidget->show();
    }
    // Without a window manager nobody else resizes the window.
    if (step->geometry.isValid())
        setGeometry(step->geometry);
    if (on)
        m_videoFrame->setFocus();
    else
        m_engine->noteFullscreenLeft();
}

void MainWindow::layoutChildren()
{
    if (m_windowStates.isFullScreen()) {
        m_splitter->setGeometry(rect());
        return;
    }
    const SkinLayout l = SkinLayout::Compute(size());
    m_menuBar->setGeometry(l.menuStrip.adjusted(0, 0, -15, 0));
    m_splitter->setGeometry(l.videoArea);
    // Adding several files shows its progress on the title bar.
    m_addProgress->setGeometry(width() - 176, 12, 90, 8);
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (isMinimized())
        return;
    layoutChildren();
    m_placement->followResize();
    if (m_thumbList)
        m_placement->SetPlaylistPosition(m_thumbList->isVisible() ? m_settings.PlaylistPosition : 5);
    if (!m_isLoading && m_windowStates.isNormal()) {
        m_settings.WindowWidth = width();
        m_settings.WindowHeight = height();
    }
    m_surface->setCaptionFlags(PathEllipsis);
    update();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_closing) {
        event->accept();
        return;
    }
    m_closing = true;
    if (m_transport) {
        m_transport->movieTimer().stop();
        m_transport->rewindTimer().stop();
    }
    WriteConfigurations();
    if (m_session)
        m_session->windowClosing();
    emit closing();
    // Release the engine before the process ends, so audio and video
    // outputs close cleanly.
    if (m_engine)
        m_engine->destroyControl();
    event->accept();
    qCDebug(lcApp) << trace::kClosed;
}

} // namespace quorvel
