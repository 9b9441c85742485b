#include "trackkeeper.h"

#include "common/logging.h"
#include "common/tracelines.h"
#include "playback/playbackstate.h"
#include "playback/trackchoice.h"

#include <QFileInfo>
#include <algorithm>

namespace quorvel {

namespace {

constexpr int kSampleMs = 250;

bool hasTrack(const QList<Engine::Track> &tracks, int id)
{
    return std::any_of(tracks.cbegin(), tracks.cend(), [id](const Engine::Track &t) { return t.id == id; });
}

QString languageOf(const QList<Engine::Track> &tracks, int id)
{
    for (const Engine::Track &t : tracks) {
        if (t.id == id)
            return t.language;
    }
    return {};
}

QString listed(const QList<Engine::Track> &tracks)
{
    QStringList parts;
    for (const Engine::Track &t : tracks)
        parts << QStringLiteral("%1 \"%2\" \"%3\"").arg(t.id).arg(t.language, t.description);
    return parts.join(QStringLiteral(", "));
}

QString idOrDefault(const std::optional<int> &id)
{
    return id ? QString::number(*id) : QStringLiteral("default");
}

} // namespace

TrackKeeper::TrackKeeper(Engine &engine, const PlaybackState &state, ResumeStore &store, PrefsSource prefs,
                         QObject *parent)
    : QObject(parent), m_engine(engine), m_state(state), m_store(store), m_prefs(std::move(prefs))
{
    m_timer.setInterval(kSampleMs);
    connect(&m_timer, &QTimer::timeout, this, &TrackKeeper::sample);
    m_timer.start();
}

void TrackKeeper::itemBegins(const QString &path)
{
    m_path = path;
    m_absolute.clear();
    m_size = -1;
    m_subtitleFile.clear();
    m_subtitleFileTrack = -1;
    m_fileByUser = false;
    m_startPending = true;
    if (!path.isEmpty() && !IsEngineLocation(path)) {
        const QFileInfo file(path);
        m_absolute = file.absoluteFilePath();
        m_size = file.size();
    }
}

bool TrackKeeper::ownsItem() const
{
    // Something else (a disc) may have been started past the file.
    return !m_absolute.isEmpty() && m_state.CurrentFile == m_path;
}

void TrackKeeper::sample()
{
    bool changed = false;
    bool fileArrived = false;
    const QList<Engine::Track> audio = m_engine.audioTracks(), subtitles = m_engine.subtitleTracks();
    if (audio != m_audio || subtitles != m_subtitles) {
        if (!m_subtitleFile.isEmpty() && m_subtitleFileTrack < 0) {
            for (const Engine::Track &t : subtitles) {
                if (!m_subtitlesBeforeFile.contains(t.id)) {
                    m_subtitleFileTrack = t.id;
                    fileArrived = true;
                    break;
                }
            }
        }
        m_audio = audio;
        m_subtitles = subtitles;
        changed = true;
        qCDebug(lcPlayback).noquote() << trace::kTracksListed << "audio" << listed(audio) << "; subtitles"
                                      << listed(subtitles);
    }
    if (m_startPending && m_state.CurrentFile == m_path && m_engine.state() == Engine::Playing
        && !(audio.isEmpty() && subtitles.isEmpty())) {
        m_startPending = false;
        applyStartChoice();
    }
    if (const int id = m_engine.audioTrack(); id != m_audioId) {
        m_audioId = id;
        changed = true;
        qCDebug(lcPlayback).noquote() << trace::kAudioTrack << id << ('"' + languageOf(m_audio, id) + '"');
    }
    if (const int id = m_engine.subtitleTrack(); id != m_subtitleId) {
        m_subtitleId = id;
        changed = true;
        qCDebug(lcPlayback).noquote() << trace::kSubtitleTrack << id << ('"' + languageOf(m_subtitles, id) + '"');
    }
    if (const qint64 ms = m_engine.subtitleDelayMs(); ms != m_delayMs) {
        m_delayMs = ms;
        qCDebug(lcPlayback).noquote() << trace::kSubtitleDelay << ms;
    }
    if (fileArrived && m_fileByUser)
        remember(); // the file the user added is there: it is kept with the file
    if (changed)
        emit tracksChanged();
}

void TrackKeeper::applyStartChoice()
{
    if (ownsItem()) {
        if (const auto kept = m_store.findTracks(m_absolute, m_size)) {
            qCDebug(lcPlayback).noquote()
                << trace::kTracksChosen << "memory: audio" << kept->audioTrack << "subtitle" << kept->subtitleTrack
                << "delay" << kept->subtitleDelayMs << "file" << kept->subtitleFile;
            if (hasTrack(m_audio, kept->audioTrack))
                m_engine.setAudioTrack(kept->audioTrack);
            if (!kept->subtitleFile.isEmpty() && QFileInfo::exists(kept->subtitleFile)) {
                m_subtitleFile = kept->subtitleFile;
                m_subtitlesBeforeFile.clear();
                for (const Engine::Track &t : m_subtitles)
                    m_subtitlesBeforeFile << t.id;
                m_engine.addSubtitleFile(m_subtitleFile);
            } else if (kept->subtitleTrack < 0 || hasTrack(m_subtitles, kept->subtitleTrack)) {
                m_engine.setSubtitleTrack(kept->subtitleTrack);
            }
            m_engine.setSubtitleDelayMs(kept->subtitleDelayMs);
            return;
        }
    }
    const TrackPick pick = ChooseTracks(m_audio, m_subtitles, m_prefs ? m_prefs() : PlaybackPrefs());
    qCDebug(lcPlayback).noquote() << trace::kTracksChosen << "preferences: audio" << idOrDefault(pick.audio)
                                  << "subtitle" << idOrDefault(pick.subtitle);
    if (pick.audio)
        m_engine.setAudioTrack(*pick.audio);
    if (pick.subtitle)
        m_engine.setSubtitleTrack(*pick.subtitle);
}

void TrackKeeper::chooseAudioTrack(int id)
{
    m_startPending = false; // the user's word wins over the start's choice
    m_engine.setAudioTrack(id);
    remember();
    sample();
}

void TrackKeeper::chooseSubtitleTrack(int id)
{
    m_startPending = false;
    m_engine.setSubtitleTrack(id);
    remember();
    sample();
}

void TrackKeeper::loadSubtitleFile(const QString &path)
{
    m_startPending = false;
    m_subtitleFile = path;
    m_subtitleFileTrack = -1;
    m_fileByUser = true;
    m_subtitlesBeforeFile.clear();
    for (const Engine::Track &t : m_engine.subtitleTracks())
        m_subtitlesBeforeFile << t.id;
    m_engine.addSubtitleFile(path);
    sample();
}

void TrackKeeper::stepSubtitleDelay(qint64 deltaMs)
{
    m_engine.setSubtitleDelayMs(m_engine.subtitleDelayMs() + deltaMs);
    remember();
    sample();
    emit subtitleDelayStepped(m_engine.subtitleDelayMs());
}

void TrackKeeper::remember()
{
    if (!ownsItem() || !m_engine.hasControl())
        return;
    const int subtitle = m_engine.subtitleTrack();
    const bool fileShows = m_subtitleFileTrack >= 0 && subtitle == m_subtitleFileTrack;
    m_store.rememberTracks(
        m_absolute, m_size,
        {m_engine.audioTrack(), subtitle, m_engine.subtitleDelayMs(), fileShows ? m_subtitleFile : QString()});
    m_store.save();
}

} // namespace quorvel
