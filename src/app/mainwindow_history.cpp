// The recent-file history of the main window: loaded into the menu at start,
// extended by every item that starts, and played again from the menu.

#include "mainwindow.h"

#include "app/sessionkeeper.h"
#include "app/windowdvd.h"
#include "common/logging.h"
#include "common/tracelines.h"
#include "menus/menukeys.h"
#include "playback/player.h"
#include "playback/transport.h"
#include "playlist/playlist.h"
#include "settings/filestore.h"

namespace quorvel {

void MainWindow::LoadHistory()
{
    if (m_history)
        return;
    m_store = std::make_unique<FileStore>(FileStore::defaultPath());
    m_history = std::make_unique<RecentHistory>(*m_store);
    m_history->LoadRecentFiles();
    ShowRecentFiles(*m_history, menu());
    qCDebug(lcApp) << trace::kHistoryLoaded << m_history->size() << "entries";

    connect(m_player.get(), &Player::itemStarted, this, [this](const QString &path, const QString &title) {
        if (!m_history->AddRecentFile(path, title))
            return;
        qCDebug(lcApp) << trace::kHistoryAdded << path;
        ShowRecentFiles(*m_history, menu());
    });
}

void MainWindow::playHistoryEntry(int slot)
{
    const QString path = m_history->path(slot);
    if (path.isEmpty())
        return;
    qCDebug(lcApp) << "history entry chosen" << slot << path;
    if (m_session && m_session->playWhenRestored(path))
        return;
    // A file already in the playlist plays from its row; anything else goes
    // through the add, whose refusal ("Cannot open file") covers a vanished file.
    const int index = m_playlist->fullPaths().indexOf(path);
    if (index >= 0) {
        m_playlist->list().setSelectedItem(index);
        m_player->PlayItem(index, false);
        m_transport->sequence().setCursor(index);
        return;
    }
    // A DVD that played before (it replays through the playlist) plays again as a DVD.
    if (path.startsWith(kDvdScheme)) {
        m_dvd->playback().playDvdSource(path);
        return;
    }
    m_playlist->LoadThumb(m_history->title(slot), path, false, true);
}

} // namespace quorvel
