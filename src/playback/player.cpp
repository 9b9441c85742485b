#include "player.h"

#include "common/logging.h"
#include "playback/engineoptions.h"
#include "playlist/playlist.h"

#include <QTimer>

namespace quorvel {

Player::Player(Engine &engine, const Settings &settings, PlaybackState &state, Playlist &playlist,
               QObject *parent)
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
    qCDebug(lcPlayback) << "media control" << int(action);
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

void Player::PlayItem(int index, bool fullScreen)
{
    if (index < 0 || index >= m_playlist.list().count() || index >= m_playlist.count())
        return;
    RemoveVLCPlayer();
    AddVLCPLayer();
    m_state.CurrentFile = m_playlist.fullPath(index);
    if (m_state.VLCOptions.size() <= kSnapshotPathOptionIndex)
        SaveVLCOptions();
    m_state.VLCOptions[kSnapshotPathOptionIndex] = SnapshotPathOption(m_settings.SnapshotFolder, m_state.CurrentFile);
    m_engine.playlistAdd(m_state.CurrentFile, QString(), m_state.VLCOptions);
    m_engine.play();
    qCDebug(lcPlayback) << "started" << m_state.CurrentFile << "monotonic=" << MonotonicMs();

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
}

} // namespace quorvel
