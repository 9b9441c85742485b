// Start-up, configuration and the hand-off of the main window, in the fixed
// order the program has always started in. Steps that belong to parts of the
// window still growing (skin, menus, associations, history) are named calls
// that do nothing yet.

#include "mainwindow.h"

#include "app/configfile.h"
#include "app/instance.h"
#include "app/videoframe.h"
#include "app/windowplacement.h"
#include "common/logging.h"
#include "common/paths.h"
#include "media/ffmpegprobe.h"
#include "playback/player.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "playlist/filechooser.h"
#include "playlist/openfiles.h"
#include "playback/vlcengine.h"
#include "playlist/fancylistthumblist.h"
#include "playlist/fancylist.h"
#include "playlist/playlist.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

namespace quorvel {

bool MainWindow::FormLoad(const QStringList &arguments)
{
    m_isLoading = true;
    m_forcePlay = true;
    QCoreApplication::setApplicationName(QStringLiteral("Brenlow Quorvel"));
    m_tables.AppPath = ProgramFolder();
    m_marker = std::make_unique<RunningMarker>();
    LoadSkinImages();
    BuildMenu();
    InitPlayer();
    LoadConfigurations();
    ApplyAssociations();
    LoadHistory();
    SetPlaylistPosition(5);
    m_player->enableMediaControl(MediaAction::Stopped);
    m_transport->applyStoredModes();
    m_transport->DoAfter(AfterDoNothing);

    // The command line: quotes removed; a trailing " *Add" only adds.
    m_tables.command = CommandLine::parse(arguments);
    m_forcePlay = m_tables.command.forcePlay;
    const QString &handOff = m_tables.command.handOffText;
    const QString &path = m_tables.command.commandPath;

    const InstanceRegistry::Endpoints known = InstanceRegistry::read();
    if (known.command != QLatin1String("-1") && !IsSet(m_settings.UseNewInstance)) {
        if (!handOff.isEmpty()) {
            if (handoff::endpointAlive(known.probe)) {
                if (IsSupportedFile(path) && !handoff::send(known.command, handOff))
                    qCWarning(lcApp) << "the running instance did not take" << handOff;
                return false;
            }
        } else if (handoff::send(known.probe, QStringLiteral("Hello"), 5000)) {
            return false;
        }
    }

    m_handoff = std::make_unique<HandoffServer>();
    if (m_handoff->listen()) {
        connect(m_handoff.get(), &HandoffServer::helloReceived, this,
                [] { qCDebug(lcApp) << "a later start found this instance running"; });
        m_handoff->setCommandHandler(
            [this](const QString &command, std::function<void()> done) { receiveCommand(command, std::move(done)); });
        InstanceRegistry::write(m_handoff->endpoints());
    }

    if (QFileInfo(path).isFile() && IsSupportedFile(path))
        m_playlist->LoadThumb(GetFileTitle(path), path, IsSet(m_settings.LaunchFullScreen), m_forcePlay);
    m_isLoading = false;
    m_transport->movieTimer().start();
    qCDebug(lcApp) << "running instance ready";
    return true;
}

void MainWindow::InitPlayer()
{
    m_playback.VLCOptions = QStringList(9, QString());
    // The playlist is empty: nothing to remove or step through.
    for (const char *key : {"Remove", "RemoveAll", "Next", "Previous"})
        m_menu.setEnabled(QLatin1String(key), false);
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
    m_transport = std::make_unique<Transport>(*m_engine, m_settings, m_playback, *m_playlist, *m_player, m_menu,
                                              *m_power, *this);
    m_chooser = std::make_unique<playlist::DialogFileChooser>(this);
    m_openFiles = std::make_unique<playlist::FileOpener>(
        *m_chooser, [this](const QString &title, const QString &file, bool fullScreen, bool forcePlay) {
            m_playlist->LoadThumb(title, file, fullScreen, forcePlay);
        });
    connectParts();
    m_player->AddVLCPLayer();
    requestShutdownPrivilege();
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
    setWindowFlag(Qt::WindowStaysOnTopHint, IsSet(m_settings.AlwaysOnTop));
    applyTray();
    if (m_playback.MediaLoaded && m_player->rebuildCaption())
        showCaption();
    if (m_thumbList->isVisible())
        SetPlaylistPosition(m_settings.PlaylistPosition);
}

void MainWindow::WriteConfigurations()
{
    if (!isMaximized() && !m_inFullScreen && !m_isLoading) {
        m_settings.WindowLeft = x() * kTwipsPerPixel;
        m_settings.WindowTop = y() * kTwipsPerPixel;
    }
    if (!ConfigFile::write(m_tables.ConfigPath, m_settings))
        qCWarning(lcApp) << "could not write" << m_tables.ConfigPath;
}

void MainWindow::receiveCommand(const QString &received, std::function<void()> done)
{
    flashCaption();
    const QString command = CommandLine::stripAddMarker(received);
    qCDebug(lcApp) << "hand-off received:" << command;
    // A handed-over file is only added, never started, whatever the marker said.
    m_playlist->LoadThumb(GetFileTitle(command), command, IsSet(m_settings.LaunchFullScreen), false,
                          std::move(done));
}

} // namespace quorvel
