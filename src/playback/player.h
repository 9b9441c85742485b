#pragma once
// Starts playlist entries on the engine and keeps the playback-state flags.
// Every way of starting an entry (adding with play, the play button, a
// double-click, next and previous, the automatic advance) ends in PlayItem.

#include "app/settings.h"
#include "playback/engine.h"
#include "playback/playbackstate.h"

#include <QObject>

namespace quorvel {

class Playlist;

class Player : public QObject {
    Q_OBJECT
public:
    Player(Engine &engine, const Settings &settings, PlaybackState &state, Playlist &playlist,
           QObject *parent = nullptr);

    // `AddVLCPLayer` / `RemoveVLCPlayer`: a fresh control for every item.
    void AddVLCPLayer() { m_engine.createControl(); }
    void RemoveVLCPlayer() { m_engine.destroyControl(); }
    // Rebuilds the engine options from the settings.
    void SaveVLCOptions();
    // Sets the three flags and tells the controls to follow.
    void enableMediaControl(MediaAction action);
    // Starts entry `index`; does nothing when it is outside the playlist.
    void PlayItem(int index, bool fullScreen);
    // The caption for the current item under the title mode; false when the
    // mode leaves the caption as it was.
    bool rebuildCaption();

    Engine &engine() { return m_engine; }
    PlaybackState &state() { return m_state; }

signals:
    void captionChanged(const QString &caption);
    // Menu items and skin buttons follow the playback state.
    void controlsChanged(MediaAction action);
    // An entry started: for the recent-file history.
    void itemStarted(const QString &path, const QString &title);

private:
    Engine &m_engine;
    const Settings &m_settings;
    PlaybackState &m_state;
    Playlist &m_playlist;
};

} // namespace quorvel
