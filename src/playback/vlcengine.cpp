#include "vlcengine.h"

#include "common/logging.h"
#include "common/tracelines.h"

#include <QGuiApplication>
#include <QUrl>
#include <QWidget>
#include <vlc/vlc.h>

namespace quorvel {

VlcInstance::VlcInstance(bool hasWindow)
{
    // The window draws its own title over nothing: no title overlay, and the
    // program (not the engine) owns keyboard and mouse on the video.
    // Without a window to draw into, libVLC would look for any output of its
    // own (a window, the framebuffer, the terminal as coloured text); the text
    // output's library unloads one of libVLC's own plugins while it is in use,
    // which crashes the next video start. Pictures are then decoded and dropped.
    // Subtitle files beside the video with its name ("clip.srt", "clip.en.ass")
    // load with it: libVLC's own default, named so that it stays on.
    const char *const args[] = {"--no-video-title-show", "--no-stats", "--no-osd", "--sub-autodetect-file",
                                "--vout=dummy"};
    m_instance = libvlc_new(static_cast<int>(std::size(args)) - (hasWindow ? 1 : 0), args);
    if (!m_instance) {
        // libVLC often fails without a reason (no plugins found, for one);
        // its version at least tells the user which installation to check.
        const char *err = libvlc_errmsg();
        m_error = QStringLiteral("libVLC %1 could not be started: ").arg(QString::fromUtf8(libvlc_get_version()))
                  + (err ? QString::fromUtf8(err)
                         : QStringLiteral("it gave no reason (are its plugins installed, for example "
                                          "the package vlc-plugin-base?)"));
        qCWarning(lcPlayback) << "engine failed to start:" << m_error;
    }
}

VlcInstance::~VlcInstance()
{
    if (m_instance)
        libvlc_release(m_instance);
}

void VlcEngine::PlayerDeleter::operator()(libvlc_media_player_t *p) const
{
    libvlc_media_player_stop(p);
    libvlc_media_player_release(p);
}

VlcEngine::VlcEngine(QWidget *videoSurface) : m_surface(videoSurface) {}

VlcEngine::~VlcEngine()
{
    m_player.reset();
    m_instance.reset();
}

libvlc_instance_t *VlcEngine::instance()
{
    if (!m_instance)
        m_instance = std::make_unique<VlcInstance>(hasWindow());
    return m_instance->get();
}

bool VlcEngine::hasWindow() const
{
    // libVLC draws only into X11 windows; other Qt platforms (offscreen,
    // Wayland chosen by the user) give ids that are no X window.
    return m_surface && QGuiApplication::platformName() == u"xcb";
}

QString VlcEngine::version()
{
    return QString::fromUtf8(libvlc_get_version());
}

QString VlcEngine::failure() const
{
    return m_instance && !m_instance->isValid() ? m_instance->lastError() : QString();
}

void VlcEngine::createControl()
{
    destroyControl();
    // An engine that could not start has no controls: callers then see
    // nothing loaded instead of an item that never leaves "Loading...".
    m_hasControl = failure().isEmpty();
}

void VlcEngine::destroyControl()
{
    m_player.reset();
    m_hasControl = false;
    m_hasItem = false;
}

void VlcEngine::playlistAdd(const QString &mrl, const QString &name, const QStringList &options)
{
    Q_UNUSED(name);
    if (!m_hasControl || m_hasItem)
        return; // a control holds one item in this program
    libvlc_instance_t *vlc = instance();
    if (!vlc) {
        m_hasControl = false;
        return;
    }
    // A local file goes as a path, so libVLC never parses it as an address.
    // A DVD folder or image is a path inside a location: libVLC would read
    // "%" as an escape and "#" as a title number there.
    QByteArray location = mrl.toUtf8();
    if (mrl.startsWith(QStringLiteral("dvd:///")))
        location = "dvd://" + QUrl::toPercentEncoding(mrl.mid(6), "/");
    libvlc_media_t *media = IsEngineLocation(mrl) ? libvlc_media_new_location(vlc, location.constData())
                                                  : libvlc_media_new_path(vlc, location.constData());
    if (!media) {
        qCWarning(lcPlayback) << "engine refused" << mrl;
        return;
    }
    for (const QString &option : options)
        libvlc_media_add_option(media, (u':' + option).toUtf8().constData());
    m_player.reset(libvlc_media_player_new_from_media(media));
    libvlc_media_release(media);
    if (!m_player)
        return;
    m_hasItem = true;
    if (lcPlayback().isDebugEnabled()) {
        // Traces the moment the engine starts playing (the monitor only polls
        // every half second). Logging is safe from the engine's thread.
        libvlc_event_attach(
            libvlc_media_player_event_manager(m_player.get()), libvlc_MediaPlayerPlaying,
            [](const libvlc_event_t *, void *) { qCDebug(lcPlayback) << trace::kEnginePlaying << MonotonicMs(); },
            nullptr);
    }
    libvlc_video_set_mouse_input(m_player.get(), false);
    libvlc_video_set_key_input(m_player.get(), false);
    if (hasWindow())
        libvlc_media_player_set_xwindow(m_player.get(), static_cast<uint32_t>(m_surface->winId()));
    if (m_volume >= 0)
        libvlc_audio_set_volume(m_player.get(), m_volume);
    if (m_muted)
        libvlc_audio_set_mute(m_player.get(), 1);
    if (m_equalizer)
        applyEqualizer();
}

QString VlcEngine::mrl() const
{
    libvlc_media_t *media = m_player ? libvlc_media_player_get_media(m_player.get()) : nullptr;
    if (!media)
        return {};
    char *text = libvlc_media_get_mrl(media);
    const QString result = QString::fromUtf8(text);
    libvlc_free(text);
    libvlc_media_release(media);
    return result;
}

void VlcEngine::play()
{
    if (m_player)
        libvlc_media_player_play(m_player.get());
}

void VlcEngine::togglePause()
{
    if (!m_player)
        return;
    // A stopped or finished item has nothing to pause; toggling it resumes.
    const libvlc_state_t s = libvlc_media_player_get_state(m_player.get());
    if (s == libvlc_Stopped || s == libvlc_Ended || s == libvlc_NothingSpecial)
        libvlc_media_player_play(m_player.get());
    else
        libvlc_media_player_pause(m_player.get());
}

void VlcEngine::stop()
{
    if (m_player)
        libvlc_media_player_stop(m_player.get());
}

int VlcEngine::itemCount() const
{
    return m_hasItem ? 1 : 0;
}

Engine::State VlcEngine::state() const
{
    // libVLC numbers its states as State does.
    return m_player ? static_cast<State>(libvlc_media_player_get_state(m_player.get())) : Idle;
}

double VlcEngine::position() const
{
    return m_player ? libvlc_media_player_get_position(m_player.get()) : 0.0;
}

void VlcEngine::setPosition(double fraction)
{
    if (m_player)
        libvlc_media_player_set_position(m_player.get(), static_cast<float>(qBound(0.0, fraction, 1.0)));
}

double VlcEngine::time() const
{
    if (!m_player)
        return 0;
    const libvlc_time_t t = libvlc_media_player_get_time(m_player.get());
    return t > 0 ? static_cast<double>(t) : 0.0;
}

double VlcEngine::length() const
{
    if (!m_player)
        return 0;
    const libvlc_time_t t = libvlc_media_player_get_length(m_player.get());
    return t > 0 ? static_cast<double>(t) : 0.0;
}

bool VlcEngine::hasVout() const
{
    return m_player && libvlc_media_player_has_vout(m_player.get()) > 0;
}

int VlcEngine::streamCount() const
{
    libvlc_media_t *media = m_player ? libvlc_media_player_get_media(m_player.get()) : nullptr;
    if (!media)
        return 0;
    libvlc_media_track_t **tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    if (count > 0)
        libvlc_media_tracks_release(tracks, count);
    libvlc_media_release(media);
    return static_cast<int>(count);
}

QList<Engine::Track> VlcEngine::tracksOf(int type) const
{
    QList<Track> found;
    libvlc_media_t *media = m_player ? libvlc_media_player_get_media(m_player.get()) : nullptr;
    if (!media)
        return found;
    libvlc_media_track_t **tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    for (unsigned i = 0; i < count; ++i) {
        if (tracks[i]->i_type != type)
            continue;
        QString language = QString::fromUtf8(tracks[i]->psz_language).trimmed();
        if (language.compare(u"und", Qt::CaseInsensitive) == 0)
            language.clear(); // "undetermined" says no more than nothing
        found.append({tracks[i]->i_id, language, QString::fromUtf8(tracks[i]->psz_description).trimmed()});
    }
    if (count > 0)
        libvlc_media_tracks_release(tracks, count);
    libvlc_media_release(media);
    return found;
}

QList<Engine::Track> VlcEngine::audioTracks() const
{
    return tracksOf(libvlc_track_audio);
}

QList<Engine::Track> VlcEngine::subtitleTracks() const
{
    return tracksOf(libvlc_track_text);
}

int VlcEngine::audioTrack() const
{
    return m_player ? libvlc_audio_get_track(m_player.get()) : -1;
}

int VlcEngine::subtitleTrack() const
{
    return m_player ? libvlc_video_get_spu(m_player.get()) : -1;
}

void VlcEngine::setAudioTrack(int id)
{
    if (m_player)
        libvlc_audio_set_track(m_player.get(), id);
}

void VlcEngine::setSubtitleTrack(int id)
{
    if (m_player)
        libvlc_video_set_spu(m_player.get(), id);
}

void VlcEngine::addSubtitleFile(const QString &path)
{
    if (m_player) {
        libvlc_media_player_add_slave(m_player.get(), libvlc_media_slave_type_subtitle,
                                      QUrl::fromLocalFile(path).toEncoded().constData(), true);
    }
}

qint64 VlcEngine::subtitleDelayMs() const
{
    // libVLC counts in microseconds.
    return m_player ? libvlc_video_get_spu_delay(m_player.get()) / 1000 : 0;
}

void VlcEngine::setSubtitleDelayMs(qint64 ms)
{
    if (m_player)
        libvlc_video_set_spu_delay(m_player.get(), ms * 1000);
}

void VlcEngine::setRate(double rate)
{
    if (m_player)
        libvlc_media_player_set_rate(m_player.get(), static_cast<float>(rate));
}

void VlcEngine::setVolume(int volume)
{
    // Kept so that the next item starts at the same volume.
    m_volume = qBound(0, volume, 100);
    if (m_player)
        libvlc_audio_set_volume(m_player.get(), m_volume);
}

void VlcEngine::toggleMute()
{
    // Kept here as well: every item gets a new player, and the sound stays off.
    m_muted = !m_muted;
    if (m_player)
        libvlc_audio_set_mute(m_player.get(), m_muted ? 1 : 0);
}

void VlcEngine::setFullscreen(bool on)
{
    if (!m_hasControl || m_fullscreen == on)
        return;
    m_fullscreen = on;
    if (m_fullscreenHandler)
        m_fullscreenHandler(on);
}

void VlcEngine::toggleFullscreen()
{
    setFullscreen(!m_fullscreen);
}

void VlcEngine::setEqualizer(const std::optional<EqualizerBands> &bands)
{
    // Kept as well: the next item's new player plays with it from its start.
    m_equalizer = bands;
    if (m_player)
        applyEqualizer();
}

void VlcEngine::applyEqualizer()
{
    if (!m_equalizer) {
        libvlc_media_player_set_equalizer(m_player.get(), nullptr);
        qCDebug(lcPlayback) << trace::kEqualizerOff;
        return;
    }
    libvlc_equalizer_t *levels = libvlc_audio_equalizer_new();
    if (!levels)
        return;
    QStringList amps;
    libvlc_audio_equalizer_set_preamp(levels, float(m_equalizer->preamp));
    for (unsigned b = 0; b < m_equalizer->amps.size(); ++b) {
        libvlc_audio_equalizer_set_amp_at_index(levels, float(m_equalizer->amps[b]), b);
        amps << QString::number(m_equalizer->amps[b]);
    }
    // The player takes a copy of the levels.
    const bool applied = libvlc_media_player_set_equalizer(m_player.get(), levels) == 0;
    libvlc_audio_equalizer_release(levels);
    if (applied)
        qCDebug(lcPlayback).noquote() << trace::kEqualizerOn << u"preamp="_qs + QString::number(m_equalizer->preamp)
                                      << u"bands="_qs + amps.join(u',');
    else
        qCWarning(lcPlayback) << "the engine refused the equalizer";
}

} // namespace quorvel
