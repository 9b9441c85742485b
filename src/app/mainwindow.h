#pragma once
// The main window is the composition root: it owns the settings, the tables
// built at start-up, the playback state, the engine, the playlist and the
// hand-off endpoints, and wires them together. Start-up and shut-down follow
// a fixed order (mainwindow_startup.cpp); the logic lives in the classes it
// owns, the skinned surface, the menus and the DVD entries in the hosts
// beside it; the window only composes and forwards.

#include "app/appstate.h"
#include "app/handoffserver.h"
#include "app/mediacontrols.h"
#include "app/messagebox.h"
#include "app/recenthistory.h"
#include "app/windowmenus.h"
#include "app/windowstates.h"
#include "menus/commanddispatcher.h"
#include "playback/playbackstate.h"
#include "playback/transport.h"
#include "settings/keyvaluestore.h"
#include "settings/settings.h"

#include <QWidget>
#include <memory>

class QMenuBar;
class QShortcut;
class QProgressBar;

namespace quorvel {

class DvdPlayback;
class FancyList;
class FancyListThumbList;
class Transport;
class MediaProbe;
namespace playback {
class PowerControl;
}
namespace playlist {
class DialogFileChooser;
class FileOpener;
} // namespace playlist
class PaneSplitter;
class Player;
class Playlist;
class PlaylistPlacement;
class RunningMarker;
class SessionKeeper;
class EqualizerKeeper;
class SkinSurface;
class UnixSignalWatcher;
class VideoFrame;
class VlcEngine;
class WindowDvd;
class WindowTracks;

class MainWindow : public QWidget, public TransportView, public CommandActions {
    Q_OBJECT
public:
    MainWindow();
    ~MainWindow() override;

    // Runs the start-up sequence of the running instance: builds everything,
    // adds the files of `command` and then serves later starts through
    // `receiver` (none in tests, or when the system refused the endpoints).
    void FormLoad(const CommandLine &command = {}, std::unique_ptr<HandoffServer> receiver = nullptr);

    // Reads "Config.cfg" (defaults on damage), rebuilds the engine options and
    // applies the window settings.
    void LoadConfigurations();
    void WriteConfigurations();
    void SetLoadedOptions();

    // Adds the files handed over by a later start; `done` runs once they are in.
    void receiveCommand(const QString &command, std::function<void()> done);

    Settings &settings() { return m_settings; }
    PlaybackState &playback() { return m_playback; }
    Playlist &playlist() { return *m_playlist; }
    Player &player() { return *m_player; }
    Transport &transport() { return *m_transport; }
    MenuModel &menu() { return m_menus->menu(); }
    MenuModel &classicMenu() { return m_menus->classicMenu(); }
    CommandDispatcher &commands() { return *m_dispatcher; }
    // Drive enumeration and DVD playing (the Open DVD entries route here).
    DvdPlayback &dvd();
    const AppTables &tables() const { return m_tables; }
    // The volume slider's value, 0 to 100.
    int volume() const;
    bool isLoading() const { return m_isLoading; }

signals:
    // The window is closing and the settings have been written.
    void closing();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void InitPlayer();
    void buildWidgets();
    void connectParts();
    void enterFullScreen(bool on);
    // Places the child widgets in the skin's bands.
    void layoutChildren();
    void onListClicked(int index);

    // What the transport shows through the window.
    void setTimeText(const QString &text) override;
    void setRateText(const QString &text, bool visible) override;
    void setProgressPercent(int percent) override;
    void openFiles(bool append) override;
    void togglePlaylist() override;
    void closeWindow() override;
    void controlsChanged() override;

    // What the commands ask of the window.
    void minimize() override;
    void toggleMaximize() override;
    void maximizeOrRestore() override;
    void showMediaInformation() override;
    void showCaption() override;
    void popupDvdMenu() override;
    void showSettings() override;
    void showAbout() override;
    void setStaysOnTop(bool on) override;
    void openUrl(const QUrl &url) override;
    void playHistoryEntry(int slot) override;
    void changeVolume(int delta) override;
    void enableDvdCheck() override;
    void onListDoubleClicked(int index);

    // The states of the controls.
    void followMediaControl(MediaAction action);
    void updatePlaylistMenuItems();
    void applyControls(const ControlEnables &controls);
    // Reads the recent-file history into the menu and keeps it up to date.
    void LoadHistory();

    AppTables m_tables;
    Settings m_settings;
    SettingsEnvironment m_environment;
    PlaybackState m_playback;
    bool m_isLoading = false;
    bool m_forcePlay = true;
    bool m_closing = false;
    WindowStates m_windowStates;

    // Widgets (owned by the window through Qt parenting).
    PaneSplitter *m_splitter = nullptr;
    VideoFrame *m_videoFrame = nullptr;
    FancyList *m_listWidget = nullptr;
    QProgressBar *m_addProgress = nullptr;
    QMenuBar *m_menuBar = nullptr;
    QShortcut *m_leaveFullScreen = nullptr;

    std::unique_ptr<SkinSurface> m_surface;
    std::unique_ptr<WindowMenus> m_menus;
    std::unique_ptr<PlaylistPlacement> m_placement;

    MessageBoxNotifier m_notifier;
    std::unique_ptr<RunningMarker> m_marker;
    std::unique_ptr<VlcEngine> m_engine;
    std::unique_ptr<MediaProbe> m_probe;
    std::unique_ptr<FancyListThumbList> m_thumbList;
    std::unique_ptr<Playlist> m_playlist;
    std::unique_ptr<Player> m_player;
    std::unique_ptr<playback::PowerControl> m_power;
    std::unique_ptr<Transport> m_transport;
    std::unique_ptr<CommandDispatcher> m_dispatcher;
    std::unique_ptr<playlist::DialogFileChooser> m_chooser;
    std::unique_ptr<playlist::FileOpener> m_openFiles;
    std::unique_ptr<HandoffServer> m_handoff;
    std::unique_ptr<UnixSignalWatcher> m_signals;
    std::unique_ptr<KeyValueStore> m_store;
    std::unique_ptr<RecentHistory> m_history;
    std::unique_ptr<WindowDvd> m_dvd;
    std::unique_ptr<SessionKeeper> m_session; // positions, the kept playlist, folders
    std::unique_ptr<EqualizerKeeper> m_equalizer;
    std::unique_ptr<WindowTracks> m_tracks; // audio tracks and subtitles
};

} // namespace quorvel
