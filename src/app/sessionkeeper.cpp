#include "sessionkeeper.h"

#include "app/playbackprefsdialog.h"
#include "app/resumeprompt.h"
#include "common/logging.h"
#include "common/paths.h"
#include "menus/menukeys.h"
#include "menus/menumodel.h"
#include "playback/engine.h"
#include "playback/player.h"
#include "playback/transport.h"
#include "playlist/folderscan.h"
#include "playlist/playlist.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>

namespace quorvel {

SessionKeeper::SessionKeeper(Parts parts)
    : m_parts(parts), m_prefsPath(PlaybackPrefsPath()), m_prefs(LoadPlaybackPrefs(m_prefsPath)),
      m_store(ResumeStore::defaultPath()), m_resume(parts.engine, parts.state, m_store, m_prefs),
      m_playlistKeeper(parts.playlist, parts.notifier, PlaylistKeeper::defaultPath()),
      m_prompt(new ResumePrompt(parts.window, parts.video))
{
    // Positions: kept while the item plays, saved as it is left.
    connect(&parts.player, &Player::itemBegins, &m_resume, &ResumeKeeper::itemBegins);
    connect(&parts.player, &Player::leavingItem, &m_resume, &ResumeKeeper::leavingItem);
    connect(&m_resume, &ResumeKeeper::offered, m_prompt, &ResumePrompt::offer);
    connect(&m_resume, &ResumeKeeper::offerClosed, m_prompt, &QWidget::hide);
    connect(m_prompt, &ResumePrompt::resumeChosen, &m_resume, &ResumeKeeper::keepResume);
    connect(m_prompt, &ResumePrompt::startOverChosen, &m_resume, &ResumeKeeper::startOver);
    parts.video->installEventFilter(this);

    // The playlist: saved after each change, with the current item's place.
    m_playlistKeeper.setPositionSource(
        [this](const QString &path) { return path == m_parts.state.CurrentFile ? m_resume.lastPositionMs() : 0; });
    connect(&m_resume, &ResumeKeeper::saved, &m_playlistKeeper, &PlaylistKeeper::scheduleSave);
    connect(&parts.player, &Player::itemStarted, &m_playlistKeeper, &PlaylistKeeper::scheduleSave);
    connect(&parts.transport, &Transport::selectionMoved, &m_playlistKeeper, &PlaylistKeeper::scheduleSave);
    connect(&m_playlistKeeper, &PlaylistKeeper::restored, this, [this](int current, qint64 positionMs, bool play) {
        if (current < 0)
            return;
        const QString path = m_parts.playlist.fullPath(current);
        m_resume.setStartHint(path, positionMs);
        m_parts.transport.sequence().setCursor(current);
        // A file chosen meanwhile plays, unless it already does; otherwise
        // Play starts the current entry, unless something plays already.
        if (play && !(m_parts.state.MediaLoaded && m_parts.state.CurrentFile == path))
            m_parts.player.PlayItem(current, false);
        else if (!play && !m_parts.state.MediaLoaded && m_parts.engine.itemCount() == 0)
            m_parts.player.CueItem(current);
    });

    parts.transport.setListEndedHandler([this] { return playNextInFolder(); });
    connect(&parts.menu, &MenuModel::MenuItemClick, this,
            [this](int position) { runMenuKey(m_parts.menu.KeyAt(position)); });
    connect(&parts.classicMenu, &MenuModel::MenuItemClick, this, [this](int position) {
        // The pop-up tree's entries are the bar's keys with "mnu" before them.
        const QString entry = m_parts.classicMenu.KeyAt(position);
        if (entry.startsWith(u"mnu"))
            runMenuKey(entry.mid(3));
    });
}

SessionKeeper::~SessionKeeper() = default;

void SessionKeeper::runMenuKey(const QString &key)
{
    if (key == menukey::OpenFolder)
        openFolder();
    else if (key == menukey::OpenPlaylist)
        openPlaylist();
    else if (key == menukey::SavePlaylistAs)
        savePlaylistAs();
    else if (key == menukey::PlaybackPreferences)
        editPreferences();
}

void SessionKeeper::restorePlaylist()
{
    m_playlistKeeper.restore();
}

bool SessionKeeper::playWhenRestored(const QString &path)
{
    if (!m_playlistKeeper.playWhenRestored(path))
        return false;
    // Already in: it plays now, and the end of the restore leaves it playing.
    const int index = int(m_parts.playlist.fullPaths().indexOf(path));
    if (index >= 0) {
        m_parts.playlist.list().setSelectedItem(index);
        m_parts.player.PlayItem(index, false);
        m_parts.transport.sequence().setCursor(index);
    }
    return true;
}

QStringList SessionKeeper::droppedFiles(const QStringList &paths) const
{
    return ExpandFolders(paths, m_prefs.folderSubfolders);
}

void SessionKeeper::windowClosing()
{
    // The list first: it takes the current item's place from the keeper,
    // which lets go of the item when told it is left.
    m_playlistKeeper.saveNow();
    m_resume.leavingItem();
}

bool SessionKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        if (m_prompt->isVisible())
            m_prompt->place();
    }
    return QObject::eventFilter(watched, event);
}

bool SessionKeeper::playNextInFolder()
{
    const QString current = m_parts.state.CurrentFile;
    if (!m_prefs.playNextInFolder || current.isEmpty() || IsEngineLocation(current))
        return false;
    const QString next = NextInFolder(current, m_parts.playlist.fullPaths());
    if (next.isEmpty())
        return false;
    qCDebug(lcApp) << "the list has ended: on to the next file of its folder" << next;
    m_parts.transport.stop([this, next] { m_parts.playlist.LoadThumb(GetFileTitle(next), next, false, true); });
    return true;
}

void SessionKeeper::openFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(m_parts.window, QStringLiteral("Open folder"),
                                                             m_lastFolder);
    if (folder.isEmpty())
        return;
    m_lastFolder = folder;
    // Opening a folder again picks up its new files without a word about
    // the ones already in the list.
    QStringList files;
    for (const QString &file : MediaFilesIn(folder, m_prefs.folderSubfolders)) {
        if (!m_parts.playlist.IsInPlaylist(file))
            files << file;
    }
    if (files.isEmpty()) {
        m_parts.notifier.notify(MessageNotifier::Icon::Information,
                                QStringLiteral("There are no new media files in <") + folder + QStringLiteral(">"));
        return;
    }
    m_parts.playlist.addFiles(files, true);
}

void SessionKeeper::openPlaylist()
{
    const QString file = QFileDialog::getOpenFileName(m_parts.window, QStringLiteral("Open playlist"), m_lastFolder,
                                                      QStringLiteral("Playlists (*.xspf *.m3u8 *.m3u);;All files (*)"));
    if (file.isEmpty())
        return;
    m_lastFolder = QFileInfo(file).path();
    m_playlistKeeper.openPlaylist(file);
}

void SessionKeeper::savePlaylistAs()
{
    const QString xspf = QStringLiteral("XSPF playlist (*.xspf)");
    const QString m3u8 = QStringLiteral("M3U8 playlist (*.m3u8)");
    QString filter = xspf;
    QString file = QFileDialog::getSaveFileName(m_parts.window, QStringLiteral("Save playlist as"), m_lastFolder,
                                                xspf + QStringLiteral(";;") + m3u8, &filter);
    if (file.isEmpty())
        return;
    const QString suffix = QFileInfo(file).suffix().toLower();
    if (suffix != u"xspf" && suffix != u"m3u8" && suffix != u"m3u")
        file += filter == m3u8 ? QStringLiteral(".m3u8") : QStringLiteral(".xspf");
    m_lastFolder = QFileInfo(file).path();
    m_playlistKeeper.savePlaylistAs(file);
}

void SessionKeeper::editPreferences()
{
    const std::optional<PlaybackPrefs> edited = PlaybackPrefsDialog::edit(m_prefs, m_parts.window);
    if (!edited)
        return;
    m_prefs = *edited;
    if (!SavePlaybackPrefs(m_prefsPath, m_prefs))
        m_parts.notifier.notify(MessageNotifier::Icon::Exclamation,
                                QStringLiteral("Cannot save the preferences to <") + m_prefsPath + QStringLiteral(">"));
}

} // namespace quorvel
