#pragma once
// Starts playlist entries on the engine and keeps the playback-state flags.
// Every way of starting an entry (adding with play, the play button, a
// double-click, next and previous, the automatic advance) ends in PlayItem.

#include "playback/engine.h"
#include "playback/playbackstate.h"
#include "settings/settings.h"

#include <QObject>
#include <QSet>

namespace quorvel {

class MessageNotifier;
class Playlist;

// What came of starting an entry.
enum class StartResult {
    Started,
    NotInList,    // the index names no entry: nothing changed
    FileMissing,  // the entry's file is gone: said once per file, nothing changed
    EngineFailed, // the engine cannot start: said once, the state is "stopped"
};

// Who asked for an entry: the user (Play, a double-click, opening files) is
// told about every entry that cannot play; the automatic advance and next /
// previous say it once per file, since a repeating list comes back to it.
enum class StartedBy { User, Advance };

class Player : public QObject {
    Q_OBJECT
public:
    Player(Engine &engine, const Settings &settings, PlaybackState &state, Playlist &playlist,
           QObject *parent = nullptr);

    // A fresh engine control for every item.
    void createEngine() { m_engine.createControl(); }
    void destroyEngine() { m_engine.destroyControl(); }
    // Rebuilds the engine options from the settings.
    void SaveVLCOptions();
    // Sets the three flags and tells the controls to follow.
    void enableMediaControl(MediaAction action);
    // Starts entry `index`; does nothing when it is outside the playlist or
    // its file has been deleted since it was added.
    StartResult PlayItem(int index, bool fullScreen, StartedBy by = StartedBy::User);
    // Loads entry `index` into a fresh engine control without starting it,
    // so that Play starts it (the current entry of a list kept from the last
    // run). The state stays "stopped"; false when it cannot be loaded.
    bool CueItem(int index);
    // The current item is started again (Play on a stopped item).
    void restartedByUser();
    // The monitor saw the current item play: a later failure of its file is news.
    void itemPlays();
    // The engine could not open the current item's file (damaged, truncated,
    // not media): says so like a missing file.
    void itemUnopenable();
    // Entries that could not play since the last one that did (or since the
    // user chose one): once it reaches the length of the play order, nothing
    // in the list can play.
    int unplayableInRow() const { return m_unplayableInRow; }
    // Where the user is told about missing files and a failed engine.
    void setNotifier(MessageNotifier *notifier) { m_notifier = notifier; }
    // The caption for the current item under the title mode; false when the
    // mode leaves the caption as it was.
    bool rebuildCaption();
    // Rebuilds the caption and tells the window when the mode changed it.
    void refreshCaption()
    {
        if (rebuildCaption())
            emit captionChanged(m_state.CaptionText);
    }

    // The current item is stopped or left for another: its place can be kept.
    void leaveItem() { emit leavingItem(); }
    // The stopped current item starts again from its beginning.
    void beginAgain() { emit itemBegins(m_state.CurrentFile); }

    Engine &engine() { return m_engine; }
    PlaybackState &state() { return m_state; }

signals:
    void captionChanged(const QString &caption);
    // Menu items and skin buttons follow the playback state.
    void controlsChanged(MediaAction action);
    // An entry started: for the recent-file history.
    void itemStarted(const QString &path, const QString &title);
    // The engine is about to stop or drop the current item.
    void leavingItem();
    // The engine starts `path` from its beginning.
    void itemBegins(const QString &path);

private:
    void tell(const QString &text);
    void tellCannotOpen(const QString &path, const QString &reason, StartedBy by);
    void loadIntoFreshControl(const QString &path);

    Engine &m_engine;
    const Settings &m_settings;
    PlaybackState &m_state;
    Playlist &m_playlist;
    MessageNotifier *m_notifier = nullptr;
    QSet<QString> m_reportedUnplayable;
    StartedBy m_startedBy = StartedBy::User;
    int m_unplayableInRow = 0;
    bool m_engineFailureReported = false;
};

} // namespace quorvel
