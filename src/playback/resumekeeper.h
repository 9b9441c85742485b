#pragma once
// Keeps each file's position while it plays and brings it back when the file
// starts again. The position is saved every 10 s while playing (so a crash
// loses at most that), when the item is left (stop, another item, closing),
// and forgotten once the file has been played to its end. Which file a
// position belongs to is decided when it starts: a position never moves to
// another file.
//
// The user's say: with ResumeMode::Ask the position is taken at once and
// offered back for 5 s ("Start over" returns to the beginning); Always takes
// it without asking, Never starts every file from its beginning.

#include "playback/resumestore.h"
#include "settings/playbackprefs.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace quorvel {

class Engine;
struct PlaybackState;

class ResumeKeeper : public QObject {
    Q_OBJECT
public:
    ResumeKeeper(Engine &engine, const PlaybackState &state, ResumeStore &store, const PlaybackPrefs &prefs,
                 QObject *parent = nullptr);

    // The engine started `path` from its beginning.
    void itemBegins(const QString &path);
    // The item is about to be stopped or replaced: its place is saved now.
    void leavingItem();
    // Reads the engine: applies a waiting resume, notes the position and
    // saves it every 10 s. Runs on its own timer; tests call it directly.
    void sample();
    // One start of `path` begins at `positionMs` even when the store has
    // nothing for it (the playlist's current item after a restart).
    void setStartHint(const QString &path, qint64 positionMs);

    // The answers to the offer.
    void startOver();
    void keepResume();
    bool isOffering() const { return m_offerTimer.isActive(); }
    // How long the offer stays before it takes the resume by itself (5 s); tests shorten it.
    void setOfferTime(int ms) { m_offerTimer.setInterval(ms); }
    // Where the current item was last seen playing, 0 when unknown.
    qint64 lastPositionMs() const { return m_path.isEmpty() ? 0 : m_lastTimeMs; }

signals:
    // The file resumed at `positionMs`: the window offers "Start over".
    void offered(qint64 positionMs);
    // The offer is over (answered or taken by itself).
    void offerClosed();
    // A position was written to the store.
    void saved();

private:
    void persist();
    void closeOffer();

    Engine &m_engine;
    const PlaybackState &m_state;
    ResumeStore &m_store;
    const PlaybackPrefs &m_prefs;
    QTimer m_sampleTimer;
    QTimer m_offerTimer;
    QElapsedTimer m_sinceSave;
    QElapsedTimer m_sinceSeek;
    QString m_path;     // what the engine plays, as it was started
    QString m_absolute; // its store key: absolute path ...
    qint64 m_size = -1; // ... and size
    qint64 m_pendingMs = -1;
    qint64 m_lastTimeMs = 0;
    qint64 m_savedMs = -1; // the place written last
    qint64 m_lengthMs = 0;
    QString m_hintPath;
    qint64 m_hintMs = 0;
    bool m_offerOpen = false;
};

} // namespace quorvel
