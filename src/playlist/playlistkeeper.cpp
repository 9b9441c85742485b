#include "playlistkeeper.h"

#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "playlist/playlist.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <utility>

namespace quorvel {

namespace {
bool IsGone(const QString &path)
{
    static const QRegularExpression location(QStringLiteral("\\A[A-Za-z][A-Za-z0-9+.-]*://"));
    return !location.match(path).hasMatch() && !QFileInfo::exists(path);
}
} // namespace

PlaylistKeeper::PlaylistKeeper(Playlist &playlist, MessageNotifier &notifier, QString filePath, QObject *parent)
    : QObject(parent), m_playlist(playlist), m_notifier(notifier), m_filePath(std::move(filePath))
{
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(1'000);
    connect(&m_saveTimer, &QTimer::timeout, this, &PlaylistKeeper::saveNow);
    connect(&m_playlist, &Playlist::changed, this, &PlaylistKeeper::scheduleSave);
}

QString PlaylistKeeper::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
           + QStringLiteral("/quorvel/playlist.xspf");
}

void PlaylistKeeper::scheduleSave()
{
    // While the saved list comes back, saving would cut it to what is in so far.
    if (!m_restoring && !m_saveTimer.isActive())
        m_saveTimer.start();
}

PlaylistDocument PlaylistKeeper::document() const
{
    PlaylistDocument doc;
    doc.paths = m_playlist.fullPaths();
    const int current = m_playlist.list().selectedItem();
    if (current >= 0 && current < doc.paths.size()) {
        doc.current = current;
        doc.positionMs = m_position ? m_position(doc.paths[current]) : 0;
    }
    return doc;
}

bool PlaylistKeeper::saveNow()
{
    m_saveTimer.stop();
    if (m_restoring)
        return false;
    const PlaylistDocument doc = document();
    QString error;
    if (!SavePlaylistFile(m_filePath, doc, &error)) {
        qCWarning(lcPlaylist) << "could not save the playlist to" << m_filePath << error;
        return false;
    }
    qCDebug(lcPlaylist) << trace::kPlaylistSaved << doc.paths.size() << "entries";
    return true;
}

void PlaylistKeeper::addExisting(const PlaylistDocument &doc, bool playFirst, std::function<void()> done)
{
    QStringList present;
    QStringList gone;
    for (const QString &path : doc.paths)
        (IsGone(path) ? gone : present) << path;
    if (!gone.isEmpty()) {
        const QString head
            = gone.size() == 1
                  ? QStringLiteral("1 file of the playlist is gone and was left out:")
                  : QStringLiteral("%1 files of the playlist are gone and were left out:").arg(gone.size());
        m_notifier.notify(MessageNotifier::Icon::Information, (QStringList{head} + gone).join(QStringLiteral("\r\n")));
    }
    if (present.isEmpty()) {
        done();
        return;
    }
    for (qsizetype i = 0; i < present.size(); ++i)
        m_playlist.LoadThumb(GetFileTitle(present[i]), present[i], false, playFirst && i == 0,
                             i + 1 == present.size() ? std::move(done) : std::function<void()>());
}

void PlaylistKeeper::restore()
{
    if (!QFileInfo::exists(m_filePath))
        return;
    QString error;
    const std::optional<PlaylistDocument> doc = LoadPlaylistFile(m_filePath, &error);
    if (!doc) {
        // Damaged: the list starts empty, and the next change writes a good file.
        qCWarning(lcPlaylist) << "the saved playlist" << m_filePath << "is damaged and was not restored:" << error;
        return;
    }
    const QString currentPath = doc->paths.value(doc->current);
    const qint64 position = doc->positionMs;
    m_restoring = true;
    m_restoringPaths = doc->paths;
    addExisting(*doc, false, [this, currentPath, position] {
        m_restoring = false;
        m_restoringPaths.clear();
        const QString chosen = std::exchange(m_chosen, QString());
        const QString wanted = chosen.isEmpty() ? currentPath : chosen;
        const int current = wanted.isEmpty() ? -1 : int(m_playlist.fullPaths().indexOf(wanted));
        if (current >= 0) {
            m_playlist.list().setSelectedItem(current);
            m_playlist.list().refresh();
        }
        qCDebug(lcPlaylist) << trace::kPlaylistRestored << m_playlist.count() << "entries, current" << current;
        emit restored(current, current >= 0 && wanted == currentPath ? position : 0, current >= 0 && !chosen.isEmpty());
        scheduleSave(); // without the files that are gone
    });
}

bool PlaylistKeeper::playWhenRestored(const QString &path)
{
    if (!m_restoring || !m_restoringPaths.contains(path) || IsGone(path))
        return false;
    qCDebug(lcPlaylist) << "chosen while the playlist comes back:" << path;
    m_chosen = path;
    return true;
}

bool PlaylistKeeper::openPlaylist(const QString &filePath)
{
    QString error;
    const std::optional<PlaylistDocument> doc = LoadPlaylistFile(filePath, &error);
    if (!doc || doc->paths.isEmpty()) {
        m_notifier.notify(MessageNotifier::Icon::Exclamation,
                          QStringLiteral("Cannot open the playlist <") + filePath + QStringLiteral(">\r\n")
                              + (doc ? QStringLiteral("It lists no files.") : error));
        return false;
    }
    // Files already in the list stay where they are, without a word.
    PlaylistDocument fresh;
    for (const QString &path : doc->paths) {
        if (!m_playlist.IsInPlaylist(path))
            fresh.paths << path;
    }
    if (fresh.paths.isEmpty()) {
        m_notifier.notify(MessageNotifier::Icon::Information, QStringLiteral("Every file of the playlist <") + filePath
                                                                  + QStringLiteral("> is in your playlist already."));
        return true;
    }
    addExisting(fresh, true, [] {});
    return true;
}

bool PlaylistKeeper::savePlaylistAs(const QString &filePath)
{
    PlaylistDocument doc = document();
    doc.current = -1; // a playlist for others holds the files only
    QString error;
    if (SavePlaylistFile(filePath, doc, &error))
        return true;
    m_notifier.notify(MessageNotifier::Icon::Exclamation,
                      QStringLiteral("Cannot save the playlist to <") + filePath + QStringLiteral(">\r\n") + error);
    return false;
}

} // namespace quorvel
