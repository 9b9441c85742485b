#include "mprismodel.h"

#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"
#include "playback/player.h"
#include "playback/playsequence.h"
#include "playback/rate.h"
#include "playback/transport.h"
#include "playlist/playlist.h"
#include "settings/associations.h"
#include "settings/settings.h"

#include <QDBusObjectPath>
#include <QFile>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quorvel {

namespace {

// The loop statuses in the order of the repeat modes.
const std::array<QString, 3> kLoopStatus = {u"None"_qs, u"Track"_qs, u"Playlist"_qs};

// A position that moved this much back, or this much further than playing
// explains, was moved by someone: a seek.
constexpr qint64 kJumpUs = 1'500'000;

} // namespace

MprisModel::MprisModel(Transport &transport, Player &player, Playlist &playlist, Settings &settings, MprisHost &host,
                       QObject *parent)
    : QObject(parent), m_transport(transport), m_player(player), m_playlist(playlist), m_settings(settings),
      m_host(host), m_engine(transport.engine()), m_state(player.state())
{
    connect(&player, &Player::itemStarted, this, [this](const QString &path) { trackStarted(path); });
    connect(&player, &Player::controlsChanged, this, &MprisModel::refreshSoon);
    connect(&transport, &Transport::playModeChanged, this, &MprisModel::refreshSoon);
    connect(&transport, &Transport::repeatModeChanged, this, &MprisModel::refreshSoon);
    connect(&transport, &Transport::rateStepsChanged, this, &MprisModel::refreshSoon);
    connect(&playlist, &Playlist::changed, this, &MprisModel::refreshSoon);
    // The monitor's tick: the end of an item, the length once it is known,
    // the volume moved on the window, a seek on the seek bar.
    connect(&transport.movieTimer(), &QTimer::timeout, this, &MprisModel::refresh);
    m_told = properties();
}

QStringList MprisModel::supportedUriSchemes()
{
    return {u"file"_qs};
}

QStringList MprisModel::supportedMimeTypes()
{
    QStringList types;
    for (int i = 0; i < kMediaExtensionCount; ++i) {
        const QString type = FileAssociations::MimeTypeOf(i);
        if (!types.contains(type))
            types << type;
    }
    return types;
}

bool MprisModel::isPlaying() const
{
    return m_state.MediaLoaded && !m_state.IsStopped; // not while a stop settles
}

bool MprisModel::isPaused() const
{
    return m_state.IsHalted && !m_state.IsStopped;
}

QString MprisModel::playbackStatus() const
{
    if (isPlaying())
        return u"Playing"_qs;
    return isPaused() ? u"Paused"_qs : u"Stopped"_qs;
}

QString MprisModel::loopStatus() const
{
    const int mode = m_settings.RepeatMode;
    return mode >= 0 && mode < int(kLoopStatus.size()) ? kLoopStatus[mode] : kLoopStatus[RepeatNoRepeat];
}

bool MprisModel::setLoopStatus(const QString &status)
{
    switch (std::find(kLoopStatus.begin(), kLoopStatus.end(), status) - kLoopStatus.begin()) {
    case RepeatNoRepeat:
        m_transport.RepeatNone();
        return true;
    case RepeatSingleItem:
        m_transport.RepeatSingle();
        return true;
    case RepeatAllItems:
        m_transport.RepeatAll();
        return true;
    default:
        return false;
    }
}

bool MprisModel::shuffle() const
{
    return m_settings.PlayMode == PlayShuffle;
}

void MprisModel::setShuffle(bool on)
{
    if (on == shuffle())
        return; // a new shuffle only when asked for by the menu
    if (on)
        m_transport.PBShuffle();
    else
        m_transport.PBContinuous();
}

double MprisModel::rate() const
{
    return m_state.Rate;
}

double MprisModel::minimumRate()
{
    return kMinRate;
}

double MprisModel::maximumRate()
{
    return kMaxRate;
}

void MprisModel::setRate(double rate)
{
    if (!(rate > 0)) {
        if (isPlaying())
            m_transport.pause();
        return;
    }
    // The speed moves in doubling steps: the one nearest on that scale.
    const double target = std::exp2(std::round(std::log2(std::clamp(rate, kMinRate, kMaxRate))));
    while (m_state.Rate < target) {
        const double before = m_state.Rate;
        m_transport.IncreaseRate();
        if (m_state.Rate == before)
            break;
    }
    while (m_state.Rate > target) {
        const double before = m_state.Rate;
        m_transport.DecreaseRate();
        if (m_state.Rate == before)
            break;
    }
}

double MprisModel::volume() const
{
    return m_host.volume() / 100.0;
}

void MprisModel::setVolume(double volume)
{
    m_host.setVolume(int(std::lround(std::clamp(volume, 0.0, 1.0) * 100)));
    refreshSoon();
}

qint64 MprisModel::lengthUs() const
{
    return std::llround(m_engine.length() * 1000);
}

qint64 MprisModel::position() const
{
    return std::llround(m_engine.time() * 1000);
}

QString MprisModel::trackId() const
{
    return u"/org/quorvel/Quorvel/Track/"_qs + QString::number(m_track);
}

QVariantMap MprisModel::metadata() const
{
    const QString path = m_state.CurrentFile;
    if (path.isEmpty() || m_track == 0)
        return {};
    const int index = m_playlist.fullPaths().indexOf(path);
    QVariantMap m;
    m.insert(u"mpris:trackid"_qs, QVariant::fromValue(QDBusObjectPath(trackId())));
    m.insert(u"xesam:url"_qs, IsEngineLocation(path) ? path : QUrl::fromLocalFile(path).toString());
    const QString title = index >= 0 ? m_playlist.list().itemText(index) : QString();
    m.insert(u"xesam:title"_qs, title.isEmpty() ? GetFileTitle(path) : title);
    if (const qint64 length = lengthUs(); length > 0)
        m.insert(u"mpris:length"_qs, length);
    if (!m_artPath.isEmpty())
        m.insert(u"mpris:artUrl"_qs, QUrl::fromLocalFile(m_artPath).toString());
    return m;
}

bool MprisModel::canGoNext() const
{
    return m_state.MediaLoaded && m_transport.sequence().count() > 0;
}

bool MprisModel::canPlay() const
{
    return m_playlist.count() > 0;
}

bool MprisModel::canPause() const
{
    return isPlaying() || isPaused();
}

bool MprisModel::canSeek() const
{
    return (isPlaying() || isPaused()) && m_engine.length() > 0;
}

QVariantMap MprisModel::properties() const
{
    return {
        {u"PlaybackStatus"_qs, playbackStatus()},
        {u"LoopStatus"_qs, loopStatus()},
        {u"Shuffle"_qs, shuffle()},
        {u"Rate"_qs, rate()},
        {u"Volume"_qs, volume()},
        {u"Metadata"_qs, metadata()},
        {u"MinimumRate"_qs, minimumRate()},
        {u"MaximumRate"_qs, maximumRate()},
        {u"CanGoNext"_qs, canGoNext()},
        {u"CanGoPrevious"_qs, canGoPrevious()},
        {u"CanPlay"_qs, canPlay()},
        {u"CanPause"_qs, canPause()},
        {u"CanSeek"_qs, canSeek()},
        {u"CanControl"_qs, true},
    };
}

void MprisModel::play()
{
    // Already playing: nothing (the transport would start the item afresh).
    // An empty playlist: nothing either, rather than a file dialog nobody asked for.
    if (isPlaying() || !canPlay())
        return;
    m_transport.play();
}

void MprisModel::pause()
{
    if (isPlaying())
        m_transport.pause();
}

void MprisModel::playPause()
{
    if (isPlaying())
        m_transport.pause();
    else
        play();
}

void MprisModel::stop()
{
    m_transport.stop();
}

void MprisModel::next()
{
    m_transport.next();
}

void MprisModel::previous()
{
    m_transport.previous();
}

void MprisModel::jumpedTo(qint64 positionUs)
{
    const qint64 length = lengthUs();
    m_engine.setPosition(double(positionUs) / double(length));
    qCDebug(lcPlayback) << trace::kSeek << double(positionUs) / double(length);
    m_lastPosition = positionUs;
    m_sinceLastPosition.restart();
    emit seeked(positionUs);
}

void MprisModel::seek(qint64 offsetUs)
{
    if (!canSeek())
        return;
    const qint64 target = std::max<qint64>(0, position() + offsetUs);
    if (target > lengthUs()) {
        next(); // past the end is the next track
        return;
    }
    jumpedTo(target);
}

void MprisModel::setPosition(const QString &id, qint64 positionUs)
{
    // A position meant for a track that has since gone is dropped.
    if (!canSeek() || id != trackId() || positionUs < 0 || positionUs > lengthUs())
        return;
    jumpedTo(positionUs);
}

QString MprisModel::openUri(const QString &uri)
{
    const QUrl url(uri);
    if (!url.isLocalFile())
        return u"Quorvel opens local files only, not "_qs + uri;
    const QString path = url.toLocalFile();
    if (!IsSupportedFile(path))
        return u"Quorvel does not play files of this type: "_qs + path;
    qCDebug(lcApp) << "media player bus opens" << path;
    m_host.addFiles({path});
    return {};
}

void MprisModel::trackStarted(const QString &path)
{
    ++m_track;
    if (!m_artPath.isEmpty())
        QFile::remove(std::exchange(m_artPath, QString()));
    // Panels show the entry's thumbnail; they read it from a file.
    const QImage thumb = m_playlist.list().itemImage(m_playlist.fullPaths().indexOf(path));
    const QString art = m_artDir.filePath(u"art-"_qs + QString::number(m_track) + u".png"_qs);
    if (m_artDir.isValid() && !thumb.isNull() && thumb.save(art))
        m_artPath = art;
    refreshSoon();
}

void MprisModel::refreshSoon()
{
    // Signals come in the middle of a command; the state is whole once it returns.
    if (std::exchange(m_refreshPending, true))
        return;
    QTimer::singleShot(0, this, [this] {
        if (m_refreshPending)
            refresh();
    });
}

void MprisModel::refresh()
{
    m_refreshPending = false;
    const QVariantMap now = properties();
    QVariantMap changed;
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        if (m_told.value(it.key()) != it.value())
            changed.insert(it.key(), it.value());
    }
    m_told = now;
    if (!changed.isEmpty())
        emit propertiesChanged(changed);

    // A jump of the position within the same track, by the seek bar or the
    // rewind button: clients that draw a progress bar must hear of it.
    const qint64 pos = position();
    const QString track = trackId();
    if (track == m_lastTrack && (isPlaying() || isPaused()) && m_sinceLastPosition.isValid()) {
        // Going back, or further than playing goes; an engine that lags
        // behind (buffering) has not jumped.
        const double played = isPlaying() ? m_sinceLastPosition.elapsed() * 1000.0 * m_state.Rate : 0;
        const double moved = double(pos - m_lastPosition);
        if (moved < -kJumpUs || moved > played + kJumpUs)
            emit seeked(pos);
    }
    m_lastTrack = track;
    m_lastPosition = pos;
    m_sinceLastPosition.restart();
}

} // namespace quorvel
