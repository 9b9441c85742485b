#pragma once
// The main window is the composition root: it owns the settings, the tables
// built at start-up, the playback state, the engine, the playlist and the
// hand-off endpoints, and wires them together. Start-up and shut-down follow
// a fixed order (mainwindow_startup.cpp); the logic lives in the classes it
// owns, the window only hosts and forwards.

#include "app/appstate.h"
#include "app/handoffserver.h"
#include "app/mediacontrols.h"
#include "app/messagebox.h"
#include "app/recenthistory.h"
#include "app/windowresizer.h"
#include "app/windowstates.h"
#include "menus/commanddispatcher.h"
#include "menus/menumodel.h"
#include "playback/playbackstate.h"
#include "playback/transport.h"
#include "settings/keyvaluestore.h"
#include "settings/settings.h"
#include "skin/skincontroller.h"
#include "skin/textellipsis.h"

#include <QHash>
#include <QWidget>
#include <memory>

class QBoxLayout;
class QToolButton;
class QLabel;
class QMenuBar;
class QShortcut;
class QSystemTrayIcon;
class QProgressBar;
class QTimer;

namespace quorvel {

class DriveList;
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
class MenuView;
class PaneSplitter;
class Player;
class Playlist;
class RunningMarker;
class SessionKeeper;
class UnixSignalWatcher;
class VideoFrame;
class VlcEngine;

class MainWindow : public QWidget, public TransportView, public CommandActions, public DriveActions {
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
    MenuModel &menu() { return m_menu; }
    MenuModel &classicMenu() { return m_classicMenu; }
    CommandDispatcher &commands() { return *m_dispatcher; }
    // Drive enumeration and DVD playing (the Open DVD entries route here).
    DvdPlayback &dvd() { return *m_dvd; }
    const AppTables &tables() const { return m_tables; }
    bool isLoading() const { return m_isLoading; }

signals:
    // The window is closing and the settings have been written.
    void closing();

protected:
    bool event(QEvent *event) override; // the caption's tooltip
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // the player keys
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void InitPlayer();
    void buildWidgets();
    void connectParts();
    void enterFullScreen(bool on);
    // The skin: pictures, layout of the child widgets, what the mouse does.
    void layoutChildren();
    void runSkinReaction(const SkinController::Reaction &reaction);
    void setVolume(int volume);
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
    void popupClassicBranch(const QString &key, QPoint globalPos);
    void enableDvdCheck() override;
    // The drives, for the commands.
    void playDrive(int index) override;
    void refreshDrives() override;
    void onListDoubleClicked(int index);
    void flashCaption();

    // The skin pictures, the menu and the states of the controls.
    void LoadSkinImages();
    void BuildMenu();
    void followMediaControl(MediaAction action);
    void updatePlaylistMenuItems();
    void applyControls(const ControlEnables &controls);
    void applyTray();
    // Reads the recent-file history into the menu and keeps it up to date.
    void LoadHistory();
    // DVDs: the drive list, the check timer and "Open DVD folder or image...".
    void setupDvd();
    void openDvdSource();
    // Plays the first DVD-Video folder or image of `files` and returns the rest.
    QStringList playDvdAmong(const QStringList &files);

public:
    // Places the playlist beside, above, below or over the video (codes 0-4)
    // or leaves it out of the panes (5).
    void SetPlaylistPosition(int layoutCode);

private:
    AppTables m_tables;
    Settings m_settings;
    SettingsEnvironment m_environment;
    PlaybackState m_playback;
    bool m_isLoading = false;
    bool m_forcePlay = true;
    bool m_closing = false;
    bool m_painted = false;
    bool m_playlistFill = false;
    WindowStates m_windowStates;

    // Widgets (owned by the window through Qt parenting).
    PaneSplitter *m_splitter = nullptr;
    VideoFrame *m_videoFrame = nullptr;
    FancyList *m_listWidget = nullptr;
    QProgressBar *m_addProgress = nullptr;
    QMenuBar *m_menuBar = nullptr;
    MenuView *m_menuView = nullptr;
    MenuView *m_classicView = nullptr; // the pop-up tree
    QSystemTrayIcon *m_tray = nullptr;
    QShortcut *m_leaveFullScreen = nullptr;

    MenuModel m_menu;
    MenuModel m_classicMenu;
    SkinImages m_skinImages;
    std::unique_ptr<SkinController> m_skin;
    WindowResizer m_resizer;
    QPoint m_dragFrom; // pointer offset while the title bar moves the window by hand
    bool m_dragging = false;
    QSize m_askedSize; // the size last asked for during an edge drag
    int m_captionFlags = PathEllipsis;

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
    std::unique_ptr<DriveList> m_drives;
    std::unique_ptr<DvdPlayback> m_dvd;
    QString m_dvdFolder;                      // where "Open DVD folder or image..." opens
    std::unique_ptr<SessionKeeper> m_session; // positions, the kept playlist, folders
};

} // namespace quorvel
