#pragma once
// The audio and subtitle tracks of what plays. When a file starts it picks
// its tracks once the engine has listed them: the tracks the user chose the
// last time that file played (kept with its resume position), or else the
// ones the preferences ask for (see trackchoice.h). What the user chooses
// through the menus (a track, subtitles off, a subtitle file, the subtitle
// delay) goes to the engine and is kept for the file at once.
//
// It polls the engine (which never calls back) and says when the tracks or
// the current ones changed, so the menus follow.

#include "playback/engine.h"
#include "playback/resumestore.h"
#include "settings/playbackprefs.h"

#include <QObject>
#include <QTimer>
#include <functional>

namespace quorvel {

struct PlaybackState;

class TrackKeeper : public QObject {
    Q_OBJECT
public:
    // The preferences are read at each start, so a change in the dialog
    // counts from the next file on.
    using PrefsSource = std::function<PlaybackPrefs()>;
    TrackKeeper(Engine &engine, const PlaybackState &state, ResumeStore &store, PrefsSource prefs,
                QObject *parent = nullptr);

    // The engine started `path` from its beginning: its tracks are picked
    // as soon as the engine lists them.
    void itemBegins(const QString &path);
    // Reads the engine's tracks; runs on its own timer, tests call it directly.
    void sample();

    // As last read from the engine.
    const QList<Engine::Track> &audioTracks() const { return m_audio; }
    const QList<Engine::Track> &subtitleTracks() const { return m_subtitles; }
    int audioTrack() const { return m_audioId; }
    int subtitleTrack() const { return m_subtitleId; }
    // The subtitle file that became track `id`, empty for the item's own tracks.
    QString subtitleFileOf(int id) const { return id >= 0 && id == m_subtitleFileTrack ? m_subtitleFile : QString(); }

    // The user's choices, kept for the current file.
    void chooseAudioTrack(int id);
    // -1 turns the subtitles off.
    void chooseSubtitleTrack(int id);
    void loadSubtitleFile(const QString &path);
    void stepSubtitleDelay(qint64 deltaMs);

signals:
    // The lists or the current tracks changed.
    void tracksChanged();
    // The user moved the subtitle delay to `ms`.
    void subtitleDelayStepped(qint64 ms);

private:
    void applyStartChoice();
    void remember();
    bool ownsItem() const;

    Engine &m_engine;
    const PlaybackState &m_state;
    ResumeStore &m_store;
    PrefsSource m_prefs;
    QTimer m_timer;
    QString m_path; // the file whose tracks are kept, as it was started
    QString m_absolute;
    qint64 m_size = -1;
    bool m_startPending = false;
    QList<Engine::Track> m_audio, m_subtitles;
    int m_audioId = -1, m_subtitleId = -1;
    qint64 m_delayMs = 0;
    // A subtitle file added to the item, and the track it became (-1 until
    // the engine lists it): kept for the file while that track shows.
    QString m_subtitleFile;
    int m_subtitleFileTrack = -1;
    QList<int> m_subtitlesBeforeFile;
    bool m_fileByUser = false;
};

} // namespace quorvel
