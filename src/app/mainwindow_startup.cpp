// Start-up, configuration and the hand-off of the main window, in a fixed
// order: the skin and menu first, then the engine and playlist, then the
// settings, which the engine options and the window follow.

#include "mainwindow.h"

#include "app/desktopbus.h"
#include "app/equalizerkeeper.h"
#include "app/handoffserver.h"
#include "app/playlistplacement.h"
#include "app/sessionkeeper.h"
#include "app/skinsurface.h"
#include "app/videoframe.h"
#include "app/windowdvd.h"
#include "app/windowplacement.h"
#include "app/windowtracks.h"
#include "common/appname.h"
#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "media/ffmpegprobe.h"
#include "playback/dvdplayback.h"
#include "playback/player.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "playback/vlcengine.h"
#include "playlist/fancylist.h"
#include "playlist/fancylistthumblist.h"
#include "playlist/filechooser.h"
#include "playlist/openfiles.h"
#include "playlist/playlist.h"
#include "settings/associations.h"
#include "settings/configfile.h"

#include <QApplication>
#include <QTimer>

namespace quorvel {

void MainWindow::FormLoad(const CommandLine &command, std::unique_ptr<HandoffServer> receiver)
{
    m_isLoading = true;
    m_forcePlay = true;
    QCoreApplication::setApplicationName(kOrganizationName);
    m_tables.AppPath = ProgramFolder();
    m_marker = std::make_unique<RunningMarker>();
    m_surface->LoadSkinImages();
    m_menus->BuildMenu();
    InitPlayer();
    LoadConfigurations();
    ApplyAssociations(m_settings.AssocFlags);
    LoadHistory();
    m_dvd = std::make_unique<WindowDvd>(*this, *m_menus, *m_dispatcher, *m_transport, *m_player, *m_playlist,
                                        m_notifier, *this, m_tables.AppPath);
    connect(&m_dvd->playback(), &DvdPlayback::started, this, [this] { m_videoFrame->showLogo(false); });
    m_placement->SetPlaylistPosition(5);
    m_player->enableMediaControl(MediaAction::Stopped);
    m_transport->applyStoredModes();
    m_transport->DoAfter(AfterDoNothing);

    // Whether this process runs was decided before the window was built
    // (see main.cpp); `receiver` serves the later starts.
    m_tables.command = command;
    m_forcePlay = command.forcePlay;
    // Every file goes to the playlist, which says why it refuses one; the
    // first one plays unless the add-only marker was given.
    // A DVD folder or image replaces the playlist and plays; the other files
    // join it after the DVD's row.
    if (command.files.isEmpty())
        m_session->restorePlaylist();
    const QStringList files = m_dvd->playDvdAmong(command.files);
    bool first = files.size() == command.files.size();
    for (const QString &path : files) {
        m_playlist->LoadThumb(GetFileTitle(path), path, IsSet(m_settings.LaunchFullScreen), m_forcePlay && first);
        first = false;
    }

    m_handoff = std::move(receiver);
    if (m_handoff) {
        connect(m_handoff.get(), &HandoffServer::helloReceived, this, [] { qCDebug(lcApp) << trace::kFoundRunning; });
        // Set after this start's own files, so handed-over files queue behind them.
        m_handoff->setCommandHandler(
            [this](const QString &text, std::function<void()> done) { receiveCommand(text, std::move(done)); });
    }
    new DesktopBus(*this); // media keys, panel widgets and the screen saver
    m_isLoading = false;
    m_transport->movieTimer().start();
    m_dvd->playback().checkTimer().start();
    qCDebug(lcApp) << trace::kInstanceReady << QCoreApplication::applicationPid() << "on"
                   << QGuiApplication::platformName();
}

void MainWindow::InitPlayer()
{
    m_playback.VLCOptions = QStringList(9, QString());
    // The playlist is empty: nothing to remove or step through.
    updatePlaylistMenuItems();
    // Codec names and the pictures of files without a frame of their own.
    m_tables.media = LoadMediaTables(m_tables.AppPath);
    m_videoFrame->setLogo(m_tables.media.defaultAudioThumb);
    m_listWidget->setImageHeight(64);
    m_listWidget->setImageWidth(64);
    m_listWidget->setItemHeight(80);
    resize(kStartWidthPx, kStartHeightPx);
    setMinimumSize(370, 370);
    m_playback.CaptionText = QStringLiteral("Quorvel");
    m_playback.IsHalted = false;
    m_playback.IsStopped = false;
    showCaption();

    m_engine = std::make_unique<VlcEngine>(m_videoFrame->surface());
    m_probe = std::make_unique<FfmpegProbe>(m_tables.media);
    m_playlist = std::make_unique<Playlist>(*m_thumbList, *m_probe, m_notifier);
    m_player = std::make_unique<Player>(*m_engine, m_settings, m_playback, *m_playlist);
    m_power = std::make_unique<playback::LogindPower>();
    m_transport = std::make_unique<Transport>(*m_engine, m_settings, m_playback, *m_playlist, *m_player, *m_power,
                                              *this);
    m_dispatcher = std::make_unique<CommandDispatcher>(menu(), classicMenu(), *m_transport, *m_playlist, m_playback,
                                                       m_settings, *this, m_notifier);
    m_dispatcher->setProgramFolder(m_tables.AppPath);
    m_menus->setDispatcher(*m_dispatcher);
    m_surface->attach(*m_engine, *m_dispatcher);
    m_chooser = std::make_unique<playlist::DialogFileChooser>(this);
    m_openFiles = std::make_unique<playlist::FileOpener>(
        *m_chooser, [this](const QString &title, const QString &file, bool fullScreen, bool forcePlay) {
            m_playlist->LoadThumb(title, file, fullScreen, forcePlay);
        });
    connectParts();
    m_session = std::make_unique<SessionKeeper>(SessionKeeper::Parts{this, m_videoFrame, menu(), classicMenu(),
                                                                     *m_engine, m_playback, *m_player, *m_transport,
                                                                     *m_playlist, m_notifier});
    m_equalizer = std::make_unique<EqualizerKeeper>(
        EqualizerKeeper::Parts{this, menu(), classicMenu(), *m_engine, m_surface->images(), m_notifier},
        PlaybackPrefsPath());
    m_tracks = std::make_unique<WindowTracks>(
        WindowTracks::Parts{this, m_videoFrame, *m_engine, m_playback, *m_player, *m_dispatcher, *m_chooser,
                            m_session->resumeStore(), [session = m_session.get()] { return session->prefs(); }});
    m_player->createEngine();
}

void MainWindow::LoadConfigurations()
{
    m_environment = SettingsEnvironment::fromSystem();
    m_tables.ConfigPath = ConfigFile::locate(m_tables.AppPath);
    m_settings = ConfigFile::load(m_tables.ConfigPath, m_environment).settings;
    m_player->SaveVLCOptions();
    SetLoadedOptions();
}

void MainWindow::SetLoadedOptions()
{
    RestoreWindowGeometry(*this, m_settings);
    // An always-on-top window would cover a dialog that is open over it;
    // the dialog's closing brings the band back.
    setStaysOnTop(IsSet(m_settings.AlwaysOnTop) && !QApplication::activeModalWidget());
    m_menus->showTray(IsSet(m_settings.ShowInTray));
    if (m_playback.MediaLoaded && m_player->rebuildCaption())
        showCaption();
    if (m_thumbList->isVisible())
        m_placement->SetPlaylistPosition(m_settings.PlaylistPosition);
}

void MainWindow::WriteConfigurations()
{
    if (!isMaximized() && !m_windowStates.isFullScreen() && !m_isLoading) {
        m_settings.WindowLeft = x();
        m_settings.WindowTop = y();
    }
    if (!ConfigFile::write(m_tables.ConfigPath, m_settings))
        qCWarning(lcApp) << "could not write" << m_tables.ConfigPath;
}

void MainWindow::receiveCommand(const QString &text, std::function<void()> done)
{
    const QStringList given = CommandLine::filesOf(text);
    qCDebug(lcApp) << trace::kHandoffReceived << given;
    // A DVD cannot wait in the playlist beside files: it plays.
    const QStringList files = m_dvd->playDvdAmong(given);
    if (files.isEmpty()) {
        done();
        return;
    }
    QApplication::alert(this, 1000);
    // Handed-over files are only added, never started, whatever the marker said.
    for (qsizetype i = 0; i < files.size(); ++i)
        m_playlist->LoadThumb(GetFileTitle(files[i]), files[i], IsSet(m_settings.LaunchFullScreen), false,
                              i + 1 == files.size() ? std::move(done) : std::function<void()>());
}

} // namespace quorvel
