#pragma once
// What the desktop's media controls (media keys, panel widgets) see of the
// player over MPRIS 2, and what they may ask of it, without D-Bus: the
// properties as the protocol names them, worked out from the playback state,
// and the protocol's commands carried out through the transport. The bus
// adaptor only forwards. refresh() compares with what was last told and
// reports the properties that changed, and a position that jumped.

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariantMap>

namespace quorvel {

class Engine;
class Player;
class Playlist;
class Transport;
struct PlaybackState;
struct Settings;

// What the remote control needs of the window.
class MprisHost {
public:
    virtual ~MprisHost() = default;
    virtual void raise() = 0;
    virtual void quit() = 0;
    virtual int volume() const = 0; // 0..100
    virtual void setVolume(int volume) = 0;
    // Adds local files to the playlist as a later start hands them over.
    virtual void addFiles(const QStringList &paths) = 0;
};

class MprisModel : public QObject {
    Q_OBJECT
public:
    MprisModel(Transport &transport, Player &player, Playlist &playlist, Settings &settings, MprisHost &host,
               QObject *parent = nullptr);

    static QStringList supportedUriSchemes();
    static QStringList supportedMimeTypes();
    void raise() { m_host.raise(); }
    void quit() { m_host.quit(); }

    // The player's properties (times in microseconds).
    QString playbackStatus() const;
    QString loopStatus() const;
    // False when `status` is none of "None", "Track", "Playlist".
    bool setLoopStatus(const QString &status);
    bool shuffle() const;
    void setShuffle(bool on);
    double rate() const;
    // Goes to the speed step nearest to `rate`; 0 or less pauses.
    void setRate(double rate);
    static double minimumRate();
    static double maximumRate();
    double volume() const;
    void setVolume(double volume);
    QVariantMap metadata() const;
    qint64 position() const;
    bool canGoNext() const;
    bool canGoPrevious() const { return canGoNext(); }
    bool canPlay() const;
    bool canPause() const;
    bool canSeek() const;
    // The properties that PropertiesChanged reports (all but the position).
    QVariantMap properties() const;

    // The player's methods.
    void play();
    void pause();
    void playPause();
    void stop();
    void next();
    void previous();
    void seek(qint64 offsetUs);
    void setPosition(const QString &trackId, qint64 positionUs);
    // Adds a local file like a hand-off; the reason when it cannot.
    QString openUri(const QString &uri);

    // Reports what changed since the last report.
    void refresh();

signals:
    void propertiesChanged(const QVariantMap &changed);
    void seeked(qint64 positionUs);

private:
    bool isPlaying() const;
    bool isPaused() const;
    qint64 lengthUs() const;
    QString trackId() const;
    void trackStarted(const QString &path);
    void refreshSoon();
    void jumpedTo(qint64 positionUs);

    Transport &m_transport;
    Player &m_player;
    Playlist &m_playlist;
    Settings &m_settings;
    MprisHost &m_host;
    Engine &m_engine;
    PlaybackState &m_state;
    QVariantMap m_told;
    int m_track = 0; // counts the items started, so each start is a new track
    QString m_artPath;
    QTemporaryDir m_artDir;
    qint64 m_lastPosition = 0;
    QElapsedTimer m_sinceLastPosition;
    QString m_lastTrack;
    bool m_refreshPending = false;
};

} // namespace quorvel
