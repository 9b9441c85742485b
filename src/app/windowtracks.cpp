#include "windowtracks.h"

#include "app/videonote.h"
#include "menus/commanddispatcher.h"
#include "playback/player.h"

namespace quorvel {

WindowTracks::WindowTracks(Parts parts)
    : m_keeper(parts.engine, parts.state, parts.store, std::move(parts.prefs)),
      m_note(new VideoNote(parts.window, parts.video))
{
    connect(&parts.player, &Player::itemBegins, &m_keeper, &TrackKeeper::itemBegins);
    connect(&m_keeper, &TrackKeeper::subtitleDelayStepped, m_note,
            [this](qint64 ms) { m_note->flash(QStringLiteral("Subtitle delay: %1 ms").arg(ms)); });
    parts.dispatcher.setTracks(m_keeper, parts.chooser);
}

} // namespace quorvel
