#pragma once
// Turns every command of the program into its action: the items of the menu
// bar (by key, in a fixed order), the entries of the pop-up tree (by entry
// name), the skin buttons and the player keys. It keeps the states of both
// menu trees: the bar's items the commands change, and the pop-up tree's
// checks and enabled entries, set when a branch opens and after each choice,
// so a mode chosen in either tree shows one check per group in both. It
// needs no window: what only a window can do goes through CommandActions.

#include "skin/skinbuttons.h"

#include <QKeySequence>
#include <QObject>
#include <QStringList>
#include <QUrl>

namespace quorvel {

class MenuModel;
class MessageNotifier;
class Playlist;
class Transport;
class TrackKeeper;
struct PlaybackState;
struct Settings;
namespace playlist {
class FileChooser;
}

// What the window does for the commands.
class CommandActions {
public:
    virtual ~CommandActions() = default;
    // The file dialog: replaces the playlist, or adds to it with `append`.
    virtual void openFiles(bool append) = 0;
    virtual void closeWindow() = 0;
    virtual void minimize() = 0;
    virtual void toggleMaximize() = 0;
    virtual void maximizeOrRestore() = 0;
    virtual void showMediaInformation() = 0;
    virtual void showCaption() = 0;
    // Pops up the pop-up tree's drive branch over the DVD button.
    virtual void popupDvdMenu() = 0;
    // The dialogs; each returns when its dialog has closed.
    virtual void showSettings() = 0;
    virtual void showAbout() = 0;
    // In or out of the always-on-top band, without moving the window.
    virtual void setStaysOnTop(bool on) = 0;
    virtual void openUrl(const QUrl &url) = 0;
    virtual void playHistoryEntry(int slot) = 0;
    // Volume up or down by `delta` (0..100 overall).
    virtual void changeVolume(int delta) = 0;
};

// The optical drives, provided by DVD support.
class DriveActions {
public:
    virtual ~DriveActions() = default;
    // Plays the disc of drive entry `index` (0 = the first drive listed).
    virtual void playDrive(int index) = 0;
    // Lists the drives again (calls setDvdEntries with the result).
    virtual void refreshDrives() = 0;
};

class CommandDispatcher : public QObject {
    Q_OBJECT
public:
    CommandDispatcher(MenuModel &menu, MenuModel &classic, Transport &transport, Playlist &playlist,
                      PlaybackState &state, Settings &settings, CommandActions &actions, MessageNotifier &notifier,
                      QObject *parent = nullptr);

    void setDriveActions(DriveActions *drives) { m_drives = drives; }
    // Shows the drives in both trees: one entry per caption (at most six),
    // or "<No DVD drives were found>" when there are none.
    void setDvdEntries(const QStringList &captions);
    // The "Audio track" and "Subtitles" branches of both trees follow
    // `tracks` and act through it; "Load subtitle file..." asks `chooser`.
    void setTracks(TrackKeeper &tracks, playlist::FileChooser &chooser);
    // The help pages, "help/index.html" under `programFolder`.
    void setProgramFolder(const QString &programFolder) { m_programFolder = programFolder; }

    // The menu bar's choice at `position`.
    void runMenuItem(int position);
    // The pop-up tree's choice at `position`, and the opening of a branch.
    void runClassicItem(int position);
    void classicBranchOpening(int position);
    void runSkinCommand(SkinCommand command);
    // Space, Left, Right, Up and Down: false for any other key.
    bool runKey(const QKeySequence &key);

    void openHelp();
    // Empties the playlist: the caption names no entry any more.
    void removeAll();

private:
    void playPause(bool enableStop);
    void setPlayMode(int mode);
    void setRepeatMode(int mode);
    void setAfterPlay(int action);
    void addFiles();
    void removeSelected();
    void setPlaylistItems(bool usable);
    void showDialog(void (CommandActions::*show)());
    void seekBy(int ms);
    void playDrive(int index);
    void syncClassicChecks();
    bool runNumbered(const QString &key);
    // A command of the track branches, by its menu-bar key; false for any other key.
    bool runTrackCommand(const QString &key);
    void showTracks();
    void trackBranchOpening(const QString &key);
    void loadSubtitleFile();

    MenuModel &m_menu;
    MenuModel &m_classic;
    Transport &m_transport;
    Playlist &m_playlist;
    PlaybackState &m_state;
    Settings &m_settings;
    CommandActions &m_actions;
    MessageNotifier &m_notifier;
    DriveActions *m_drives = nullptr;
    TrackKeeper *m_tracks = nullptr;
    playlist::FileChooser *m_subtitleChooser = nullptr;
    QString m_programFolder;
    bool m_noDrives = true;
};

} // namespace quorvel
