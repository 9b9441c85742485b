#pragma once
// Picking up where the user left off, for the main window: each file's
// position (resumed with a "Start over" offer over the video), the playlist
// kept between runs, folders opened or dropped in natural order and played
// on past the end of the list, playlist files, and the preferences that
// govern all of it. The window creates it once its parts exist; the logic
// lives in the keepers it owns.

#include "playback/resumekeeper.h"
#include "playback/resumestore.h"
#include "playlist/playlistkeeper.h"
#include "settings/playbackprefs.h"

#include <QObject>
#include <QStringList>

class QWidget;

namespace quorvel {

class Engine;
class MenuModel;
class MessageNotifier;
class Player;
class Playlist;
class ResumePrompt;
class Transport;
struct PlaybackState;

class SessionKeeper : public QObject {
    Q_OBJECT
public:
    struct Parts {
        QWidget *window;
        QWidget *video;
        MenuModel &menu;
        MenuModel &classicMenu;
        Engine &engine;
        PlaybackState &state;
        Player &player;
        Transport &transport;
        Playlist &playlist;
        MessageNotifier &notifier;
    };
    explicit SessionKeeper(Parts parts);
    ~SessionKeeper() override;

    // At a start without files: the playlist of the last run comes back.
    void restorePlaylist();
    // A file chosen to play (a recent file): true when the playlist coming
    // back holds it, which then plays from its row instead of being added.
    bool playWhenRestored(const QString &path);
    // Dropped paths as the playlist takes them: folders become their media files.
    QStringList droppedFiles(const QStringList &paths) const;
    // The window closes: the playlist and the current position are saved now.
    void windowClosing();
    // The preferences in force, as last loaded or edited.
    const PlaybackPrefs &prefs() const { return m_prefs; }
    // The process's one store of positions and track choices.
    ResumeStore &resumeStore() { return m_store; }

    void openFolder();
    void openPlaylist();
    void savePlaylistAs();
    void editPreferences();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void runMenuKey(const QString &key);
    bool playNextInFolder();

    Parts m_parts;
    QString m_prefsPath;
    PlaybackPrefs m_prefs;
    ResumeStore m_store;
    ResumeKeeper m_resume;
    PlaylistKeeper m_playlistKeeper;
    ResumePrompt *m_prompt;
    QString m_lastFolder;
};

} // namespace quorvel
