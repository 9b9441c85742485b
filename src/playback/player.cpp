#include "player.h"

#include "common/logging.h"
#include "common/notifier.h"
#include "common/tracelines.h"
#include "playback/engineoptions.h"
#include "playlist/playlist.h"

#include <QFileInfo>
#include <QTimer>

namespace quorvel {

Player::Player(Engine &engine, const Settings &settings, PlaybackState &state, Playlist &playlist, QObject *parent)
    : QObject(parent), m_engine(engine), m_settings(settings), m_state(state), m_playlist(playlist)
{
}

void Player::SaveVLCOptions()
{
    m_state.VLCOptions = BuildEngineOptions(m_settings);
}

void Player::enableMediaControl(MediaAction action)
{
    m_state.apply(action);
    qCDebug(lcPlayback) << trace::kMediaControl << int(action);
    emit controlsChanged(action);
}

bool Player::rebuildCaption()
{
    const QString prefix = QStringLiteral("Quorvel - (");
    switch (m_settings.TitleMode) {
    case 0:
        m_state.CaptionText = prefix + m_playlist.list().selectedText() + u')';
        return true;
    case 1:
        m_state.CaptionText = prefix + m_playlist.fullPath(m_playlist.list().selectedItem()) + u')';
        return true;
    case 2:
        m_state.CaptionText = QStringLiteral("Quorvel");
        return true;
    default:
        return false;
    }
}

void Player::tell(const QString &text)
{
    qCWarning(lcPlayback).noquote() << trace::kMessage << text;
    if (m_notifier)
        m_notifier->notify(MessageNotifier::Icon::Exclamation, text);
}

void Player::tellCannotOpen(const QString &path, const QString &reason, StartedBy by)
{
    // The advance says it once per file: a repeating list comes back to it
    // again and again. What the user chose is always answered.
    const bool known = m_reportedUnplayable.contains(path);
    m_reportedUnplayable.insert(path);
    ++m_unplayableInRow;
    if (!known || by == StartedBy::User)
        tell(QStringLiteral("Cannot open file <") + path + QStringLiteral(">\r\n") + reason);
}

void Player::restartedByUser()
{
    m_startedBy = StartedBy::User;
    m_unplayableInRow = 0;
}

void Player::itemPlays()
{
    m_unplayableInRow = 0;
    m_reportedUnplayable.remove(m_state.CurrentFile); // a later failure is news
}

void Player::itemUnopenable()
{
    qCDebug(lcPlayback) << "engine cannot open" << m_state.CurrentFile;
    if (m_state.CurrentFile.startsWith(QStringLiteral("dvd://"))) {
        // No disc, a damaged one, or a folder or image that is no DVD-Video.
        ++m_unplayableInRow;
        if (m_notifier)
            m_notifier->notify(MessageNotifier::Icon::Critical, QStringLiteral("Please insert a valid DVD."));
        return;
    }
    // Play on a stopped item opens its file again, which may have gone since.
    const bool gone = !IsEngineLocation(m_state.CurrentFile) && !QFileInfo::exists(m_state.CurrentFile);
    tellCannotOpen(m_state.CurrentFile,
                   gone ? QStringLiteral("The file was not found.")
                        : QStringLiteral("The file is damaged or is not a media file."),
                   m_startedBy);
}

// Every item gets a new media control with the item's own options (its
// snapshot folder); the item that had the old one is left first.
void Player::loadIntoFreshControl(const QString &path)
{
    if (m_engine.hasControl())
        emit leavingItem();
    destroyEngine();
    createEngine();
    m_state.CurrentFile = path;
    if (m_state.VLCOptions.size() <= kSnapshotPathOptionIndex)
        SaveVLCOptions();
    m_state.VLCOptions[kSnapshotPathOptionIndex] = SnapshotPathOption(m_settings.SnapshotFolder, path);
    m_engine.playlistAdd(path, QString(), m_state.VLCOptions);
}

bool Player::CueItem(int index)
{
    const QString path = m_playlist.fullPath(index);
    if (index < 0 || index >= m_playlist.count() || (!IsEngineLocation(path) && !QFileInfo::exists(path)))
        return false;
    loadIntoFreshControl(path);
    if (!m_engine.failure().isEmpty())
        return false;
    qCDebug(lcPlayback) << "cued" << path;
    refreshCaption();
    return true;
}

StartResult Player::PlayItem(int index, bool fullScreen, StartedBy by)
{
    if (index < 0 || index >= m_playlist.list().count() || index >= m_playlist.count())
        return StartResult::NotInList;
    if (by == StartedBy::User)
        m_unplayableInRow = 0;
    const QString path = m_playlist.fullPath(index);
    if (!IsEngineLocation(path) && !QFileInfo::exists(path)) {
        // Checked here because the engine would fail on it without a word.
        tellCannotOpen(path, QStringLiteral("The file was not found."), by);
        qCDebug(lcPlayback) << "skipped missing" << path;
        return StartResult::FileMissing;
    }
    m_startedBy = by;
    loadIntoFreshControl(path);
    if (const QString failure = m_engine.failure(); !failure.isEmpty()) {
        // Nothing can play: one message, and the window stays usable in the
        // stopped state instead of waiting for an item that never loads.
        if (!m_engineFailureReported) {
            m_engineFailureReported = true;
            tell(QStringLiteral("Quorvel cannot play anything: the playback engine did not start.\r\n") + failure);
        }
        enableMediaControl(MediaAction::Stopped);
        return StartResult::EngineFailed;
    }
    m_engine.play();
    emit itemBegins(m_state.CurrentFile);
    qCDebug(lcPlayback) << trace::kStarted << m_state.CurrentFile << "monotonic=" << MonotonicMs();

    if (rebuildCaption())
        emit captionChanged(m_state.CaptionText);
    emit itemStarted(m_state.CurrentFile, m_playlist.list().selectedText());
    enableMediaControl(MediaAction::Playing);
    m_state.Rate = 1.0;
    // The switch to full screen waits for the events queued so far (the
    // engine's window appearing, pending clicks) instead of running a nested
    // event loop inside the start.
    if (fullScreen) {
        QTimer::singleShot(0, this, [this] { m_engine.toggleFullscreen(); });
    }
    return StartResult::Started;
}

} // namespace quorvel
