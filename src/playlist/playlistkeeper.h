#pragma once
// Keeps the playlist between runs and reads and writes playlist files. The
// list (its paths in order, the current item and where it was) is saved to
// "playlist.xspf" in the user's config folder a moment after each change, so
// a burst of changes makes one write, and each write replaces the file in one
// piece. At the next start without files it is read back; files that have
// gone since are left out and named in one message.

#include "common/notifier.h"
#include "playlist/playlistfile.h"

#include <QObject>
#include <QTimer>
#include <functional>

namespace quorvel {

class Playlist;

class PlaylistKeeper : public QObject {
    Q_OBJECT
public:
    PlaylistKeeper(Playlist &playlist, MessageNotifier &notifier, QString filePath, QObject *parent = nullptr);
    // "<XDG config>/quorvel/playlist.xspf".
    static QString defaultPath();

    // Where the entry with this path was last seen playing, 0 when unknown.
    void setPositionSource(std::function<qint64(const QString &path)> source) { m_position = std::move(source); }
    // Saves a moment from now; further changes until then make one save.
    void scheduleSave();
    bool saveNow();
    // How long a change waits for others before the list is saved; tests set 0.
    void setSaveDelay(int ms) { m_saveTimer.setInterval(ms); }

    // Adds the files of the list saved last; `restored` follows once they are in.
    void restore();
    bool isRestoring() const { return m_restoring; }
    // A file chosen to play while the saved list comes back (a recent file)
    // wins over the list's current entry. True when the restore brings that
    // file: `restored` then names its entry with `play` set, and the caller
    // must not add it again (a second add of it would play the last entry).
    bool playWhenRestored(const QString &path);
    // "Open playlist...": adds the files of a playlist file and plays the
    // first; false with a message when the file is no playlist.
    bool openPlaylist(const QString &filePath);
    // "Save playlist as...": the format follows the extension.
    bool savePlaylistAs(const QString &filePath);
    // The playlist as it stands.
    PlaylistDocument document() const;

signals:
    // The saved list is back: `current` is the entry that was current (-1
    // for none), `positionMs` where it was; or, with `play`, the entry chosen
    // meanwhile, which is to play now.
    void restored(int current, qint64 positionMs, bool play);

private:
    // Adds the files of `doc` that still exist; `done` runs once they are in.
    void addExisting(const PlaylistDocument &doc, bool playFirst, std::function<void()> done);

    Playlist &m_playlist;
    MessageNotifier &m_notifier;
    QString m_filePath;
    QTimer m_saveTimer;
    std::function<qint64(const QString &)> m_position;
    bool m_restoring = false;
    QStringList m_restoringPaths;
    QString m_chosen;
};

} // namespace quorvel
